#pragma once

#include <cstdint>

#include "base/palette.h"
#include "platform/grid.h"
#include "store/instrument_store.h"

// What the rows of trades have in common.
namespace views {

/// The slot of exactly that code, blanks included; the last one where it stands twice, 0 when there
/// is none.
[[nodiscard]] std::int16_t SlotDe(const store::InstrumentStore& store, const store::Codigo& code);

/// Adds a cell with a plain number.
void AddNumber(platform::RowText& row, std::int16_t number);

/// Back colour of a trade's row by its side; unset for a side that isn't "C" or "V".
[[nodiscard]] base::Color FondoDe(char lado);

}  // namespace views
