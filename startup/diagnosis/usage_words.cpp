#include "startup/diagnosis/usage_words.h"

#include <array>
#include <string_view>

#include "startup/command_line.h"
#include "startup/diagnosis/help_text.h"

namespace startup {
namespace {

// Words of the parser's own in a help text.
struct LabelRow {
  const char* label;
  const wchar_t* id;
};
constexpr auto kLabels = std::to_array<LabelRow>({{"Usage", L"LABEL_USAGE"},
                                                  {"Positionals", L"LABEL_POSITIONALS"},
                                                  {"OPTIONS", L"LABEL_OPTIONS"},
                                                  {"SUBCOMMAND", L"LABEL_COMMAND"},
                                                  {"REQUIRED", L"LABEL_REQUIRED"},
                                                  {"Needs", L"LABEL_NEEDS"},
                                                  {"Excludes", L"LABEL_EXCLUDES"}});

// What the parser finds wrong, by the words that stand between the names in its sentence.
struct FaultRow {
  std::string_view between;
  const wchar_t* id;
};
constexpr auto kFaults =
    std::to_array<FaultRow>({{"A subcommand is required", L"COMMAND_REQUIRED"},
                             {" is required", L"WORD_REQUIRED"},
                             {" requires ", L"NEEDS"},
                             {" excludes ", L"EXCLUDES"},
                             {": 1 required ", L"VALUE_MISSING"},
                             {": At Most 1 required", L"GIVEN_TWICE"},
                             {" was given a disallowed flag override", L"TAKES_NO_VALUE"},
                             {": Should be true/false or a number", L"TAKES_NO_VALUE"},
                             {"Could not convert: ", L"NO_SUCH_VALUE"}});

std::string FaultText(const std::string& said) {
  for (const auto& [between, id] : kFaults) {
    const std::size_t at = said.find(between);
    if (at != std::string::npos)
      return HelpText(id, {said.substr(0, at), said.substr(at + between.size())});
  }
  return said;
}

}  // namespace

void SpeakInHelp(CLI::App& app) {
  for (const auto& [label, id] : kLabels) app.get_formatter()->label(label, HelpText(id));
  app.option_defaults()->group(HelpText(L"OPTIONS"));
  app.set_help_flag("-h,--help", HelpText(L"HELP"));
}

std::string UsageWords(const CLI::App& app, const CLI::ParseError& error) {
  const std::string unknown = UnknownWord(app);
  const std::string fault =
      unknown.empty() ? FaultText(error.what()) : HelpText(L"UNKNOWN_WORD", {unknown});
  return HelpText(L"SEE_HELP", {fault, app.get_name() + " --help"});
}

}  // namespace startup
