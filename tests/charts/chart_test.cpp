#include "charts/chart.h"

#include <climits>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace {

using namespace charts;  // NOLINT

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
constexpr float kInf = std::numeric_limits<float>::infinity();
constexpr float kHoy = 1000426, kOtro = 1000427;
const store::Codigo kTef{"TEF"}, kIdx{"I IB"};

Registro At(float hora, float cierre, float volumen = 0, float fecha = kHoy) {
  return {.cierre = cierre, .volumen = volumen, .fecha = fecha, .hora = hora};
}

/// A chart of one series with those records.
struct Uno : Chart {
  explicit Uno(const std::vector<Registro>& records = {}) {
    AddSerie(kTef);
    Mas(records);
  }
  void Mas(const std::vector<Registro>& records) {
    for (const Registro& record : records) AddReg(kTef, record);
    ShowFeed(kTef);
  }
  [[nodiscard]] std::vector<double> Xs(std::size_t line = 0) const {
    std::vector<double> xs;
    for (const Punto& punto : linea(line).puntos) xs.push_back(punto.x);
    return xs;
  }
};

TEST(Chart, RecordsShowWithTheFeedOfTheirCodeOnly) {
  Chart chart;
  std::vector<store::Codigo> asked;
  chart.on_data = [&](const store::Codigo& code) { asked.push_back(code); };
  for (const auto& code : {kTef, kIdx, kTef}) chart.AddSerie(code);
  EXPECT_EQ(asked, (std::vector{kTef, kIdx, kTef}));
  chart.Clean();
  for (const auto& code : {kTef, kIdx, store::Codigo("X")}) chart.AddReg(code, At(93000, 20));
  chart.ShowFeed(store::Codigo("X"));
  EXPECT_FALSE(chart.dirty());
  EXPECT_TRUE(chart.linea(0).puntos.empty());
  chart.ShowFeed(kTef);
  EXPECT_TRUE(chart.dirty());
  EXPECT_TRUE(chart.linea(0).puntos.size() == 1 && chart.linea(1).puntos.empty());
  EXPECT_TRUE(chart.Count(1) == 1 && chart.Count(2) == 1 && chart.Count(3) == 0);
  EXPECT_TRUE(chart.Value(0) == 20 && chart.Value(1) == 0 && chart.Value(0, 0) == 0);
  for (int i = 0; i < 20; ++i) chart.AddSerie(kTef);
  EXPECT_TRUE(chart.series() == 16 && asked.size() == 16);
}

TEST(Chart, TimeRunsForwardThroughDaysAndBadNumbers) {
  constexpr double kDia = 86400;
  const struct {
    std::vector<Registro> records;
    std::vector<double> xs;
  } cases[] = {
      {{At(93015, 1), At(93014, 1), At(93016, 1)}, {34215, 34215, 34216}},
      {{At(93000, 1), At(0, 1, 0, kOtro), At(10, 1, 0, 1010101)}, {34200, kDia, 2 * kDia + 10}},
      {{At(10, 1), At(20, 1, 0, kOtro), At(5, 1)}, {10, kDia + 20, 2 * kDia + 5}},
      {{At(10, 1), At(20, 1, 0, 0), At(30, 1, 0, kNan), At(40, 1, 0, -1)}, {10, 20, 30, 40}},
      {{At(10, 1), At(256075, 1), At(kInf, 1), At(kNan, 1), At(-5, 1)},
       {10, kDia - 1, kDia - 1, kDia - 1, kDia - 1}},
      {{At(197575, 1)}, {19 * 3600 + 59 * 60 + 59}},
      // Before the market's clock is heard.
      {{At(0, 1, 0, 0), At(kNan, 1, 0, 0), At(93000, 1)}, {34200, 34200, 34200}},
      {{At(0, 1, 0, 0), At(173500, 1, 0, 0), At(93000, 1), At(93001, 1)},
       {34200, 34200, 34200, 34201}},
  };
  for (const auto& item : cases) {
    EXPECT_EQ(Uno(item.records).Xs(), item.xs);
    Uno live;
    live.AddMedia(1);
    for (const Registro& record : item.records) live.Mas({record});
    EXPECT_EQ(live.Xs(), item.xs);
    EXPECT_EQ(live.Xs(1), item.xs) << "average";
  }
  Uno late({At(93000, 1), At(93000, 1, 0, kOtro)});
  late.AddSerie(kIdx);
  late.AddReg(kIdx, At(93100, 1, 0, kOtro));
  late.ShowFeed(kIdx);
  EXPECT_EQ(late.Xs(1), std::vector{kDia + 34260}) << "days are those of the chart";
  late.AddSerie(store::Codigo("X"));
  late.AddReg(store::Codigo("X"), At(80000, 900, 0, 0));
  late.ShowFeed(store::Codigo("X"));
  EXPECT_TRUE(late.vista().desde == 34200 && late.vista().maximo < 2) << "no clock, no place";
  Uno early({At(0, 900, 0, 0)});
  early.AddSerie(kIdx);
  early.AddReg(kIdx, At(93000, 1));
  early.ShowFeed(kIdx);
  EXPECT_EQ(early.vista().desde, 34200);
  late.AddMedia(1);
  for (int i = 0; i < 5; ++i) late.AddReg(kIdx, At(93101, 1, 0, kOtro));
  late.ShowFeed(kIdx);
  EXPECT_EQ(late.Xs(3), late.Xs(0)) << "averages are those of the first";
}

