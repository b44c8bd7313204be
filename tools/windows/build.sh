#!/usr/bin/env bash
# Builds one dependency by its recipe; tools/windows-deps calls it.
#   build.sh NAME WORK_FOLDER TARBALL [FOLDER OF A DEPENDENCY IT NEEDS]...
# The result is WORK_FOLDER/out. TARBALL is empty for what an installed package brings.
set -euo pipefail
recipes=$(cd "$(dirname "$0")" && pwd)

name=$1 work=$2 tarball=$3 needed=("${@:4}")
src=$work/src build=$work/build out=$work/out
mkdir -p "$src" "$build" "$out"

# Configures a source folder with CMake, builds and installs it: cmake_install FOLDER [ARGUMENT]...
# With `target` set, builds that one only, which the recipe installs itself.
cmake_install() {
  local found optimise="-O2 -DNDEBUG -ffile-prefix-map=$work/="
  found=$(IFS=';'; echo "${needed[*]}")
  # Nothing of this machine's own libraries is to be found.
  PKG_CONFIG_LIBDIR=/nowhere cmake -S "$1" -B "$build" -G Ninja \
    --toolchain "$recipes/../../cmake/windows_toolchain.cmake" \
    -DWINDOWS_PREFIX="$found" -DCMAKE_INSTALL_PREFIX="$out" -DCMAKE_INSTALL_LIBDIR=lib \
    -DCMAKE_BUILD_TYPE=Release -DCMAKE_C_FLAGS_RELEASE="$optimise" \
    -DCMAKE_CXX_FLAGS_RELEASE="$optimise" "${@:2}"
  nice cmake --build "$build" --target "${target:-install}"
}

[ -z "$tarball" ] || tar -xf "$tarball" -C "$src" --strip-components=1
source "$recipes/$name.sh"
build

# The folder moves to its place when it is whole, so nothing may name it.
rm -rf "$out/lib/pkgconfig"
