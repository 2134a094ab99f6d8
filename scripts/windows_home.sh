# Lays the program and the practice client into a prefix, as their installer would.
# Sourced behind wine.sh.

# lay_home PREFIX BUILD: C:\Corvel, C:\AOL, and the runtime files that the system folder lacks.
lay_home() {
  local drive=$1/drive_c build=$2 file
  mkdir -p "$drive/Corvel" "$drive/AOL/idb"
  cp "$build/corvel32.exe" "$build/corvelhk.dll" "$drive/Corvel/"
  cp "$build/practice.exe" "$drive/AOL/waol.exe"
  cp "$build/aol.exe" "$build/runtime/iwengx32.dll" "$drive/AOL/"
  for file in "$build"/runtime/*; do
    case $(basename "$file") in
      iwengx32.dll | *.a) ;;
      *) [ -e "$drive/windows/system32/$(basename "$file")" ] || cp "$file" "$drive/windows/system32/" ;;
    esac
  done
}
