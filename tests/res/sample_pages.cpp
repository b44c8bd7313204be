#include "tests/res/sample_pages.h"

#include <stdexcept>

#include "common/text.h"
#include "manager/host/module_card.h"
#include "manager/window/choice.h"
#include "platform/duilib/builder/dialog_builder.h"
#include "platform/duilib/controls/frame_animation.h"
#include "platform/duilib/controls/label.h"
#include "platform/duilib/controls/option.h"
#include "platform/duilib/layout/tab_layout.h"

using DuiLib::CContainerUI;
using DuiLib::CControlUI;

namespace {

constexpr DuiLib::Size kWindow{1040, 720};

struct Category {
  const wchar_t* caption;
  const wchar_t* icon;
  const wchar_t* device;
};

enum { kCpu, kBoard, kMemory, kDisk, kGraphics, kDisplay, kSound, kNetwork, kBluetooth, kBattery };

constexpr Category kCategories[] = {
    {L"IDS_HARDWARE_DETECT_CPU", L"ic_cpu", L"Sample CPU 4800"},
    {L"IDS_HARDWARE_DETECT_MOT", L"ic_motherboard", L"TUSK 14 Main Board"},
    {L"IDS_HARDWARE_DETECT_MEM", L"ic_ram", L"SM-8G-3200"},
    {L"IDS_HARDWARE_DETECT_DISK", L"ic_harddisk", L"Sample SSD 256"},
    {L"IDS_HARDWARE_DETECT_GPU", L"ic_video", L"Sample Graphics X1"},
    {L"IDS_HARDWARE_DETECT_DISPLAY", L"ic_monitor", L"Sample Panel 14"},
    {L"IDS_HARDWARE_DETECT_AUDIO", L"ic_sound", L"Sample Audio"},
    {L"IDS_HARDWARE_DETECT_NETCARD", L"ic_network", L"Sample Wi-Fi 6"},
    {L"IDS_HARDWARE_DETECT_BT", L"ic_bt", L"Sample Bluetooth 5"},
    {L"IDS_HARDWARE_DETECT_BATTERY", L"ic_battery",
     L"Sample Battery 50 of a maker with a name that is far too long for the one line that it has"},
    {L"IDS_HARDWARE_DETECT_KEYBOARD", L"ic_keyboard", L"Sample keyboard"},
    {L"IDS_HARDWARE_DETECT_FP", L"ic_fp", L"Sample reader"},
};

std::wstring TextOf(const wchar_t* id) {
  return DuiLib::UICulture::GetInstance()->GetString(id);
}

std::wstring Filled(const wchar_t* id, const std::vector<std::wstring>& values) {
  return DuiLib::UICulture::GetInstance()->GetMultiVarStr(id, values);
}

std::wstring Picture(const std::wstring& name) {
  return L"file='drawable/hardware/" + name + L".png'";
}

void SetText(CControlUI& below, const wchar_t* name, const std::wstring& text) {
  SampleWindow::Find(below, name).SetText(text);
}

void SetTextIn(SampleWindow& window, const wchar_t* name, const std::wstring& text) {
  window.Find(name).SetText(text);
}

template <typename Class>
Class& FindAs(CControlUI& below, const wchar_t* name) {
  return dynamic_cast<Class&>(SampleWindow::Find(below, name));
}

CContainerUI& ContainerIn(SampleWindow& window, const wchar_t* name) {
  return dynamic_cast<CContainerUI&>(window.Find(name));
}

void ShowBar(SampleWindow& window, const wchar_t* shown, const wchar_t* hidden) {
  constexpr int kBar = 140;
  window.Find(shown).SetVisible(true);
  window.Find(shown).SetFixedHeight(kBar);
  window.Find(hidden).SetVisible(false);
  window.Find(hidden).SetFixedHeight(0);
}

// Items

constexpr int kRow = 32;

CContainerUI& AddItem(SampleWindow& window, const wchar_t* list, const wchar_t* layout,
                      const Category& category) {
  CContainerUI& rows = ContainerIn(window, list);
  if (rows.GetCount() != 0) {
    SampleWindow::Find(*rows.GetItemAt(rows.GetCount() - 1), L"lytLine").SetVisible(true);
  }
  CContainerUI& item = window.Build(layout);
  rows.Add(&item);
  SetText(item, L"txtName", TextOf(category.caption));
  SetText(item, L"txtDescription", category.device);
  SampleWindow::Find(item, L"ctlSmallIcon").SetImage(Picture(category.icon + std::wstring(L"30")));
  SampleWindow::Find(item, L"ctlBigIcon").SetImage(Picture(category.icon));
  SampleWindow::Find(item, L"ctlFolder").SetImage(Picture(L"ic_collapse_light"));
  return item;
}

void Fold(CContainerUI& item) {
  constexpr int kBelow = 17;
  item.SetFixedHeight(SampleWindow::Find(item, L"lytTitle").GetHeight().value + kBelow);
  SampleWindow::Find(item, L"ctlFolder").SetImage(Picture(L"ic_expansion_light"));
}

CContainerUI& ItemsOf(CContainerUI& item) {
  return FindAs<CContainerUI>(item, L"lytItems");
}

void AddDetail(SampleWindow& window, CContainerUI& item, const wchar_t* title,
               const std::wstring& content) {
  CContainerUI& row = window.Build(L"sysdiagnose_scan_detail.xml");
  ItemsOf(item).Add(&row);
  SetText(row, L"txtTitle", TextOf(title));
  SetText(row, L"txtContent", content);
}

void AddSeparator(CContainerUI& item) {
  auto* const line = new CControlUI;
  ItemsOf(item).Add(line);
  line->SetFixedHeight(1);
  line->SetWidth(DuiLib::Length::Grow());
  line->SetPadding({0, (kRow - 1) / 2 + 1, 0, (kRow - 1) / 2});
  line->SetBackground(DuiLib::Colour::Named(L"line"));
}

void ShowVerdict(CControlUI& row, const wchar_t* verdict) {
  auto& status = FindAs<DuiLib::CFrameAnimationUI>(row, L"ctlStatus");
  const std::wstring picture = verdict;
  if (picture == L"Loading/loading_") {
    status.SetFrames(Picture(picture));
    status.Play(4, 30, true);
    return;
  }
  status.SetImage(Picture(picture));
}

constexpr const wchar_t* kAtWork = L"Loading/loading_";
constexpr const wchar_t* kPassed = L"Done/done_20";
constexpr const wchar_t* kAbnormal = L"ic_unusual";

CContainerUI& AddTest(SampleWindow& window, CContainerUI& item, const std::wstring& title,
                      const wchar_t* verdict, const std::wstring& result = {}) {
  CContainerUI& row = window.Build(L"sysdiagnose_detect_detail.xml");
  ItemsOf(item).Add(&row);
  SetText(row, L"txtTitle", title);
  SetText(row, L"txtResult", result);
  FindAs<DuiLib::CLabelUI>(row, L"txtResult")
      .SetTextColour(DuiLib::Colour::Named(verdict == kAtWork ? L"soft" : L"abnormal"));
  ShowVerdict(row, verdict);
  return row;
}

// History

void AddDay(SampleWindow& window, const std::wstring& text, bool chosen) {
  CContainerUI& entry = window.Build(L"sysdiagnose_archievement_date.xml");
  ContainerIn(window, L"lytSysdiagnoseDateItems").Add(&entry);
  SetText(entry, L"txt_hardware_his", text);
  auto& option = FindAs<DuiLib::COptionUI>(entry, L"opt_hardware_his");
  DuiLib::Look look;
  look.background = DuiLib::Colour(text.empty() ? 0x7B6EF9 : 0xB47B6EF9);
  look.gradientEnd = DuiLib::Colour(text.empty() ? 0x2D78FC : 0xB42D78FC);
  option.SetLook(DuiLib::ControlState::kRest, true, look);
  option.Selected(chosen, false);
  option.SetEnabled(!text.empty());
  SampleWindow::Find(entry, L"btn_hardware_his").SetEnabled(!text.empty());
  if (!chosen) return;
  auto& label = FindAs<DuiLib::CLabelUI>(entry, L"txt_hardware_his");
  label.SetTextColour(DuiLib::Colour::Named(L"on-accent"));
  label.SetFont(5);
}

void AddResult(SampleWindow& window, const Category& category, const std::wstring& picture) {
  CContainerUI& row = window.Build(L"sysdiagnose_archievement_detail.xml");
  ContainerIn(window, L"lstSysdiagnoseArchieve").Add(&row);
  SetText(row, L"txtName", TextOf(category.caption));
  SetText(row, L"txtDescription", category.device);
  SampleWindow::Find(row, L"ctlIcon").SetImage(Picture(category.icon + std::wstring(L"30")));
  SampleWindow::Find(row, L"ctlStatus").SetImage(picture.empty() ? L"" : Picture(picture));
  if (picture.empty()) SetText(row, L"txtStatus", TextOf(L"IDS_HARDWARE_REPORT_NOT_TESTED"));
}

void SetBar(SampleWindow& window, const wchar_t* bar, const wchar_t* number, int count, int of) {
  window.Find(bar).SetWidth(DuiLib::Length::Grow(count));
  window.Find(bar + std::wstring(L"Rest")).SetWidth(DuiLib::Length::Grow(of - count));
  SetTextIn(window, number, Filled(L"IDS_HARDWARE_DIAGNOSE_NUM", {std::to_wstring(count)}));
}

void FillHistory(SampleWindow& window, bool cancelled) {
  constexpr std::size_t kEntries = 12;
  const auto count = [](const wchar_t* id, int number) {
    return Filled(id, {std::to_wstring(number)});
  };
  window.Find(L"lytSysdiagnoseHistory").SetVisible(true);
  SetTextIn(window, L"txtSysdiagnoseArchievementSecondTitle",
            count(L"IDS_HARDWARE_DETECT_MAIN_LAST_ABNORM", 2));
  AddDay(window, count(L"IDS_HARDWARE_DETECT_MAIN_BEFORE_DAY", 27), false);
  AddDay(window, count(L"IDS_HARDWARE_DETECT_MAIN_BEFORE_DAY", 4), false);
  AddDay(window, TextOf(L"IDS_HARDWARE_DETECT_MAIN_YESTERDAY"), false);
  AddDay(window, TextOf(L"IDS_HARDWARE_DETECT_MAIN_TODAY"), true);
  while (ContainerIn(window, L"lytSysdiagnoseDateItems").GetCount() < kEntries) {
    AddDay(window, L"", false);
  }
  SetTextIn(window, L"txtSysdiagnoseDetailDate", L"2026.11.23");
  if (cancelled) {
    SetTextIn(window, L"txtSysdiagnoseDetailTested",
              Filled(L"IDS_HARDWARE_DIAGNOSE_TESTED", {L"5", L"12"}));
  }
  window.Find(L"txtSysdiagnoseDateItemsTips").SetVisible(true);
  SetTextIn(window, L"txtSysdiagnoseDateItemsTips",
            count(L"IDS_HARDWARE_DIAGNOSE_NUM_NORMAL", cancelled ? 4 : 10));
  SetTextIn(window, L"txt_hardware_norm_state", TextOf(L"IDS_HARDWARW_DETECT_NORM_STATE"));
  SetTextIn(window, L"txt_hardware_abnorm_state", TextOf(L"IDS_HARDWARW_DETECT_ABNORM_STATE"));
  int row = 0;
  for (const Category& category : kCategories) {
    const bool tested = !cancelled || row < 5;
    const bool abnormal = row == kGraphics || row == kBattery;
    AddResult(window, category, !tested ? L"" : abnormal ? L"ic_unusual" : L"ic_cheackout");
    ++row;
  }
  SetBar(window, L"lytSysdiagnoseNormal", L"txtSysdiagnoseNormalNum", cancelled ? 4 : 10,
         cancelled ? 5 : 12);
  SetBar(window, L"lytSysdiagnoseAbnormal", L"txtSysdiagnoseAbnormalNum", cancelled ? 1 : 2,
         cancelled ? 5 : 12);
}

void FillInvitation(SampleWindow& window) {
  window.Find(L"lytSysdiagnoseInvitation").SetVisible(true);
  SetTextIn(window, L"txtSysdiagnoseArchievementSecondTitle",
            TextOf(L"IDS_HARDWARE_DETECT_MAIN_DETECT_NEW"));
  for (const Category& category : kCategories) {
    CContainerUI& tile = window.Build(L"sysdiagnose_archievement_category.xml");
    ContainerIn(window, L"lytSysdiagnoseDetail").Add(&tile);
    SetText(tile, L"txtName", TextOf(category.caption));
    SampleWindow::Find(tile, L"ctlIcon").SetImage(Picture(category.icon));
  }
}

// Scan

constexpr const wchar_t* kScanList = L"lstSysdiagnoseScanItems";
constexpr const wchar_t* kScanItem = L"sysdiagnose_scan_item.xml";

void AddMemoryAndDisk(SampleWindow& window) {
  CContainerUI& memory = AddItem(window, kScanList, kScanItem, kCategories[kMemory]);
  AddDetail(window, memory, L"IDS_HARDWARE_DETECT_NAME", L"SM-8G-3200");
  CContainerUI& disk = AddItem(window, kScanList, kScanItem, kCategories[kDisk]);
  AddDetail(window, disk, L"IDS_HARDWARE_DETECT_NAME", L"Sample SSD 256");
  AddDetail(window, disk, L"IDS_HARDWARE_DETECT_DISK_VOLUMN", L"256GB");
  AddDetail(window, disk, L"IDS_HARDWARE_DETECT_SN", L"SSD-0002");
  AddSeparator(disk);
  AddDetail(window, disk, L"IDS_HARDWARE_DETECT_NAME", L"Sample Disk 2000");
  AddDetail(window, disk, L"IDS_HARDWARE_DETECT_DISK_VOLUMN", L"2000GB");
}

void FillScanning(SampleWindow& window, bool stopping) {
  ShowBar(window, L"lytScanCancel", L"lytScanExecute");
  SetTextIn(window, L"txtSysdiagnoseScanFirstTitle",
            TextOf(L"IDS_HARDWARE_DETECT_HARDWARE_SCANNING"));
  SetTextIn(window, L"txtSysdiagnoseScanSecondTitle",
            TextOf(L"IDS_HARDWARE_DETECT_DO_SCANNING") + L"Sample SSD 256");
  window.Find(L"txtSysdiagnoseScanStopping").SetVisible(stopping);
  window.Find(L"btnSysdiagnoseScanCancel").SetEnabled(!stopping);
  AddMemoryAndDisk(window);
}

void FillScanned(SampleWindow& window, bool chosen) {
  ShowBar(window, L"lytScanExecute", L"lytScanCancel");
  SetTextIn(window, L"txtSysdiagnoseScanFirstTitle", TextOf(L"IDS_HARDWARE_DIAGNOSE_ALL"));
  SetTextIn(window, L"txtSysdiagnoseScanSecondTitle",
            Filled(L"IDS_HARDWARE_DETECT_SELECTED", {chosen ? L"11" : L"0"}));
  window.Find(L"btnSysdiagnoseDetect").SetEnabled(chosen);
  Fold(AddItem(window, kScanList, kScanItem, kCategories[kCpu]));
  AddMemoryAndDisk(window);
  Fold(AddItem(window, kScanList, kScanItem, kCategories[kGraphics]));
  Fold(AddItem(window, kScanList, kScanItem, kCategories[kBattery]));
  CContainerUI& items = ContainerIn(window, kScanList);
  for (std::size_t index = 0; index < items.GetCount(); ++index) {
    auto& option = FindAs<DuiLib::COptionUI>(*items.GetItemAt(index), L"optChoose");
    option.SetVisible(true);
    option.Selected(chosen && index != 0, false);
  }
}

// Detection and repair

constexpr const wchar_t* kDetectList = L"lstSysdiagnoseDetectItems";
constexpr const wchar_t* kDetectItem = L"sysdiagnose_detect_item.xml";

void FillDetecting(SampleWindow& window, bool stopping) {
  ShowBar(window, L"lytDetectCancel", L"lytDetectExecute");
  SetTextIn(window, L"txtSysdiagnosedDetectFirstTitle", TextOf(L"IDS_HARDWARE_DIAGNOSE_DOING"));
  SetTextIn(window, L"txtSysdiagnoseDetectSecondTitle",
            L"{f 105}{c #7F7F7F}" + TextOf(L"IDS_HARDWARE_DIAGNOSE_ITEM") + L" " +
                TextOf(L"IDS_HARDWARE_DETECT_MEM") + TextOf(L"IDS_HARDWARE_DIAGNOSE_MEM_BIT_RW") +
                L"{/c}{/f}");
  window.Find(L"txtSysdiagnoseDetectStopping").SetVisible(stopping);
  window.Find(L"btnSysdiagnoseDetectCancel").SetEnabled(!stopping);
  CContainerUI& cpu = AddItem(window, kDetectList, kDetectItem, kCategories[kCpu]);
  ShowVerdict(cpu, kPassed);
  AddTest(window, cpu, TextOf(L"IDS_HARDWARE_DIAGNOSE_CPU_SSE41"), kPassed);
  AddTest(window, cpu, TextOf(L"IDS_HARDWARE_DIAGNOSE_CPU_SSE42"), kPassed);
  CContainerUI& memory = AddItem(window, kDetectList, kDetectItem, kCategories[kMemory]);
  ShowVerdict(memory, kAtWork);
  for (const wchar_t* id :
       {L"IDS_HARDWARE_DIAGNOSE_MEM_FAST", L"IDS_HARDWARE_DIAGNOSE_MEM_CONTINUE_INC_RW",
        L"IDS_HARDWARE_DIAGNOSE_MEM_BLOCK_INC_WRITE"}) {
    AddTest(window, memory, TextOf(id), kPassed);
  }
  AddTest(window, memory, TextOf(L"IDS_HARDWARE_DIAGNOSE_MEM_BIT_RW"), kAtWork);
}

void FillResult(SampleWindow& window) {
  ShowBar(window, L"lytDetectExecute", L"lytDetectCancel");
  SetTextIn(window, L"txtSysdiagnosedDetectFirstTitle", TextOf(L"IDS_HARDWARE_DIAGNOSE_RESULT"));
  SetTextIn(window, L"txtSysdiagnoseDetectSecondTitle",
            Filled(L"IDS_HARDWARE_DIAGNOSE_ABNORM_RESULT_NUM", {L"2"}) +
                TextOf(L"IDS_HARDWARE_DIAGNOSE_RESULT_SEND_LOG"));
  SetTextIn(window, L"btnSysdiagnoseDetectComplete", TextOf(L"IDS_HARDWARE_DIAGNOSE_REPAIR"));
  window.Find(L"txtSysdiagnoseDetectHint").SetVisible(true);

  CContainerUI& graphics = AddItem(window, kDetectList, kDetectItem, kCategories[kGraphics]);
  SampleWindow::Find(graphics, L"txtAbnormalType").SetVisible(true);
  SetText(graphics, L"txtAbnormalType", TextOf(L"IDS_HARDWARE_DIAGNOSE_GPU_UNKNOWN"));
  ShowVerdict(graphics, kAbnormal);
  CContainerUI& driver = AddTest(window, graphics, TextOf(L"IDS_HARDWARE_DIAGNOSE_GPU_DEVICE"),
                                 kAbnormal, TextOf(L"IDS_HARDWARE_DIAGNOSE_CHECK_DRIVE"));
  auto& choose = FindAs<DuiLib::COptionUI>(driver, L"optChoose");
  choose.SetVisible(true);
  choose.Selected(true, false);

  CContainerUI& display = AddItem(window, kDetectList, kDetectItem, kCategories[kDisplay]);
  ShowVerdict(display, kPassed);
  Fold(display);

  CContainerUI& battery = AddItem(window, kDetectList, kDetectItem, kCategories[kBattery]);
  ShowVerdict(battery, kAbnormal);
  AddTest(window, battery, TextOf(L"IDS_HARDWARE_DIAGNOSE_NETCARD_DEVICE"), kPassed);
  AddTest(window, battery, TextOf(L"IDS_HARDWARE_DIAGNOSE_BAT_VOLTAGE"), kAbnormal,
          TextOf(L"IDS_HARDWARE_DIAGNOSE_BATTERY_LOWVOLT"));
  AddTest(window, battery,
          L"Sample disk of a maker with a name that is far too long for the column (SN-0123456789)",
          kAbnormal, TextOf(L"IDS_HARDWARE_DIAGNOSE_BLUETOOTH_UNKNOWN"));
}

void FillHealthy(SampleWindow& window) {
  ShowBar(window, L"lytDetectExecute", L"lytDetectCancel");
  SetTextIn(window, L"txtSysdiagnosedDetectFirstTitle", TextOf(L"IDS_HARDWARE_DIAGNOSE_RESULT"));
  SetTextIn(window, L"txtSysdiagnoseDetectSecondTitle",
            TextOf(L"IDS_HARDWARE_DIAGNOSE_RESULT_ABNORM_NOT_FOUND") +
                TextOf(L"IDS_HARDWARE_DIAGNOSE_RESULT_CANCEL_UPLOAD"));
  window.Find(L"btnSysdiagnoseDetectBack").SetVisible(false);
  for (const Category& category : kCategories) {
    CContainerUI& item = AddItem(window, kDetectList, kDetectItem, category);
    ShowVerdict(item, kPassed);
    Fold(item);
  }
}

void FillRepair(SampleWindow& window, bool runs) {
  if (runs) {
    ShowBar(window, L"lytDetectCancel", L"lytDetectExecute");
  } else {
    ShowBar(window, L"lytDetectExecute", L"lytDetectCancel");
  }
  SetTextIn(
      window, L"txtSysdiagnosedDetectFirstTitle",
      TextOf(runs ? L"IDS_HARDWARE_DIAGNOSE_REPAIRING" : L"IDS_HARDWARE_DIAGNOSE_REPAIR_FAIL"));
  SetTextIn(window, L"txtSysdiagnoseDetectSecondTitle",
            Filled(L"IDS_HARDWARE_DIAGNOSE_ABNORM_RESULT_NUM", {L"1"}));
  SetTextIn(window, L"btnSysdiagnoseDetectBack", TextOf(L"IDS_HARDWARE_DIAGNOSE_REPAIR_CONTINUE"));
  CContainerUI& graphics = AddItem(window, kDetectList, kDetectItem, kCategories[kGraphics]);
  ShowVerdict(graphics, runs ? kAtWork : kAbnormal);
  AddTest(window, graphics, TextOf(L"IDS_HARDWARE_DIAGNOSE_GPU_DEVICE"), runs ? kAtWork : kAbnormal,
          TextOf(runs ? L"IDS_HARDWARE_DETECT_ITEM_OPERATING"
                      : L"IDS_HARDWARE_DETECT_ITEM_OPERAT_FAIL"));
  CContainerUI& bluetooth = AddItem(window, kDetectList, kDetectItem, kCategories[kBluetooth]);
  ShowVerdict(bluetooth, kPassed);
  CContainerUI& repaired =
      AddTest(window, bluetooth, TextOf(L"IDS_HARDWARE_DIAGNOSE_BLUETOOTH_DEVICE"), kPassed,
              TextOf(L"IDS_HARDWARE_DETECT_ITEM_OPERAT_SUCCESS"));
  FindAs<DuiLib::CLabelUI>(repaired, L"txtResult").SetTextColour(DuiLib::Colour::Named(L"normal"));
}

// Windows

void AddLog(SampleWindow& window, const wchar_t* icon, const wchar_t* label,
            const std::wstring& file) {
  CContainerUI& item = window.Build(L"sysdiagnose_upload_item.xml");
  ContainerIn(window, L"lstUploadItems").Add(&item);
  SampleWindow::Find(item, L"lytLoadding").SetVisible(file.empty());
  SampleWindow::Find(item, L"lytContent").SetVisible(!file.empty());
  SampleWindow::Find(item, file.empty() ? L"btnLoadding" : L"ctlContent").SetImage(Picture(icon));
  SetText(item, file.empty() ? L"lblLoadding" : L"lblName", TextOf(label));
  SetText(item, L"lblContent", file);
  if (file.empty()) FindAs<DuiLib::CFrameAnimationUI>(item, L"ctlLoadding").Play(4, 30, true);
}

void FillUpload(SampleWindow& window, bool silent) {
  AddLog(window, L"icon_velkor", L"IDS_HARDWARE_ITEM_LOG_GENERATE_APP", L"");
  window.Find(L"btnUpload").SetEnabled(false);
  if (silent) {
    window.Find(L"lytUploadNotice").SetVisible(true);
    SetTextIn(window, L"txtUploadNotice", TextOf(L"IDS_HARDWARE_DIAGNOSE_UPLOAD_SILENT"));
    window.Find(L"btnUploadRetry").SetVisible(true);
    return;
  }
  AddLog(window, L"icon_default", L"IDS_HARDWARE_ITEM_LOG_GENERATE_DEFAULT",
         L"device-2026-11-23.zip");
}

// The home page

protocol::DetectListEntry Checked(const Category& category, protocol::DisplayState state,
                                  const wchar_t* hint = nullptr) {
  protocol::DetectListEntry entry;
  entry.icon = Picture(category.icon);
  entry.caption = TextOf(category.caption);
  entry.state = state;
  entry.selected = true;
  entry.repairable = hint != nullptr;
  if (hint != nullptr) entry.resultText = TextOf(hint);
  return entry;
}

// As the module tells of a check that came to `count` categories, the last of them at work or not.
protocol::DiagnoseSummary Told(std::size_t count, bool isAtWork) {
  using protocol::DisplayState;
  protocol::DiagnoseSummary told;
  for (std::size_t index = 0; index < count; ++index) {
    const bool isAbnormal = index != kCpu && index % 2 == 0;
    told.items.push_back(Checked(kCategories[index],
                                 isAbnormal ? DisplayState::Abnormal : DisplayState::Normal,
                                 isAbnormal ? L"IDS_HARDWARE_DIAGNOSE_BATTERY_LOWVOLT" : nullptr));
  }
  if (isAtWork) told.items.back() = Checked(kCategories[count - 1], DisplayState::Running);
  told.abnormalCount = static_cast<std::uint32_t>((count - 1) / 2);
  told.headline = L"IDS_HARDWARE_DETECT_DOCTOR_ABNORMAL_NUM";
  told.resultText = Filled(told.headline.c_str(), {std::to_wstring(told.abnormalCount)});
  told.detailText = TextOf(L"IDS_HARDWARE_DETECT_DOCTOR_DETAIL");
  return told;
}

protocol::DiagnoseSummary ToldInOrder() {
  protocol::DiagnoseSummary told = Told(0, false);
  for (const Category& category : kCategories)
    told.items.push_back(Checked(category, protocol::DisplayState::Normal));
  told.headline = L"IDS_HARDWARE_DETECT_DOCTOR_INDEX_DESCRIPTION_OK";
  told.abnormalCount = 0;
  told.resultText = TextOf(L"IDS_HARDWARE_DETECT_DOCTOR_ABNORMAL_RESULT");
  return told;
}

void FillHome(SampleWindow& window, const std::function<void(manager::ModuleProgress&)>& follow) {
  SetTextIn(window, L"txtManagerProduct", L"TUSK 14");
  window.Find(L"txtManagerProduct").SetVisible(true);
  manager::OfferChoice(window.Manager(), L"lytManagerThemes",
                       {TextOf(L"IDS_MANAGER_THEME_SYSTEM"), TextOf(L"IDS_MANAGER_THEME_LIGHT"),
                        TextOf(L"IDS_MANAGER_THEME_DARK")},
                       0, {});
  manager::OfferChoice(window.Manager(), L"lytManagerLanguages", {L"en-US", L"zh-CN"}, 1, {});
  window.Find(L"lytManagerChoices").SetVisible(true);
  protocol::ModuleDescriptor descriptor;
  descriptor.mainIcon = Picture(L"index_hardware");
  descriptor.title = L"IDS_HARDWARE_DETECT";
  manager::ModuleCard card(ContainerIn(window, L"lytManagerModules"), descriptor, {});
  manager::ModuleProgress progress;
  follow(progress);
  card.Show(progress, true);
}

void FollowCheck(manager::ModuleProgress& progress) {
  progress.OnSummary(Told(std::size(kCategories), false), manager::SummaryOf::kQuietRun);
}

void FollowRepair(manager::ModuleProgress& progress) {
  FollowCheck(progress);
  progress.AskRepair();
  progress.OnTick(true);
  FollowCheck(progress);
  while (progress.IsAtWork()) progress.OnTick(true);
}

void AddNotice(SampleWindow& window, const wchar_t* id) {
  SetTextIn(window, L"txtManagerNotice", TextOf(id));
  window.Find(L"lytManagerNotice").SetVisible(true);
}

void AddTab(SampleWindow& window, const std::wstring& title, bool selected) {
  auto* const tab = dynamic_cast<DuiLib::COptionUI*>(DuiLib::CDialogBuilder().Create(
      L"layout\\manager_tab.xml", {}, &window.Manager(), &ContainerIn(window, L"lytManagerTabs")));
  if (tab == nullptr) throw std::runtime_error("manager_tab.xml is no option");
  tab->SetText(title);
  tab->Selected(selected, false);
}

}  // namespace

