#include <algorithm>
#include <chrono>
#include <cstdio>
#include <memory>
#include <optional>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>

#include "cli/commands.h"
#include "cli/json_line.h"
#include "cli/log_talk.h"
#include "cli/terminal_text.h"
#include "cli/texts.h"
#include "common/file.h"
#include "common/path_text.h"
#include "common/text.h"
#include "platform/message/broker.h"
#include "platform/message/broker_connection.h"
#include "platform/os/child_process.h"
#include "platform/os/clock.h"
#include "platform/os/folder_entries.h"
#include "platform/os/paths.h"
#include "platform/os/reveal.h"
#include "startup/diagnosis/companion_process.h"

namespace cli {
namespace {

using namespace std::chrono_literals;
namespace fs = std::filesystem;

constexpr auto kLook = 50ms;
constexpr std::chrono::milliseconds kLongestIdleness = 20s;
constexpr std::chrono::milliseconds kLongestListing = 30s;

// This process's way to the companion service: a broker of its own where none runs.
class Channel {
 public:
  explicit Channel(const fs::path& socket) {
    try {
      broker.emplace(socket);
    } catch (const message::BrokerRuns&) {
      message::ConnectToBroker(socket);
    }
  }
  Channel(const Channel&) = delete;
  Channel& operator=(const Channel&) = delete;
  ~Channel() { message::DisconnectFromBroker(); }

 private:
  std::optional<message::Broker> broker;
};

std::set<fs::path> Archives() {
  std::set<fs::path> archives;
  for (const fs::path& file : os::EntriesOf(os::DataFolder() / "outbox"))
    if (file.extension() == ".gz") archives.insert(file);
  return archives;
}

std::uintmax_t BytesInOutbox() {
  std::uintmax_t bytes = 0;
  std::error_code vanished;
  for (const fs::path& file : os::EntriesOf(os::DataFolder() / "outbox"))
    if (const auto size = fs::file_size(file, vanished); !vanished) bytes += size;
  return bytes;
}

// Why the service could not do what it was asked, in its words.
std::string FailureTold() {
  try {
    std::string reason = common::ReadFile(os::DataFolder() / "outbox/failed.txt", 4096);
    if (reason.ends_with('\n')) reason.pop_back();
    return reason;
  } catch (const std::exception&) {
    return Message(L"NO_REASON");
  }
}

// The archive that appears in the outbox; empty after an interrupt. Throws std::runtime_error when
// the service ends, cannot pack, or does nothing any more.
fs::path NewArchive(LogTalk& talk, const std::set<fs::path>& before) {
  std::uintmax_t bytes = 0;
  for (auto idle = 0ms; idle < kLongestIdleness && !talk.Interrupted(); idle += kLook) {
    const bool ended = talk.HasServiceEnded();  // an archive of before is there by then
    const bool done = talk.IsDone();
    for (const fs::path& archive : Archives())
      if (!before.contains(archive)) return archive;
    if (done) throw std::runtime_error(Message(L"NOT_PACKED", {FailureTold()}));
    if (ended) throw std::runtime_error(Message(L"SERVICE_ENDED"));
    if (bytes != std::exchange(bytes, BytesInOutbox())) idle = 0ms;
    os::CurrentClock().Sleep(kLook);
  }
  if (talk.Interrupted()) return {};
  throw std::runtime_error(Message(L"SERVICE_STUCK"));
}

bool HasApplicationLog(const LogTalk::Items& items) {
  return std::any_of(items.begin(), items.end(), [](const auto& item) {
    return item.module == static_cast<std::int32_t>(protocol::LogModule::Application);
  });
}

void Print(const Arguments& arguments, const LogTalk::Items& items) {
  for (const auto& item : items) {
    if (arguments.json)
      JsonLine("log").Add("module", std::int64_t{item.module}).Add("file", item.file);
    else
      std::printf("%2d  %s\n", item.module, Printable(common::Utf8ToWide(item.file)).c_str());
  }
}

int Upload(const Arguments& arguments, LogTalk& talk) {
  const std::set<fs::path> before = Archives();
  talk.AskToPack();
  const fs::path archive = NewArchive(talk, before);
  if (archive.empty()) return kCancelled;
  if (arguments.json)
    JsonLine("archive").Add("file", common::PathText(archive));
  else
    std::puts(Line(L"PACKED", {common::Utf8ToWide(common::PathText(archive))}).c_str());
  if (arguments.showArchive && !os::RevealInFolder(archive))
    throw std::runtime_error(Message(L"NOT_SHOWN", {common::PathText(archive)}));
  return kAllNormal;
}

// Whatever comes of the talk, nothing that was made for it stays.
class Discarding {
 public:
  explicit Discarding(LogTalk& logTalk) : talk(logTalk) {}
  Discarding(const Discarding&) = delete;
  Discarding& operator=(const Discarding&) = delete;
  ~Discarding() { talk.AskToDiscard(); }

 private:
  LogTalk& talk;
};

int Offer(const Arguments& arguments, LogTalk& talk) {
  const Discarding discarding(talk);
  const LogTalk::Items items = talk.AskForList(kLongestListing);
  Print(arguments, items);
  if (talk.Interrupted()) return kCancelled;
  if (!items.empty() && !HasApplicationLog(items))
    throw std::runtime_error(Message(L"LOG_NOT_WRITTEN", {FailureTold()}));
  return arguments.upload ? Upload(arguments, talk) : kAllNormal;
}

}  // namespace

int RunLogs(const Arguments& arguments) {
  const fs::path socket = BrokerSocket(arguments);
  const Channel channel(socket);
  std::unique_ptr<os::ChildProcess> service;
  LogTalk talk;
  std::optional<bool> available = talk.AskWhetherThereAreLogs(1s);
  if (!available && !talk.Interrupted()) {
    service = startup::StartCompanionService(arguments, socket);
    talk.Watch(*service);
    available = talk.AskWhetherThereAreLogs(10s);
  }
  if (talk.Interrupted()) return kCancelled;
  if (!available) throw talk.Silence();
  if (!*available) {
    if (!arguments.json) std::puts(Line(L"NO_LOGS").c_str());
    return kAllNormal;
  }

  return Offer(arguments, talk);
}

}  // namespace cli
