#!/bin/sh
# usage: sbatch --dependency=afterany:ARRAY slurm-merge.sh TEXTS LAST
# Merges the records of the tasks 0 to LAST, sorted, into TEXTS/records.jsonl. Fails when a task did not succeed.
set -eu
export LC_ALL=C
cd -- "$1/records"
seq 0 "$2" | xargs grep -hsv '"totals"' | sort >../records.jsonl
seq 0 "$2" | while read -r task; do
  grep -qs '"status":0,"totals"' "$task" || echo "task $task did not succeed"
done >failed
cat failed >&2
test ! -s failed
