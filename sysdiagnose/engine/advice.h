#pragma once

#include <cstdint>
#include <string>

#include "sysdiagnose/base/hardware_id.h"

namespace orv::sysdiagnose {

/// What the owner of the machine should do about an abnormal item, in the current language: it
/// completes the item's hint, and stands alone where the item has none. `caption` is the item's own
/// text, empty for a category that a test without an item found abnormal. Empty when there is
/// nothing to add. Any thread.
std::wstring AdviceText(enmHardwareID category, const std::wstring& caption, std::int32_t code);

/// The hint of an abnormal item as far as it is about the item's device. Those of memory items are
/// looked up by the library's code, which can name the message of another device.
std::wstring HintForOwner(enmHardwareID category, const std::wstring& hint);

/// A hint and the advice that completes it, or any two sentences, in one text; either may be empty.
std::wstring JoinedSentences(const std::wstring& first, const std::wstring& second);

}  // namespace orv::sysdiagnose
