#!/usr/bin/env bash
# `vantrelle usage` as a process: --help prints the usage and succeeds; a --home that names no folder
# is an error with a message and status 2; a report of an empty home is JSON.
#
#   usage-command-test.sh <command...>     e.g. build/app/vantrelle usage
set -uo pipefail
fail() { echo "FAIL: $*"; exit 1; }
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export XDG_CONFIG_HOME=$work/config

out=$("$@" --help 2>"$work/err") || fail "--help exits $?"
grep -q -- '--home <dir>' <<<"$out" || fail "--help prints no usage: $out"
[[ ! -s $work/err ]] || fail "--help writes to stderr: $(cat "$work/err")"

"$@" --json --home "$work/missing" >"$work/out" 2>"$work/err"; status=$?
[[ $status -eq 2 ]] || fail "a missing --home exits $status"
grep -q "$work/missing" "$work/err" || fail "the message names no folder: $(cat "$work/err")"
[[ ! -s $work/out ]] || fail "a missing --home still prints a report"

mkdir -p "$work/home"
"$@" --json --now 2030-01-01T12:00:00Z --home "$work/home" >"$work/out" || fail "an empty home fails"
grep -q '"skipped"' "$work/out" || fail "no JSON report: $(head -c 300 "$work/out")"
echo "usage command: ok"
