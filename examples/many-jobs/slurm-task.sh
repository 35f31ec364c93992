#!/bin/bash
# usage: sbatch --array=0-LAST slurm-task.sh TABLE TEXTS
# One task: CHUNK of the names that end with a zero byte in TEXTS/run, after two other texts. Once it has succeeded it
# has nothing to do.
set -eu
table=$1 texts=$2 record=$2/records/$SLURM_ARRAY_TASK_ID
if tail -n 1 "$record" 2>/dev/null | grep -q '"status":0,"totals"'; then exit 0; fi
mapfile -d '' -s $((2 + SLURM_ARRAY_TASK_ID * CHUNK)) -n "$CHUNK" jobs <"$texts/run"
exec "${PPWORD:-ppword}" post "${jobs[@]}" -t "$table" --output-dir "$texts" --format jsonl >"$record"
