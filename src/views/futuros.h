#pragma once

#include <cstdint>

#include "views/grid_view.h"

namespace views {

/// The futures: a grid without commands. Those known when it loads are in the order of their names.
/// Instruments coded "CM" come only with a load or a repaint; no quote reaches them here.
class Futuros : public GridView {
 public:
  explicit Futuros(const GridContext& context);

  /// Takes the settings anew and repaints every future, adding those it lacks.
  void ColoresOn() override;
  /// Paints the instrument's row with flash; adds one at the end where it is missing, unless its
  /// name begins with a blank.
  void negotio(std::int16_t indice) { FlashOrAdd(indice); }

 protected:
  void AddRows() override;
};

}  // namespace views
