#include "store/suggestions.h"

#include <utility>

#include "base/ansi.h"
#include "base/text.h"

namespace store {
namespace {

constexpr std::size_t kMaxSugerencias = 8;

}  // namespace

std::vector<Sugerencia> Sugerencias(const InstrumentStore& store, std::string_view text) {
  const std::string wanted = base::UpperAnsi(base::Utf8ToAnsi(base::Trim(text)));
  std::vector<Sugerencia> by_code, by_name;
  if (wanted.empty()) return by_code;
  for (int i = 1; i <= store.NumInstrumentos() && by_code.size() < kMaxSugerencias; ++i) {
    const Instrumento& record = store.Instrumentos(i);
    if (record.Nombre.trimmed().empty()) continue;
    const bool code = base::UpperAnsi(record.Codigo.trimmed()).starts_with(wanted);
    if (!code && (by_name.size() == kMaxSugerencias ||
                  base::Find(base::UpperAnsi(record.Nombre.trimmed()), wanted) == 0)) {
      continue;
    }
    (code ? by_code : by_name)
        .push_back({record.Codigo.trimmed_utf8(), base::OneLine(record.Nombre.trimmed_utf8())});
  }
  for (Sugerencia& each : by_name) {
    if (by_code.size() < kMaxSugerencias) by_code.push_back(std::move(each));
  }
  return by_code;
}

}  // namespace store
