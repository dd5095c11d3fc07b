#include "charts/tick_files.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <limits>
#include <numeric>
#include <random>
#include <set>
#include <sys/stat.h>
#include <vector>

#include "base/bytes.h"
#include "support/temp_dir.h"

namespace {

using namespace charts;  // NOLINT
using store::Codigo;
namespace fs = std::filesystem;

constexpr float kNone = std::numeric_limits<float>::quiet_NaN();

/// What an update brings.
struct Quote {
  float Minimo, Ultimo, Volumen, Hora = 93015, MercadoHora = 93016, MercadoFecha = 1000426;
};

std::string Bytes(std::initializer_list<float> fields) {
  std::string bytes;
  for (const float field : fields) base::AppendField(bytes, field);
  return bytes;
}

std::string File(std::string_view code) { return "Ticks/" + RutaTick(Codigo(code)); }

class TickFile : public testing::Test {
 protected:
  void Update(std::string_view code, const Quote& quote) {
    store::Instrumento record;
    record.Codigo = Codigo(code);
    record.Minimo = quote.Minimo;
    record.Ultimo = quote.Ultimo;
    record.Volumen = quote.Volumen;
    record.Hora = quote.Hora;
    store.MercadoHora = quote.MercadoHora;
    store.MercadoFecha = quote.MercadoFecha;
    ticks.TickAppend(store.GuardarMaestro(record));
  }
  /// The prices that reading visits; `count` is the number of records that it gives.
  std::vector<float> Read(std::string_view code) {
    std::vector<float> prices;
    count = ticks.Leer(Codigo(code), [&](const Tick& tick) { prices.push_back(tick.Precio); });
    return prices;
  }

