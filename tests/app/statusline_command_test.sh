#!/bin/sh
# `vantrelle statusline` as Claude Code runs it, with no display and no running app: whatever arrives on
# standard input, one line and status 0; the cached figures file is used while it is readable, and a
# broken one is passed over for the session's own log.
set -u
bin=$1
home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT
export HOME="$home" XDG_DATA_HOME="$home/.local/share" XDG_CONFIG_HOME="$home/.config" \
       XDG_CACHE_HOME="$home/.cache" XDG_RUNTIME_DIR="$home/run" TZ=UTC
unset DISPLAY WAYLAND_DISPLAY NO_COLOR
export QT_QPA_PLATFORM=xcb
mkdir -p "$home/run" "$home/.cache/Vantrelle"
failures=0

check() {  # check <name> <text wanted in the line> <stdin>
  output=$(printf '%s' "$3" | timeout 20 "$bin" statusline 2>"$home/err")
  got=$?
  lines=$(printf '%s\n' "$output" | wc -l)
  if [ "$got" -ne 0 ] || [ "$lines" -ne 1 ] || [ -s "$home/err" ] || ! printf '%s' "$output" | grep -qF -- "$2"; then
    echo "FAIL: $1: exit $got, $lines lines, output: $output, errors: $(cat "$home/err")"
    failures=$((failures + 1))
  fi
}

transcript="$home/s1.jsonl"
printf '%s\n' '{"type":"assistant","requestId":"r","message":{"id":"m","model":"claude-opus-4","usage":{"output_tokens":100000}}}' >"$transcript"
input="{\"session_id\":\"s1\",\"transcript_path\":\"$transcript\",\"model\":{\"display_name\":\"Opus\"}}"

check "garbage" "no usage figures yet" "$(printf 'not json\001\377')"
check "no app, no file: the session's log" "Opus | \$7.50 session" "$input"
printf '{"generatedAt":%s,"day":"%s","today":{"tokens":5,"cost":3.25},"sessions":{"s1":{"tokens":1,"cost":0.5}}}' \
  "$(date +%s)" "$(date +%Y-%m-%d)" >"$home/.cache/Vantrelle/statusline.json"
check "figures file" "\$0.50 session | \$3.25 today" "$input"
printf '{"generatedAt":' >"$home/.cache/Vantrelle/statusline.json"
check "broken file" "\$7.50 session" "$input"
exit "$failures"
