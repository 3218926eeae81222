#!/usr/bin/env bash
# Builds Qt for Windows (x86_64, mingw-w64 posix threads) from Debian's own
# qt6-base source package, once per machine, into a cache outside the tree.
# Prints the prefix on its last line. Reuses the cache when the Qt version and
# this script are unchanged.
set -euo pipefail
here=$(cd "$(dirname "$0")" && pwd)
sudo=""
[ "$(id -u)" -eq 0 ] || sudo="sudo"

packages=(g++-mingw-w64-x86-64-posix gcc-mingw-w64-x86-64-posix qt6-base-dev-tools
          qt6-base-dev ninja-build dpkg-dev xz-utils)
missing=()
for p in "${packages[@]}"; do
    dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed" || missing+=("$p")
done
if ((${#missing[@]})); then
    $sudo apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends "${missing[@]}" >&2
fi

version=$(dpkg-query -W -f='${Version}' qt6-base-dev-tools | sed 's/[+-].*//')
# The contents only: the same scripts in another checkout find the same cache.
key=$(cat "$here/build-qt.sh" "$here/mingw-toolchain.cmake" | sha256sum | cut -c1-12)
cache=${SIDEKIN_WINQT_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/sidekin-winqt}
prefix=$cache/qt-$version-$key
if [ -f "$prefix/.complete" ]; then
    echo "$prefix"
    exit 0
fi

# Debian's source of the same version as the host tools.
if ! grep -rqs '^Types:.*deb-src' /etc/apt/sources.list.d/ && ! grep -qs '^deb-src' /etc/apt/sources.list; then
    $sudo tee /etc/apt/sources.list.d/sidekin-deb-src.sources >/dev/null <<'SRC'
Types: deb-src
URIs: http://deb.debian.org/debian
Suites: bookworm bookworm-updates
Components: main
Signed-By: /usr/share/keyrings/debian-archive-keyring.gpg
SRC
    $sudo apt-get update -qq
fi
work=$cache/work-$version
mkdir -p "$work"
cd "$work"
src=$(find . -maxdepth 1 -type d -name 'qt6-base-*' | head -n 1)
if [ -z "$src" ]; then
    apt-get source -qq qt6-base="$(dpkg-query -W -f='${Version}' qt6-base-dev-tools)" >&2
    src=$(find . -maxdepth 1 -type d -name 'qt6-base-*' | head -n 1)
fi
# Without OpenGL the Windows platform plugin still asks for the dynamic GL
# loader in one place; the tree is patched there (the same change each time).
sed -i 's/^#if QT_CONFIG(dynamicgl)$/#if QT_CONFIG(dynamicgl) \&\& QT_CONFIG(opengl)/' \
    "$src/src/plugins/platforms/windows/qwindowswindow.cpp"
# A build folder left by an earlier try is built on, not thrown away.
# Tablet input needs wintab.h, which Debian's tarball leaves out.
cmake -S "$src" -B build -G Ninja \
    -DCMAKE_TOOLCHAIN_FILE="$here/mingw-toolchain.cmake" \
    -DCMAKE_INSTALL_PREFIX="$prefix" -DCMAKE_BUILD_TYPE=Release -DBUILD_SHARED_LIBS=ON \
    -DQT_HOST_PATH=/usr -DQT_HOST_PATH_CMAKE_DIR=/usr/lib/x86_64-linux-gnu/cmake \
    -DQT_BUILD_EXAMPLES=OFF -DQT_BUILD_TESTS=OFF -DQT_BUILD_BENCHMARKS=OFF \
    -DFEATURE_sql=OFF -DFEATURE_opengl=OFF -DFEATURE_dbus=OFF -DFEATURE_zstd=OFF \
    -DFEATURE_concurrent=OFF -DFEATURE_xml=OFF -DFEATURE_openssl=OFF \
    -DFEATURE_tabletevent=OFF \
    -DFEATURE_system_zlib=OFF -DFEATURE_system_pcre2=OFF -DFEATURE_system_harfbuzz=OFF \
    -DFEATURE_system_freetype=OFF -DFEATURE_system_png=OFF -DFEATURE_system_jpeg=OFF \
    -DFEATURE_system_doubleconversion=OFF >&2
cmake --build build -j"$(nproc)" >&2
cmake --install build >&2
touch "$prefix/.complete"
rm -rf build
echo "$prefix"
