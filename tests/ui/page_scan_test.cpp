#include "tests/ui/ui_pages_test.h"

namespace orv::sysdiagnose {
namespace {

using DuiLib::CListUI;
using DuiLib::COptionUI;
using DuiLib::Person;
using testing::ElementsAre;

constexpr const char* kMachine = R"({"info": {
  "CCpu": {"GetCpuName": "Sample CPU", "GetCpuManufacturer": "Maker"},
  "CDisk": {"GetCaption": ["Disk A", "Disk B"]},
  "CKeyBoard": {"GetKeyBoardName": "Keys"}}})";

constexpr const char* kPage =
    "<VerticalLayout><Label name='txtSysdiagnoseScanFirstTitle' height='20'/>"
    "<Label name='txtSysdiagnoseScanSecondTitle' height='20'/>"
    "<HorizontalLayout name='lytScanExecute'>"
    "<Button name='btnSysdiagnoseScanBack' width='80' height='40'/>"
    "<Button name='btnSysdiagnoseDetect' width='80' height='40'/></HorizontalLayout>"
    "<HorizontalLayout name='lytScanCancel'>"
    "<Button name='btnSysdiagnoseScanCancel' width='80' height='40'/></HorizontalLayout>"
    "<List name='lstSysdiagnoseScanItems' height='grow'/></VerticalLayout>";
constexpr const char* kItem =
    "<ListContainerElement name='lytHardware'><HorizontalLayout name='lytTitle' height='64'>"
    "<Control name='ctlSmallIcon'/><Label name='txtName'/><Label name='txtDescription'/>"
    "<Option name='optChoose' width='20' height='20'/><Control name='ctlFolder'/>"
    "<Button name='btnFolder' width='20' height='20'/></HorizontalLayout>"
    "<HorizontalLayout name='lytContent' height='shrink'><Control name='ctlBigIcon'/>"
    "<VerticalLayout name='lytItems'/></HorizontalLayout>"
    "<Control name='lytLine' height='1'/></ListContainerElement>";
constexpr const char* kDetail =
    "<HorizontalLayout height='32'><Label name='txtTitle'/><Label name='txtContent'/>"
    "</HorizontalLayout>";

class ScanPageTest : public UiPagesTest {
 protected:
  ScanPageTest() : UiPagesTest(kMachine) {
    WriteLayout("scan", kPage);
    WriteLayout("scan_item", kItem);
    WriteLayout("scan_detail", kDetail);
    inForce.WriteConfig("SysdiagnoseList.xml",
                        "<sysdiagnose><DetectItem id='4' name='' description=''/>"
                        "<DetectItem id='6' name='' description=''/>"
                        "<DetectItem id='10' name='' description=''/></sysdiagnose>");
    page.SetSwitchPage([this](enumPageType type) { switches.push_back(type); });
    page.SetSelectHardware([this](std::vector<enmHardwareID>& ids) { selected = ids; });
  }
  ~ScanPageTest() override { window.Manager().SetRoot(nullptr); }

  void Enter() {
    page.CreatePage(&window.Manager(), &pump);
    window.Open(page.GetRoot());
    page.InitPage();
    page.EnterScan();
  }
  void EnterAndEnd() {
    Enter();
    RunFor(kLongMs);
  }

  CListUI& List() { return Get<CListUI>(L"lstSysdiagnoseScanItems"); }
  std::wstring Text(const wchar_t* name) { return window.Text(name); }
  int Height(const std::wstring& name) { return window.Position(name).Height(); }

  static constexpr int kLongMs = 5000;
  PageScan page;
  std::vector<enumPageType> switches;
  std::vector<enmHardwareID> selected;
};

TEST_F(ScanPageTest, CategoriesUnfoldOneByOneAndThenAreOfferedTicked) {
  Enter();
  EXPECT_EQ(Text(L"txtSysdiagnoseScanFirstTitle"), L"IDS_HARDWARE_DETECT_HARDWARE_SCANNING");
  EXPECT_EQ(Height(L"lytScanCancel"), 140);
  EXPECT_FALSE(Get(L"lytScanExecute").IsVisible());
  RunFor(20);
  EXPECT_EQ(List().GetCount(), 1) << "the second waits until the first has unfolded";
  EXPECT_EQ(Text(L"txtSysdiagnoseScanSecondTitle"), L"IDS_HARDWARE_DETECT_DO_SCANNINGSample CPU");
  EXPECT_EQ(Height(L"lytHardware"), 64 + 17 + 20);

  RunFor(kLongMs);
  EXPECT_EQ(Text(L"txtSysdiagnoseScanFirstTitle"), L"IDS_HARDWARE_DIAGNOSE_ALL");
  EXPECT_EQ(Text(L"txtSysdiagnoseScanSecondTitle"), L"IDS_HARDWARE_DETECT_SELECTED(3)");
  EXPECT_EQ(Height(L"lytScanExecute"), 140);
  EXPECT_FALSE(Get(L"lytScanCancel").IsVisible());
  EXPECT_EQ(List().GetScrollPos(), 0);
  EXPECT_EQ(Text(L"txtName[1]"), L"IDS_HARDWARE_DETECT_DISK");
  EXPECT_FALSE(Person(window.Manager()).Find(L"lytLine[2]").IsVisible());
  EXPECT_TRUE(Person(window.Manager()).Find(L"lytLine[1]").IsVisible());
  EXPECT_EQ(Events(), "620000010");
}

