#!/usr/bin/env bash
# Builds Qt for Windows from the Debian source package of the installed Qt, with that Qt's tools.
# Prints the folder it is installed in.
#
#   scripts/windows/qt.sh <x86_64|i686>
set -euo pipefail
source "$(dirname "$(readlink -f "$0")")/common.sh"

arch="$1"
version=$(installed_version qt6-base-dev)
# Left out is what the program does not use, and what the cross compiler has no headers for. A
# changed option needs an empty build folder; here it always has one.
options=(-DCMAKE_BUILD_TYPE=Release -DBUILD_SHARED_LIBS=ON
  -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF -DINPUT_opengl=no)
for feature in opengl vulkan dbus sql network xml concurrent printsupport ssl schannel tabletevent \
  direct2d direct2d1_1 directwrite directwrite3 icu glib zstd pkg_config \
  system_zlib system_png system_jpeg system_freetype system_harfbuzz system_pcre2 \
  system_doubleconversion; do
  options+=("-DFEATURE_$feature=OFF")
done

target=$(cached_folder qt "$version" "$arch" "${options[@]}")
if [[ ! -d "$target" ]]; then
  echo "Building Qt $version for Windows ($arch), about a quarter of an hour." >&2
  work=$(build_folder "$target")
  trap 'rm -rf "$work"' EXIT
  fetch_source qt6-base "$version" "$work"
  logged "$work/configure.log" cmake -S "$work/source" -B "$work/build" -G Ninja \
    -DCMAKE_TOOLCHAIN_FILE="$project/cmake/windows-toolchain.cmake" -DORVANE_WINDOWS_ARCH="$arch" \
    -DCMAKE_C_COMPILER_LAUNCHER=ccache -DCMAKE_CXX_COMPILER_LAUNCHER=ccache \
    -DCMAKE_INSTALL_PREFIX="$target" "${options[@]}"
  logged "$work/build.log" cmake --build "$work/build" --parallel "$(nproc)"
  DESTDIR="$work/stage" logged "$work/install.log" cmake --install "$work/build" --strip
  put_in_place "$work/stage$target" "$target"
fi
echo "$target"
