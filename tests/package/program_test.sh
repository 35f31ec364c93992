#!/bin/sh
# usage: program_test.sh CMAKE BUILD EXAMPLES
# Installs the build directory BUILD, moves the installation elsewhere and fails unless its libraries
# name their binary interface and its program writes the text of an example job that is stored
# beside the job.
set -eu
cmake=$1 build=$2 examples=$3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

"$cmake" --install "$build" --prefix "$work/first" >"$work/log"
mv "$work/first" "$work/installed"
test -s "$work/installed/share/man/man1/ppword.1"
for library in libMfgPPWord libMfgPPWordHost; do
  LC_ALL=C readelf -d "$work/installed/lib/$library.so" | grep -qF "soname: [$library.so.0.1]" || {
    echo "$library.so does not name the binary interface 0.1" >&2
    exit 1
  }
done
"$work/installed/bin/ppword" post "$examples/drilling.job.jsonl" -o "$work/drilling.apt"
diff "$examples/expected/drilling.apt" "$work/drilling.apt"