SampleWindow::SampleWindow(DuiLib::Size size, const SamplePreparation& prepare) : window(size) {
  Manager().SetSkinFolder(APP_DIR "/res");
  Manager().LoadTheme(L"layout\\theme.xml");
  prepare(Manager());
}

void SampleWindow::Open(const std::wstring& layout) {
  window.Open(&Build(layout));
}

void SampleWindow::FitToContent() {
  CControlUI& root = *Manager().GetRoot();
  const int width = root.GetWishedWidth();
  Manager().SetClientSize({width, root.GetWishedHeight(width)});
}

CContainerUI& SampleWindow::Build(const std::wstring& layout) {
  CControlUI* const root = DuiLib::CDialogBuilder().Create(L"layout\\" + layout, {}, &Manager());
  auto* const container = dynamic_cast<CContainerUI*>(root);
  if (container == nullptr) {
    throw std::runtime_error("no container: " + common::WideToUtf8(layout));
  }
  return *container;
}

CControlUI& SampleWindow::Find(const std::wstring& name) {
  return Find(*Manager().GetRoot(), name);
}

CControlUI& SampleWindow::Find(CControlUI& below, const std::wstring& name) {
  CControlUI* const found = DuiLib::CPaintManagerUI::FindControl(&below, name);
  if (found == nullptr) throw std::runtime_error("no control " + common::WideToUtf8(name));
  return *found;
}

