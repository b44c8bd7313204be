#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <tuple>
#include <type_traits>

#include "platform/hardware_detect/hardware_detect.h"

namespace orv::sysdiagnose {

/// The library's test objects of one engine; the wireless tests have one of their own, the disk
/// tests one for each run. Used by the running task alone.
using TestObjects = std::tuple<HardwareDetect::CCpuTest, HardwareDetect::CMemFaultDetect,
                               HardwareDetect::CVideoCardDetect, HardwareDetect::CAudioDetect,
                               HardwareDetect::CBatteryDetect, HardwareDetect::CKeyBoardDetect,
                               HardwareDetect::CBluetoothDetect, HardwareDetect::CBiometricDetect,
                               std::optional<HardwareDetect::CDiskFaultDetect>>;

/// To be called before each run. Disks take turns in the order they are asked about: a run that
/// ended among them must not shift the turns of the next.
inline void BeginRun(TestObjects& objects) {
  std::get<std::optional<HardwareDetect::CDiskFaultDetect>>(objects).emplace();
}

template <typename Class>
Class& ObjectOf(TestObjects& objects) {
  if constexpr (std::is_same_v<Class, HardwareDetect::WifiFaultDetect>)
    return *HardwareDetect::WifiFaultDetect::GetInstance();
  else if constexpr (std::is_same_v<Class, HardwareDetect::CDiskFaultDetect>)
    return std::get<std::optional<Class>>(objects).value();
  else
    return std::get<Class>(objects);
}

/// What a library test returned. `pass` is its own verdict, where it gives one.
struct RawResult {
  std::uint32_t code = 0;
  bool pass = true;
};

// One overload per form of a library test; each prepares what the library wants handed over.
namespace detail {

template <typename Class>
RawResult CallTest(Class& object, std::uint32_t (Class::*test)()) {
  return {(object.*test)()};
}

template <typename Class>
RawResult CallTest(Class& object, std::uint32_t (Class::*test)(std::wstring&)) {
  std::wstring text;
  return {(object.*test)(text)};
}

template <typename Class>
RawResult CallTest(Class& object, std::uint32_t (Class::*test)(std::wstring&, int&)) {
  std::wstring text;
  int reserved = 1;
  return {(object.*test)(text, reserved)};
}

template <typename Class>
RawResult CallTest(Class& object,
                   std::uint32_t (Class::*test)(HardwareDetect::tagHARDWARE_DETECT_RESULT&)) {
  HardwareDetect::tagHARDWARE_DETECT_RESULT result;
  (object.*test)(result);
  return {static_cast<std::uint32_t>(result.code), result.pass != 0};
}

template <typename Class, typename Result, typename... Arguments>
std::type_identity<Class> ClassOf(Result (Class::*)(Arguments...));

}  // namespace detail

/// Calls a member of a test object, such as &CMemFaultDetect::CheckBoard.
template <auto Test>
RawResult Call(TestObjects& objects) {
  using Class = typename decltype(detail::ClassOf(Test))::type;
  return detail::CallTest(ObjectOf<Class>(objects), Test);
}

/// Asks a support check of a test object.
template <auto Check>
bool Supports(TestObjects& objects) {
  using Class = typename decltype(detail::ClassOf(Check))::type;
  return (ObjectOf<Class>(objects).*Check)();
}

}  // namespace orv::sysdiagnose
