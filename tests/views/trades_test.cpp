#include <algorithm>
#include <charconv>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>
#include <vector>

#include "base/masks.h"
#include "support/memory_platform.h"
#include "views/tickets.h"

namespace {

using store::Negocio;
using support::GridText;
using support::RowText;
using views::Ticker2;

const float kNan = std::numeric_limits<float>::quiet_NaN();

class Trades : public testing::Test {
 protected:
  std::int16_t Know(std::string_view code, std::string_view name) {
    return store.AgregarSinDatos(store::Codigo(code), name);
  }
  Ticker2& Open(std::int16_t slot) {
    tickets.AbrirTicket(slot);
    return *tickets.abiertos().back();
  }
  static Negocio Of(std::string_view code, float time, char side = 'C', float price = 10) {
    return {.Lado = side,
            .Codigo = store::Codigo(code),
            .Hora = time,
            .Titulos = 5,
            .Comprador = 200,
            .Vendedor = 300,
            .Precio = price};
  }
  [[nodiscard]] std::string LastName() const {
    return std::string(tape.List1.text(tape.List1.rows() - 1, views::Form2::kInstrumento));
  }

  support::MemoryPlatform outside;
  store::InstrumentStore store;
  platform::Ticker ticker;
  platform::CheckBox ticker_on;
  store::UpdatePipeline pipeline{store, ticker, ticker_on};
  std::int16_t FaseCierre = 0;
  views::Form2 tape{outside, FaseCierre};
  views::Tickets tickets{outside, store, pipeline, tape};
};

TEST_F(Trades, OnlyBelievableOnesReachTheTape) {
  struct Case {
    float time;
    std::int16_t buyer, seller;
    bool believed;
  };
  for (const Case& test : {
           Case{80000, 200, 300, false},
           {80000.01F, 200, 300, true},
           {235900, 200, 300, false},
           {235899, 200, 300, true},
           {kNan, 200, 300, false},
           {93000, 100, 300, false},
           {93000, 101, 999, true},
           {93000, 1000, 300, false},
           {93000, 999, 101, true},
           {93000, 200, 100, false},
           {93000, 200, 1000, false},
           {93000, -200, 300, false},
       }) {
    Negocio trade = Of("ALD", test.time);
    trade.Comprador = test.buyer;
    trade.Vendedor = test.seller;
    const int rows = tape.List1.rows();
    tickets.Negocio(trade);
    EXPECT_EQ(tape.List1.rows(), rows + test.believed)
        << test.time << ' ' << test.buyer << ' ' << test.seller;
  }
}

TEST_F(Trades, ARejectedOneMovesTheViewToTheCurrentRowAndTheBatchsEndToTheLast) {
  const Negocio rejected = Of("ALD", 0);
  tickets.Negocio(rejected);
  tickets.FinNegocios();
  EXPECT_EQ(tape.List1.rows(), 1);
  EXPECT_TRUE(tape.loaded());
  for (int n = 0; n < 60; ++n) tickets.Negocio(Of("ALD", 93000));
  tape.List1.set_row(25);  // a click
  tickets.Negocio(rejected);
  EXPECT_EQ(tape.List1.top_row(), 25);
  tickets.FinNegocios();
  EXPECT_EQ(tape.List1.top_row(), 60);
  tape.List1.set_top_row(21);
  tickets.Negocio(rejected);
  tickets.FinNegocios();
  EXPECT_EQ(tape.List1.top_row(), 21);
}

TEST_F(Trades, TheTapeNamesACodeThatStandsExactlySoInTheTable) {
  Know("ALD", "ALDEBARAN");
  Know("STSV", "FIRST");
  Know("LONGER", "LONGER");
  Know("STSV", "SECOND");
  struct Case {
    std::string_view code, name;
  };
  for (const Case& test : {
           Case{"ALD", "ALDEBARAN           "},
           {" ALD", " ALD   "},
           {"ald", "ald    "},
           {"STSV", "SECOND              "},
           {"STS", "STS    "},
           {"LONGE", "LONGE  "},
           {"", "       "},
           {"A\t\xD1", "A \xC3\x91    "},
       }) {
    tickets.Negocio(Of(test.code, 93000));
    EXPECT_EQ(LastName(), test.name);
  }
}

TEST_F(Trades, EveryTicketOfTheCodeTakesARow) {
  const std::int16_t slot = Know("ALD", "ALDEBARAN");
  Ticker2& one = Open(slot);
  Ticker2& two = Open(slot);
  Ticker2& other = Open(Know("BET", "BETELGEUSE"));
  tickets.Negocio(Of("ALD", 93000, 'C', 0.5F));
  tickets.Negocio(Of("ALD", 93001, 'V', 1234.5F));
  tickets.Negocio(Of("ALD", 93002, 'c'));
  const std::string rows =
      "|||||\n"
      "93000|200|0.50|300|5|C\n"
      "93001|200|1,234.50|300|5|V\n"
      "93002|200|10.00|300|5|\n";
  EXPECT_EQ(GridText(one.List1), rows);
  EXPECT_EQ(GridText(two.List1), rows);
  EXPECT_EQ(other.List1.rows(), 1);
  for (const int col : {0, 5}) {
    EXPECT_EQ(two.List1.back(1, col), base::palette::kGreen);
    EXPECT_EQ(two.List1.back(2, col), base::palette::kRed);
    EXPECT_EQ(two.List1.back(3, col), two.List1.back_color());
  }
  EXPECT_EQ(two.List1.row(), 3);
  EXPECT_EQ(two.List1.top_row(), 3);
}

// What a ticket's list does with trades, told the plain way.
struct PlainList {
  struct Row {
    std::string time, side;
    double value;
  };

