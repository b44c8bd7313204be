#include "sysdiagnose/engine/test_items.h"

#include <algorithm>
#include <array>
#include <string>

#include "platform/duilib/culture/culture.h"
#include "sysdiagnose/engine/hint_text.h"
#include "sysdiagnose/records/bi_report.h"

namespace orv::sysdiagnose {
namespace {

using namespace HardwareDetect;
using Category = enmHardwareID;
using enum RepairCommand;

// The loop-back test with processor load and clock sampled around it.
RawResult CheckLoopBackSampled(TestObjects& objects) {
  BIReport sampler;
  sampler.Start();
  const RawResult result = Call<&CAudioDetect::CheckLoopBack>(objects);
  sampler.StopAndReport();
  return result;
}

// In running order within a category. Battery and fingerprint items share the captions of other
// devices, the SSE3 item the support check of SSE: owners know these texts.
// clang-format off
constexpr auto kItems = std::to_array<TestItem>({
    {Category::Processor, L"CPU_SSE", &Call<&CCpuTest::TestSSE>, Normal::Always, kNoHint, None, &Supports<&CCpuTest::IsSupportSSE>},
    {Category::Processor, L"CPU_SSE2", &Call<&CCpuTest::TestSSE2>, Normal::Always, kNoHint, None, &Supports<&CCpuTest::IsSupportSSE2>},
    {Category::Processor, L"CPU_SSE3", &Call<&CCpuTest::TestSSE3>, Normal::Always, kNoHint, None, &Supports<&CCpuTest::IsSupportSSE>},
    {Category::Processor, L"CPU_SSSE3", &Call<&CCpuTest::TestSSSE3>, Normal::Always, kNoHint, None, &Supports<&CCpuTest::IsSupportSSSE3>},
    {Category::Processor, L"CPU_SSE41", &Call<&CCpuTest::TestSSE41>, Normal::Always, kNoHint, None, &Supports<&CCpuTest::IsSupportSSE41>},
    {Category::Processor, L"CPU_SSE42", &Call<&CCpuTest::TestSSE42>, Normal::Always, kNoHint, None, &Supports<&CCpuTest::IsSupportSSE42>},
    {Category::Motherboard, L"MOT_FAST", nullptr, Normal::Always, kNoHint},
    {Category::Memory, L"MEM_FAST", &Call<&CMemFaultDetect::CheckStuckAddr>, Normal::WhenZero, kHintFromCode},
    {Category::Memory, L"MEM_CONTINUE_INC_RW", &Call<&CMemFaultDetect::CheckLineSeq>, Normal::WhenZero, kHintFromCode},
    {Category::Memory, L"MEM_BLOCK_INC_WRITE", &Call<&CMemFaultDetect::CheckBlockSeq>, Normal::WhenZero, kHintFromCode},
    {Category::Memory, L"MEM_BIT_RW", &Call<&CMemFaultDetect::CheckBit0Walk>, Normal::WhenZero, kHintFromCode},
    {Category::Memory, L"MEM_FAKE_RANDOM", &Call<&CMemFaultDetect::CheckRandom>, Normal::WhenZero, kHintFromCode},
    {Category::Memory, L"MEM_BOARD", &Call<&CMemFaultDetect::CheckBoard>, Normal::WhenZero, kHintFromCode},
    {Category::Memory, L"MEM_ARITH", &Call<&CMemFaultDetect::CheckArithOperation>, Normal::WhenZero, kHintFromCode},
    {Category::Memory, L"MEM_LOGIC", &Call<&CMemFaultDetect::CheckLogicOperation>, Normal::WhenZero, kHintFromCode},
    {Category::Memory, L"MEM_BIT_FLIP", &Call<&CMemFaultDetect::CheckBitFlip>, Normal::WhenZero, kHintFromCode},
    {Category::GraphicsCard, L"GPU_DEVICE", &Call<&CVideoCardDetect::CheckDevice>, Normal::WhenZero, kCheckDriverHint, VideoCard},
    {Category::GraphicsCard, L"GPU_STATE", &Call<&CVideoCardDetect::CheckDeviceStatus>, Normal::WhenZero, kCheckDriverHint, VideoCard},
    {Category::Display, L"DISPLAY_FAST", nullptr, Normal::Always, kNoHint},
    {Category::Audio, L"AUDIO_DEVICE", &Call<&CAudioDetect::CheckDevice>, Normal::WhenZero, kCheckDriverHint, Audio},
    {Category::Audio, L"AUDIO_LOOPBACK", &CheckLoopBackSampled, Normal::WhenZero, kCheckDriverHint, Audio},
    {Category::NetworkCard, L"NETCARD_DEVICE", &Call<&WifiFaultDetect::CheckDevice>, Normal::WhenZero, kCheckDriverHint, WifiDriver, nullptr, L"AUDIO_DEVICE"},
    {Category::NetworkCard, L"NETCARD_ADAPTER", &Call<&WifiFaultDetect::CheckNetworkCard>, Normal::WhenZero, kCheckDriverHint, WifiProblem},
    {Category::NetworkCard, L"WIFI_SWITCH", &Call<&WifiFaultDetect::CheckWifiSwitch>, Normal::WhenZero, kCheckDriverHint, WifiProblem},
    {Category::NetworkCard, L"NETCARD_SIGNAL", &Call<&WifiFaultDetect::CheckWifiSignal>, Normal::WhenZero, kWeakSignalHint, WifiProblem},
    {Category::Battery, L"NETCARD_DEVICE", &Call<&CBatteryDetect::CheckDevice>, Normal::WhenZero, kBatteryUnknownHint},
    {Category::Battery, L"BAT_VOLTAGE", &Call<&CBatteryDetect::TestVoltage>, Normal::WhenZero, kLowVoltageHint},
    {Category::Battery, nullptr, &Call<&CBatteryDetect::TestLoss>, Normal::WhenZero, kNoHint},
    {Category::Keyboard, L"KEYBOARD_FILTER", &Call<&CKeyBoardDetect::DetetctFilterKey>, Normal::WhenZero, kFilterKeysHint, FilterKey},
    {Category::Keyboard, L"KEYBOARD_HOTKEY", &Call<&CKeyBoardDetect::DetetctHotKey>, Normal::WhenZero, kHotkeyHint, Hotkey},
    {Category::Bluetooth, L"BLUETOOTH_DEVICE", &Call<&CBluetoothDetect::CheckDevice>, Normal::WhenZero, kCheckDriverHint, Bluetooth},
    {Category::Bluetooth, L"BLUETOOTH_STATUS", &Call<&CBluetoothDetect::CheckState>, Normal::WhenZero, kCheckDriverHint, Bluetooth},
    {Category::Fingerprint, L"NETCARD_DEVICE", &Call<&CBiometricDetect::CheckDevice>, Normal::WhenPassed, kCheckDriverHint, Fingerprint},
    {Category::Fingerprint, L"BLUETOOTH_STATUS", &Call<&CBiometricDetect::CheckFunction>, Normal::WhenPassed, kCheckDriverHint, Fingerprint},
});
// clang-format on
static_assert(kItems.size() == 34);

bool IsNormal(Normal rule, const RawResult& raw) {
  if (rule == Normal::Always) return true;
  return rule == Normal::WhenPassed ? raw.pass : raw.code == 0;
}

}  // namespace

std::span<const TestItem> ItemsOf(enmHardwareID category) {
  const auto isOf = [category](const TestItem& item) { return item.category == category; };
  const auto first = std::find_if(kItems.begin(), kItems.end(), isOf);
  return {first, std::find_if_not(first, kItems.end(), isOf)};
}

std::wstring CaptionText(const wchar_t* caption) {
  return DuiLib::UICulture::GetInstance()->GetString(std::wstring(L"IDS_HARDWARE_DIAGNOSE_") +
                                                     caption);
}

std::uint32_t Evaluate(const TestItem& item, TestObjects& objects, tagDetectItemDetail& detail) {
  const RawResult raw = item.test == nullptr ? RawResult{} : item.test(objects);
  const auto code = static_cast<std::int32_t>(raw.code);
  detail.caption = item.caption == nullptr ? std::wstring() : CaptionText(item.caption);
  detail.normal = IsNormal(item.normal, raw);
  detail.hint = HintText(item.hint == kHintFromCode ? code : item.hint);
  detail.code = code;
  return raw.code;
}

}  // namespace orv::sysdiagnose
