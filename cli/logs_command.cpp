#include <chrono>
#include <cstdio>
#include <memory>
#include <optional>
#include <set>
#include <stdexcept>

#include "cli/commands.h"
#include "cli/json_line.h"
#include "cli/log_talk.h"
#include "cli/terminal_text.h"
#include "common/path_text.h"
#include "common/text.h"
#include "platform/message/broker.h"
#include "platform/message/broker_connection.h"
#include "platform/os/child_process.h"
#include "platform/os/clock.h"
#include "platform/os/folder_entries.h"
#include "platform/os/paths.h"
#include "platform/os/reveal.h"

namespace cli {
namespace {

using namespace std::chrono_literals;
namespace fs = std::filesystem;

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

std::unique_ptr<os::ChildProcess> StartService(const Arguments& arguments, const fs::path& socket) {
  std::vector<std::string> command = {
      common::PathText(os::ExecutableFolder() / "companion-service"), "--data-dir",
      common::PathText(os::DataFolder()), "--socket", common::PathText(socket)};
  if (!arguments.machineFile.empty())
    command.insert(command.end(),
                   {"--machine", common::PathText(fs::absolute(arguments.machineFile))});
  return std::make_unique<os::ChildProcess>(command);
}

std::set<fs::path> Archives() {
  std::set<fs::path> archives;
  for (const fs::path& file : os::EntriesOf(os::DataFolder() / "outbox"))
    if (file.extension() == ".gz") archives.insert(file);
  return archives;
}

// The archive that appears in the outbox; empty when none does in time.
fs::path NewArchive(const LogTalk& talk, const std::set<fs::path>& before) {
  for (auto left = 90s / 1ms; left > 0 && !talk.Interrupted(); left -= 50) {
    for (const fs::path& archive : Archives())
      if (!before.contains(archive)) return archive;
    os::CurrentClock().Sleep(50ms);
  }
  return {};
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
  if (archive.empty()) {
    if (talk.Interrupted()) return kCancelled;
    throw std::runtime_error("the logs were not packed; see the log in the data folder");
  }
  if (arguments.json)
    JsonLine("archive").Add("file", common::PathText(archive));
  else
    std::printf("Packed for upload: %s\n", common::PathText(archive).c_str());
  if (arguments.showArchive && !os::RevealInFolder(archive))
    throw std::runtime_error(common::PathText(archive) + ": its folder cannot be shown");
  return kAllNormal;
}

}  // namespace

int RunLogs(const Arguments& arguments) {
  const fs::path socket = BrokerSocket(arguments);
  const Channel channel(socket);
  std::unique_ptr<os::ChildProcess> service;
  LogTalk talk;
  std::optional<bool> available = talk.AskWhetherThereAreLogs(1s);
  if (!available && !talk.Interrupted()) {
    service = StartService(arguments, socket);
    available = talk.AskWhetherThereAreLogs(10s);
  }
  if (talk.Interrupted()) return kCancelled;
  if (!available) throw std::runtime_error("the companion service does not answer");
  if (!*available) {
    if (!arguments.json) std::puts("There are no logs to offer.");
    return kAllNormal;
  }

  Print(arguments, talk.AskForList(10s));
  if (arguments.upload && !talk.Interrupted()) return Upload(arguments, talk);
  talk.AskToDiscard();
  return talk.Interrupted() ? kCancelled : kAllNormal;
}

}  // namespace cli
