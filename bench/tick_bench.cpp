// Tick files: a tick appended beside its bare system calls, and a day of them read back.

#include <algorithm>
#include <array>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdint>
#include <fcntl.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include "charts/replay.h"
#include "support/temp_dir.h"

namespace {

constexpr int kInstruments = 128;
constexpr int kTicksOfADay = 30000;

class Recorder {
 public:
  Recorder() {
    program_.MakeDirectory("Ticks");
    program_.MakeDirectory("Bare");
    store_.MercadoHora = 93015;
    store_.MercadoFecha = 1000426;
    for (int n = 0; n < kInstruments; ++n) {
      store_.AgregarSinDatos(CodeOf(n), "NOMBRE");
      bare_.push_back(temp_.Path("Bare/" + charts::RutaTick(CodeOf(n))));
    }
  }

  static store::Codigo CodeOf(int n) { return store::Codigo("C" + std::to_string(n)); }

  void Append(int n) {
    const auto slot = static_cast<std::int16_t>(1 + n);
    ++volume_;
    store_.GuardarCotizacion(slot, {12, 9, 10.25F, volume_, 10.0 * static_cast<double>(volume_)});
    ticks.TickAppend(slot);
  }

  // The same without a question asked.
  void AppendBare(int n) {
    std::array<char, 16> record{};
    struct stat status {};
    const int fd = open(bare_[static_cast<std::size_t>(n)].c_str(),
                        O_RDWR | O_CREAT | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, 0666);
    fstat(fd, &status);
    if (status.st_size > 0) (void)!pread(fd, record.data(), 16, status.st_size - 16);
    (void)!pwrite(fd, record.data(), 16, status.st_size);
    close(fd);
  }

  // Both have written the same amount.
  [[nodiscard]] bool Right() const {
    for (int n = 0; n < kInstruments; ++n) {
      const std::string name = charts::RutaTick(CodeOf(n));
      if (temp_.Read("Ticks/" + name).size() != temp_.Read("Bare/" + name).size()) return false;
    }
    return true;
  }

 private:
  support::TempDir temp_;
  base::ProgramDir program_{temp_.path()};
  store::InstrumentStore store_;
  std::vector<std::string> bare_;
  float volume_ = 0;

 public:
  charts::TickFiles ticks{program_, store_};
};

double Median(std::vector<double>& values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::ranges::nth_element(values, middle);
  return *middle;
}

// To reach: 1.25 times the bare calls. Both take turns, so that they meet the same machine.
void TickAppend(benchmark::State& state) {
  Recorder recorder;
  const auto seconds_of_all = [&](auto append) {
    const auto begin = std::chrono::steady_clock::now();
    for (int n = 0; n < kInstruments; ++n) append(n);
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
  };
  std::vector<double> ours, bare;
  for (auto _ : state) {
    bare.push_back(seconds_of_all([&](int n) { recorder.AppendBare(n); }));
    ours.push_back(seconds_of_all([&](int n) { recorder.Append(n); }));
  }
  if (!recorder.Right()) state.SkipWithError("not the same files");
  const double one = Median(ours) / kInstruments, bare_one = Median(bare) / kInstruments;
  state.counters["append_us"] = one * 1e6;
  state.counters["bare_us"] = bare_one * 1e6;
  state.counters["ratio"] = one / bare_one;
}
BENCHMARK(TickAppend)->Unit(benchmark::kMicrosecond);

void DayRead(benchmark::State& state) {
  Recorder recorder;
  for (int n = 0; n < kTicksOfADay; ++n) recorder.Append(0);
  for (auto _ : state) {
    float sum = 0;
    recorder.ticks.Leer(Recorder::CodeOf(0), [&](const charts::Tick& tick) { sum += tick.Precio; });
    benchmark::DoNotOptimize(sum);
  }
}
BENCHMARK(DayRead)->Unit(benchmark::kMicrosecond);

// The same into a chart.
void DayReplayed(benchmark::State& state) {
  Recorder recorder;
  for (int n = 0; n < kTicksOfADay; ++n) recorder.Append(0);
  for (auto _ : state) {
    charts::Chart chart;
    chart.AddSerie(Recorder::CodeOf(0));
    charts::ReplayTicks(recorder.ticks, Recorder::CodeOf(0), chart);
    if (chart.Count() != kTicksOfADay) state.SkipWithError("records are missing");
  }
}
BENCHMARK(DayReplayed)->Unit(benchmark::kMicrosecond);

}  // namespace
