#include "cli/json_run_end.h"

#include "cli/json_line.h"

namespace cli {
namespace {

std::string Worst(const RunVerdicts& verdicts) {
  return NameOf(verdicts.Worst());
}

}  // namespace

void PrintFinished(int abnormal, int firstAbnormal, const RunVerdicts& verdicts) {
  JsonLine("finished")
      .Add("abnormal", std::int64_t{abnormal})
      .Add("firstAbnormal", std::int64_t{firstAbnormal})
      .Add("verdict", Worst(verdicts));
}

void PrintCancelled(const RunVerdicts& verdicts) {
  JsonLine("cancelled").Add("verdict", Worst(verdicts));
}

void PrintFailed(const std::string& error, const RunVerdicts& verdicts) {
  JsonLine("failed").Add("error", error).Add("verdict", Worst(verdicts));
}

}  // namespace cli
