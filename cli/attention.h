#pragma once

#include <string>
#include <vector>

#include "cli/item_words.h"
#include "cli/verdict.h"
#include "sysdiagnose/base/hardware_id.h"
#include "sysdiagnose/engine/detect_item_detail.h"

namespace cli {

/// Abnormal items of one device that ask for the same.
struct AttentionLine {
  std::wstring device;                // may be empty
  std::vector<std::wstring> items;    // none: a test that is no item
  std::wstring hint;                  // the engine's; may be empty
  std::wstring advice;                // what completes it; may be empty
  std::vector<std::wstring> details;  // what the test libraries said

  /// Device and items in the language in force.
  std::wstring Heading() const;

  /// Hint and advice.
  std::wstring WhatToDo() const;
};

struct Attention {
  orv::sysdiagnose::enmHardwareID category{};
  bool repairOffered = false;
  std::vector<AttentionLine> lines;
};

/// What an owner should look at after a run, and what to do about it; nothing stands in it twice.
class AttentionList {
 public:
  /// An item; `device` names it where the category's own device summary does not.
  void AddItem(orv::sysdiagnose::enmHardwareID category, const std::wstring& device,
               const orv::sysdiagnose::tagDetectItemDetail& detail, const ItemWords& words);

  /// The rest of the category was left out: `text` says more than the hint of the item that failed,
  /// but what to do about that only as long as no advice tells it better.
  void AddUnknown(orv::sysdiagnose::enmHardwareID category, const std::wstring& text);

  /// Said by a test that is no item.
  void AddWords(orv::sysdiagnose::enmHardwareID category, const ItemWords& words);

  void AddRepairOffer(orv::sysdiagnose::enmHardwareID category);

  /// The abnormal categories in the order of the run.
  std::vector<Attention> Of(const RunVerdicts& verdicts) const;

 private:
  struct Noted {
    Attention shown;
    std::vector<std::wstring> said;
  };

  Noted& Of(orv::sysdiagnose::enmHardwareID category);

  std::vector<Noted> categories;
};

}  // namespace cli
