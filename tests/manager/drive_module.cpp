// A plugin for the driven manager: pages, windows, messages and work that do what a script asks
// for. What it is to do wrong before a script has begun is told by the product's shelf.

#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <stdexcept>
#include <string>
#include <utility>

#include "platform/concurrency/task.h"
#include "platform/duilib/builder/dialog_builder.h"
#include "platform/duilib/queue/ui_main_queue.h"
#include "platform/duilib/tree/paint_manager.h"
#include "platform/duilib/window/window_impl_base.h"
#include "platform/message/ipc_message_client.h"
#include "platform/os/clock.h"
#include "platform/plugins_manager/plugin_interfaces.h"
#include "platform/util/soft_shelf.h"
#include "sysdiagnose/plugin/frame/class_entry.h"

namespace {

using namespace std::chrono_literals;
using DuiLib::CControlUI;
using DuiLib::CPaintManagerUI;
using DuiLib::TNotifyUI;
using DuiLib::UIMainQueue;

constexpr std::uint32_t kPlugin = 0x390000;
constexpr std::uint32_t kHost = 0x30000;
constexpr std::uint32_t kEcho = 0x10;
constexpr std::uint32_t kStuck = 0x11;
constexpr std::uint32_t kThrow = 0x12;

constexpr const wchar_t* kPage =
    L"<VerticalLayout name='DriveTab' height='grow'>"
    L"<Label name='txtState' text='new' height='20'/><Label name='txtPaced' height='20'/>"
    L"<Button name='btnHidden' width='90' height='20' visible='false'/>"
    L"<Button name='btnDisabled' width='90' height='20' enabled='false'/>"
    L"<Button name='btnWindow' width='90' height='20'/>"
    L"<Button name='btnLaterWindow' width='90' height='20'/>"
    L"<Button name='btnClosureWindow' width='90' height='20'/>"
    L"<Button name='btnPost' width='90' height='20'/>"
    L"<Button name='btnPaced' width='90' height='20'/>"
    L"<Button name='btnRestless' width='90' height='20'/>"
    L"<Button name='btnStuck' width='90' height='20'/>"
    L"<Button name='btnEndless' width='90' height='20'/>"
    L"<Button name='btnThrow' width='90' height='20'/>"
    L"<Button name='btnThrowNumber' width='90' height='20'/>"
    L"<Button name='btnThrowElsewhere' width='90' height='20'/></VerticalLayout>";
constexpr const wchar_t* kWindow =
    L"<VerticalLayout width='200' height='120'><Label name='txtWindow' text='open' height='20'/>"
    L"<Button name='btnWindow' width='90' height='20'/>"
    L"<Button name='btnClose' width='90' height='20'/></VerticalLayout>";

bool IsAskedFor(const std::string& fault) {
  return CQVXSoftShelf::GetInstance()->IsSupportPlugin(fault);
}

void FailIfAsked(const char* slot) {
  if (IsAskedFor(std::string("throw ") + slot)) throw std::runtime_error("as asked");
  if (IsAskedFor(std::string("throw a number in ") + slot)) throw 5;
}

void SetText(CPaintManagerUI* window, const wchar_t* name, const std::wstring& text) {
  if (CControlUI* const control = window->FindControl(name)) control->SetText(text);
}

class DriveWnd final : public DuiLib::WindowImplBase {
 public:
  static void Open(CPaintManagerUI* parent) {
    DriveWnd window;
    if (!window.Create(parent, L"", 0, 0)) return;
    window.CenterWindow();
    SetText(parent, L"txtState", L"result " + std::to_wstring(window.ShowModal()));
  }

  DuiLib::CDuiString GetWindowClassName() const override { return L"DriveWnd"; }
  void OnCancel() override {
    if (IsAskedFor("throw OnCancel")) throw 6;
    Close(2);
  }

 protected:
  DuiLib::CDuiString GetSkinFile() const override { return kWindow; }
  DuiLib::CDuiString GetSkinFolder() const override { return L"res"; }
  const DuiLib::NotifyMap* GetMessageMap() const override {
    static const DuiLib::NotifyMapRow rows[] = {
        DuiLib::OnNotify(DuiLib::kNotifyClick, L"btnWindow", &DriveWnd::OnAnother),
        DuiLib::OnNotify(DuiLib::kNotifyClick, L"btnClose", &DriveWnd::OnClose),
        {}};
    static const DuiLib::NotifyMap map{nullptr, rows};
    return &map;
  }

 private:
  void OnAnother(TNotifyUI&) { Open(&GetManager()); }
  void OnClose(TNotifyUI&) { Close(1); }
};

// The page. UI thread only.
class Page {
 public:
  static Page& Instance() {
    static Page page;
    return page;
  }

  CControlUI* Build(CPaintManagerUI* inWindow) {
    window = inWindow;
    mounted = std::make_shared<int>();
    CControlUI* const root = DuiLib::CDialogBuilder().Create(kPage, {}, window);
    for (const auto& [name, act] : kActs)
      CPaintManagerUI::FindControl(root, name)->SetNotifyHook([this, act = act](TNotifyUI& told) {
        if (told.type == DuiLib::kNotifyClick) (this->*act)();
        return true;
      });
    root->SetGoneHook([this] {
      mounted = nullptr;
      if (IsAskedFor("throw in a hook")) throw std::runtime_error("the page goes");
    });
    return root;
  }

 private:
  using Act = void (Page::*)();

  void OpenWindow() { DriveWnd::Open(window); }

  void OpenWindowFromClosure() {
    UIMainQueue::dispatch([this] { DriveWnd::Open(window); });
  }

