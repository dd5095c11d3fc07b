#include "demo/page_sheet.h"

#include <algorithm>

#include "base/ansi.h"
#include "base/text.h"

namespace demo {

void PageSheet::Left(std::size_t line, std::size_t column, std::string_view utf8) {
  Put(line, column, base::OneLine(base::Utf8ToAnsi(utf8)));
}

void PageSheet::Right(std::size_t line, std::size_t end, std::string_view utf8) {
  const std::string bytes = base::OneLine(base::Utf8ToAnsi(utf8));
  Put(line, end - std::min(end, bytes.size()), bytes);
}

void PageSheet::Rule(std::size_t line, char mark) { Put(line, 0, std::string(kWidth, mark)); }

void PageSheet::Put(std::size_t line, std::size_t column, std::string_view bytes) {
  if (line >= kLines || column >= kWidth) return;
  const std::string_view some = bytes.substr(0, kWidth - column);
  bytes_.replace(line * kWidth + column, some.size(), some);
}

PageTable::PageTable(PageSheet& sheet, std::span<const Column> columns)
    : sheet_(sheet), columns_(columns) {
  for (const Column& column : columns_) Put(column.heading, column);
  sheet_.Rule(kHeadings + 1, '-');
  line_ = kHeadings + 2;
}

void PageTable::Add(std::initializer_list<std::string> cells) {
  if (full()) return;
  const Column* column = columns_.data();
  for (const std::string& cell : cells) Put(cell, *column++);
  ++line_;
}

void PageTable::AddRule() {
  if (!full()) sheet_.Rule(line_++, '-');
}

void PageTable::Say(std::string_view utf8) {
  if (!full()) sheet_.Left(line_++, 2, utf8);
}

void PageTable::Put(std::string_view utf8, const Column& column) {
  column.right ? sheet_.Right(line_, column.at, utf8) : sheet_.Left(line_, column.at, utf8);
}

}  // namespace demo
