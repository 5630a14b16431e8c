#!/usr/bin/env bash
# `vantrelle usage --json` gives the same bytes on a processor without AVX (qemu's plain x86-64 model)
# as on this one, on generated logs of all three agents.
#   usage-any-x86-64-test.sh <qemu-x86_64> <generate-logs> <command...>
set -uo pipefail
qemu=$1 generator=$2
shift 2
command -v "$qemu" >/dev/null && command -v python3 >/dev/null || { echo "qemu-x86_64 or python3 missing"; exit 77; }
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export XDG_CONFIG_HOME=$work/config TZ=UTC
now=2030-01-20T12:00:00Z

python3 "$generator" --out "$work/home" --size-mb 4 --now "$now" >/dev/null || exit 1
# The files must look recent to the report's clock.
find "$work/home" -type f -exec touch -d 2030-01-20T11:00:00Z {} +

"$@" --json --now "$now" --home "$work/home" >"$work/native.json"; status=$?
[[ $status -eq 0 ]] || { echo "FAIL: native run exits $status"; exit 1; }
"$qemu" -cpu qemu64 "$@" --json --now "$now" --home "$work/home" >"$work/qemu64.json"; status=$?
[[ $status -eq 0 ]] || { echo "FAIL: the run as a plain x86-64 exits $status"; exit 1; }
grep -q '"tool": "gemini"' "$work/native.json" || { echo "FAIL: no Gemini session in the report"; exit 1; }
if ! cmp -s "$work/native.json" "$work/qemu64.json"; then
  echo "FAIL: the reports differ"
  diff "$work/native.json" "$work/qemu64.json" | head -20
  exit 1
fi
echo "usage under qemu64: identical ($(wc -c <"$work/native.json") bytes)"
