#pragma once

#include <string>
#include <string_view>

#include "base/fixed_text.h"
#include "base/masks.h"
#include "store/instrument.h"

// What stands in the cells of the market views.
namespace views {

/// The content of a column.
enum class Campo {
  ninguno,
  Anterior,
  Apertura,
  Variacion,
  Ultimo,
  Maximo,
  Minimo,
  Volumen,
  Efectivo,
  Medio,
  Saldo,
  Hora,
  Fecha,
  Pesetas
};

/// Appends the cell text, prices by the mask `price`; nothing for `ninguno`, or where the number
/// has no text.
void AppendCell(std::string& out, Campo campo, const store::Instrumento& record,
                const base::Mask& price = base::masks::kPrice);

/// Appends the name as it stands in a cell: UTF-8 with its padding, fit for one line.
void AppendName(std::string& out, const base::FixedText<20>& name);

}  // namespace views
