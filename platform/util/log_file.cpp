#include "platform/util/log_file.h"

#include <log4cxx/appenderskeleton.h>
#include <log4cxx/helpers/transcoder.h>
#include <log4cxx/logger.h>
#include <log4cxx/patternlayout.h>

#include <memory>
#include <string>
#include <utility>

#include "platform/os/append_file.h"
#include "platform/os/own_folder.h"

namespace util {
namespace {

constexpr auto kPattern = LOG4CXX_STR("%d{yyyy-MM-dd HH:mm:ss,SSS} %-5p %c %F:%L %m");

// Calls come one at a time.
class LineAppender : public log4cxx::AppenderSkeleton {
 public:
  explicit LineAppender(os::LineFile written) : file(std::move(written)) {}

  void close() override {}
  bool requiresLayout() const override { return false; }  // it has its own

 protected:
  // Of failures in a row the first is told.
  void append(const log4cxx::spi::LoggingEventPtr& event, log4cxx::helpers::Pool& pool) override {
    log4cxx::LogString text;
    layout.format(text, event, pool);
    std::string line;
    log4cxx::helpers::Transcoder::encodeUTF8(text, line);
    try {
      file.Append(line);
      failing = false;
    } catch (const std::exception&) {
      if (!std::exchange(failing, true)) throw;
    }
  }

 private:
  os::LineFile file;
  const log4cxx::PatternLayout layout{kPattern};
  bool failing = false;
};

}  // namespace

void StartLogFile(const std::filesystem::path& folder) {
  os::MakeOwnFolder(folder);
  os::LineFile file(folder / "sysdiagnose.log");
  const log4cxx::LoggerPtr root = log4cxx::Logger::getRootLogger();
  root->setLevel(log4cxx::Level::getInfo());
  root->addAppender(std::make_shared<LineAppender>(std::move(file)));
}

}  // namespace util
