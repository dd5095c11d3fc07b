#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "platform/grid.h"

namespace views {

/// Finds the rows of a grid by their text in column 0, without the blanks at its ends, and keeps
/// rows in the order of it. The grid outlives it and may be changed by anybody: what the names
/// were known for is then learned anew.
class RowNames {
 public:
  explicit RowNames(platform::Grid& grid) : grid_(grid) {}

  /// First row from 1 on with that name; 0 when there is none.
  [[nodiscard]] int Find(std::string_view name);
  /// The same of the whole text, blanks included.
  [[nodiscard]] int FindWhole(std::string_view text);
  /// A new last row with that text; its number.
  int Add(std::string_view text);

  /// The rows have just been sorted by column 0.
  void NoteOrder() { ordered_at_ = grid_.name_changes(); }
  /// No name has changed since.
  [[nodiscard]] bool in_order() const { return ordered_at_ == grid_.name_changes(); }
  /// Puts the last row, the one thing added since `in_order` held, in its place by its text, and
  /// gives that.
  int PlaceLast();

 private:
  using Key = std::size_t;

  [[nodiscard]] Key KeyAt(int row) const;
  [[nodiscard]] bool learned() const { return learned_at_ == grid_.name_changes(); }
  void Learn();
  template <typename Fits>
  [[nodiscard]] int FindFirst(Key key, const Fits& fits);

  platform::Grid& grid_;
  std::vector<Key> keys_;  // by row
  unsigned learned_at_ = ~0U, ordered_at_ = ~0U;
};

}  // namespace views
