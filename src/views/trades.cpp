#include "base/text.h"
#include "views/cell_text.h"
#include "views/tickets.h"
#include "views/trade_row.h"

// Which trades are believed, and where they go.
namespace views {
namespace {

bool EsMiembro(std::int16_t number) { return number > 100 && number < 1000; }

bool EsCreible(const store::Negocio& trade) {
  return trade.Hora > 80000 && trade.Hora < 235900 && EsMiembro(trade.Comprador) &&
         EsMiembro(trade.Vendedor);
}

}  // namespace

void Tickets::Negocio(const store::Negocio& trade) {
  if (EsCreible(trade)) {
    AgregarACinta(trade);
    abiertos_.ForEachOf(store::WholeCode(trade.Codigo),
                        [&](Ticker2& ticket) { ticket.AgregarNegocio(trade); });
  }
  tape_.Seguir(tape_.List1.row());
}

void Tickets::AgregarACinta(const store::Negocio& trade) {
  instrumento_.clear();
  if (const std::int16_t slot = SlotDe(store_, trade.Codigo); slot > 0) {
    AppendName(instrumento_, store_.Instrumentos(slot).Nombre);
  } else {
    instrumento_ = base::OneLine(trade.Codigo.utf8());
  }
  tape_.Agregar(trade, instrumento_);
}

void Tickets::FinNegocios() { tape_.Seguir(tape_.List1.rows() - 1); }

}  // namespace views
