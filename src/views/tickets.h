#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/open_windows.h"
#include "store/instrument_store.h"
#include "store/trade.h"
#include "store/update_pipeline.h"
#include "views/ticket.h"

namespace views {

/// Owns the open quote tickets and carries quotes, books and trades to those of their code (all
/// seven characters alike, blanks included), first opened first. What it is given outlives it.
class Tickets {
 public:
  struct Steps {
    std::function<void(std::string_view text)> EnviarTexto;
  };

  Tickets(platform::Platform& platform, store::InstrumentStore& store,
          store::UpdatePipeline& pipeline, Form2& tape);

  Steps steps;

  /// Opens a ticket on the slot and asks the server for its book. An empty slot opens none.
  void AbrirTicket(std::int16_t slot);
  void RefrescarTickets(std::int16_t slot);
  /// `index` is that of the book that has just been stored.
  void RefrescarLibro(int index);

  /// A trade that has come: into the tape and the tickets of its code, if it is believable.
  void Negocio(const store::Negocio& trade);
  /// After the last trade of a batch.
  void FinNegocios();

  /// Those open now, first opened first. Each stays valid until control is back in the event loop.
  [[nodiscard]] std::vector<Ticker2*> abiertos() const;

 private:
  void AgregarACinta(const store::Negocio& trade);

  platform::Platform& platform_;
  store::InstrumentStore& store_;
  store::UpdatePipeline& pipeline_;
  Form2& tape_;
  platform::OpenWindows<Ticker2, std::uint64_t> abiertos_;  // by WholeCode
  std::string instrumento_;  // of the trade in hand, as it stands on the tape
};

}  // namespace views
