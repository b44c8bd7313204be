#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/os/export.h"

namespace machine {
enum class TestCall;
enum class SupportCall;
enum class RepairCall;
struct TestAnswer;
}  // namespace machine

namespace HardwareDetect {

/// What a fingerprint test fills. The caller sets code 0, an empty text and pass 1.
struct tagHARDWARE_DETECT_RESULT {
  std::int32_t code = 0;
  std::wstring text;
  std::uint8_t pass = 1;
};

/// What a repair returns: code 0 is success; `restart` is not 0 when the machine must restart for
/// the repair to take effect.
struct tagHARDWARE_REPAIR_RESULT {
  std::int32_t code = 0;
  std::uint8_t restart = 0;
  std::uint8_t reserved = 1;
  std::wstring text;
};

/// Base of the detector classes: asks the machine in force and counts this object's own calls, so
/// that objects do not take each other's successive answers.
class UTIL_API Detector {
 public:
  Detector();
  Detector(const Detector&) = delete;
  Detector& operator=(const Detector&) = delete;

 protected:
  ~Detector();

  /// `disk` is the index of the disk that the call is about, or -1.
  machine::TestAnswer Ask(machine::TestCall call, int disk);

  /// As Ask, for the calls that hand out nothing beside the code.
  std::uint32_t Ask(machine::TestCall call);

  /// As Ask, for the calls that hand out a text and return the code.
  std::uint32_t Ask(machine::TestCall call, std::wstring& text);

  /// As Ask, for the calls that fill a result and return the code.
  std::uint32_t Ask(machine::TestCall call, tagHARDWARE_DETECT_RESULT& result);

  bool IsSupported(machine::SupportCall call);
  tagHARDWARE_REPAIR_RESULT Repair(machine::RepairCall call, std::uint32_t code);

 private:
  struct Calls;
  const std::unique_ptr<Calls> calls;  // made so far
};

}  // namespace HardwareDetect
