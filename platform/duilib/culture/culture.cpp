#include "platform/duilib/culture/culture.h"

#include <exception>
#include <string_view>
#include <utility>

#include "common/log.h"
#include "common/text.h"
#include "platform/duilib/culture/culture_file.h"
#include "platform/duilib/culture/message_pattern.h"
#include "platform/os/paths.h"

namespace DuiLib {
namespace {

constexpr const char* kFallbackLanguage = "en-US";
constexpr const char* kIdsLanguage = "ids";

CultureTexts ReadWithFallback(const std::filesystem::path& folder, const std::string& language) {
  CultureTexts texts = ReadCulture(folder, language);
  if (language != kFallbackLanguage) texts.merge(ReadCulture(folder, kFallbackLanguage));
  return texts;
}

std::wstring IdWithArguments(const std::wstring& id, int arguments) {
  std::wstring text = id;
  for (int index = 0; index < arguments; ++index) {
    text += (index == 0 ? L"({" : L",{") + std::to_wstring(index) + L"}";
  }
  return arguments > 0 ? text + L")" : text;
}

// With the arguments of a text, and a link where the text has one, so that it can be followed.
std::wstring IdText(const std::wstring& id, const std::wstring& text) {
  const std::wstring shown = IdWithArguments(id, PatternArguments(text));
  return text.find(L"{a}") == std::wstring::npos ? shown : L"{a}" + shown + L"{/a}";
}

CultureTexts IdTexts(const std::filesystem::path& folder) {
  CultureTexts texts;
  if (!std::filesystem::exists(folder / (std::string(kFallbackLanguage) + ".xml"))) return texts;
  for (const auto& [id, text] : ReadCulture(folder, kFallbackLanguage))
    texts[id] = IdText(id, text);
  return texts;
}

CultureTexts InstalledTexts() {
  try {
    return ReadCulture(os::InstallationFolder() / "res" / "culture", kFallbackLanguage);
  } catch (const std::exception& error) {
    COMMON_LOG_ERROR(log4cxx::Logger::getLogger("orv.duilib"),
                     std::string("no texts for the user interface: ") + error.what());
    return {};
  }
}

}  // namespace

struct UICulture::Table {
  CultureTexts texts;
};

UICulture::UICulture() = default;
UICulture::~UICulture() = default;

UICulture* UICulture::GetInstance() {
  static UICulture& culture = *new UICulture;
  return &culture;
}

void UICulture::SetLanguage(const std::string& language, const std::filesystem::path& resources) {
  const auto folder = resources / "culture";
  const auto fresh = std::make_shared<const Table>(
      Table{language == kIdsLanguage ? IdTexts(folder) : ReadWithFallback(folder, language)});
  const std::lock_guard lock(mutex);
  table = fresh;
}

// Held by who reads it, so that it lives as long as it is read.
std::shared_ptr<const UICulture::Table> UICulture::InUse() const {
  const std::lock_guard lock(mutex);
  if (!table) table = std::make_shared<const Table>(Table{InstalledTexts()});
  return table;
}

CDuiString UICulture::GetString(const CDuiString& id) const {
  const auto inUse = InUse();
  const auto found = inUse->texts.find(id);
  return found == inUse->texts.end() ? id : found->second;
}

CDuiString UICulture::GetMultiVarStr(const CDuiString& id,
                                     const std::vector<CDuiString>& arguments) const {
  return FillPattern(GetString(id), arguments);
}

CDuiString UICulture::ParseBind(const CDuiString& expression) const {
  constexpr std::wstring_view kOpening = L"bind='";
  if (!expression.starts_with(kOpening)) return expression;
  const auto closing = expression.find(L'\'', kOpening.size());
  if (closing == CDuiString::npos || closing + 1 != expression.size()) return expression;
  return GetString(expression.substr(kOpening.size(), closing - kOpening.size()));
}

}  // namespace DuiLib
