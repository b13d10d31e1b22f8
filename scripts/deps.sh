#!/usr/bin/env bash
# Installs the Debian packages that building and testing Brennik need, when any is missing.
# Usage: scripts/deps.sh PACKAGE...   (run as root, or with sudo available)
set -euo pipefail

missing=()
for package in "$@"; do
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
