#pragma once

#include <cstdint>

#include "views/grid_view.h"

namespace views {

/// The exchange rates, with three decimals: fixed columns, and a bar that stays. A cell keeps the
/// colours of its last change.
class Divisas : public GridView {
 public:
  explicit Divisas(const GridContext& context);

  /// Takes the colours anew and repaints every rate.
  void ColoresOn() override;
  /// Paints the instrument's row and what has changed in it; adds one at the end where it is
  /// missing.
  void negotiv(std::int16_t indice);

 protected:
  void AddRows() override;
};

}  // namespace views
