#!/bin/sh
# usage: package_test.sh CMAKE BUILD PROJECT EXPECTED
# Installs the build directory BUILD, moves the installation elsewhere, builds a copy of PROJECT
# against it and fails unless the program prints exactly the text of the file EXPECTED.
set -eu
cmake=$1 build=$2 project=$3 expected=$4
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

"$cmake" --install "$build" --prefix "$work/first" --component embedding >"$work/log"
mv "$work/first" "$work/installed"
if grep -rlF "$build" "$work/installed" --include='*.cmake'; then
  echo "the package refers to its build directory" >&2
  exit 1
fi

test -s "$work/installed/share/MfgPPWord/locale/de/LC_MESSAGES/ManufacturingError.mo"

cp -R "$project" "$work/project"
build_project() {
  "$cmake" -S "$work/project" -B "$work/build" -DCMAKE_PREFIX_PATH="$work/installed" &&
    "$cmake" --build "$work/build"
}
if ! build_project >>"$work/log" 2>&1; then
  cat "$work/log" >&2
  exit 1
fi

"$work/build/$(basename "$project")" >"$work/printed"
diff "$expected" "$work/printed"
