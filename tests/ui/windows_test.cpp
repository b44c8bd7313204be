#include "platform/duilib/controls/list.h"
#include "sysdiagnose/records/ipc_helper.h"
#include "sysdiagnose/ui/windows/restart_wnd.h"
#include "sysdiagnose/ui/windows/upload_wnd.h"
#include "tests/ui/modal_steps.h"
#include "tests/ui/ui_pages_test.h"

namespace orv::sysdiagnose {
namespace {

using DuiLib::CControlUI;
using DuiLib::CListUI;
using DuiLib::Key;
using DuiLib::Person;
using protocol::SYSTEM_DETECT_LOG_ITEM;
using testing::ElementsAre;
using testing::IsEmpty;

using Logs = std::vector<SYSTEM_DETECT_LOG_ITEM>;
using Names = std::vector<std::wstring>;

constexpr std::chrono::milliseconds kLimit{10000};

/// A window whose layouts lie where the test put them.
template <typename Window>
class InFolder : public Window {
 public:
  explicit InFolder(std::filesystem::path folder) : skinFolder(std::move(folder)) {}

 protected:
  DuiLib::CDuiString GetSkinFolder() const override { return skinFolder.wstring(); }

 private:
  std::filesystem::path skinFolder;
};

/// Notes what it is to reveal.
class NotingUploadWnd final : public InFolder<UploadWnd> {
 public:
  using InFolder::InFolder;
  std::vector<std::filesystem::path> revealed;

 protected:
  void Reveal(const std::filesystem::path& file) override { revealed.push_back(file); }
};

class WindowsTest : public UiPagesTest {
 protected:
  explicit WindowsTest(const std::string& machine = "{}") : UiPagesTest(machine) {
    for (CIPCMessageClient* const receiver : {&companion, &manager})
      receiver->RegisterMessageCallbackAll([this](const tagIPC_MESSAGE_ITEM& item) {
        std::ostringstream text;
        text << std::hex << item.target << ' ' << item.messageId << ' ' << item.replyId << " [";
        for (std::uint32_t i = 0; i < item.dataLength; ++i) text << int{item.data[i]};
        const std::lock_guard lock(mutex);
        heard.push_back(text.str() + "]");
      });
  }

  std::vector<std::string> Heard() {
    message::WaitUntilDelivered();
    const std::lock_guard lock(mutex);
    return std::exchange(heard, {});
  }

  std::filesystem::path SkinFolder() const { return inForce.folder.path / "res"; }

  ModalSteps steps;

 private:
  std::mutex mutex;
  std::vector<std::string> heard;

 protected:  // what they are told is noted above
  CIPCMessageClient companion{protocol::kCompanionModule, false};
  CIPCMessageClient manager{protocol::kManagerModule, false};
};

TEST_F(WindowsTest, TheComputerIsRestartedOnConsentAlone) {
  WriteLayout("restart",
              "<VerticalLayout width='300' height='100'>"
              "<Button name='btnRestart' width='50' height='20'/>"
              "<Button name='btnCancel' width='50' height='20'/></VerticalLayout>");
  const std::pair<std::function<void(Person&)>, std::vector<std::string>> cases[] = {
      {[](Person& person) { person.Click(L"btnRestart"); }, {"30000 f0006 0 []"}},
      {[](Person& person) { person.Click(L"btnCancel"); }, {}},
      {[](Person& person) { person.Press(Key::kEscape); }, {}}};
  for (const auto& [step, messages] : cases) {
    InFolder<RestartWnd> question(SkinFolder());
    ASSERT_TRUE(question.Create(&window.Manager(), L"", 0, 0x100));
    steps.Set({step});
    EXPECT_EQ(question.ShowModal(), 1);
    EXPECT_EQ(Heard(), messages);
  }
}

class UploadTest : public WindowsTest {
 protected:
  explicit UploadTest(const std::string& machine = R"({"shelf":[]})") : WindowsTest(machine) {
    WriteLayout("upload",
                "<VerticalLayout width='300' height='400'>"
                "<Control name='bar' width='grow' height='30' drag-handle='true'/>"
                "<Button name='btnClose' width='50' height='20'/>"
                "<List name='lstUploadItems' height='200'/>"
                "<HorizontalLayout name='lytUploadNotice' height='20'>"
                "<Label name='txtUploadNotice'/>"
                "<Button name='btnUploadRetry' width='50' height='20'/></HorizontalLayout>"
                "<Button name='btnUpload' width='50' height='20'/>"
                "<Button name='btnCancel' width='50' height='20'/></VerticalLayout>");
    WriteLayout("upload_item",
                "<ListContainerElement height='40'>"
                "<HorizontalLayout name='lytLoadding'><Button name='btnLoadding'/>"
                "<Label name='lblLoadding'/></HorizontalLayout>"
                "<HorizontalLayout name='lytContent' visible='false'><Control name='ctlContent'/>"
                "<Label name='lblContent'/></HorizontalLayout></ListContainerElement>");
  }

