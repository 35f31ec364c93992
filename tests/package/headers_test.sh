#!/bin/sh
# usage: headers_test.sh CMAKE BUILD LIST
# Installs the build directory BUILD and fails unless the installed headers are exactly those of the
# file LIST, and one source that includes them all compiles against the installation alone.
set -eu
export LC_ALL=C
cmake=$1 build=$2 list=$3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

"$cmake" --install "$build" --prefix "$work/installed" --component embedding >"$work/log"
headers=$work/installed/include/MfgPPWord
(cd "$headers" && find . -name '*.h' | sed 's,^\./,,' | sort) >"$work/installed.txt"
diff "$list" "$work/installed.txt" || {
  echo "the installed headers differ from $list (< expected, > installed)" >&2
  exit 1
}

sed -e 's,^platform/,,' -e 's,^interfaces/,,' -e 's,.*,#include "&",' "$list" >"$work/all.cpp"
"${CXX:-c++}" -std=c++20 -fsyntax-only -I"$headers" -I"$headers/platform" \
  -I"$headers/interfaces" "$work/all.cpp"
