#include "common/file.h"
#include "common/path_text.h"
#include "common/protocol/log_item.h"
#include "platform/duilib/painter/painter.h"
#include "tests/res/good_geometry.h"
#include "tests/support/history_row.h"
#include "tests/ui/modal_steps.h"
#include "tests/ui/ui_pages_test.h"

namespace orv::sysdiagnose {
namespace {

namespace fs = std::filesystem;
using DuiLib::Person;

constexpr const wchar_t* kScanTitle = L"txtSysdiagnoseScanFirstTitle";
constexpr const wchar_t* kDetectTitle = L"txtSysdiagnosedDetectFirstTitle";
constexpr const wchar_t* kSummary = L"txtSysdiagnoseDetectSecondTitle";
constexpr const wchar_t* kComplete = L"btnSysdiagnoseDetectComplete";

struct Setting {
  std::string machine;
  std::string language;
};

void PrintTo(const Setting& setting, std::ostream* out) {
  *out << setting.machine << ", " << setting.language;
}

std::string MachineText(const std::string& name) {
  constexpr std::size_t kMost = std::size_t{1} << 20;
  return common::ReadFile(common::TextPath(MACHINE_FILES + name + ".json"), kMost);
}

/// The installed layouts, with texts as large as they are painted, looked at all the time.
class RealPagesTest : public UiPagesTest, public testing::WithParamInterface<Setting> {
 protected:
  RealPagesTest() : UiPagesTest(MachineText(GetParam().machine)) {
    os::SetConfigurationRoot(APP_DIR);
    DuiLib::UICulture::GetInstance()->SetLanguage(GetParam().language, APP_DIR "/res");
    window.Manager().SetSkinFolder(APP_DIR "/res");
    window.Manager().LoadTheme(L"layout\\theme.xml");
    companion.RegisterMessageCallbackAll(
        [this](const tagIPC_MESSAGE_ITEM& item) { Answer(item.messageId); });
  }
  ~RealPagesTest() override {
    window.Manager().SetRoot(nullptr);
    concurrency::wait_until_idle();
    message::WaitUntilDelivered();
  }

  void Mount(DuiLib::Painter& painter) {
    window.Manager().SetTextMeasure(&painter.Measure());
    host.CreatePage(&window.Manager(), &pump);
    window.Open(host.GetRoot());
    host.InitPage();
    host.SwitchPage(PAGE_ARCHIEVEMENT);
  }

  /// A look every tenth of a second until the title shows; one at each end.
  void LookUntil(const wchar_t* title, const wchar_t* id) {
    constexpr int kPause = 100;
    constexpr int kLongest = 100'000;
    const std::wstring text = DuiLib::UICulture::GetInstance()->GetString(id);
    for (int time = 0; !HasFailure(); time += kPause) {
      Look();
      if (window.Text(title) == text) return;
      ASSERT_LT(time, kLongest);
      RunFor(kPause);
    }
  }
  void LookAfter(int milliseconds) {
    RunFor(milliseconds);
    Look();
  }
  void Look() { ExpectGoodGeometry(window.Manager()); }

  static void StoreRuns(int count) {
    for (int day = 0; day < count; ++day) {
      DataManager::Row row = HistoryRow(day * 86'400);
      row[14] = "1970.01." + std::to_string(10 + day);
      DataManager::Instance().Put(kHistoryTable, row);
    }
  }

  ModalSteps steps;
  PageIndex host;

 private:
  // There are logs, and these.
  void Answer(std::uint32_t request) {
    protocol::CIPCDataIO body;
    if (request == protocol::kLogsAvailableRequest)
      body.WriteByte(1);
    else if (request == protocol::kLogListRequest)
      protocol::WriteVersioned(body, std::vector<protocol::SYSTEM_DETECT_LOG_ITEM>{
                                         {4, "/logs/application-log.txt"},
                                         {1, "/logs/" + std::string(200, 'x') + ".log"}});
    else
      return;
    tagIPC_MESSAGE_ITEM item;
    item.target = protocol::kPluginModule;
    item.messageId = request == protocol::kLogsAvailableRequest ? protocol::kLogsAvailableAnswer
                                                                : protocol::kLogListAnswer;
    item.dataLength = body.Position();
    item.data = body.Data();
    companion.PostIPCMessage(item);
  }

  CIPCMessageClient companion{protocol::kCompanionModule, false};
};

TEST_P(RealPagesTest, NothingOverlapsSticksOutOrIsCutWithoutAnEllipsis) {
  DuiLib::Painter* const painter = DuiLib::Painter::Load();
  ASSERT_NE(painter, nullptr);
  Mount(*painter);
  LookAfter(500);

  window.Click(L"btnSysdiagnoseScan");
  LookUntil(kScanTitle, L"IDS_HARDWARE_DIAGNOSE_ALL");
  window.Click(L"btnFolder[1]");
  window.Click(L"optChoose[1]");
  Look();
  window.Click(L"optChoose[1]");

  window.Click(L"btnSysdiagnoseDetect");
  RunFor(500);
  LookUntil(kDetectTitle, L"IDS_HARDWARE_DIAGNOSE_RESULT");
  message::WaitUntilDelivered();
  LookAfter(0);
  const auto lookAt = [](Person&) {
    ExpectGoodGeometry(DuiLib::HeadlessDesktop::Instance().GetModals().back()->GetManager());
  };
  steps.Set({lookAt, [](Person&) { message::WaitUntilDelivered(); }, lookAt,
             [](Person& person) { person.Click(L"btnCancel"); }});
  window.Link(kSummary);
  Look();

  steps.Set({lookAt, [](Person& person) { person.Click(L"btnCancel"); }});
  window.Click(kComplete);
  for (int time = 0; time < 3000; time += 100) LookAfter(100);

  StoreRuns(14);
  host.SwitchPage(PAGE_ARCHIEVEMENT);
  LookAfter(600);
}

INSTANTIATE_TEST_SUITE_P(Machines, RealPagesTest,
                         testing::Values(Setting{"healthy", "en-US"}, Setting{"healthy", "zh-CN"},
                                         Setting{"failing", "en-US"}, Setting{"failing", "zh-CN"},
                                         Setting{"odd", "en-US"}, Setting{"odd", "zh-CN"}),
                         [](const auto& setting) {
                           std::string name = setting.param.machine + setting.param.language;
                           std::erase(name, '-');
                           return name;
                         });

}  // namespace
}  // namespace orv::sysdiagnose
