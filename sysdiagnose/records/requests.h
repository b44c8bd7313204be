#pragma once

namespace orv::sysdiagnose {

/// What the plugin asks of others. The companion service answers the first two.
enum class Request { LogsAvailable, LogList, UploadLogs, DiscardLogs, Restart, Count };

/// Posts it as this plugin's; whether it arrives is not known. Any thread.
void PostRequest(Request request);

}  // namespace orv::sysdiagnose
