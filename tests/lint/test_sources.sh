#!/bin/sh
# Every tests/**/*_test.cpp is compiled into a test program. $1 lists the sources of those.
set -eu
found=$(find "$PWD/tests" -name '*_test.cpp' | sort)
[ -n "$found" ] || { echo "no test below tests/"; exit 1; }
status=0
for file in $found; do
  grep -qxF "$file" "$1" || { echo "${file#"$PWD"/}: in no test program"; status=1; }
done
echo "$(echo "$found" | wc -l) files"
exit $status
