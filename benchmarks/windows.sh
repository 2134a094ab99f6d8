#!/usr/bin/env bash
# The figures of real windows, under Wine: what a hooked key costs, and what the program costs when
# nothing happens, each beside its baseline in the same run.
. "$(dirname "$0")/../scripts/common.sh"
. scripts/wine.sh
. scripts/windows_home.sh
prefix=build/wine-bench seconds=${1:-60}

new_prefix "$prefix" null
lay_home "$prefix" build/win64
in_prefix "$prefix" 120 taskset -c 0 wine build/win64/hook_bench.exe | tr -d '\r'

# The process that runs a Windows program in this prefix.
process_of() {
  local id
  for id in $(pgrep -f "$1"); do
    [ "$(cat "/proc/$id/comm" 2>/dev/null)" = "${1:0:15}" ] || continue
    grep -qzxF "WINEPREFIX=$WINEPREFIX" "/proc/$id/environ" 2>/dev/null && echo "$id" && return
  done
}
cpu_ms() { awk -v hz="$(getconf CLK_TCK)" '{ print ($14 + $15) * 1000 / hz }' "/proc/$1/stat"; }

say "Beside an idle client for $seconds seconds"
export WINEPREFIX; WINEPREFIX=$(realpath "$prefix")
trap 'wineserver -k' EXIT
(cd "$prefix/drive_c/AOL" && exec wine waol.exe people=off) >/dev/null 2>&1 &
sleep 5
wine build/win64/idle_baseline.exe >/dev/null 2>&1 &
(cd "$prefix/drive_c/Corvel" && exec wine corvel32.exe) >/dev/null 2>&1 &
sleep 8
program=$(process_of corvel32.exe) bare=$(process_of idle_baseline.exe)
before=$(cpu_ms "$program") bare_before=$(cpu_ms "$bare")
sleep "$seconds"
awk -v a="$before" -v b="$(cpu_ms "$program")" -v c="$bare_before" -v d="$(cpu_ms "$bare")" -v s="$seconds" 'BEGIN {
  printf "the program       %6.0f ms of CPU, %.2f %%\n", b - a, (b - a) / s / 10
  printf "bare timers       %6.0f ms of CPU, %.2f %%\n", d - c, (d - c) / s / 10
  printf "ratio             %6.2f\n", (b - a) / (d - c) }'
awk '/^Private/ { kb += $2 } END { printf "private memory    %6.1f MB\n", kb / 1024 }' "/proc/$program/smaps_rollup"
