#include "platform/util/soft_shelf.h"

#include <algorithm>
#include <exception>

#include "common/log.h"
#include "platform/machine/machine.h"
#include "platform/util/shelf_file.h"

namespace {

util::Shelf ReadInstalledShelf() {
  try {
    return util::ReadShelfFile(util::ShelfFile());
  } catch (const std::exception& error) {
    COMMON_LOG_ERROR(log4cxx::Logger::getLogger("orv.util"),
                     "no plugin is offered: " + std::string(error.what()));
    return {};
  }
}

const util::Shelf& InstalledShelf() {
  static const auto& shelf = *new util::Shelf(ReadInstalledShelf());
  return shelf;
}

}  // namespace

CQVXSoftShelf* CQVXSoftShelf::GetInstance() {
  static auto& shelf = *new CQVXSoftShelf;
  return &shelf;
}

bool CQVXSoftShelf::IsSupportPlugin(const std::string& key) {
  if (const auto keys = machine::Current().Shelf())
    return std::find(keys->begin(), keys->end(), key) != keys->end();
  return InstalledShelf().contains(key);
}
