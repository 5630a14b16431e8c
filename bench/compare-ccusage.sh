#!/usr/bin/env bash
# Times every report of `vantrelle usage` (daily, monthly, session, blocks; --json) against ccusage
# 20.0.24's same report (`--json --offline`) and `cat` on one generated home folder, and checks that
# both tools find the same per-day input, output, cache-write and cache-read tokens. The generated logs
# hold streamed replies (one message id and request id on several lines with growing output) and
# resumed sessions that copy earlier replies, so the figures agree only if each reply counts once, at
# its final size. Exits non-zero if any day differs or a report of ours is slower than ccusage's.
#
#   bench/compare-ccusage.sh [SIZE_MB=1024] [RUNS=5] [REPORTS="daily monthly session blocks"]
#
# BUILD (default build-core) is the build folder; the report comes from $BUILD/app/vantrelle usage if
# it was built with Qt, else from $BUILD/bench/agents/vantrelle-usage.
set -euo pipefail
cd "$(dirname "$0")/.."

SIZE_MB=${1:-1024}
RUNS=${2:-5}
read -r -a REPORTS <<<"${3:-daily monthly session blocks}"
BUILD=${BUILD:-build-core}
CACHE=build/bench-cache
HOME_DIR=$CACHE/home-${SIZE_MB}mb-v2  # v2: with resumed sessions
export TZ=UTC

if [[ -x $BUILD/app/vantrelle ]]; then
  OURS=("$BUILD/app/vantrelle" usage)
else
  OURS=("$BUILD/bench/agents/vantrelle-usage")
fi
[[ -x ${OURS[0]} ]] || { echo "build $BUILD first (cmake -DVANTRELLE_BENCH=ON)"; exit 1; }

mkdir -p "$CACHE"
if [[ ! -x $CACHE/ccusage/node_modules/.bin/ccusage ]]; then
  npm install --prefix "$CACHE/ccusage" --no-audit --no-fund ccusage@20.0.24 >/dev/null
fi
CCUSAGE=$CACHE/ccusage/node_modules/.bin/ccusage

# Dates are relative to the day of generation; data more than a day old is made again.
if [[ ! -f $HOME_DIR/.done || -z $(find "$HOME_DIR/.done" -mmin -1440) ]]; then
  rm -rf "$HOME_DIR"
  bench/agents/generate-logs --out "$HOME_DIR" --size-mb "$SIZE_MB" --agents claude
  touch "$HOME_DIR/.done"
fi
HOME_ABS=$(cd "$HOME_DIR" && pwd)
FILES=$(find "$HOME_ABS/.claude" -type f -name '*.jsonl' | wc -l)
BYTES=$(find "$HOME_ABS/.claude" -type f -name '*.jsonl' -printf '%s\n' | awk '{s+=$1} END {print s}')
echo "data: $FILES files, $((BYTES / 1048576)) MB under $HOME_ABS"

REPORT=daily
run_ours()    { "${OURS[@]}" "$REPORT" --json --home "$HOME_ABS"; }
run_ccusage() { HOME=$HOME_ABS CLAUDE_CONFIG_DIR=$HOME_ABS/.claude CODEX_HOME=$HOME_ABS/.codex "$CCUSAGE" "$REPORT" --json --offline; }
run_cat()     { find "$HOME_ABS/.claude" -type f -name '*.jsonl' -exec cat {} +; }

# Every generated line is dated inside the last 30 days and never after now.
# Warm the page cache so every tool reads from memory.
run_cat >/dev/null

measure() {  # name, function -> lines "seconds rss_kb"
  local name=$1 fn=$2 out
  for _ in $(seq "$RUNS"); do
    out=$( { /usr/bin/time -v bash -c "$(declare -f "$fn"); $(declare -p OURS HOME_ABS CCUSAGE REPORT); $fn" >/dev/null; } 2>&1 )
    local wall rss
    wall=$(grep 'Elapsed (wall clock)' <<<"$out" | awk '{print $NF}' | awk -F: '{ if (NF==3) print $1*3600+$2*60+$3; else print $1*60+$2 }')
    rss=$(grep 'Maximum resident set size' <<<"$out" | awk '{print $NF}')
    echo "$name $wall $rss"
  done
}

slower=0
for REPORT in "${REPORTS[@]}"; do
RESULTS=$(mktemp)
measure vantrelle run_ours >>"$RESULTS"
measure ccusage run_ccusage >>"$RESULTS"
measure cat run_cat >>"$RESULTS"

echo "== $REPORT"
python3 - "$RESULTS" "$BYTES" <<'PY' || slower=1
import statistics, sys
rows = [l.split() for l in open(sys.argv[1]) if l.strip()]
size = int(sys.argv[2])
med = {}
for name in ("vantrelle", "ccusage", "cat"):
    walls = [float(r[1]) for r in rows if r[0] == name]
    rss = [int(r[2]) for r in rows if r[0] == name]
    med[name] = (statistics.median(walls), statistics.median(rss))
    print("%-10s median %7.3f s  %8.1f MB/s  peak RSS %7.1f MB   (runs: %s)" % (
        name, med[name][0], size / 1048576 / max(med[name][0], 1e-9), med[name][1] / 1024,
        " ".join("%.3f" % w for w in walls)))
v, c, k = med["vantrelle"], med["ccusage"], med["cat"]
print("ccusage / vantrelle time: %.2fx   vantrelle / cat time: %.2fx   vantrelle / ccusage RSS: %.2f" % (
    c[0] / v[0], v[0] / max(k[0], 1e-9), v[1] / c[1]))
sys.exit(0 if v[0] < c[0] else 1)
PY
done
REPORT=daily

# Agreement of the per-day token figures.
OURS_JSON=$(mktemp); PEER_JSON=$(mktemp)
run_ours >"$OURS_JSON"
run_ccusage >"$PEER_JSON"
python3 - "$OURS_JSON" "$PEER_JSON" <<'PY'
import json, sys
ours = {d["date"]: d for d in json.load(open(sys.argv[1]))["daily"]}
peer = {d.get("date", d.get("period")): d for d in json.load(open(sys.argv[2]))["daily"]}
bad = 0
for date in sorted(set(ours) | set(peer)):
    o, p = ours.get(date, {}), peer.get(date, {})
    pairs = [("input", "inputTokens"), ("output", "outputTokens"), ("cacheWrite", "cacheCreationTokens"),
             ("cacheRead", "cacheReadTokens")]
    diff = [(a, o.get(a, 0), p.get(b, 0)) for a, b in pairs if o.get(a, 0) != p.get(b, 0)]
    if diff:
        bad += 1
        print("  %s differs: %s" % (date, diff))
print("per-day input / output / cache-write / cache-read: %s over %d days" % (
    "agree" if not bad else "%d days differ" % bad, len(ours)))
sys.exit(1 if bad else 0)
PY
[[ $slower == 0 ]] || { echo "a report was slower than ccusage's"; exit 1; }
