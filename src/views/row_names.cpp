#include "views/row_names.h"

#include <algorithm>
#include <functional>

#include "base/text.h"

namespace views {
namespace {

std::size_t KeyOf(std::string_view name) { return std::hash<std::string_view>{}(name); }

}  // namespace

RowNames::Key RowNames::KeyAt(int row) const { return KeyOf(base::Trim(grid_.text(row, 0))); }

void RowNames::Learn() {
  if (learned_at_ == grid_.name_changes()) return;
  learned_at_ = grid_.name_changes();
  keys_.clear();
  for (int row = 0; row < grid_.rows(); ++row) keys_.push_back(KeyAt(row));
}

int RowNames::Find(std::string_view name) {
  Learn();
  if (keys_.empty()) return 0;
  const Key key = KeyOf(name);
  for (auto at = keys_.begin() + 1;; ++at) {
    at = std::find(at, keys_.end(), key);
    if (at == keys_.end()) return 0;
    const auto row = static_cast<int>(at - keys_.begin());
    if (base::Trim(grid_.text(row, 0)) == name) return row;
  }
}

int RowNames::PlaceLast() {
  const bool knew_others = learned_at_ == ordered_at_;  // both from before the row came
  const int place = grid_.SortRow(grid_.rows() - 1, 0);
  if (knew_others) {
    keys_.insert(keys_.begin() + place, KeyAt(place));
    learned_at_ = grid_.name_changes();
  }
  NoteOrder();
  return place;
}

}  // namespace views
