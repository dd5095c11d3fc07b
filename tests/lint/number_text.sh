#!/bin/sh
# Numbers become text, and text numbers, in base/ alone: what follows the locale prints and reads a
# comma on half of Europe's machines.
set -eu
LC_ALL=C
export LC_ALL
files=$(find src -path src/base -prune -o \( -name '*.h' -o -name '*.cpp' \) -print | sort)
[ -n "$files" ] || { echo "no source below src/"; exit 1; }
readers='\<(strto(d|f|ld)|ato[fil]|sto(d|f|ld)|v?f?s?scanf|setlocale|localeconv)[[:space:]]*\('
streams='<(sstream|iostream|iomanip|istream|ostream|locale|clocale)>|\<[io]?stringstream\>'
locales='\<QLocale(\(\)|::system\(\))\.to[A-Z]|%L[0-9]'
texts='\<to_string[[:space:]]*\(.*([0-9]\.[0-9]|\<(float|double)\>)'
status=0
if grep -nE "$readers|$streams|$locales|$texts" $files; then status=1; fi
awk 'BEGIN { RS = ";" }
  /printf/ && /%[-+ #0-9.*]*[lL]?[aAeEfFgG]/ { sub(/^[ \n]*/, ""); print FILENAME ": " $0; bad = 1 }
  END { exit bad }' $files || status=1
[ $status = 0 ] || echo "the lines above use number text that follows the locale"
echo "$(echo "$files" | wc -l) files"
exit $status