  // Also when the page has gone meanwhile.
  void OpenWindowLater() {
    concurrency::create_task([this] {
      os::CurrentClock().Sleep(350ms);
      UIMainQueue::dispatch([this] { DriveWnd::Open(window); });
    });
  }

  void Post() {
    const std::uint8_t body[] = {1, 2, 0xFF};
    tagIPC_MESSAGE_ITEM item;
    item.target = kHost;
    item.messageId = 0x77;
    item.replyId = 0x78;
    item.dataLength = sizeof body;
    item.data = body;
    client.PostIPCMessage(item);
  }

  void CountPaced() {
    concurrency::create_task([this, life = std::weak_ptr(mounted)] {
      for (int step = 1; step <= 5; ++step) {
        os::CurrentClock().Sleep(100ms);
        UIMainQueue::dispatch([this, life, step] {
          if (!life.expired()) SetText(window, L"txtPaced", std::to_wstring(step));
        });
      }
    });
  }

  void SleepAgainAndAgain() {
    concurrency::create_task([] {
      for (;;) os::CurrentClock().Sleep(100ms);
    });
  }

  void WaitForNothing() { concurrency::create_task(&WaitForever); }

  void DispatchAgainAndAgain() {
    UIMainQueue::dispatch([this, life = std::weak_ptr(mounted)] {
      if (!life.expired()) DispatchAgainAndAgain();
    });
  }

  void Throw() { throw std::runtime_error("a click"); }
  void ThrowNumber() { throw 7; }
  void ThrowElsewhere() {
    concurrency::create_task([] { throw 8; });
    concurrency::run_detached([] { throw std::runtime_error("a task"); });
    UIMainQueue::dispatch([] { throw std::runtime_error("a closure"); });
    UIMainQueue::dispatch([] { throw 9; });
  }

  static void WaitForever() {
    std::mutex mutex;
    std::unique_lock lock(mutex);
    std::condition_variable never;
    never.wait(lock, [] { return false; });
  }

  static constexpr std::pair<const wchar_t*, Act> kActs[] = {
      {L"btnWindow", &Page::OpenWindow},
      {L"btnLaterWindow", &Page::OpenWindowLater},
      {L"btnClosureWindow", &Page::OpenWindowFromClosure},
      {L"btnPost", &Page::Post},
      {L"btnPaced", &Page::CountPaced},
      {L"btnRestless", &Page::SleepAgainAndAgain},
      {L"btnStuck", &Page::WaitForNothing},
      {L"btnEndless", &Page::DispatchAgainAndAgain},
      {L"btnThrow", &Page::Throw},
      {L"btnThrowNumber", &Page::ThrowNumber},
      {L"btnThrowElsewhere", &Page::ThrowElsewhere}};

  Page() {
    client.RegisterMessageCallbackAll([this](const tagIPC_MESSAGE_ITEM& item) { Answer(item); });
  }

  // On the delivery thread.
  void Answer(const tagIPC_MESSAGE_ITEM& item) {
    if (item.messageId == kStuck) WaitForever();
    if (item.messageId == kThrow) throw std::runtime_error("a handler");
    if (item.messageId != kEcho) return;
    tagIPC_MESSAGE_ITEM answer = item;
    answer.target = item.source;
    answer.messageId = item.replyId;
    client.PostIPCMessage(answer);
  }

  CPaintManagerUI* window = nullptr;
  std::shared_ptr<int> mounted;
  CIPCMessageClient client{kPlugin, false};
};

class DrivePlugin : public IQVXUIPlugin {
 public:
  static bool Answers(x3::InterfaceId id) {
    if (id != x3::IdOf<IQVXUIPlugin>()) return false;
    FailIfAsked("x3CreateObject");
    return !IsAskedFor("no class");
  }

  const char* ClassId() const override { return "orv.test.drive"; }
  const char* ClassName() const override { return "DrivePlugin"; }

  bool CreateUI(PageCreationContext* context) override {
    FailIfAsked("CreateUI");
    if (IsAskedFor("refuse CreateUI")) return false;
    context->AddPageCallback(1, L"Drive", Page::Instance().Build(context->paintManager));
    FailIfAsked("CreateUI behind its page");
    return true;
  }
  bool OnHostNotification8() override { return true; }
  bool OnHostNotification9() override { return true; }
  bool OnHostNotification10() override { return true; }
  void OnHostNotification11() override {}
  void OnHostNotification12() override {}
  void OnHostNotification13() override {}
  std::wstring PluginKey() override {
    FailIfAsked("PluginKey");
    return L"Drive";
  }
  bool MountPage(CPaintManagerUI*, DuiLib::CNotifyPump*, PageCreationContext*) override {
    return true;
  }
  void OnUIHostNotification16() override {}
};

// Gives itself back with a fault.
class FaultyObject final : public DrivePlugin {
 public:
  static x3::IObject* Create(x3::InterfaceId id) {
    return Answers(id) ? new FaultyObject : nullptr;
  }

  std::int32_t Retain() override { return ++count; }
  std::int32_t Release() override {
    if (--count != 0) return count;
    const std::unique_ptr<FaultyObject> last(this);
    FailIfAsked("Release");
    return 0;
  }
  bool Query(x3::InterfaceId, x3::IObject**) override { return false; }

 private:
  std::int32_t count = 1;
};

}  // namespace

x3::ClassMap x3::ClassMapList() {
  static constexpr ClassEntry kClasses[] = {{kOrdinaryType, "FaultyObject", "orv.test.drive",
                                             &FaultyObject::Create, &DrivePlugin::Answers},
                                            {}};
  static constexpr const ClassEntry* kTables[] = {kClasses, nullptr};
  return kTables;
}
