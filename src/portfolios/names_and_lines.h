#pragma once

#include <string>
#include <string_view>

#include "platform/controls.h"
#include "portfolios/portfolio_store.h"

// How the dialogs show portfolios and positions.
namespace portfolios {

/// First portfolio whose 25 characters are exactly `name` (UTF-8), its blanks included; 0 when
/// there is none.
[[nodiscard]] int CarteraLlamada(const PortfolioStore& portfolios, std::string_view name);

/// All portfolios behind what `combo` lists already, each with its 25 characters.
void AgregarNombres(platform::ComboBox& combo, const PortfolioStore& portfolios);

/// A position as a line of a list: shares, code and average price, with a tab between. UTF-8.
[[nodiscard]] std::string LineaPosicion(const Operacion& position);

/// Makes `list` that of the positions of a portfolio; empty for one that there isn't.
void ListarPosiciones(platform::ListBox& list, const PortfolioStore& portfolios, int cartera);

}  // namespace portfolios
