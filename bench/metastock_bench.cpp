// The charting package's files: a quote and a reply of history beside their bare system calls.

#include <algorithm>
#include <array>
#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdint>
#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <string>
#include <unistd.h>
#include <vector>

#include "base/inflate.h"
#include "metastock/download.h"
#include "support/memory_platform.h"
#include "support/meta_store.h"
#include "support/wire.h"

namespace {

using Clock = std::chrono::steady_clock;
using support::StoredEntry;

constexpr int kEntries = 32;
constexpr int kRows = 1900;

double SecondsSince(Clock::time_point begin) {
  return std::chrono::duration<double>(Clock::now() - begin).count();
}

double Median(std::vector<double>& values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::ranges::nth_element(values, middle);
  return *middle;
}

// The bars of one file by nothing but system calls. What is written is no bar, but as long.
class BareFile {
 public:
  BareFile(std::string path, std::int64_t width) : path_(std::move(path)), width_(width) {}

  void Intraday(bool added) {
    Count(added);
    Write();
  }
  void Daily(bool added) {
    Count(false);
    Read(4, 0);
    Read(width_, (last_ - 1) * width_);
    Count(added);
    Write();
  }
  [[nodiscard]] std::int64_t size() const { return last_ * width_; }

 private:
  [[nodiscard]] int Open() const {
    return open(path_.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, 0666);
  }
  void Read(std::int64_t count, std::int64_t offset) {
    const int fd = Open();
    (void)!pread(fd, bytes_.data(), static_cast<std::size_t>(count), offset);
    close(fd);
  }
  void Count(bool added) {
    const int fd = Open();
    (void)!pread(fd, bytes_.data(), 2, 2);
    if (added) {
      ++last_;
      (void)!pwrite(fd, &last_, 2, 2);
    }
    close(fd);
  }
  void Write() {
    const int fd = Open();
    (void)!pwrite(fd, bytes_.data(), static_cast<std::size_t>(width_), (last_ - 1) * width_);
    close(fd);
  }

  std::string path_;
  std::int64_t width_;
  std::int64_t last_ = 2;  // one bar, as the stores begin
  std::array<char, 32> bytes_{};
};

// Two stores of so many entries of one bar, of which the bare files are copies.
class Desk {
 public:
  explicit Desk(int entries) {
    for (int n = 1; n <= entries; ++n) {
      list_.push_back(
          {.file = n % 256, .symbol = CodeOf(n), .bars = {{1000425, 173000, 10, 11, 9, 10, 500}}});
    }
    for (const char* name : {"D", "I", "BareD", "BareI"}) temp_.Write(std::string(name) + "/x", "");
    Reset();
  }

  static std::string CodeOf(int n) { return "C" + std::to_string(n); }
  static store::Instrumento QuoteOf(const std::string& code, float last, float time) {
    store::Instrumento record;
    record.Codigo.assign(code);
    record.Maximo = 12;
    record.Minimo = record.Apertura = 9;
    record.Ultimo = last;
    record.Volumen = time;
    record.Fecha = 1000426;
    record.Hora = time;
    return record;
  }

  // As at the start, all selected.
  void Reset() {
    intraday.clear();
    daily.clear();
    for (const char* name : {"D", "BareD"}) support::WriteDailyStore(temp_.Path(name), list_);
    for (const char* name : {"I", "BareI"}) support::WriteIntradayStore(temp_.Path(name), list_);
    for (const StoredEntry& entry : list_) {
      intraday.emplace_back(support::DataPath(temp_.Path("BareI"), entry.file), 28);
      daily.emplace_back(support::DataPath(temp_.Path("BareD"), entry.file), 24);
    }
    stores.MasterDir = base::FixedText<50>(temp_.Path("D"));
    stores.EMasterDir = base::FixedText<50>(temp_.Path("I"));
    stores.LoadMasterDir();
    stores.LoadEMasterDir();
    stores.MasterSelected.assign(stores.MasterSelected.size(), 1);
    stores.EMasterSelected = stores.MasterSelected;
  }

