#!/usr/bin/env bash
# build.sh [PRESET]: installs what is missing and builds the preset (release when none is named).
set -euo pipefail
cd "$(dirname "$0")/.."

preset=${1:-release}
packaging/install-packages.sh packaging/build-packages.txt
cmake --preset "$preset" >/dev/null
cmake --build --preset "$preset"
