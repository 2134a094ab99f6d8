// Prints the digest of the fade engine's colour values; x87_check.sh compares it between machines.
#include "tests/fader/ramp_digest.h"

#include <cinttypes>
#include <cstdio>

int main() { std::printf("%016" PRIx64 "\n", corvel::RampDigest()); }
