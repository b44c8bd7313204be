#include "sysdiagnose/ui/pages/page_detect.h"

#include <regex>

#include "platform/machine/current.h"
#include "platform/machine/machine_files/machine_file.h"
#include "tests/ui/modal_steps.h"
#include "tests/ui/stepped_clock.h"
#include "tests/ui/ui_pages_test.h"

namespace orv::sysdiagnose {
namespace {

using DuiLib::CFrameAnimationUI;
using DuiLib::CLabelUI;
using DuiLib::CListUI;
using DuiLib::Person;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;
using Category = enmHardwareID;

// Two categories fail and can be repaired, in three tests.
constexpr const char* kFailing = R"({"tests": {"CVideoCardDetect::CheckDevice": 5,
  "CKeyBoardDetect::DetetctFilterKey": 1, "CKeyBoardDetect::DetetctHotKey": 2}})";
const std::vector<Category> kThree{Category::Display, Category::GraphicsCard, Category::Keyboard};

constexpr const char* kPage =
    "<VerticalLayout><Label name='txtSysdiagnosedDetectFirstTitle' height='20'/>"
    "<Label name='txtSysdiagnoseDetectSecondTitle' height='20'/>"
    "<Label name='txtSysdiagnoseDetectHint' height='20'/>"
    "<HorizontalLayout name='lytDetectExecute'>"
    "<Button name='btnSysdiagnoseDetectBack' width='80' height='40'/>"
    "<Button name='btnSysdiagnoseDetectComplete' width='80' height='40'/></HorizontalLayout>"
    "<HorizontalLayout name='lytDetectCancel'>"
    "<Label name='txtSysdiagnoseDetectStopping'/>"
    "<Button name='btnSysdiagnoseDetectCancel' width='80' height='40'/></HorizontalLayout>"
    "<List name='lstSysdiagnoseDetectItems' height='grow'/></VerticalLayout>";
constexpr const char* kItem =
    "<ListContainerElement name='lytHardware'><HorizontalLayout name='lytTitle' height='64'>"
    "<Control name='ctlSmallIcon'/><Label name='txtName'/><Label name='txtDescription'/>"
    "<Label name='txtAbnormalType'/><FrameAnimation name='ctlStatus'/><Control name='ctlFolder'/>"
    "<Button name='btnFolder' width='20' height='20'/></HorizontalLayout>"
    "<HorizontalLayout name='lytContent' height='shrink'><Control name='ctlBigIcon'/>"
    "<VerticalLayout name='lytItems'/></HorizontalLayout>"
    "<Control name='lytLine' height='1'/></ListContainerElement>";
constexpr const char* kDetail =
    "<HorizontalLayout height='32'><Label name='txtTitle'/>"
    "<Label name='txtResult' text-colour='#123456'/>"
    "<Option name='optChoose' width='20' height='20'/><FrameAnimation name='ctlStatus'/>"
    "</HorizontalLayout>";

constexpr const wchar_t* kFirst = L"txtSysdiagnosedDetectFirstTitle";
constexpr const wchar_t* kSecond = L"txtSysdiagnoseDetectSecondTitle";
constexpr const wchar_t* kComplete = L"btnSysdiagnoseDetectComplete";
constexpr const wchar_t* kBack = L"btnSysdiagnoseDetectBack";
constexpr const wchar_t* kCancel = L"btnSysdiagnoseDetectCancel";
constexpr const wchar_t* kHint = L"txtSysdiagnoseDetectHint";

constexpr const wchar_t* kNotFound = L"IDS_HARDWARE_DIAGNOSE_RESULT_ABNORM_NOT_FOUND";
constexpr const wchar_t* kSendLog = L"{a}IDS_HARDWARE_DIAGNOSE_RESULT_SEND_LOG{/a}";

std::wstring Left(int count) {
  return L"IDS_HARDWARE_DIAGNOSE_ABNORM_RESULT_NUM(" + std::to_wstring(count) + L")";
}

class DetectPageTest : public UiPagesTest {
 protected:
  DetectPageTest() {
    WriteLayout("detect", kPage);
    WriteLayout("detect_item", kItem);
    WriteLayout("detect_detail", kDetail);
    page.SetSwitchPage([this](enumPageType type) { switches.push_back(type); });
    companion.RegisterMessageCallbackAll([this](const tagIPC_MESSAGE_ITEM& item) {
      if (item.messageId == protocol::kLogsAvailableRequest) ++logRequests;
    });
    manager.RegisterMessageCallbackAll([this](const tagIPC_MESSAGE_ITEM&) { ++restarts; });
  }
  ~DetectPageTest() override {
    window.Manager().SetRoot(nullptr);
    concurrency::wait_until_idle();
    message::WaitUntilDelivered();
  }

