#include "portfolios/portfolio_store.h"

#include <csignal>
#include <filesystem>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <random>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include "portfolios/names_and_lines.h"
#include "support/orders.h"
#include "support/temp_dir.h"

namespace {

using namespace portfolios;  // NOLINT
using support::Order;
namespace fs = std::filesystem;

constexpr const char *kCarteras = "Carteras.QRT", *kOperaciones = "Operaciones.QRT";
constexpr int kMost = std::numeric_limits<int>::max(), kLeast = std::numeric_limits<int>::min();

FichaCartera Ficha(std::string_view name) {
  FichaCartera record;
  record.Nombre.assign(name);
  return record;
}

/// No file may grow beyond `bytes`, as on a full disk.
void LimitFiles(rlim_t bytes) {
  signal(SIGXFSZ, SIG_IGN);
  const rlimit limit{bytes, RLIM_INFINITY};
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
}

/// The portfolios of a terminal that has just started.
struct Terminal {
  explicit Terminal(const support::TempDir& dir) : program(dir.path()) { book.CargarCarteras(); }

  void Add(std::string_view code, std::string_view name) {
    EXPECT_TRUE(book.AgregarOperacion(Order(code, 1, 1)) && book.AgregarCartera(Ficha(name)));
  }
  /// Names, then codes.
  std::string Records() const {
    std::string text;
    for (int i = 1; i <= book.NumCarteras(); ++i) {
      text += book.Carteras(i).Nombre.trimmed_utf8() + '|';
    }
    for (int i = 1; i <= book.NumOperaciones(); ++i) {
      text += book.Operaciones(i).Codigo.trimmed_utf8() + '|';
    }
    return text;
  }
  std::string Positions(auto text_of, int portfolio = 1) const {
    std::string text;
    for (int j = 1; j <= book.NumPosiciones(portfolio); ++j) {
      text += text_of(book.Posiciones(portfolio, j));
    }
    return text;
  }

  base::ProgramDir program;
  platform::ComboBox selector;
  PortfolioStore book{program, selector};
};

std::string Bytes(const Operacion& record) { return record.Encode(); }
std::string Line(const Operacion& record) { return LineaPosicion(record) + '|'; }

class Portfolios : public testing::Test {
 protected:
  Terminal& Start() { return *(terminal = std::make_unique<Terminal>(dir)); }
  Terminal& StartWith(const std::vector<Operacion>& journal) {
    std::string bytes;
    for (const Operacion& record : journal) bytes += record.Encode();
    dir.Write(kOperaciones, bytes);
    return Start();
  }
  void Forget() { fs::remove(dir.Path(kCarteras)), fs::remove(dir.Path(kOperaciones)); }

