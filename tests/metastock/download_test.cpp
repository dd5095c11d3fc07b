#include "metastock/download.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

#include "base/inflate.h"
#include "support/memory_platform.h"
#include "support/meta_store.h"
#include "support/wire.h"

namespace {

using namespace metastock;  // NOLINT
using support::F32;
using support::Frame;
using support::Pad;

constexpr float kNone = std::numeric_limits<float>::quiet_NaN();

std::string Intraday(float date, float time, float price = 10) {
  return F32(date) + F32(time) + F32(price) + F32(price) + F32(price) + F32(100) + F32(price);
}

std::string Daily(float date, float price = 10) {
  std::string row(124, '\0');
  base::PutBytes(row, 0, F32(date));
  base::PutBytes(row, 24, F32(100));
  base::PutBytes(row, 100, F32(price) + F32(price) + F32(price) + F32(price));
  return row;
}

std::string Repeat(std::string_view text, int times) {
  std::string all;
  while (--times >= 0) all += text;
  return all;
}

const std::string kSkipped(28, 's');  // the first row of each intraday reply
const std::string kMarker = Pad(".-.-.-", 124);

std::string Replied(std::string_view kind, std::string_view code, std::string_view rows) {
  return Frame(base::Compress(std::string(kind) + Pad(code, 7) + "????" + std::string(rows)));
}
std::string RepliedIntraday(std::string_view code, std::string_view rows) {
  return Replied("DATA:", code, kSkipped + std::string(rows));
}
std::string RepliedDaily(std::string_view code, std::string_view rows) {
  return Replied("DATD:", code, rows);
}
std::string NoMore(std::string_view code) { return "DATA:" + Pad(code, 7) + "#END"; }

/// Tables without files behind them, and a server that is the test.
class HistoryDownload : public testing::Test {
 protected:
  void AddDaily(std::string_view code, float last = 1000420, float loaded = 1000419) {
    const auto i = static_cast<std::size_t>(++stores.MasterCount);
    stores.MasterTable[i].Symbol.assign(code);
    stores.MasterTable[i].Name.assign(std::string(code) + " SA");
    stores.MasterTable[i].LastDate = loaded;
    stores.DailyLast[i].Date = last;
  }
  void AddIntraday(std::string_view code, float last = 1000420, float loaded = 1000419,
                   float time = 93000) {
    const auto i = static_cast<std::size_t>(++stores.EMasterCount);
    stores.EMasterTable[i].Symbol.assign(code);
    stores.EMasterTable[i].Name.assign(std::string(code.substr(0, 3)) + " SA");
    stores.EMasterTable[i].LastDate = loaded;
    stores.BarState[i].Date = last;
    stores.BarState[i].Time = time;
  }
  void Start() {
    download.Actualizar();
    peer().Accept();
  }
  support::FakeSocket& peer() { return *platform.sockets.front(); }
  void Arrive(std::string_view bytes) {
    peer().Arrive(bytes);
    platform.RunPosted();
  }
  /// What has been asked for since the last call, blanks as "_".
  std::string Asked() {
    std::string text;
    for (; seen < peer().writes.size(); ++seen) {
      const std::string& write = peer().writes[seen];
      EXPECT_TRUE(write.ends_with("\xFF\xFE"));
      std::string line = write.substr(0, write.size() - 2);
      std::replace(line.begin(), line.end(), ' ', '_');
      text += (text.empty() ? "" : " ") + line;
    }
    return text;
  }
  std::string Lines() const {
    std::string text;
    for (const std::string& line : form.List1.items()) {
      text += std::string(base::TrimEnd(line)) + ";";
    }
    return text;
  }

