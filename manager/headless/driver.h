#pragma once

#include <atomic>
#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "manager/headless/answer.h"
#include "manager/headless/command_source.h"
#include "manager/headless/stepper.h"
#include "manager/host/manager.h"
#include "manager/host/manager_options.h"
#include "manager/host/message_hub.h"
#include "platform/duilib/window/headless_window.h"
#include "platform/duilib/window/person.h"

namespace DuiLib {
class Painter;
}

namespace manager {

struct DriveOptions : ManagerOptions {
  std::filesystem::path script;                                    // empty: standard input
  bool simpleText = false;                                         // do without the painter
  std::chrono::milliseconds waitLimit = std::chrono::seconds(60);  // in real time
};

/// The manager without a screen: a plugin in a window, and a script of commands instead of a
/// person. docs/drive.md describes the commands. UI thread only, one in a process.
class Driver {
 public:
  using Arguments = std::vector<std::string>;

  /// Starts what the plugin is to find around it. Throws std::runtime_error saying what is missing.
  Driver(const DriveOptions& options, os::VirtualClock& clock);
  Driver(const Driver&) = delete;
  Driver& operator=(const Driver&) = delete;
  ~Driver();

  /// Loads the plugin and mounts its pages, carries the commands out, answers each on a line of
  /// standard output, and takes the plugin away. Whether none failed. Throws std::runtime_error
  /// naming the plugin's file when it cannot be loaded or has no pages.
  bool Run();

  /// Ends soon, as at the end of the script. Any thread, and inside a signal's handler.
  void Stop() { stopped = true; }

  // The commands, by the names of docs/drive.md.
  void Enter(const Arguments&);
  void Click(const Arguments&);
  void Select(const Arguments&);
  void Activate(const Arguments&);
  void Link(const Arguments&);
  void Key(const Arguments&);
  void Tick(const Arguments&);
  void Wait(const Arguments&);
  void Text(const Arguments&);
  void Dump(const Arguments&);
  void Windows(const Arguments&);
  void Events(const Arguments&);
  void Send(const Arguments&);
  void Posted(const Arguments&);
  void Size(const Arguments&);
  void Scale(const Arguments&);
  void Theme(const Arguments&);
  void Shot(const Arguments&);
  void Unload(const Arguments&);
  void Quit(const Arguments&);

 private:
  /// What the command under way will answer when everything rests.
  struct Answer {
    std::optional<std::string> error;
    std::function<void(Json&)> fields;
  };
  struct Event {
    std::string id;
    std::string payload;
  };

  void LoadAndMount();
  bool RunNext();
  void AnswerAtRest();
  void GiveAnswer();
  void Begin(const std::string& line);
  void CarryOut(const std::string& line);
  void UnloadAnswered();
  void UnloadLogged();
  void UnloadNow();
  bool GivesUp() const { return stopped || stepper.IsOverLimit(); }
  void WaitUntil(const std::function<bool()>& holds, const std::function<std::string()>& what);
  DuiLib::CPaintManagerUI& TopWindow();
  std::vector<DuiLib::CPaintManagerUI*> AllWindows();
  DuiLib::Person Person() { return DuiLib::Person(TopWindow()); }

  const std::chrono::milliseconds waitLimit;
  MessageHub hub;
  Stepper stepper;
  DuiLib::HeadlessWindow window;
  DuiLib::Painter* painter;
  Manager manager;
  CommandSource commands;
  const std::filesystem::path pluginFile;

  std::atomic<bool> stopped = false;
  std::optional<Answer> answer;
  std::size_t begun = 0;     // commands
  bool leaving = false;      // modal windows close, until:
  bool unloadAsked = false;  // the plugin is taken away,
  bool quitAsked = false;    // the drive ends
  bool failed = false;

  std::mutex eventsMutex;
  std::vector<Event> events;
};

}  // namespace manager
