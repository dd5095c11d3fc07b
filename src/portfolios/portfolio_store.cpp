#include "portfolios/portfolio_store.h"

namespace portfolios {

PortfolioStore::PortfolioStore(const base::ProgramDir& dir, platform::ComboBox& selector)
    : dir_(dir), selector_(selector), carteras_(1), operaciones_(1) {}

const FichaCartera& PortfolioStore::Carteras(int i) const {
  return carteras_[i >= 1 && i <= NumCarteras() ? static_cast<std::size_t>(i) : 0];
}

const Operacion& PortfolioStore::Operaciones(int i) const {
  return operaciones_[i >= 1 && i <= NumOperaciones() ? static_cast<std::size_t>(i) : 0];
}

int PortfolioStore::NumPosiciones(int cartera) const {
  if (cartera < 0 || cartera > kMaxCarteras) return 0;
  return static_cast<int>(posiciones_[static_cast<std::size_t>(cartera)].size());
}

const Operacion& PortfolioStore::Posiciones(int cartera, int j) const {
  if (j < 1 || j > NumPosiciones(cartera)) return operaciones_[0];
  return posiciones_[static_cast<std::size_t>(cartera)][static_cast<std::size_t>(j - 1)];
}

int PortfolioStore::BuscarCartera(const base::FixedText<25>&) const { return 0; }

std::string PortfolioStore::NombreCorto(int) const { return {}; }

void PortfolioStore::CargarCarteras() { LlenarSelector(); }

void PortfolioStore::RecalcularPosiciones() { (void)dir_; }

bool PortfolioStore::AgregarCartera(const FichaCartera&) { return false; }

bool PortfolioStore::AgregarOperacion(const Operacion&) { return false; }

void PortfolioStore::LlenarSelector() { selector_.Clear(); }

std::string LineaPosicion(const Operacion&) { return {}; }

}  // namespace portfolios
