#include "sysdiagnose/plugin/frame/normal_object.h"
#include "sysdiagnose/plugin/plugin_sysdiagnose.h"
#include "tests/ui/ui_pages_test.h"

namespace orv::sysdiagnose {
namespace {

using DuiLib::CControlUI;
using DuiLib::CTabLayoutUI;
using testing::ElementsAre;

/// Notes which of its operations was called.
class NotingPage final : public SysdiagnosePage {
 public:
  NotingPage() : SysdiagnosePage(L"Noting", L"layout\\sysdiagnose_noting.xml") {}
  std::vector<std::string> notes;

 private:
  void OnClick(DuiLib::TNotifyUI&) override { notes.emplace_back("click"); }
  void OnTimer(DuiLib::TNotifyUI&) override { notes.emplace_back("timer"); }
  void OnTabSelectIn(DuiLib::TNotifyUI&) override { notes.emplace_back("tabselectin"); }
  void OnSelectChanged(DuiLib::TNotifyUI&) override { notes.emplace_back("selectchanged"); }
  void OnLink(DuiLib::TNotifyUI&) override { notes.emplace_back("link"); }
  void OnGone() override { notes.emplace_back("gone"); }
};

class PageHostTest : public UiPagesTest {
 protected:
  void Mount() {
    host.CreatePage(&window.Manager(), &pump);
    ASSERT_NE(host.GetRoot(), nullptr);
    window.Open(host.GetRoot());
    host.InitPage();
  }

  CTabLayoutUI& Tabs() { return Get<CTabLayoutUI>(L"tblSysdiagnoseContent"); }
  void Enter(CControlUI& tab) { window.Manager().SendNotify(tab, DuiLib::kNotifyTabSelectIn); }

