#include <cstdlib>
#include <string>

#include "desk.h"
#include "feed_process.h"
#include "process.h"
#include "report.h"
#include "samples.h"
#include "scenarios.h"

namespace load {

bool Memory(double million_quotes) {
  constexpr int kMillion = 1'000'000;
  const double empty = std::atof(Child({WINDOW_PROGRAM}).Line().value_or("0").c_str());
  FeedProcess feed({"--quotes", "250000", "--even", "--instruments", "4800", "--hour", "10"});
  Desk desk(feed.port());
  desk.ShowBoard();
  desk.LogIn();
  const auto at = [&](double quotes) {
    return RunUntil(120, [&] { return desk.records() > 5000 + quotes; });
  };
  if (!at(10000)) return false;
  const double loaded = ResidentMiB();
  const auto began = Clock::now();
  if (!at(0.2 * million_quotes * kMillion)) return false;
  const double early = ResidentMiB();
  if (!at(million_quotes * kMillion)) return false;
  const double late = ResidentMiB();
  const double passed = std::chrono::duration<double>(Clock::now() - began).count();

  Heading("Resident memory, board visible");
  Line("empty main window", empty, "MiB");
  Line("instruments", desk.terminal.store.NumInstrumentos(), "");
  Line("after loading", loaded, "MiB");
  Line("  to the empty window", loaded / empty, "times", 3);
  Line("after a fifth of the quotes", early, "MiB");
  Line("after all quotes", late, "MiB");
  Line("  to the empty window", late / empty, "times", 3);
  Line("  growth", late - early, "MiB");
  Line("quotes", desk.records() / 1e6, "million");
  Line("  applied a second", desk.records() / passed, "");
  return true;
}

}  // namespace load
