#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "store/code_scan.h"
#include "store/instrument_store.h"
#include "store/trade.h"
#include "store/update_pipeline.h"
#include "views/ticket.h"

namespace views {

/// Owns the open quote tickets and carries quotes, books and trades to those of their code (all
/// seven characters alike, blanks included), first opened first. A ticket that is closed leaves at
/// once, but lives until control is back in the event loop. What it is given outlives it.
class Tickets {
 public:
  struct Steps {
    std::function<void(std::string_view text)> EnviarTexto;
  };

  Tickets(platform::Platform& platform, store::InstrumentStore& store,
          store::UpdatePipeline& pipeline, Form2& tape);
  ~Tickets();

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
  using Owned = std::vector<std::unique_ptr<Ticker2>>;
  struct Abierto {
    store::CodeKey key;  // tells nearly all other codes apart in one comparison
    store::Codigo code;
    std::unique_ptr<Ticker2> ticket;
  };

  void Retirar(const Ticker2& ticket);
  void AgregarACinta(const store::Negocio& trade);

  template <typename Visit>
  void ForEachOf(const store::Codigo& code, const Visit& visit) {
    if (abiertos_.empty()) return;
    const store::CodeKey key = store::PackCode(code.bytes());
    for (std::size_t i = 0; i < abiertos_.size(); ++i) {
      const Abierto& each = abiertos_[i];
      if (each.key == key && each.code == code) visit(*each.ticket);
    }
  }

  platform::Platform& platform_;
  store::InstrumentStore& store_;
  store::UpdatePipeline& pipeline_;
  Form2& tape_;
  std::vector<Abierto> abiertos_;
  std::shared_ptr<Owned> cerrados_;  // closed ones, until the event loop ends them
  std::string instrumento_;          // of the trade in hand, as it stands on the tape
};

}  // namespace views
