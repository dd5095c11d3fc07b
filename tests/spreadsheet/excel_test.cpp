#include "spreadsheet/excel.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <set>

#include "base/ansi.h"
#include "base/masks.h"
#include "base/text.h"
#include "support/fake_sheet.h"

namespace {

using spreadsheet::CodeRows;
using Value = platform::Spreadsheet::Value;

class ExcelTest : public testing::Test {
 protected:
  ExcelTest() {
    sheet.running = true;
    excel.steps.TickAppend = [this](std::int16_t slot) {
      ticks += std::to_string(slot) + ' ';
      excel.RefrescarFilas(slot);
    };
  }

  void Attach() {
    excel.ExcelAttach();
    sheet.Answer();
  }

  /// A quote, after which the instrument's rows are refreshed. `previous` only counts for a new
  /// one.
  void Quote(std::string_view code, float last, float volume = 100, float previous = 10) {
    std::int16_t slot = store.Buscar(code);
    if (slot == 0) {
      store::Instrumento record;
      record.Codigo.assign(code);
      record.Nombre.assign("COMPA\xD1IA");
      record.Anterior = previous;
      record.Apertura = 9.5F;
      slot = store.GuardarMaestro(record);
    }
    store.GuardarCotizacion(slot, {12, 9.25F, last, volume, 1050});
    excel.RefrescarFilas(slot);
  }

