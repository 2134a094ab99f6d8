# What run, test and bench share: installing what is missing, and progress.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

say() { printf '\n== %s\n' "$*"; }

# need WHY PACKAGE...: installs the Debian packages that are missing, and says what for.
need() {
  local why=$1 missing=() package
  shift
  for package in "$@"; do
    dpkg-query -W -f='${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing+=("$package")
  done
  [ ${#missing[@]} -eq 0 ] && return
  say "Installing ${missing[*]} ($why)"
  local root=()
  if [ "$(id -u)" -ne 0 ]; then
    command -v sudo >/dev/null || { echo "Please install as root: apt-get install ${missing[*]}" >&2; exit 1; }
    root=(sudo)
  fi
  "${root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get update -q
  "${root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -q --no-install-recommends "${missing[@]}"
}

# optional WHY PACKAGE...: the same, but going on without them is fine.
optional() {
  (need "$@") || echo "(going on without: ${*:2})"
}

# build PRESET [TARGET...]: configures and builds, quietly unless something is wrong; ninja shows the
# progress.
build() {
  say "Building ($1)"
  cmake --preset "$1" >"build-$1.log" 2>&1 || { cat "build-$1.log"; rm -f "build-$1.log"; exit 1; }
  rm -f "build-$1.log"
  cmake --build --preset "$1" ${2:+--target "${@:2}"}
}
