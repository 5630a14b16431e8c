#!/bin/sh
# `vantrelle hooks` from a terminal with no display: the real binary, a real settings file.
set -u
bin=$1
home=$(mktemp -d)
trap 'rm -rf "$home"' EXIT
export HOME="$home" XDG_DATA_HOME="$home/.local/share" XDG_CONFIG_HOME="$home/.config"
unset DISPLAY WAYLAND_DISPLAY VANTRELLE_CLAUDE_SETTINGS VANTRELLE_CLAUDE_EVENTS
# Reaching Qt would abort here: there is no X server to connect to.
export QT_QPA_PLATFORM=xcb
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
cmp -s "$settings" "$home/original.json" || { echo "FAIL: the settings changed after install and uninstall"; failures=$((failures + 1)); }
# The edits themselves, the file's mode and the messages are checked where they are made; here, that
# a refusal and a mistake reach the exit status.
printf '{"model": "opus",}' >"$settings"
expect 1 "it isn't valid JSON (line 1, column 18). Nothing was changed." install
expect 2 "unknown argument" enable

[ "$failures" -eq 0 ] && echo "hooks command: all checks passed"
exit "$failures"
