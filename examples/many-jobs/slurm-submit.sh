#!/bin/sh
# usage: slurm-submit.sh TABLE JOBS TEXTS [OPTION-OF-SBATCH]...
# Posts each JOBS/*.jsonl to TEXTS/*.apt in an array of Slurm tasks, CHUNK in a task, and then merges their records. All
# nodes see this folder. The same command again posts only what did not succeed, task by task.
set -eu
export LC_ALL=C CHUNK="${CHUNK:-50}" # one order of the names
here=$(dirname -- "$(readlink -f -- "$0")") table=$1 jobs=$2 texts=$3
shift 3
mkdir -p "$texts/records"
printf '%s\0' "$CHUNK" "$table" "$jobs"/*.jsonl >"$texts/run.new"
cmp -s "$texts/run.new" "$texts/run" || rm -f "$texts"/records/* # of another run
mv "$texts/run.new" "$texts/run"
last=$((($(tr -dc '\0' <"$texts/run" | wc -c) - 3) / CHUNK))
set -- --output="$texts/records/%x.log" --open-mode=append "$@"
array=$(sbatch --parsable --array="0-$last" "$@" "$here/slurm-task.sh" "$table" "$texts")
sbatch --parsable --dependency="afterany:$array" "$@" "$here/slurm-merge.sh" "$texts" "$last"