  void UseMachine(const std::string& json) {
    machine::SetCurrent(machine::ParseMachine(json, "machine"));
  }

  void Mount() {
    page.CreatePage(&window.Manager(), &pump);
    window.Open(page.GetRoot());
    page.InitPage();
  }
  void Start(const std::vector<Category>& categories) {
    Mount();
    page.StartDetect(categories);
  }
  void StartAndEnd(const std::vector<Category>& categories) {
    Start(categories);
    RunFor(kLongMs);
  }
  void StartAndEndOn(const std::string& json, const std::vector<Category>& categories = kThree) {
    UseMachine(json);
    StartAndEnd(categories);
  }

  void AnswerAboutLogs(bool available) {
    const std::uint8_t body = available ? 1 : 0;
    tagIPC_MESSAGE_ITEM item;
    item.target = protocol::kPluginModule;
    item.messageId = protocol::kLogsAvailableAnswer;
    item.dataLength = sizeof body;
    item.data = &body;
    companion.PostIPCMessage(item);
    message::WaitUntilDelivered();
    window.Tick(std::chrono::milliseconds(0));
  }

  CListUI& List() { return Get<CListUI>(L"lstSysdiagnoseDetectItems"); }
  /// With its marks.
  std::wstring Text(const std::wstring& name) { return Find(name).GetText(); }
  DuiLib::CControlUI& Find(const std::wstring& name) { return Person(window.Manager()).Find(name); }
  bool IsVisible(const std::wstring& name) { return Find(name).IsVisible(); }
  int Height(const std::wstring& name) { return window.Position(name).Height(); }
  std::uint32_t ResultColour(int row) {
    return Find(L"txtResult[" + std::to_wstring(row) + L"]").GetLook().text->Argb();
  }

  /// The picture of a sign: a frame or one that stands still, and its size.
  static std::wstring PictureOf(DuiLib::CControlUI& control) {
    auto& sign = dynamic_cast<CFrameAnimationUI&>(control);
    const std::wstring still = sign.GetLook().image.value_or(DuiLib::Image()).file;
    const std::wstring frame = sign.GetFrame().file;
    EXPECT_TRUE(still.empty() || frame.empty());
    return still + frame + L" " + std::to_wstring(sign.GetWidth().value);
  }
  std::wstring ItemSign(int item) {
    return PictureOf(Find(L"lytTitle[" + std::to_wstring(item) + L"]/ctlStatus"));
  }
  std::wstring RowSign(int row) {
    DuiLib::CControlUI& result = Find(L"txtResult[" + std::to_wstring(row) + L"]");
    return PictureOf(*DuiLib::CPaintManagerUI::FindControl(result.GetParent(), L"ctlStatus"));
  }

  static constexpr int kLongMs = 6000;
  PageDetect page;
  std::vector<enumPageType> switches;
  CIPCMessageClient companion{protocol::kCompanionModule, false};
  CIPCMessageClient manager{protocol::kManagerModule, false};
  std::atomic<int> logRequests = 0;
  std::atomic<int> restarts = 0;
  ModalSteps steps;
};

TEST_F(DetectPageTest, TestsUnfoldOneByOneAndTheResultOffersRepairs) {
  UseMachine(kFailing);
  Start(kThree);
  EXPECT_EQ(Text(kFirst), L"IDS_HARDWARE_DIAGNOSE_DOING");
  EXPECT_EQ(Height(L"lytDetectCancel"), 140);
  EXPECT_FALSE(IsVisible(L"lytDetectExecute"));
  RunFor(20);
  EXPECT_EQ(List().GetCount(), 1);
  EXPECT_EQ(Text(kSecond),
            L"{f 105}{c #7F7F7F}IDS_HARDWARE_DIAGNOSE_ITEM IDS_HARDWARE_DETECT_DISPLAY"
            L"IDS_HARDWARE_DIAGNOSE_DISPLAY_FAST{/c}{/f}");
  EXPECT_EQ(Height(L"lytHardware"), 64 + 17 + 20);
  EXPECT_EQ(Text(L"txtTitle"), L"IDS_HARDWARE_DIAGNOSE_DISPLAY_FAST");

  for (int time = 0; Text(kFirst) == L"IDS_HARDWARE_DIAGNOSE_DOING"; time += 20) {
    ASSERT_LT(time, kLongMs);
    if (List().GetCount() < 3) {
      EXPECT_THAT(Text(kSecond), StartsWith(L"{f 105}")) << "how many are left never flashes";
    }
    RunFor(20);
  }
  EXPECT_EQ(Text(kFirst), L"IDS_HARDWARE_DIAGNOSE_RESULT");
  EXPECT_EQ(Text(kSecond), Left(2));
  EXPECT_EQ(Height(L"lytDetectExecute"), 140);
  EXPECT_FALSE(IsVisible(L"lytDetectCancel"));
  EXPECT_EQ(Text(kComplete), L"IDS_HARDWARE_DIAGNOSE_REPAIR");
  EXPECT_EQ(Text(kBack), L"IDS_HARDWARE_DETECT_BACK_MAIN");
  EXPECT_TRUE(IsVisible(L"lytLine[1]"));
  EXPECT_FALSE(IsVisible(L"lytLine[2]"));
  EXPECT_EQ(Events(), "620000026 620000025");
  window.Click(kBack);
  EXPECT_THAT(switches, ElementsAre(PAGE_ARCHIEVEMENT));
  EXPECT_EQ(Events(), "");
}

