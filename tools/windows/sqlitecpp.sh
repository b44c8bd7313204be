# SQLiteCpp with the SQLite that its release carries.
source_package=sqlitecpp
version=3.2.1
sha256=70c67d5680c47460f82a7abf8e6b0329bf2fb10795a982a6d8abc06adb42d693

build() {
  cmake_install "$src" -DSQLITECPP_RUN_CPPCHECK=OFF -DSQLITECPP_RUN_CPPLINT=OFF \
    -DSQLITECPP_INCLUDE_SCRIPT=OFF
}