  const support::TempDir dir;
  const base::ProgramDir program{dir.path()};
  store::InstrumentStore store;
  TickFiles ticks{program, store};
  std::int64_t count = -1;
};

TEST_F(TickFile, RecordsWhatIsBelievableAndNew) {
  program.MakeDirectory("Ticks");
  const struct {
    const char* code;
    std::vector<Quote> quotes;
    std::size_t records;
  } kCases[] = {
      {"REPEAT", {{9, 10, 100}, {9, 10, 100, 1, 2, 3}}, 1},
      {"VOLUME", {{9, 10, 100}, {9, 10, 200}, {9, 10, 100}}, 3},
      {"PRICE", {{9, 10, 100}, {9, 9, 100}}, 2},
      {"HALF", {{20, 10, 100}, {20, 10.25F, 100}}, 1},
      {"NOTRADE", {{9, 0, 0}, {0, 0, 0}, {0, 0, 5}}, 0},
      {"CLOCK", {{9, 10, 1, 93015, 0, 0}}, 1},
      {"NOTIME", {{9, 10, 1, 0, 0}, {9, 10, 1, 5, -1}, {9, 10, 1, 5, kNone}}, 0},
      {"NAN", {{kNone, 10, 1}, {9, kNone, 1}}, 0},
      {"BELOW0", {{-4, 0, 0}, {-4, -1, 0}}, 1},  // before the first there was 0, 0
  };
  for (const auto& [code, quotes, records] : kCases) {
    for (const Quote& quote : quotes) Update(code, quote);
    EXPECT_EQ(dir.Read(File(code)).size(), records * 16) << code;
  }
  EXPECT_FALSE(dir.Has(File("NOTRADE")));
  EXPECT_EQ(dir.Read(File("CLOCK")), std::string("\0\0 A\0\0\x80?\x80\xab\xb5G\0\0\0\0", 16));
}

// Files are torn and grown by others in between.
TEST_F(TickFile, OfARandomSessionIsWhatAPlainRecorderWrites) {
  program.MakeDirectory("Ticks");
  constexpr std::array kPrices{10.F, 10.F, 10.25F, 5.F, 0.F, -1.F, kNone, 1e30F};
  constexpr std::array kVolumes{0.F, 100.F, 100.F, 200.F, 1e9F, kNone};
  constexpr std::array kTimes{93015.F, 0.F, 120000.F, -5.F};
  std::mt19937 random(1);
  const auto one_of = [&](const auto& values) { return values[random() % values.size()]; };
  std::array<std::string, 3> files;
  for (int step = 0; step < 3000; ++step) {
    const std::size_t n = random() % files.size();
    const std::string code = "C" + std::to_string(n);
    std::string& file = files[n];
    if (random() % 50 == 0) {
      file.resize(file.size() - random() % std::min<std::size_t>(file.size() + 1, 40));
      dir.Write(File(code), file += std::string(random() % 20, 'x'));
    }
    const Quote quote{one_of(kPrices), one_of(kPrices), one_of(kVolumes),
                      one_of(kTimes),  one_of(kTimes),  one_of(kTimes)};
    Update(code, quote);
    const float time = quote.MercadoHora == 0 ? quote.Hora : quote.MercadoHora;
    if (!(quote.Ultimo > quote.Minimo * 0.5F && time > 0)) continue;
    const std::string whole = file.substr(0, file.size() / 16 * 16);
    float price = 0, volume = 0;
    (void)base::ReadField(whole, whole.size() - 16, price);
    (void)base::ReadField(whole, whole.size() - 12, volume);
    if (price == quote.Ultimo && volume == quote.Volumen) continue;
    file = whole + Bytes({quote.Ultimo, quote.Volumen, time, quote.MercadoFecha});
  }
  for (std::size_t n = 0; n < files.size(); ++n) {
    EXPECT_GT(files[n].size(), 1000u);
    EXPECT_EQ(dir.Read(File("C" + std::to_string(n))), files[n]) << n;
  }
}

TEST_F(TickFile, HasAPlainNameOfItsOwnWhateverTheCode) {
  EXPECT_EQ(RutaTick(Codigo("TEF")), "TEF    .TCK");
  EXPECT_EQ(RutaTick(Codigo("+-_.&a9")), "+-_.&a9.TCK");
  EXPECT_EQ(RutaTick(Codigo("../../x")), "..%2F..%2Fx.TCK");
  EXPECT_EQ(RutaTick(Codigo({"%2F\xf1\\\0\n", 7})), "%252F%F1%5C%00%0A.TCK");

  program.MakeDirectory("Ticks");
  for (int byte = 0; byte < 256; ++byte) {
    Update(std::string(7, static_cast<char>(byte)), {9, 10, static_cast<float>(byte)});
  }
  std::set<std::string> contents;
  for (const auto& entry : fs::recursive_directory_iterator(dir.path())) {
    contents.insert(dir.Read("Ticks/" + entry.path().filename().string()));
  }
  EXPECT_EQ(contents.size(), 257u);  // the directory itself counts
}

TEST_F(TickFile, IsLostWithoutItsDirectoryOrWhereSomethingElseStands) {
  Update("A", {9, 10, 1});
  EXPECT_TRUE(Read("A").empty() && count == 0 && fs::is_empty(dir.path()));
  fs::create_directories(dir.Path(File("A")));
  ASSERT_EQ(mkfifo(dir.Path(File("B")).c_str(), 0600), 0);
  for (const char* const code : {"A", "B"}) {
    Update(code, {9, 10, 1});
    EXPECT_TRUE(Read(code).empty() && count == 0);
  }
  EXPECT_TRUE(Read("C").empty() && dir.Has(File("C")));
}

TEST_F(TickFile, IsReadWithoutTheBadOnesByItsFirstPrice) {
  const std::vector<float> prices{0, -1, kNone, 10, 5, 5.5F, 4, 30, 11};
  std::string file;
  for (const float price : prices) file += Bytes({price, 100, 93015, 1000426});
  dir.Write(File("A"), file + "torn");
  EXPECT_EQ(Read("A"), (std::vector<float>{10, 5.5F, 30, 11}));  // 30 doesn't measure
  EXPECT_EQ(count, 9);
}

TEST_F(TickFile, IsReadAtItsEndAloneWhereItIsTooLong) {
  constexpr auto kMost = TickFiles::kMaxLeidos;
  dir.Write(File("A"), Bytes({200, 0, 0, 0}));
  fs::resize_file(dir.Path(File("A")), std::uintmax_t{1} << 40U);
  std::vector<float> added(kMost + 1);
  std::iota(added.begin(), added.end(), 300.F);
  added[kMost / 2] = 90;       // bad
  added[kMost / 2 + 1] = 120;  // believed for the first price of the file
  std::string end;
  for (const float price : added) end += Bytes({price, 0, 0, 0});
  std::ofstream(dir.Path(File("A")), std::ios::app) << end;
  added.erase(added.begin() + kMost / 2);
  added.erase(added.begin());
  EXPECT_TRUE(Read("A") == added);
  EXPECT_EQ(count, (std::int64_t{1} << 36U) + kMost + 1);
}

}  // namespace
