#include "sysdiagnose/ui/windows/upload_item.h"

#include <filesystem>

#include "common/path_text.h"
#include "common/protocol/log_item.h"
#include "common/text.h"
#include "platform/duilib/controls/frame_animation.h"
#include "sysdiagnose/ui/page/control_tree.h"

namespace orv::sysdiagnose {
namespace {

using DuiLib::CContainerUI;
using DuiLib::CControlUI;
using DuiLib::CFrameAnimationUI;
using DuiLib::CPaintManagerUI;

struct ItemLook {
  const wchar_t* icon;
  const wchar_t* label;  // string id
};

constexpr ItemLook kApplicationLook{L"file='drawable/hardware/icon_velkor.png'",
                                    L"IDS_HARDWARE_ITEM_LOG_GENERATE_APP"};
constexpr ItemLook kDefaultLook{L"file='drawable/hardware/icon_default.png'",
                                L"IDS_HARDWARE_ITEM_LOG_GENERATE_DEFAULT"};

// The frames of the sign of what is being produced.
constexpr int kFirstFrame = 1;
constexpr int kLastFrame = 30;

void SetText(CControlUI& item, const wchar_t* name, const std::wstring& text) {
  if (auto* const control = FindBelow<CControlUI>(&item, name)) control->SetText(text);
}

void SetImage(CControlUI& item, const wchar_t* name, const wchar_t* image) {
  if (auto* const control = FindBelow<CControlUI>(&item, name)) control->SetImage(image);
}

void ShowPart(CControlUI& item, const wchar_t* shown, const wchar_t* hidden) {
  if (auto* const control = FindBelow<CControlUI>(&item, shown)) control->SetVisible(true);
  if (auto* const control = FindBelow<CControlUI>(&item, hidden)) control->SetVisible(false);
}

std::wstring FileName(const std::wstring& path) {
  return common::Utf8ToWide(
      common::PathText(common::TextPath(common::WideToUtf8(path)).filename()));
}

}  // namespace

std::unique_ptr<CContainerUI> CreateUploadItem(std::int32_t module, CPaintManagerUI& manager) {
  auto item = BuildContainer(&manager, L"layout\\sysdiagnose_upload_item.xml");
  if (item == nullptr) return nullptr;
  const bool isApplication = module == static_cast<std::int32_t>(protocol::LogModule::Application);
  const ItemLook& look = isApplication ? kApplicationLook : kDefaultLook;
  const std::wstring label = DuiLib::UICulture::GetInstance()->GetString(look.label);
  for (const wchar_t* name : {L"btnLoadding", L"ctlContent"}) SetImage(*item, name, look.icon);
  for (const wchar_t* name : {L"lblLoadding", L"lblName"}) SetText(*item, name, label);
  return item;
}

void ShowUploadWaiting(CControlUI& item) {
  ShowPart(item, L"lytLoadding", L"lytContent");
  if (auto* const sign = FindBelow<CFrameAnimationUI>(&item, L"ctlLoadding"))
    sign->Play(kFirstFrame, kLastFrame, true);
}

void ShowUploadFile(CControlUI& item, const std::wstring& path) {
  ShowPart(item, L"lytContent", L"lytLoadding");
  if (auto* const sign = FindBelow<CFrameAnimationUI>(&item, L"ctlLoadding")) sign->Stop();
  SetText(item, L"lblContent", FileName(path));
  item.SetUserData(path);
  item.SetToolTip(path);
}

}  // namespace orv::sysdiagnose
