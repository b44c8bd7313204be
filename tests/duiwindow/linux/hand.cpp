#include "tests/duiwindow/hand.h"

#include <X11/Xlib.h>
#include <gtk/gtk.h>

#include <cstdlib>
#include <memory>
#include <sstream>
#include <stdexcept>

#include "tests/duiwindow/picture.h"
#include "tests/support/running_program.h"
#include "tests/support/temporary_folder.h"

namespace {

std::string Run(const std::vector<std::string>& words) {
  TemporaryFolder folder;
  RunningProgram program(words, folder.path / "errors");
  std::string text;
  while (program.Read(text)) continue;
  if (program.Wait() != 0)
    throw std::runtime_error(words[0] + " failed: " + ReadText(folder.path / "errors"));
  return text;
}

void Do(std::vector<std::string> words) {
  words.insert(words.begin(), "/usr/bin/xdotool");
  Run(words);
}

std::string WindowOf(const std::string& title) {
  std::istringstream lines(
      Run({"/usr/bin/xdotool", "search", "--sync", "--onlyvisible", "--name", "^" + title + "$"}));
  std::string window;
  std::getline(lines, window);
  return window;
}

}  // namespace

void StartDisplay() {
  static TemporaryFolder folder;
  static std::unique_ptr<RunningProgram> server;
  if (server) return;
  server = std::make_unique<RunningProgram>(
      std::vector<std::string>{"/usr/bin/Xvfb", "-displayfd", "1", "-screen", "0", "2000x1400x24",
                               "-nolisten", "tcp", "-noreset"},
      folder.path / "errors");
  std::string display;
  while (display.find('\n') == std::string::npos) {
    if (!server->Read(display)) throw std::runtime_error(ReadText(folder.path / "errors"));
  }
  setenv("DISPLAY", (":" + display.substr(0, display.find('\n'))).c_str(), 1);
  setenv("GDK_BACKEND", "x11", 1);
}

void AskForDark(bool dark) {
  g_object_set(gtk_settings_get_default(), "gtk-application-prefer-dark-theme",
               static_cast<gboolean>(dark), nullptr);
}

void Hand::Move(DuiLib::Point place) const {
  Do({"mousemove", "--window", WindowOf(title), std::to_string(place.x), std::to_string(place.y)});
}

void Hand::Press() const {
  Do({"mousedown", "1"});
}

void Hand::Release() const {
  Do({"mouseup", "1"});
}

void Hand::Click(DuiLib::Point place) const {
  Move(place);
  Do({"click", "1"});
}

void Hand::Wheel(int notches) const {
  Do({"click", "--repeat", std::to_string(std::abs(notches)), notches > 0 ? "5" : "4"});
}

void Hand::Key(const std::string& name) const {
  Do({"key", name});
}

// As a window manager asks for it.
void Hand::Close() const {
  const std::unique_ptr<Display, int (*)(Display*)> display(XOpenDisplay(nullptr), XCloseDisplay);
  if (!display) throw std::runtime_error("no display");
  XEvent event{};
  event.xclient.type = ClientMessage;
  event.xclient.window = std::stoul(WindowOf(title));
  event.xclient.message_type = XInternAtom(display.get(), "WM_PROTOCOLS", False);
  event.xclient.format = 32;
  event.xclient.data.l[0] =
      static_cast<long>(XInternAtom(display.get(), "WM_DELETE_WINDOW", False));
  XSendEvent(display.get(), event.xclient.window, False, NoEventMask, &event);
}

Hand::Shot Hand::Look() const {
  TemporaryFolder folder;
  const auto file = folder.path / "shot.png";
  Run({"/usr/bin/import", "-window", WindowOf(title), "-depth", "8", "-define", "png:color-type=2",
       file.string()});
  const Picture picture(file);
  Shot shot{picture.GetSize(), {}};
  for (int y = 0; y < shot.size.height; ++y) {
    for (int x = 0; x < shot.size.width; ++x) shot.dots.push_back(picture.At(x, y));
  }
  return shot;
}

DuiLib::Point Hand::Place() const {
  std::istringstream lines(
      Run({"/usr/bin/xdotool", "getwindowgeometry", "--shell", WindowOf(title)}));
  DuiLib::Point place;
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("X=")) place.x = std::stoi(line.substr(2));
    if (line.starts_with("Y=")) place.y = std::stoi(line.substr(2));
  }
  return place;
}
