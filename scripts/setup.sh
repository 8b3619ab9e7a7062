#!/usr/bin/env bash
# Installs every Debian package the build, the tests and the main job need. Idempotent:
# when everything is present, nothing is downloaded.
set -euo pipefail

packages=(
  build-essential cmake ninja-build g++ clang-14 libclang-rt-14-dev
  libgtest-dev libgmock-dev libbenchmark-dev
  libreadline-dev qt6-base-dev libchm-dev fp-utils
  python3 python3-ezdxf librecad xvfb xauth chromium
  poppler-utils xdotool imagemagick
  libshp-dev python3-pyshp
  dpkg-dev lintian man-db
)

missing=()
for p in "${packages[@]}"; do
  dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "Installing: ${missing[*]}"
sudo_cmd=()
[ "$(id -u)" -ne 0 ] && sudo_cmd=(sudo)
export DEBIAN_FRONTEND=noninteractive
"${sudo_cmd[@]}" apt-get update -qq
"${sudo_cmd[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}" </dev/null