TEST(Chart, VolumeIsWhatIsTradedByTheMinute) {
  const std::vector records = {At(0, 1, 50, 0),    At(0, 1, 60, 0),       At(93059, 1, 80),
                               At(93100, 1, 100),  At(93110, 1, 90),      At(93159, kNan, 100),
                               At(93159, 1, kNan), At(93159, 1, -kInf),   At(93201, 1, 130),
                               At(93302, 1, 130),  At(90000, 1, 7, kOtro)};
  Uno live;
  for (const Registro& record : records) live.Mas({record});
  Uno once(records);
  for (Uno* chart : {&once, &live}) {
    std::string text;
    for (const Barra& barra : chart->barras())
      text += Chart::TextoHora(barra.x) + " " + std::to_string(std::lround(barra.volumen)) + "; ";
    EXPECT_EQ(text, "09:30:00 30; 09:31:00 20; 09:32:00 40; 09:00:00 7; ");
  }
  EXPECT_EQ(once.vista().volumen, 40);
  once.Acercar(34375, 1e-9);  // the end of 09:32
  EXPECT_EQ(once.vista().volumen, 40);
  EXPECT_EQ(once.Senalar(34321)->negociado, 40);
  EXPECT_EQ(once.Senalar(0)->negociado, 20);
}

TEST(Chart, AveragesAndExtremesEqualThePlainOnes) {
  std::mt19937 random(7);
  const auto below = [&](std::uint32_t n) { return static_cast<float>(random() % n); };
  for (const int n : {1, 2, 7, 255, 256, 900}) {
    Uno chart;
    chart.AddMedia(n);
    std::vector<double> closes;
    for (int i = 0; i < 3000; ++i) {
      float close = 20 + below(1000) / 100;
      if (i % 50 == 7) close = i % 100 == 7 ? kNan : -kInf;
      if (i == 1500) close = 3e38F;
      chart.AddReg(kTef, At(90000 + below(60) + static_cast<float>(i / 60 * 100), close));
      if (std::isfinite(close)) closes.push_back(static_cast<double>(close));
      if (random() % 9 == 0) chart.ShowFeed(kTef);
    }
    chart.ShowFeed(kTef);
    chart.AddMedia(n);  // all at once
    const auto& media = chart.linea(1).puntos;
    ASSERT_EQ(media.size(), closes.size() + 1 - static_cast<std::size_t>(n));
    for (std::size_t i = 0; i < media.size(); ++i) {
      long double sum = 0;
      for (std::size_t j = i; j < i + static_cast<std::size_t>(n); ++j) sum += closes[j];
      const auto plain = static_cast<double>(sum / n);
      ASSERT_NEAR(media[i].y, plain, std::abs(plain) * 1e-12) << n << " at " << i;
      ASSERT_EQ(media[i].y, chart.linea(2).puntos[i].y);
      ASSERT_EQ(media[i].x, chart.linea(0).puntos[i + static_cast<std::size_t>(n) - 1].x);
    }
    for (int round = 0; round < 20; ++round) {
      chart.VerTodo();
      chart.Acercar(34000 + static_cast<double>(below(3000)), 0.01 + below(90) / 100.0);
      const Vista vista = chart.vista();
      double low = 1e300, high = -1e300;
      for (std::size_t line = 0; line < chart.lineas(); ++line) {
        const auto& puntos = chart.linea(line).puntos;
        for (std::size_t i = 0; i < puntos.size(); ++i) {
          const bool before = i + 1 < puntos.size() && puntos[i + 1].x < vista.desde;
          if (before || (i > 0 && puntos[i - 1].x > vista.hasta)) continue;
          low = std::min(low, puntos[i].y), high = std::max(high, puntos[i].y);
        }
      }
      const double middle = (low + high) / 2, half = std::max((high - low) * 0.55, 0.05);
      ASSERT_NEAR(vista.minimo, middle - half, 1e-9 * half + 1e-4);
      ASSERT_NEAR(vista.maximo, middle + half, 1e-9 * half + 1e-4);
    }
  }
  Uno chart;
  for (const int bad : {0, -1, 10001, std::numeric_limits<int>::min()}) chart.AddMedia(bad);
  EXPECT_EQ(chart.lineas(), 1u);
  for (int i = 0; i < 20; ++i) chart.AddMedia(10000);
  EXPECT_EQ(chart.lineas(), 17u);
  EXPECT_EQ(chart.linea(16).nombre, "Media 10000");
}

