#include "platform/util/log_file.h"

#include <log4cxx/fileappender.h>
#include <log4cxx/helpers/pool.h>
#include <log4cxx/helpers/transcoder.h>
#include <log4cxx/logger.h>
#include <log4cxx/patternlayout.h>

#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>

#include "common/path_text.h"
#include "platform/os/utf8_locale.h"

namespace util {
namespace {

constexpr auto kPattern = LOG4CXX_STR("%d{yyyy-MM-dd HH:mm:ss,SSS} %-5p %c %F:%L %m%n");

log4cxx::LogString LogText(const std::filesystem::path& path) {
  log4cxx::LogString converted;
  log4cxx::helpers::Transcoder::decodeUTF8(common::PathText(path), converted);
  return converted;
}

}  // namespace

void StartLogFile(const std::filesystem::path& folder) {
  const std::filesystem::path file = folder / "sysdiagnose.log";
  std::error_code ignored;  // a folder that cannot be made shows as a file that cannot be opened
  std::filesystem::create_directories(folder, ignored);
  if (!std::ofstream(file, std::ios::app))
    throw std::runtime_error(common::PathText(file) + ": the log cannot be written");

  const auto appender = std::make_shared<log4cxx::FileAppender>();
  appender->setLayout(std::make_shared<log4cxx::PatternLayout>(kPattern));
  appender->setFile(LogText(file));
  appender->setAppend(true);
  appender->setEncoding(LOG4CXX_STR("UTF-8"));
  const os::Utf8Locale utf8FileNames;
  log4cxx::helpers::Pool pool;
  appender->activateOptions(pool);

  const log4cxx::LoggerPtr root = log4cxx::Logger::getRootLogger();
  root->setLevel(log4cxx::Level::getInfo());
  root->addAppender(appender);
}

}  // namespace util
