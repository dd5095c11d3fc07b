#include <string>

#include "demo/feed.h"
#include "desk.h"
#include "prober.h"
#include "process.h"
#include "report.h"
#include "scenarios.h"
#include "waiting_server.h"

namespace load {
namespace {

constexpr int kMoreInstruments = 4800;

/// What a server has for a terminal from its login until some seconds later.
std::string OpeningBytes() {
  demo::Feed feed({.quotes_per_second = 20000,
                   .extra_instruments = kMoreInstruments,
                   .bursts = false,
                   .start_second = 10 * 3600});
  const int id = feed.Connect();
  feed.Receive(id,
               "ID:quien  .clave  \xFF\xFE"
               "C:Brizna.Continuo\xFF\xFE");
  std::string bytes;
  for (int ms = 0; ms < 3500; ms += 20) {
    feed.Advance(20);
    bytes += feed.TakeOutput(id);
  }
  return bytes;
}

}  // namespace

bool Burst() {
  const std::string bytes = OpeningBytes();
  WaitingServer server(bytes);
  Desk desk(server.port());
  desk.ShowBoard();
  RunFor(0.5);
  const auto began = Clock::now();
  auto drained = began;
  const auto count = static_cast<std::int32_t>(bytes.size());
  Prober prober(
      [&] {
        if (drained == began && desk.terminal.Conecta.BytesTransferidos() == count) {
          drained = Clock::now();
        }
      },
      {});
  desk.LogIn();
  const bool done = RunUntil(30, [&] { return drained != began; });
  prober.Stop();

  const int masters = desk.terminal.store.NumInstrumentos();
  const int quotes = desk.records() - masters;
  Heading("Opening burst: everything waits in the socket, board visible");
  Line("masters", masters, "");
  Line("quotes", quotes, "");
  Line("bytes", static_cast<double>(count) / (1 << 20), "MiB");
  Line("drained after", std::chrono::duration<double>(drained - began).count(), "s", 2);
  Line("wait of a posted event, 99th percentile", prober.waits().At(0.99), "ms");
  Line("wait of a posted event, longest", prober.waits().At(1), "ms", 33);
  Line("(the machine: late waking, longest)", prober.late().At(1), "ms");
  return done && quotes >= 50000;
}

}  // namespace load