  support::TempDir dir;
  std::unique_ptr<Terminal> terminal;
};

TEST_F(Portfolios, CountHalfARecordByTheEvenNeighbour) {
  const std::vector<std::array<std::size_t, 4>> cases = {
      {0, 0, 0, 0},     {48, 0, 26, 0},       {49, 1, 27, 1},         {144, 2, 78, 2},
      {240, 2, 130, 2}, {241, 3, 25999, 500}, {1056, 10, 40000, 500},
  };
  for (const auto& [size, portfolios, journal_size, operations] : cases) {
    dir.Write(kCarteras, std::string(size, 'x'));
    dir.Write(kOperaciones, std::string(journal_size, 'x'));
    const PortfolioStore& book = Start().book;
    EXPECT_EQ(book.NumCarteras(), portfolios) << size;
    EXPECT_EQ(book.NumOperaciones(), operations) << journal_size;
    const auto whole = static_cast<int>(size / FichaCartera::kSize);
    EXPECT_EQ(book.Carteras(whole + 1).Encode(), FichaCartera{}.Encode()) << size;
  }
}

TEST_F(Portfolios, AreListedUpToTheFirstOfTwoBlanks) {
  const std::string n23(23, 'n'), n24(24, 'n'), n25(25, 'n');
  const std::vector<std::string> items = {"Plan A ", n23 + ' ', "", "", " ", "Año€ "};
  Start();
  for (const std::string& name :
       {std::string("Plan A  B"), n23, n24, n25, std::string(), std::string("A\xF1o\x80")}) {
    terminal->Add("A", name);
  }
  EXPECT_EQ(terminal->selector.items(), items);
  EXPECT_EQ(Start().selector.items(), items);
}

TEST_F(Portfolios, AverageWhatWasPaid) {
  const std::vector<std::pair<std::vector<Operacion>, std::string>> cases = {
      {{Order("A", 100, 10), Order("A", 300, 20), Order("A", 200, 30, 2)}, "200\tA      \t17.50|"},
      {{Order("A", 10, 5, 2), Order("A", 15, 7, 2)}, "-25\tA      \t5.00|"},
      {{Order("A", 10, 5, 2), Order("A", 10, 7)}, "0\tA      \t5.00|"},
      {{Order("A", 9, 5), Order("A", 9, 6, 2), Order("A", 2, 4)}, "2\tA      \t4.00|"},
      {{Order("A", 3, 5, 0), Order("A", 4, 9, 7), Order("a", -3, 1, 9)},
       "3\tA      \t5.00|-3\ta      \t1.00|"},
      {{Order("A", 1, 1, 1, 11), Order("A", 1, 1, 1, -1), Order("A", 1, 1, 1, 2)}, ""},
      {{Order("B", kLeast, 1, 2), Order("A", 4, 3e38F), Order("A", -3, -3e38F),
        Order("A", 2, 8, 2)},
       "-2147483648\tB      \t1.00|-1\tA      "
       "\t300,000,000,549,775,575,777,803,994,281,145,270,272.00|"},
  };
  for (const auto& [journal, lines] : cases) EXPECT_EQ(StartWith(journal).Positions(Line), lines);
}

// As one would write it down: all positions are looked at for each operation.
std::string PositionsPlainly(const std::vector<Operacion>& journal, int portfolio) {
  std::vector<Operacion> positions;
  for (const Operacion& order : journal) {
    if (order.CarteraId != portfolio) continue;
    const int sign = order.Sentido == 1 ? 1 : -1;
    bool matched = false;
    for (Operacion& held : positions) {
      if (held.Codigo.bytes() != order.Codigo.bytes()) continue;
      matched = true;
      const std::int64_t sum = held.Titulos + std::int64_t{order.Titulos} * sign;
      const double old_cost = double{held.Precio} * held.Titulos;
      const double cost = double{order.Precio} * order.Titulos + old_cost;
      if (sum <= kMost && sum >= kLeast) held.Titulos = static_cast<std::int32_t>(sum);
      if (sign > 0 && held.Titulos != 0) held.Precio = static_cast<float>(cost / held.Titulos);
    }
    if (matched || positions.size() == 100) continue;
    positions.push_back(order);
    positions.back().Titulos *= sign;
  }
  std::string bytes;
  for (const Operacion& held : positions) bytes += held.Encode();
  return bytes;
}

TEST_F(Portfolios, HoldWhatTheirJournalSays) {
  std::mt19937 random(11);
  const auto below = [&](unsigned n) { return static_cast<int>(random() % n); };
  for (int round = 0; round < 60; ++round) {
    const bool crowded = round % 3 == 0;
    std::vector<Operacion> journal;
    while (journal.size() < 500) {
      const int shares = below(20) == 0 ? kMost - below(9) : below(4000) - 200;
      journal.push_back(Order(std::to_string(below(crowded ? 300 : 12)), shares,
                              static_cast<float>(below(9999)) / 64, 1 + below(2),
                              below(crowded ? 2 : 11)));
    }
    StartWith(journal).book.RecalcularPosiciones();
    for (int p = 0; p <= 10; ++p) {
      ASSERT_EQ(terminal->Positions(Bytes, p), PositionsPlainly(journal, p)) << round << ' ' << p;
    }
  }
}

TEST_F(Portfolios, RefuseWhatTheirTablesDontHoldAndWriteWhatTheyDo) {
  dir.Write(kCarteras, std::string(9 * FichaCartera::kSize, 'x'));
  dir.Write(kOperaciones, std::string(499 * Operacion::kSize, 'x'));
  Start();
  LimitFiles(0);
  terminal->Add("A", "A");
  LimitFiles(RLIM_INFINITY);
  EXPECT_FALSE(terminal->book.AgregarCartera({}) || terminal->book.AgregarOperacion({}));
  EXPECT_EQ(dir.Read(kCarteras).size() + dir.Read(kOperaciones).size(), 960u + 26000u);
  EXPECT_EQ(terminal->selector.items().size(), 10u);
}

TEST_F(Portfolios, KeepEveryEarlierRecordWhereverAWriteBreaksOff) {
  Start().Add("ONE", "One");
  const std::string list = dir.Read(kCarteras), journal = dir.Read(kOperaciones);
  for (std::size_t cut = 0; cut < FichaCartera::kSize; ++cut) {
    dir.Write(kCarteras, list + Ficha("Lost").Encode().substr(0, cut));
    dir.Write(kOperaciones,
              journal + Order("LOST", 9, 9).Encode().substr(0, cut % Operacion::kSize));
    Start().Add("TWO", "Two");
    const std::string records = Start().Records();
    EXPECT_TRUE(records.starts_with(cut < 48 ? "One|Two|ONE|" : "One||Two|ONE|")) << records;
    EXPECT_EQ(terminal->Positions(Line), "1\tONE    \t1.00|1\tTWO    \t1.00|") << cut;
    EXPECT_TRUE(dir.Read(kCarteras).starts_with(list)) << cut;
    EXPECT_TRUE(dir.Read(kOperaciones).starts_with(journal)) << cut;
  }
}

TEST_F(Portfolios, WriteWhatAFullDiskRefusedWithTheNextRecord) {
  for (std::size_t room = 0; room < Operacion::kSize; ++room) {
    Forget();
    Start().Add("ONE", "One");
    LimitFiles(Operacion::kSize + room);
    terminal->Add("TWO", "Two");
    LimitFiles(RLIM_INFINITY);
    EXPECT_EQ(dir.Read(kOperaciones).size(), Operacion::kSize + room);
    EXPECT_TRUE(terminal->book.OperacionSinGuardar() && terminal->book.CarteraSinGuardar());
    EXPECT_TRUE(Terminal(dir).Records().starts_with("One|ONE|"));
    terminal->Add("THREE", "Three");
    EXPECT_FALSE(terminal->book.OperacionSinGuardar() || terminal->book.CarteraSinGuardar());
    EXPECT_EQ(Start().Records(), "One|Two|Three|ONE|TWO|THREE|");
  }
}

TEST_F(Portfolios, TakeInWhatOthersHaveAddedAndWriteWhatIsGone) {
  Terminal other(dir);
  Start().Add("ONE", "One");
  LimitFiles(Operacion::kSize);
  terminal->Add("TWO", "Two");
  LimitFiles(RLIM_INFINITY);
  other.Add("THREE", "Three");
  terminal->Add("FOUR", "Four");
  EXPECT_EQ(terminal->Records(), "One|Three|Two|Four|ONE|THREE|TWO|FOUR|");
  EXPECT_EQ(terminal->selector.items().size(), 4u);
  EXPECT_EQ(Terminal(dir).Records(), terminal->Records());
  Forget();
  terminal->Add("FIVE", "Five");
  EXPECT_EQ(Terminal(dir).Records(), "One|Three|Two|Four|Five|ONE|THREE|TWO|FOUR|FIVE|");
}

TEST_F(Portfolios, LeaveAloneWhatTheyCannotReadOrWrite) {
  const bool root = geteuid() == 0;  // for whom no permission counts
  ASSERT_TRUE(!root || (chown(dir.path().c_str(), 65534, 65534) == 0 && seteuid(65534) == 0));
  const std::string list = Ficha("One").Encode(), journal = Order("ONE", 1, 1).Encode();
  const auto permit = [&](unsigned mode) {
    fs::permissions(dir.Path(kCarteras), fs::perms(mode));
    fs::permissions(dir.Path(kOperaciones), fs::perms(mode));
  };
  for (const unsigned mode : {0444U, 0222U, 0U}) {
    dir.Write(kCarteras, list), dir.Write(kOperaciones, journal);
    permit(mode);
    Start().Add("TWO", "Two");
    EXPECT_EQ(terminal->Records(), mode == 0444 ? "One|Two|ONE|TWO|" : "Two|TWO|");
    permit(0600);
    EXPECT_TRUE(dir.Read(kCarteras) == list && dir.Read(kOperaciones) == journal) << mode;
    terminal->Add("THREE", "Three");
    permit(mode);
    terminal->Add("FOUR", "Four");
    permit(0600);
    terminal->Add("FIVE", "Five");
    EXPECT_EQ(Start().Records(), "One|Two|Three|Four|Five|ONE|TWO|THREE|FOUR|FIVE|") << mode;
  }
  for (const bool pipe : {false, true}) {
    Forget();
    for (const std::string& path : {dir.Path(kCarteras), dir.Path(kOperaciones)}) {
      EXPECT_EQ(pipe ? mkfifo(path.c_str(), 0600) : mkdir(path.c_str(), 0700), 0);
    }
    Start().Add("ONE", "One");
    EXPECT_EQ(terminal->Records(), "One|ONE|");
  }
  ASSERT_TRUE(!root || seteuid(0) == 0);
}

}  // namespace