TEST(Chart, KeepsTheLastRecordsWithTheirVolumeAndAverages) {
  constexpr int kMax = 262144, kLeft = kMax * 3 / 4;
  Uno chart;
  chart.AddMedia(3);
  // Three records a second, one traded with each.
  const auto record = [](int i) {
    const int s = i / 3;
    return At(static_cast<float>(s / 3600 % 24 * 10000 + s / 60 % 60 * 100 + s % 60),
              static_cast<float>(i), static_cast<float>(i),
              1000426 + static_cast<float>(s / 86400));
  };
  for (int i = 0; i <= kMax; ++i) {
    chart.AddReg(kTef, record(i));
    if (i == 200000 || i == kMax - 1) chart.ShowFeed(kTef);
  }
  const unsigned before = chart.linea(1).generation;
  chart.ShowFeed(kTef);
  EXPECT_NE(chart.linea(1).generation, before);
  const auto& puntos = chart.linea(0).puntos;
  ASSERT_EQ(puntos.size(), kLeft + 1u);
  EXPECT_EQ(chart.Count(), puntos.size());
  EXPECT_EQ(puntos.front().y, kMax / 4);
  const auto& media = chart.linea(1).puntos;
  ASSERT_EQ(media.size(), puntos.size() - 2);
  EXPECT_EQ(media.front().y, kMax / 4 + 1);
  EXPECT_EQ(media.back().y, kMax - 1);
  EXPECT_EQ(chart.barras().front().x, std::floor(puntos.front().x / 60) * 60);
  EXPECT_EQ(chart.barras().front().volumen, 180);
  EXPECT_EQ(chart.Senalar(puntos.front().x)->negociado, 1);
  const Vista vista = chart.vista();
  EXPECT_LT(vista.minimo, kMax / 4);
  EXPECT_GT(vista.minimo, 0);
}

