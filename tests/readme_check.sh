#!/usr/bin/env bash
# The demonstration in the README is what the program prints.   readme_check.sh CORVEL_DESK
set -euo pipefail
cd "$(dirname "$0")/.."
diff <(sed -n '/^```demo$/,/^```$/p' README.md | sed '1d;$d') <("$1" demo --plain)
