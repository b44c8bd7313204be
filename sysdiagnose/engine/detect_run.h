#pragma once

#include <memory>

#include "sysdiagnose/engine/diagnose_engine.h"

namespace orv::sysdiagnose {

/// The body of a detection run; owns all it needs.
struct DetectRun {
  std::shared_ptr<RunModel> model;
  std::shared_ptr<TestObjects> objects;
  RunStops::Token stop;
  CategoryCallbacks callbacks;
  CancelledCallback cancelled;
  DetectFinishedCallback finished;
  CategoryVerdictCallback verdict;  // may be empty

  void Run() const;
};

}  // namespace orv::sysdiagnose
