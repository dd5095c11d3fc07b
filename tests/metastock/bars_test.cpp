#include "metastock/bars.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <limits>
#include <map>
#include <random>

#include "support/bytes.h"
#include "support/memory_platform.h"
#include "support/meta_store.h"
#include "support/temp_dir.h"

namespace {

using namespace metastock;  // NOLINT
using store::Instrumento;
using support::BarKind, support::I16, support::StoredBar, support::StoredEntry;

// The routines once more, step by step, on bytes in memory; whole numbers for times.
struct Plain {
  std::map<std::pair<char, int>, std::string> files;  // 'I' or 'D' and the number
  Stores::Table<BarState> states;
  std::int16_t header = 0;  // as it was read last
  double work_date = 0;

  static int Slot(float time, int period) {
    const std::string text = std::to_string(static_cast<int>(time));
    const std::size_t digits = time < 100000 ? 1 : 2;
    const auto at = [&](std::size_t from, std::size_t n) {
      return from < text.size() ? std::stoi(text.substr(from, n)) : 0;
    };
    return period == 0 ? 0 : (at(0, digits) * 60 + at(digits, 2)) / period;
  }
  static void Number(const std::string& file, std::size_t offset, std::int16_t& number) {
    if (file.size() >= offset + 2) (void)base::ReadField(file, offset, number);
  }
  static void Up(std::int16_t& number) {
    if (number < 32767) ++number;
  }
  static void Put(std::string& file, int n, const std::vector<float>& fields) {
    std::string record;
    // Zero isn't what the format has for it.
    for (const float f : fields) record += f == 0 ? std::string("\0\0\0\x02", 4) : support::Mbf(f);
    if (n > 0) base::PutBytes(file, static_cast<std::size_t>(n - 1) * record.size(), record);
  }
  static double DateIn(const std::string& file, int n, std::size_t width, double otherwise) {
    const std::size_t at = static_cast<std::size_t>(n - 1) * width;
    const bool there = n > 0 && file.size() >= at + width;
    return there ? support::MbfValue(file.substr(at)) : otherwise;
  }
  void PutIntraday(std::string& file, bool wide, bool fresh, const Bar& b) const {
    std::int16_t last = 0;
    Number(file, 2, last);
    if (fresh) base::PutBytes(file, 2, I16((Up(last), last)));
    if (wide) Put(file, last, {b.Date, b.Time, b.Open, b.High, b.Low, b.Close, b.Volume});
    if (!wide) Put(file, last, {b.Date, b.Time, b.High, b.Low, b.Close, b.Volume});
  }