TEST_F(DetectPageTest, EachRowAndItemShowsHowItCameOut) {
  UseMachine(kFailing);
  Start(kThree);
  RunFor(20);
  EXPECT_EQ(RowSign(0), L"drawable/hardware/Loading/loading_2.png 20");
  RunFor(kLongMs);
  EXPECT_EQ(ItemSign(0), L"drawable/hardware/Done/done_20.png 18");
  EXPECT_EQ(Find(L"lytTitle[0]/ctlStatus").GetPadding(), (DuiLib::Insets{0, 1, 10, 0}));
  EXPECT_EQ(ItemSign(1), L"drawable/hardware/ic_unusual.png 20");
  EXPECT_EQ(Find(L"lytTitle[1]/ctlStatus").GetPadding(), (DuiLib::Insets{0, 0, 8, 0}));
  EXPECT_EQ(RowSign(0), L"drawable/hardware/Done/done_20.png 18");
  EXPECT_EQ(Text(L"txtResult[0]"), L"");
  EXPECT_EQ(RowSign(1), L"drawable/hardware/ic_unusual.png 20");
  EXPECT_EQ(Text(L"txtResult[1]"), L"IDS_HARDWARE_DIAGNOSE_CHECK_DRIVE");
  EXPECT_EQ(Find(L"txtResult[1]").GetToolTip(), Text(L"txtResult[1]"));
  EXPECT_EQ(ResultColour(1), 0xFFFF3320);
  EXPECT_FALSE(IsVisible(L"optChoose[0]"));
  EXPECT_TRUE(IsVisible(L"optChoose[1]"));
  EXPECT_TRUE(Find(L"optChoose[1]").IsSelected());
  EXPECT_FALSE(IsVisible(L"txtAbnormalType[0]"));
  EXPECT_EQ(Text(L"txtAbnormalType[1]"), L"IDS_HARDWARE_DIAGNOSE_GPU_UNKNOWN");
  EXPECT_EQ(Height(L"lytItems[1]"), 64) << "one row, and room for the icon";
  EXPECT_EQ(Height(L"lytHardware[2]"), 64 + 64);
}

TEST_F(DetectPageTest, WithNothingToRepairThereIsOnlyAnEnd) {
  for (const std::vector<Category>& categories :
       {std::vector<Category>{}, {Category::Memory, Category::Battery}}) {
    StartAndEnd(categories);
    EXPECT_EQ(List().GetCount(), categories.size());
    EXPECT_EQ(Text(kSecond), kNotFound);
    EXPECT_EQ(Text(kComplete), L"IDS_HARDWARE_DIAGNOSE_OK");
    EXPECT_FALSE(IsVisible(kBack));
    Events();
    window.Click(kComplete);
    EXPECT_EQ(Events(), "620000005");
    EXPECT_THAT(std::exchange(switches, {}), ElementsAre(PAGE_ARCHIEVEMENT));
  }
}

