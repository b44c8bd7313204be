#include "startup/diagnosis/diagnosis_options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <exception>
#include <string_view>

#include "common/path_option.h"
#include "platform/duilib/culture/culture.h"
#include "platform/message/message_capture.h"
#include "platform/os/paths.h"
#include "startup/diagnosis/help_text.h"
#include "startup/language.h"
#include "startup/usage_error.h"

namespace startup {

using common::AddPathOption;

namespace {

constexpr std::string_view kLanguageOption = "--lang";

std::filesystem::path Resources() {
  return os::InstallationFolder() / "res";
}

bool IsLanguage(const std::string& name) {
  return std::ranges::count(NamedLanguages(Resources()), name) != 0;
}

void RequireLanguage(const std::string& name) {
  if (IsLanguage(name)) return;
  std::string names;
  for (const std::string& each : NamedLanguages(Resources()))
    names += (names.empty() ? "" : ", ") + each;
  throw UsageError(HelpText(L"UNKNOWN_LANGUAGE", {name, names}));
}

// The user's own language where that is none. Returns the one in force.
std::string Speak(const std::string& wanted) {
  const std::string language = IsLanguage(wanted) ? wanted : UserLanguage(Resources());
  DuiLib::UICulture::GetInstance()->SetLanguage(language, Resources());
  return language;
}

// The last one named, as it stands before anything is known of the other words.
std::string LanguageNamedIn(int argc, const char* const* argv) {
  std::string named;
  for (int i = 1; i < argc; ++i) {
    const std::string_view word = argv[i];
    if (word == kLanguageOption && i + 1 < argc) named = argv[i + 1];
    if (word.starts_with(kLanguageOption) && word.substr(kLanguageOption.size()).starts_with('='))
      named = word.substr(kLanguageOption.size() + 1);
  }
  return named;
}

}  // namespace

void AddDiagnosisOptions(CLI::App& app, DiagnosisOptions& options) {
  AddPathOption(app, "--machine", options.machineFile, HelpText(L"MACHINE"));
  AddPathOption(app, "--data-dir", options.dataFolder, HelpText(L"DATA_DIR"), "DIR");
  AddPathOption(app, "--app-dir", options.appFolder, HelpText(L"APP_DIR"), "DIR");
  AddPathOption(app, "--system-root", options.systemRoot, HelpText(L"SYSTEM_ROOT"), "DIR");
  app.add_flag("--external", options.externalDisks, HelpText(L"EXTERNAL"));
  app.add_option(std::string(kLanguageOption), options.language, HelpText(L"LANG"))
      ->type_name("LANG");
  app.add_flag("--capture", options.capture, HelpText(L"CAPTURE"));
}

void SpeakAsTheCommandLineAsks(int argc, const char* const* argv) {
  try {
    Speak(LanguageNamedIn(argc, argv));
  } catch (const std::exception&) {
    // Said when the language is put in force; help needs none.
  }
}

std::string PutDiagnosisInForce(const DiagnosisOptions& options,
                                const std::function<std::string()>& remembered) {
  PutInForce(options);
  if (!options.language.empty()) RequireLanguage(options.language);
  const std::string before = remembered ? remembered() : "";
  const std::string language = Speak(options.language.empty() ? before : options.language);
  if (options.capture) message::StartCapture(os::DataFolder() / "messages.jsonl");
  return language;
}

}  // namespace startup
