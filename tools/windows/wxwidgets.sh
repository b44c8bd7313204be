# wxWidgets, base and core alone, static: the one library that uses it holds it. Of the pictures it
# knows it reads and writes PNG. zlib is Debian's for mingw-w64.
source_package=wxwidgets3.2
version=3.2.2+dfsg
sha256=e825125ac61f68548a3faae0fd5b3fc5377c0538961f02ac7cc2f0eae4e4f3e4
packages=(libz-mingw-w64-dev)
needs=(libpng)

build() {
  local off=() name
  for name in AUI DEBUGREPORT DIALUP_MANAGER FS_INET GIF GRID HELP HTML IFF IPC JOYSTICK LIBJPEG \
              LIBTIFF MEDIACTRL MS_HTML_HELP NANOSVG OPENGL PCX PNM PRINTING_ARCHITECTURE PROPGRID \
              PROTOCOL PROTOCOL_FILE PROTOCOL_FTP PROTOCOL_HTTP REGEX RIBBON RICHTEXT SECRETSTORE \
              SOCKETS SOUND STC SVG TGA URL WEBREQUEST WEBVIEW WIZARDDLG WXHTML_HELP XML XRC; do
    off+=("-DwxUSE_$name=OFF")
  done
  cmake_install "$src" -DCMAKE_C_FLAGS=-w -DCMAKE_CXX_FLAGS=-w -DCMAKE_CXX_STANDARD=20 \
    -DwxBUILD_SHARED=OFF -DwxBUILD_CXX_STANDARD=20 -DwxBUILD_DEBUG_LEVEL=0 \
    -DwxUSE_EXPAT=OFF -DwxUSE_LIBPNG=sys -DwxUSE_ZLIB=sys \
    -DZLIB_LIBRARY=/usr/x86_64-w64-mingw32/lib/libz.a \
    -DZLIB_INCLUDE_DIR=/usr/x86_64-w64-mingw32/include "${off[@]}"
}
