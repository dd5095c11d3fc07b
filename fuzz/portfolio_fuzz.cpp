// The files of the portfolios of any content: two bytes, the length of the first file, then both.

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "portfolios/names_and_lines.h"
#include "portfolios/portfolio_store.h"
#include "support/temp_dir.h"

// Nobody cuts the power here; waiting for the disk would take all the time.
extern "C" int fsync(int) { return 0; }

namespace {

using portfolios::FichaCartera, portfolios::Operacion, portfolios::PortfolioStore;

void Check(bool holds) {
  if (!holds) std::abort();
}

struct Terminal {
  explicit Terminal(const support::TempDir& dir) : program(dir.path()) {
    book.CargarCarteras();
    Check(static_cast<int>(selector.items().size()) == book.NumCarteras());
    for (int p = 0; p <= PortfolioStore::kMaxCarteras; ++p) {
      Check(book.NumPosiciones(p) <= PortfolioStore::kMaxPosiciones);
      for (int j = 1; j <= book.NumPosiciones(p); ++j) {
        Check(book.Posiciones(p, j).CarteraId == p);
        Check(!portfolios::LineaPosicion(book.Posiciones(p, j)).empty());
      }
    }
  }
  [[nodiscard]] std::string Fichas() const {
    std::string bytes;
    for (int i = 1; i <= book.NumCarteras(); ++i) bytes += book.Carteras(i).Encode();
    return bytes;
  }
  [[nodiscard]] std::string Journal() const {
    std::string bytes;
    for (int i = 1; i <= book.NumOperaciones(); ++i) bytes += book.Operaciones(i).Encode();
    return bytes;
  }

  base::ProgramDir program;
  platform::ComboBox selector;
  PortfolioStore book{program, selector};
};

// What was whole is read as it stands and still there afterwards; so is what was added.
void CheckGrown(std::string_view before, std::string_view after, std::string_view loaded,
                const std::string& record, bool added, int most) {
  const std::size_t size = record.size();
  const auto count = static_cast<std::size_t>(
      std::min<double>(most, std::nearbyint(static_cast<double>(before.size()) / size)));
  const std::size_t whole = before.size() / size * size;
  Check(loaded.size() == count * size);
  Check(loaded.substr(0, whole) == before.substr(0, loaded.size()).substr(0, whole));
  Check(added == (count < static_cast<std::size_t>(most)));
  Check(added ? after == std::string(loaded) + record : after == before);
}

void Run(const std::string& portfolios, const std::string& journal) {
  const support::TempDir dir;
  dir.Write("Carteras.QRT", portfolios);
  dir.Write("Operaciones.QRT", journal);
  FichaCartera ficha;
  ficha.Nombre.assign("Nueva");
  Operacion operation;
  operation.Codigo.assign("NEW");

  Terminal first(dir);
  const std::string fichas = first.Fichas(), operations = first.Journal();
  const bool one = first.book.AgregarCartera(ficha);
  const bool two = first.book.AgregarOperacion(operation);
  CheckGrown(portfolios, dir.Read("Carteras.QRT"), fichas, ficha.Encode(), one,
             PortfolioStore::kMaxCarteras);
  CheckGrown(journal, dir.Read("Operaciones.QRT"), operations, operation.Encode(), two,
             PortfolioStore::kMaxOperaciones);

  const Terminal again(dir);
  Check(again.Fichas() == first.Fichas() && again.Journal() == first.Journal());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string input(reinterpret_cast<const char*>(data), size);
  if (size < 2) return 0;
  const std::size_t length = std::min<std::size_t>(data[0] + data[1] * 256U, size - 2);
  Run(input.substr(2, length), input.substr(2 + length));
  return 0;
}