  // Both have written the same amount.
  [[nodiscard]] bool Right() const {
    const auto right = [&](const char* name, int file, const BareFile& bare) {
      const std::string path = support::DataPath(temp_.Path(name), file);
      return std::cmp_equal(std::filesystem::file_size(path), bare.size());
    };
    for (std::size_t n = 0; n < list_.size(); ++n) {
      if (!right("I", list_[n].file, intraday[n])) return false;
      if (!right("D", list_[n].file, daily[n])) return false;
    }
    return true;
  }

 private:
  support::TempDir temp_;
  std::vector<StoredEntry> list_;

 public:
  const base::ProgramDir program{temp_.path()};
  support::MemoryPlatform outside;
  store::InstrumentStore market;
  metastock::Stores stores;
  metastock::Bars bars{stores, market, outside};
  std::vector<BareFile> intraday, daily;
};

// To reach: 1.25 times the bare calls. Both take turns, so that they meet the same machine.
void QuoteInBothStores(benchmark::State& state) {
  Desk desk(kEntries);
  for (int n = 1; n <= kEntries; ++n) {
    desk.market.GuardarMaestro(Desk::QuoteOf(Desk::CodeOf(n), 10, 93000));
  }
  const auto quote = [&](float last, float time) {
    for (int n = 1; n <= kEntries; ++n) {
      desk.market.GuardarMaestro(Desk::QuoteOf(Desk::CodeOf(n), last, time));
    }
  };
  const auto ours_all = [&] {
    const auto begin = Clock::now();
    for (std::int16_t n = 1; n <= kEntries; ++n) desk.bars.ActualizarBarras(n);
    return SecondsSince(begin);
  };
  const auto bare_all = [&](bool added) {
    const auto begin = Clock::now();
    for (std::size_t n = 0; n < kEntries; ++n) {
      desk.intraday[n].Intraday(added);
      desk.intraday[n].Intraday(false);  // the daily entry drives it as well
      desk.daily[n].Daily(added);
    }
    return SecondsSince(begin);
  };
  ours_all();
  bare_all(true);
  std::vector<double> ours, bare;
  float minute = 0;
  for (auto _ : state) {
    minute = minute < 4 ? minute + 1 : 0;
    quote(10 + minute / 8, 93000 + minute * 100);
    bare.push_back(bare_all(false));
    ours.push_back(ours_all());
  }
  if (!desk.Right()) state.SkipWithError("not the same files");
  const double one = Median(ours) / kEntries, bare_one = Median(bare) / kEntries;
  state.counters["quote_us"] = one * 1e6;
  state.counters["bare_us"] = bare_one * 1e6;
  state.counters["ratio"] = one / bare_one;
}
BENCHMARK(QuoteInBothStores)->Unit(benchmark::kMicrosecond);

// An instrument of neither store, beside 500 entries of each.
void QuoteInNeither(benchmark::State& state) {
  Desk desk(metastock::Stores::kMaxEntries);
  const std::int16_t slot = desk.market.GuardarMaestro(Desk::QuoteOf("NONE", 10, 93000));
  for (auto _ : state) desk.bars.ActualizarBarras(slot);
}
BENCHMARK(QuoteInNeither)->Unit(benchmark::kNanosecond);

// Keeps the time of each task that is posted.
class TimedPlatform : public support::MemoryPlatform {
 public:
  void Post(std::function<void()> task) override {
    MemoryPlatform::Post([this, task = std::move(task)] { Take(task); });
  }
  template <typename Task>
  void Take(const Task& task) {
    const auto begin = Clock::now();
    task();
    const double seconds = SecondsSince(begin);
    all += seconds;
    longest = std::max(longest, seconds);
  }
  double all = 0, longest = 0;
};

// Bars of five minutes, and a row for each minute.
constexpr int kRowsOfADay = 500, kRowsOfABar = 5;

std::string IntradayReply() {
  std::string rows(28, 's');
  for (int n = 0; n < kRows; ++n) {
    const int minutes = 9 * 60 + n % kRowsOfADay;
    const auto price = 10 + static_cast<float>(n % 7) / 8;
    rows += support::F32(static_cast<float>(1000501 + n / kRowsOfADay));
    rows += support::F32(static_cast<float>(minutes / 60 * 10000 + minutes % 60 * 100));
    rows += support::F32(price + 1) + support::F32(price - 1) + support::F32(price);
    rows += support::F32(100) + support::F32(price);
  }
  return support::Frame(base::Compress("DATA:" + support::Pad(Desk::CodeOf(1), 7) + "????" + rows));
}

std::string DailyReply() {
  std::string rows;
  for (int n = 0; n < kRows; ++n) {
    std::string row(124, '\0');
    base::PutBytes(row, 0, support::F32(static_cast<float>(1000501 + n)));
    base::PutBytes(row, 24, support::F32(100));
    for (const std::size_t price : {100U, 104U, 108U, 112U}) {
      base::PutBytes(row, price, support::F32(10));
    }
    rows += row;
  }
  return support::Frame(base::Compress("DATD:" + support::Pad(Desk::CodeOf(1), 7) + "????" + rows));
}

struct Channel {
  explicit Channel(Desk& at) : desk(at) {}

