#include <algorithm>
#include <random>

#include "base/masks.h"
#include "base/val.h"
#include "fixture.h"

namespace {

using store::Negocio;
using support::GridText;
using views::Ticker2;

class Trades : public ViewTest {
 protected:
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
  /// The side that each row's colour tells, from its first to its last cell.
  static std::string Backs(const platform::Grid& list) {
    std::string sides;
    for (int row = 1; row < list.rows(); ++row) {
      const base::Color back = list.back(row, 0);
      EXPECT_EQ(list.back(row, 5), back);
      sides += back == base::palette::kGreen ? 'C' : back == base::palette::kRed ? 'V' : ' ';
    }
    return sides;
  }

  views::Tickets tickets{outside, store, pipeline, tape};
};

TEST_F(Trades, OnlyBelievableOnesReachTheTape) {
  struct Case {
    float time;
    int buyer, seller;
    bool believed;
  };
  for (const auto& [time, buyer, seller, believed] : {Case{80000, 200, 300, false},
                                                      {80000.01F, 200, 300, true},
                                                      {235900, 200, 300, false},
                                                      {235899, 101, 999, true},
                                                      {kNan, 200, 300, false},
                                                      {93000, 100, 300, false},
                                                      {93000, 1000, 300, false},
                                                      {93000, 999, 101, true},
                                                      {93000, 200, 100, false},
                                                      {93000, 200, 1000, false},
                                                      {93000, -200, 300, false}}) {
    Negocio trade = Of("ALD", time);
    trade.Comprador = static_cast<std::int16_t>(buyer);
    trade.Vendedor = static_cast<std::int16_t>(seller);
    const int rows = tape.List1.rows();
    tickets.Negocio(trade);
    EXPECT_EQ(tape.List1.rows(), rows + believed) << time << ' ' << buyer << ' ' << seller;
  }
}

TEST_F(Trades, ARejectedOneMovesTheViewToTheCurrentRowAndTheBatchsEndToTheLast) {
  const Negocio rejected = Of("ALD", 0);
  tickets.Negocio(rejected);
  EXPECT_TRUE(tape.loaded() && tape.List1.rows() == 1);
  for (int n = 0; n < 60; ++n) tickets.Negocio(Of("ALD", 93000));
  tape.List1.set_row(25);  // a click
  tickets.Negocio(rejected);
  EXPECT_EQ(tape.List1.top_row(), 25);
  tickets.FinNegocios();
  EXPECT_EQ(tape.List1.top_row(), 60);
  for (const auto& [top, followed] : {std::pair{21, 21}, {22, 60}}) {  // 40 rows from the end
    tape.List1.set_top_row(top);
    tickets.FinNegocios();
    EXPECT_EQ(tape.List1.top_row(), followed);
  }
}

TEST_F(Trades, TheTapeNamesACodeThatStandsExactlySoInTheTable) {
  for (const auto& [code, name] : {std::pair{"ALD", "ALDEBARAN"},
                                   {"STSV", "FIRST"},
                                   {"LONGER", "LONGER"},
                                   {"STSV", "SECOND"}}) {
    store.AgregarSinDatos(store::Codigo(code), name);
  }
  for (const auto& [code, name] : {std::pair{"ALD", "ALDEBARAN           "},
                                   {" ALD", " ALD   "},
                                   {"ald", "ald    "},
                                   {"STSV", "SECOND              "},
                                   {"STS", "STS    "},
                                   {"LONGE", "LONGE  "},
                                   {"", "       "},
                                   {"A\t\xD1", "A \xC3\x91    "}}) {
    tickets.Negocio(Of(code, 93000));
    EXPECT_EQ(tape.List1.text(tape.List1.rows() - 1, views::Form2::kInstrumento), name);
  }
}

TEST_F(Trades, EveryTicketOfTheCodeTakesARow) {
  const std::int16_t slot = Know("ALD", "ALDEBARAN");
  const Ticker2* const open[] = {&Open(slot), &Open(slot)};
  const Ticker2& other = Open(Know("BET", "BETELGEUSE"));
  tickets.Negocio(Of("ALD", 93000, 'C', 0.5F));
  tickets.Negocio(Of("ALD", 93001, 'V', 1234.5F));
  tickets.Negocio(Of("ALD", 93002, 'c'));
  for (const Ticker2* ticket : open) {
    EXPECT_EQ(GridText(ticket->List1),
              "|||||\n"
              "93000|200|0.50|300|5|C\n"
              "93001|200|1,234.50|300|5|V\n"
              "93002|200|10.00|300|5|\n");
    EXPECT_EQ(Backs(ticket->List1), "CV ");
  }
  EXPECT_EQ(other.List1.rows(), 1);
}

// What a ticket's list does with trades, told the plain way.
struct PlainList {
  struct Row {
    std::string time, side;
    double value;
  };

