#pragma once

#include "common/log.h"

namespace orv::sysdiagnose {

/// The plugin's logger.
const log4cxx::LoggerPtr& PluginLogger();

}  // namespace orv::sysdiagnose

// Info for facts of the environment and the flow, warning for what is left out, error for
// configuration that cannot be read and for caught exceptions. The text ends with the qualified
// name of the function in parentheses.
#define SYSDIAGNOSE_LOG_INFO(text) COMMON_LOG_INFO(::orv::sysdiagnose::PluginLogger(), text)
#define SYSDIAGNOSE_LOG_WARN(text) COMMON_LOG_WARN(::orv::sysdiagnose::PluginLogger(), text)
#define SYSDIAGNOSE_LOG_ERROR(text) COMMON_LOG_ERROR(::orv::sysdiagnose::PluginLogger(), text)
