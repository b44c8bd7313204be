#pragma once

#include <atomic>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "common/protocol/log_item.h"
#include "platform/machine/masking/identifier_mask.h"

namespace companion {

class MaskedLog;
class OutputFile;

struct LogFile {
  protocol::LogModule module;
  std::filesystem::path file;
};

/// The logs of one data folder, and the outbox in it. One thread.
class LogFiles {
 public:
  /// What is being written is given up, as a failure, once the end has been asked for.
  LogFiles(std::filesystem::path dataFolder, const std::atomic<bool>& endAsked);

  /// The files with content that lie ready: those of log/, and the events.
  std::vector<LogFile> Ready() const;

  /// Writes the last lines of the logs to outbox/application-log.txt, identifiers hashed. Throws
  /// std::runtime_error "<path>: <reason>".
  LogFile ProduceApplicationLog();

  /// Packs the files, identifiers hashed, into a new outbox/logs-<date>-<time>.tar.gz and returns
  /// its path; it appears when it is whole. Throws std::runtime_error "<path>: <reason>".
  std::filesystem::path Pack(const std::vector<LogFile>& files);

  /// Removes what was produced and not packed.
  void Discard();

  /// Says in outbox/failed.txt why something could not be done, or takes that back. Throws
  /// std::runtime_error "<path>: <reason>" when it cannot be written.
  void NoteFailure(const std::string& reason);
  void ForgetFailure();

 private:
  const machine::IdentifierMask& Mask();
  char WriteMasked(MaskedLog& log, OutputFile& output);
  std::filesystem::path NewArchive() const;

  const std::filesystem::path folder;
  const std::filesystem::path outbox;
  const std::filesystem::path applicationLog;
  const std::filesystem::path failureNote;
  const std::atomic<bool>& ending;
  std::optional<machine::IdentifierMask> mask;  // made when it is needed: asks the machine
};

}  // namespace companion