  void Add(const std::string& time, char side) {
    double value = 0;
    std::from_chars(time.data(), time.data() + time.size(), value);
    const std::string before = rows.empty() ? heading : rows.back().time;
    rows.push_back({time, {side}, value});
    const auto earlier = [](const Row& a, const Row& b) { return a.value < b.value; };
    sorted = time < before;
    if (sorted) std::ranges::stable_sort(rows, earlier);
    unnoticed += !std::ranges::is_sorted(rows, earlier);
  }
  [[nodiscard]] std::string Text() const {
    std::string text;
    for (const Row& row : rows) text += row.time + row.side + ' ';
    return text;
  }

  std::string heading;
  std::vector<Row> rows;
  bool sorted = false;
  int unnoticed = 0;  // times that the list stood out of order
};

TEST_F(Trades, LateOnesAreSortedInWhereTheOrderOfTheTextsShowsThem) {
  std::mt19937 random(20000103);
  int unnoticed = 0;
  for (int round = 0; round < 40; ++round) {
    const std::string name = "A" + std::to_string(round);
    const std::int16_t slot = Know(name, name);
    const store::Codigo code = store.Instrumentos(slot).Codigo;
    Ticker2& ticket = Open(slot);
    PlainList plain;
    if (round % 2 == 0) {
      ticket.inicio();
      plain.heading = "Hora";
    }
    for (int n = 0; n < 60; ++n) {
      const float base = random() % 3 == 0 ? 95950.0F : 100000.0F;
      const float time = base + static_cast<float>(random() % 20) / 2;
      const char side = random() % 2 == 0 ? 'C' : 'V';
      tickets.Negocio(Of(code.bytes(), time, side));
      plain.Add(base::NumberText(time), side);
      std::string text;
      for (int row = 1; row < ticket.List1.rows(); ++row) {
        text.append(ticket.List1.text(row, 0)).append(ticket.List1.text(row, 5)) += ' ';
        const base::Color back =
            ticket.List1.text(row, 5) == "C" ? base::palette::kGreen : base::palette::kRed;
        ASSERT_EQ(ticket.List1.back(row, 3), back);
      }
      ASSERT_EQ(text, plain.Text());
      ASSERT_EQ(ticket.List1.row(), plain.sorted ? 1 : n + 1);
      ASSERT_EQ(ticket.List1.top_row(), n + 1);
    }
    unnoticed += plain.unnoticed;
  }
  EXPECT_GT(unnoticed, 100);
}

TEST_F(Trades, AListIsFilledFromTheTapeAndGoesOnLiveWithoutDoubles) {
  const std::int16_t slot = Know("ALD", "ALDEBARAN");
  tickets.Negocio(Of("ALD", 100000, 'V', 0.5F));
  tickets.Negocio(Of("BET", 93000));
  Ticker2& ticket = Open(slot);
  ticket.inicio();
  EXPECT_EQ(GridText(ticket.List1), "Hora|Com|Precio|Ven|Volumen|Eje\n100000|200|.50|300|5|V\n");
  Know("BET", "BETELGEUSE");
  tickets.Negocio(Of("ALD", 95959, 'x'));
  tickets.Negocio(Of("ALD", 95959, 'C', 12));
  tickets.Negocio(Of("BET", 95959));
  ticket.inicio();
  tickets.Negocio(Of("ALD", 100000, 'C', 0.5F));
  EXPECT_EQ(GridText(ticket.List1),
            "Hora|Com|Precio|Ven|Volumen|Eje\n"
            "95959|200|10.00|300|5|x\n"
            "95959|200|12.00|300|5|C\n"
            "100000|200|.50|300|5|V\n"
            "100000|200|0.50|300|5|C\n");
  EXPECT_EQ(ticket.List1.back(1, 0), ticket.List1.back_color());
  EXPECT_EQ(ticket.List1.back(2, 5), base::palette::kGreen);
  EXPECT_EQ(ticket.List1.back(3, 0), base::palette::kRed);
  EXPECT_EQ(ticket.Label7.caption(), "Comp");
  EXPECT_EQ(ticket.List1.width(4), ticket.Label7.rect().width * 9 / 5);

  // One that isn't named on the tape doesn't get there.
  Ticker2& late = Open(2);
  late.inicio();
  EXPECT_EQ(GridText(late.List1), "Hora|Com|Precio|Ven|Volumen|Eje\n95959|200|10.00|300|5|C\n");
  Ticker2& none = Open(Know("CAS", "CASTOR"));
  none.inicio();
  EXPECT_EQ(none.List1.rows(), 1);
}

TEST_F(Trades, AFilledListStandsSortedAtItsEnd) {
  const std::int16_t slot = Know("ALD", "ALDEBARAN");
  for (const float time : {100000.0F, 95959.0F, 100000.0F, 93000.0F}) {
    tickets.Negocio(Of("ALD", time));
  }
  Ticker2& ticket = Open(slot);
  ticket.inicio();
  const platform::Grid& list = ticket.List1;
  EXPECT_EQ(list.text(1, 0), "93000");
  EXPECT_EQ(list.text(4, 0), "100000");
  EXPECT_EQ(list.row(), 1);
  EXPECT_EQ(list.col(), 1);
  EXPECT_EQ(list.row_sel(), 1);
  EXPECT_EQ(list.top_row(), 4);
}

}  // namespace
