#include "views/tickets.h"

#include <algorithm>
#include <string>
#include <utility>

#include "base/text.h"

namespace views {

Tickets::Tickets(platform::Platform& platform, store::InstrumentStore& store,
                 store::UpdatePipeline& pipeline, Form2& tape)
    : platform_(platform),
      store_(store),
      pipeline_(pipeline),
      tape_(tape),
      cerrados_(std::make_shared<Owned>()) {}

Tickets::~Tickets() {
  const auto last = std::exchange(abiertos_, {});
  for (const Abierto& each : last) each.ticket->Unload();
}

std::vector<Ticker2*> Tickets::abiertos() const {
  std::vector<Ticker2*> open;
  for (const Abierto& each : abiertos_) open.push_back(each.ticket.get());
  return open;
}

void Tickets::AbrirTicket(std::int16_t slot) {
  if (slot < 1 || slot > store_.NumInstrumentos()) return;
  const store::Codigo code = store_.Instrumentos(slot).Codigo;
  abiertos_.push_back(
      {store::PackCode(code.bytes()), code, std::make_unique<Ticker2>(platform_, store_, tape_)});
  Ticker2& ticket = *abiertos_.back().ticket;
  ticket.al_descargar = [this, &ticket] { Retirar(ticket); };
  ticket.set_tag(code.utf8());
  ticket.set_caption(base::OneLine(store_.Instrumentos(slot).Nombre.trimmed_utf8()));
  ticket.Show();
  if (steps.EnviarTexto) steps.EnviarTexto(std::string("P:").append(code.bytes()));
  pipeline_.RefrescarInstrumento(slot);
}

void Tickets::Retirar(const Ticker2& ticket) {
  const auto is_it = [&](const Abierto& each) { return each.ticket.get() == &ticket; };
  const auto found = std::ranges::find_if(abiertos_, is_it);
  if (found == abiertos_.end()) return;
  cerrados_->push_back(std::move(found->ticket));
  abiertos_.erase(found);
  // Any handler of the ticket may be running now. Where the event loop doesn't come back, the
  // tickets end with this object, not with a task that nobody runs.
  platform_.Post([rest = std::weak_ptr(cerrados_)] {
    if (const auto tickets = rest.lock()) tickets->clear();
  });
}

void Tickets::RefrescarTickets(std::int16_t slot) {
  const store::Instrumento& record = store_.Instrumentos(slot);
  ForEachOf(record.Codigo, [&](Ticker2& ticket) { ticket.PintarCotizacion(record); });
}

// The book that has come is in the table already, so that the tickets see it compared with itself.
void Tickets::RefrescarLibro(int index) {
  store_.LibroScratch = store_.Libros(index);
  ForEachOf(store_.LibroScratch.Codigo, [&](Ticker2& ticket) {
    ticket.PintarLibro(store_.LibroScratch, store_.Libros(index));
    store_.GuardarLibro(store_.LibroScratch);
  });
}

}  // namespace views
