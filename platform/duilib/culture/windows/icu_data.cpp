#include "platform/duilib/culture/icu_data.h"

#include <unicode/udata.h>

#include <string>

#include "common/log.h"
#include "common/path_text.h"
#include "platform/os/paths.h"
#include "platform/os/windows/handle.h"

namespace DuiLib {
namespace {

// The whole file, for as long as the process lives; null when it cannot be read.
const void* Map(const std::filesystem::path& file) {
  const os::Handle opened(CreateFileW(file.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                      OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
  if (!opened) return nullptr;
  const os::Handle mapping(CreateFileMappingW(opened.Get(), nullptr, PAGE_READONLY, 0, 0, nullptr));
  return mapping ? MapViewOfFile(mapping.Get(), FILE_MAP_READ, 0, 0, 0) : nullptr;
}

bool ProvideOnce() {
  const std::filesystem::path file = os::InstallationFolder() / (U_ICUDATA_NAME ".dat");
  const void* const data = Map(file);
  UErrorCode status = data == nullptr ? U_FILE_ACCESS_ERROR : U_ZERO_ERROR;
  udata_setCommonData(data, &status);
  if (U_SUCCESS(status)) return true;
  COMMON_LOG_ERROR(log4cxx::Logger::getLogger("orv.duilib"),
                   common::PathText(file) + ": not read: " + u_errorName(status));
  return false;
}

}  // namespace

void ProvideIcuData() {
  static const bool provided = ProvideOnce();
  (void)provided;
}

}  // namespace DuiLib
