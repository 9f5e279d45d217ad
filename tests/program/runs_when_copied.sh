#!/usr/bin/env bash
# runs_when_copied.sh PROGRAM_FOLDER MAKE_SAMPLE_CAMPAIGN PLUGIN_FOLDER
# Copies the program's folder elsewhere and runs the program there, off-screen.
set -euo pipefail
programFolder=$1
makeSampleCampaign=$2
pluginFolder=$3

here=$(mktemp -d)
editor=
cleanUp() {
    [ -z "$editor" ] || kill "$editor" 2>/dev/null || true
    rm -rf "$here"
}
trap cleanUp EXIT
fail() {
    echo "FAILED: $*" >&2
    exit 1
}

mkdir "$here/copied program" "$here/home" "$here/elsewhere"
for file in vtr-target-editor prefs.cfg map.dat; do
    cp "$programFolder/$file" "$here/copied program/" || fail "the program's folder has no $file"
done
"$makeSampleCampaign" "$here/my campaign" >/dev/null
cd "$here/elsewhere"
export QT_QPA_PLATFORM=offscreen HOME=$here/home XDG_CONFIG_HOME=$here/home XDG_DATA_HOME=$here/home

# A path with a blank comes in two arguments.
"$here/copied program/vtr-target-editor" "$here/my" campaign/sample.prj &
editor=$!
sleep 2
kill -0 "$editor" 2>/dev/null || fail "the program has ended by itself"
kill "$editor"
wait "$editor" || true
editor=

# Once more, and closed as a user would.
QT_PLUGIN_PATH=$pluginFolder QT_QPA_GENERIC_PLUGINS=closesoon \
    "$here/copied program/vtr-target-editor" "$here/my" campaign/sample.prj || fail "exit status $?"
grep -qF "$here/my campaign/sample.prj" "$here/copied program/prefs.cfg" ||
    fail "the project is not among the recent ones in the program's own folder"
[ -z "$(ls -A "$here/home")" ] || fail "it wrote to the user's folder: $(ls -A "$here/home")"
[ -z "$(ls -A "$here/elsewhere")" ] || fail "it wrote to the working folder: $(ls -A "$here/elsewhere")"
