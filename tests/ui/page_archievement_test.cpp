#include <SQLiteCpp/SQLiteCpp.h>

#include <cmath>

#include "common/path_text.h"
#include "common/text.h"
#include "platform/duilib/controls/list.h"
#include "platform/duilib/controls/option.h"
#include "sysdiagnose/ui/history/count_text.h"
#include "sysdiagnose/ui/history/date_label.h"
#include "tests/support/fake_machine.h"
#include "tests/support/history_row.h"
#include "tests/ui/ui_pages_test.h"

namespace orv::sysdiagnose {
namespace {

using DuiLib::CContainerUI;
using DuiLib::CControlUI;
using DuiLib::COptionUI;
using DuiLib::Key;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int64_t kNoon = 1551960000;
constexpr std::int64_t kMidnight = kNoon - 12 * 3600;
constexpr std::int64_t kDay = 86400;
constexpr os::LocalTime kLocalNoon{2019, 3, 7, 12, 0, 0};

constexpr const char* kUntouched = "IDS_HARDWARE_DETECT_MAIN_DETECT_NEW";
constexpr const char* kUnreadable = "IDS_HARDWARE_DETECT_MAIN_UNREADABLE";

TEST(CountText, TakesThePluralAboveOneAndNothingFromWhatIsNoPattern) {
  const InForce inForce;
  EXPECT_EQ(CountText(L"one {0}", L"many {0}", 0), L"one 0");
  EXPECT_EQ(CountText(L"one {0}", L"many {0}", 1), L"one 1");
  EXPECT_EQ(CountText(L"one {0}", L"many {0}", 2), L"many 2");
  EXPECT_EQ(CountText(L"{0} of {1", 2), L"");
}

TEST(DateLabel, CountsDaysFromTheLastMidnight) {
  const InForce inForce;
  const std::wstring today = L"IDS_HARDWARE_DETECT_MAIN_TODAY";
  const std::wstring yesterday = L"IDS_HARDWARE_DETECT_MAIN_YESTERDAY";
  const auto before = [](int days) {
    return L"IDS_HARDWARE_DETECT_MAIN_BEFORE_DAY(" + std::to_wstring(days) + L")";
  };
  const struct {
    std::int64_t sinceMidnight;
    std::wstring label;
  } cases[] = {
      {2 * kDay, today},        {1, today},
      {0, before(1)},           {-1, yesterday},
      {-kDay, yesterday},       {-kDay - 1, before(2)},
      {-36 * 3600, before(2)},  {-2 * kDay, before(3)},
      {-89 * kDay, before(90)},
  };
  for (const auto& [sinceMidnight, label] : cases)
    EXPECT_EQ(DateLabel(kMidnight + sinceMidnight, kMidnight), label) << sinceMidnight;
}

TEST(DateLabel, TheDayBeginsByTheLocalClock) {
  const FakeClock clock(kNoon, {2019, 3, 7, 1, 2, 3});
  EXPECT_EQ(LastMidnight(), kNoon - 3723);
}

/// The history page in a window, with the layouts that are installed.
class HistoryPageTest : public UiPagesTest {
 protected:
  HistoryPageTest() : UiPagesTest(R"({"info": {"CDisk": {"GetTotalVendorCapacity": [512]}}})") {
    std::filesystem::copy(APP_DIR "/res/layout", inForce.folder.path / "res/layout",
                          std::filesystem::copy_options::recursive |
                              std::filesystem::copy_options::overwrite_existing);
    inForce.WriteConfig("SysdiagnoseList.xml",
                        "<sysdiagnose><DetectItem id='10' name='' description=''/>"
                        "<DetectItem id='-1' name='' description=''/>"
                        "<DetectItem id='6' name='' description=''/>"
                        "<DetectItem id='4' name='' description=''/></sysdiagnose>");
    page.SetSwitchPage([this](enumPageType type) { switches.push_back(type); });
  }
  ~HistoryPageTest() override {
    concurrency::wait_until_quiet();
    window.Manager().SetRoot(nullptr);
  }

