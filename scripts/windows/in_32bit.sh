#!/usr/bin/env bash
# Runs a command of this project in a 32-bit Debian: the Wine of a 64-bit one runs no 32-bit Windows
# programs, and its packages for both may not fit together. Needs to be root.
#
#   scripts/windows/in_32bit.sh <build folder> <command> [arg...]
#
# The first time, it makes that Debian in ~/.cache/orvane. The command finds the project, the cache
# and the build's library folders where they are.
set -euo pipefail
source "$(dirname "$(readlink -f "$0")")/common.sh"
cd "$project"

((EUID == 0)) || fail "Only root can run programs in another system."
build="$1"
shift
release=bookworm
root="$cache/debian-12-i386"
if [[ ! -f "$root/ready" ]]; then
  mirror=$(scripts/packages/debian_mirror.sh "$release")
  rm -rf --one-file-system "$root"
  mkdir -p "$root"
  logged "$cache/debian-12-i386.log" \
    debootstrap --arch=i386 --variant=minbase "$release" "$root" "$mirror"
  # The version without later mends: those of one architecture may come before the other's.
  echo "deb $mirror $release main" >"$root/etc/apt/sources.list"
  touch "$root/ready"
fi
cp /etc/resolv.conf "$root/etc/"
cp -r /etc/apt/apt.conf.d "$root/etc/apt/"

IFS=: read -ra libraries <"$build/library_folders"
folders=$(printf '%s\n' "$project" "$cache" "${libraries[@]}")
export ROOT="$root" PROJECT="$project" FOLDERS="$folders" PATH=/usr/sbin:/usr/bin:/sbin:/bin
# What is mounted is gone with the last program of the command.
exec unshare --mount --pid --fork --kill-child bash -euo pipefail -c '
  mount --rbind /dev "$ROOT/dev"
  mount -t proc proc "$ROOT/proc"
  while read -r folder; do
    mkdir -p "$ROOT$folder"
    mount --bind "$folder" "$ROOT$folder"
  done <<<"$FOLDERS"
  inside() { chroot "$ROOT" bash -c "cd \"$PROJECT\" && \"\$@\"" - "$@"; }
  inside scripts/install-packages.sh run wine-i686
  inside "$@"' - "$@"
