#include "qt/app/feed_app.h"

#include <algorithm>
#include <cstdio>
#include <limits>
#include <optional>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QTimer>

#include "qt/app/sample_files.h"
#include "qt/demo/market_server.h"

namespace qt {
namespace {

struct Settings {
  demo::FeedOptions feed;
  quint16 port = 0, data_port = 0;
  int head_start_s = 0, seconds = 0;
  QString stores;  // where to write them, instead of serving
};

std::optional<int> Number(const QCommandLineParser& parser, const char* name, int most) {
  bool is_number = false;
  const int value = parser.value(QLatin1String(name)).toInt(&is_number);
  if (is_number && value >= 0 && value <= most) return value;
  std::fprintf(stderr, "--%s takes a number from 0 to %d\n", name, most);
  return std::nullopt;
}

std::optional<Settings> Read(const QCoreApplication& application) {
  QCommandLineParser parser;
  parser.setApplicationDescription("Simulated market on TCP, reachable from this machine only.");
  parser.addHelpOption();
  const demo::FeedOptions usual;
  parser.addOptions({
      {"port", "Port on 127.0.0.1; 0 takes any free one.", "number", "2323"},
      {"data-port", "Port of the history; the next one, or any free one, if it isn't said.",
       "number", ""},
      {"quotes", "Quotes a second, on the mean.", "number",
       QString::number(usual.quotes_per_second)},
      {"instruments", "Shares beside the usual ones.", "number", "0"},
      {"seed", "Same seed, same market.", "number", "1"},
      {"burst", "Seconds of market that wait for a terminal when it comes.", "number", "0"},
      {"seconds", "Ends after so many seconds; 0 runs on.", "number", "0"},
      {"hour", "Starts at that full hour; 0 is just before the opening.", "number", "0"},
      {"even", "An even pace, without rushes."},
      {"stores", "Writes a daily and an intraday store of the charting package there, and ends.",
       "directory"},
  });
  parser.process(application);
  constexpr int kAny = std::numeric_limits<int>::max();
  constexpr int kDay = 24 * 60 * 60;
  const auto port = Number(parser, "port", 65535);
  const int next_port = port.value_or(0) == 0 ? 0 : std::min(*port + 1, 65535);
  const auto data_port =
      parser.isSet("data-port") ? Number(parser, "data-port", 65535) : std::optional(next_port);
  const auto quotes = Number(parser, "quotes", 1'000'000);
  const auto instruments = Number(parser, "instruments", 4800);
  const auto seed = Number(parser, "seed", kAny);
  const auto burst = Number(parser, "burst", 600);
  const auto hour = Number(parser, "hour", 17);
  const auto seconds = Number(parser, "seconds", kDay);
  if (!port || !data_port || !quotes || !instruments || !seed || !burst || !hour || !seconds) {
    return std::nullopt;
  }
  Settings settings;
  settings.feed.quotes_per_second = *quotes;
  settings.feed.extra_instruments = *instruments;
  settings.feed.seed = static_cast<std::uint32_t>(*seed);
  settings.feed.bursts = !parser.isSet("even");
  if (*hour > 0) settings.feed.start_second = *hour * 3600;
  settings.port = static_cast<quint16>(*port);
  settings.data_port = static_cast<quint16>(*data_port);
  settings.head_start_s = *burst;
  settings.seconds = *seconds;
  settings.stores = parser.value("stores");
  return settings;
}

// 0 after a word about it.
quint16 PortOr(quint16 listening, quint16 wanted) {
  if (listening == 0) std::fprintf(stderr, "port %d can't be used\n", wanted);
  return listening;
}

int Serve(const Settings& settings) {
  MarketServer server(settings.feed, settings.head_start_s * 1000);
  const quint16 port = PortOr(server.Listen(settings.port), settings.port);
  if (port == 0) return 1;
  const quint16 data_port = PortOr(server.ListenData(settings.data_port), settings.data_port);
  if (data_port == 0) return 1;
  std::printf("127.0.0.1:%d\n127.0.0.1:%d (history)\n", port, data_port);
  std::fflush(stdout);
  if (settings.seconds > 0) {
    QTimer::singleShot(settings.seconds * 1000, &QCoreApplication::quit);
  }
  const int status = QCoreApplication::exec();
  std::printf("%lld bytes sent\n", static_cast<long long>(server.bytes_sent()));
  return status;
}

}  // namespace

int RunFeed(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  const std::optional<Settings> settings = Read(application);
  if (!settings) return 2;
  if (settings->stores.isEmpty()) return Serve(*settings);
  return WriteSampleStores(settings->feed, settings->stores) ? 0 : 1;
}

}  // namespace qt
