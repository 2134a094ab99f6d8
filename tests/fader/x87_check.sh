#!/bin/sh
# Checks that the fade engine makes the same colours on the x87 floating-point unit, which the
# Windows build uses, as on this machine. Needs a g++ that can build 32-bit programs (g++-multilib);
# says so and ends well without one.
set -eu
cd "$(dirname "$0")/../.."
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

if ! echo '#include <cstdint>
int main() {}' | g++ -m32 -x c++ -o "$work/probe" - 2>/dev/null || ! "$work/probe"; then
  echo "x87 check: skipped, since g++ -m32 builds no programs here (install g++-multilib)"
  exit 0
fi

digest() {
  name=$1
  shift
  g++ -std=c++20 -Wall -Wextra -Werror "$@" -Isrc -I. -o "$work/$name" \
    tests/fader/x87/ramp_digest_main.cpp src/fader/channel_ramp.cpp
  "$work/$name"
}

native=$(digest native -O2)
for flags in "-O0" "-O2" "-O3 -ffast-math"; do
  x87=$(digest x87 -m32 -mfpmath=387 $flags)
  if [ "$x87" != "$native" ]; then
    echo "x87 check: FAILED with $flags: $x87 on the x87, $native on this machine" >&2
    exit 1
  fi
done
echo "x87 check: passed, $native"
