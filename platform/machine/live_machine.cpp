#include "platform/machine/live_machine.h"

#include <array>
#include <optional>
#include <span>

#include "common/log.h"
#include "common/text.h"
#include "platform/machine/filter_keys.h"
#include "platform/machine/firmware_info.h"
#include "platform/machine/memory_buffer.h"
#include "platform/machine/memory_tests.h"
#include "platform/machine/processor_info.h"
#include "platform/machine/processor_tests/processor_tests.h"
#include "platform/machine/smart_report.h"
#include "platform/machine/smart_tool.h"

namespace machine {
namespace {

constexpr std::uint32_t kNoMemory = 2;

log4cxx::LoggerPtr& Logger() {
  static auto& logger = *new log4cxx::LoggerPtr(log4cxx::Logger::getLogger("orv.machine"));
  return logger;
}

TestAnswer RunProcessorTest(TestCall call, std::span<const Disk>, int) {
  return TestProcessor(call);
}

TestAnswer RunMemoryTest(TestCall call, std::span<const Disk>, int) {
  std::optional<MemoryBuffer> buffer;
  for (std::size_t size = MemoryBuffer::FittingSize(); !buffer && size >= MemoryBuffer::kSmallest;
       size /= 2)
    buffer = MemoryBuffer::Allocate(size);
  if (!buffer) return {kNoMemory, L"there is no memory to test", false, {}};
  return TestMemory(call, buffer->Words());
}

TestAnswer RunSmartTest(TestCall call, std::span<const Disk> disks, int disk) {
  if (disk < 0 || static_cast<std::size_t>(disk) >= disks.size()) return UnreadableDisk(call);
  return AskSmartTool(call, disks[static_cast<std::size_t>(disk)].device);
}

TestAnswer RunFilterKeysTest(TestCall, std::span<const Disk>, int) {
  return TestFilterKeys();
}

struct TestRow {
  TestCall call;
  TestAnswer (*run)(TestCall call, std::span<const Disk> disks, int disk);
  std::uint32_t code = 0;  // answered where nothing runs
  const wchar_t* text = L"";
};

constexpr auto kTests = std::to_array<TestRow>({
    {TestCall::CpuSse, RunProcessorTest},
    {TestCall::CpuSse2, RunProcessorTest},
    {TestCall::CpuSse3, RunProcessorTest},
    {TestCall::CpuSsse3, RunProcessorTest},
    {TestCall::CpuSse41, RunProcessorTest},
    {TestCall::CpuSse42, RunProcessorTest},
    {TestCall::MemoryStuckAddress, RunMemoryTest},
    {TestCall::MemoryLineSequence, RunMemoryTest},
    {TestCall::MemoryBlockSequence, RunMemoryTest},
    {TestCall::MemoryWalkingBit, RunMemoryTest},
    {TestCall::MemoryRandom, RunMemoryTest},
    {TestCall::MemoryCheckerboard, RunMemoryTest},
    {TestCall::MemoryArithmetic, RunMemoryTest},
    {TestCall::MemoryLogic, RunMemoryTest},
    {TestCall::MemoryBitFlip, RunMemoryTest},
    {TestCall::VideoDevice, nullptr, 1, L"no video card that can be tested"},
    {TestCall::VideoStatus, nullptr, 1, L"no video card that can be tested"},
    {TestCall::AudioDevice, nullptr, 1, L"no sound card that can be tested"},
    {TestCall::AudioLoopBack, nullptr, 1, L"no sound card that can be tested"},
    {TestCall::WifiDevice, nullptr, 1, L"no wireless adapter that can be tested"},
    {TestCall::WifiNetworkCard, nullptr, 1, L"no wireless adapter that can be tested"},
    {TestCall::WifiSwitch, nullptr, 1, L"no wireless adapter that can be tested"},
    {TestCall::WifiSignal, nullptr, 1, L"no wireless adapter that can be tested"},
    {TestCall::BatteryDevice, nullptr, 1, L"no battery that can be tested"},
    {TestCall::BatteryVoltage, nullptr, 1, L"no battery that can be tested"},
    {TestCall::BatteryLoss, nullptr, 1, L"no battery that can be tested"},
    {TestCall::KeyboardFilterKey, RunFilterKeysTest},
    {TestCall::KeyboardHotKey, nullptr},
    {TestCall::BluetoothDevice, nullptr, 1, L"no bluetooth adapter that can be tested"},
    {TestCall::BluetoothState, nullptr, 1, L"no bluetooth adapter that can be tested"},
    {TestCall::BiometricDevice, nullptr, 1, L"no fingerprint reader that can be tested"},
    {TestCall::BiometricFunction, nullptr, 1, L"no fingerprint reader that can be tested"},
    {TestCall::DiskHddSmart, RunSmartTest},
    {TestCall::DiskSsdSmart, RunSmartTest},
});
static_assert(InOrder<TestCall>(kTests));

struct RepairRow {
  RepairCall call;
  std::optional<RepairAnswer> (*run)();
};

constexpr auto kRepairs = std::to_array<RepairRow>({
    {RepairCall::WifiDriver, nullptr},
    {RepairCall::WifiProblem, nullptr},
    {RepairCall::Hotkey, nullptr},
    {RepairCall::FilterKey, TurnFilterKeysOff},
    {RepairCall::Audio, nullptr},
    {RepairCall::Bluetooth, nullptr},
    {RepairCall::VideoCard, nullptr},
    {RepairCall::Biometric, nullptr},
});
static_assert(InOrder<RepairCall>(kRepairs));

}  // namespace

const Inventory& LiveMachine::Info() {
  ReadOnce();
  return inventory;
}

std::wstring LiveMachine::ProductName() {
  ReadOnce();
  return productName;
}

TestAnswer LiveMachine::Test(TestCall call, std::size_t, int disk) {
  const TestRow& row = kTests.at(static_cast<std::size_t>(call));
  if (row.run == nullptr) return {row.code, row.text, row.code == 0, {}};
  ReadOnce();
  return row.run(call, disks, disk);
}

bool LiveMachine::IsSupported(SupportCall call) {
  return ProcessorSupports(call);
}

RepairAnswer LiveMachine::Repair(RepairCall call, std::size_t, std::uint32_t) {
  const RepairRow& row = kRepairs.at(static_cast<std::size_t>(call));
  std::optional<RepairAnswer> answer;
  if (row.run != nullptr) answer = row.run();
  return answer ? *answer : RepairAnswer{1, false, L"this repair cannot be made on this machine"};
}

void LiveMachine::ReadOnce() {
  std::call_once(wasRead, [this] { Read(); });
}

void LiveMachine::Read() {
  const FirmwareInfo firmware = ReadFirmware();
  if (!firmware.hasTable) COMMON_LOG_INFO(Logger(), "the firmware's tables cannot be read");
  productName = common::Utf8ToWide(firmware.productName);
  FillProcessor(inventory, firmware.externalClockMhz);
  FillBoard(inventory, firmware);
  FillMemory(inventory, firmware);
  disks = ListDisks();
  FillDisks(inventory, disks);
}

std::unique_ptr<Machine> MakeLiveMachine() {
  return std::make_unique<LiveMachine>();
}

}  // namespace machine