  const support::TempDir dir;
  const base::ProgramDir program{dir.path()};
  support::MemoryPlatform platform;
  store::InstrumentStore instruments;
  Stores stores;
  Bars bars{stores, instruments, platform};
  Form1 form{platform};
  std::int16_t FaseCierre = 0;
  const std::unique_ptr<platform::Socket> socket = platform.MakeSocket({
      .connected = [this] { download.DatosConectados(); },
      .data = [this] { download.OnDataArrival(); },
      .closed = [this] { download.OnDataClose(); },
      .error = [this](const std::string&) { download.DatosFallidos(); },
  });
  Download download{platform, program, stores, bars, form, *socket, FaseCierre};
  std::size_t seen = 0;
};

TEST_F(HistoryDownload, WalksThroughAllEntriesOfBothStores) {
  AddDaily("DAY1");
  AddDaily("DAY2", 991231, 991230);
  AddIntraday(std::string_view("TEF\0junk", 8));
  AddIntraday("SAN", 1000421, 1000418, 170000);
  AddIntraday("BBV");
  Start();
  EXPECT_TRUE(form.visible());
  EXPECT_EQ(Asked(), "DATD:DAY1___1000420");
  EXPECT_EQ(form.Label2.caption(), "Pidiendo DAY1    a Fecha: 1000420");
  Arrive(RepliedDaily("DAY1", Daily(1000424) + Daily(1000425) + kMarker + Daily(1000426)));
  EXPECT_EQ(dir.Read("MSD.TMP"), kMarker);
  EXPECT_EQ(Asked(), "DATD:DAY2___991231");
  EXPECT_EQ(download.DownloadIntraday, 0);
  Arrive(RepliedDaily("DAY2", Daily(1000425)));
  EXPECT_EQ(dir.Read("MSD.TMP"), Daily(1000425));
  EXPECT_EQ(Asked(), "DATA:TEF____1000420:093000");
  Arrive(RepliedIntraday("TEF", Intraday(1000425, 93000)));
  EXPECT_EQ(dir.Read("MSI.TMP"), Intraday(1000425, 93000));
  EXPECT_EQ(Asked(), "DATA:SAN____1000418:170000");
  Arrive(NoMore("SAN"));
  EXPECT_EQ(form.Avance.value(), 4);
  EXPECT_EQ(Asked(), "DATA:BBV____1000419:093000");
  Arrive(RepliedIntraday("BBV", "") + NoMore("lost"));
  EXPECT_EQ(Asked(), "");
  EXPECT_EQ(Lines(), "D:DAY1 SA;D DAY2 SA;TEF SA;SAN SA;BBV SA;");
  EXPECT_EQ(std::pair(form.Avance.value(), form.Avance.max()), std::pair(5, 5));
  platform.avanzar(2000);
  EXPECT_EQ(platform.running_timers(), 0U);
  download.Actualizar();
  EXPECT_EQ(Asked(), "");
}

TEST_F(HistoryDownload, AsksOnWhereAReplyEnds) {
  const std::string good = Intraday(1000419, 100000), filler = Intraday(0, 0);
  const std::string bad = Intraday(1000427, 250000), next = "DATA:NEXT___1000419:093000";
  const std::string wanted = "DATA:TEF____1000419:100000";
  const struct {
    const char* name;
    std::string reply, asked;
    bool done;
  } kCases[] = {
      {"rows", RepliedIntraday("TEF", good), next, true},
      {"bad row", RepliedIntraday("TEF", good + bad + good), wanted, false},
      {"no number", RepliedIntraday("TEF", good + Intraday(kNone, kNone)), wanted, false},
      {"three fillers", RepliedIntraday("TEF", good + Repeat(filler, 3) + good),
       "DATA:TEF____1000419:100100", false},
      {"two fillers", RepliedIntraday("TEF", good + Repeat(filler, 2) + good + filler + filler),
       next, true},
      {"past midnight", RepliedIntraday("TEF", Intraday(1000419, 240001)),
       "DATA:TEF____1000419:000000", false},
      {"1900 rows", RepliedIntraday("TEF", Repeat(good, 1899)), next, true},
      {"1901 rows", RepliedIntraday("TEF", Repeat(good, 1900)), wanted + " " + next, true},
      {"another code", RepliedIntraday("TEF_", good), "DATA:TEF____1000419:093000", false},
      {"day: rows", RepliedDaily("DAY", Daily(1000410)), "DATD:LAST___1000419", false},
      {"day: bad row", RepliedDaily("DAY", Daily(1000410) + Daily(1000411, 0) + Daily(100)),
       "DATD:DAY____1000411", false},
      {"day: too late", RepliedDaily("DAY", Daily(1000410) + Daily(1091232)), "DATD:DAY____1000410",
       false},
      {"day: no number", RepliedDaily("DAY", Daily(1000410) + Daily(kNone)), "DATD:DAY____1000410",
       false},
      {"day: marker", RepliedDaily("DAY", kMarker), "DATD:LAST___1000420", false},
  };
  for (const auto& test : kCases) {
    stores.MasterCount = stores.EMasterCount = 0;
    std::fill(stores.EMasterSelected.begin(), stores.EMasterSelected.end(), std::int16_t{0});
    std::fill(stores.MasterSelected.begin(), stores.MasterSelected.end(), std::int16_t{0});
    for (const char* code : {"TEF", "NEXT"}) AddIntraday(code);
    for (const char* code : {"DAY", "LAST"}) AddDaily(code);
    Start();
    platform.avanzar(2000);
    Asked();
    Arrive(test.reply);
    EXPECT_EQ(Asked(), test.asked) << test.name;
    EXPECT_EQ(stores.EMasterSelected[1], test.done ? 1 : 0) << test.name;
    platform.avanzar(2000);
    Asked();
  }
}

TEST_F(HistoryDownload, TheEndMarkerStopsAtTheFirstEntryThatIsPending) {
  for (const char* code : {"A", "B", "C", "B"}) AddDaily(code);
  stores.MasterSelected[1] = 1;
  Start();
  Arrive(RepliedDaily("B", kMarker));
  EXPECT_EQ(Asked(), "DATD:B______1000420 DATD:C______1000420");
  EXPECT_EQ(Lines(), "D:B SA;");
  Arrive(RepliedDaily("C", Daily(1000425)));
  EXPECT_EQ(Asked(), "DATD:B______1000419");
}

TEST_F(HistoryDownload, NeverAsksPastWhatAFileHolds) {
  AddIntraday("TEF", 1000420);
  AddIntraday("TEF", 1000410);
  AddIntraday("TEF", 1000401);
  stores.EMasterSelected[3] = 1;
  AddDaily("TEF", 1000411);
  download.RequestIntraday("TEF", 1000425, 93000.6F, 1);
  download.RequestDaily(std::string_view("TEF\0", 4), 1000425);
  download.RequestDaily("OTHER", 1000425);
  peer().Accept();
  EXPECT_EQ(Asked(), "DATA:TEF____1000410:093001 DATD:TEF____1000411 DATD:OTHER__1000425");
}

TEST_F(HistoryDownload, AsksTheUserForTheDateOfANewInstrument) {
  AddIntraday("NEW", 0, 0, 0);
  AddIntraday("TEF");
  std::string typed = "980931";
  int boxes = 0;
  download.steps.Preguntar = [&](std::string_view text) {
    ++boxes;
    EXPECT_TRUE(text.starts_with("El instrumento NEW     es nuevo, ¿Desde que fecha"));
    // Meanwhile: other requests wait, the channel goes, time passes.
    download.Actualizar();
    download.ReanudarDescarga();
    download.RequestDaily("DAY", 1000420);
    peer().PeerClose();
    platform.avanzar(30000);
    return typed;
  };
  Start();
  EXPECT_EQ(boxes, 0);  // not inside the event of the socket
  platform.RunPosted();
  EXPECT_EQ(Asked(), "");
  peer().Accept();
  EXPECT_EQ(Asked(), "DATA:NEW____980931:000000 DATD:DAY____1000420");
  EXPECT_EQ(boxes, 1);
  typed = "1e999";  // is no answer
  download.steps.Preguntar = [&](std::string_view) { return typed; };
  for (const char* asked : {"DATA:NEW____000000:000000", "DATA:NEW____000103:000000"}) {
    platform.avanzar(2000);
    download.RequestIntraday("NEW", 0, 0, 1);
    platform.RunPosted();
    EXPECT_EQ(Asked(), asked);
    typed = "103";
  }
}

TEST_F(HistoryDownload, BadServersGetABoundedNumberOfRequests) {
  AddIntraday("TEF");
  const auto refuse = [&] { peer().Fail("refused"); };
  const auto hang_up = [&] { (peer().Accept(), peer().PeerClose()); };
  const auto be_silent = [&] { peer().Accept(); };
  const auto repeat = [&] {
    peer().Accept();
    const std::string rows = Intraday(1000419, 1) + Intraday(1000419, -1);
    for (int i = 0; i < 5; ++i) Arrive(RepliedIntraday("TEF", rows));
  };
  int made_up = 0;
  const auto make_up = [&] {
    peer().Accept();
    for (int i = 0; i < 5; ++i) {
      Arrive(RepliedIntraday(std::to_string(++made_up), Intraday(0, -1) + Intraday(1000419, -1)));
    }
  };
  const struct {
    const char* name;
    std::function<void()> server;
    std::size_t connects, requests, questions;
  } kCases[] = {{"refuses", refuse, 60, 0, 0},
                {"hangs up", hang_up, 13, 13, 0},
                {"is silent", be_silent, 1, 1, 0},
                {"repeats a bad row", repeat, 1, 61, 0},
                {"makes up instruments", make_up, 1, 61, 60}};
  std::size_t questions = 0;
  download.steps.Preguntar = [&](std::string_view) {
    ++questions;
    return std::string();
  };
  for (const auto& test : kCases) {
    peer().Close();
    Asked();
    download.Cancelar();
    download.DataBusy = 0;
    platform.avanzar(2000);
    const auto connects = peer().connects;
    const std::size_t requests = peer().writes.size();
    download.Actualizar();
    for (int ms = 0; ms < 60000; ms += 100) {
      test.server();
      platform.avanzar(100);
      if (ms % 5000 == 0) download.ReanudarDescarga();
    }
    const std::size_t seen_by_server[] = {static_cast<std::size_t>(peer().connects - connects),
                                          peer().writes.size() - requests, questions};
    const std::size_t most[] = {test.connects, test.requests, test.questions};
    for (int i = 0; i < 3; ++i) {
      EXPECT_LE(seen_by_server[i], most[i]) << test.name << i;
      EXPECT_GE(seen_by_server[i], most[i] / 2) << test.name << i;
    }
    questions = 0;
  }
}

TEST_F(HistoryDownload, ResumesAfterTheServerHasHungUp) {
  AddIntraday("TEF");
  download.ReanudarDescarga();  // nothing runs yet
  EXPECT_EQ(peer().connects, 0);
  Start();
  EXPECT_EQ(Asked(), "DATA:TEF____1000420:093000");
  download.ReanudarDescarga();
  EXPECT_EQ(Asked(), "");
  peer().PeerClose();
  EXPECT_EQ(download.DataBusy, 0);
  platform.avanzar(5000);
  EXPECT_EQ(peer().connects, 1);
  download.ReanudarDescarga();
  download.ReanudarDescarga();
  peer().Accept();
  EXPECT_EQ(Asked(), "DATA:TEF____1000419:093000");
}

TEST_F(HistoryDownload, ADateThatIsNoNumberIsAskedForAndManyRequestsWait) {
  download.steps.Preguntar = [](std::string_view) { return "000105"; };
  download.RequestIntraday("BAD", kNone, std::numeric_limits<float>::infinity(), 1);
  download.RequestDaily("HUGE", std::numeric_limits<float>::max());
  for (int i = 0; i < 200; ++i) download.RequestDaily(std::to_string(i), 1000420);
  download.RequestDaily("5", 1000420);
  peer().Accept();
  platform.avanzar(10000);
  ASSERT_EQ(peer().writes.size(), 100U);
  EXPECT_TRUE(peer().writes[0].starts_with("DATA:BAD    000105:000000"));
  EXPECT_TRUE(peer().writes[1].starts_with("DATD:HUGE   340282"));
}

TEST_F(HistoryDownload, ASecondStartAsksForNothingThatIsOnItsWay) {
  AddIntraday("TEF");
  Start();
  download.Actualizar();
  EXPECT_EQ(Asked(), "DATA:TEF____1000420:093000");
  peer().Arrive(RepliedIntraday("TEF", Repeat(Intraday(1000425, 93000), 200)));
  platform.avanzar(0);
  download.Actualizar();
  EXPECT_EQ(Asked(), "");
  platform.RunPosted();
  AddIntraday("SAN");
  platform.avanzar(2000);
  download.Actualizar();
  EXPECT_EQ(Asked(), "DATA:SAN____1000420:093000");
}

TEST_F(HistoryDownload, WhatTheLastConnectionBrokeOffIsNotPutBeforeTheNext) {
  AddIntraday("TEF");
  Start();
  (void)Asked();
  peer().Arrive(std::string("\0AZ[4000000]MQ", 14));
  peer().PeerClose();
  platform.avanzar(5000);
  download.ReanudarDescarga();
  peer().Accept();
  (void)Asked();
  Arrive(RepliedIntraday("TEF", Intraday(1000425, 93000)));
  EXPECT_EQ(stores.EMasterSelected[1], 1);
}

TEST_F(HistoryDownload, ReadsThatComeDuringAStoreFollowApart) {
  for (const char* code : {"TEF", "SAN", "BBV"}) AddIntraday(code);
  Start();
  const std::string rows = Repeat(Intraday(0, 0) + Intraday(1000425, 93000), 6000);
  peer().Arrive(RepliedIntraday("TEF", rows));
  ASSERT_EQ(Lines(), "");  // in slices
  const std::string second = RepliedIntraday("SAN", Intraday(1000425, 93000));
  peer().Arrive(second.substr(0, 20));
  peer().Arrive(second.substr(20));
  peer().Arrive(NoMore("BBV"));
  peer().PeerClose();
  download.ReanudarDescarga();
  platform.avanzar(2000);
  EXPECT_EQ(Lines(), "TEF SA;SAN SA;BBV SA;");
  peer().Accept();
  EXPECT_EQ(Asked(),
            "DATA:TEF____1000420:093000 DATA:TEF____1000425:093000 DATA:SAN____1000419:093000 "
            "DATA:BBV____1000419:093000");

  // So many that most wait in the socket, which doesn't tell of them again.
  stores.EMasterSelected[3] = 0;
  peer().Arrive(RepliedIntraday("TEF", rows));
  for (int i = 0; i < 1200; ++i) peer().Arrive("?");
  peer().Arrive(RepliedIntraday("BBV", ""));
  platform.RunPosted();
  EXPECT_EQ(stores.EMasterSelected[3], 1);
}

TEST_F(HistoryDownload, StoresEachRowInTheFilesWhileQuotesGoOn) {
  using support::BarKind;
  const std::string days = dir.Path("D"), minutes = dir.Path("I");
  for (const char* name : {"D/x", "I/x"}) dir.Write(name, "");
  const support::StoredBar old{1000420, 0, 9, 9, 9, 9, 9};
  support::WriteDailyStore(days, {{.file = 1, .symbol = "TEF", .bars = {old}}});
  support::WriteIntradayStore(minutes, {{.file = 1, .symbol = "TEF", .bars = {old}, .period = 1},
                                        {.file = 2, .symbol = "SAN", .bars = {old}, .period = 1}});
  stores.MasterDir.assign(days);
  stores.EMasterDir.assign(minutes);
  stores.LoadMasterDir();
  stores.LoadEMasterDir();
  stores.EMasterSelected[2] = 1;
  store::Instrumento quote;
  quote.Codigo = store::Codigo("SAN");
  quote.Maximo = quote.Minimo = quote.Ultimo = quote.Apertura = 10;
  quote.Fecha = 1000426;
  quote.Hora = 90000;

  std::vector<support::StoredBar> daily{old}, intraday{old};
  std::string daily_rows, intraday_rows;
  for (int i = 0; i < 120; ++i) {
    const auto n = static_cast<float>(i);
    daily.push_back({1000501 + n, 0, 20 + n, 40 + n, 10 + n, 30 + n, 5 + n});
    std::string row(124, 'x');
    base::PutBytes(row, 0, F32(1000501 + n) + F32(0));
    base::PutBytes(row, 24, F32(5 + n));
    base::PutBytes(row, 100, F32(20 + n) + F32(30 + n) + F32(40 + n) + F32(10 + n));
    daily_rows += row;
    const float time = static_cast<float>(100000 + i / 60 * 10000 + i % 60 * 100);
    intraday.push_back({1000426, time, 31 + n, 40 + n, 30 + n, 32 + n, 5 + n});
    intraday_rows += F32(1000426) + F32(time) + F32(40 + n) + F32(30 + n) + F32(32 + n) +
                     F32(5 + n) + F32(31 + n);
  }
  Start();
  Arrive(RepliedDaily("TEF", daily_rows));
  EXPECT_EQ(support::ReadBars(support::DataPath(days, 1), BarKind::daily_open), daily);
  peer().Arrive(RepliedIntraday("TEF", intraday_rows));
  const std::string tef = support::DataPath(minutes, 1), san = support::DataPath(minutes, 2);
  const int stored = support::LastRecord(tef);
  EXPECT_TRUE(stored > 2 && stored < 120) << stored;
  bars.ActualizarBarras(instruments.GuardarMaestro(quote));
  EXPECT_EQ(support::LastRecord(san), 3);
  platform.RunPosted();
  EXPECT_EQ(support::ReadBars(tef, BarKind::intraday_open), intraday);
  EXPECT_EQ(support::LastRecord(san), 3);
}

TEST_F(HistoryDownload, TheEndOfTheSessionKeepsAReplyAndTheEndOfTheProgramDropsIt) {
  for (const bool stop : {false, true}) {
    stores.EMasterCount = 0;
    for (const char* code : {"TEF", "SAN"}) AddIntraday(code);
    Start();
    download.RequestIntraday("NEW", 0, 0, 1);
    download.steps.Preguntar = [&](std::string_view) {
      FaseCierre = stop ? 1 : 0;
      download.Cancelar();
      return "980931";
    };
    Asked();
    peer().Arrive(RepliedIntraday("TEF", Repeat(Intraday(1000425, 93000), 12000)));
    peer().Arrive(NoMore("SAN"));
    platform.RunPosted();
    peer().Close();
    platform.avanzar(5000);
    EXPECT_EQ(Asked(), "");
    EXPECT_EQ(stores.EMasterSelected[1], stop ? 0 : 1);
    EXPECT_EQ(stores.EMasterSelected[2], 0);
    EXPECT_EQ(platform.running_timers(), 0U);
    stores.EMasterSelected[1] = 0;
  }
  download.Actualizar();
  EXPECT_EQ(peer().state(), platform::Socket::State::closed);
}

TEST_F(HistoryDownload, ShowsNamesOfAnyBytesAndNotWithoutEnd) {
  AddIntraday("TEF");
  stores.EMasterTable[1].Name.assign(std::string_view("A\n\0\xF1<b>", 7));
  Start();
  for (int i = 0; i < 2500; ++i) Arrive(NoMore("TEF"));
  EXPECT_EQ(form.List1.items().size(), 500U);
  EXPECT_EQ(base::TrimEnd(form.List1.items()[0]), "A  ñ<b>");
}

}  // namespace
