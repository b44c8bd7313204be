#include "platform/duiwindow/display.h"

#include <gtk/gtk.h>
#ifdef GDK_WINDOWING_WAYLAND
#include <gdk/gdkwayland.h>
#endif
#include <wx/app.h>
#include <wx/init.h>

#include <memory>
#include <string_view>

#include "common/log.h"
#include "platform/duiwindow/toolkit.h"

namespace duiwindow {
namespace {

std::function<void()>& Changed() {
  static auto& changed = *new std::function<void()>;
  return changed;
}

void OnSetting(GObject*, GParamSpec*, gpointer) {
  if (Changed()) Changed()();
}

// What GTK and what it stands on have to say goes to the log.
GLogWriterOutput WriteLog(GLogLevelFlags level, const GLogField* fields, gsize count, gpointer) {
  if ((level & (G_LOG_LEVEL_ERROR | G_LOG_LEVEL_CRITICAL | G_LOG_LEVEL_WARNING)) == 0)
    return G_LOG_WRITER_HANDLED;
  gchar* const line = g_log_writer_format_fields(level, fields, count, FALSE);
  COMMON_LOG_WARN(log4cxx::Logger::getLogger("orv.duilib"), std::string(line));
  g_free(line);
  return G_LOG_WRITER_HANDLED;
}

}  // namespace

bool ConnectDisplay(std::string& reason) {
  StartToolkit();
  gtk_disable_setlocale();  // the program's own stays
  g_log_set_writer_func(WriteLog, nullptr, nullptr);
  wxApp::SetInstance(new wxApp);
  int count = 0;
  if (wxEntryStart(count, static_cast<char**>(nullptr))) return true;
  const char* const wayland = g_getenv("WAYLAND_DISPLAY");
  const char* const x11 = g_getenv("DISPLAY");
  reason =
      wayland == nullptr && x11 == nullptr
          ? "there is no display: neither WAYLAND_DISPLAY nor DISPLAY is set"
          : std::string("the display ") + (wayland != nullptr ? wayland : x11) + " does not answer";
  return false;
}

// From where it was pressed, not from where the pointer is by now.
void DragWindow(wxTopLevelWindow& window) {
  const std::unique_ptr<GdkEvent, void (*)(GdkEvent*)> event(gtk_get_current_event(),
                                                             gdk_event_free);
  gdouble x = 0;
  gdouble y = 0;
  if (!event || !gdk_event_get_root_coords(event.get(), &x, &y)) return;
  gtk_window_begin_move_drag(GTK_WINDOW(window.GetHandle()), GDK_BUTTON_PRIMARY,
                             static_cast<gint>(x), static_cast<gint>(y),
                             gdk_event_get_time(event.get()));
}

bool TellsPlaces() {
#ifdef GDK_WINDOWING_WAYLAND
  return !GDK_IS_WAYLAND_DISPLAY(gdk_display_get_default());
#else
  return true;
#endif
}

bool AsksForDark() {
  gboolean prefersDark = FALSE;
  gchar* theme = nullptr;
  g_object_get(gtk_settings_get_default(), "gtk-application-prefer-dark-theme", &prefersDark,
               "gtk-theme-name", &theme, nullptr);
  const std::string_view name = theme == nullptr ? "" : theme;
  const bool dark = prefersDark != FALSE || name.ends_with("-dark") || name.ends_with("-Dark");
  g_free(theme);
  return dark;
}

void WatchDark(std::function<void()> changed) {
  Changed() = std::move(changed);
  GtkSettings* const settings = gtk_settings_get_default();
  for (const char* name : {"notify::gtk-theme-name", "notify::gtk-application-prefer-dark-theme"}) {
    g_signal_connect(settings, name, G_CALLBACK(OnSetting), nullptr);
  }
}

}  // namespace duiwindow
