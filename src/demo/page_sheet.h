#pragma once

#include <cstddef>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>

namespace demo {

/// A page being written: 25 lines of 80 characters of Windows-1252, at first all blanks. Lines and
/// columns count from 0. What doesn't fit in its line is cut, and a control character becomes a
/// blank, so that the page always has its 2000 bytes.
class PageSheet {
 public:
  static constexpr std::size_t kLines = 25, kWidth = 80;

  /// From `column` on.
  void Left(std::size_t line, std::size_t column, std::string_view utf8);
  /// Up to the column before `end`.
  void Right(std::size_t line, std::size_t end, std::string_view utf8);
  void Rule(std::size_t line, char mark);

  [[nodiscard]] const std::string& bytes() const { return bytes_; }

 private:
  void Put(std::size_t line, std::size_t column, std::string_view bytes);

  std::string bytes_ = std::string(kLines * kWidth, ' ');
};

/// A table on a page: headings, a rule, and rows down to the foot of the page. Rows that find no
/// room are left out. Sheet and columns outlive it.
class PageTable {
 public:
  struct Column {
    std::string_view heading;
    std::size_t at;  // where it begins, or that it ends before
    bool right = true;
  };

  PageTable(PageSheet& sheet, std::span<const Column> columns);

  [[nodiscard]] bool full() const { return line_ >= kEnd; }
  /// A text for each column.
  void Add(std::initializer_list<std::string> cells);
  void AddRule();
  /// Instead of rows, where there are none.
  void Say(std::string_view utf8);

 private:
  static constexpr std::size_t kHeadings = 3, kEnd = PageSheet::kLines - 2;

  void Put(std::string_view utf8, const Column& column);

  PageSheet& sheet_;
  std::span<const Column> columns_;
  std::size_t line_ = kHeadings;
};

}  // namespace demo
