#include "charts/tick_files.h"

namespace charts {

std::string RutaTick(const store::Codigo& code) { return code.utf8() + ".TCK"; }

void TickFiles::TickAppend(std::int16_t) {}

std::int64_t TickFiles::Leer(const store::Codigo&, const std::function<void(const Tick&)>&) const {
  return 0;
}

}  // namespace charts
