#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "base/program_dir.h"
#include "metastock/bars.h"
#include "metastock/form1.h"
#include "metastock/reply_reader.h"
#include "metastock/request_queue.h"
#include "metastock/row_store.h"
#include "metastock/stores.h"
#include "platform/platform.h"

namespace metastock {

/// Brings both stores up to date from the server's history: asks for one entry after the other on
/// the data channel, first the daily ones, stores what comes and goes on with the next, until all
/// entries are selected. Rows are stored in slices, other events run in between, and reads that
/// come meanwhile wait. Writes the bars, and the last row of each reply to "MSI.TMP" or "MSD.TMP".
/// Nothing runs while nothing is asked for. What the constructor takes outlives it.
class Download {
 public:
  struct Steps {
    /// Asks the user for a line; "" when he gives up.
    std::function<std::string(std::string_view text)> Preguntar;
  };

  Download(platform::Platform& platform, const base::ProgramDir& directory, Stores& stores,
           Bars& bars, Form1& form, platform::Socket& tcpData, const std::int16_t& FaseCierre);

  Steps steps;

  /// Shows the progress and asks for the first entry that is pending, unless the download is at
  /// work: something waits, is being stored, or was asked for within the last second.
  void Actualizar();
  /// The server has closed the channel in the middle of an intraday download: goes on.
  void ReanudarDescarga();
  /// The session or the program ends: no request waits any more, and no read. A reply that is being
  /// stored asks for nothing more; when the program ends the rest of it is dropped.
  void Cancelar();

  // Events of the data channel.
  void DatosConectados();
  void OnDataArrival();
  void OnDataClose();
  void DatosFallidos() { queue_.Changed(); }

  /// What is no number, as a date read from a file may be, counts as 0: the user is asked.
  void RequestIntraday(std::string_view code, float date, float time, int flag);
  void RequestDaily(std::string_view code, float date);

  // Whether a request of that kind has ever been made; whether one was sent since the channel was
  // closed (the daily one: ever).
  std::int16_t DownloadIntraday = 0, DownloadDaily = 0, DataBusy = 0, DataBusyDaily = 0;

 private:
  enum class DateOf { bar, load };  // where a request begins: at the entry's bar, or as at load

  void JoinQueue();
  void Leer(std::string recibido);
  void SeguirLeyendo();
  void Almacenar();
  void Almacenado(const RowStore::Result& result);
  void FinIntraday(const store::Codigo& code, const RowStore::Result& result);
  void FinDaily(const store::Codigo& code, const RowStore::Result& result);
  void FinMarca(const store::Codigo& code);
  void MarcarIntraday(const store::Codigo& code);
  bool PedirDaily(DateOf from);
  void PedirIntraday(DateOf from);
  void PedirDesde(const store::Codigo& code, float date, float time);
  void Acabada(std::string_view line);
  void MostrarAvance();
  [[nodiscard]] bool Ocupada() const;
  void Luego(void (Download::*step)());

  platform::Platform& platform_;
  const base::ProgramDir& directory_;
  Stores& stores_;
  Form1& form_;
  platform::Socket& tcpData_;
  const std::int16_t& FaseCierre_;
  ReplyReader reader_;
  RowStore rows_;
  RequestQueue queue_;
  bool encadenar_ = true;             // what is being stored may ask for more
  std::deque<std::string> lecturas_;  // reads that wait, each as it came
  std::size_t bytes_en_espera_ = 0;
  std::shared_ptr<const bool> alive_;  // ends with the download
};

}  // namespace metastock
