#include "views/column_layout.h"

#include <algorithm>
#include <cstdint>
#include <string>

#include "base/record_file.h"

namespace views {

bool ReadColFlags(const base::ProgramDir& dir, std::string_view file, ColFlags& flags) {
  flags.fill(' ');
  const base::RecordFile records(dir.Path(file), 1);
  std::string record;
  for (std::size_t k = 1; k < flags.size(); ++k) {
    if (records.Read(static_cast<std::int64_t>(k), record)) flags[k] = record[0];
  }
  if (std::ranges::find(flags, '1') != flags.end()) return true;
  flags.fill('1');
  return false;
}

Columna ColumnTable::Of(std::string_view heading) const {
  for (const std::span<const Columna> columns : {design, others}) {
    const auto found = std::ranges::find(columns, heading, &Columna::heading);
    if (found != columns.end()) return *found;
  }
  return {};
}

std::vector<std::string_view> ColumnTable::Designed() const {
  std::vector<std::string_view> headings;
  for (const Columna& column : design) headings.push_back(column.heading);
  return headings;
}

std::vector<std::string_view> ColumnTable::Flagged(const ColFlags& flags) const {
  std::vector<std::string_view> headings;
  for (std::size_t k = 1; k < flags.size(); ++k) {
    if (flags[k] == '1' && !by_flag[k - 1].empty()) headings.push_back(by_flag[k - 1]);
  }
  headings.insert(headings.end(), closing.begin(), closing.end());
  return headings;
}

}  // namespace views