  support::FakeSheet sheet;
  store::InstrumentStore store;
  spreadsheet::Excel excel{sheet, store};
  std::string ticks;
};

TEST_F(ExcelTest, AttachingSetsUpHeadingsAndFormulasAndFillsTheSheet) {
  store.MercadoHora = 93015;
  store.MercadoFecha = 1000426;
  sheet.Type(3, 1, "TEF ");
  sheet.Type(4, 1, 4.0);
  sheet.Type(200, 1, " ");
  Quote("TEF", 10.5F);
  Quote("4", 8);
  EXPECT_EQ(sheet.writes, 0) << "on without a program";
  Attach();
  EXPECT_EQ(ticks, "1 2 ");
  EXPECT_EQ(sheet.sent, std::vector<std::uint32_t>{1042});
  EXPECT_EQ(sheet.Row(1),
            "Cotirama|Empresa|Anterior|Apertura|Dif|%Dif|Ultimo|Maximo|Minimo|Volumen|"
            "Volumen Efectivo|Hora|Fecha|Saldo|Ponderado");
  EXPECT_EQ(sheet.Fore(1) + sheet.Back(1), "fffffffffffffff999999999999999");
  EXPECT_EQ(sheet.Row(2) + sheet.Fore(2), "||||||||||||||...............");
  EXPECT_EQ(sheet.Row(3),
            "TEF |COMPAÑIA            |10|9.5|=g3-c3|=((g3/c3)*100)-100|10.5|12|9.25|100|1050|"
            "93015|1000426|0|10.5");
  EXPECT_EQ(sheet.Row(4),
            "4|COMPAÑIA            |10|9.5|=g4-c4|=((g4/c4)*100)-100|8|12|9.25|100|1050|"
            "93015|1000426|-250|10.5");
  EXPECT_EQ(sheet.Fore(3) + sheet.Fore(4), "222222c222222..444444c444444..");
  EXPECT_EQ(sheet.Row(200), " ||||=g200-c200|=((g200/c200)*100)-100|||||||||");
}

TEST_F(ExcelTest, ColoursFollowThePriceAgainstTheCellAndTheDayBefore) {
  constexpr float kNan = std::numeric_limits<float>::quiet_NaN();
  struct Case {
    Value cell;
    float last, previous;
    const char *row, *price;
  } const cases[]{
      {{}, 11, 10, "2", "c"},     {{}, 9, 10, "4", "c"},      {{}, 10, 10, ".", "c"},
      {11.0, 11, 10, ".", "."},   {12.0, 11, 10, "2", "1"},   {12.0, 9, 10, "4", "1"},
      {12.0, 10, 10, ".", "1"},   {"11", 11, 10, ".", "."},   {" 1.2e1", 11, 10, "2", "1"},
      {"once", 11, 10, "2", "2"}, {"inf", 11, 12, "4", "4"},  {"12 o 13", 11, 10, "2", "2"},
      {"-", 11, 10, "2", "2"},    {12.0, 11, kNan, ".", "1"}, {10.1, 10.1F, 10, ".", "."},
  };
  int n = 0;
  for (const Case& test : cases) {
    const std::string code = "C" + std::to_string(++n);
    excel.ExcelDetach();
    sheet = {};
    sheet.running = true;
    sheet.Type(2, 1, code);
    Attach();
    sheet.Type(2, 7, test.cell);
    Quote(code, test.last, 100, test.previous);
    std::string expected;
    for (int col = 1; col <= 13; ++col) expected += col == 7 ? test.price : test.row;
    EXPECT_EQ(sheet.Fore(2), expected + "..") << n;
    EXPECT_EQ(sheet.value(2, 7), Value(base::AsWritten(test.last))) << n;
    EXPECT_EQ(sheet.value(2, 3), std::isnan(test.previous) ? Value() : Value(test.previous)) << n;
  }
}

TEST_F(ExcelTest, OnlyAnAnswerToWhatIsStillWantedTurnsItOn) {
  sheet.Type(2, 1, "TEF");
  sheet.running = false;
  Attach();
  EXPECT_EQ(excel.ExcelOff, -1);
  Attach();
  EXPECT_EQ(sheet.attaches, 2) << "tries again whenever asked";
  EXPECT_EQ(ticks, "");

  sheet.running = true;
  excel.ExcelAttach();
  excel.ExcelAttach();
  EXPECT_EQ(sheet.attaches, 3) << "one is under way";
  excel.ExcelDetach();
  sheet.Answer();
  EXPECT_EQ(excel.ExcelOff, -1);

  sheet.window = false;
  Attach();
  EXPECT_EQ(excel.ExcelOff, -1);
  Quote("TEF", 10);
  EXPECT_EQ(sheet.sent.size() + static_cast<std::size_t>(sheet.writes), 0U);
  sheet.window = true;
  Attach();
  EXPECT_EQ(excel.ExcelOff, 0);

  { spreadsheet::Excel(sheet, store).ExcelAttach(); }
  sheet.Answer();  // nobody hears of it
}

TEST_F(ExcelTest, ASheetOfAnotherNameLeavesTheLinkOn) {
  sheet.Type(2, 1, "TEF");
  sheet.name = "Hoja1";
  Attach();
  Quote("TEF", 11);
  EXPECT_EQ(excel.ExcelOff, 0);
  EXPECT_EQ(sheet.writes, 0);
  sheet.name = "Cotirama";
  Quote("TEF", 12);
  EXPECT_EQ(sheet.value(2, 7), Value(12.0)) << "the code is read anew";
}

// The rows of a code as they are meant: cell by cell, each time.
std::set<int> PlainScan(const spreadsheet::Excel& excel, const support::FakeSheet& sheet,
                        const store::Codigo& wanted) {
  std::set<int> rows;
  for (int row = 2, empty = 0; row <= 200 && empty <= 5; ++row) {
    std::string code(base::Trim(excel.ExcelCodes[static_cast<std::size_t>(row)]));
    if (code.empty()) {
      code = sheet.Row(row);
      code = base::UpperUtf8(base::Trim(code.substr(0, code.find('|'))));
    }
    empty = code.empty() ? empty + 1 : 0;
    if (!code.empty() && code == wanted.trimmed_utf8()) rows.insert(row);
  }
  return rows;
}

TEST_F(ExcelTest, RefreshesJustTheRowsThatAPlainScanFinds) {
  const Value kCells[]{"TEF", "tef", " Tef  ", "ñaÑ",    "ÑAÑ", "A B",       "a b",     4.0,
                       1e20,  "TE?", "TEΩ",    "TE\xFF", "ß",   "ABCDEFGHI", "ABCDEFG", "X"};
  for (const char* code :
       {"TEF", "tef", "  TEF", "ÑAÑ", "A B", "4", "TE?", "ß", "", "ABCDEFG", "X", "1E+20"}) {
    store.AgregarSinDatos(store::Codigo::FromUtf8(code), "NOMBRE");
  }
  std::mt19937 random(11);
  const auto below = [&](std::size_t limit) { return static_cast<int>(random() % limit); };
  float volume = 0;
  std::size_t found = 0, last_row = 0;
  for (int round = 0; round < 60; ++round) {
    excel.ExcelDetach();
    const int gaps = below(10);  // of ten cells
    const auto cell = [&]() -> Value {
      if (below(10) < gaps) return below(4) == 0 ? Value("  ") : Value();
      return kCells[static_cast<std::size_t>(below(std::size(kCells)))];
    };
    for (int row = 2; row <= 200; ++row) sheet.Type(row, 1, cell());
    Attach();
    for (int n = 0; n < 40; ++n) {
      if (below(3) == 0) sheet.Type(2 + below(199), 1, cell());
      const auto slot = static_cast<std::int16_t>(below(13));
      store.GuardarCotizacion(slot, {1, 1, 1, ++volume, 0});
      excel.RefrescarFilas(slot);
      std::set<int> rows;
      for (int row = 2; slot > 0 && row <= 200; ++row) {
        if (sheet.value(row, 10) == Value(static_cast<double>(volume))) rows.insert(row);
      }
      EXPECT_EQ(rows, PlainScan(excel, sheet, store.Instrumentos(slot).Codigo)) << slot;
      found += rows.size();
      last_row += rows.count(200);
    }
  }
  EXPECT_GT(found, 1000U);
  EXPECT_GT(last_row, 10U);
}

}  // namespace
