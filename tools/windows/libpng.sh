# libpng, static: it becomes part of what uses it. zlib is Debian's for mingw-w64.
source_package=libpng1.6
version=1.6.39
sha256=a00e9d2f2f664186e4202db9299397f851aea71b36a35e74910b8820e380d441
packages=(libz-mingw-w64-dev)

build() {
  cmake_install "$src" -DPNG_SHARED=OFF -DPNG_TESTS=OFF \
    -DZLIB_LIBRARY=/usr/x86_64-w64-mingw32/lib/libz.a \
    -DZLIB_INCLUDE_DIR=/usr/x86_64-w64-mingw32/include
}
