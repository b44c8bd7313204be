#include "sysdiagnose/ui/windows/upload_wnd.h"

#include <string>

#include "common/path_text.h"
#include "common/text.h"
#include "platform/concurrency/task.h"
#include "platform/duilib/controls/list.h"
#include "platform/duilib/queue/ui_main_queue.h"
#include "platform/os/reveal.h"
#include "platform/util/soft_shelf.h"
#include "sysdiagnose/base/log.h"
#include "sysdiagnose/records/ipc_helper.h"
#include "sysdiagnose/records/requests.h"
#include "sysdiagnose/ui/windows/upload_item.h"

namespace orv::sysdiagnose {
namespace {

using DuiLib::CControlUI;
using DuiLib::CListUI;
using DuiLib::CPaintManagerUI;
using qvx::sd::emDataType;

constexpr auto kApplicationLog = static_cast<emDataType>(protocol::LogModule::Application);

constexpr std::size_t kSilenceTimer = 1;
constexpr int kSilenceLimit = 10000;  // milliseconds

CListUI* ListOf(const CPaintManagerUI& window) {
  return dynamic_cast<CListUI*>(window.FindControl(L"lstUploadItems"));
}

bool IsListed(const CListUI& list, const std::wstring& file) {
  for (std::size_t i = 0; i < list.GetCount(); ++i)
    if (list.GetItemAt(i)->GetUserData() == file) return true;
  return false;
}

void SetVisible(const CPaintManagerUI& window, const wchar_t* name, bool visible) {
  if (CControlUI* const control = window.FindControl(name)) control->SetVisible(visible);
}

}  // namespace

const DuiLib::NotifyMapRow UploadWnd::kMessageRows[] = {
    DuiLib::OnNotify(DuiLib::kNotifyClick, L"btnUpload", &UploadWnd::OnUpload),
    DuiLib::OnNotify(DuiLib::kNotifyClick, L"btnClose", &UploadWnd::OnDismiss),
    DuiLib::OnNotify(DuiLib::kNotifyClick, L"btnCancel", &UploadWnd::OnDismiss),
    DuiLib::OnNotify(DuiLib::kNotifyClick, L"btnUploadRetry", &UploadWnd::OnRetry),
    DuiLib::OnNotify(DuiLib::kNotifyTimer, L"", &UploadWnd::OnSilence),
    DuiLib::OnNotify(DuiLib::kNotifyItemActivate, L"", &UploadWnd::OnItemActivate),
    {}};
const DuiLib::NotifyMap UploadWnd::kMessageMap{nullptr, kMessageRows};

UploadWnd::~UploadWnd() {
  StopListening();
}

void UploadWnd::InitWindow() {
  listening = std::make_shared<char>();
  IPCHelper::Instance().SetLogListSlot([this](const auto& logs) { OnRecvSample(logs); });
  AskForLogs();
  offersApplicationLog = CQVXSoftShelf::GetInstance()->IsSupportPlugin("AppLogUpload");
  if (offersApplicationLog) AddUploadFileList(kApplicationLog, false, L"");
  EnableUpload(false);
  ShowNotice();
}

void UploadWnd::AskForLogs() {
  PostRequest(Request::LogList);
  SetTalk(Talk::kAsked, true);
}

// Called on the delivery thread until the slot is cleared, and by nobody afterwards.
void UploadWnd::OnRecvSample(const std::vector<protocol::SYSTEM_DETECT_LOG_ITEM>& logs) {
  SYSDIAGNOSE_LOG_INFO("log items: " + std::to_string(logs.size()) +
                       " (orv::sysdiagnose::UploadWnd::OnRecvSample)");
  for (const auto& log : logs)
    SYSDIAGNOSE_LOG_INFO("module: " + std::to_string(log.module) + " log name: " + log.file +
                         " (orv::sysdiagnose::UploadWnd::OnRecvSample)");
  DuiLib::UIMainQueue::dispatch([this, logs, whileListening = std::weak_ptr(listening)] {
    if (!whileListening.expired()) TakeAnswer(logs);
  });
}

void UploadWnd::TakeAnswer(const std::vector<protocol::SYSTEM_DETECT_LOG_ITEM>& logs) {
  for (const auto& log : logs) TakeLog(log.module, common::Utf8ToWide(log.file));
  SetTalk(Talk::kAnswered, hasFiles && offersApplicationLog && !hasApplicationLog);
}

void UploadWnd::TakeLog(emDataType module, const std::wstring& file) {
  if (module == kApplicationLog) {
    SetUploadFileList(module, file);
    if (!offersApplicationLog) return;
    hasFiles = hasApplicationLog = true;
    EnableUpload(true);
    return;
  }
  hasFiles = true;
  // Who is asked again tells of the same files.
  const CListUI* const list = ListOf(GetManager());
  if (file.empty() || list == nullptr || !IsListed(*list, file))
    AddUploadFileList(module, true, file);
  if (!offersApplicationLog) EnableUpload(true);
}

void UploadWnd::AddUploadFileList(emDataType enmDeviceModule, bool bHasContent,
                                  const std::wstring& strFilename) {
  SYSDIAGNOSE_LOG_INFO("enmDeviceModule: " + std::to_string(enmDeviceModule) +
                       " bHasContent: " + std::to_string(bHasContent) +
                       " strFilename: " + common::WideToUtf8(strFilename) +
                       " (orv::sysdiagnose::UploadWnd::AddUploadFileList)");
  CListUI* const list = ListOf(GetManager());
  if (list == nullptr) return;
  CControlUI* const item = CreateUploadItem(enmDeviceModule, GetManager()).release();
  if (item == nullptr) return;
  list->Add(item);
  items[enmDeviceModule] = item;
  if (bHasContent)
    ShowUploadFile(*item, strFilename);
  else
    ShowUploadWaiting(*item);
}

void UploadWnd::SetUploadFileList(emDataType enmDeviceModule, const std::wstring& strFilename) {
  const auto found = items.find(enmDeviceModule);
  if (found != items.end()) ShowUploadFile(*found->second, strFilename);
}

void UploadWnd::OnItemActivate(DuiLib::TNotifyUI& notification) {
  const std::wstring& path = notification.sender->GetUserData();
  if (!path.empty()) Reveal(common::TextPath(common::WideToUtf8(path)));
}

void UploadWnd::Reveal(const std::filesystem::path& file) {
  concurrency::run_detached([file] {
    if (!os::RevealInFolder(file))
      SYSDIAGNOSE_LOG_WARN("The folder of " + common::PathText(file) +
                           " cannot be shown (orv::sysdiagnose::UploadWnd::Reveal)");
  });
}

void UploadWnd::OnSilence(DuiLib::TNotifyUI&) {
  SetTalk(Talk::kSilent, false);
}

void UploadWnd::SetTalk(Talk stand, bool waits) {
  talk = stand;
  CControlUI* const root = GetManager().GetRoot();
  if (waits)
    GetManager().SetTimer(root, kSilenceTimer, kSilenceLimit);
  else
    GetManager().KillTimer(root, kSilenceTimer);
  ShowNotice();
}

// What is waited for, or why nothing comes. A row of a log that is being produced says so itself.
void UploadWnd::ShowNotice() {
  const bool hasNothing = talk == Talk::kAnswered && !hasFiles;
  const auto application = items.find(kApplicationLog);
  const bool showsRows = hasFiles || (application != items.end() && !hasNothing);
  if (application != items.end()) application->second->SetVisible(showsRows);

  const wchar_t* const text = talk == Talk::kSilent ? L"IDS_HARDWARE_DIAGNOSE_UPLOAD_SILENT"
                              : hasNothing          ? L"IDS_HARDWARE_DIAGNOSE_UPLOAD_NONE"
                                                    : L"IDS_HARDWARE_DIAGNOSE_UPLOAD_WAITING";
  const CPaintManagerUI& window = GetManager();
  if (CControlUI* const notice = window.FindControl(L"txtUploadNotice"))
    notice->SetText(DuiLib::UICulture::GetInstance()->GetString(text));
  SetVisible(window, L"lytUploadNotice", talk == Talk::kSilent || !showsRows);
  SetVisible(window, L"btnUploadRetry", talk == Talk::kSilent);
}

void UploadWnd::EnableUpload(bool enabled) {
  if (CControlUI* const button = GetManager().FindControl(L"btnUpload"))
    button->SetEnabled(enabled);
}

void UploadWnd::OnUpload(DuiLib::TNotifyUI&) {
  if (!StopListening()) return;
  PostRequest(Request::UploadLogs);
  Close(1);
}

void UploadWnd::OnCancel() {
  if (!StopListening()) return;
  PostRequest(Request::DiscardLogs);
  Close(0);
}

bool UploadWnd::StopListening() {
  if (listening == nullptr) return false;
  IPCHelper::Instance().SetLogListSlot({});
  listening.reset();
  return true;
}

int UploadWnd::OnNcHitTest(DuiLib::Point screen) {
  if (const int answer = WindowImplBase::OnNcHitTest(screen); answer != DuiLib::kHitNothing)
    return answer;
  const CControlUI* const hit = GetManager().FindControl(ScreenToClient(screen));
  return hit != nullptr && hit->IsDragHandle() ? DuiLib::kHitCaption : DuiLib::kHitClient;
}

}  // namespace orv::sysdiagnose