TEST_F(DetectPageTest, ACategoryWithoutItemsCountsAndAFailedTestWithoutAHintSaysSomething) {
  std::string unsupported = R"({"tests": {"CMemFaultDetect::CheckBoard": 3)";
  for (const char* set : {"SSE", "SSE2", "SSSE3", "SSE41", "SSE42"})
    unsupported += std::string(R"(, "CCpuTest::IsSupport)") + set + "\": false";
  StartAndEndOn(unsupported + "}}", {Category::Processor, Category::Memory});
  EXPECT_EQ(List().GetCount(), 1);
  EXPECT_EQ(Text(kSecond), Left(1));
  EXPECT_EQ(Text(L"txtResult[5]"), L"IDS_HARDWARE_DIAGNOSE_MEM_FAILED");
  EXPECT_EQ(Find(L"txtResult[5]").GetToolTip(),
            L"IDS_HARDWARE_ADVICE_SENTENCES(IDS_HARDWARE_DIAGNOSE_MEM_FAILED,"
            L"IDS_HARDWARE_ADVICE_MEMORY)");
}

TEST_F(DetectPageTest, ADiskThatCannotBeReadSaysSoInItsHeading) {
  UseMachine(R"({"info": {"CDisk": {"GetCaption": ["A", "B", "C", "D"], "JudgeSSd": [true, true,
                 true, true]}}, "tests": {"CDiskFaultDetect::CheckSsdSmartResult":
                    [2, 2, {"code": 1, "flags": [0, 1]}, 2]}})");
  constexpr const wchar_t* kUnreadable = L"IDS_HARDWARE_DIAGNOSE_DISK_UNREADABLE";
  Start({Category::Disk});
  RunFor(20);
  while (Get<DuiLib::CContainerUI>(L"lytItems").GetCount() < 3) RunFor(20);
  EXPECT_EQ(Text(L"txtResult[0]"), kUnreadable) << "as soon as that is clear";
  RunFor(kLongMs);
  EXPECT_EQ(ResultColour(0), 0xFF123456) << "as the layout has it: no verdict";
  EXPECT_EQ(Text(L"txtResult[1]"), kUnreadable);
  EXPECT_EQ(Text(L"txtTitle[2]"), L"C");
  EXPECT_EQ(Text(L"txtResult[2]"), L"");
  EXPECT_EQ(Text(L"txtResult[4]"), L"IDS_HARDWARE_DIAGNOSE_DISK_FAILED");
  EXPECT_EQ(Text(L"txtTitle[25]"), L"D");
  EXPECT_EQ(Text(L"txtResult[25]"), kUnreadable);
  for (const int heading : {0, 1, 2, 25}) EXPECT_EQ(RowSign(heading), L" 20");
  EXPECT_EQ(RowSign(3), L"drawable/hardware/Done/done_20.png 18");
  EXPECT_EQ(Height(L"lytItems"), 26 * 32);
  EXPECT_EQ(Text(kSecond), kNotFound) << "as it is counted";

  StartAndEndOn("{}", {Category::Disk});
  EXPECT_EQ(Text(L"txtResult[0]"), L"IDS_HARDWARE_DIAGNOSE_DISK_NONE");
  EXPECT_EQ(RowSign(0), L" 20");
}

TEST_F(DetectPageTest, RepairsThatSucceedLeaveNothing) {
  StartAndEndOn(kFailing);
  Events();
  window.Click(kComplete);
  EXPECT_EQ(Text(kFirst), L"IDS_HARDWARE_DIAGNOSE_REPAIRING");
  EXPECT_TRUE(IsVisible(L"lytDetectCancel"));
  EXPECT_FALSE(Find(L"optChoose[1]").IsEnabled());
  EXPECT_EQ(ItemSign(2), L"drawable/hardware/Loading/loading_1.png 20");
  EXPECT_EQ(Text(kSecond), Left(2));
  RunFor(kLongMs);
  EXPECT_EQ(Text(kFirst), L"IDS_HARDWARE_DIAGNOSE_REPAIR_SUCCESS");
  EXPECT_EQ(Text(kSecond), kNotFound);
  EXPECT_EQ(Text(kComplete), L"IDS_HARDWARE_DIAGNOSE_OK");
  EXPECT_FALSE(IsVisible(kBack));
  for (const int row : {1, 2, 3}) {
    EXPECT_EQ(Text(L"txtResult[" + std::to_wstring(row) + L"]"),
              L"IDS_HARDWARE_DETECT_ITEM_OPERAT_SUCCESS");
    EXPECT_EQ(ResultColour(row), 0xFF1ECF53);
    EXPECT_FALSE(IsVisible(L"optChoose[" + std::to_wstring(row) + L"]"));
  }
  EXPECT_FALSE(IsVisible(L"txtAbnormalType[1]"));
  window.Click(kComplete);
  EXPECT_EQ(Events(), "") << "the end of a result only is reported";
  EXPECT_THAT(switches, ElementsAre(PAGE_ARCHIEVEMENT));
  EXPECT_EQ(restarts, 0);
}

