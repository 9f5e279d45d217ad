#!/usr/bin/env bash
# Installs what is missing, builds what the editor needs, makes the sample campaign and opens the editor on it.
# Arguments go to the editor in place of the sample: ./run.sh /path/to/your.prj
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)

headless=
if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ] && [ "$(uname)" = Linux ]; then headless=editor_tour; fi
"$here/packaging/build.sh" release vtr-target-editor make_sample_campaign map_dat shipped_preferences $headless
build=$here/build/release
sample=$build/sample-campaign
if [ ! -d "$sample" ]; then
    # Under another name until it is whole.
    rm -rf "$sample.new"
    "$build/sample/make_sample_campaign" "$sample.new"
    mv "$sample.new" "$sample"
fi

if [ "$headless" ]; then
    echo "There is no display, so the editor is run off-screen on a copy of the sample campaign."
    [ $# -eq 0 ] || echo "Nothing is done with: $*"
    exec "$build/tests/editor_tour" "$build/tour"
fi
exec "$build/bin/vtr-target-editor" "${@:-$sample/sample.prj}"