  Desk& desk;
  TimedPlatform outside;
  metastock::Bars bars{desk.stores, desk.market, outside};
  metastock::Form1 form{outside};
  std::int16_t FaseCierre = 0;
  const std::unique_ptr<platform::Socket> socket =
      outside.MakeSocket({.connected = [] {},
                          .data = [this] { download.OnDataArrival(); },
                          .closed = [] {},
                          .error = [](const std::string&) {}});
  metastock::Download download{outside, desk.program, desk.stores, bars, form, *socket, FaseCierre};
};

// To reach: less than 60 ms beyond the bare calls, none of its slices longer than 16 ms.
template <typename Bare>
void StoreReply(benchmark::State& state, const std::string& reply, Bare bare_rows) {
  Desk desk(1);
  std::vector<double> ours, bare, longest;
  for (auto _ : state) {
    state.PauseTiming();
    desk.Reset();
    Channel channel(desk);
    (void)channel.socket->Connect();
    channel.outside.sockets.front()->Accept();
    state.ResumeTiming();
    const auto begin = Clock::now();
    for (int n = 0; n < kRows; ++n) bare_rows(desk, n);
    bare.push_back(SecondsSince(begin));
    channel.outside.Take([&] { channel.outside.sockets.front()->Arrive(reply); });
    channel.outside.RunPosted();
    ours.push_back(channel.outside.all);
    longest.push_back(channel.outside.longest);
    if (!desk.Right()) state.SkipWithError("not the same files");
  }
  const double one = Median(ours), bare_one = Median(bare);
  state.counters["reply_ms"] = one * 1e3;
  state.counters["bare_ms"] = bare_one * 1e3;
  state.counters["beyond_ms"] = (one - bare_one) * 1e3;
  state.counters["longest_slice_ms"] = Median(longest) * 1e3;
}

void IntradayReplyStored(benchmark::State& state) {
  StoreReply(state, IntradayReply(), [](Desk& desk, int n) {
    desk.intraday[0].Intraday(n % kRowsOfADay % kRowsOfABar == 0);
  });
}
BENCHMARK(IntradayReplyStored)->Unit(benchmark::kMillisecond);

void DailyReplyStored(benchmark::State& state) {
  StoreReply(state, DailyReply(), [](Desk& desk, int) { desk.daily[0].Daily(true); });
}
BENCHMARK(DailyReplyStored)->Unit(benchmark::kMillisecond);

}  // namespace
