#include "manager/host/module_progress.h"

#include <gmock/gmock.h>

namespace {

using manager::ModulePhase;
using manager::ModuleProgress;
using manager::SummaryOf;
using protocol::DetectListEntry;
using protocol::DisplayState;
using testing::ElementsAre;
using testing::IsEmpty;
using Request = ModuleProgress::Request;

constexpr bool kIdle = true;
constexpr bool kBusy = false;

DetectListEntry Entry(std::int32_t category, DisplayState state, bool repairable = false) {
  DetectListEntry entry;
  entry.category = category;
  entry.caption = L"category " + std::to_wstring(category);
  entry.state = state;
  entry.repairable = repairable;
  return entry;
}

protocol::DiagnoseSummary Told(std::vector<DetectListEntry> items) {
  protocol::DiagnoseSummary summary;
  summary.items = std::move(items);
  return summary;
}

const auto kAtWork = Told({Entry(1, DisplayState::Normal), Entry(2, DisplayState::Running)});
const auto kFaulty = Told({Entry(1, DisplayState::Normal), Entry(2, DisplayState::Abnormal, true),
                           Entry(3, DisplayState::Abnormal)});

class ModuleProgressTest : public testing::Test {
 protected:
  void TickUntilItEnds() {
    for (int tick = 0; tick < 1000 && progress.IsAtWork(); ++tick) progress.OnTick(kIdle);
  }

  ModuleProgress progress;
};

TEST_F(ModuleProgressTest, AWaitingCheckBeginsOnceAndWhenNothingIsAtWork) {
  progress.AskCheck();
  EXPECT_EQ(progress.OnTick(kBusy), Request::kNone);
  EXPECT_EQ(progress.Phase(), ModulePhase::kWaiting);
  EXPECT_EQ(progress.OnTick(kIdle), Request::kCheck);
  progress.AskCheck();
  progress.AskRepair();
  EXPECT_EQ(progress.OnTick(kBusy), Request::kNone);
  EXPECT_EQ(progress.Phase(), ModulePhase::kChecking);
}

TEST_F(ModuleProgressTest, WhatWaitsIsGivenUpAndShowsWhatWasKnown) {
  progress.OnSummary(kFaulty, SummaryOf::kQuietRun);
  progress.AskRepair();
  EXPECT_FALSE(progress.AskStop()) << "the module knows nothing of it";
  EXPECT_EQ(progress.Phase(), ModulePhase::kResult);
  EXPECT_EQ(progress.OnTick(kIdle), Request::kNone);
}

// One that throws says nothing any more, before its first word or behind it.
TEST_F(ModuleProgressTest, ACheckThatEndsWithoutAResultIsBrokenOff) {
  progress.AskCheck();
  progress.OnTick(kIdle);
  for (int tick = 0; tick < 10; ++tick) progress.OnTick(kIdle);
  EXPECT_EQ(progress.Phase(), ModulePhase::kChecking) << "its first word may be on its way";
  TickUntilItEnds();
  EXPECT_EQ(progress.Phase(), ModulePhase::kBrokenOff);

  progress.AskCheck();
  progress.OnTick(kIdle);
  progress.OnSummary(kAtWork, SummaryOf::kQuietRun);
  for (int tick = 0; tick < 1000; ++tick) progress.OnTick(kBusy);
  EXPECT_EQ(progress.Phase(), ModulePhase::kChecking) << "a long test is none that has ended";
  progress.OnTick(kIdle);
  progress.OnTick(kIdle);
  EXPECT_EQ(progress.Phase(), ModulePhase::kBrokenOff);
  EXPECT_EQ(progress.CheckedCount(), 1u);
}

TEST_F(ModuleProgressTest, AStoppedCheckClaimsNoMoreThanWasChecked) {
  progress.OnSummary(kAtWork, SummaryOf::kQuietRun);
  EXPECT_TRUE(progress.AskStop());
  progress.OnSummary(Told({Entry(1, DisplayState::Normal), Entry(2, DisplayState::Normal)}),
                     SummaryOf::kQuietRun);
  EXPECT_EQ(progress.Phase(), ModulePhase::kStopped);
  EXPECT_EQ(progress.CheckedCount(), 2u);
}

TEST_F(ModuleProgressTest, ARepairIsOfferedForWhatAQuietCheckFoundAlone) {
  progress.OnSummary(kFaulty, SummaryOf::kQuietRun);
  EXPECT_THAT(progress.Repairable(), ElementsAre(2));
  progress.OnSummary(kFaulty, SummaryOf::kRunOfPages);
  EXPECT_THAT(progress.Repairable(), IsEmpty());
}

TEST_F(ModuleProgressTest, ARepairEndsWithItsTaskAndSaysWhatIsLeft) {
  progress.OnSummary(kFaulty, SummaryOf::kQuietRun);
  progress.AskRepair();
  EXPECT_EQ(progress.OnTick(kIdle), Request::kRepair);
  progress.OnSummary(kFaulty, SummaryOf::kQuietRun);
  EXPECT_EQ(progress.Phase(), ModulePhase::kRepairing) << "it tells of each repair";
  TickUntilItEnds();
  EXPECT_EQ(progress.Phase(), ModulePhase::kResult);
  EXPECT_TRUE(progress.IsRepairIncomplete());
  progress.OnSummary(kFaulty, SummaryOf::kQuietRun);
  EXPECT_FALSE(progress.IsRepairIncomplete()) << "that is of another check";
}

TEST_F(ModuleProgressTest, ARunOfThePagesDoesNotEndAQuietOne) {
  progress.OnSummary(kAtWork, SummaryOf::kQuietRun);
  progress.OnSummary(kFaulty, SummaryOf::kRunOfPages);
  EXPECT_EQ(progress.Phase(), ModulePhase::kChecking);
  EXPECT_EQ(progress.Running(), L"category 2");
}

}  // namespace
