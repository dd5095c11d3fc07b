#include "store/instrument_store.h"

#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

#include "base/text.h"

namespace {

using store::Instrumento;
using store::InstrumentStore;

Instrumento Record(std::string_view code, std::string_view name = "NOMBRE") {
  Instrumento record;
  record.Codigo.assign(code);
  record.Nombre.assign(name);
  return record;
}

// The scan as it is meant: slot by slot, both sides trimmed.
InstrumentStore::Scan PlainScan(const InstrumentStore& store, std::string_view code) {
  InstrumentStore::Scan scan;
  for (std::int16_t slot = 1; slot <= store.NumInstrumentos(); ++slot) {
    const Instrumento& record = store.Instrumentos(slot);
    if (record.Nombre[0] == ' ') ++scan.nameless;
    if (record.Codigo.trimmed() != base::Trim(code)) continue;
    scan.slot = slot;
    break;
  }
  return scan;
}

TEST(InstrumentStore, FindsWhatAPlainTrimmedScanFinds) {
  std::mt19937 random(7);
  const auto code = [&](std::size_t size) {
    constexpr std::string_view kBytes("AB .\0\xFF", 6);
    std::string text(size, ' ');
    for (char& c : text) c = kBytes[random() % kBytes.size()];
    return text;
  };
  InstrumentStore store;
  std::vector<store::CodeKey> keys(store::kCodeBlock * 40, store::kNoCode);
  for (std::size_t n = 1; n <= 600; ++n) {
    const std::string added = code(7);
    // Codes come twice, too, as those of the balances may.
    store.AgregarSinDatos(store::Codigo(added), random() % 9 == 0 ? "" : "X");
    keys[n] = store::PackCode(added);
    const std::string wanted = code(random() % 10);
    const auto expected = PlainScan(store, wanted);
    const auto scan = store.Recorrer(wanted);
    ASSERT_EQ(scan.slot, expected.slot) << n;
    ASSERT_EQ(scan.nameless, expected.nameless) << n;
    const auto key = store::PackCode(wanted);
    if (key != store::kNoCode) {
      ASSERT_EQ(store::FindCodePortable(keys, key), expected.slot == 0 ? -1 : expected.slot);
    }
  }
}

TEST(InstrumentStore, AMasterRecordReplacesItsSlotWholesale) {
  InstrumentStore store;
  store.GuardarMaestro(Record("TEF", ""));
  store.GuardarMaestro(Record("BBV"));
  EXPECT_EQ(store.Recorrer("BBV").nameless, 1);

  Instrumento again = Record("  TEF", "TELEFONICA");
  again.Volumen = 5;
  EXPECT_EQ(store.GuardarMaestro(again), 1);
  EXPECT_EQ(store.Instrumentos(1).Nombre.trimmed(), "TELEFONICA");
  EXPECT_EQ(store.Instrumentos(1).Volumen, 5);
  EXPECT_EQ(store.Buscar("TEF"), 1);
  EXPECT_EQ(store.Recorrer("BBV").nameless, 0);
}

TEST(InstrumentStore, RefusesTheRecordAfterTheLastAndKeepsReferences) {
  InstrumentStore store;
  store.GuardarMaestro(Record("0"));
  const Instrumento& first = store.Instrumentos(1);
  for (int n = 1; n < InstrumentStore::kMaxInstrumentos; ++n) {
    ASSERT_EQ(store.GuardarMaestro(Record(std::to_string(n))), n + 1);
  }
  EXPECT_EQ(store.GuardarMaestro(Record("ZZZ")), 0);
  EXPECT_EQ(store.AgregarSinDatos(store::Codigo("STSV"), "ST"), 0);
  EXPECT_EQ(store.NumInstrumentos(), 5000);
  EXPECT_EQ(store.Buscar("4999"), 5000);
  EXPECT_EQ(&store.Instrumentos(1), &first);
  EXPECT_EQ(store.Instrumentos(5001).Codigo.trimmed(), "");
  EXPECT_EQ(store.Instrumentos(-1).Codigo.trimmed(), "");
}

TEST(InstrumentStore, AQuoteIsStampedAndDerivedInSinglePrecision) {
  struct Case {
    float ultimo, volumen;
    double efectivo;
    float medio;
    double saldo;
  };
  // Every step is rounded to four bytes: in double precision the last two balances would be 2 and
  // 3.24709...
  const std::vector<Case> cases{
      {10, 0, 0, 10, 0},
      {10, 0, 50, 0, 0},
      {10, 4, 0, 10, 0},
      {10, 4, 20, 5, 20},
      {1, 3, 1, 0.333333343F, 1.9999998807907104},
      {10, 4, 1e300, 0, 40},         // an average beyond four bytes isn't stored
      {1e30F, 1e30F, 1, 1e-30F, 0},  // nor is such a balance
      {16.1F, 123457, 1987654.5, 16.099973678588867F, 3.2966575622558594},
  };
  for (const Case& c : cases) {
    InstrumentStore store;
    store.MercadoHora = 93005;
    store.GuardarMaestro(Record("TEF"));
    store.GuardarCotizacion(1, {.Ultimo = c.ultimo, .Volumen = c.volumen, .Efectivo = c.efectivo});
    EXPECT_EQ(store.Instrumentos(1).Medio, c.medio) << c.efectivo;
    EXPECT_EQ(store.Instrumentos(1).Saldo, c.saldo) << c.efectivo;
    EXPECT_EQ(store.Instrumentos(1).Hora, 93005);
  }
}

TEST(InstrumentStore, ABookReplacesTheOneOfItsExactCodeOrIsAdded) {
  InstrumentStore store;
  std::vector<int> stored;
  const auto put = [&](std::string_view code, float extra) {
    store::LibroOrdenes book;
    book.Codigo.assign(code);
    book.LibroExtra = extra;
    stored.push_back(store.GuardarLibro(book));
  };
  put("TEF", 1);
  put(" TEF", 2);
  put("TEF", 3);
  EXPECT_EQ(stored, (std::vector<int>{1, 2, 1}));
  EXPECT_EQ(store.NumLibros(), 2);
  EXPECT_EQ(store.Libros(1).LibroExtra, 3);
  for (int n = 0; n < InstrumentStore::kMaxLibros; ++n) put(std::to_string(n), 0);
  EXPECT_EQ(store.NumLibros(), InstrumentStore::kMaxLibros);
  EXPECT_EQ(stored[stored.size() - 3], InstrumentStore::kMaxLibros);
  EXPECT_EQ(stored.back(), 0);  // refused
}

}  // namespace