// The keyboard's second repair fails twice, the graphics card's once.
TEST_F(DetectPageTest, RepairsThatFailAreTriedAgainUntilTheySucceed) {
  std::string machine = kFailing;
  machine.back() = ',';
  StartAndEndOn(machine + R"("repairs": {"CVideoCardDetect::RepairVIDEOCARDProblems": [7, 0],
                "CKeyBoardDetect::RepairHotkeyByReStartSevice": [7, 7, 0]}})");
  window.Click(kComplete);
  RunFor(kLongMs);
  EXPECT_EQ(Text(kFirst), L"IDS_HARDWARE_DIAGNOSE_REPAIR_FAIL");
  EXPECT_EQ(Text(kSecond), Left(2));
  EXPECT_EQ(Text(kBack), L"IDS_HARDWARE_DIAGNOSE_REPAIR_CONTINUE");
  EXPECT_EQ(Text(L"txtResult[1]"), L"IDS_HARDWARE_DETECT_ITEM_OPERAT_FAIL");
  EXPECT_EQ(Text(L"txtAbnormalType[1]"), L"IDS_HARDWARE_DIAGNOSE_BLUETOOTH_DEVICE_REPAIR_FAIL");
  EXPECT_EQ(Text(L"txtAbnormalType[2]"), L"IDS_HARDWARE_DIAGNOSE_ERROR_HOTKEY");
  EXPECT_FALSE(IsVisible(L"optChoose[2]")) << "repaired";
  EXPECT_EQ(RowSign(3), L"drawable/hardware/ic_unusual.png 20");
  EXPECT_TRUE(Find(L"optChoose[3]").IsSelected());

  window.Click(kBack);
  EXPECT_EQ(Text(kFirst), L"IDS_HARDWARE_DIAGNOSE_REPAIRING");
  RunFor(kLongMs);
  EXPECT_EQ(Text(kFirst), L"IDS_HARDWARE_DIAGNOSE_REPAIR_FAIL");
  EXPECT_EQ(Text(kSecond), Left(1));
  EXPECT_EQ(ItemSign(1), L"drawable/hardware/Done/done_20.png 18");
  window.Click(kBack);
  RunFor(kLongMs);
  EXPECT_EQ(Text(kFirst), L"IDS_HARDWARE_DIAGNOSE_REPAIR_SUCCESS");
  EXPECT_EQ(Text(kSecond), kNotFound);
}

TEST_F(DetectPageTest, OnlyWhatIsTickedIsRepairedAndNothingTickedIsSaid) {
  StartAndEndOn(kFailing);
  EXPECT_FALSE(IsVisible(kHint));
  for (const wchar_t* row : {L"optChoose[1]", L"optChoose[2]", L"optChoose[3]"}) window.Click(row);
  window.Click(kComplete);
  EXPECT_TRUE(IsVisible(kHint));
  EXPECT_EQ(Text(kFirst), L"IDS_HARDWARE_DIAGNOSE_RESULT");
  window.Click(L"optChoose[1]");
  EXPECT_FALSE(IsVisible(kHint));
  window.Click(kComplete);
  RunFor(kLongMs);
  EXPECT_EQ(Text(L"txtResult[1]"), L"IDS_HARDWARE_DETECT_ITEM_OPERAT_SUCCESS");
  EXPECT_EQ(Text(L"txtResult[2]"), L"IDS_HARDWARE_DIAGNOSE_FILTER_OPEN");
  EXPECT_EQ(Text(kSecond), Left(1));
}

// Whenever it is pressed, the history shows when the run has stopped, once, or the result where it
// was too late; and the next run is whole.
TEST_F(DetectPageTest, CancelEndsADetectionAtEveryMoment) {
  UseMachine(kFailing);
  for (int before = 0;; before += 20) {
    SCOPED_TRACE(before);
    Start(kThree);
    RunFor(before);
    if (!Find(kCancel).IsUsable()) break;
    Events();
    window.Click(kCancel);
    if (switches.empty()) {
      EXPECT_TRUE(IsVisible(L"txtSysdiagnoseDetectStopping"));
      EXPECT_THROW(window.Click(kCancel), DuiLib::CannotUse);
      RunFor(0);
      EXPECT_TRUE(switches.size() == 1 || List().GetCount() == 3) << "no row is waited for";
    }
    EXPECT_THAT(Events(), StartsWith("620000004"));
    RunFor(kLongMs);
    if (IsVisible(L"lytDetectCancel")) {
      EXPECT_THAT(std::exchange(switches, {}), ElementsAre(PAGE_ARCHIEVEMENT));
      EXPECT_TRUE(Find(kCancel).IsEnabled());
      EXPECT_FALSE(IsVisible(L"txtSysdiagnoseDetectStopping"));
    } else {
      EXPECT_THAT(switches, IsEmpty());
      EXPECT_EQ(List().GetCount(), 3);
    }
    page.StartDetect(kThree);
    RunFor(kLongMs);
    EXPECT_EQ(Text(kSecond), Left(2));
    ASSERT_LT(before, kLongMs);
  }
}

