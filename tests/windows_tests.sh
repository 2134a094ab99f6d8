#!/usr/bin/env bash
# Everything on real windows, under Wine without a display: the conformance suite, the hooks, forms,
# the practice client, the program as a process, and the scenarios, in prefixes side by side, each
# pinned to a core.
. "$(dirname "$0")/../scripts/common.sh"
. scripts/wine.sh
build=build/win64 homes=build/wine-tests
rm -rf "$homes"
mkdir -p "$homes"
# A sound device that takes all and plays nothing.
echo 'pcm.!default { type null }' >"$homes/asound.conf"
export ALSA_CONFIG_PATH=$PWD/$homes/asound.conf
# A recycle bin of the tests' own.
export XDG_DATA_HOME=$PWD/$homes/data

# in_new_prefix NAME CORE SECONDS COMMAND...: quiet unless it fails.
in_new_prefix() {
  local name=$1 core=$2 seconds=$3
  shift 3
  new_prefix "$homes/$name" null
  if in_prefix "$homes/$name" "$seconds" taskset -c "$core" "$@" >"$homes/$name.log" 2>&1; then
    printf '%-24s %s\n' "$name" "$(summary "$homes/$name.log" | grep . || echo held)"
  else
    cat "$homes/$name.log"
    echo "$name failed" >&2
    touch "$homes/failed"
  fi
  rm -rf "${homes:?}/$name"
}

summary() {
  awk '/^\[==========\].* ran\./ { print $2 " tests passed" } /all good/ { print }' "$1" | tail -1
}

# scenarios PART CORE: every fourth scenario file.
scenarios() {
  local files
  mapfile -t files < <(ls tests/scenarios/*.scn | awk -v part="$1" 'NR % 4 == part')
  in_new_prefix "scenarios-$1" "$2" 400 wine "$build/corvel-win.exe" scenario "${files[@]}"
}

# by_hand CORE: with a real pointer and keyboard, which need no display to be heard.
by_hand() {
  in_new_prefix by-hand "$1" 200 wine "$build/corvel-win.exe" scenario --hands \
    tests/scenarios/{by_hand,access_menu,close_by_toolbar}.scn
}

make_template
# Most of the time they wait, so two are on a core.
first=0 last=$(($(nproc) - 1))
(
  in_new_prefix conformance $first 200 wine "$build/test_platform.exe" --gtest_brief=1
  in_new_prefix hooks $first 200 wine "$build/hook_test.exe"
  scenarios 0 $first
) &
(
  in_new_prefix forms $last 200 wine "$build/test_win32forms.exe" --gtest_brief=1
  in_new_prefix practice $last 200 wine "$build/test_practice.exe" --gtest_brief=1
  scenarios 1 $last
  by_hand $last
) &
(
  scenarios 2 $first
  in_new_prefix program $first 300 tests/program/refusing.sh wine "$build/test_program.exe" --gtest_brief=1
) &
scenarios 3 $last &
wait
[ ! -e "$homes/failed" ]