  void Live(const Stores& stores, std::size_t i, Bar& b) {
    if (b.Close == 0 || b.Low == 0 || b.High == 0) return;
    BarState& s = states[i];
    if (b.Date > s.Date) s.Slot = 0, s.Date = b.Date;
    const int slot = Slot(b.Time, stores.EMasterTable[i].Period);
    if (s.VolumeBase == 0 || s.VolumeNow == 0) s.VolumeBase = b.Volume;
    s.VolumeNow = b.Volume;
    for (float* f : {&s.High, &s.Low, &s.Close, &s.Open}) *f = *f == 0 ? b.Close : *f;
    const bool fresh = s.Slot != slot;
    if (fresh && s.High == s.Low && s.Close == b.Close) return;
    if (fresh) {
      s.Slot = static_cast<std::int16_t>(slot);
      s.Time = b.Time;
      s.Close = s.High = s.Low = s.Open = b.Close;
      s.VolumeBase = s.VolumeNow = b.Volume;
    }
    b.Volume = s.VolumeNow - s.VolumeBase;
    if (s.Open > s.High || s.Open < s.Low) s.Open = b.Close;
    b.Open = s.Open;
    if (s.High < b.Close) s.High = b.Close;
    if (s.Low > b.Close) s.Low = b.Close;
    if (s.Low < b.Low) s.Low = b.Close;
    if (s.High > b.High) s.High = b.Close;
    b.Low = s.Low;
    b.High = s.High;
    PutIntraday(files[{'I', stores.EMasterTable[i].FileNumber}], stores.EMasterWide[i] == 1, fresh,
                b);
  }
  void Historic(const Stores& stores, std::size_t i, Bar& b) {
    if (b.High / 2 > b.Low) b.Low = b.Close;
    BarState& s = states[i];
    if (b.Close == 0 || b.Low == 0 || b.High == 0 || b.Date < s.Date) return;
    if (b.Date > s.Date) s.Slot = 0, s.Date = b.Date, s.Time = 0;
    if (s.Time > b.Time && b.Date == s.Date) return;
    const int slot = Slot(b.Time, stores.EMasterTable[i].Period);
    if (s.VolumeBase == 0 || s.VolumeNow == 0) s.VolumeBase = s.VolumeNow = b.Volume;
    s.VolumeNow += b.Volume;
    if (s.High == 0) s.High = b.High;
    if (s.Low == 0) s.Low = b.Low;
    if (s.Close == 0) s.Close = b.Close;
    if (s.Open == 0) s.Open = b.Open;
    const bool fresh = s.Slot != slot;
    if (fresh && s.High == s.Low && s.Close == b.Close) return;
    if (fresh) {
      s = {s.Date, b.Time, b.High, b.Low, b.Close, b.Volume, static_cast<std::int16_t>(slot),
           b.Open, s.Aux,  0};
    }
    s.VolumeNow += s.VolumeBase;
    b.Volume = s.VolumeNow;
    if (s.Open > s.High || s.Open < s.Low) s.Open = b.Close;
    s.High = std::max(s.High, b.High);
    s.Low = std::min(s.Low, b.Low);
    b.Open = s.Open == 0 ? b.Close : s.Open;
    b.Low = s.Low == 0 ? b.Close : s.Low;
    b.High = s.High;
    PutIntraday(files[{'I', stores.EMasterTable[i].FileNumber}], stores.EMasterWide[i] == 1, fresh,
                b);
  }
  void Daily(const Stores& stores, std::size_t i, const Bar& b) {
    if (b.Close == 0 || b.Low == 0 || b.High == 0) return;
    const int number = stores.MasterTable[i].FileNumber;
    std::string& file = files[{'D', number}];
    std::int16_t n = 0;
    if (stores.MasterWide[i] == 0) {
      Number(file, 20, n);
      n = std::max<std::int16_t>(n, 2);
      if (DateIn(file, n, 20, 0) < static_cast<double>(b.Date)) {
        base::PutBytes(file, 20, I16((Up(n), n)));
      }
      return Put(file, n, {b.Date, b.High, b.Low, b.Close, b.Volume});
    }
    Number(file, 2, n);
    Number(file, 2, header);
    // Asked by the number of the file; of a narrow one the date read last stands.
    const bool wide = stores.MasterWide[static_cast<std::size_t>(number)] == 1;
    if (header > 1 && wide) work_date = DateIn(file, n, 24, work_date);
    if (work_date < static_cast<double>(b.Date)) base::PutBytes(file, 2, I16((Up(n), n)));
    Put(file, n, {b.Date, b.Open, b.High, b.Low, b.Close, b.Volume});
  }
  void Quote(const Stores& stores, const Instrumento& record) {
    Bar b{.Date = record.Fecha, .Time = record.Hora, .Open = record.Apertura};
    b.High = record.Maximo;
    b.Close = record.Ultimo;
    b.Low = b.High / 2 > record.Minimo ? b.Close : record.Minimo;
    b.Volume = record.Volumen;
    if (b.Date < 1000100) b.Date = 427;  // the clock says 26 April 2000
    const auto of_code = [&](auto& table, const auto& selected, auto count, auto each) {
      for (std::size_t i = 1; i <= static_cast<std::size_t>(count); ++i) {
        const std::string symbol(table[i].Symbol.bytes());
        const std::string code = support::Pad(symbol.substr(0, symbol.find('\0')), 7);
        Bar own = b;
        if (code == record.Codigo.bytes() && selected[i] == 1) each(i, own);
      }
    };
    of_code(stores.EMasterTable, stores.EMasterSelected, stores.EMasterCount,
            [&](std::size_t i, Bar& own) {
              if (own.High / 2 < own.Close) Live(stores, i, own);
            });
    of_code(stores.MasterTable, stores.MasterSelected, stores.MasterCount,
            [&](std::size_t i, Bar& own) {
              if (own.High / 2 < own.Close) Live(stores, i, own);
              Daily(stores, i, own);
            });
  }
};

struct BarsTest : testing::Test {
  BarsTest() {
    bars.on_live = [this] { ++told; };
    dir.Write("I/x", "");
    dir.Write("D/x", "");
  }
  void Load(const std::vector<StoredEntry>& daily, const std::vector<StoredEntry>& intraday) {
    support::WriteDailyStore(dir.Path("D"), daily);
    support::WriteIntradayStore(dir.Path("I"), intraday);
    LoadTables();
  }
  void LoadTables() {
    stores.MasterDir = base::FixedText<50>(dir.Path("D"));
    stores.EMasterDir = base::FixedText<50>(dir.Path("I"));
    stores.LoadMasterDir();
    stores.LoadEMasterDir();
    stores.MasterSelected.assign(stores.MasterSelected.size(), 1);
    stores.EMasterSelected = stores.MasterSelected;
  }
  void Quote(const Instrumento& record) { bars.ActualizarBarras(market.GuardarMaestro(record)); }
  // Whatever the name's case.
  [[nodiscard]] std::string File(char kind, int number) const {
    const std::string base = std::string(1, kind) + "/F" + std::to_string(number);
    return dir.Has(base + ".DAT") ? dir.Read(base + ".DAT") : dir.Read(base + ".dat");
  }
  void Overwrite(char kind, int number, std::size_t offset, std::string_view bytes) {
    std::string file = File(kind, number);
    base::PutBytes(file, offset, bytes);
    dir.Write(std::string(1, kind) + "/F" + std::to_string(number) + ".DAT", file);
  }

