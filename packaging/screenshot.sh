#!/usr/bin/env bash
# Takes the README's picture anew, from the real window with the sample campaign.
set -euo pipefail
cd "$(dirname "$0")/.."

packaging/build.sh release
build/release/tests/editor_tour build/release/tour
cp build/release/tour/window.png docs/screenshot.png
