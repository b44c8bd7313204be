# GoogleTest, from the sources that Debian installs.
packages=(googletest)

build() { cmake_install /usr/src/googletest; }
