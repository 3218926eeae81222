#!/usr/bin/env bash
# Builds the Debian package: configures and builds the three programs, then
# runs CPack. The package lands in the build folder as sidekin_VERSION_ARCH.deb.
set -euo pipefail
cd "$(dirname "$0")/.."
# dpkg-shlibdeps works out the package's dependencies.
if ! command -v dpkg-shlibdeps >/dev/null; then
    sudo=""
    [ "$(id -u)" -eq 0 ] || sudo="sudo"
    $sudo apt-get update -qq
    DEBIAN_FRONTEND=noninteractive $sudo apt-get install -y -qq --no-install-recommends dpkg-dev
fi
scripts/setup.sh sidekin zentrovar-hostsim orqini
build=$(realpath "${BUILD_DIR:-build}")
cd "$build"
cpack -G DEB
ls "$build"/sidekin_*.deb
