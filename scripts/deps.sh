#!/usr/bin/env bash
# Installs the Debian packages that Brennik needs, when any is missing.
# Usage: scripts/deps.sh build|test    (run as root, or with sudo available)
set -euo pipefail

packages=(build-essential cmake ninja-build pkg-config qt6-base-dev qt6-svg-dev qt6-qpa-plugins
    fonts-dejavu-core fonts-liberation2 coinor-libclp-dev coinor-libcbc-dev)
if [ "${1:-build}" = test ]; then
    packages+=(googletest libgtest-dev libgmock-dev clang-14 libclang-rt-14-dev
        poppler-utils)
fi

missing=()
for package in "${packages[@]}"; do
    if ! dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q "install ok installed"; then
        missing+=("$package")
    fi
done
[ ${#missing[@]} -eq 0 ] && exit 0

echo "Installing: ${missing[*]}"
as_root=()
[ "$(id -u)" -ne 0 ] && as_root=(sudo)
export DEBIAN_FRONTEND=noninteractive
"${as_root[@]}" apt-get update -q
"${as_root[@]}" apt-get install -y -q --no-install-recommends "${missing[@]}"
