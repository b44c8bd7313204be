#pragma once

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "platform/util/patience.h"
#include "platform/util/store_file.h"

namespace util {

/// Root, key, name and value in UTF-8.
using RegistryRow = std::array<std::string, 4>;

/// What is left of a store that was damaged.
struct DamagedStore {
  std::string damage;                 // names the file that it was found in
  std::filesystem::path keptAs;       // its side files stand beside it
  std::vector<RegistryRow> registry;  // as much of it as could be read
};

/// While it is there, no process sets the store aside. Whoever opens the store's files takes it, so
/// that all of them are of one store; several may have it. Nothing in a folder that takes no new
/// file: there nobody renames one either. Throws StoreError when it is not to be had in time.
std::optional<StoreFile> KeepNames(const std::filesystem::path& file, Patience& patience);

/// Gives a damaged store another name in its folder, with its side files, so that a new one can be
/// made. Nothing when there is no damage: another process may have been here first. Only one
/// process at a time looks and renames; none of this one may have the file open. Throws StoreError.
std::optional<DamagedStore> SetAsideDamagedStore(const std::filesystem::path& file,
                                                 Patience& patience);

}  // namespace util
