#pragma once

#include <vector>

#include "shell/window/RectControl.h"
#include "shell/window/TextStyle.h"

namespace veldrin {

/// A drop-down list with at most one selected row. It raises "Change" when the user or the program
/// selects another row.
class PopupMenu final : public Described<PopupMenu, RectControl>, public TextStyle {
 public:
  static constexpr FixedString FullName = "PopupMenu";
  static void fillTable(ClassTable<PopupMenu>& table);

  PopupMenu() : TextStyle(static_cast<Control&>(*this)) {}

  struct Events : RectControl::Events {
    static constexpr Event<void()> Change{"Change"_s};
  };

  [[nodiscard]] std::int32_t ListCount() const { return static_cast<std::int32_t>(rows_.size()); }
  /// The text of a row; rows count from 0. Raises `OutOfBoundsException` if there is no such row.
  [[nodiscard]] String List(std::int32_t row) const;
  /// Adds a row at the end.
  void AddRow(String text);

  /// The selected row, or -1 if there is none.
  [[nodiscard]] std::int32_t ListIndex() const { return listIndex_; }
  /// Selects a row, or none if there is no such row.
  void ListIndex(std::int32_t row);
  /// The text of the selected row, empty if there is none.
  [[nodiscard]] String Text() const;

  /// The initial rows, separated or ended by carriage returns.
  [[nodiscard]] String InitialValue() const { return initialValue_; }
  /// Replaces the rows and selects none.
  void InitialValue(String rows);

  /// The user has chosen a row. Ignored if the list is disabled.
  void userChose(std::int32_t row);

  String DataSource;
  String DataField;

 private:
  [[nodiscard]] bool isFocusable() const override { return true; }

  bool select(std::int32_t row);  ///< returns whether the selection has changed

  std::vector<String> rows_;
  std::int32_t listIndex_ = -1;
  String initialValue_;
};

}  // namespace veldrin
