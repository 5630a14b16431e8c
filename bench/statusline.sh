#!/usr/bin/env bash
# Times `vantrelle statusline` on a generated home of agent logs: with the app running (answered over
# the instance socket from memory), then with the app gone (from the figures file it left in its cache
# folder), against one full `vantrelle usage --json` scan. Checks that the line's today's cost is the
# panel's. Exits non-zero when a median misses its target or the figures differ.
#
#   bench/statusline.sh [SIZE_MB=1024] [RUNS=41]
#
# BUILD (default build) is the build folder with app/vantrelle. The app runs on a private Xvfb.
set -euo pipefail
cd "$(dirname "$0")/.."

SIZE_MB=${1:-1024}
RUNS=${2:-41}
BUILD=${BUILD:-build}
APP=$BUILD/app/vantrelle
CACHE=build/bench-cache
HOME_DIR=$CACHE/home-${SIZE_MB}mb-v2
APP_TARGET_MS=20
FILE_TARGET_MS=50
export TZ=UTC
[[ -x $APP ]] || { echo "build $BUILD first"; exit 1; }

mkdir -p "$CACHE"
if [[ ! -f $HOME_DIR/.done || -z $(find "$HOME_DIR/.done" -mmin -1440) ]]; then
  rm -rf "$HOME_DIR"
  bench/agents/generate-logs --out "$HOME_DIR" --size-mb "$SIZE_MB" --agents claude
  touch "$HOME_DIR/.done"
fi
HOME_ABS=$(cd "$HOME_DIR" && pwd)

work=$(mktemp -d)
trap 'kill ${app_pid:-} ${xvfb_pid:-} 2>/dev/null || true; wait 2>/dev/null || true; rm -rf "$work"' EXIT
# Folders of its own: the user's settings, cache and running instance are never touched.
export XDG_RUNTIME_DIR=$work/run XDG_CACHE_HOME=$work/cache XDG_DATA_HOME=$work/data \
       XDG_CONFIG_HOME=$work/config VANTRELLE_AI_HOME=$HOME_ABS QT_QUICK_BACKEND=software
mkdir -p "$XDG_RUNTIME_DIR" && chmod 700 "$XDG_RUNTIME_DIR"
FIGURES=$XDG_CACHE_HOME/Vantrelle/statusline.json

# The newest session stands for the one Claude Code asks about.
transcript=$(find "$HOME_ABS/.claude/projects" -name '*.jsonl' -printf '%T@ %p\n' | sort -n | tail -1 | cut -d' ' -f2-)
session=$(basename "$transcript" .jsonl)
printf '{"session_id":"%s","transcript_path":"%s","model":{"id":"claude-opus-4","display_name":"Opus"},"workspace":{"current_dir":"/w"}}' \
  "$session" "$transcript" >"$work/input.json"

median_ms() {  # runs the status line RUNS times, prints the median wall time in milliseconds
  local times=()
  for _ in $(seq "$RUNS"); do
    local start end
    start=$(date +%s%N)
    "$APP" statusline <"$work/input.json" >/dev/null
    end=$(date +%s%N)
    times+=($(( (end - start) / 1000 )))
  done
  printf '%s\n' "${times[@]}" | sort -n | awk '{a[NR]=$1} END {printf "%.1f\n", a[int((NR+1)/2)]/1000}'
}

start=$(date +%s%N)
"$APP" usage --json --home "$HOME_ABS" >"$work/usage.json"
full_ms=$(( ($(date +%s%N) - start) / 1000000 ))
panel_today=$(python3 -c "
import json, sys
c = json.load(open(sys.argv[1]))['today']['cost']
print('\$%.0f' % round(c) if c >= 100 else '\$%.2f' % c)" "$work/usage.json")

source scripts/virtual-display.sh
start_virtual_display "$work"
"$APP" >"$work/app.out" 2>&1 &
app_pid=$!
# The first scan of the whole home, then the debounced write of the figures.
for _ in $(seq 600); do [[ -s $FIGURES ]] && break; sleep 0.5; done
[[ -s $FIGURES ]] || { echo "the app wrote no figures"; cat "$work/app.out"; exit 1; }

echo "line (app):  $("$APP" statusline --format '{model} {session_cost} {today_cost} {block_percent} {time_left} {burn} [{source}]' <"$work/input.json")"
line_today=$("$APP" statusline --format '{today_cost}' <"$work/input.json")
app_ms=$(median_ms)

"$APP" --quit
wait "$app_pid" || true
app_pid=
echo "line (file): $("$APP" statusline --format '{model} {session_cost} {today_cost} {block_percent} {time_left} {burn} [{source}]' <"$work/input.json")"
file_ms=$(median_ms)

echo "full scan: ${full_ms} ms; statusline median: ${app_ms} ms with the app (target ${APP_TARGET_MS}), ${file_ms} ms from the file (target ${FILE_TARGET_MS})"
echo "today: panel ${panel_today}, status line ${line_today}"
status=0
awk -v m="$app_ms" -v t="$APP_TARGET_MS" 'BEGIN {exit !(m < t)}' || { echo "FAIL: app median"; status=1; }
awk -v m="$file_ms" -v t="$FILE_TARGET_MS" 'BEGIN {exit !(m < t)}' || { echo "FAIL: file median"; status=1; }
[[ $panel_today == "$line_today" ]] || { echo "FAIL: today's cost differs from the panel's"; status=1; }
exit $status
