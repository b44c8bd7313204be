#include "tests/manager/linux/virtual_screen.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <cairo.h>

#include <cstdlib>
#include <cstring>
#include <stdexcept>

namespace {

constexpr std::uint32_t kColours = 0xFFFFFF;

struct SurfaceGone {
  void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};
using Surface = std::unique_ptr<cairo_surface_t, SurfaceGone>;

std::vector<std::string> ServerWords(int width, int height) {
  return {"/usr/bin/Xvfb",
          "-displayfd",
          "1",
          "-nolisten",
          "tcp",
          "-screen",
          "0",
          std::to_string(width) + "x" + std::to_string(height) + "x24"};
}

// The server tells the number of its display when it can be reached.
void UseDisplayOf(RunningProgram& server) {
  std::string number;
  while (number.find('\n') == std::string::npos)
    if (!server.Read(number)) throw std::runtime_error("Xvfb does not start");
  setenv("DISPLAY", (":" + number.substr(0, number.find('\n'))).c_str(), 1);
  unsetenv("WAYLAND_DISPLAY");
}

bool IsSeenToDiffer(std::uint32_t one, std::uint32_t other) {
  constexpr int kSeen = 64;
  for (const int shift : {0, 8, 16}) {
    const int first = one >> shift & 255;
    const int second = other >> shift & 255;
    if (std::abs(first - second) > kSeen) return true;
  }
  return false;
}

std::string TitleOf(Display* display, Window window) {
  char* name = nullptr;
  if (XFetchName(display, window, &name) == 0) return {};
  const std::string title = name;
  XFree(name);
  return title;
}

void AskToClose(Display* display, Window window) {
  XEvent event{};
  event.xclient.type = ClientMessage;
  event.xclient.window = window;
  event.xclient.message_type = XInternAtom(display, "WM_PROTOCOLS", False);
  event.xclient.format = 32;
  event.xclient.data.l[0] = static_cast<long>(XInternAtom(display, "WM_DELETE_WINDOW", False));
  event.xclient.data.l[1] = CurrentTime;
  XSendEvent(display, window, False, NoEventMask, &event);
}

}  // namespace

Picture ReadPicture(const std::filesystem::path& png) {
  const Surface surface(cairo_image_surface_create_from_png(png.c_str()));
  if (cairo_surface_status(surface.get()) != CAIRO_STATUS_SUCCESS)
    throw std::runtime_error("no picture: " + png.string());
  Picture picture{cairo_image_surface_get_width(surface.get()),
                  cairo_image_surface_get_height(surface.get()),
                  {}};
  const unsigned char* row = cairo_image_surface_get_data(surface.get());
  for (int y = 0; y < picture.height; ++y) {
    for (int x = 0; x < picture.width; ++x) {
      std::uint32_t dot = 0;
      std::memcpy(&dot, row + 4 * static_cast<std::ptrdiff_t>(x), sizeof dot);
      picture.dots.push_back(dot & kColours);
    }
    row += cairo_image_surface_get_stride(surface.get());
  }
  return picture;
}

void WritePicture(const Picture& picture, const std::filesystem::path& png) {
  std::vector<std::uint32_t> dots = picture.dots;
  const Surface surface(cairo_image_surface_create_for_data(
      reinterpret_cast<unsigned char*>(dots.data()), CAIRO_FORMAT_RGB24, picture.width,
      picture.height, 4 * picture.width));
  if (cairo_surface_write_to_png(surface.get(), png.c_str()) != CAIRO_STATUS_SUCCESS)
    throw std::runtime_error("cannot write " + png.string());
}

double DifferenceOf(const Picture& one, const Picture& other, int rows) {
  if (one.width != other.width || one.height != other.height) return 1;
  const std::size_t compared = static_cast<std::size_t>(one.width) * static_cast<std::size_t>(rows);
  std::size_t different = 0;
  for (std::size_t dot = 0; dot < compared; ++dot)
    different += IsSeenToDiffer(one.dots[dot], other.dots[dot]) ? 1 : 0;
  return static_cast<double>(different) / static_cast<double>(compared);
}

struct VirtualScreen::Connection {
  Connection() : display(XOpenDisplay(nullptr)) {
    if (display == nullptr) throw std::runtime_error("the display cannot be reached");
  }
  ~Connection() { XCloseDisplay(display); }

  std::vector<Window> TopWindows() const {
    Window root = 0;
    Window parent = 0;
    Window* children = nullptr;
    unsigned count = 0;
    XQueryTree(display, DefaultRootWindow(display), &root, &parent, &children, &count);
    const std::vector<Window> windows(children, children + count);
    if (children != nullptr) XFree(children);
    return windows;
  }

  Display* const display;
};

VirtualScreen::VirtualScreen(int width, int height, const std::filesystem::path& folder)
    : errors(folder / "screen-errors"), server(ServerWords(width, height), errors) {
  UseDisplayOf(server);
  connection = std::make_unique<Connection>();
}

VirtualScreen::~VirtualScreen() {
  unsetenv("DISPLAY");
}

Picture VirtualScreen::Look() const {
  Display* const display = connection->display;
  const int screen = DefaultScreen(display);
  Picture picture{DisplayWidth(display, screen), DisplayHeight(display, screen), {}};
  XImage* const image =
      XGetImage(display, RootWindow(display, screen), 0, 0, static_cast<unsigned>(picture.width),
                static_cast<unsigned>(picture.height), AllPlanes, ZPixmap);
  if (image == nullptr) throw std::runtime_error("the screen cannot be looked at");
  for (int y = 0; y < picture.height; ++y)
    for (int x = 0; x < picture.width; ++x)
      picture.dots.push_back(static_cast<std::uint32_t>(XGetPixel(image, x, y)) & kColours);
  XDestroyImage(image);
  return picture;
}

void VirtualScreen::Click(int x, int y) const {
  Tell({"mousemove", std::to_string(x), std::to_string(y), "click", "1"});
}

void VirtualScreen::Press(const std::string& key) const {
  Tell({"key", key});
}

void VirtualScreen::CloseWindows(const std::string& title) const {
  Display* const display = connection->display;
  std::size_t closed = 0;
  for (const Window window : connection->TopWindows()) {
    if (TitleOf(display, window) != title) continue;
    AskToClose(display, window);
    ++closed;
  }
  XFlush(display);
  if (closed == 0) throw std::runtime_error("no window " + title);
}

void VirtualScreen::Tell(const std::vector<std::string>& words) const {
  std::vector<std::string> command{"/usr/bin/xdotool"};
  command.insert(command.end(), words.begin(), words.end());
  RunningProgram tool(command, errors);
  if (tool.Wait() != 0) throw std::runtime_error("xdotool " + words.front() + " failed");
}
