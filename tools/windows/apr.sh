# APR, what log4cxx stands on. Static: it becomes part of log4cxx's library.
source_package=apr
version=1.7.2
sha256=75e77cc86776c030c0a5c408dfbd0bf2a0b75eed5351e52d5439fa1e5509a43e

build() {
  # Its build runs this program: it has to be one of the machine that builds.
  cc -o "$work/gen_test_char" "$src/tools/gen_test_char.c"
  sed -i "s|COMMAND \$<TARGET_FILE:gen_test_char>|COMMAND $work/gen_test_char|" "$src/CMakeLists.txt"

  # It counts on headers that its lean windows.h leaves out, and knows mingw by no name.
  local flags=(-w -DWIN32_LEAN_AND_MEAN -DHAVE_ATOMIC_BUILTINS=1 -DHAVE_ATOMIC_BUILTINS64=1
               -include winsock2.h -include ws2tcpip.h -include iphlpapi.h -include mswsock.h)
  target=apr-1 cmake_install "$src" -DMIN_WINDOWS_VER=0x0601 -DAPR_HAVE_IPV6=OFF \
    -DCMAKE_C_FLAGS="${flags[*]}"
  install -D -m 644 -t "$out/lib" "$build/libapr-1.a"
  install -D -m 644 -t "$out/include" "$build/apr.h" "$src"/include/*.h
}
