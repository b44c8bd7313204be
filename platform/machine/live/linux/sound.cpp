#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include "common/text.h"
#include "platform/machine/live/category.h"
#include "platform/machine/live/linux/driver_binding.h"
#include "platform/machine/live/linux/loop_back.h"
#include "platform/machine/live/linux/mending.h"
#include "platform/machine/live/linux/pci_device.h"
#include "platform/machine/live/linux/sound_cards.h"

namespace machine {
namespace {

constexpr std::uint32_t kNoCard = 1;
constexpr std::uint32_t kNoDriver = 2;
constexpr std::uint32_t kNoCardOfDriver = 3;

constexpr std::uint32_t kMultimediaClass = 0x04;
constexpr auto kSoundClasses = std::to_array<std::uint32_t>({0x0401, 0x0403});

void ReadSound(Devices& devices) {
  const std::vector<SoundCard> cards = ListSoundCards();
  Inventory& answers = devices.answers;
  for (std::size_t i = 0; i < cards.size(); ++i) {
    answers.Set(InfoCall::AudioCardNameByIndex, common::Utf8ToWide(cards[i].name), i);
    answers.Set(InfoCall::AudioCardManufacturer, common::Utf8ToWide(cards[i].maker), i);
  }
  if (!cards.empty()) answers.Set(InfoCall::AudioCardName, common::Utf8ToWide(cards.front().name));
}

std::vector<PciDevice> ListControllers() {
  std::vector<PciDevice> controllers = ListPciDevices(kMultimediaClass);
  std::erase_if(controllers, [](const PciDevice& device) {
    return std::ranges::count(kSoundClasses, device.classCode >> 8) == 0;
  });
  return controllers;
}

TestAnswer Fault(std::uint32_t code, std::wstring text) {
  return {.code = code, .text = std::move(text), .pass = false};
}

std::wstring Words(const PciDevice& controller) {
  return common::Utf8ToWide(NameOf(controller).product + " (" + controller.address + ')');
}

TestAnswer CheckDevice() {
  const std::vector<PciDevice> controllers = ListControllers();
  const auto driverless = std::ranges::find_if(
      controllers, [](const PciDevice& device) { return device.driver.empty(); });
  if (driverless != controllers.end())
    return Fault(kNoDriver, L"no driver runs " + Words(*driverless));
  if (!ListSoundCards().empty()) return {};
  if (controllers.empty()) return Fault(kNoCard, L"there is no sound card in this machine");
  return Fault(kNoCardOfDriver,
               L"the driver of " + Words(controllers.front()) + L" finds no sound card");
}

TestAnswer CheckAll() {
  TestAnswer answer = CheckDevice();
  return answer.code == 0 ? TestLoopBack() : answer;
}

/// The devices that a driver is to be given to: those without, or where all have one all of them.
std::vector<PciDevice> ListToBind() {
  std::vector<PciDevice> controllers = ListControllers();
  const auto hasDriver = [](const PciDevice& device) { return !device.driver.empty(); };
  if (!std::ranges::all_of(controllers, hasDriver)) std::erase_if(controllers, hasDriver);
  return controllers;
}

RepairAnswer Repair(std::uint32_t code) {
  const std::vector<PciDevice> controllers = ListToBind();
  if (controllers.empty())
    return FailedRepair(L"there is no sound device whose driver could be started again");
  for (const PciDevice& controller : controllers)
    if (std::wstring reason = BindAgain(controller.folder); !reason.empty())
      return FailedRepair(std::move(reason));
  const bool isAboutDevice = code <= kNoCardOfDriver;
  return TestAgain([&] { return isAboutDevice ? CheckDevice() : CheckAll(); });
}

constexpr auto kTests = std::to_array<LiveTest>({
    {TestCall::AudioDevice, [](const Devices&, TestCall, int) { return CheckDevice(); }},
    {TestCall::AudioLoopBack, [](const Devices&, TestCall, int) { return TestLoopBack(); },
     CallLimit::Sound},
});

constexpr auto kRepairs = std::to_array<LiveRepair>({
    {RepairCall::Audio, Repair, CallLimit::Repair},
});

}  // namespace

Category SoundCategory() {
  return {.read = ReadSound, .tests = kTests, .repairs = kRepairs};
}

}  // namespace machine
