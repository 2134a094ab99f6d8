#!/bin/sh
# run.sh FILE...: whether the finished programs would load and run on Windows 95 and 98 on a
# Pentium Pro. Looks at what they import (by import_audit, from the environment's IMPORT_AUDIT or
# the path) and at their instructions. They must not be stripped: among the code stand tables, which
# only the names of symbols tell from it.
here=$(dirname "$0")
objdump=${OBJDUMP:-i686-w64-mingw32-objdump}
status=0

"${IMPORT_AUDIT:-import_audit}" "$here/win98-imports.txt" "$@" || status=1

# Instructions that came with MMX, SSE and later.
newer='%[xyz]mm[0-9]|%mm[0-7]|ldmxcsr|stmxcsr|[lms]fence|prefetch|movnti|fisttp'
for file in "$@"; do
  listing=$(mktemp)
  if ! "$objdump" -d --no-show-raw-insn "$file" >"$listing"; then
    status=1
  elif ! grep -q '^[0-9a-f]* <[^.]' "$listing"; then
    echo "$file: is stripped, so that its instructions can't be checked"
    status=1
  elif ! awk -v file="$file" -v newer="$newer" '
      /^[0-9a-f]+ <.*>:$/ { symbol = $2 }
      symbol !~ /^<\.(gcc_except_table|rdata|[cd]tors)/ && $0 ~ newer {
        if (found++ < 5) print file ": uses a newer instruction in " symbol $0
      }
      END { exit found > 0 }' "$listing"; then
    status=1
  fi
  rm -f "$listing"
done
[ $status = 0 ] && echo "$# files would load on Windows 95 and 98."
exit $status
