#include "manager/companion_service/log_files.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <deque>
#include <fstream>
#include <stdexcept>
#include <string>
#include <utility>

#include "platform/machine/machine.h"
#include "platform/os/clock.h"
#include "platform/os/path_text.h"
#include "platform/os/process.h"

namespace companion {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kApplicationLogLines = 1000;
constexpr std::chrono::minutes kPackingLimit(1);

bool HasContent(const fs::path& file) {
  std::error_code error;
  return fs::is_regular_file(fs::symlink_status(file, error)) && fs::file_size(file, error) > 0 &&
         !error;
}

void CloseWhole(std::ofstream& written, const fs::path& file) {
  written.close();
  if (!written) throw std::runtime_error(os::PathText(file) + ": the file cannot be written");
}

// A folder of copies that goes away again.
class Staging {
 public:
  explicit Staging(fs::path made) : folder(std::move(made)) {
    fs::remove_all(folder);
    fs::create_directories(folder);
  }
  Staging(const Staging&) = delete;
  Staging& operator=(const Staging&) = delete;
  ~Staging() {
    std::error_code ignored;
    fs::remove_all(folder, ignored);
  }

  const fs::path folder;
};

}  // namespace

LogFiles::LogFiles(fs::path dataFolder)
    : folder(std::move(dataFolder)), outbox(folder / "outbox") {}

std::vector<LogFile> LogFiles::Ready() const {
  std::vector<LogFile> files;
  std::error_code error;
  for (const auto& entry : fs::directory_iterator(folder / "log", error))
    if (HasContent(entry.path())) files.push_back({LogModule::Programs, entry.path()});
  std::sort(files.begin(), files.end(),
            [](const LogFile& left, const LogFile& right) { return left.file < right.file; });
  const fs::path events = folder / "events.jsonl";
  if (HasContent(events)) files.push_back({LogModule::Events, events});
  return files;
}

LogFile LogFiles::ProduceApplicationLog() {
  std::deque<std::string> last;
  for (const LogFile& log : Ready()) {
    if (log.module != LogModule::Programs) continue;
    std::ifstream lines(log.file);
    for (std::string line; std::getline(lines, line);) {
      last.push_back(std::move(line));
      if (last.size() > kApplicationLogLines) last.pop_front();
    }
  }
  fs::create_directories(outbox);
  const fs::path file = outbox / "application-log.txt";
  std::ofstream written(file, std::ios::trunc);
  for (const std::string& line : last) written << Mask().Apply(line) << '\n';
  CloseWhole(written, file);
  return {LogModule::Application, file};
}

fs::path LogFiles::Pack(const std::vector<LogFile>& files) {
  const Staging staging(outbox / ".packing");
  const fs::path copies = staging.folder / "logs";
  fs::create_directories(copies);
  for (const LogFile& log : files)
    if (HasContent(log.file)) CopyHashed(log.file, copies / log.file.filename());

  const fs::path made = staging.folder / "logs.tar.gz";
  const auto packed = os::RunProcess(
      {"tar", "-czf", made.string(), "-C", staging.folder.string(), "logs"}, kPackingLimit);
  if (!packed || packed->exitStatus != 0)
    throw std::runtime_error(os::PathText(outbox) + ": the logs could not be packed by tar");
  const fs::path archive = NewArchive();
  fs::rename(made, archive);
  return archive;
}

void LogFiles::Discard() {
  std::error_code ignored;
  fs::remove(outbox / "application-log.txt", ignored);
}

const machine::IdentifierMask& LogFiles::Mask() {
  if (!mask) mask.emplace(machine::Current().Info());
  return *mask;
}

void LogFiles::CopyHashed(const fs::path& from, const fs::path& to) {
  std::ifstream lines(from);
  if (!lines) throw std::runtime_error(os::PathText(from) + ": the file cannot be read");
  std::ofstream written(to);
  for (std::string line; std::getline(lines, line);) written << Mask().Apply(line) << '\n';
  CloseWhole(written, to);
}

fs::path LogFiles::NewArchive() const {
  const os::LocalTime now = os::CurrentClock().Local();
  char name[64];
  std::snprintf(name, sizeof name, "logs-%04d%02d%02d-%02d%02d%02d", now.year, now.month, now.day,
                now.hour, now.minute, now.second);
  fs::path archive = outbox / (std::string(name) + ".tar.gz");
  for (int number = 2; fs::exists(archive); ++number)
    archive = outbox / (std::string(name) + "-" + std::to_string(number) + ".tar.gz");
  return archive;
}

}  // namespace companion
