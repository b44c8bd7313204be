#pragma once

#include <cstdint>
#include <string>

namespace DuiLib {
class CControlUI;
class CPaintManagerUI;
}  // namespace DuiLib

// The rows of the upload window: a log, first while it is being produced and then as a file. A
// row's user data is the path of its file. UI thread only.
namespace orv::sysdiagnose {

/// A row for the log of a module. Null when its layout cannot be loaded.
DuiLib::CControlUI* CreateUploadItem(std::int32_t module, DuiLib::CPaintManagerUI& manager);

/// Shows that the file is being produced.
void ShowUploadWaiting(DuiLib::CControlUI& item);
/// Shows the file of this path by its name.
void ShowUploadFile(DuiLib::CControlUI& item, const std::wstring& path);

}  // namespace orv::sysdiagnose