  void Mount() {
    page.CreatePage(&window.Manager(), &pump);
    window.Open(page.GetRoot());
    page.InitPage();
  }
  void Enter() {
    Mount();
    page.Refresh();
    RunFor(0);
  }

  // A run with the processor passed, the disk failed and the rest not tested, but for the counts.
  static void Store(std::int64_t time, std::int64_t passed, std::int64_t failed,
                    const std::string& date = "2019.03.07") {
    DataManager::Row row = HistoryRow(time);
    row[3] = std::int64_t{kAbnormal};
    row[12] = passed;
    row[13] = failed;
    row[14] = date;
    DataManager::Instance().Put(kHistoryTable, row);
  }

  std::string Text(const std::wstring& name) { return common::WideToUtf8(window.Text(name)); }
  std::string Verdict() { return Text(L"txtSysdiagnoseArchievementSecondTitle"); }

  /// "label: what its controls carry" of each entry from the top, and whether it can be chosen.
  std::vector<std::string> Column() {
    auto& column = Get<CContainerUI>(L"lytSysdiagnoseDateItems");
    std::vector<std::string> told;
    for (std::size_t index = 0; index < column.GetCount(); ++index) {
      auto& entry = dynamic_cast<CContainerUI&>(*column.GetItemAt(index));
      std::wstring text = FindBelow<CControlUI>(&entry, L"txt_hardware_his")->GetText() + L":";
      for (std::size_t part = 0; part < entry.GetCount(); ++part) {
        const CControlUI& control = *entry.GetItemAt(part);
        if (dynamic_cast<const DuiLib::CButtonUI*>(&control) == nullptr) continue;
        text += L" " + control.GetName() + L"=" + control.GetUserData();
        if (!control.IsEnabled()) text += L" off";
      }
      told.push_back(common::WideToUtf8(text));
    }
    return told;
  }

  /// "name status" of each row of the detail list.
  std::vector<std::string> Rows() {
    auto& list = Get<CContainerUI>(L"lstSysdiagnoseArchieve");
    std::vector<std::string> told;
    for (std::size_t index = 0; index < list.GetCount(); ++index) {
      CControlUI* const row = list.GetItemAt(index);
      const auto image = FindBelow<CControlUI>(row, L"ctlStatus")->GetLook().image;
      told.push_back(common::WideToUtf8(FindBelow<CControlUI>(row, L"txtName")->GetText() + L" " +
                                        (image ? image->file : L"-") +
                                        FindBelow<CControlUI>(row, L"txtStatus")->GetText()));
    }
    return told;
  }

  /// What a bar takes of its room, in points of a hundred.
  int Filled(const wchar_t* bar) {
    const int width = window.Position(bar).Width();
    return static_cast<int>(std::lround(100.0 * width / Get(bar).GetParent()->GetPos().Width()));
  }

