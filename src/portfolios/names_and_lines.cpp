#include "portfolios/names_and_lines.h"

#include <cstdint>

#include "base/masks.h"

namespace portfolios {

int CarteraLlamada(const PortfolioStore& portfolios, std::string_view name) {
  for (int i = 1; i <= portfolios.NumCarteras(); ++i) {
    if (portfolios.Carteras(i).Nombre.utf8() == name) return i;
  }
  return 0;
}

void AgregarNombres(platform::ComboBox& combo, const PortfolioStore& portfolios) {
  for (int i = 1; i <= portfolios.NumCarteras(); ++i) {
    combo.AddItem(portfolios.Carteras(i).Nombre.utf8());
  }
}

std::string LineaPosicion(const Operacion& position) {
  return base::NumberText(std::int64_t{position.Titulos}) + '\t' + position.Codigo.utf8() + '\t' +
         base::masks::kPrice.Format(position.Precio);
}

void ListarPosiciones(platform::ListBox& list, const PortfolioStore& portfolios, int cartera) {
  list.Clear();
  // Position lists exist for number 0 as well: what a journal of any content may name.
  if (cartera == 0) return;
  for (int j = 1; j <= portfolios.NumPosiciones(cartera); ++j) {
    list.AddItem(LineaPosicion(portfolios.Posiciones(cartera, j)));
  }
}

}  // namespace portfolios
