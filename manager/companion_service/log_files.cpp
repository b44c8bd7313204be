#include "manager/companion_service/log_files.h"

#include <algorithm>
#include <cstdio>
#include <deque>
#include <fstream>
#include <stdexcept>
#include <string>
#include <utility>

#include "common/path_text.h"
#include "manager/companion_service/log_archive.h"
#include "platform/machine/current.h"
#include "platform/os/append_file.h"
#include "platform/os/clock.h"
#include "platform/os/folder_entries.h"
#include "platform/os/own_folder.h"

namespace companion {
namespace {

namespace fs = std::filesystem;
using protocol::LogModule;

constexpr std::size_t kApplicationLogLines = 1000;

bool HasContent(const fs::path& file) {
  std::error_code error;
  return fs::is_regular_file(fs::symlink_status(file, error)) && fs::file_size(file, error) > 0 &&
         !error;
}

void CloseWhole(std::ofstream& written, const fs::path& file) {
  written.close();
  if (!written) throw std::runtime_error(common::PathText(file) + ": the file cannot be written");
}

}  // namespace

LogFiles::LogFiles(fs::path dataFolder)
    : folder(std::move(dataFolder)), outbox(folder / "outbox") {}

std::vector<LogFile> LogFiles::Ready() const {
  std::vector<LogFile> files;
  for (const fs::path& file : os::EntriesOf(folder / "log"))
    if (HasContent(file)) files.push_back({LogModule::Programs, file});
  std::sort(files.begin(), files.end(),
            [](const LogFile& left, const LogFile& right) { return left.file < right.file; });
  const fs::path events = folder / "events.jsonl";
  for (const fs::path& file : {os::EarlierFile(events), events})
    if (HasContent(file)) files.push_back({LogModule::Events, file});
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
  os::MakeOwnFolder(outbox);
  const fs::path file = outbox / "application-log.txt";
  std::ofstream written(file, std::ios::trunc);
  for (const std::string& line : last) written << Mask().Apply(line) << '\n';
  CloseWhole(written, file);
  return {LogModule::Application, file};
}

fs::path LogFiles::Pack(const std::vector<LogFile>& files) {
  os::MakeOwnFolder(outbox);
  const fs::path made = outbox / ".packing";
  try {
    LogArchive packing(made);
    for (const LogFile& log : files)
      if (HasContent(log.file))
        packing.Add("logs/" + common::PathText(log.file.filename()), Hashed(log.file));
    packing.Finish();
  } catch (...) {
    std::error_code ignored;
    fs::remove(made, ignored);
    throw;
  }
  fs::path archive = NewArchive();
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

std::string LogFiles::Hashed(const fs::path& log) {
  std::ifstream lines(log);
  if (!lines) throw std::runtime_error(common::PathText(log) + ": the file cannot be read");
  std::string hashed;
  for (std::string line; std::getline(lines, line);) hashed += Mask().Apply(line) + '\n';
  return hashed;
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
