#!/bin/sh
# The includes of src/ follow src/arrows.txt, run in no circle, and know Qt only where it is allowed.
set -eu
LC_ALL=C
export LC_ALL
files=$(find src -name '*.h' -o -name '*.cpp' | sort)
[ -n "$files" ] || { echo "no source below src/"; exit 1; }
status=0

# Includes of ours as pairs "includer included", both counted from src/.
pairs=$(grep -HE '^[[:space:]]*#[[:space:]]*include[[:space:]]*"' $files |
  sed -E 's/^src\/([^:]*):[^"]*"([^"]*)".*/\1 \2/')

echo "$pairs" | awk '
  function where(path) { return path ~ /\// ? substr(path, 1, index(path, "/") - 1) : path }
  FNR == NR { if ($1 ~ /:$/) { from = $1; sub(/:$/, "", from); known[from] = 1
                for (i = 2; i <= NF; i++) may[from, $i] = 1 } next }
  NF == 2 {
    from = where($1); to = where($2)
    if (!(from in known)) { print "src/" $1 ": its folder is not in src/arrows.txt"; bad = 1 }
    else if (system("test -f src/" $2) != 0) {
      print "src/" $1 ": \"" $2 "\" is no path from src/"; bad = 1 }
    else if (from != to && !((from, to) in may)) {
      print "src/" $1 ": includes " $2 ", but there is no arrow from " from " to " to; bad = 1 }
  }
  END { exit bad }' src/arrows.txt - || status=1

if ! grep -v '^#' src/arrows.txt | awk -F'[: ]+' '{ for (i = 2; i <= NF; i++) if ($i) print $1, $i }' |
    tsort >/dev/null; then
  echo "src/arrows.txt: the arrows above run in a circle"; status=1
fi
if ! echo "$pairs" | tsort >/dev/null; then
  echo "the includes above run in a circle"; status=1
fi

outside=$(echo "$files" | grep -vE '^src/(qt/|web/|main\.cpp$|feed_main\.cpp$)' || true)
if [ -n "$outside" ] && grep -nE '#[[:space:]]*include[[:space:]]*[<"]Q[A-Za-z]' $outside; then
  echo "the includes above bring Qt in outside of src/qt and src/web"; status=1
fi
echo "$(echo "$files" | wc -l) files, $(echo "$pairs" | wc -l) includes"
exit $status
