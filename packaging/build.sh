#!/usr/bin/env bash
# build.sh [PRESET [TARGET...]]: installs what is missing and builds those targets of the preset (all where none is
# named; release where no preset is).
set -euo pipefail
cd "$(dirname "$0")/.."

preset=${1:-release}
targets=("${@:2}")
packaging/install-packages.sh packaging/build-packages.txt
cmake --preset "$preset" >/dev/null
cmake --build --preset "$preset" ${targets:+--target "${targets[@]}"}
