#!/bin/sh
# No file over 600 lines and no function over 80, unless tests/lint/long.txt names it ("path" or
# "path function"). What it names must still be that long, so the list can only shrink.
set -eu
LC_ALL=C
export LC_ALL
files=$(find src tests -name '*.h' -o -name '*.cpp' | sort)
[ -n "$files" ] || { echo "no source below src/ and tests/"; exit 1; }
{
  awk 'FNR == 1 && NR > 1 { print "file", n, last } { n = FNR; last = FILENAME }
       END { print "file", n, last }' $files | awk '$2 > 600'
  awk -f tests/lint/functions.awk $files | awk '{ n++ } $2 > 80 { print } END { print "count", n }'
} | awk '
  FNR == NR { if ($0 !~ /^#/ && NF) listed[$1 (NF > 1 ? " " $2 : "")] = 1; next }
  $1 == "count" { count = $2; next }
  { name = $1 == "file" ? $3 : $3 " " $4
    if (name in listed) { used[name] = 1; next }
    print name ": " $2 " lines"; bad = 1 }
  END { for (name in listed) if (!(name in used)) {
          print name ": no longer too long, take it off tests/lint/long.txt"; bad = 1 }
        print count + 0 " functions"
        exit bad || !count }' tests/lint/long.txt -
