#pragma once

#include <cstdint>

// Module, group and message ids. Published numbers: only ever added to. docs/messages.md lists
// them.
namespace protocol {

inline constexpr std::uint32_t kNone = 0xFFFFFFFF;

inline constexpr std::uint32_t kPluginModule = 0x390000;
inline constexpr std::uint32_t kDetectRequest = 0x390020;  // one byte: 0 starts, else stops
inline constexpr std::uint32_t kRepairRequest = 0x390021;  // categories to repair

inline constexpr std::uint32_t kCompanionModule = 0x3B0000;
inline constexpr std::uint32_t kLogsAvailableRequest = 0x3B0001;  // no body
inline constexpr std::uint32_t kLogListRequest = 0x3B0002;        // no body
inline constexpr std::uint32_t kPackRequest = 0x3B0003;           // one byte, 0
inline constexpr std::uint32_t kDiscardRequest = 0x3B0004;        // one byte, 0
inline constexpr std::uint32_t kLogsAvailableAnswer = 0x3C0001;   // one byte: 1 there are, 0 none
inline constexpr std::uint32_t kLogListAnswer = 0x3C0002;         // log items

inline constexpr std::uint32_t kHostModule = 0x30000;

inline constexpr std::uint32_t kHostGroup = 0x200000;
inline constexpr std::uint32_t kDescriptorRequest = 0x200009;
inline constexpr std::uint32_t kDescriptorAnswer = 0x20000A;
inline constexpr std::uint32_t kQuietSummary = 0x20000B;
inline constexpr std::uint32_t kRunSummary = 0x20000D;

inline constexpr std::uint32_t kManagerModule = 0x30000;
inline constexpr std::uint32_t kRestartRequest = 0xF0006;  // no body: restart the computer
inline constexpr std::uint32_t kRaiseRequest = 0xF0007;    // no body: show the window
inline constexpr std::uint32_t kRaiseAnswer = 0xF0008;     // no body: it was received

}  // namespace protocol