  PageIndex host;
};

TEST_F(PageHostTest, ANotificationOfAPagesTreeReachesThePagesOperation) {
  WriteLayout("noting",
              "<Container name='page'><Button name='button' width='50' height='20'/></Container>");
  NotingPage page;
  page.CreatePage(&window.Manager(), &pump);
  window.Open(page.GetRoot());
  for (const wchar_t* type : {L"click", L"timer", L"tabselectin", L"selectchanged", L"link",
                              L"itemactivate", L"windowinit"})
    window.Manager().SendNotify(Get(L"button"), type);
  EXPECT_THAT(std::exchange(page.notes, {}),
              ElementsAre("click", "timer", "tabselectin", "selectchanged", "link"));

  page.CreatePage(&window.Manager(), &pump);
  EXPECT_THAT(std::exchange(page.notes, {}), ElementsAre("gone"));
  window.Open(page.GetRoot());
  EXPECT_THAT(page.notes, testing::IsEmpty()) << "the tree before it concerns nobody";
  window.Click(L"button");
  window.Manager().SetRoot(nullptr);
  EXPECT_THAT(page.notes, ElementsAre("click", "gone"));
  EXPECT_EQ(page.GetRoot(), nullptr);
}

TEST_F(PageHostTest, TheContentPagesAreMountedInOrderAndTheHistoryShowsFirst) {
  Mount();
  ASSERT_EQ(Tabs().GetCount(), 3);
  EXPECT_EQ(Tabs().GetItemAt(PAGE_ARCHIEVEMENT)->GetVirtualWnd(), L"SysdiagnosePageArchievement");
  EXPECT_EQ(Tabs().GetItemAt(PAGE_SCAN)->GetVirtualWnd(), L"SysdiagnosePageScan");
  EXPECT_EQ(Tabs().GetItemAt(PAGE_DETECT)->GetVirtualWnd(), L"SysdiagnosePageDetect");
  EXPECT_EQ(Tabs().GetCurSel(), PAGE_ARCHIEVEMENT);

  host.SwitchPage(PAGE_SCAN);
  EXPECT_EQ(Tabs().GetCurSel(), PAGE_SCAN);
  host.SwitchPage(static_cast<enumPageType>(3));
  EXPECT_EQ(Tabs().GetCurSel(), PAGE_SCAN);

  Mount();
  EXPECT_EQ(Tabs().GetCurSel(), PAGE_ARCHIEVEMENT) << "mounted anew";
}

TEST_F(PageHostTest, EachEntryOfItsOwnTabIsReported) {
  Mount();
  Enter(*host.GetRoot());
  Enter(*host.GetRoot());
  EXPECT_EQ(Events(), "620000000 620000000");
  host.SwitchPage(PAGE_SCAN);
  Enter(*Tabs().GetItemAt(PAGE_SCAN));
  RunFor(0);
  EXPECT_EQ(Events(), "620000010") << "the scan's; another tab has none";
  Enter(*host.GetRoot());
  EXPECT_EQ(Tabs().GetCurSel(), PAGE_SCAN) << "the page that shows stays";
}

TEST_F(PageHostTest, WhatLayoutsLackIsLeftOut) {
  RemoveLayout("scan");
  Mount();
  EXPECT_EQ(Tabs().GetCount(), 2);

  WriteLayout("index", "<Container name='SysdiagnoseUIMain'/>");
  Mount();
  host.SwitchPage(PAGE_DETECT);  // there is no tab to show it in
  EXPECT_EQ(window.Manager().FindControl(L"detect"), nullptr);
}

TEST_F(PageHostTest, TheHostsRequestsRunQuietlyUntilThePageGoes) {
  inForce.WriteConfig("SysdiagnoseList.xml",
                      "<sysdiagnose><DetectItem id='10' name='' description=''/></sysdiagnose>");
  CIPCMessageClient mainPage(0x200001, false);
  mainPage.SubscribeIPCMessage(protocol::kHostGroup, 0);
  std::atomic<int> summaries = 0;
  mainPage.RegisterMessageCallback(protocol::kQuietSummary,
                                   [&](const tagIPC_MESSAGE_ITEM&) { ++summaries; });
  const auto ask = [&](bool start) {
    const std::uint8_t body = start ? 0 : 1;
    tagIPC_MESSAGE_ITEM request;
    request.target = protocol::kPluginModule;
    request.messageId = protocol::kDetectRequest;
    request.dataLength = sizeof(body);
    request.data = &body;
    mainPage.PostIPCMessage(request);
    message::WaitUntilDelivered();
    window.Tick(std::chrono::milliseconds(0));
    concurrency::wait_until_quiet();
    message::WaitUntilDelivered();
  };
  Mount();
  ask(true);
  EXPECT_EQ(summaries.exchange(0), 2) << "one category, and the last";
  window.Manager().SetRoot(nullptr);
  ask(true);
  EXPECT_EQ(summaries, 0);
}

class MountPageTest : public UiPagesTest {
 protected:
  MountPageTest() {
    context.paintManager = &window.Manager();
    context.notifyPump = &pump;
    context.AddPageCallback = [this](int kind, const std::wstring& title, CControlUI* root) {
      EXPECT_EQ(kind, 1);
      EXPECT_EQ(title, L"IDS_HARDWARE_DETECT");
      EXPECT_EQ(window.Manager().FindControl(root, L"archievement"), nullptr)
          << "pages come when the host has placed the tab";
      window.Open(root);
      ++pages;
    };
  }

  ~MountPageTest() override { plugin->Release(); }

  PageCreationContext context;
  IQVXUIPlugin* const plugin = static_cast<IQVXUIPlugin*>(
      x3::NormalObject<CPluginSysdiagnose>::Create(x3::IdOf<IQVXUIPlugin>()));
  int pages = 0;
};

TEST_F(MountPageTest, HandsTheTabToTheHostAndThenFillsIt) {
  EXPECT_TRUE(plugin->CreateUI(&context));
  EXPECT_EQ(pages, 1);
  EXPECT_EQ(Get<CTabLayoutUI>(L"tblSysdiagnoseContent").GetCount(), 3);
  EXPECT_TRUE(plugin->CreateUI(&context));
  EXPECT_EQ(pages, 2);
  EXPECT_EQ(Get<CTabLayoutUI>(L"tblSysdiagnoseContent").GetCount(), 3);
}

TEST_F(MountPageTest, WithoutALayoutThereIsNoPageAndWithoutACallbackTheCallFails) {
  context.AddPageCallback = nullptr;
  EXPECT_THROW(plugin->CreateUI(&context), std::bad_function_call);
  RemoveLayout("index");
  EXPECT_TRUE(plugin->CreateUI(&context));
}

}  // namespace
}  // namespace orv::sysdiagnose
