#include "views/trade_row.h"

#include "base/masks.h"

namespace views {

std::int16_t SlotDe(const store::InstrumentStore& store, const store::Codigo& code) {
  // That search doesn't mind blanks in front, so what it finds may be another's.
  const std::int16_t first = store.Buscar(code.bytes());
  if (first == 0) return 0;
  // Only the balance codes enter the table more than once.
  std::int16_t slot = code.bytes().starts_with("ST") ? store.NumInstrumentos() : first;
  while (slot >= first && store.Instrumentos(slot).Codigo != code) --slot;
  return slot >= first ? slot : std::int16_t{0};
}

void AddNumber(platform::RowText& row, std::int16_t number) {
  base::AppendNumberText(row.buffer(), number);
  row.EndCell();
}

base::Color FondoDe(char lado) {
  if (lado == 'C') return base::palette::kGreen;
  return lado == 'V' ? base::palette::kRed : platform::Grid::kUnset;
}

}  // namespace views
