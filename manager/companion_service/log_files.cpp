#include "manager/companion_service/log_files.h"

#include <algorithm>
#include <cstdio>
#include <deque>
#include <stdexcept>
#include <string>
#include <utility>

#include "manager/companion_service/file_failure.h"
#include "manager/companion_service/log_archive.h"
#include "manager/companion_service/masked_log.h"
#include "manager/companion_service/output_file.h"
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

fs::file_time_type LastChange(const fs::path& file) {
  std::error_code ignored;
  return fs::last_write_time(file, ignored);
}

// The programs' logs that hold the last lines, in the order of their last changes; the first one
// stands where those lines begin.
std::deque<MaskedLog> LastLines(const std::vector<LogFile>& files) {
  std::vector<std::pair<fs::file_time_type, fs::path>> logs;
  for (const LogFile& log : files)
    if (log.module == LogModule::Programs) logs.emplace_back(LastChange(log.file), log.file);
  std::sort(logs.rbegin(), logs.rend());

  std::deque<MaskedLog> last;
  std::size_t missing = kApplicationLogLines;
  for (auto log = logs.begin(); log != logs.end() && missing > 0; ++log)
    missing = last.emplace_front(log->second).GoToLastLines(missing);
  return last;
}

}  // namespace

LogFiles::LogFiles(fs::path dataFolder, const std::atomic<bool>& endAsked)
    : folder(std::move(dataFolder)),
      outbox(folder / "outbox"),
      applicationLog(outbox / "application-log.txt"),
      failureNote(outbox / "failed.txt"),
      ending(endAsked) {}

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
  os::MakeOwnFolder(outbox);
  OutputFile written(applicationLog);
  for (MaskedLog& log : LastLines(Ready()))
    if (WriteMasked(log, written) != '\n') written.Write("\n");
  written.Close();
  written.Keep();
  return {LogModule::Application, applicationLog};
}

fs::path LogFiles::Pack(const std::vector<LogFile>& files) {
  os::MakeOwnFolder(outbox);
  LogArchive packing(outbox / ".packing");
  for (const LogFile& log : files) {
    if (!HasContent(log.file)) continue;
    OutputFile masked(outbox / ".masked");  // how long it is is told before it is packed
    MaskedLog text(log.file);
    WriteMasked(text, masked);
    masked.Close();
    packing.Add(log.file.filename(), masked.Path());
  }
  fs::path archive = NewArchive();
  packing.FinishAs(archive);
  return archive;
}

void LogFiles::Discard() {
  std::error_code ignored;
  fs::remove(applicationLog, ignored);
}

void LogFiles::NoteFailure(const std::string& reason) {
  os::MakeOwnFolder(outbox);
  OutputFile note(failureNote);
  note.Write(reason + "\n");
  note.Close();
  note.Keep();
}

void LogFiles::ForgetFailure() {
  std::error_code ignored;
  fs::remove(failureNote, ignored);
}

// Returns the last character.
char LogFiles::WriteMasked(MaskedLog& log, OutputFile& output) {
  char last = '\n';
  log.Read(Mask(), [&](std::string_view piece) {
    if (ending) throw std::runtime_error("the companion service was asked to end");
    output.Write(piece);
    last = piece.back();
  });
  return last;
}

const machine::IdentifierMask& LogFiles::Mask() {
  if (!mask) mask.emplace(machine::Current().Info());
  return *mask;
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
