#include "views/tickets.h"

namespace views {

Tickets::Tickets(platform::Platform& platform, store::InstrumentStore& store,
                 store::UpdatePipeline& pipeline, Form2& tape)
    : platform_(platform), store_(store), pipeline_(pipeline), tape_(tape) {}

Tickets::~Tickets() = default;

void Tickets::AbrirTicket(std::int16_t slot) {
  auto ticket = std::make_unique<Ticker2>(platform_, store_, tape_);
  ticket->set_tag(store_.Instrumentos(slot).Codigo.utf8());
  ticket->set_caption(store_.Instrumentos(slot).Nombre.trimmed_utf8());
  ticket->Show();
  abiertos_.push_back(std::move(ticket));
  pipeline_.RefrescarInstrumento(slot);
}

void Tickets::RefrescarTickets(std::int16_t) {}
void Tickets::RefrescarLibro(int) {}
void Tickets::Negocio(const store::Negocio&) {}
void Tickets::FinNegocios() {}

}  // namespace views
