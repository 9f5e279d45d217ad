#!/usr/bin/env bash
# makes_the_same_sample_twice.sh PROGRAM WORK_FOLDER: passes when two runs of PROGRAM make the same bytes.
set -euo pipefail
program=$1 work=$2

rm -rf "$work"
mkdir -p "$work"
"$program" "$work/one"
"$program" "$work/two"
[ "$(find "$work/one" -type f | wc -l)" -gt 60 ]
diff -r "$work/one" "$work/two"
