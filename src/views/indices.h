#pragma once

#include <cstdint>

#include "views/grid_view.h"

namespace views {

/// A view whose rows come into being as instruments are first heard of, and whose cells flash
/// against the colour of the row: the indices and the statistics of the market. What tells the two
/// apart is their design, and what the pipeline hands them.
class IndexView : public GridView {
 public:
  /// Takes the settings anew and repaints what is coded as index or statistic, adding those it
  /// lacks: also the ones that the pipeline hands to the other view.
  void ColoresOn() override;
  /// Paints the instrument's row with flash; adds one at the end where it is missing, unless its
  /// name begins with a blank.
  void negotii(std::int16_t indice) { FlashOrAdd(indice); }

  /// There is nothing to print here.
  void Command2_Click() override {}

 protected:
  using GridView::GridView;
};

class Indices : public IndexView {
 public:
  explicit Indices(const GridContext& context);
};

class Estadisticas : public IndexView {
 public:
  explicit Estadisticas(const GridContext& context);
};

}  // namespace views
