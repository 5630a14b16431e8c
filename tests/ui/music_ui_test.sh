#!/usr/bin/env bash
# On a private session bus and display, mpv plays a generated tone and the music panel follows it.
set -euo pipefail
app=${1:?usage: music_ui_test.sh <vantrelle binary>}
for tool in dbus-run-session mpv sox Xvfb import; do
  command -v "$tool" >/dev/null || { echo "SKIP: $tool is not installed"; exit 0; }
done
# A bus of our own, so no player of the machine takes part.
if [[ -z "${VANTRELLE_MUSIC_TEST_BUS:-}" ]]; then
  exec env VANTRELLE_MUSIC_TEST_BUS=1 dbus-run-session -- "$0" "$@"
fi

source "$(dirname "$0")/lib.sh"
start_display
export VANTRELLE_BACKDROP=1 VANTRELLE_START_EXPANDED=1 VANTRELLE_PIN_EXPANDED=1 VANTRELLE_START_TAB=music

"$app" >"$work/app.out" 2>&1 &
app_pid=$!
wait_for "launch: start media" 10

sox -n "$work/tone.wav" synth 30 sine 440
mpv --ao=null --no-video --idle=no --no-terminal "$work/tone.wav" >/dev/null 2>&1 &
helper_pid=$!
wait_for "media: player org.mpris.MediaPlayer2.mpv appeared" 10
wait_for "media: apply Music 'tone.wav' playing=true" 10
sleep 1
import -window root "$work/music.png"
# The music view is drawn: light text on the dark panel.
colours=$(convert "$work/music.png" -crop 700x300+406+40 -format "%k" info:)
(( colours > 20 )) || fail "the music view looks empty ($colours colours)"
[[ -n "${VANTRELLE_MUSIC_SHOT:-}" ]] && cp "$work/music.png" "$VANTRELLE_MUSIC_SHOT"
echo "PASS"
