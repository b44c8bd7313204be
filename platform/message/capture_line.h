#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/message/message_item.h"

namespace message {

/// "0x" and upper-case digits without leading zeros.
std::string HexNumber(std::uint32_t number);

/// Appends the message to the capture file if one was started. A failure is logged. Any thread.
void CaptureMessage(const tagIPC_MESSAGE_ITEM& item, const std::vector<std::uint8_t>& body);

}  // namespace message
