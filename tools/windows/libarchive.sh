# libarchive with gzip and no other compression, cipher or tool. zlib is Debian's for mingw-w64.
source_package=libarchive
version=3.6.2
sha256=9e2c1b80d5fbe59b61308fdfab6c79b5021d7ff4ff2489fb12daf0a96a83551d
packages=(libz-mingw-w64-dev)

build() {
  local off=() name
  for name in ACL BZip2 CAT CNG CPIO EXPAT ICONV LIBB2 LIBXML2 LZ4 LZMA LZO MBEDTLS NETTLE OPENSSL \
              PCREPOSIX TAR TEST XATTR ZSTD; do
    off+=("-DENABLE_$name=OFF")
  done
  target=archive cmake_install "$src" -DCMAKE_C_FLAGS=-w -DENABLE_WERROR=OFF \
    -DZLIB_LIBRARY=/usr/x86_64-w64-mingw32/lib/libz.a "${off[@]}"
  install -D -t "$out/bin" "$build/bin/libarchive.dll"
  install -D -m 644 -t "$out/lib" "$build/libarchive/libarchive.dll.a"
  install -D -m 644 -t "$out/include" "$src"/libarchive/archive{,_entry}.h
}
