#!/usr/bin/env bash
# Idle cost of the running program: CPU over a quiet minute, resident memory, and whether pointer
# motion far from the notch makes it draw. Usage: bench/idle-cost.sh [build-folder] [seconds]
set -euo pipefail
build=${1:-build}
seconds=${2:-60}
app="$build/app/vantrelle"
work=$(mktemp -d)
trap 'kill ${app_pid:-} ${xvfb_pid:-} 2>/dev/null || true; rm -rf "$work"' EXIT

Xvfb -displayfd 3 -screen 0 1512x982x24 -nolisten tcp 3>"$work/display" >/dev/null 2>&1 &
xvfb_pid=$!
for _ in $(seq 100); do [[ -s "$work/display" ]] && break; sleep 0.05; done
export DISPLAY=:$(cat "$work/display") QT_QUICK_BACKEND=software
export HOME=$work/home XDG_CONFIG_HOME=$work/home/.config XDG_DATA_HOME=$work/home/.local/share
# Every frame the scene graph renders leaves a line here.
export QT_LOGGING_RULES="qt.scenegraph.time.renderloop=true"
"$app" >"$work/app.out" 2>&1 &
app_pid=$!
sleep 4

ticks=$(getconf CLK_TCK)
cpu_ticks() { awk '{print $14 + $15}' "/proc/$app_pid/stat"; }
frames() { grep -c -i "frame" "$work/app.out" || true; }

start=$(cpu_ticks)
sleep "$seconds"
idle_pct=$(echo "scale=3; 100 * ($(cpu_ticks) - $start) / $ticks / $seconds" | bc -l)
rss_kb=$(awk '/VmRSS/ {print $2}' "/proc/$app_pid/status")
hwm_kb=$(awk '/VmHWM/ {print $2}' "/proc/$app_pid/status")

frames_before=$(frames)
start=$(cpu_ticks)
for i in $(seq 200); do xdotool mousemove $((100 + i % 300)) $((500 + i % 200)) mousemove_relative 1 1; done
sleep 1
move_cpu=$(echo "scale=3; ($(cpu_ticks) - $start) / $ticks" | bc -l)
frames_after=$(frames)

echo "idle: ${idle_pct}% of one core over ${seconds}s (goal < 0.5%)"
echo "memory: RSS $((rss_kb / 1024)) MB, peak $((hwm_kb / 1024)) MB (goal < 150 MB)"
echo "pointer far from the notch: 200 moves, $((frames_after - frames_before)) frames drawn (goal 0), ${move_cpu} s of CPU"
ok=1
(( $(echo "$idle_pct < 0.5" | bc -l) )) || ok=0
(( rss_kb < 150 * 1024 )) || ok=0
(( frames_after == frames_before )) || ok=0
[[ $ok == 1 ]] && echo "idle cost: within goals" || { echo "idle cost: OVER GOALS"; exit 1; }