TEST_F(ScanPageTest, AnItemIsAsTallAsItsRowsAndNeverLessThanItsIcon) {
  EnterAndEnd();
  EXPECT_EQ(Height(L"lytItems[0]"), 64);
  EXPECT_EQ(Height(L"lytItems[1]"), 3 * 32) << "two disks, and a line between them";
  EXPECT_EQ(Height(L"lytHardware[1]"), 64 + 3 * 32);
  EXPECT_EQ(Height(L"lytItems[2]"), 64);
  EXPECT_EQ(Get(L"ctlFolder").GetLook().image->file, L"drawable/hardware/ic_collapse_light.png");

  window.Click(L"btnFolder");
  EXPECT_EQ(Height(L"lytHardware[0]"), 64 + 17);
  EXPECT_EQ(Get(L"ctlFolder").GetLook().image->file, L"drawable/hardware/ic_expansion_light.png");
  window.Click(L"btnFolder");
  EXPECT_EQ(Height(L"lytHardware[0]"), 64 + 64);
}

TEST_F(ScanPageTest, WhatIsTickedIsHandedOverInAscendingOrder) {
  EnterAndEnd();
  for (int i = 0; i < 3; ++i) window.Click(L"optChoose[" + std::to_wstring(i) + L"]");
  EXPECT_EQ(Text(L"txtSysdiagnoseScanSecondTitle"), L"IDS_HARDWARE_DETECT_SELECTED(0)");
  EXPECT_THROW(window.Click(L"btnSysdiagnoseDetect"), DuiLib::CannotUse);
  window.Click(L"optChoose[2]");
  window.Click(L"optChoose[0]");
  Events();
  window.Click(L"btnSysdiagnoseDetect");
  EXPECT_THAT(selected, ElementsAre(enmHardwareID::Processor, enmHardwareID::Keyboard));
  EXPECT_THAT(switches, ElementsAre(PAGE_DETECT));
  EXPECT_EQ(Events(), "620000003");
  window.Click(L"btnSysdiagnoseScanBack");
  EXPECT_THAT(switches, ElementsAre(PAGE_DETECT, PAGE_ARCHIEVEMENT));
  EXPECT_EQ(Events(), "620000002");
}

// Whenever it is pressed, the history shows when the scanner has stopped, once, and the next scan
// is whole.
TEST_F(ScanPageTest, CancelEndsItAtEveryMoment) {
  for (int before = 0; before < 1200; before += 60) {
    SCOPED_TRACE(before);
    Enter();
    RunFor(before);
    if (!Get(L"btnSysdiagnoseScanCancel").IsUsable()) break;
    window.Click(L"btnSysdiagnoseScanCancel");
    RunFor(kLongMs);
    if (Get(L"lytScanCancel").IsVisible()) {
      EXPECT_THAT(std::exchange(switches, {}), ElementsAre(PAGE_ARCHIEVEMENT));
      EXPECT_TRUE(Get(L"btnSysdiagnoseScanCancel").IsEnabled());
    } else {
      EXPECT_EQ(List().GetCount(), 3);
      EXPECT_TRUE(switches.empty());
    }
    page.EnterScan();
    RunFor(kLongMs);
    EXPECT_EQ(List().GetCount(), 3);
    EXPECT_EQ(Text(L"txtSysdiagnoseScanFirstTitle"), L"IDS_HARDWARE_DIAGNOSE_ALL");
  }
}

TEST_F(ScanPageTest, ASecondPressOfCancelIsNotDelivered) {
  Enter();
  RunFor(20);
  window.Click(L"btnSysdiagnoseScanCancel");
  EXPECT_THROW(window.Click(L"btnSysdiagnoseScanCancel"), DuiLib::CannotUse);
  RunFor(kLongMs);
  EXPECT_EQ(Events(), "620000006");
}

TEST_F(ScanPageTest, AScanBegunWhileOneGoesOnShowsItsOwnItemsOnly) {
  Enter();
  RunFor(100);
  page.EnterScan();
  RunFor(kLongMs);
  EXPECT_EQ(List().GetCount(), 3);
  EXPECT_EQ(Height(L"lytItems[1]"), 3 * 32);
  EXPECT_TRUE(switches.empty()) << "the first one's end is nobody's business";
}

TEST_F(ScanPageTest, AClickOnTheSignOfAnItemThatUnfoldsOpensItAndTheScanGoesOn) {
  Enter();
  RunFor(20);
  window.Click(L"btnFolder");
  EXPECT_EQ(Height(L"lytHardware"), 64 + 64);
  window.Click(L"btnFolder");
  RunFor(kLongMs);
  EXPECT_EQ(Height(L"lytHardware[0]"), 64 + 17) << "stays as the person left it";
  EXPECT_EQ(List().GetCount(), 3);
  EXPECT_EQ(Text(L"txtSysdiagnoseScanFirstTitle"), L"IDS_HARDWARE_DIAGNOSE_ALL");
}

TEST_F(ScanPageTest, WithoutAnItemLayoutTheScanIsNotHeldUp) {
  RemoveLayout("scan_item");
  EnterAndEnd();
  EXPECT_EQ(Text(L"txtSysdiagnoseScanSecondTitle"), L"IDS_HARDWARE_DETECT_SELECTED(0)");
  EXPECT_FALSE(Get(L"btnSysdiagnoseDetect").IsEnabled());
}

TEST_F(ScanPageTest, TheTabMayGoOrBeMountedAnewWhileARowWaits) {
  Enter();
  RunFor(20);
  window.Manager().SetRoot(nullptr);
  concurrency::wait_until_idle();
  EnterAndEnd();
  Enter();
  RunFor(20);
  EnterAndEnd();
  EXPECT_EQ(List().GetCount(), 3);
}

}  // namespace
}  // namespace orv::sysdiagnose
