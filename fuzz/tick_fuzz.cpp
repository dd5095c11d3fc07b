// A tick file of any content under a code of any bytes: the code, the six numbers of an update,
// then the file.

#include <array>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "base/bytes.h"
#include "charts/replay.h"
#include "support/temp_dir.h"

namespace {

constexpr std::size_t kCode = 7, kNumbers = 6, kHead = kCode + kNumbers * sizeof(float);

void Check(bool holds) {
  if (!holds) std::abort();
}

std::int16_t Update(std::string_view head, store::InstrumentStore& store) {
  store::Instrumento record;
  record.Codigo = store::Codigo(head.substr(0, kCode));
  float* const numbers[kNumbers] = {&record.Minimo, &record.Ultimo,     &record.Volumen,
                                    &record.Hora,   &store.MercadoHora, &store.MercadoFecha};
  for (std::size_t i = 0; i < kNumbers; ++i) {
    Check(base::ReadField(head, kCode + i * sizeof(float), *numbers[i]));
  }
  return store.GuardarMaestro(record);
}

void CheckRead(const charts::TickFiles& ticks, const store::Codigo& code, std::size_t length) {
  std::vector<float> prices;
  const auto count =
      ticks.Leer(code, [&](const charts::Tick& tick) { prices.push_back(tick.Precio); });
  Check(count == static_cast<std::int64_t>(length / 16) && prices.size() <= length / 16);
  for (std::size_t i = 0; i < prices.size(); ++i) Check(prices[i] > (i == 0 ? 0 : prices[0] / 2));

  charts::Chart chart;
  chart.AddSerie(code);
  charts::ReplayTicks(ticks, code, chart);
  Check(chart.Count() <= prices.size());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < kHead) return 0;
  const std::string_view input(reinterpret_cast<const char*>(data), size);
  const std::string before(input.substr(kHead));
  const support::TempDir dir;
  const base::ProgramDir program(dir.path());
  store::InstrumentStore store;
  charts::TickFiles ticks(program, store);
  const std::int16_t slot = Update(input.substr(0, kHead), store);
  const store::Instrumento& record = store.Instrumentos(slot);

  const std::string file = "Ticks/" + charts::RutaTick(record.Codigo);
  dir.Write(file, before);
  CheckRead(ticks, record.Codigo, before.size());
  ticks.TickAppend(slot);
  const std::string after = dir.Read(file);
  const std::size_t whole = before.size() / 16 * 16;
  const bool grown =
      after.size() == whole + 16 && after.substr(0, whole) == before.substr(0, whole);
  float price = 0;
  Check(after == before || (grown && base::ReadField(after, whole, price) &&
                            price == record.Ultimo && price > record.Minimo / 2));
  const auto entries = std::filesystem::recursive_directory_iterator(dir.path());
  Check(std::distance(begin(entries), end(entries)) == 2);
  return 0;
}
