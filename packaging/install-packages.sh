#!/usr/bin/env bash
# install-packages.sh LIST...: installs those Debian packages of the lists that are missing. Asks nothing
# (sudo may ask for a password).
set -euo pipefail

if ! command -v dpkg-query >/dev/null; then
    echo "This system has no Debian packages. The build needs what these are elsewhere:" >&2
    grep -hv '^#' "$@" | sed 's/^/  /' >&2
    exit 0
fi
missing=()
for package in $(grep -hv '^#' "$@"); do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'install ok installed' || missing+=("$package")
done
[ ${#missing[@]} -gt 0 ] || exit 0

as_root=()
if [ "$(id -u)" -ne 0 ]; then
    as_root=(sudo)
    if ! command -v sudo >/dev/null; then
        echo "As root, install: ${missing[*]}" >&2
        exit 1
    fi
fi
echo "Installing: ${missing[*]}"
"${as_root[@]}" apt-get update -qq </dev/null
"${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends \
    "${missing[@]}" </dev/null >/dev/null
