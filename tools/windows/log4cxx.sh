# log4cxx, shared, so that all libraries of a process have one tree of loggers. Without what would
# read XML, open sockets or talk to databases: expat and APR-util drop out with it.
source_package=log4cxx
version=1.5.0
sha256=aa23f47c3164aa2cf848c2258b4b4bc372e7964d4a3ed47c2b4a4a915c5dfa37
needs=(apr)

build() {
  patch -d "$src" -p1 <"$recipes/log4cxx/mingw.patch"
  cmake_install "$src" -DCMAKE_CXX_FLAGS="-w -DAPR_DECLARE_STATIC" -DLOG4CXX_CHAR=utf-8 \
    -DCMAKE_SHARED_LINKER_FLAGS=-Wl,--exclude-libs,ALL -DCMAKE_SHARED_LIBRARY_PREFIX_CXX= \
    -DLOG4CXX_NETWORKING_SUPPORT=OFF -DLOG4CXX_DOMCONFIGURATOR_SUPPORT=OFF \
    -DLOG4CXX_EVENTS_AT_EXIT=ON -DBUILD_TESTING=OFF -DLOG4CXX_INSTALL_PDB=OFF \
    -DAPR_STATIC=ON -DAPR_CONFIG_EXECUTABLE=none -DAPR_UTIL_CONFIG_EXECUTABLE=none \
    -DAPR_UTIL_INCLUDE_DIR="${needed[0]}/include" \
    -DAPR_UTIL_LIBRARIES="${needed[0]}/lib/libapr-1.a"
}
