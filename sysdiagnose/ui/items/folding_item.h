#pragma once

#include <functional>
#include <memory>

#include "sysdiagnose/catalogue/detect_catalogue.h"
#include "sysdiagnose/ui/page/control_tree.h"

namespace orv::sysdiagnose {

/// A category in a list: a title, and below it rows that unfold step by step. Holds on to controls
/// of a tree that its list owns; to be forgotten when they go. UI thread only.
class FoldingItem {
 public:
  static constexpr int kRowHeight = 32;
  static constexpr int kLeastRowsHeight = 64;
  static constexpr int kFoldedPadding = 17;
  static constexpr int kUnfoldingStep = 20;

  FoldingItem(const FoldingItem&) = delete;
  FoldingItem& operator=(const FoldingItem&) = delete;

  DuiLib::CContainerUI& GetTree() const { return tree; }

  /// One step of unfolding; whether the item is now as open as it is to be.
  bool Unfold();
  /// Called when a person's click on the fold sign has ended the unfolding.
  void SetUnfoldedHook(std::function<void()> hook) { unfolded = std::move(hook); }
  bool IsFolded() const { return fold == Fold::kFolded || fold == Fold::kClosed; }

  /// The divider to the item below.
  void ShowLine();

 protected:
  /// Fills the title from the category, if there is one; folded, without rows.
  FoldingItem(DuiLib::CContainerUI& ofTree, DuiLib::CPaintManagerUI* ofManager,
              const DetectCategory* category);
  ~FoldingItem();

  DuiLib::CPaintManagerUI* GetManager() const { return manager; }
  template <typename Class>
  Class* Find(const wchar_t* name) const {
    return FindBelow<Class>(&tree, name);
  }

  /// Takes the row over; it unfolds unless a person has closed the item.
  void AddRow(std::unique_ptr<DuiLib::CControlUI> row);

 private:
  enum class Fold { kFolded, kUnfolding, kOpen, kClosed };

  void FillTitle(const DetectCategory& category);
  void Toggle();
  void SetFold(Fold value);
  int FoldedHeight() const;
  int OpenHeight() const;

  DuiLib::CContainerUI& tree;
  DuiLib::CPaintManagerUI* const manager;
  DuiLib::CControlUI* const title;
  DuiLib::CControlUI* const content;
  DuiLib::CContainerUI* const rows;
  Fold fold = Fold::kFolded;
  int height = 0;
  std::function<void()> unfolded;
  std::shared_ptr<const void> alive = std::make_shared<char>();
};

}  // namespace orv::sysdiagnose
