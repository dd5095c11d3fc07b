#!/bin/sh
# Installs the Debian packages that the named groups need and the machine lacks: run, test, fuzz,
# bench, tour, tidy, format. Does nothing, and asks for nothing, when all of them are there.
set -eu

packages_of() {
  case $1 in
    run) echo make g++ cmake ninja-build zlib1g-dev qt6-base-dev libqt6opengl6-dev libgl-dev libqcustomplot-dev \
      libxcb1-dev libxcb-xtest0-dev \
      qt6-translations-l10n fonts-roboto-unhinted ;;
    test) echo libgtest-dev fonts-dejavu-core xvfb ;;
    bench) echo libbenchmark-dev ;;
    fuzz) echo make cmake ninja-build zlib1g-dev clang libclang-rt-14-dev ;;
    tour) echo xvfb xauth fonts-dejavu-core ;;
    tidy) echo clang-tidy ;;
    format) echo clang-format ;;
    *) echo "unknown group: $1" >&2; exit 2 ;;
  esac
}

missing=
for group in "$@"; do
  packages=$(packages_of "$group")
  for package in $packages; do
    status=$(dpkg-query -W -f='${db:Status-Status}\n' "$package" 2>/dev/null | head -n 1)
    [ "$status" = installed ] || missing="$missing $package"
  done
done
[ -n "$missing" ] || exit 0

sudo=
[ "$(id -u)" = 0 ] || sudo=sudo
echo "Installing:$missing"
$sudo apt-get update
$sudo env DEBIAN_FRONTEND=noninteractive apt-get install -y --no-install-recommends $missing
