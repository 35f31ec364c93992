#!/bin/sh
# usage: program_test.sh CMAKE BUILD EXAMPLES
# Installs the build directory BUILD, moves the installation elsewhere and fails unless its program
# makes of an example job the text that is kept beside it.
set -eu
cmake=$1 build=$2 examples=$3
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

"$cmake" --install "$build" --prefix "$work/first" >"$work/log"
mv "$work/first" "$work/installed"
test -s "$work/installed/share/man/man1/ppword.1"
"$work/installed/bin/ppword" post "$examples/drilling.job.jsonl" -o "$work/drilling.apt"
diff "$examples/expected/drilling.apt" "$work/drilling.apt"
