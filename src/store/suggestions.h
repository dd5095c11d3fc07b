#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "store/instrument_store.h"

namespace store {

struct Sugerencia {
  std::string codigo, nombre;  // UTF-8, without the blanks at their ends
};

/// At most 8 instruments with a name for what has been typed: first those whose code begins with
/// `text`, then those whose name does, then those whose name contains it, each in the order of the
/// market. Capitals or not is the same; blanks at the ends of `text` don't count, and without more
/// there is nothing.
[[nodiscard]] std::vector<Sugerencia> Sugerencias(const InstrumentStore& store,
                                                  std::string_view text);

}  // namespace store
