#!/bin/sh
# Installs the Debian packages that the named groups need and the machine lacks: run, office, test,
# fuzz, bench, tour, tidy, format, ci. Does nothing, and asks for nothing, when all are there.
set -eu

packages_of() {
  case $1 in
    # What is linked to the user's office, in its very version; nothing where there is no office.
    office) dpkg-query -W -f='${db:Status-Status} libreoffice-dev=${Version}\n' libreoffice-calc 2>/dev/null |
      sed -n 's/^installed //p' ;;
    run) echo make g++ cmake ninja-build zlib1g-dev qt6-base-dev libqt6opengl6-dev libgl-dev \
      libqcustomplot-dev qt6-webengine-dev libxcb1-dev libxcb-xtest0-dev \
      qt6-translations-l10n fonts-roboto-unhinted fonts-dejavu-core ;;
    test) echo libgtest-dev xvfb ;;
    bench) echo libbenchmark-dev ;;
    fuzz) echo make cmake ninja-build zlib1g-dev clang libclang-rt-14-dev ;;
    tour) echo xvfb xauth ;;
    tidy) echo clang-tidy ;;
    format) echo clang-format ;;
    # What the tests of the office's and the chat's side run against; no user needs it.
    ci) echo libreoffice-calc libreoffice-dev ngircd ;;
    *) echo "unknown group: $1" >&2; exit 2 ;;
  esac
}

missing=
wanted= # built without, where it can't be had
for group in "$@"; do
  packages=$(packages_of "$group")
  for package in $packages; do
    status=$(dpkg-query -W -f='${db:Status-Status}\n' "${package%%=*}" 2>/dev/null | head -n 1)
    if [ "$status" = installed ]; then continue; fi
    if [ "$group" = office ]; then wanted="$wanted $package"; else missing="$missing $package"; fi
  done
done
[ -n "$missing$wanted" ] || exit 0

sudo=
[ "$(id -u)" = 0 ] || sudo=sudo
get="$sudo env DEBIAN_FRONTEND=noninteractive apt-get"
echo "Installing:$missing$wanted"
if [ -n "$missing" ]; then
  $get update
  $get install -y --no-install-recommends $missing
fi
if [ -n "$wanted" ]; then
  { [ -n "$missing" ] || $get update; } &&
    $get install -y --no-install-recommends --no-remove $wanted ||
    echo "Going on without:$wanted"
fi