const std::vector<SampleState>& SampleStates() {
  constexpr auto kHome = L"manager_home.xml";
  constexpr auto kHistory = L"sysdiagnose_archievement.xml";
  constexpr auto kScan = L"sysdiagnose_scan.xml";
  constexpr auto kDetect = L"sysdiagnose_detect.xml";
  using manager::ModuleProgress;
  using manager::SummaryOf;
  static const std::vector<SampleState> states = {
      {"home", kHome, [](SampleWindow& window) { FillHome(window, [](auto&) {}); }, L"", {}},
      {"home-waiting",
       kHome,
       [](SampleWindow& window) { FillHome(window, [](auto& progress) { progress.AskCheck(); }); },
       L"",
       {}},
      {"home-checking",
       kHome,
       [](SampleWindow& window) {
         FillHome(window, [](ModuleProgress& progress) {
           progress.OnSummary(Told(6, true), SummaryOf::kQuietRun);
         });
       },
       L"",
       {}},
      {"home-in-order",
       kHome,
       [](SampleWindow& window) {
         FillHome(window, [](ModuleProgress& progress) {
           progress.OnSummary(ToldInOrder(), SummaryOf::kQuietRun);
         });
       },
       L"",
       {}},
      {"home-result", kHome, [](SampleWindow& window) { FillHome(window, &FollowCheck); }, L"", {}},
      {"home-repaired",
       kHome,
       [](SampleWindow& window) {
         FillHome(window, &FollowRepair);
         AddNotice(window, L"IDS_MANAGER_RESTART_DRY");
       },
       L"",
       {}},
      {"empty", kHistory, FillInvitation, L"", {}},
      {"scanning", kScan, [](SampleWindow& window) { FillScanning(window, false); }, L"", {}},
      {"scan-stopping", kScan, [](SampleWindow& window) { FillScanning(window, true); }, L"", {}},
      {"scanned", kScan, [](SampleWindow& window) { FillScanned(window, true); }, L"", {}},
      {"nothing-chosen", kScan, [](SampleWindow& window) { FillScanned(window, false); }, L"", {}},
      {"detecting", kDetect, [](SampleWindow& window) { FillDetecting(window, false); }, L"", {}},
      {"stopping", kDetect, [](SampleWindow& window) { FillDetecting(window, true); }, L"", {}},
      {"result", kDetect, FillResult, L"", {}},
      {"healthy", kDetect, FillHealthy, L"", {}},
      {"repairing", kDetect, [](SampleWindow& window) { FillRepair(window, true); }, L"", {}},
      {"repair-failed", kDetect, [](SampleWindow& window) { FillRepair(window, false); }, L"", {}},
      {"upload", kDetect, FillResult, L"sysdiagnose_upload.xml",
       [](SampleWindow& window) { FillUpload(window, false); }},
      {"upload-silent", kDetect, FillResult, L"sysdiagnose_upload.xml",
       [](SampleWindow& window) { FillUpload(window, true); }},
      {"restart", kDetect, FillResult, L"sysdiagnose_restart.xml", [](SampleWindow&) {}},
      {"history", kHistory, [](SampleWindow& window) { FillHistory(window, false); }, L"", {}},
      {"cancelled", kHistory, [](SampleWindow& window) { FillHistory(window, true); }, L"", {}},
  };
  return states;
}

std::vector<std::unique_ptr<SampleWindow>> ShowSample(const SampleState& state,
                                                      const SamplePreparation& prepare) {
  std::vector<std::unique_ptr<SampleWindow>> windows;
  windows.push_back(std::make_unique<SampleWindow>(kWindow, prepare));
  SampleWindow& main = *windows.back();
  main.Open(L"manager_window.xml");
  const bool isHome = state.page.starts_with(L"manager_");
  AddTab(main, TextOf(L"IDS_MANAGER_HOME"), isHome);
  AddTab(main, TextOf(L"IDS_HARDWARE_DETECT"), !isHome);
  CContainerUI& page = main.Build(isHome ? state.page : L"sysdiagnose_index.xml");
  ContainerIn(main, L"tblManagerContent").Add(&page);
  if (!isHome) FindAs<CContainerUI>(page, L"tblSysdiagnoseContent").Add(&main.Build(state.page));
  state.fill(main);
  main.Manager().LayOut();
  if (state.over.empty()) return windows;
  windows.push_back(std::make_unique<SampleWindow>(kWindow, prepare));
  SampleWindow& over = *windows.back();
  over.Open(state.over);
  state.fillOver(over);
  over.FitToContent();
  over.Manager().LayOut();
  return windows;
}