  void Add(const std::string& time, char side) {
    const double value = base::Val(time).value();
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
    Ticker2& ticket = Open(Know(name, name));
    const platform::Grid& list = ticket.List1;
    PlainList plain;
    if (round % 2 == 0) {
      ticket.inicio();
      plain.heading = "Hora";
    }
    for (int n = 1; n <= 60; ++n) {
      const float base = random() % 3 == 0 ? 95950.0F : 100000.0F;
      const float time = base + static_cast<float>(random() % 20) / 2;
      const char side = random() % 2 == 0 ? 'C' : 'V';
      tickets.Negocio(Of(name, time, side));
      plain.Add(base::NumberText(time), side);
      std::string text, sides;
      for (int row = 1; row <= n; ++row) {
        text.append(list.text(row, 0)).append(list.text(row, 5)) += ' ';
        sides += list.text(row, 5);
      }
      ASSERT_EQ(Backs(list), sides);
      ASSERT_EQ(text, plain.Text());
      ASSERT_EQ(list.row(), plain.sorted ? 1 : n);
      ASSERT_EQ(list.top_row(), n);
    }
    unnoticed += plain.unnoticed;
  }
  EXPECT_GT(unnoticed, 100);
}

TEST_F(Trades, AListIsFilledFromTheTapeAndGoesOnLiveWithoutDoubles) {
  const std::string heading = "Hora|Com|Precio|Ven|Volumen|Eje\n";
  Ticker2& ticket = Open(Know("ALD", "ALDEBARAN"));
  tickets.Negocio(Of("ALD", 100000, 'V', 0.5F));
  tickets.Negocio(Of("BET", 93000));
  const std::int16_t bet = Know("BET", "BETELGEUSE");
  tickets.Negocio(Of("ALD", 95959, 'x'));
  tickets.Negocio(Of("ALD", 95959, 'C', 12));
  tickets.Negocio(Of("BET", 95959));
  for (int twice = 0; twice < 2; ++twice) ticket.inicio();
  const platform::Grid& list = ticket.List1;
  EXPECT_TRUE(list.row() == 1 && list.col() == 1 && list.row_sel() == 1);
  EXPECT_EQ(list.top_row(), 3);
  tickets.Negocio(Of("ALD", 100000, 'C', 0.5F));
  EXPECT_EQ(GridText(list), heading +
                                "95959|200|10.00|300|5|x\n"
                                "95959|200|12.00|300|5|C\n"
                                "100000|200|.50|300|5|V\n"
                                "100000|200|0.50|300|5|C\n");
  EXPECT_EQ(Backs(list), " CVC");
  EXPECT_EQ(list.width(4), ticket.Label7.rect().width * 9 / 5);

  // A trade that came before its share was known has no name on the tape, and isn't found there.
  Ticker2& late = Open(bet);
  late.inicio();
  EXPECT_EQ(GridText(late.List1), heading + "95959|200|10.00|300|5|C\n");
}

}  // namespace