  NotingUploadWnd& Open() {
    opened.emplace(SkinFolder());
    EXPECT_TRUE(opened->Create(&window.Manager(), L"", 0, 0x100));
    return *opened;
  }

  /// The companion service's answer, as it comes: on the delivery thread.
  void Answer(const Logs& logs) {
    protocol::CIPCDataIO body;
    protocol::WriteVersioned(body, logs);
    tagIPC_MESSAGE_ITEM item;
    item.target = protocol::kPluginModule;
    item.messageId = protocol::kLogListAnswer;
    item.dataLength = body.Position();
    item.data = body.Data();
    companion.PostIPCMessage(item);
    message::WaitUntilDelivered();
  }
  void AnswerAndShow(const Logs& logs) {
    Answer(logs);
    window.Tick(std::chrono::milliseconds(0));
  }

  CControlUI& Control(const wchar_t* name) {
    CControlUI* const control = opened->GetManager().FindControl(name);
    if (control == nullptr) throw std::runtime_error("no such control");
    return *control;
  }
  bool CanUpload() { return Control(L"btnUpload").IsEnabled(); }
  /// What the notice says; empty while there is none.
  std::wstring Notice() {
    return Control(L"lytUploadNotice").IsVisible() ? Control(L"txtUploadNotice").GetText() : L"";
  }

  /// The rows that show: the label of a log that is being produced, the name of a file.
  Names Rows() {
    Names rows;
    auto& list = dynamic_cast<CListUI&>(Control(L"lstUploadItems"));
    for (std::size_t i = 0; i < list.GetCount(); ++i) {
      CControlUI* const row = list.GetItemAt(i);
      if (!row->IsVisible()) continue;
      const auto part = [row](const wchar_t* name) {
        return DuiLib::CPaintManagerUI::FindControl(row, name);
      };
      EXPECT_NE(part(L"lytLoadding")->IsVisible(), part(L"lytContent")->IsVisible());
      rows.push_back(
          part(part(L"lytContent")->IsVisible() ? L"lblContent" : L"lblLoadding")->GetText());
    }
    return rows;
  }

