#pragma once

#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "common/protocol/log_item.h"
#include "platform/duilib/window/window_impl_base.h"

namespace qvx::sd {
/// Whose log a file is, as in protocol::LogModule; other numbers may come.
using emDataType = std::int32_t;
}  // namespace qvx::sd

namespace orv::sysdiagnose {

/// Lists the logs that can be uploaded, and has the companion service upload them if the user
/// agrees. Its modal result is 1 then, else 0. UI thread only, but for OnRecvSample.
class UploadWnd : public DuiLib::WindowImplBase {
 public:
  UploadWnd() = default;
  ~UploadWnd() override;

  DuiLib::CDuiString GetWindowClassName() const override { return L"SysdiagnoseUploadWnd"; }
  /// Also tells the companion service that nothing will be uploaded.
  void OnCancel() override;
  int OnNcHitTest(DuiLib::Point screen) override;

  /// The companion service's answer. Any thread, while the window has not been closed.
  void OnRecvSample(const std::vector<protocol::SYSTEM_DETECT_LOG_ITEM>& items);

  /// Adds a row for a log: its file, or that it is being produced.
  void AddUploadFileList(qvx::sd::emDataType enmDeviceModule, bool bHasContent,
                         const std::wstring& strFilename);
  /// The log of this module has been produced. Passed over when it has no row.
  void SetUploadFileList(qvx::sd::emDataType enmDeviceModule, const std::wstring& strFilename);

 protected:
  DuiLib::CDuiString GetSkinFile() const override { return L"layout/sysdiagnose_upload.xml"; }
  DuiLib::CDuiString GetSkinFolder() const override { return L"res/"; }
  void InitWindow() override;
  const DuiLib::NotifyMap* GetMessageMap() const override { return &kMessageMap; }

  /// Shows the file in its folder; returns at once.
  virtual void Reveal(const std::filesystem::path& file);

 private:
  /// How the talk with the companion service stands.
  enum class Talk { kAsked, kAnswered, kSilent };

  static const DuiLib::NotifyMapRow kMessageRows[];
  static const DuiLib::NotifyMap kMessageMap;

  void OnUpload(DuiLib::TNotifyUI&);
  void OnDismiss(DuiLib::TNotifyUI&) { OnCancel(); }
  void OnRetry(DuiLib::TNotifyUI&) { AskForLogs(); }
  void OnSilence(DuiLib::TNotifyUI&);
  void OnItemActivate(DuiLib::TNotifyUI& notification);

  void AskForLogs();
  void TakeAnswer(const std::vector<protocol::SYSTEM_DETECT_LOG_ITEM>& logs);
  void TakeLog(qvx::sd::emDataType module, const std::wstring& file);
  void SetTalk(Talk stand, bool waits);
  void ShowNotice();
  void EnableUpload(bool enabled);
  /// Nothing comes to this window any more. False if it had been closed before.
  bool StopListening();

  std::map<qvx::sd::emDataType, DuiLib::CControlUI*> items;  // the latest row of each module
  bool offersApplicationLog = false;
  bool hasApplicationLog = false;
  bool hasFiles = false;
  Talk talk = Talk::kAsked;
  std::shared_ptr<const void> listening;  // null once the window has been closed
};

}  // namespace orv::sysdiagnose