TEST(Chart, TheViewStaysWithinWhatThereIsAndGrowsUntilTouched) {
  Uno chart;
  EXPECT_TRUE(chart.vista().desde < chart.vista().hasta);
  chart.Acercar(0, 0.1);
  chart.Mas({At(90030, 20), At(100000, 21)});
  const auto sight = [&] {
    const Vista vista = chart.vista();
    return Chart::TextoHora(vista.desde) + " " + Chart::TextoHora(vista.hasta);
  };
  const struct {
    char what;
    double a, b;
    const char* seen;
  } steps[] = {
      {'p', 0.5, 0, "09:00:00 10:01:00"},      {'z', 34200, 1e9, "09:00:00 10:01:00"},
      {'z', 34200, kNan, "09:00:00 10:01:00"}, {'z', 34200, -1, "09:00:00 10:01:00"},
      {'z', 34230, 0.5, "09:15:15 09:45:45"},  {'p', -0.1, 0, "09:12:12 09:42:42"},
      {'p', kInf, 0, "09:12:12 09:42:42"},     {'p', 1e308, 0, "09:30:30 10:01:00"},
      {'p', -7, 0, "09:00:00 09:30:30"},       {'r', 0, 0, "09:00:00 09:30:30"},  // a later record
      {'z', 32400, 1e-9, "09:00:00 09:00:10"}, {'z', 32400, 0.5, "09:00:00 09:00:10"},
      {'z', 32400, 1e9, "09:00:00 11:01:00"},  {'z', 1e300, 0.5, "10:00:30 11:01:00"},
      {'v', 0, 0, "09:00:00 11:01:00"},
  };
  for (const auto& step : steps) {
    const std::string before = sight();
    chart.Clean();
    if (step.what == 'z') chart.Acercar(step.a, step.b);
    if (step.what == 'p') chart.Desplazar(step.a);
    if (step.what == 'v') chart.VerTodo();
    if (step.what == 'r') chart.Mas({At(110000, 22)});
    EXPECT_EQ(sight(), step.seen) << step.what << step.a << " " << step.b;
    EXPECT_EQ(chart.dirty(), step.what == 'r' || sight() != before) << step.what << step.a;
  }
  EXPECT_TRUE(chart.ve_todo());
}

TEST(Chart, PricesGetRoomWhateverTheyAre) {
  const struct {
    int decimals;
    float low, high;
    double minimo, maximo;
  } cases[] = {{2, 10, 20, 9.5, 20.5},
               {2, 10, 10, 9.95, 10.05},
               {0, 9000, 9000, 8995, 9005},
               {-3, -50, 50, -55, 55},
               {99, 1, 1, 0.999995, 1.000005}};
  for (const auto& item : cases) {
    Uno chart({At(90000, item.low), At(90001, item.high)});
    chart.set_decimals(item.decimals);
    EXPECT_NEAR(chart.vista().minimo, item.minimo, 1e-9);
    EXPECT_NEAR(chart.vista().maximo, item.maximo, 1e-9);
  }
  const Vista huge = Uno({At(90000, 3.4e38F), At(90001, -3.4e38F)}).vista();
  EXPECT_TRUE(std::isfinite(huge.maximo - huge.minimo));
  Uno chart;
  chart.set_decimals(4);
  EXPECT_EQ(chart.TextoPrecio(12345.67891), "12,345.6789");
  EXPECT_EQ(Chart::TextoHora(86400 + 3661), "01:01:01");
  EXPECT_EQ(Chart::TextoHora(-1), "23:59:59");
  EXPECT_EQ(Chart::TextoHora(std::nan("")), "");
}

TEST(Chart, ThePointerFindsTheLastRecordOfTheNearestTime) {
  Uno chart;
  EXPECT_FALSE(chart.Senalar(0));
  chart.Mas({At(10, 1), At(20, 2), At(20, 3), At(20, 4), At(40, 5)});
  const struct {
    double x;
    int steps;
    double found;
  } cases[] = {{-1e300, 0, 1}, {14, 0, 1},    {16, 0, 4},           {29, 0, 4},
               {31, 0, 5},     {1e300, 0, 5}, {10, 1, 4},           {20, 1, 5},
               {40, -1, 4},    {20, -1, 1},   {20, INT_MIN, 1},     {20, INT_MAX, 5},
               {40, 1, 5},     {40, -2, 1},   {double(kInf), 0, 5}, {-double(kInf), 0, 1}};
  for (const auto& item : cases)
    EXPECT_EQ(chart.Vecino(item.x, item.steps)->punto.y, item.found) << item.x << " " << item.steps;
  EXPECT_EQ(chart.Senalar(30)->record.hora, 20);
  EXPECT_FALSE(chart.Senalar(std::nan("")));
}

}  // namespace
