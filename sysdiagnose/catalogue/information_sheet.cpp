#include "sysdiagnose/catalogue/information_sheet.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <span>
#include <vector>

#include "platform/duilib/culture/culture.h"
#include "platform/util/text_helpers.h"
#include "sysdiagnose/catalogue/hardware_info_source.h"
#include "sysdiagnose/catalogue/sizes.h"

namespace orv::sysdiagnose {
namespace {

using Source = HardwareInfoSource;

// A row shows when its value is not empty.
struct Row {
  const wchar_t* label;
  std::wstring (*value)(Source&, int device);
};

struct Sheet {
  std::span<const Row> rows;
  std::vector<int> (*devices)(Source&);  // the indices that the rows are read for
};

std::wstring Text(const std::wstring& text) {
  return DE::TrimSP(text);
}

std::wstring Number(std::uint64_t number, const wchar_t* unit) {
  return number == 0 ? std::wstring() : std::to_wstring(number) + unit;
}

std::wstring Cores(Source& s, int) {
  const std::uint32_t cores = s.cpu.GetCpuCoreNumbers();
  const std::uint32_t threads = s.cpu.GetCpuCoreThreads();
  if (cores == 0 && threads == 0) return {};
  return std::to_wstring(cores) + L"/" + std::to_wstring(threads);
}

// Hidden for a slot without memory, not for one whose size rounds to 0.
std::wstring ModuleSize(Source& s, int slot) {
  const std::uint64_t megabytes = s.memory.GetCapacitybyIndex(slot);
  return megabytes == 0 ? std::wstring() : std::to_wstring(GigabytesOf(megabytes)) + L"GB";
}

constexpr Row kProcessorRows[] = {
    {L"IDS_HARDWARE_DETECT_CPU", [](Source& s, int) { return Text(s.cpu.GetCpuName()); }},
    {L"IDS_HARDWARE_DETECT_MANUFACTURE",
     [](Source& s, int) { return Text(s.cpu.GetCpuManufacturer()); }},
    {L"IDS_HARDWARE_DETECT_CPU_NUM", &Cores},
    {L"IDS_HARDWARE_DETECT_CPU_EXCLOCK",
     [](Source& s, int) { return Number(s.cpu.GetCpuExtClock(), L"MHZ"); }},
    {L"IDS_HARDWARE_DETECT_CPU_FIRST_CACHE",
     [](Source& s, int) { return Number(s.cpu.GetL1CacheSize(), L"KB"); }},
    {L"IDS_HARDWARE_DETECT_CPU_SECOND_CACHE",
     [](Source& s, int) { return Number(s.cpu.GetL2CacheSize(), L"KB"); }},
    {L"IDS_HARDWARE_DETECT_CPU_THIRD_CACHE",
     [](Source& s, int) { return Number(s.cpu.GetL3CacheSize(), L"KB"); }},
};

constexpr Row kMotherboardRows[] = {
    {L"IDS_HARDWARE_DETECT_PRODUCT",
     [](Source& s, int) { return Text(s.baseboard.GetBaseboardProduct()); }},
    {L"IDS_HARDWARE_DETECT_MANUFACTURE",
     [](Source& s, int) { return Text(s.baseboard.GetBaseboardManufacturer()); }},
    {L"IDS_HARDWARE_DETECT_VER",
     [](Source& s, int) { return Text(s.baseboard.GetBaseboardVersion()); }},
    {L"IDS_HARDWARE_DETECT_SN",
     [](Source& s, int) { return Text(s.baseboard.GetBaseboardSerialNumber()); }},
};

constexpr Row kMemoryRows[] = {
    {L"IDS_HARDWARE_DETECT_PRODUCT",
     [](Source& s, int slot) { return Text(s.memory.GetPartNumberbyIndex(slot)); }},
    {L"IDS_HARDWARE_DETECT_LOC",
     [](Source& s, int slot) { return Text(s.memory.GetLocatorbyIndex(slot)); }},
    {L"IDS_HARDWARE_DETECT_MANUFACTURE",
     [](Source& s, int slot) { return Text(s.memory.GetManufacturerbyIndex(slot)); }},
    {L"IDS_HARDWARE_DETECT_MEM_SIZE", &ModuleSize},
    {L"IDS_HARDWARE_DETECT_SN",
     [](Source& s, int slot) { return Text(s.memory.GetSerialNumberbyIndex(slot)); }},
    {L"IDS_HARDWARE_DETECT_HERTZ",
     [](Source& s, int slot) { return Number(s.memory.GetSpeedbyIndex(slot), L"MHZ"); }},
};

constexpr Row kDiskRows[] = {
    {L"IDS_HARDWARE_DETECT_PRODUCT",
     [](Source& s, int disk) { return Text(s.disk.GetCaption(disk)); }},
    {L"IDS_HARDWARE_DETECT_DISK_VOLUMN",
     [](Source& s, int disk) { return DiskCapacityText(s.disk.GetTotalVendorCapacity(disk)); }},
    {L"IDS_HARDWARE_DETECT_SN",
     [](Source& s, int disk) { return Text(s.disk.GetSerialNumber(disk)); }},
};

// Device indices of the video card rows.
constexpr int kIndependentCard = 0;
constexpr int kInternalCard = 1;

template <auto OfIndependent, auto OfInternal>
auto AskCard(Source& s, int card) {
  return card == kIndependentCard ? (s.videoCard.*OfIndependent)() : (s.videoCard.*OfInternal)();
}

using Card = HardwareSdk::CVediocard;

constexpr auto kCardName =
    &AskCard<&Card::GetIndependentVideoCardName, &Card::GetInternalVideoCardName>;

constexpr Row kGraphicsRows[] = {
    {L"IDS_HARDWARE_DETECT_NAME", [](Source& s, int card) { return Text(kCardName(s, card)); }},
    {L"IDS_HARDWARE_DETECT_DRIVER_VERION",
     [](Source& s, int card) {
       return Text(AskCard<&Card::GetIndependentVideoCardDriverVersion,
                           &Card::GetInternalVideoCardDriverVersion>(s, card));
     }},
    {L"IDS_HARDWARE_DETECT_DRIVER_DATE",
     [](Source& s, int card) {
       return Text(
           AskCard<&Card::GetIndependentVideoCardDriverDate, &Card::GetInternalVideoCardDriverDate>(
               s, card));
     }},
    {L"IDS_HARDWARE_DETECT_GPU_SIZE",
     [](Source& s, int card) {
       return Number(
           AskCard<&Card::GetIndependentVedioCardMemorySize, &Card::GetInternalVedioCardMemorySize>(
               s, card),
           L" M");
     }},
};

constexpr Row kDisplayRows[] = {
    {L"IDS_HARDWARE_DETECT_PRODUCT",
     [](Source& s, int) { return Text(s.videoCard.GetMonitorCaption()); }},
    {L"IDS_HARDWARE_DETECT_DISPLAY_RESOLUTION",
     [](Source& s, int) { return Text(s.videoCard.GetDisplayResolution()); }},
    {L"IDS_HARDWARE_DETECT_DISPLAY_REFRESH_RATE",
     [](Source& s, int) { return Number(s.videoCard.GetRefreshRate(), L""); }},
};

constexpr Row kAudioRows[] = {
    {L"IDS_HARDWARE_DETECT_PRODUCT",
     [](Source& s, int card) { return Text(s.audioCard.GetAudioCardNameByIndex(card)); }},
    {L"IDS_HARDWARE_DETECT_MANUFACTURE",
     [](Source& s, int card) { return Text(s.audioCard.GetAudioCardManufacturerByIndex(card)); }},
};

constexpr Row kNetworkRows[] = {
    {L"IDS_HARDWARE_DETECT_NAME",
     [](Source& s, int adapter) { return Text(s.networkAdapter.GetCaptionbyIndex(adapter)); }},
    {L"IDS_HARDWARE_DETECT_MANUFACTURE",
     [](Source& s, int adapter) { return Text(s.networkAdapter.GetManufacturerbyIndex(adapter)); }},
    {L"IDS_HARDWARE_DETECT_MAC",
     [](Source& s, int adapter) { return Text(s.networkAdapter.GetMacAddressbyIndex(adapter)); }},
};

constexpr Row kBatteryRows[] = {
    {L"IDS_HARDWARE_DETECT_PRODUCT",
     [](Source& s, int) { return Text(s.battery.GetBatteryName()); }},
    {L"IDS_HARDWARE_DETECT_DESIGN_VOLUMN",
     [](Source& s, int) { return Number(s.battery.GetBatteryDesignCapacity(), L"mWh"); }},
    {L"IDS_HARDWARE_DETECT_MAX_VOLUMN",
     [](Source& s, int) { return Number(s.battery.GetBatteryFullCapacity(), L"mWh"); }},
};

constexpr Row kKeyboardRows[] = {
    {L"IDS_HARDWARE_DETECT_PRODUCT",
     [](Source& s, int) { return Text(s.keyboard.GetKeyBoardName()); }},
};

constexpr Row kBluetoothRows[] = {
    {L"IDS_HARDWARE_DETECT_PRODUCT",
     [](Source& s, int) { return Text(s.bluetooth.GetDeviceName()); }},
};

constexpr Row kFingerprintRows[] = {
    {L"IDS_HARDWARE_DETECT_PRODUCT",
     [](Source& s, int) { return Text(s.biometric.GetDeviceName()); }},
    {L"IDS_HARDWARE_DETECT_MANUFACTURE",
     [](Source& s, int) { return Text(s.biometric.GetManufacturer()); }},
};

std::vector<int> UpTo(int count) {
  std::vector<int> indices(static_cast<std::size_t>(std::max(count, 0)));
  std::iota(indices.begin(), indices.end(), 0);
  return indices;
}

std::vector<int> OneDevice(Source&) {
  return {0};
}

// The cards that have a name; the rows of a card without one are not shown.
std::vector<int> VideoCards(Source& s) {
  std::vector<int> cards;
  std::wstring description;
  if (s.videoCardPresence.CheckDevice(description) != 0) return cards;
  for (const int card : {kIndependentCard, kInternalCard})
    if (!Text(kCardName(s, card)).empty()) cards.push_back(card);
  return cards;
}

std::vector<int> AudioCards(Source& s) {
  std::wstring description;
  if (s.audioPresence.CheckDevice(description) != 0) return {};
  return UpTo(s.audioCard.GetAudioCardNumbers());
}

// By category id.
constexpr auto kSheets = std::to_array<Sheet>({
    {kAudioRows, &AudioCards},
    {kMotherboardRows, &OneDevice},
    {kBluetoothRows, &OneDevice},
    {kNetworkRows, [](Source& s) { return s.networkAdapter.GetWireLessIndex(); }},
    {kProcessorRows, &OneDevice},
    {kMemoryRows, [](Source& s) { return UpTo(s.memory.GetMemoryNums()); }},
    {kDiskRows, [](Source& s) { return UpTo(s.disk.GetPhysicDiskNumbers()); }},
    {kGraphicsRows, &VideoCards},
    {kDisplayRows, &OneDevice},
    {kBatteryRows, &OneDevice},
    {kKeyboardRows, &OneDevice},
    {kFingerprintRows, &OneDevice},
});
static_assert(kSheets.size() == kHardwareIdCount);

// Hands out the rows of one device; says whether there were any.
bool HandOutDevice(enmHardwareID category, std::span<const Row> rows, Source& source, int device,
                   const InfoRowCallback& onRow) {
  bool shown = false;
  for (const Row& row : rows) {
    tagHardwareDetailInfo info;
    info.value = row.value(source, device);
    if (info.value.empty()) continue;
    info.category = category;
    info.label = DuiLib::UICulture::GetInstance()->GetString(row.label);
    if (!shown) info.name = info.value;
    shown = true;
    onRow(category, info);
  }
  return shown;
}

void HandOutEmptyRow(enmHardwareID category, const InfoRowCallback& onRow) {
  tagHardwareDetailInfo info;
  info.category = category;
  info.kind = tagHardwareDetailInfo::kEmptyRow;
  onRow(category, info);
}

}  // namespace

bool CollectInformation(enmHardwareID category, const InfoRowCallback& onRow) {
  if (!IsCategory(category)) return false;
  Source& source = HardwareInfoSource::Instance();
  const Sheet& sheet = kSheets[static_cast<std::size_t>(category)];
  const std::vector<int> devices = sheet.devices(source);

  bool shown = false;
  for (std::size_t i = 0; i < devices.size(); ++i) {
    if (HandOutDevice(category, sheet.rows, source, devices[i], onRow)) shown = true;
    if (shown && i + 1 < devices.size()) HandOutEmptyRow(category, onRow);
  }
  if (!shown) HandOutEmptyRow(category, onRow);
  return shown;
}

}  // namespace orv::sysdiagnose
