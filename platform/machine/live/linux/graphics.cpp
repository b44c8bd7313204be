#include <array>
#include <vector>

#include "common/text.h"
#include "platform/machine/live/category.h"
#include "platform/machine/live/linux/driver_binding.h"
#include "platform/machine/live/linux/graphics_cards.h"
#include "platform/machine/live/linux/mending.h"
#include "platform/machine/live/linux/pci_device.h"

namespace machine {
namespace {

constexpr std::uint32_t kNoCard = 1;
constexpr std::uint32_t kNoDriver = 2;
constexpr std::uint32_t kNoOutput = 3;

struct CardCalls {
  InfoCall name;
  InfoCall driverVersion;
  InfoCall memorySize;
};
constexpr CardCalls kOnBoardCalls{InfoCall::InternalCardName, InfoCall::InternalCardDriverVersion,
                                  InfoCall::InternalCardMemorySize};
constexpr CardCalls kIndependentCalls{InfoCall::IndependentCardName,
                                      InfoCall::IndependentCardDriverVersion,
                                      InfoCall::IndependentCardMemorySize};

// The first card of each kind; the library has no room for more.
void ReadGraphics(Devices& devices) {
  Inventory& answers = devices.answers;
  for (const GraphicsCard& card : ListGraphicsCards()) {
    const CardCalls& calls = card.isOnBoard ? kOnBoardCalls : kIndependentCalls;
    if (answers.Size(calls.name) > 0) continue;
    answers.Set(calls.name, common::Utf8ToWide(card.name));
    answers.Set(calls.driverVersion, common::Utf8ToWide(card.driverVersion));
    answers.Set(calls.memorySize, card.memoryMegabytes);
  }
}

TestAnswer TestDevice(const Devices&, TestCall, int) {
  if (ListGraphicsCards().empty()) return {kNoCard, L"there is no graphics card"};
  return {};
}

/// A driver from elsewhere need not show the kernel what it does.
TestAnswer TestCard(const GraphicsCard& card) {
  const std::wstring name = common::Utf8ToWide(card.name);
  if (card.driver.empty()) return {kNoDriver, name + L" has no driver"};
  if (card.hasOutput) return {};
  const std::wstring driver = common::Utf8ToWide(card.driver);
  TestAnswer untested;
  if (IsGivenAway(card.driver))
    untested.notTested = name + L" is kept for virtual machines";
  else if (card.hasForeignDriver)
    untested.notTested = L"the driver " + driver + L" does not tell whether " + name + L" works";
  else
    return {kNoOutput, L"the driver " + driver + L" has not started " + name};
  return untested;
}

/// The worst of all cards.
TestAnswer TestCards() {
  TestAnswer worst;
  const std::vector<GraphicsCard> cards = ListGraphicsCards();
  if (cards.empty()) return {kNoCard, L"there is no graphics card"};
  for (const GraphicsCard& card : cards) {
    TestAnswer answer = TestCard(card);
    if (answer.code != 0) return answer;
    if (worst.notTested.empty()) worst = std::move(answer);
  }
  return worst;
}

TestAnswer TestStatus(const Devices&, TestCall, int) {
  return TestCards();
}

RepairAnswer RepairCards(std::uint32_t) {
  for (const GraphicsCard& card : ListGraphicsCards()) {
    if (TestCard(card).code == 0) continue;
    if (DrivesSession(card))
      return FailedRepair(L"programs draw on the card; its driver cannot be taken from it");
    if (std::wstring fault = BindAgain(card.device); !fault.empty())
      return FailedRepair(std::move(fault));
  }
  if (ListGraphicsCards().empty())
    return FailedRepair(L"there is no graphics card whose driver could be started");
  return TestAgain(TestCards);
}

constexpr auto kTests = std::to_array<LiveTest>({
    {TestCall::VideoDevice, TestDevice},
    {TestCall::VideoStatus, TestStatus},
});

constexpr auto kRepairs = std::to_array<LiveRepair>({{RepairCall::VideoCard, RepairCards}});

}  // namespace

Category GraphicsCategory() {
  return {.read = ReadGraphics, .tests = kTests, .repairs = kRepairs};
}

}  // namespace machine