  const FakeClock noon{kNoon, kLocalNoon};
  PageArchievement page;
  std::vector<enumPageType> switches;
};

std::string Entry(const std::string& label, int run, const std::string& off = "") {
  const std::string number = std::to_string(run);
  const std::string option = "optSysdiagnoseDateItem" + number;
  return label + ": " + option + "=" + number + off + " btnSysdiagnoseDateItem" + number + "=" +
         option + off;
}

TEST_F(HistoryPageTest, TheRunsStandByDayWithTheNewestBelowAndChosen) {
  Store(kMidnight + 1, 10, 2);
  Store(kMidnight - 1, 1, 0);
  Store(kMidnight - 4 * kDay, 2, 0);
  Store(kMidnight - 8 * kDay - 5, 3, 0);
  Store(kMidnight - 20 * kDay, 4, 0);
  Enter();
  EXPECT_EQ(Verdict(), "IDS_HARDWARE_DETECT_MAIN_LAST_ABNORM(2)");
  const std::string before = "IDS_HARDWARE_DETECT_MAIN_BEFORE_DAY";
  EXPECT_THAT(Column(),
              ElementsAre(Entry(before + "(21)", 4), Entry(before + "(9)", 3),
                          Entry(before + "(5)", 2), Entry("IDS_HARDWARE_DETECT_MAIN_YESTERDAY", 1),
                          Entry("IDS_HARDWARE_DETECT_MAIN_TODAY", 0), Entry("", 5, " off"),
                          Entry("", 6, " off"), Entry("", 7, " off"), Entry("", 8, " off"),
                          Entry("", 9, " off"), Entry("", 10, " off"), Entry("", 11, " off")));
  EXPECT_TRUE(Get(L"optSysdiagnoseDateItem0").IsSelected());
  EXPECT_EQ(Get(L"optSysdiagnoseDateItem0").GetLook().background, DuiLib::Colour(0xB47B6EF9));
  EXPECT_EQ(Get(L"optSysdiagnoseDateItem0").GetLook().gradientEnd, DuiLib::Colour(0xB42D78FC));
  EXPECT_EQ(Get(L"optSysdiagnoseDateItem5").GetLook().background, DuiLib::Colour(0x7B6EF9));
  EXPECT_EQ(window.Position(L"optSysdiagnoseDateItem5").Height(),
            window.Position(L"optSysdiagnoseDateItem0").Height());
  EXPECT_TRUE(Get(L"lytSysdiagnoseHistory").IsShown());
  EXPECT_FALSE(Get(L"lytSysdiagnoseInvitation").IsShown());
}

TEST_F(HistoryPageTest, OfAHundredDaysTheTwelveLatestShow) {
  for (int day = 0; day < 100; ++day) Store(kNoon - day * kDay, 12, 0);
  Enter();
  EXPECT_EQ(Verdict(), "IDS_HARDWARE_DETECT_MAIN_LAST_NORM");
  EXPECT_EQ(Column().size(), 12);
  EXPECT_EQ(Column().front(), Entry("IDS_HARDWARE_DETECT_MAIN_BEFORE_DAY(11)", 11));
}

TEST_F(HistoryPageTest, AChosenRunTellsWhatItFoundInEachCategory) {
  Store(kMidnight + 5, 1, 1);
  Store(kMidnight - kDay, 5, 0, "2019.03.06");
  Enter();
  EXPECT_EQ(Text(L"txtSysdiagnoseDetailDate"), "2019.03.07");
  EXPECT_EQ(Text(L"txtSysdiagnoseDetailTested"), "IDS_HARDWARE_DIAGNOSE_TESTED(2,3)");
  EXPECT_EQ(Text(L"txtSysdiagnoseDateItemsTips"), "IDS_HARDWARE_DIAGNOSE_NUM_NORMAL(1)");
  EXPECT_TRUE(Get(L"txtSysdiagnoseDateItemsTips").IsShown());
  EXPECT_THAT(Rows(), ElementsAre("IDS_HARDWARE_DETECT_CPU drawable/hardware/ic_cheackout.png",
                                  "IDS_HARDWARE_DETECT_DISK drawable/hardware/ic_unusual.png",
                                  "IDS_HARDWARE_DETECT_KEYBOARD IDS_HARDWARE_REPORT_NOT_TESTED"));

  window.Click(L"btnSysdiagnoseDateItem1");
  RunFor(0);
  EXPECT_EQ(Text(L"txtSysdiagnoseDetailDate"), "2019.03.06");
  EXPECT_FALSE(Get(L"optSysdiagnoseDateItem0").IsSelected());
  EXPECT_EQ(Rows().size(), 3) << "in place of those before";

  Get<COptionUI>(L"optSysdiagnoseDateItem7").Selected(true);  // has no run
  RunFor(0);
  EXPECT_EQ(Text(L"txtSysdiagnoseDetailDate"), "2019.03.06");
}

/// A machine that tells of its devices only when the gate is open.
class SlowMachine final : public FakeMachine {
 public:
  const machine::Inventory& Info() override {
    gate.send(gate.receive());
    return FakeMachine::Info();
  }
  concurrency::unbounded_buffer<int> gate;
};

TEST_F(HistoryPageTest, DeviceNamesComeWhenTheyHaveBeenRead) {
  auto slow = std::make_unique<SlowMachine>();
  SlowMachine& machine = *slow;
  machine.inventory = machine::Current().Info();
  machine::SetCurrent(std::move(slow));
  Store(kNoon, 1, 1);
  Enter();
  EXPECT_EQ(Text(L"lstSysdiagnoseArchieve/txtName[1]"), "IDS_HARDWARE_DETECT_DISK");
  EXPECT_EQ(Text(L"lstSysdiagnoseArchieve/txtDescription[1]"), "");
  machine.gate.send(0);
  RunFor(0);
  EXPECT_EQ(Text(L"lstSysdiagnoseArchieve/txtDescription[1]"), "512 GB");
}

TEST_F(HistoryPageTest, BarsAndNumbersGrowInTwentySteps) {
  Store(kMidnight + 5, 7, 3);
  Store(kMidnight - kDay, 0, 0);
  Enter();
  EXPECT_EQ(Filled(L"lytSysdiagnoseNormal"), 0);
  window.Tick(std::chrono::milliseconds(200));
  EXPECT_EQ(Text(L"txtSysdiagnoseNormalNum"), "IDS_HARDWARE_DIAGNOSE_NUM(3)");
  EXPECT_EQ(Text(L"txtSysdiagnoseAbnormalNum"), "IDS_HARDWARE_DIAGNOSE_NUM(1)");
  EXPECT_EQ(Filled(L"lytSysdiagnoseNormal"), 35);
  EXPECT_EQ(Filled(L"lytSysdiagnoseAbnormal"), 15);
  window.Tick(std::chrono::milliseconds(200));
  EXPECT_EQ(window.Manager().NextDue(false), std::nullopt) << "the timer has ended";
  EXPECT_EQ(Text(L"txtSysdiagnoseNormalNum"), "IDS_HARDWARE_DIAGNOSE_NUM(7)");
  EXPECT_EQ(Filled(L"lytSysdiagnoseNormal"), 70);
  window.Manager().SetClientSize({800, 600});
  EXPECT_EQ(Filled(L"lytSysdiagnoseNormal"), 70) << "of a narrower window too";
  EXPECT_EQ(Filled(L"lytSysdiagnoseAbnormal"), 30);

  window.Click(L"btnSysdiagnoseDateItem1");
  RunFor(0);
  EXPECT_EQ(Text(L"txtSysdiagnoseNormalNum"), "IDS_HARDWARE_DIAGNOSE_NUM(0)") << "anew";
  RunFor(400);
  EXPECT_EQ(Filled(L"lytSysdiagnoseNormal"), 0) << "nothing was tested";
  EXPECT_EQ(Filled(L"lytSysdiagnoseAbnormal"), 0);
}

TEST_F(HistoryPageTest, CountsOfAForeignHandAreShownAndBreakNothing) {
  Store(kMidnight + 5, 2000000000, 1000000000);
  Enter();
  RunFor(400);
  EXPECT_EQ(Text(L"txtSysdiagnoseNormalNum"), "IDS_HARDWARE_DIAGNOSE_NUM(2000000000)");
  EXPECT_EQ(Filled(L"lytSysdiagnoseNormal"), 50);
  EXPECT_EQ(Filled(L"lytSysdiagnoseAbnormal"), 50);
}

TEST_F(HistoryPageTest, BeforeTheFirstRunThePageInvitesAndShowsWhatIsTested) {
  Enter();
  EXPECT_EQ(Verdict(), kUntouched);
  EXPECT_EQ(Column().size(), 12);
  EXPECT_THAT(Column(), Each(testing::EndsWith(" off")));
  EXPECT_FALSE(Get(L"lytSysdiagnoseHistory").IsShown());
  auto& tiles = Get<CContainerUI>(L"lytSysdiagnoseDetail");
  EXPECT_TRUE(tiles.IsShown());
  std::vector<std::wstring> captions;
  for (std::size_t index = 0; index < tiles.GetCount(); ++index)
    captions.push_back(FindBelow<CControlUI>(tiles.GetItemAt(index), L"txtName")->GetText());
  EXPECT_THAT(captions, ElementsAre(L"IDS_HARDWARE_DETECT_KEYBOARD", L"IDS_HARDWARE_DETECT_DISK",
                                    L"IDS_HARDWARE_DETECT_CPU"));

  Store(kNoon, 1, 0);
  page.Refresh();
  EXPECT_EQ(tiles.GetCount(), 0) << "emptied at once";
  RunFor(0);
  EXPECT_EQ(tiles.GetCount(), 3);
  EXPECT_FALSE(tiles.IsShown());
  EXPECT_TRUE(Get(L"lytSysdiagnoseHistory").IsShown());
}

TEST_F(HistoryPageTest, ATestBeginsByButtonOrKeyAndIsReportedFirst) {
  page.SetSwitchPage([this](enumPageType type) {
    EXPECT_EQ(Events(), "620000001");
    switches.push_back(type);
  });
  Enter();
  window.Click(L"btnSysdiagnoseScan");
  window.Press(Key::kEnter);
  EXPECT_THAT(switches, ElementsAre(PAGE_SCAN, PAGE_SCAN));
}

TEST_F(HistoryPageTest, TheKeyboardGoesThroughRunsAndRowsWithoutAStopTwice) {
  Store(kMidnight + 5, 1, 1);
  Store(kMidnight - kDay, 5, 0, "2019.03.06");
  Enter();
  std::vector<std::wstring> stops;
  do {
    window.Press(Key::kTab);
    stops.push_back(window.Manager().GetFocus()->GetName());
  } while (stops.size() < 10 && stops.back() != L"lstSysdiagnoseArchieve");
  EXPECT_THAT(stops, ElementsAre(L"btnSysdiagnoseScan", L"btnSysdiagnoseDateItem1",
                                 L"btnSysdiagnoseDateItem0", L"lstSysdiagnoseArchieve"));
  window.Press(Key::kBackTab);
  window.Press(Key::kBackTab);
  window.Press(Key::kEnter);
  RunFor(0);
  EXPECT_EQ(Text(L"txtSysdiagnoseDetailDate"), "2019.03.06");
}

TEST_F(HistoryPageTest, OnlyTheNewestRefreshAndChoiceAreAnswered) {
  Mount();
  page.Refresh();
  concurrency::wait_until_quiet();  // its answers wait for the page
  Store(kNoon, 1, 0);
  Store(kNoon - kDay, 1, 0, "2019.03.06");
  page.Refresh();
  DuiLib::UIMainQueue::RunPending();
  EXPECT_NE(Verdict(), kUntouched);
  RunFor(0);
  EXPECT_EQ(Verdict(), "IDS_HARDWARE_DETECT_MAIN_LAST_NORM");

  window.Click(L"btnSysdiagnoseDateItem1");
  concurrency::wait_until_quiet();
  window.Click(L"btnSysdiagnoseDateItem0");
  DuiLib::UIMainQueue::RunPending();
  EXPECT_EQ(Text(L"txtSysdiagnoseDetailDate"), "2019.03.07");
}

TEST_F(HistoryPageTest, AnswersThatComeAfterThePageHasGoneConcernNobody) {
  Store(kNoon, 1, 0);
  Enter();
  page.Refresh();
  window.Click(L"btnSysdiagnoseDateItem0");
  concurrency::wait_until_quiet();
  window.Manager().SetRoot(nullptr);
  EXPECT_EQ(page.GetRoot(), nullptr);
  Mount();
  RunFor(400);
  EXPECT_EQ(Verdict(), "") << "they were for the tree before";
  page.Refresh();
  RunFor(0);
  EXPECT_EQ(Verdict(), "IDS_HARDWARE_DETECT_MAIN_LAST_NORM");
}

TEST_F(HistoryPageTest, TheDetailListIsLaidOutOnceMoreAfterTheRunsCame) {
  Store(kNoon, 1, 0);
  Enter();
  int timers = 0;
  Get(L"lstSysdiagnoseArchieve").SetNotifyHook([&](DuiLib::TNotifyUI& notification) {
    timers += notification.type == DuiLib::kNotifyTimer && notification.value == 4001;
    return false;
  });
  RunFor(200);
  EXPECT_EQ(timers, 1);
}

TEST_F(HistoryPageTest, AStoreThatCannotBeReadIsNotTakenForOneWithoutRuns) {
  std::filesystem::create_directories(inForce.folder.path / "data/store.db");
  Enter();
  EXPECT_EQ(Verdict(), kUnreadable);
  EXPECT_TRUE(Get(L"lytSysdiagnoseDetail").IsShown());
}

TEST_F(HistoryPageTest, ARunThatCannotBeReadIsSaidToBe) {
  const auto execute = [this](const std::string& statement) {
    SQLite::Database(common::PathText(inForce.folder.path / "data/store.db"),
                     SQLite::OPEN_READWRITE)
        .exec(statement);
  };
  Store(kNoon, 4, 0);
  Enter();
  RunFor(400);
  execute("update TABLE_HARDWARE_DIAGNOSE set Battery='x'");
  page.Refresh();
  window.Manager().LayOut();
  RunFor(0);
  EXPECT_EQ(Verdict(), kUnreadable);
  EXPECT_THAT(Rows(), IsEmpty());

  execute("update TABLE_HARDWARE_DIAGNOSE set Battery=0");
  page.Refresh();
  RunFor(400);
  EXPECT_EQ(Verdict(), "IDS_HARDWARE_DETECT_MAIN_LAST_NORM");
  Store(kNoon - kDay, 4, 0);
  page.Refresh();
  RunFor(0);
  execute("delete from TABLE_HARDWARE_DIAGNOSE");
  window.Click(L"btnSysdiagnoseDateItem1");
  RunFor(400);
  EXPECT_EQ(Text(L"txtSysdiagnoseDetailDate"), kUnreadable);
  EXPECT_THAT(Rows(), IsEmpty());
  EXPECT_FALSE(Get(L"txtSysdiagnoseDateItemsTips").IsShown());
  EXPECT_EQ(Filled(L"lytSysdiagnoseNormal"), 0);
}

TEST_F(HistoryPageTest, WhatLayoutsLackIsPassedOver) {
  Store(kNoon, 4, 1);
  const std::string verdict = "<Label name='txtSysdiagnoseArchievementSecondTitle' text='-'/>";
  const std::string tips = "<Label name='txtSysdiagnoseDateItemsTips' text='-'/>";
  const std::string area = "<VerticalLayout name='lytSysdiagnoseDetail'/>";
  const std::string dates = "<VerticalLayout name='lytSysdiagnoseDateItems'/>";
  const struct {
    const char* story;
    std::string controls;
    std::string verdict;
  } cases[] = {
      {"no tips", verdict + area + dates, "-"},
      {"no area for the categories", verdict + tips + dates, "-"},
      {"no bars, no list", verdict + tips + area + dates,
       "IDS_HARDWARE_DETECT_MAIN_LAST_ABNORM(1)"},
      {"no dates", verdict + tips + area, "IDS_HARDWARE_DETECT_MAIN_LAST_ABNORM(1)"},
  };
  for (const auto& [story, controls, expected] : cases) {
    WriteLayout("archievement", "<VerticalLayout>" + controls + "</VerticalLayout>");
    Enter();
    RunFor(400);
    EXPECT_EQ(Verdict(), expected) << story;
    EXPECT_EQ(window.Manager().NextDue(false), std::nullopt) << story;
  }
  for (const char* item : {"date", "detail", "category"})
    RemoveLayout("archievement_" + std::string(item));
  std::filesystem::copy_file(APP_DIR "/res/layout/sysdiagnose_archievement.xml",
                             inForce.folder.path / "res/layout/sysdiagnose_archievement.xml",
                             std::filesystem::copy_options::overwrite_existing);
  Enter();
  EXPECT_EQ(Verdict(), "IDS_HARDWARE_DETECT_MAIN_LAST_ABNORM(1)");
  EXPECT_THAT(Column(), IsEmpty());
}

}  // namespace
}  // namespace orv::sysdiagnose