  support::TempDir dir;
  support::MemoryPlatform outside;
  store::InstrumentStore market;
  Stores stores;
  Bars bars{stores, market, outside};
  int told = 0;
};

Instrumento Tick(std::string_view code, float last, float time, float volume) {
  Instrumento record;
  record.Codigo.assign(code);
  record.Maximo = 12;
  record.Minimo = record.Apertura = 9;
  record.Ultimo = last;
  record.Volumen = volume;
  record.Fecha = 1000426;
  record.Hora = time;
  return record;
}

const StoredBar kOld{1000425, 173000, 10, 11, 9, 10, 500};

TEST_F(BarsTest, RandomStreamsGiveTheBytesOfAPlainFormulation) {
  const std::vector<float> prices{10, 10, 10, 10.25F, 9.5F, 11.125F, 5, -3, 0};
  const std::vector<float> times{0, 959, 5959, 93000, 93455, 95960, 99999, 100000, 101530, 173200};
  const std::vector<float> dates{1000425, 1000426, 1000426, 1000427, 0, 991231, 1000428};
  for (unsigned seed = 1; seed <= 8; ++seed) {
    std::mt19937 random(seed);
    const auto any = [&](const auto& of) { return of[random() % of.size()]; };
    // Numbers that differ from positions, two entries of a code, and daily ones without a partner.
    Load({{.file = 3, .symbol = "TEF", .bars = {kOld, kOld}},
          {.file = 1, .symbol = "SAN", .bars = {kOld, kOld}, .open = false},
          {.file = 2, .symbol = "TEF", .bars = {kOld, kOld}},
          {.file = 4, .symbol = "SAN", .bars = {}}},
         {{.file = 7, .symbol = "SAN", .bars = {kOld, kOld}, .inicio = 90000},
          {.file = 8, .symbol = std::string("TEF\0X", 5), .bars = {kOld}, .open = false},
          {.file = 9, .symbol = "TEF", .bars = {kOld, kOld, kOld}, .period = 15}});
    dir.Write("I/F0.DAT", "");
    stores.MasterSelected[1 + seed % 4] = 0;
    Plain plain;
    plain.states = stores.BarState;
    plain.header = 4;
    plain.work_date = stores.DailyWork.Date;
    for (const int n : {7, 8, 9, 0}) plain.files[{'I', n}] = File('I', n);
    for (const int n : {1, 2, 3, 4}) plain.files[{'D', n}] = File('D', n);
    for (int n = 0; n < 250; ++n) {
      Instrumento record = Tick(random() % 2 != 0 ? "TEF" : "SAN", any(prices), any(times),
                                static_cast<float>(random() % 5 * 250));
      record.Fecha = any(dates);
      if (random() % 3 == 0) record.Maximo = any(prices);
      if (random() % 3 == 0) record.Minimo = any(prices);
      Quote(record);
      plain.Quote(stores, record);
      Bar row{any(dates),
              any(times),
              any(prices),
              any(prices),
              any(prices),
              any(prices),
              static_cast<float>(random() % 4 * 100)};
      Bar same = row;
      const std::size_t entry = 1 + random() % 5;
      if (random() % 2 != 0) {
        bars.UpdateHistoricIntraday(static_cast<int>(entry), row);
        plain.Historic(stores, entry, same);
        EXPECT_TRUE(row.Volume == same.Volume && row.Low == same.Low && row.Open == same.Open);
      } else if (entry <= 4) {
        bars.UpdateDaily(static_cast<int>(entry), row);
        plain.Daily(stores, entry, same);
      }
    }
    for (const auto& [name, bytes] : plain.files) {
      EXPECT_TRUE(File(name.first, name.second) == bytes)
          << "seed " << seed << ", " << name.first << name.second;
    }
    EXPECT_GT(support::LastRecord(dir.Path("I/F7.DAT")), 20);
    EXPECT_GT(support::LastRecord(dir.Path("D/F3.DAT")), 3);
  }
}

TEST_F(BarsTest, QuotesOfASlotRewriteItsBarAndTheNextAddsOne) {
  Load({{.file = 1, .symbol = "TEF", .bars = {kOld}}},
       {{.file = 2, .symbol = "SAN", .bars = {kOld}}});
  outside.clock = {.year = 2000, .month = 11, .day = 16};
  Quote(Tick("SAN", 10, 93000, 1000));
  Quote(Tick("SAN", 11, 93100, 1500));
  Quote(Tick("SAN", 10.5F, 93500, 1600));
  Quote(Tick("SAN", 6, 94000, 1700));  // not above half the high of the day
  const std::vector<StoredBar> made{kOld,
                                    {1000426, 93100, 10, 11, 10, 11, 500},
                                    {1000426, 93500, 10.5F, 10.5F, 10.5F, 10.5F, 0x1p-127F}};
  EXPECT_EQ(support::ReadBars(dir.Path("I/F2.DAT"), BarKind::intraday_open), made);
  EXPECT_EQ(told, 3);
  Quote(Tick("SAN", 10.5F, 94600, 1800));  // flat
  Quote(Tick("SAN", 10.5F, 95100, 1900));
  EXPECT_EQ(support::LastRecord(dir.Path("I/F2.DAT")), 4);
  EXPECT_EQ(told, 3);

  // The daily entry moves the intraday one of its number, then takes the bar that came of it.
  Instrumento undated = Tick("TEF", 11, 95500, 2000);
  undated.Fecha = 0;
  undated.Minimo = 5;
  Quote(undated);
  EXPECT_EQ(support::LastRecord(dir.Path("I/F2.DAT")), 5);
  EXPECT_EQ(support::ReadBars(dir.Path("D/F1.DAT"), BarKind::daily_open),
            std::vector({StoredBar{1117, 0, 11, 11, 11, 11, 0x1p-127F}}));
  Quote(Tick("TEF", 4, 95500, 2000));
  EXPECT_EQ(support::ReadBars(dir.Path("D/F1.DAT"), BarKind::daily_open).back().close, 4);
}

TEST_F(BarsTest, NarrowDailyFilesCountInTheirFirstBar) {
  Load({{.file = 1, .symbol = "TEF", .bars = {kOld}, .open = false}}, {});
  stores.EMasterDir = {};
  Overwrite('D', 1, 20, I16(1));
  Quote(Tick("TEF", 10, 93000, 700));
  const std::string file = File('D', 1);
  EXPECT_EQ(file.substr(20, 2), I16(3));
  EXPECT_EQ(file.substr(22, 18), support::DataFile(BarKind::daily, {kOld}).substr(22));
  EXPECT_EQ(support::MbfValue(file.substr(40)), 1000426);
  EXPECT_EQ(support::LastRecord(dir.Path("D/F1.DAT")), 2);
}

TEST_F(BarsTest, NumbersAtTheirLimitsLoseNoOtherBar) {
  struct Case {
    std::int16_t last, then;
    std::size_t size;  // of the wide intraday file, which begins with 56 bytes
  };
  for (const auto& [last, then, size] : {Case{32767, 32767, 32767 * 28},
                                         {32766, 32767, 32767 * 28},
                                         {-1, 0, 56},
                                         {-32768, -32767, 56},
                                         {1, 2, 56},
                                         {2, 3, 84}}) {
    Load({}, {{.file = 2, .symbol = "SAN", .bars = {kOld}}});
    Overwrite('I', 2, 2, I16(last));
    Quote(Tick("SAN", 10, 93000, 1000));
    EXPECT_EQ(support::LastRecord(dir.Path("I/F2.DAT")), then) << last;
    EXPECT_EQ(File('I', 2).size(), size) << last;
    EXPECT_EQ(support::MbfValue(File('I', 2).substr(28)), last == 1 ? 1000426 : 1000425) << last;
  }
}

TEST_F(BarsTest, WhatIsMissingIsMadeAndWhatIsNoNumberPasses) {
  Load({{.file = 1, .symbol = "TEF", .bars = {kOld}}},
       {{.file = 2, .symbol = "TEF", .bars = {kOld}}});
  constexpr float kInf = std::numeric_limits<float>::infinity();
  constexpr float kMost = std::numeric_limits<float>::max();
  for (const float odd : {kInf, -kInf, std::numeric_limits<float>::quiet_NaN(), kMost, -kMost}) {
    for (const auto field : {&Instrumento::Ultimo, &Instrumento::Maximo, &Instrumento::Minimo,
                             &Instrumento::Volumen, &Instrumento::Fecha, &Instrumento::Hora}) {
      Instrumento record = Tick("TEF", 10, 93000, 1000);
      record.*field = odd;
      Quote(record);
      Bar row{1000426, odd, odd, 11, 9, 10, odd};
      bars.UpdateHistoricIntraday(1, row);
    }
  }
  for (const int beyond : {-1, 0, 501}) {
    Bar bar{1000426, 93000, 10, 11, 9, 10, 100};
    bars.UpdateLiveIntraday(beyond, bar);
    bars.UpdateHistoricIntraday(beyond, bar);
    bars.UpdateDaily(beyond, bar);
  }
  Load({{.file = 5, .symbol = "TEF"}, {.file = 6, .symbol = "SAN"}}, {});
  std::filesystem::remove(dir.Path("D/F5.DAT"));
  std::filesystem::remove(dir.Path("D/F6.DAT"));
  stores.LoadMasterDir();
  stores.MasterSelected[1] = stores.MasterSelected[2] = 1;
  stores.EMasterDir = {};
  Quote(Tick("TEF", 10, 93000, 1000));
  // The number of its first record, which is the header's place.
  EXPECT_EQ(File('D', 5).size(), 24U);
  EXPECT_EQ(support::MbfValue(File('D', 5)), 1000426);
  EXPECT_FALSE(dir.Has("I/F0.dat"));
}

}  // namespace
