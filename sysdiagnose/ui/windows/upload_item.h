#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/duilib/tree/container.h"

// The rows of the upload window: a log, first while it is being produced and then as a file. A
// row's user data is the path of its file. UI thread only.
namespace orv::sysdiagnose {

/// A row for the log of a module. Null when its layout cannot be loaded.
std::unique_ptr<DuiLib::CContainerUI> CreateUploadItem(std::int32_t module,
                                                       DuiLib::CPaintManagerUI& manager);

/// Shows that the file is being produced.
void ShowUploadWaiting(DuiLib::CControlUI& item);
/// Shows the file of this path by its name.
void ShowUploadFile(DuiLib::CControlUI& item, const std::wstring& path);

}  // namespace orv::sysdiagnose
