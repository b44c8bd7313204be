#include "sysdiagnose/catalogue/detect_catalogue.h"

#include <array>

#include "platform/concurrency/task.h"
#include "platform/duilib/culture/culture.h"
#include "sysdiagnose/base/log.h"
#include "sysdiagnose/catalogue/device_names.h"
#include "sysdiagnose/catalogue/xml_helper.h"

namespace orv::sysdiagnose {
namespace {

struct CategoryRow {
  enmHardwareID id;
  const wchar_t* caption;  // string id
  const wchar_t* icon;
  const wchar_t* smallIcon;
};

constexpr auto kCategories = std::to_array<CategoryRow>({
    {enmHardwareID::Processor, L"IDS_HARDWARE_DETECT_CPU", L"file='drawable/hardware/ic_cpu.png'",
     L"file='drawable/hardware/ic_cpu30.png'"},
    {enmHardwareID::Motherboard, L"IDS_HARDWARE_DETECT_MOT",
     L"file='drawable/hardware/ic_motherboard.png'",
     L"file='drawable/hardware/ic_motherboard30.png'"},
    {enmHardwareID::Memory, L"IDS_HARDWARE_DETECT_MEM", L"file='drawable/hardware/ic_ram.png'",
     L"file='drawable/hardware/ic_ram30.png'"},
    {enmHardwareID::Disk, L"IDS_HARDWARE_DETECT_DISK", L"file='drawable/hardware/ic_harddisk.png'",
     L"file='drawable/hardware/ic_harddisk30.png'"},
    {enmHardwareID::GraphicsCard, L"IDS_HARDWARE_DETECT_GPU",
     L"file='drawable/hardware/ic_video.png'", L"file='drawable/hardware/ic_video30.png'"},
    {enmHardwareID::Display, L"IDS_HARDWARE_DETECT_DISPLAY",
     L"file='drawable/hardware/ic_monitor.png'", L"file='drawable/hardware/ic_monitor30.png'"},
    {enmHardwareID::Audio, L"IDS_HARDWARE_DETECT_AUDIO", L"file='drawable/hardware/ic_sound.png'",
     L"file='drawable/hardware/ic_sound30.png'"},
    {enmHardwareID::NetworkCard, L"IDS_HARDWARE_DETECT_NETCARD",
     L"file='drawable/hardware/ic_network.png'", L"file='drawable/hardware/ic_network30.png'"},
    {enmHardwareID::Battery, L"IDS_HARDWARE_DETECT_BATTERY",
     L"file='drawable/hardware/ic_battery.png'", L"file='drawable/hardware/ic_battery30.png'"},
    {enmHardwareID::Keyboard, L"IDS_HARDWARE_DETECT_KEYBOARD",
     L"file='drawable/hardware/ic_keyboard.png'", L"file='drawable/hardware/ic_keyboard30.png'"},
    {enmHardwareID::Bluetooth, L"IDS_HARDWARE_DETECT_BT", L"file='drawable/hardware/ic_bt.png'",
     L"file='drawable/hardware/ic_bt30.png'"},
    {enmHardwareID::Fingerprint, L"IDS_HARDWARE_DETECT_FP", L"file='drawable/hardware/ic_fp.png'",
     L"file='drawable/hardware/ic_fp30.png'"},
});
static_assert(kCategories.size() == kHardwareIdCount);

constexpr auto kFillOrder = std::to_array<enmHardwareID>(
    {enmHardwareID::Audio, enmHardwareID::Motherboard, enmHardwareID::NetworkCard,
     enmHardwareID::Processor, enmHardwareID::Memory, enmHardwareID::Disk,
     enmHardwareID::GraphicsCard, enmHardwareID::Display, enmHardwareID::Battery,
     enmHardwareID::Keyboard, enmHardwareID::Bluetooth, enmHardwareID::Fingerprint});
static_assert(kFillOrder.size() == kHardwareIdCount);

// Tells those who wait for the fill, also when it has failed.
struct FillEnd {
  concurrency::unbounded_buffer<int>& filled;
  ~FillEnd() { filled.send(0); }
};

}  // namespace

DetectCatalogue& DetectCatalogue::Instance() {
  static DetectCatalogue catalogue;
  return catalogue;
}

DetectCatalogue::DetectCatalogue() {
  ReadItems();
  MakeCategories();
  concurrency::run_detached([this] {
    const FillEnd end{filled};
    FillDeviceTexts();
  });
}

const DetectCategory* DetectCatalogue::Find(enmHardwareID id) const {
  const auto found = categories.find(id);
  return found == categories.end() ? nullptr : &found->second;
}

// Each one who waits leaves the value to the next.
void DetectCatalogue::WaitUntilFilled() const {
  filled.send(filled.receive());
}

void DetectCatalogue::ReadItems() {
  try {
    XmlHelper::GetDetectItems(items);
  } catch (...) {
    items.clear();
    SYSDIAGNOSE_LOG_ERROR(common::DescribeCurrentException() +
                          "(orv::sysdiagnose::DetectCatalogue::ReadItems)");
  }
}

void DetectCatalogue::MakeCategories() {
  for (const CategoryRow& row : kCategories) {
    DetectCategory& category = categories[row.id];
    category.id = row.id;
    category.icon = row.icon;
    category.caption = DuiLib::UICulture::GetInstance()->GetString(row.caption);
    category.smallIcon = row.smallIcon;
    category.smallCaption = category.caption;
    category.altIcon = row.icon;
  }
}

void DetectCatalogue::FillDeviceTexts() {
  HardwareInfoSource& source = HardwareInfoSource::Instance();
  for (const enmHardwareID id : kFillOrder) {
    DeviceTexts texts = ReadDeviceTexts(id, source);
    DetectCategory& category = categories.at(id);
    category.deviceSummary.Set(std::move(texts.summary));
    category.deviceDetail.Set(std::move(texts.detail));
  }
}

}  // namespace orv::sysdiagnose
