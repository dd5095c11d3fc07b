#pragma once

#include <cstdint>

#include "views/grid_view.h"

namespace views {

/// Calls and puts of the underlyings that the user has asked for: fixed columns, and a bar that
/// stays. Rows only ever come. Its layout file is that of the futures: each overwrites the other's
/// widths. A cell keeps the colours of its last change.
class Opciones : public GridView {
 public:
  explicit Opciones(const GridContext& context);

  /// Paints the first row that begins with the instrument's name, and what has changed in it; adds
  /// one at the end, without a mark, where there is none.
  void negotiop(std::int16_t indice);

 protected:
  void AddRows() override;
};

}  // namespace views
