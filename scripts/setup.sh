#!/usr/bin/env bash
# Sets up a Debian 12 machine for the program, as root: installs what is
# missing, builds, then starts the program ("run") or runs every test ("test").
set -euo pipefail
cd "$(dirname "$0")/.."

mode="${1:-run}"
case "$mode" in
  run|test) ;;
  *) echo "usage: $0 run|test" >&2; exit 2 ;;
esac

packages=(
  g++ cmake ninja-build pkg-config
  qt6-base-dev qt6-base-dev-tools libqt6opengl6-dev qt6-charts-dev qt6-qpa-plugins libgl-dev
  libgumbo-dev fonts-noto-cjk qt6-translations-l10n desktop-file-utils
  dpkg-dev file lintian appstream
)
missing=()
for package in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed" || missing+=("$package")
done
if [ "${#missing[@]}" -gt 0 ]; then
  export DEBIAN_FRONTEND=noninteractive
  apt-get update -q
  apt-get install -y -q --no-install-recommends "${missing[@]}"
fi

cmake -S . -B build -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo
cmake --build build

if [ "$mode" = test ]; then
  # Window tests draw on the offscreen platform: no display is needed.
  QT_QPA_PLATFORM=offscreen ctest --test-dir build --output-on-failure
else
  exec build/src/chengchuan
fi
