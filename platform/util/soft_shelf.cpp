#include "platform/util/soft_shelf.h"

#include <algorithm>

#include "platform/machine/current.h"
#include "platform/util/shelf_file.h"

namespace {

const util::Shelf& InstalledShelf() {
  static const auto& shelf = *new util::Shelf(util::InstalledShelf());
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