TEST_F(DetectPageTest, CancelWhileTheListScrollsBackEndsAtOnce) {
  UseMachine(kFailing);
  Start(kThree);
  while (Text(kSecond) != Left(2)) RunFor(20);
  window.Click(kCancel);
  EXPECT_THAT(switches, ElementsAre(PAGE_ARCHIEVEMENT));
  RunFor(kLongMs);
  EXPECT_TRUE(IsVisible(L"lytDetectCancel")) << "no result comes behind it";
}

TEST_F(DetectPageTest, ACancelledRunSaysHowMuchWasTested) {
  UseMachine(kFailing);
  Start(kThree);
  while (List().GetCount() < 2) RunFor(20);
  window.Click(kCancel);
  RunFor(kLongMs);
  EXPECT_EQ(Text(kSecond), L"IDS_HARDWARE_DIAGNOSE_TESTED(2,3)");
}

/// Repairs take their time.
class PausingTest : public DetectPageTest {
 protected:
  ~PausingTest() override { RunFor(kLongMs); }

  static constexpr int kFirstPauseMs = 500;

 private:
  SteppedClock steppedClock{1000};
};

TEST_F(PausingTest, CancelEndsARepairAtEveryMoment) {
  UseMachine(kFailing);
  for (int before = 0;; before += 100) {
    SCOPED_TRACE(before);
    StartAndEnd(kThree);
    window.Click(kComplete);
    RunFor(before);
    if (!Find(kCancel).IsUsable()) break;
    Events();
    window.Click(kCancel);
    EXPECT_EQ(Text(L"txtSysdiagnoseDetectStopping"), L"IDS_HARDWARE_DIAGNOSE_REPAIR_STOPPING");
    EXPECT_TRUE(IsVisible(L"txtSysdiagnoseDetectStopping"));
    EXPECT_EQ(Events(), "") << "of a detection only";
    RunFor(kLongMs);
    EXPECT_THAT(std::exchange(switches, {}), ElementsAre(PAGE_ARCHIEVEMENT));
    EXPECT_TRUE(Find(kCancel).IsEnabled());
    // The repair that the cancel found in its pause was not made.
    int made = 0;
    for (const wchar_t* row : {L"txtResult[1]", L"txtResult[2]", L"txtResult[3]"})
      if (Text(row) == L"IDS_HARDWARE_DETECT_ITEM_OPERAT_SUCCESS") ++made;
    EXPECT_EQ(made, before / kFirstPauseMs);
    ASSERT_LT(before, kLongMs);
  }
  EXPECT_EQ(Text(kFirst), L"IDS_HARDWARE_DIAGNOSE_REPAIR_SUCCESS");
}

class RestartTest : public PausingTest {
 protected:
  RestartTest() {
    std::string machine = kFailing;
    machine.back() = ',';
    UseMachine(machine + R"("repairs": {"CVideoCardDetect::RepairVIDEOCARDProblems":
               {"code": 0, "restart": true}, "CKeyBoardDetect::CloseFilterKey": 9}})");
  }

  void StartRepair() {
    StartAndEnd(kThree);
    window.Click(kComplete);
  }
};

TEST_F(RestartTest, IsAskedForBeforeTheEndOfTheRepairs) {
  StartRepair();
  steps.Set({[this](Person& person) {
    EXPECT_EQ(Text(kFirst), L"IDS_HARDWARE_DIAGNOSE_REPAIRING");
    person.Click(L"btnRestart");
  }});
  RunFor(kLongMs);
  EXPECT_EQ(Text(kFirst), L"IDS_HARDWARE_DIAGNOSE_REPAIR_FAIL");
  message::WaitUntilDelivered();
  EXPECT_EQ(restarts, 1);
}

