#pragma once

#include <functional>
#include <memory>
#include <string_view>
#include <vector>

#include "store/instrument_store.h"
#include "store/trade.h"
#include "store/update_pipeline.h"
#include "views/ticket.h"

namespace views {

/// Owns the open quote tickets and carries quotes, books and trades to those of their code, first
/// opened first. What it is given outlives it.
class Tickets {
 public:
  struct Steps {
    std::function<void(std::string_view text)> EnviarTexto;
  };

  Tickets(platform::Platform& platform, store::InstrumentStore& store,
          store::UpdatePipeline& pipeline, Form2& tape);
  ~Tickets();

  Steps steps;

  /// Opens a ticket on the slot and asks the server for its book.
  void AbrirTicket(std::int16_t slot);
  void RefrescarTickets(std::int16_t slot);
  /// `index` is that of the book that has just been stored.
  void RefrescarLibro(int index);

  /// A trade that has come: into the tape and the tickets of its code, if it is believable.
  void Negocio(const store::Negocio& trade);
  /// After the last trade of a batch.
  void FinNegocios();

  [[nodiscard]] const std::vector<std::unique_ptr<Ticker2>>& abiertos() const { return abiertos_; }

 private:
  platform::Platform& platform_;
  store::InstrumentStore& store_;
  store::UpdatePipeline& pipeline_;
  Form2& tape_;
  std::vector<std::unique_ptr<Ticker2>> abiertos_;
};

}  // namespace views
