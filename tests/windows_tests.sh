#!/usr/bin/env bash
# Everything on real windows, under Wine without a display: the conformance suite, the hooks, forms,
# the practice client, and the scenarios, in prefixes side by side, each pinned to a core.
. "$(dirname "$0")/../scripts/common.sh"
. scripts/wine.sh
. scripts/windows_home.sh
build=build/win64 homes=build/wine-tests
rm -rf "$homes"
mkdir -p "$homes"

# in_new_prefix NAME CORE SECONDS COMMAND...: quiet unless it fails.
in_new_prefix() {
  local name=$1 core=$2 seconds=$3
  shift 3
  new_prefix "$homes/$name" null
  lay_home "$homes/$name" "$build"
  if in_prefix "$homes/$name" "$seconds" taskset -c "$core" "$@" >"$homes/$name.log" 2>&1; then
    printf '%-24s %s\n' "$name" "$(summary "$homes/$name.log")"
  else
    cat "$homes/$name.log"
    echo "$name failed" >&2
    touch "$homes/failed"
  fi
  rm -rf "${homes:?}/$name"
}

summary() {
  awk '/^\[==========\].* ran\./ { print $2 " tests passed" } /all good/ { print } /^[0-9]+ of [0-9]+ scenarios hold/ { print }' "$1" | tail -1
}

make_template
cores=$(nproc)
half() {  # half PART: every second scenario file
  ls tests/scenarios/*.scn | awk -v part="$1" 'NR % 2 == part'
}
(
  in_new_prefix conformance 0 200 wine "$build/test_platform.exe" --gtest_brief=1
  in_new_prefix hooks 0 200 wine "$build/hook_test.exe"
  in_new_prefix scenarios-1 0 600 wine "$build/corvel-win.exe" scenario $(half 1)
) &
(
  in_new_prefix forms $((cores - 1)) 200 wine "$build/test_win32forms.exe" --gtest_brief=1
  in_new_prefix practice $((cores - 1)) 200 wine "$build/test_practice.exe" --gtest_brief=1
  in_new_prefix scenarios-2 $((cores - 1)) 600 wine "$build/corvel-win.exe" scenario $(half 0)
) &
wait
[ ! -e "$homes/failed" ]