TEST_F(RestartTest, IsAskedForBeforeACancelledRepairEndsToo) {
  StartRepair();
  int asked = 0;
  steps.Set({[&](Person& person) {
    ++asked;
    EXPECT_THAT(switches, IsEmpty());
    person.Click(L"btnCancel");
  }});
  RunFor(kFirstPauseMs);
  EXPECT_EQ(Text(L"txtResult[1]"), L"IDS_HARDWARE_DETECT_ITEM_OPERAT_SUCCESS");
  EXPECT_EQ(Text(L"txtResult[2]"), L"IDS_HARDWARE_DETECT_ITEM_OPERATING");
  window.Click(kCancel);
  RunFor(kLongMs);
  EXPECT_EQ(asked, 1);
  EXPECT_THAT(switches, ElementsAre(PAGE_ARCHIEVEMENT));
  message::WaitUntilDelivered();
  EXPECT_EQ(restarts, 0);
}

TEST_F(RestartTest, ThePageMayGoWhileItIsAskedFor) {
  for (const bool cancels : {false, true}) {
    StartRepair();
    RunFor(kFirstPauseMs);
    if (cancels) window.Click(kCancel);
    steps.Set({[this](Person& person) {
      window.Manager().SetRoot(nullptr);
      person.Click(L"btnCancel");
    }});
    RunFor(kLongMs);
    EXPECT_EQ(page.GetRoot(), nullptr);
    EXPECT_THAT(switches, IsEmpty());
  }
}

TEST_F(RestartTest, MeanwhileTheRowAtWorkIsInSightThoughItsItemIsHigherThanTheList) {
  WriteLayout("detect", std::regex_replace(kPage, std::regex("height='grow'"), "height='100'"));
  StartAndEnd(kThree);
  List().SetScrollPos(0);
  window.Click(kComplete);
  RunFor(2 * kFirstPauseMs);
  EXPECT_EQ(Text(L"txtResult[3]"), L"IDS_HARDWARE_DETECT_ITEM_OPERATING");
  EXPECT_EQ(Find(L"txtTitle[3]").GetParent()->GetPos().bottom,
            window.Position(L"lstSysdiagnoseDetectItems").bottom);
}

TEST_F(DetectPageTest, TheLogsAreOfferedWhenThereAreSomeUntilARepairBegins) {
  StartAndEndOn(kFailing);
  message::WaitUntilDelivered();
  EXPECT_EQ(logRequests, 1);
  AnswerAboutLogs(false);
  EXPECT_EQ(Text(kSecond), Left(2));

  StartAndEnd(kThree);
  AnswerAboutLogs(true);
  EXPECT_EQ(Text(kSecond), Left(2) + kSendLog);
  const auto upload = [this](std::deque<std::function<void(Person&)>> what) {
    steps.Set(std::move(what));
    window.Manager().SendNotify(Find(kSecond), DuiLib::kNotifyLink);
  };
  upload({[](Person& person) { person.Press(DuiLib::Key::kEscape); }});
  EXPECT_EQ(Text(kSecond), Left(2) + L"{a}IDS_HARDWARE_DIAGNOSE_RESULT_CANCEL_UPLOAD{/a}");
  upload({[](Person& person) { person.Find(L"btnUpload").SetEnabled(true); },
          [](Person& person) { person.Click(L"btnUpload"); }});
  EXPECT_EQ(Text(kSecond), Left(2) + L"IDS_HARDWARE_DIAGNOSE_RESULT_UPLOAD_LOG");
  AnswerAboutLogs(true);
  EXPECT_EQ(Text(kSecond), Left(2) + L"IDS_HARDWARE_DIAGNOSE_RESULT_UPLOAD_LOG");

  StartAndEnd(kThree);
  window.Click(kComplete);
  AnswerAboutLogs(true);
  RunFor(kLongMs);
  EXPECT_EQ(Text(kSecond), kNotFound);
  EXPECT_EQ(logRequests, 3) << "repairs do not ask";

  StartAndEnd(kThree);
  AnswerAboutLogs(true);
  upload({[this](Person& person) {
    page.StartDetect({Category::Display});
    person.Press(DuiLib::Key::kEscape);
  }});
  EXPECT_EQ(Text(kSecond), L"") << "another run is shown";
  RunFor(kLongMs);
  EXPECT_EQ(Text(kSecond), kNotFound);
}