  std::optional<NotingUploadWnd> opened;
};

class UploadWithApplicationLogTest : public UploadTest {
 protected:
  UploadWithApplicationLogTest() : UploadTest(R"({"shelf":["AppLogUpload"]})") {}
};

constexpr const wchar_t* kProducing = L"IDS_HARDWARE_ITEM_LOG_GENERATE_APP";
constexpr const wchar_t* kWaiting = L"IDS_HARDWARE_DIAGNOSE_UPLOAD_WAITING";
constexpr const wchar_t* kSilent = L"IDS_HARDWARE_DIAGNOSE_UPLOAD_SILENT";
constexpr const wchar_t* kNone = L"IDS_HARDWARE_DIAGNOSE_UPLOAD_NONE";

const std::string kOpening = "3b0000 3b0002 3c0002 []";
const std::string kUpload = "3b0000 3b0003 0 [0]";
const std::string kCancel = "3b0000 3b0004 0 [0]";

TEST_F(UploadTest, EachWayOutGivesItsResultAndItsMessage) {
  const auto answer = [this](Person&) { Answer({{1, "/logs/a.log"}}); };
  const struct {
    std::deque<std::function<void(Person&)>> steps;
    int result;
    std::string message;
  } cases[] = {{{answer, [](Person& person) { person.Click(L"btnUpload"); }}, 1, kUpload},
               {{answer, [](Person& person) { person.Click(L"btnClose"); }}, 0, kCancel},
               {{[](Person& person) { person.Click(L"btnCancel"); }}, 0, kCancel},
               {{[](Person& person) { person.Press(Key::kEscape); }}, 0, kCancel},
               {{}, 0, kCancel}};  // by the window manager
  for (const auto& way : cases) {
    NotingUploadWnd& upload = Open();
    EXPECT_THAT(Heard(), ElementsAre(kOpening));
    steps.Set(way.steps);
    EXPECT_EQ(upload.ShowModal(), way.result);
    upload.OnCancel();  // the window manager comes late
    EXPECT_THAT(Heard(), ElementsAre(way.message));
  }
}

TEST_F(UploadTest, WithoutTheApplicationLogAnyOtherFileEnablesTheUpload) {
  Open();
  EXPECT_EQ(Notice(), kWaiting);
  EXPECT_FALSE(CanUpload());
  AnswerAndShow({});
  EXPECT_EQ(Notice(), kNone);
  EXPECT_FALSE(CanUpload());
  AnswerAndShow({{4, "/outbox/application.txt"}});
  EXPECT_FALSE(CanUpload());
  EXPECT_EQ(Notice(), kNone);
  AnswerAndShow({{1, "/logs/a.log"}, {1, "/logs/b.log"}, {2, "/events.jsonl"}, {9, ""}});
  EXPECT_TRUE(CanUpload());
  EXPECT_EQ(Notice(), L"");
  EXPECT_THAT(Rows(), ElementsAre(L"a.log", L"b.log", L"events.jsonl", L""));
  window.Tick(kLimit);
  EXPECT_EQ(Notice(), L"") << "all that was asked for is there";
}

TEST_F(UploadWithApplicationLogTest, TheUploadWaitsForThatLogInWhateverOrderFilesCome) {
  const Logs others{{1, "/logs/a.log"}, {2, "/events.jsonl"}};
  const Logs application{{4, "/outbox/application.txt"}};
  Open();
  EXPECT_THAT(Rows(), ElementsAre(kProducing));
  EXPECT_EQ(Notice(), L"") << "the row says it";
  AnswerAndShow(others);
  EXPECT_FALSE(CanUpload());
  EXPECT_THAT(Rows(), ElementsAre(kProducing, L"a.log", L"events.jsonl"));
  AnswerAndShow(application);
  EXPECT_TRUE(CanUpload());
  EXPECT_THAT(Rows(), ElementsAre(L"application.txt", L"a.log", L"events.jsonl"));

  Open();
  AnswerAndShow(application);
  EXPECT_TRUE(CanUpload());
  AnswerAndShow(others);
  EXPECT_TRUE(CanUpload());
  EXPECT_THAT(Rows(), ElementsAre(L"application.txt", L"a.log", L"events.jsonl"));

  Open();
  AnswerAndShow({});
  EXPECT_EQ(Notice(), kNone);
  EXPECT_THAT(Rows(), IsEmpty()) << "nothing is being produced";
  EXPECT_FALSE(CanUpload());
}

TEST_F(UploadWithApplicationLogTest, ASilentCompanionIsNamedAndAskedAgain) {
  NotingUploadWnd& upload = Open();
  window.Tick(kLimit - std::chrono::milliseconds(1));
  EXPECT_EQ(Notice(), L"");
  window.Tick(std::chrono::milliseconds(1));
  EXPECT_EQ(Notice(), kSilent);
  EXPECT_THAT(Heard(), ElementsAre(kOpening));

  Person(upload.GetManager()).Click(L"btnUploadRetry");
  EXPECT_EQ(Notice(), L"");
  EXPECT_THAT(Heard(), ElementsAre(kOpening));
  // The service was slow: both answers come.
  for (int i = 0; i < 2; ++i) AnswerAndShow({{1, "/logs/a.log"}});
  EXPECT_THAT(Rows(), ElementsAre(kProducing, L"a.log"));

  window.Tick(kLimit);
  EXPECT_EQ(Notice(), kSilent) << "the application log does not come";
  EXPECT_FALSE(CanUpload());
  AnswerAndShow({{4, "/outbox/application.txt"}});
  EXPECT_EQ(Notice(), L"");
  EXPECT_TRUE(CanUpload());
}

TEST_F(UploadTest, AnAnswerThatComesAfterTheEndConcernsNobody) {
  NotingUploadWnd& upload = Open();
  Answer({{1, "/logs/a.log"}});  // waits for the UI thread
  upload.OnCancel();
  AnswerAndShow({{2, "/events.jsonl"}});
  EXPECT_THAT(Rows(), IsEmpty());

  Open();
  Answer({{1, "/logs/a.log"}});
  opened.reset();
  AnswerAndShow({{2, "/events.jsonl"}});
}

TEST_F(UploadTest, AnActivatedFileIsRevealedIfThereIsOne) {
  NotingUploadWnd& upload = Open();
  AnswerAndShow({{1, ""}, {1, "/logs/b.log"}});
  auto& list = dynamic_cast<CListUI&>(Control(L"lstUploadItems"));
  for (std::size_t i = 0; i < list.GetCount(); ++i) list.GetItemAt(i)->Activate();
  EXPECT_THAT(upload.revealed, ElementsAre(std::filesystem::path("/logs/b.log")));
}

TEST_F(UploadTest, IsDraggedByItsHandle) {
  NotingUploadWnd& upload = Open();
  upload.CenterWindow();
  const int left = (1040 - 300) / 2;
  const int top = (664 - 400) / 2;
  EXPECT_EQ(upload.OnNcHitTest({left + 5, top + 5}), DuiLib::kHitCaption);
  EXPECT_EQ(upload.OnNcHitTest({left + 5, top + 35}), DuiLib::kHitClient);
  EXPECT_EQ(upload.OnNcHitTest({left - 5, top + 5}), DuiLib::kHitClient) << "no control";
}

TEST_F(UploadTest, WhatLayoutsLackIsLeftOut) {
  RemoveLayout("upload_item");
  Open();
  AnswerAndShow({{1, "/logs/a.log"}});
  EXPECT_THAT(Rows(), IsEmpty());
  EXPECT_TRUE(CanUpload());

  WriteLayout("upload", "<Container width='300' height='200'/>");
  Open();
  AnswerAndShow({{1, "/logs/a.log"}});
  opened->OnCancel();
  EXPECT_THAT(Heard(), ElementsAre(kOpening, kOpening, kCancel));
}

}  // namespace
}  // namespace orv::sysdiagnose
