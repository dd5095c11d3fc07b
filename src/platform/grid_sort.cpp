#include <algorithm>
#include <compare>
#include <cstdint>
#include <numeric>
#include <optional>
#include <string>

#include "base/ansi.h"
#include "base/text.h"
#include "base/val.h"
#include "platform/grid.h"

namespace platform {

namespace {

enum class Kind : std::uint8_t { empty, number, text };

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

std::size_t CountDigits(std::string_view text) {
  return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), IsDigit) -
                                  text.begin());
}

// The value of a text that is a number as a whole, or nothing. Its "," must stand before groups of
// three digits.
std::optional<double> NumberOf(std::string_view text) {
  constexpr std::string_view kFirst = "+-.0123456789";
  if (text.empty() || kFirst.find(text[0]) == std::string_view::npos) return std::nullopt;
  if (text.back() == '%') text.remove_suffix(1);
  std::size_t at = text[0] == '-' || text[0] == '+' ? 1 : 0;
  std::size_t digits = CountDigits(text.substr(at));
  at += digits;
  std::string plain(text.substr(0, at));
  while (digits > 0 && at < text.size() && text[at] == ',') {
    if (CountDigits(text.substr(at + 1)) != 3) return std::nullopt;
    plain += text.substr(at + 1, 3);
    at += 4;
  }
  if (at < text.size() && text[at] == '.') {
    const std::size_t decimals = CountDigits(text.substr(at + 1));
    plain += text.substr(at, decimals + 1);
    at += decimals + 1;
    digits += decimals;
  }
  if (digits == 0 || at < text.size()) return std::nullopt;
  return base::Val(plain);
}

// What one cell is sorted by.
struct Key {
  Kind kind = Kind::empty;
  double number = 0;
  std::size_t folded_at = 0, folded_size = 0;  // place of the text without case
  std::string_view raw;
};

// The keys of all cells of the sort, row by row. The cells must stay while it lives.
class Keys {
 public:
  Keys(std::size_t rows, std::size_t cols) : cols_(cols) { keys_.reserve(rows * cols); }

  void Add(std::string_view cell) {
    Key key;
    const std::string_view trimmed = base::Trim(cell);
    if (trimmed.empty()) {
      key.kind = Kind::empty;
    } else if (const auto number = NumberOf(trimmed)) {
      key.kind = Kind::number;
      key.number = *number;
    } else {
      key.kind = Kind::text;
      key.raw = cell;
      key.folded_at = folded_.size();
      Fold(cell);
      key.folded_size = folded_.size() - key.folded_at;
    }
    keys_.push_back(key);
  }

  [[nodiscard]] bool Less(std::size_t row1, std::size_t row2) const {
    for (std::size_t c = 0; c < cols_; ++c) {
      const auto order = Compare(keys_[row1 * cols_ + c], keys_[row2 * cols_ + c]);
      if (order != 0) return order < 0;
    }
    return false;
  }

 private:
  void Fold(std::string_view cell) {
    const std::size_t begin = folded_.size();
    folded_ += cell;
    unsigned seen = 0;
    for (auto c = folded_.begin() + static_cast<std::ptrdiff_t>(begin); c != folded_.end(); ++c) {
      seen |= static_cast<unsigned char>(*c);
      if (*c >= 'a' && *c <= 'z') *c = static_cast<char>(*c - 'a' + 'A');
    }
    if (seen < 0x80) return;
    folded_.resize(begin);
    folded_ += base::UpperUtf8(cell);
  }

  [[nodiscard]] std::string_view Folded(const Key& key) const {
    return std::string_view(folded_).substr(key.folded_at, key.folded_size);
  }

  [[nodiscard]] std::weak_ordering Compare(const Key& a, const Key& b) const {
    if (a.kind != b.kind) return a.kind <=> b.kind;
    if (a.kind == Kind::number) return std::weak_order(a.number, b.number);
    if (const int order = Folded(a).compare(Folded(b)); order != 0) return order <=> 0;
    return a.raw.compare(b.raw) <=> 0;
  }

  std::size_t cols_;
  std::vector<Key> keys_;
  std::string folded_;
};

// Stable. Mostly a few rows have been added below rows that are in order. False when all were.
template <typename Less>
bool SortMostlySorted(std::vector<int>& order, const Less& less) {
  const auto tail = std::is_sorted_until(order.begin(), order.end(), less);
  if (tail == order.end()) return false;
  std::stable_sort(tail, order.end(), less);
  std::inplace_merge(order.begin(), tail, order.end(), less);
  return true;
}

}  // namespace

std::vector<int> Grid::SortAscending() {
  std::vector<int> former(rows_.size());
  std::iota(former.begin(), former.end(), 0);
  const auto [first_row, last_row] = std::minmax(row_, row_sel_);
  const auto [first_col, last_col] = std::minmax(col_, col_sel_);
  if (!Inside(last_row, last_col)) return former;

  const auto count = static_cast<std::size_t>(last_row - first_row + 1);
  Keys keys(count, static_cast<std::size_t>(last_col - first_col + 1));
  for (int r = first_row; r <= last_row; ++r) {
    for (int c = first_col; c <= last_col; ++c) keys.Add(text(r, c));
  }
  std::vector<int> order(count);
  std::iota(order.begin(), order.end(), 0);
  const auto less = [&](int a, int b) {
    return keys.Less(static_cast<std::size_t>(a), static_cast<std::size_t>(b));
  };
  if (!SortMostlySorted(order, less)) return former;

  // Most rows at the top stay where they are.
  std::size_t first_moved = 0;
  while (order[first_moved] == static_cast<int>(first_moved)) ++first_moved;
  std::vector<Row> sorted;
  sorted.reserve(count - first_moved);
  for (std::size_t i = first_moved; i < count; ++i) {
    const int from = first_row + order[i];
    sorted.push_back(std::move(rows_[static_cast<std::size_t>(from)]));
    former[static_cast<std::size_t>(first_row) + i] = from;
  }
  std::move(sorted.begin(), sorted.end(),
            rows_.begin() + first_row + static_cast<std::ptrdiff_t>(first_moved));
  ++name_changes_;
  TouchAll();
  return former;
}

int Grid::SortRow(int row, int col) {
  if (!Inside(row, col)) return row;
  int first = 1, end = row;  // the place is in first..end
  while (first < end) {
    const int middle = (first + end) / 2;
    Keys keys(2, 1);
    keys.Add(text(row, col));
    keys.Add(text(middle, col));
    if (keys.Less(0, 1)) {
      end = middle;
    } else {
      first = middle + 1;
    }
  }
  if (first >= row) return row;
  std::rotate(rows_.begin() + first, rows_.begin() + row, rows_.begin() + row + 1);
  ++name_changes_;
  TouchAll();
  return first;
}

}  // namespace platform