TEST_F(DetectPageTest, AFaultOfALibraryEndsTheRunAsACancelDoes) {
  StartAndEndOn(R"({"tests": {"CVideoCardDetect::CheckDevice": {"throws": "fault"}}})");
  EXPECT_THAT(switches, ElementsAre(PAGE_ARCHIEVEMENT));
  EXPECT_EQ(Text(kFirst), L"IDS_HARDWARE_DIAGNOSE_DOING");
  StartAndEndOn(kFailing);
  EXPECT_EQ(Text(kSecond), Left(2));
}

TEST_F(DetectPageTest, ARunBegunWhileOneGoesOnShowsItsOwnItemsOnly) {
  UseMachine(kFailing);
  Start(kThree);
  RunFor(20);
  page.StartDetect({Category::Keyboard});
  EXPECT_EQ(List().GetCount(), 0);
  RunFor(kLongMs);
  EXPECT_EQ(List().GetCount(), 1);
  EXPECT_EQ(Text(kSecond), Left(1));
  EXPECT_THAT(switches, IsEmpty());
  EXPECT_EQ(Events(), "620000026") << "the first one has stopped";
}

TEST_F(DetectPageTest, TheTabMayGoOrBeMountedAnewWhileARowWaits) {
  Start(kThree);
  RunFor(20);
  window.Manager().SetRoot(nullptr);
  concurrency::wait_until_idle();
  Start(kThree);
  RunFor(20);
  StartAndEnd(kThree);
  EXPECT_EQ(List().GetCount(), 3);
  AnswerAboutLogs(true);
  EXPECT_EQ(Text(kSecond), kNotFound + std::wstring(kSendLog));
}

TEST_F(DetectPageTest, AClickOnTheSignOfAnItemThatUnfoldsOpensItAndTheRunGoesOn) {
  Start(kThree);
  RunFor(20);
  window.Click(L"btnFolder");
  EXPECT_EQ(Height(L"lytHardware"), 64 + 64);
  window.Click(L"btnFolder");
  RunFor(kLongMs);
  EXPECT_EQ(Height(L"lytHardware[0]"), 64 + 17);
  EXPECT_EQ(Text(kFirst), L"IDS_HARDWARE_DIAGNOSE_RESULT");
}

TEST_F(DetectPageTest, WhatLayoutsLackHoldsNothingUp) {
  RemoveLayout("detect_detail");
  StartAndEndOn(kFailing);
  EXPECT_EQ(Text(kSecond), Left(2));
  EXPECT_EQ(Text(kComplete), L"IDS_HARDWARE_DIAGNOSE_OK") << "nothing can be ticked";
  RemoveLayout("detect_item");
  StartAndEnd(kThree);
  EXPECT_EQ(Text(kSecond), Left(2));
  WriteLayout("detect", "<Container><Label name='txtSysdiagnoseDetectSecondTitle'/></Container>");
  StartAndEnd(kThree);
  EXPECT_EQ(Text(kSecond), Left(2));
}

TEST_F(DetectPageTest, TheRowAtWorkIsInSightAndTheFirstAbnormalItemIsAtTheTopAtTheEnd) {
  UseMachine(R"({"tests": {"CVideoCardDetect::CheckDevice": 5, "CKeyBoardDetect::DetetctHotKey": 2},
                 "repairs": {"CKeyBoardDetect::RepairHotkeyByReStartSevice": 3}})");
  const std::vector<Category> categories{
      Category::Memory,      Category::GraphicsCard, Category::Battery, Category::Audio,
      Category::NetworkCard, Category::Disk,         Category::Keyboard};
  Start(categories);
  int scrolling = 0;
  for (int time = 0; Text(kFirst) == L"IDS_HARDWARE_DIAGNOSE_DOING"; time += 20) {
    ASSERT_LT(time, 2 * kLongMs);
    RunFor(20);
    if (Text(kSecond) == Left(2)) ++scrolling;
  }
  EXPECT_LE(scrolling, 50) << "a second";
  const DuiLib::Rect list = window.Position(L"lstSysdiagnoseDetectItems");
  EXPECT_EQ(window.Position(L"lytHardware[1]").top, list.top);

  List().SetScrollPos(0);
  window.Click(L"optChoose[9]");  // the graphics card's
  window.Click(kComplete);
  concurrency::wait_until_quiet();
  DuiLib::UIMainQueue::RunPending();
  RunFor(400);
  EXPECT_EQ(Text(kFirst), L"IDS_HARDWARE_DIAGNOSE_REPAIR_FAIL");
  const DuiLib::Rect faulty = window.Position(L"lytHardware[6]");
  EXPECT_EQ(faulty.bottom, list.bottom) << "the last item";
}

}  // namespace
}  // namespace orv::sysdiagnose
