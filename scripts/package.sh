#!/usr/bin/env bash
# Makes the Debian packages of the dialer and of the demo host, in out/packages.
#
#   scripts/package.sh [prove]
#
# With "prove" they are also installed into a Debian system made for it, used, upgraded and removed;
# that takes root.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
source scripts/packages/version.sh

case "${1:-}" in
  "") scripts/install-packages.sh build package ;;
  prove) scripts/install-packages.sh build package run prove ;;
  *) sed -n '2,7s/^# \{0,1\}//p' "$0" >&2; exit 2 ;;
esac

version=$(project_version)
out="$PWD/out/packages"
work="$PWD/build/debian"
source="$work/orvane-$version"
rm -rf "$work"
mkdir -p "$source" "$out"
git ls-files -z --cached | tar --null -T - -c | tar -x -C "$source"
mv "$source/packaging/debian" "$source/debian"
cat >"$source/debian/changelog" <<END
orvane ($version) stable; urgency=medium

  * Version $version; see changelog.gz for what is new.

 -- Orvane <orvane@example.org>  $(git log -1 --format=%cD)
END

log="$work/build.log"
# The builder has a home of its own, where the compiler cache would be empty.
export CCACHE_DIR="${CCACHE_DIR:-${XDG_CACHE_HOME:-$HOME/.cache}/ccache}"
export DEB_BUILD_OPTIONS="noautodbgsym ${DEB_BUILD_OPTIONS:-}"
if ! (cd "$source" && nice dpkg-buildpackage --build=binary --unsigned-source --unsigned-changes) \
  >"$log" 2>&1; then
  tail -n 40 "$log" >&2
  echo "The packages were not built; everything is in $log." >&2
  exit 1
fi
lintian --allow-root --fail-on error,warning "$work"/*.changes
rm -f "$out"/*.deb
cp "$work"/orvane_*.deb "$work"/orvane-demo-host_*.deb "$out"
(cd "$out" && du -h -- *.deb)
[[ "${1:-}" != prove ]] || /usr/bin/python3 -m tests.packages.prove_debian "$out" "$out/proof"
