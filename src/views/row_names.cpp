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
  if (learned()) return;
  learned_at_ = grid_.name_changes();
  keys_.clear();
  for (int row = 0; row < grid_.rows(); ++row) keys_.push_back(KeyAt(row));
}

template <typename Fits>
int RowNames::FindFirst(Key key, const Fits& fits) {
  Learn();
  if (keys_.empty()) return 0;
  for (auto at = keys_.begin() + 1;; ++at) {
    at = std::find(at, keys_.end(), key);
    if (at == keys_.end()) return 0;
    const auto row = static_cast<int>(at - keys_.begin());
    if (fits(grid_.text(row, 0))) return row;
  }
}

int RowNames::Find(std::string_view name) {
  return FindFirst(KeyOf(name), [&](std::string_view text) { return base::Trim(text) == name; });
}

int RowNames::FindWhole(std::string_view text) {
  return FindFirst(KeyOf(base::Trim(text)), [&](std::string_view other) { return other == text; });
}

int RowNames::Add(std::string_view text) {
  const bool knew_others = learned();
  const int row = grid_.AddRow();
  grid_.set_text(row, 0, text);
  if (knew_others) {
    keys_.push_back(KeyAt(row));
    learned_at_ = grid_.name_changes();
  }
  return row;
}

int RowNames::PlaceLast() {
  const bool knew_all = learned();
  const int place = grid_.SortRow(grid_.rows() - 1, 0);
  if (knew_all) {
    std::rotate(keys_.begin() + place, keys_.end() - 1, keys_.end());
    learned_at_ = grid_.name_changes();
  }
  NoteOrder();
  return place;
}

}  // namespace views
