#pragma once

#include <cstdint>

#include "views/grid_view.h"

namespace views {

/// The main board: one row per share of the continuous market. Loaded hidden at start; paints
/// unseen as well as seen.
class Continuo : public GridView {
 public:
  explicit Continuo(const GridContext& context);

  /// Takes the settings anew and repaints all instruments.
  void ColoresOn() override;
  /// After a quote: paints the row with flash; adds none.
  void negoti(std::int16_t indice);
  /// After a load: paints the row without flash; adds it in its place where it is missing.
  void negotii(std::int16_t indice);

 protected:
  void AddRows() override;
};

}  // namespace views
