#include "views/tickets.h"

#include <memory>
#include <string>

#include "base/text.h"

namespace views {

Tickets::Tickets(platform::Platform& platform, store::InstrumentStore& store,
                 store::UpdatePipeline& pipeline, Form2& tape)
    : platform_(platform), store_(store), pipeline_(pipeline), tape_(tape), abiertos_(platform) {}

std::vector<Ticker2*> Tickets::abiertos() const {
  std::vector<Ticker2*> open;
  for (std::size_t i = 0; i < abiertos_.size(); ++i) open.push_back(&abiertos_.at(i));
  return open;
}

void Tickets::AbrirTicket(std::int16_t slot) {
  if (slot < 1 || slot > store_.NumInstrumentos()) return;
  const store::Codigo code = store_.Instrumentos(slot).Codigo;
  Ticker2& ticket =
      abiertos_.Add(store::WholeCode(code), std::make_unique<Ticker2>(platform_, store_, tape_));
  ticket.set_tag(code.utf8());
  ticket.set_caption(base::OneLine(store_.Instrumentos(slot).Nombre.trimmed_utf8()));
  ticket.Show();
  if (steps.EnviarTexto) steps.EnviarTexto(std::string("P:").append(code.bytes()));
  pipeline_.RefrescarInstrumento(slot);
}

void Tickets::RefrescarTickets(std::int16_t slot) {
  const store::Instrumento& record = store_.Instrumentos(slot);
  abiertos_.ForEachOf(store::WholeCode(record.Codigo),
                      [&](Ticker2& ticket) { ticket.PintarCotizacion(record); });
}

// The book that has come is in the table already, so that the tickets see it compared with itself.
void Tickets::RefrescarLibro(int index) {
  store_.LibroScratch = store_.Libros(index);
  abiertos_.ForEachOf(store::WholeCode(store_.LibroScratch.Codigo), [&](Ticker2& ticket) {
    ticket.PintarLibro(store_.LibroScratch, store_.Libros(index));
    store_.GuardarLibro(store_.LibroScratch);
  });
}

}  // namespace views
