#!/bin/sh
# `vantrelle hooks` with no display, on a real settings file: install and uninstall leave the file as it
# was, and a refusal and a mistake reach the exit status (the edits themselves are unit-tested).
set -u
bin=$1
home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT
export HOME="$home" XDG_DATA_HOME="$home/.local/share" XDG_CONFIG_HOME="$home/.config"
unset DISPLAY WAYLAND_DISPLAY VANTRELLE_CLAUDE_SETTINGS VANTRELLE_CLAUDE_EVENTS
export QT_QPA_PLATFORM=xcb  # reaching Qt would abort here: there is no X server to connect to
settings="$home/.claude/settings.json"
failures=0

expect() {  # expect <status> <text in output> <arguments...>
  want=$1 text=$2
  shift 2
  output=$(timeout 20 "$bin" hooks "$@" 2>&1)
  got=$?
  if [ "$got" -ne "$want" ] || ! printf '%s' "$output" | grep -qF -- "$text"; then
    echo "FAIL: vantrelle hooks $*: exit $got (wanted $want), output: $output"
    failures=$((failures + 1))
  fi
}

mkdir -p "$home/.claude"
printf '{\n  "model": "opus",\n  "cleanupPeriodDays": 1e2\n}\n' >"$settings"
cp "$settings" "$home/original.json"
expect 0 "installed in $settings" install
expect 0 "removed from $settings" uninstall
cmp -s "$settings" "$home/original.json" || { echo "FAIL: the settings changed"; failures=$((failures + 1)); }
printf '{"model": "opus",}' >"$settings"
expect 1 "isn't valid JSON" install
expect 2 "unknown argument" enable
exit "$failures"
