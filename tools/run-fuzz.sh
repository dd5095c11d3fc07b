#!/bin/sh
# Runs each fuzz target of a build directory for a number of seconds, from the seeds in
# fuzz/corpus/<target> where there are any. What it finds stays in the build directory.
set -eu
build=$1
seconds=$2
ran=0
for target in "$build"/*_fuzz; do
  [ -x "$target" ] || continue
  name=$(basename "$target")
  seeds=
  [ ! -d "fuzz/corpus/$name" ] || seeds=fuzz/corpus/$name
  mkdir -p "$build/corpus/$name"
  if ! "$target" -max_total_time="$seconds" -timeout=10 -rss_limit_mb=2048 \
      -artifact_prefix="$build/$name-" "$build/corpus/$name" $seeds >"$build/$name.log" 2>&1; then
    tail -n 60 "$build/$name.log"
    echo "$name: failed"
    exit 1
  fi
  echo "$name: $(tail -n 1 "$build/$name.log")"
  ran=$((ran + 1))
done
[ "$ran" -gt 0 ] || { echo "no fuzz target in $build"; exit 1; }
