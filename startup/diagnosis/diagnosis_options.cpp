#include "startup/diagnosis/diagnosis_options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <vector>

#include "common/path_option.h"
#include "platform/duilib/culture/culture.h"
#include "platform/message/message_capture.h"
#include "platform/os/paths.h"
#include "startup/language.h"

namespace startup {

using common::AddPathOption;

void AddDiagnosisOptions(CLI::App& app, DiagnosisOptions& options) {
  AddPathOption(app, "--machine", options.machineFile,
                "Diagnose the machine that FILE describes instead of this one");
  AddPathOption(app, "--data-dir", options.dataFolder,
                "Folder for history, events and log (default: the user's data folder)", "DIR");
  AddPathOption(app, "--app-dir", options.appFolder,
                "Installation folder whose config/ is read (default: that of this program)", "DIR");
  AddPathOption(app, "--system-root", options.systemRoot,
                "Read /proc, /sys and the product version file below DIR", "DIR");
  app.add_flag("--external", options.externalDisks,
               "Count plugged-in disks (USB, SD cards) among this machine's too");
  app.add_option("--lang", options.language, "Language of the texts, a file of res/culture, or ids")
      ->type_name("LANG");
  app.add_flag("--capture", options.capture,
               "Write every message that is posted to messages.jsonl in the data folder");
}

std::string PutDiagnosisInForce(const DiagnosisOptions& options,
                                const std::function<std::string()>& remembered) {
  PutInForce(options);
  const std::filesystem::path resources = os::InstallationFolder() / "res";
  const std::string before = remembered ? remembered() : "";
  const std::vector<std::string> known = Languages(resources);
  const bool isKnown = std::count(known.begin(), known.end(), before) != 0;
  const std::string language = !options.language.empty()
                                   ? NamedLanguage(options.language, resources)
                               : isKnown ? before
                                         : UserLanguage(resources);
  DuiLib::UICulture::GetInstance()->SetLanguage(language, resources);
  if (options.capture) message::StartCapture(os::DataFolder() / "messages.jsonl");
  return language;
}

}  // namespace startup
