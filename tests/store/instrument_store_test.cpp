#include "store/instrument_store.h"

#include <algorithm>
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

// The next slot of just this code, blanks included.
int PlainNext(const InstrumentStore& store, const store::Codigo& code, int after) {
  for (int slot = std::max(after, 0) + 1; slot <= store.NumInstrumentos(); ++slot) {
    if (store.Instrumentos(slot).Codigo == code) return slot;
  }
  return 0;
}

TEST(InstrumentStore, FindsAndReplacesWhatAPlainTrimmedScanFinds) {
  std::mt19937 random(7);
  const auto code = [&](std::size_t size) {
    constexpr std::string_view kBytes("AB .\0\xFF", 6);
    std::string text(size, ' ');
    for (char& c : text) c = random() % 3 == 0 ? kBytes[random() % kBytes.size()] : ' ';
    return text;
  };
  InstrumentStore store;
  std::vector<store::CodeKey> keys(store::kCodeBlock * 60, store::kNoCode);
  for (std::size_t n = 1; n <= 900; ++n) {
    const Instrumento record = Record(code(7), random() % 9 == 0 ? "" : std::to_string(n));
    const int known = PlainScan(store, record.Codigo.bytes()).slot;
    const int last = store.NumInstrumentos();
    // Codes come twice, too, as those of the balances may.
    const bool twice = random() % 9 == 0;
    const int slot = twice ? store.AgregarSinDatos(record.Codigo, record.Nombre.bytes())
                           : store.GuardarMaestro(record);
    ASSERT_EQ(slot, twice || known == 0 ? last + 1 : known);
    ASSERT_EQ(store.Instrumentos(slot).Nombre, record.Nombre);
    keys[static_cast<std::size_t>(slot)] = store::PackCode(record.Codigo.bytes());

    const std::string wanted = code(random() % 10);
    const auto expected = PlainScan(store, wanted);
    const auto scan = store.Recorrer(wanted);
    ASSERT_EQ(scan.slot, expected.slot) << n;
    ASSERT_EQ(scan.nameless, expected.nameless) << n;
    const store::Codigo exact(random() % 2 == 0 ? wanted : record.Codigo.bytes());
    const auto after = static_cast<std::int16_t>(random() % (n + 20) - 1);
    ASSERT_EQ(store.SiguienteDe(exact, after), PlainNext(store, exact, after)) << n;
    const auto key = store::PackCode(wanted);
    if (key != store::kNoCode) {
      ASSERT_EQ(store::FindCodePortable(keys, key), expected.slot == 0 ? -1 : expected.slot);
    }
  }
  EXPECT_GT(store.NumInstrumentos(), 300);
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
  EXPECT_EQ(&store.Instrumentos(1), &first);
  for (const int slot : {5001, -1}) EXPECT_EQ(store.Instrumentos(slot).Codigo.trimmed(), "");
}

TEST(InstrumentStore, AQuoteIsStampedAndDerivedInSinglePrecision) {
  // Every step is rounded to four bytes: in double precision the last balance would be 3.24709...
  const std::tuple<float, float, double, float, double> cases[] = {
      {10, 0, 0, 10, 0},
      {10, 0, 50, 0, 0},
      {10, 4, 0, 10, 0},
      {10, 4, 20, 5, 20},
      {10, 4, 1e300, 0, 40},         // an average beyond four bytes isn't stored
      {1e30F, 1e30F, 1, 1e-30F, 0},  // nor is such a balance
      {16.1F, 123457, 1987654.5, 16.099973678588867F, 3.2966575622558594},
  };
  for (const auto& [last, volume, cash, average, balance] : cases) {
    InstrumentStore store;
    store.MercadoHora = 93005;
    store.GuardarMaestro(Record("TEF"));
    store.GuardarCotizacion(1, {.Ultimo = last, .Volumen = volume, .Efectivo = cash});
    EXPECT_EQ(store.Instrumentos(1).Medio, average) << cash;
    EXPECT_EQ(store.Instrumentos(1).Saldo, balance) << cash;
    EXPECT_EQ(store.Instrumentos(1).Hora, 93005);
  }
}

TEST(InstrumentStore, ABookReplacesTheOneOfItsExactCodeOrIsAddedWhileThereIsRoom) {
  InstrumentStore store;
  const auto put = [&](std::string_view code, float extra = 0) {
    store::LibroOrdenes book;
    book.Codigo.assign(code);
    book.LibroExtra = extra;
    return store.GuardarLibro(book);
  };
  EXPECT_EQ(put("TEF", 1), 1);
  EXPECT_EQ(put(" TEF", 2), 2);
  EXPECT_EQ(put("TEF", 3), 1);
  EXPECT_EQ(store.Libros(1).LibroExtra, 3);
  for (int n = 3; n <= InstrumentStore::kMaxLibros; ++n) EXPECT_EQ(put(std::to_string(n)), n);
  EXPECT_EQ(put("ZZZ"), 0);
}

}  // namespace
