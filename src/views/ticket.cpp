#include "views/ticket.h"

namespace views {

Ticker2::Ticker2(platform::Platform& platform, const store::InstrumentStore& store,
                 const Form2& tape)
    : Window(platform), store_(store), tape_(tape) {
  DesignTicket(*this);
}

void Ticker2::OnLoad() {}
void Ticker2::OnUnload() {
  if (al_descargar) al_descargar();
}
void Ticker2::OnResize() {}
void Ticker2::inicio() {}
void Ticker2::Label5_Click() {}
void Ticker2::Label6_DblClick() {}
void Ticker2::PintarCotizacion(const store::Instrumento&) { (void)store_; }
void Ticker2::PintarLibro(const store::LibroOrdenes&, const store::LibroOrdenes&) { (void)tape_; }
void Ticker2::AgregarNegocio(const store::Negocio&) {}

}  // namespace views
