#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "base/program_dir.h"
#include "metastock/bars.h"
#include "metastock/form1.h"
#include "metastock/reply_reader.h"
#include "metastock/stores.h"
#include "platform/platform.h"
#include "platform/timer.h"

namespace metastock {

/// Brings both stores up to date from the server's history: asks for one entry after the other on
/// the data channel, first the daily ones, stores what comes and goes on with the next, until all
/// entries are selected. Requests wait in a queue, at most 100, first in first out, one of a code
/// and kind at a time, until the channel is connected; the channel is connected at most once a
/// second, and the same request isn't sent twice within a second. Rows are stored in slices, other
/// events run in between, and reads that come meanwhile wait. Writes the bars, and the last row of
/// each reply to "MSI.TMP" or "MSD.TMP". Nothing runs while nothing is asked for. What the
/// constructor takes outlives it.
class Download {
 public:
  struct Steps {
    /// Asks the user for a line; "" when he gives up.
    std::function<std::string(std::string_view text)> Preguntar;
  };

  Download(platform::Platform& platform, const base::ProgramDir& directory, Stores& stores,
           Bars& bars, Form1& form, platform::Socket& tcpData, const std::int16_t& FaseCierre);

  Steps steps;

  /// Shows the progress and asks for the first entry that is pending.
  void Actualizar();
  /// The server has closed the channel in the middle of an intraday download: goes on.
  void ReanudarDescarga();
  /// The session or the program ends: no request waits any more.
  void Cancelar();

  // Events of the data channel.
  void DatosConectados();
  void OnDataArrival();
  void OnDataClose();
  void DatosFallidos();

  void RequestIntraday(std::string_view code, float date, float time, int flag);
  void RequestDaily(std::string_view code, float date);

  // Whether a request of that kind has ever been sent, and whether one was since the channel was
  // closed (the daily one: ever).
  std::int16_t DownloadIntraday = 0, DownloadDaily = 0, DataBusy = 0, DataBusyDaily = 0;

 private:
  platform::Platform& platform_;
  const base::ProgramDir& directory_;
  Stores& stores_;
  Bars& bars_;
  Form1& form_;
  platform::Socket& tcpData_;
  const std::int16_t& FaseCierre_;
};

}  // namespace metastock
