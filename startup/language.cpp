#include "startup/language.h"

#include <algorithm>
#include <string_view>

#include "common/path_text.h"
#include "platform/os/folder_entries.h"
#include "platform/os/user_locale.h"

namespace startup {
namespace {

constexpr std::string_view kIds = "ids";  // shows the ids of the texts

// "zh-CN" of "zh_CN.UTF-8".
std::string LanguageOf(std::string locale) {
  locale.resize(std::min(locale.find_first_of(".@"), locale.size()));
  std::replace(locale.begin(), locale.end(), '_', '-');
  return locale;
}

}  // namespace

std::vector<std::string> Languages(const std::filesystem::path& resources) {
  std::vector<std::string> languages;
  for (const auto& file : os::EntriesOf(resources / "culture"))
    if (file.extension() == ".xml") languages.push_back(common::PathText(file.stem()));
  std::sort(languages.begin(), languages.end());
  return languages;
}

std::string UserLanguage(const std::filesystem::path& resources) {
  const std::vector<std::string> languages = Languages(resources);
  const std::string asked = LanguageOf(os::UserLocale());
  if (std::count(languages.begin(), languages.end(), asked) != 0) return asked;
  const std::string anywhere = asked.substr(0, asked.find('-')) + "-";
  const auto near = std::find_if(
      languages.begin(), languages.end(),
      [&anywhere](const std::string& language) { return language.starts_with(anywhere); });
  return near == languages.end() ? "en-US" : *near;
}

std::vector<std::string> NamedLanguages(const std::filesystem::path& resources) {
  std::vector<std::string> known = Languages(resources);
  known.emplace_back(kIds);
  return known;
}

}  // namespace startup
