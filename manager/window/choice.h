#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "platform/duilib/tree/paint_manager.h"

namespace manager {

/// Fills the container of that name with one option for each text, one of which a person chooses;
/// `chosen` is told its number. Throws std::runtime_error when a layout does not fit. UI thread
/// only.
void OfferChoice(DuiLib::CPaintManagerUI& window, const wchar_t* container,
                 const std::vector<std::wstring>& texts, std::size_t selected,
                 const std::function<void(std::size_t)>& chosen);

}  // namespace manager
