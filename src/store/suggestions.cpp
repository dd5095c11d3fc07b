#include "store/suggestions.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/ansi.h"
#include "base/text.h"

namespace store {
namespace {

constexpr std::size_t kMaxSugerencias = 8;

}  // namespace

std::vector<Sugerencia> Sugerencias(const InstrumentStore& store, std::string_view text) {
  const std::string wanted = base::UpperAnsi(base::Utf8ToAnsi(base::Trim(text)));
  // By how well they fit: begins the code, begins the name, stands in the name.
  std::array<std::vector<Sugerencia>, 3> found;
  std::vector<Sugerencia>& best = found[0];
  if (wanted.empty()) return best;
  for (int i = 1; i <= store.NumInstrumentos() && best.size() < kMaxSugerencias; ++i) {
    const Instrumento& record = store.Instrumentos(i);
    if (record.Nombre.trimmed().empty()) continue;
    const std::string name = base::UpperAnsi(record.Nombre.trimmed());
    const bool code = base::UpperAnsi(record.Codigo.trimmed()).starts_with(wanted);
    const std::size_t place = code ? 1 : base::Find(name, wanted);
    if (place == 0) continue;
    std::vector<Sugerencia>& kind = found[code ? 0 : place == 1 ? 1 : 2];
    if (kind.size() == kMaxSugerencias) continue;
    kind.push_back({record.Codigo.trimmed_utf8(), base::OneLine(record.Nombre.trimmed_utf8())});
  }
  for (Sugerencia& each : found[1]) best.push_back(std::move(each));
  for (Sugerencia& each : found[2]) best.push_back(std::move(each));
  best.resize(std::min(best.size(), kMaxSugerencias));
  return best;
}

}  // namespace store
