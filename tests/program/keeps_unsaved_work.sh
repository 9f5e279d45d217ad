#!/usr/bin/env bash
# keeps_unsaved_work.sh PROGRAM_FOLDER MAKE_SAMPLE_CAMPAIGN PLUGIN_FOLDER
# Edits in a copy of the program, off-screen, ends it in every way, and starts it again.
set -euo pipefail
programFolder=$1
makeSampleCampaign=$2
pluginFolder=$3

here=$(mktemp -d)
trap 'rm -rf "$here"' EXIT
fail() {
    echo "FAILED: $*" >&2
    exit 1
}

mkdir "$here/program" "$here/home"
"$makeSampleCampaign" "$here/campaign" >/dev/null
export QT_QPA_PLATFORM=offscreen HOME=$here/home XDG_CONFIG_HOME=$here/home XDG_DATA_HOME=$here/data
export QT_PLUGIN_PATH=$pluginFolder QT_QPA_GENERIC_PLUGINS=editsoon
unsaved=$here/data/vtr-target-editor/unsaved

# edit VARIABLE=VALUE...: one run of the program; its exit status.
edit() {
    for file in vtr-target-editor prefs.cfg map.dat; do
        cp "$programFolder/$file" "$here/program/"
    done
    env "$@" "$here/program/vtr-target-editor" "$here/campaign/sample.prj"
}
filesOfWork() {
    find "$here/data" -name '*.unsaved' | wc -l
}

for how in TERM HUP INT session close; do
    for message in '' VTR_TEST_MESSAGE=1; do
        [ "$how$message" = closeVTR_TEST_MESSAGE=1 ] && continue # the message is in its way
        rm -rf "$here/data"
        edit VTR_TEST_EDIT=77 VTR_TEST_WAIT=200 VTR_TEST_END=$how $message || fail "$how $message: exit status $?"
        [ "$(filesOfWork)" = 1 ] || fail "$how $message: no unsaved work is kept"
        grep -qF "$here/campaign/sample.prj" "$here/program/prefs.cfg" || fail "$how $message: no preferences are written"
    done
done

rm -rf "$here/data"
status=0
edit VTR_TEST_EDIT=77 VTR_TEST_END=error || status=$?
[ "$status" = 1 ] || fail "an error: exit status $status"
[ "$(filesOfWork)" = 1 ] || fail "an error: no unsaved work is kept"

rm -rf "$here/data"
status=0
edit VTR_TEST_EDIT=78 VTR_TEST_WAIT=3500 VTR_TEST_END=KILL || status=$?
[ "$status" = 137 ] || fail "killed: exit status $status"
[ "$(filesOfWork)" = 1 ] || fail "killed: no unsaved work is kept"
edit VTR_TEST_ANSWER='Take Back' VTR_TEST_EXPECTED=78 VTR_TEST_END=close || fail "take back: exit status $?"
[ "$(filesOfWork)" = 1 ] || fail "taken back and not saved: it is not kept"
edit VTR_TEST_ANSWER='Throw Away' VTR_TEST_END=close || fail "throw away: exit status $?"
[ -z "$(ls -A "$unsaved")" ] || fail "something is left: $(ls -A "$unsaved")"
