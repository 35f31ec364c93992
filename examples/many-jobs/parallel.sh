#!/bin/sh
# usage: parallel.sh TABLE JOBS TEXTS [OPTION-OF-PARALLEL]...
# Posts each JOBS/*.jsonl to TEXTS/*.apt, CHUNK in a process. The same command again goes on where the last run ended:
# what TEXTS/parallel.log calls done is not done again.
set -eu
export LC_ALL=C # one order of the names
table=$1 jobs=$2 texts=$3 chunk=${CHUNK:-50}
shift 3
mkdir -p "$texts"
printf '%s\0' "$chunk" "$table" "$jobs"/*.jsonl >"$texts/run.new"
cmp -s "$texts/run.new" "$texts/run" || rm -f "$texts/parallel.log" # of another run
mv "$texts/run.new" "$texts/run"
tail -z -n +3 "$texts/run" |
  parallel -0 -n "$chunk" --quote --joblog "$texts/parallel.log" --resume-failed --workdir "$PWD" "$@" \
    "${PPWORD:-ppword}" post {} -t "$table" --output-dir "$texts" -q
