# Running Windows programs without a Windows: prefixes of our own, made from one template.
# Sourced behind common.sh. Every prefix is registered as Windows 98 for the programs in question,
# since the program refuses anything newer.

export WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
wine_template=build/wine-template

need_wine() {
  need "Windows programs on this machine, and fonts of their time" wine wine64 fonts-wine fonts-liberation
  need "the compiler for Windows" g++-mingw-w64-x86-64-win32
}

# Programs that see a Windows 98 when they ask.
wine_98_programs=(corvel32.exe corvel-win.exe waol.exe)

# Makes the template once: a fresh prefix takes ten seconds and 700 MB, of which all but 20 MB are the
# same files as the system's own.
make_template() {
  local template; template=$(realpath -m "$wine_template")
  [ -f "$template/ready" ] && return
  say "Making a Windows to run in (once)"
  rm -rf "$template"
  WINEPREFIX=$template wineboot -i >/dev/null 2>&1
  WINEPREFIX=$template wineserver -w
  local program
  {
    cat scripts/look95.reg
    for program in "${wine_98_programs[@]}"; do
      printf '\n[HKEY_CURRENT_USER\\Software\\Wine\\AppDefaults\\%s]\n"Version"="win98"\n' "$program"
    done
  } >"$template/settings.reg"
  WINEPREFIX=$template wine regedit /S "Z:${template//\//\\}\\settings.reg" >/dev/null 2>&1
  WINEPREFIX=$template wineserver -w
  lay_fonts "$template"
  share_system_files "$template"
  touch "$template/ready"
}

lay_fonts() {
  find /usr/share/wine/fonts /usr/share/fonts/truetype/liberation -name '*.[ft][ot][nf]' \
    -exec cp -t "$1/drive_c/windows/Fonts" {} + 2>/dev/null || true
}

# Files of the prefix that equal the system's become links to them.
share_system_files() {
  local file twin
  find "$1/drive_c/windows/system32" -maxdepth 1 -type f \( -name '*.dll' -o -name '*.exe' -o -name '*.drv' -o -name '*.ocx' \) | while read -r file; do
    twin=/usr/lib/x86_64-linux-gnu/wine/x86_64-windows/$(basename "$file")
    cmp -s "$file" "$twin" && ln -sf "$twin" "$file"
  done || true
}

# new_prefix DIR [null]: a fresh copy of the template; with "null" without any display.
new_prefix() {
  make_template
  rm -rf "$1"
  mkdir -p "$1"
  cp -a "$wine_template/." "$1"  # the copy of a link to a template would be that template itself
  if [ "${2:-}" = null ]; then
    WINEPREFIX=$(realpath "$1") wine reg add 'HKCU\Software\Wine\Drivers' /v Graphics /d null /f >/dev/null 2>&1
    WINEPREFIX=$(realpath "$1") wineserver -w
  fi
}

# in_prefix DIR SECONDS COMMAND...: runs it, and ends what is left of it.
in_prefix() {
  local prefix seconds=$2 status=0
  prefix=$(realpath "$1")
  shift 2
  WINEPREFIX=$prefix timeout "$seconds" "$@" || status=$?
  WINEPREFIX=$prefix wineserver -k 2>/dev/null || true
  return "$status"
}

# managed DIR: the prefix has a display with a window manager, which is to know the windows. They draw
# their frames themselves.
managed() {
  local settings; settings=$(realpath "$1")/managed.reg
  printf 'REGEDIT4\n\n[HKEY_CURRENT_USER\\Software\\Wine\\X11 Driver]\n"Managed"="Y"\n"Decorated"="N"\n' >"$settings"
  WINEPREFIX=$(realpath "$1") wine regedit /S "Z:${settings//\//\\}" >/dev/null 2>&1
  WINEPREFIX=$(realpath "$1") wineserver -w
}

# on_display_in_memory FUNCTION ARGUMENT...: runs it in a shell of its own, with all that is defined here.
on_display_in_memory() {
  local name known
  known=$(declare -f)
  for name in wine_template wine_98_programs prefix pictures; do
    known+=$'\n'$(declare -p "$name" 2>/dev/null || true)
  done
  xvfb-run -a -s "-screen 0 800x600x24" bash -c "$known
    set -euo pipefail
    display -window root xc:'#008080' 2>/dev/null || true
    openbox >/dev/null 2>&1 & manager=\$!
    trap 'kill \$manager' EXIT
    \"\$@\"" display "$@"
}
