#include "manager/headless/driver.h"

#include <thread>
#include <utility>

#include "common/log.h"
#include "common/path_text.h"
#include "common/text.h"
#include "manager/headless/command.h"
#include "manager/headless/control_dump.h"
#include "platform/duilib/painter/painter.h"
#include "platform/duilib/window/headless_desktop.h"
#include "platform/duilib/window/window_impl_base.h"
#include "platform/report/observed_events.h"

namespace manager {
namespace {

using common::Utf8ToWide;
using common::WideToUtf8;
using DuiLib::HeadlessDesktop;

constexpr DuiLib::Size kWindowSize{1040, 720};
constexpr std::size_t kLongestLine = std::size_t{4} << 20;

struct CommandRow : CommandForm {
  void (Driver::*carryOut)(const Driver::Arguments&);
};

constexpr CommandRow kCommands[] = {
    {{"enter", 0, 0, ""}, &Driver::Enter},
    {{"click", 1, 1, "NAME"}, &Driver::Click},
    {{"select", 2, 2, "NAME on|off"}, &Driver::Select},
    {{"activate", 1, 1, "NAME"}, &Driver::Activate},
    {{"link", 1, 1, "NAME"}, &Driver::Link},
    {{"key", 1, 1, "KEY"}, &Driver::Key},
    {{"tick", 1, 1, "MS"}, &Driver::Tick},
    {{"wait", 1, 2, "NAME TEXT, or wait idle"}, &Driver::Wait},
    {{"text", 1, 1, "NAME"}, &Driver::Text},
    {{"dump", 0, 1, "[NAME]"}, &Driver::Dump},
    {{"windows", 0, 0, ""}, &Driver::Windows},
    {{"events", 0, 0, ""}, &Driver::Events},
    {{"send", 1, 2, "ID [HEX]"}, &Driver::Send},
    {{"posted", 0, 0, ""}, &Driver::Posted},
    {{"size", 2, 2, "W H"}, &Driver::Size},
    {{"scale", 1, 1, "N"}, &Driver::Scale},
    {{"theme", 1, 1, "light|dark"}, &Driver::Theme},
    {{"shot", 1, 1, "FILE.png"}, &Driver::Shot},
    {{"unload", 0, 0, ""}, &Driver::Unload},
    {{"quit", 0, 0, ""}, &Driver::Quit},
};

template <typename Value, std::size_t kCount>
Value OneOf(const std::pair<const char*, Value> (&choices)[kCount], const std::string& word) {
  std::string names;
  for (const auto& [name, value] : choices) {
    if (word == name) return value;
    names += (names.empty() ? "" : ", ") + std::string(name);
  }
  throw CommandError(Quoted(word) + " is none of " + names);
}

// What a command that names no control is about is the name alone.
std::string Shown(DuiLib::Person person, const std::wstring& name) {
  try {
    return "shows " + Quoted(WideToUtf8(person.Text(name)));
  } catch (const DuiLib::CannotUse&) {
    return "is not there";
  }
}

bool Shows(DuiLib::Person person, const std::wstring& name, const std::wstring& text) {
  try {
    return person.Text(name) == text;
  } catch (const DuiLib::CannotUse&) {
    return false;
  }
}

}  // namespace

Driver::Driver(const DriveOptions& options, os::VirtualClock& clock)
    : waitLimit(options.waitLimit),
      hub(options, std::chrono::steady_clock::now() + std::chrono::seconds(60)),
      stepper(clock, hub),
      window(kWindowSize),
      painter(options.simpleText ? nullptr : DuiLib::Painter::Load()),
      manager(window.Manager(), options.allowRestart),
      commands(options.script),
      pluginFile(Plugin::FileOf(options.plugin)) {
  hub.KeepPosts();
  if (painter != nullptr) window.Manager().SetTextMeasure(&painter->Measure());
  report::ObserveEvents([this](const tagLogInfo& event) {
    const std::lock_guard lock(eventsMutex);
    events.push_back({event.id, event.payload});
  });
}

Driver::~Driver() {
  report::ObserveEvents({});
}

void Driver::LoadAndMount() {
  stepper.SetLimit(std::chrono::steady_clock::now() + waitLimit);
  try {
    manager.LoadPlugin(pluginFile);
  } catch (...) {
    UnloadLogged();
    throw;
  }
}

bool Driver::Run() {
  LoadAndMount();
  HeadlessDesktop::Instance().SetRest([this] { return RunNext(); });
  while (!quitAsked) {
    RunNext();
    if (std::exchange(unloadAsked, false)) UnloadAnswered();
    leaving = quitAsked;
  }
  if (manager.HasPlugin()) UnloadAnswered();
  GiveAnswer();
  HeadlessDesktop::Instance().SetRest({});
  return !failed;
}

// In the loop of the program, and in those of modal windows. False when the loop is to end.
bool Driver::RunNext() {
  if (leaving) return false;
  AnswerAtRest();
  if (leaving) return false;
  const auto line = commands.Next(stopped);
  if (line)
    Begin(*line);
  else
    leaving = quitAsked = true;
  return !leaving;
}

void Driver::AnswerAtRest() {
  try {
    stepper.Settle();
  } catch (...) {
    const std::string error = common::DescribeCurrentException();
    if (answer && !answer->error) answer->error = error;
  }
  if (!leaving) GiveAnswer();
}

void Driver::GiveAnswer() {
  if (!answer) return;
  const Answer given = *std::exchange(answer, std::nullopt);
  if (!given.error) return PrintOk(given.fields);
  failed = true;
  PrintError(*given.error);
}

// Inside, a modal window may begin its loop, and later commands run and answer there.
void Driver::Begin(const std::string& line) {
  if (line.size() <= kLongestLine && WithoutComment(line).empty()) return;
  const std::size_t number = ++begun;
  answer.emplace();
  stepper.SetLimit(std::chrono::steady_clock::now() + waitLimit);
  try {
    CarryOut(line);
  } catch (...) {
    const std::string error = common::DescribeCurrentException();
    if (number == begun && answer) answer->error = error;
  }
}

void Driver::CarryOut(const std::string& line) {
  if (line.size() > kLongestLine)
    throw CommandError("a line of " + std::to_string(line.size()) + " bytes; " +
                       std::to_string(kLongestLine) + " are the most");
  std::string_view rest = WithoutComment(line);
  const std::string_view name = TakeWord(rest);
  for (const CommandRow& row : kCommands)
    if (row.name == name) return (this->*row.carryOut)(ParseArguments(row, rest));
  throw CommandError("unknown command " + Quoted(name));
}

DuiLib::CPaintManagerUI& Driver::TopWindow() {
  return *AllWindows().back();
}

std::vector<DuiLib::CPaintManagerUI*> Driver::AllWindows() {
  std::vector<DuiLib::CPaintManagerUI*> all{&window.Manager()};
  for (DuiLib::WindowImplBase* const modal : HeadlessDesktop::Instance().GetModals())
    all.push_back(&modal->GetManager());
  return all;
}

void Driver::Enter(const Arguments&) {
  if (!manager.EnterPlugin()) throw CommandError("there is no tab");
}

void Driver::Click(const Arguments& arguments) {
  Person().Click(Utf8ToWide(arguments[0]));
}

void Driver::Select(const Arguments& arguments) {
  static constexpr std::pair<const char*, bool> kStates[] = {{"on", true}, {"off", false}};
  Person().Select(Utf8ToWide(arguments[0]), OneOf(kStates, arguments[1]));
}

void Driver::Activate(const Arguments& arguments) {
  Person().Activate(Utf8ToWide(arguments[0]));
}

void Driver::Link(const Arguments& arguments) {
  Person().Link(Utf8ToWide(arguments[0]));
}

void Driver::Key(const Arguments& arguments) {
  using DuiLib::Key;
  static constexpr std::pair<const char*, DuiLib::Key> kKeys[] = {
      {"tab", Key::kTab},       {"backtab", Key::kBackTab},   {"enter", Key::kEnter},
      {"space", Key::kSpace},   {"escape", Key::kEscape},     {"up", Key::kUp},
      {"down", Key::kDown},     {"left", Key::kLeft},         {"right", Key::kRight},
      {"pageup", Key::kPageUp}, {"pagedown", Key::kPageDown}, {"home", Key::kHome},
      {"end", Key::kEnd}};
  Person().Press(OneOf(kKeys, arguments[0]));
}

// A modal window that opens ends it: the rest of the time belongs to the commands inside.
void Driver::Tick(const Arguments& arguments) {
  constexpr std::int64_t kMostMs = 1'000'000'000;
  const std::chrono::milliseconds time(ParseWhole(arguments[0], 0, kMostMs));
  const std::size_t number = begun;
  stepper.Settle();
  const std::chrono::nanoseconds end = stepper.Now() + time;
  while (number == begun && stepper.Step(end)) {
    if (GivesUp()) throw CommandError("the time was not over within the limit");
  }
}

void Driver::Wait(const Arguments& arguments) {
  if (arguments.size() == 1) {
    if (arguments[0] != "idle") throw CommandError("an argument is missing: wait NAME TEXT");
    return WaitUntil([this] { return !stepper.IsSomethingDue(); },
                     [] { return std::string("nothing to be due; something always is"); });
  }
  const std::wstring name = Utf8ToWide(arguments[0]);
  const std::wstring text = Utf8ToWide(arguments[1]);
  WaitUntil([&, this] { return Shows(Person(), name, text); },
            [&, this] {
              return arguments[0] + " to show " + Quoted(arguments[1]) + "; it " +
                     Shown(Person(), name) +
                     (stepper.IsSomethingDue() ? "" : ", and nothing is due any more");
            });
}

void Driver::WaitUntil(const std::function<bool()>& holds,
                       const std::function<std::string()>& what) {
  const std::size_t number = begun;
  stepper.Settle();
  while (number == begun && !holds()) {
    if (GivesUp() || !stepper.IsSomethingDue()) throw CommandError("waited for " + what());
    stepper.Step();
  }
}

void Driver::Text(const Arguments& arguments) {
  answer->fields = [text = Person().Text(Utf8ToWide(arguments[0]))](Json& json) {
    WriteText(json, "text", text);
  };
}

void Driver::Dump(const Arguments& arguments) {
  constexpr bool kOutOfSight = true;
  DuiLib::CPaintManagerUI& top = TopWindow();
  top.LayOut(kOutOfSight);
  DuiLib::CControlUI* const root =
      arguments.empty() ? top.GetRoot() : &Person().Find(Utf8ToWide(arguments[0]));
  Json json;
  rapidjson::StringBuffer tree;
  json.Reset(tree);
  WriteTree(json, *root);
  answer->fields = [text = std::string(tree.GetString(), tree.GetSize())](Json& out) {
    out.Key("tree");
    out.RawValue(text.data(), text.size(), rapidjson::kObjectType);
  };
}

void Driver::Windows(const Arguments&) {
  std::vector<std::string> names;
  for (const DuiLib::WindowImplBase* const modal : HeadlessDesktop::Instance().GetModals())
    names.push_back(WideToUtf8(modal->GetWindowClassName()));
  answer->fields = [names](Json& json) {
    json.Key("windows");
    json.StartArray();
    for (const std::string& name : names) json.String(name.c_str());
    json.EndArray();
  };
}

void Driver::Events(const Arguments&) {
  const std::lock_guard lock(eventsMutex);
  answer->fields = [sent = events](Json& json) {
    json.Key("events");
    json.StartArray();
    for (const Event& event : sent) {
      json.StartObject();
      WriteText(json, "id", event.id);
      WriteText(json, "payload", event.payload);
      json.EndObject();
    }
    json.EndArray();
  };
}

void Driver::Send(const Arguments& arguments) {
  const std::uint32_t id = ParseId(arguments[0]);
  const auto body = arguments.size() == 1 ? std::vector<std::uint8_t>() : ParseHex(arguments[1]);
  if (!hub.Send(id, body))
    throw CommandError("a body of " + std::to_string(body.size()) +
                       " bytes, which is more than a message holds");
  answer->fields = [this](Json& json) {
    if (const auto received = hub.Answer()) WriteText(json, "answer", HexText(*received));
  };
}

void Driver::Posted(const Arguments&) {
  answer->fields = [posted = hub.TakePosted()](Json& json) {
    json.Key("posted");
    json.StartArray();
    for (const PostedMessage& message : posted) {
      json.StartObject();
      WriteText(json, "message", HexId(message.messageId));
      WriteText(json, "reply", HexId(message.replyId));
      WriteText(json, "body", HexText(message.body));
      json.EndObject();
    }
    json.EndArray();
  };
}

void Driver::Size(const Arguments& arguments) {
  constexpr std::int64_t kMost = 10'000;
  const auto width = static_cast<int>(ParseWhole(arguments[0], 1, kMost));
  const auto height = static_cast<int>(ParseWhole(arguments[1], 1, kMost));
  window.Manager().SetClientSize({width, height});
}

void Driver::Scale(const Arguments& arguments) {
  const double scale = ParseScale(arguments[0]);
  for (DuiLib::CPaintManagerUI* const each : AllWindows()) each->SetScale(scale);
}

void Driver::Theme(const Arguments& arguments) {
  using Brightness = DuiLib::Theme::Brightness;
  static constexpr std::pair<const char*, Brightness> kThemes[] = {{"light", Brightness::kLight},
                                                                   {"dark", Brightness::kDark}};
  const Brightness brightness = OneOf(kThemes, arguments[0]);
  for (DuiLib::CPaintManagerUI* const each : AllWindows()) each->SetBrightness(brightness);
}

void Driver::Shot(const Arguments& arguments) {
  if (painter == nullptr) throw CommandError("there is no painter");
  painter->PaintInto(common::TextPath(arguments[0]), AllWindows());
}

void Driver::Unload(const Arguments&) {
  if (!manager.HasPlugin()) throw CommandError("the plugin is not loaded");
  leaving = unloadAsked = true;
}

void Driver::Quit(const Arguments&) {
  leaving = quitAsked = true;
}

void Driver::UnloadAnswered() {
  try {
    UnloadNow();
  } catch (const std::exception& error) {
    if (!answer) answer.emplace();
    answer->error = error.what();
  }
}

void Driver::UnloadLogged() {
  try {
    UnloadNow();
  } catch (const std::exception& error) {
    COMMON_LOG_ERROR(log4cxx::Logger::getLogger("orv.manager"), error.what());
  }
}

// Outside of all modal loops; one that begins now ends at once. When its work does not end the
// plugin is let go of all the same.
void Driver::UnloadNow() {
  stepper.SetLimit(std::chrono::steady_clock::now() + waitLimit);
  const std::unique_ptr<Plugin> last = manager.TakePlugin();
  stepper.Settle();
  while (stepper.DoesAWorkerSleep()) {
    if (GivesUp()) throw std::runtime_error("work of the plugin does not end");
    stepper.Step();
  }
  if (last) last->LetGo();
  while (Plugin::IsInProcess(pluginFile)) {
    if (GivesUp()) throw std::runtime_error("the plugin stays in the process");
    stepper.Settle();
    std::this_thread::yield();
  }
}

}  // namespace manager
