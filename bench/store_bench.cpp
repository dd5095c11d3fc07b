#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "base/text.h"
#include "store/instrument_store.h"

// Finding an instrument by its code, at every place of the table alike: the store's scan against
// one that trims both sides of each slot and compares.
namespace {

std::string CodeOf(int n) {
  std::string code = "AAA    ";
  for (std::size_t i = 3; i-- > 0; n /= 26) code[i] = static_cast<char>('A' + n % 26);
  return code;
}

struct Table {
  explicit Table(int size) {
    for (int n = 0; n < size; ++n) {
      codes.push_back(CodeOf(n));
      store.AgregarSinDatos(store::Codigo(codes.back()), "NOMBRE");
    }
    std::shuffle(codes.begin(), codes.end(), std::mt19937(1));
  }

  store::InstrumentStore store;
  std::vector<std::string> codes;
};

std::int16_t PlainScan(const store::InstrumentStore& store, std::string_view code) {
  code = base::Trim(code);
  for (std::int16_t slot = 1; slot <= store.NumInstrumentos(); ++slot) {
    if (store.Instrumentos(slot).Codigo.trimmed() == code) return slot;
  }
  return 0;
}

void LookupPlain(benchmark::State& state) {
  const Table table(static_cast<int>(state.range(0)));
  std::size_t n = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(PlainScan(table.store, table.codes[n]));
    n = (n + 1) % table.codes.size();
  }
}
BENCHMARK(LookupPlain)->Arg(200)->Arg(5000);

void LookupStore(benchmark::State& state) {
  const Table table(static_cast<int>(state.range(0)));
  std::size_t n = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(table.store.Recorrer(table.codes[n]));
    n = (n + 1) % table.codes.size();
  }
}
BENCHMARK(LookupStore)->Arg(200)->Arg(5000);

// The same on a processor without wide registers.
void LookupPortable(benchmark::State& state) {
  const Table table(static_cast<int>(state.range(0)));
  std::vector<store::CodeKey> keys((table.codes.size() + 16) / 16 * 16, store::kNoCode);
  for (std::size_t i = 0; i < table.codes.size(); ++i) {
    keys[i + 1] = store::PackCode(CodeOf(static_cast<int>(i)));
  }
  std::size_t n = 0;
  for (auto _ : state) {
    benchmark::DoNotOptimize(store::FindCodePortable(keys, store::PackCode(table.codes[n])));
    n = (n + 1) % table.codes.size();
  }
}
BENCHMARK(LookupPortable)->Arg(200)->Arg(5000);

}  // namespace
