#!/bin/sh
# programs_test.sh IMPORT_AUDIT COMPILER: the audit looks at programs made for the purpose. One that
# uses what Windows 98 lacks must be refused for each of its faults, a plain one must pass.
export IMPORT_AUDIT=$1
compiler=$2
source=$(cd "$(dirname "$0")/../.." && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

fail() {
  echo "$1"
  cat "$work/said"
  exit 1
}

cat >"$work/bad.cpp" <<'END'
#include <windows.h>
int main(int count, char**) {
  volatile double number = count;
  CreateSemaphoreW(nullptr, 0, 1, nullptr);
  return static_cast<int>(number * 3.5);
}
END
"$compiler" -O1 -msse2 -mfpmath=sse -static -o "$work/bad.exe" "$work/bad.cpp" || exit 1
"$source/tools/audit/run.sh" "$work/bad.exe" >"$work/said" && fail "the bad program passed"
for fault in 'kernel32.dll!CreateSemaphoreW, which is not in the list' '(ASLR)' '(NX)' \
  'newer instruction in <_main>'; do
  grep -qF "$fault" "$work/said" || fail "not told: $fault"
done

# Exceptions and guarded statics need locks, which the replaced imports make.
cat >"$work/good.cpp" <<'END'
#include <windows.h>
#include <string>
static const std::string& Name() {
  static const std::string name(GetCommandLineA());
  return name;
}
int main() {
  try {
    throw Name();
  } catch (const std::string& name) {
    return name.empty();
  }
}
END
"$compiler" -std=gnu++20 -O1 -march=i686 -mfpmath=387 -static \
  -Wl,--major-os-version,4,--minor-os-version,0,--major-subsystem-version,4 \
  -Wl,--minor-subsystem-version,0,--disable-dynamicbase,--disable-nxcompat \
  -o "$work/good.exe" "$work/good.cpp" "$source/src/platform/win32/win9x_imports.cpp" || exit 1
"$source/tools/audit/run.sh" "$work/good.exe" >"$work/said" || fail "the good program was refused"

# Without names of symbols tables can't be told from code, so it must not pass unseen.
"${STRIP:-i686-w64-mingw32-strip}" "$work/good.exe"
"$source/tools/audit/run.sh" "$work/good.exe" >"$work/said" && fail "the stripped program passed"
exit 0
