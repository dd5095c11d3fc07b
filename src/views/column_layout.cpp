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

Campo ColumnTable::CampoOf(std::string_view heading) const {
  const auto found = std::ranges::find(design, heading, &Columna::heading);
  return found == design.end() ? Campo::ninguno : found->campo;
}

}  // namespace views
