# Header-only libraries, as Debian packages them: only their own folders, none of this machine's
# other headers.
packages=(libasio-dev libcli11-dev librapidxml-dev rapidjson-dev)

build() {
  mkdir -p "$out/include" "$out/share/cmake"
  cp -r /usr/include/{asio,asio.hpp,CLI,rapidxml,rapidjson} "$out/include"
  cp -r /usr/share/cmake/CLI11 "$out/share/cmake"
}
