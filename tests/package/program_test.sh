#!/bin/sh
# usage: program_test.sh CMAKE BUILD EXAMPLES
# Installs the build directory BUILD, moves the installation elsewhere and fails unless its libraries
# name their binary interface and its program writes the text of an example job that is stored
# beside the job, computes an expression, stores a document and names a library that is missing.
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

# What is loaded when it is needed for the first time.
run() { "$work/installed/bin/ppword" "$@"; }
cat >"$work/job" <<'END'
{"job":1,"program":"P","units":"mm","designParameters":{"LENGTH":5.25}}
{"nc":"NC_RAPID"}
{"end":true}
END
printf '*START_NC_INSTRUCTION NC_RAPID\nRAPID/%%(LENGTH)\n*END\n' >"$work/table"
run document new "$work/document" >"$work/log"
run post "$work/job" -t "$work/table" -d "$work/document" -o "$work/text" 2>"$work/log"
grep -qE "^RAPID/ *5\.25" "$work/text"
rm "$work/installed/lib/libMfgPPWordExpressions.so"
status=0
run post "$work/job" -t "$work/table" >"$work/log" 2>&1 || status=$?
test "$status" -eq 4
grep -qE '^ppword: error: not installed: .*/libMfgPPWordExpressions.so: cannot open' "$work/log"
