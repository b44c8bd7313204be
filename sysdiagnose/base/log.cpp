#include "sysdiagnose/base/log.h"

namespace orv::sysdiagnose {

const log4cxx::LoggerPtr& PluginLogger() {
  static const log4cxx::LoggerPtr logger = log4cxx::Logger::getLogger("orv.sysdiagnose");
  return logger;
}

}  // namespace orv::sysdiagnose
