#!/usr/bin/env bash
# refusing.sh COMMAND...: runs it in $WINEPREFIX with a folder that can't be written to, C:\Locked, and
# a disk of a few megabytes, C:\Full, as far as this machine lets us make them. Neither refuses a
# superuser by itself, so he goes without his power over permissions.
set -euo pipefail
drive=$WINEPREFIX/drive_c
locked=$drive/Locked full=$drive/Full
build=build/win64
mkdir -p "$locked/data" "$locked/im logs" "$full"
cp "$build/corvel32.exe" "$build/corvelhk.dll" "$locked/"
chmod 555 "$locked" "$locked"/*/
trap 'chmod 755 "$locked" "$locked"/*/' EXIT

obeying=(setpriv --bounding-set=-dac_override,-dac_read_search)
if unshare -Urm mount -t tmpfs -o size=8m none "$full" 2>/dev/null; then
  unshare -Urm bash -c 'mount -t tmpfs -o size=8m none "$1"; shift; exec "$@"' - "$full" "${obeying[@]}" "$@"
else
  rmdir "$full"
  if [ "$(id -u)" -eq 0 ]; then "${obeying[@]}" "$@"; else "$@"; fi
fi
