#!/bin/sh
# The manual agrees with the program: its keys, its version, its anchors; and it needs nothing from
# outside.
status=0
manual=docs/manual/index.html

for key in $(sed -n 's/.*\.key = "\([^"]*\)".*/\1/p' src/shell/command_table.cpp); do
  grep -qF "<kbd>$key</kbd></th>" $manual || { echo "$manual: no row for the key $key"; status=1; }
done

name=$(sed -n 's/.*kCaption = "\(.*\)";/\1/p' src/shell/mdi.h)
for place in "$manual:<h1>Manual de $name</h1>" "README.md:# $name" \
  "CMakeLists.txt:project(cotirama VERSION ${name##* } "; do
  grep -qF "${place#*:}" "${place%%:*}" || { echo "${place%%:*}: not of $name"; status=1; }
done

for anchor in $(grep -o 'href="#[^"]*"' $manual | cut -d'"' -f2); do
  grep -qF "id=\"${anchor#?}\"" $manual || { echo "$manual: nothing at $anchor"; status=1; }
done

if grep -nE '<script|(src|href)="[a-z]*:?//|@import|url\(' docs/manual/*.html docs/manual/*.css; then
  echo "the lines above need something from outside"; status=1
fi
exit $status
