// The road of one quote from the wire into the store.

#include <algorithm>
#include <benchmark/benchmark.h>
#include <random>
#include <string>
#include <vector>

#define ZLIB_CONST
#include <zlib.h>

#include "base/inflate.h"
#include "feed/frame_codec.h"
#include "feed/market_decoder.h"
#include "platform/controls.h"
#include "store/instrument_store.h"
#include "store/update_pipeline.h"
#include "support/wire.h"

namespace {

constexpr int kBatch = 98;

// Code `i` of 26^3 three-letter codes.
std::string Code(int i) {
  std::string code;
  for (int n = 0; n < 3; ++n, i /= 26) code += static_cast<char>('A' + i % 26);
  return code;
}

enum Kind { kQuotes, kMasters };

std::string Record(Kind kind, std::mt19937& random, int instrument) {
  const std::string code = Code(instrument);
  const std::string name = "VALOR " + code;
  const float last = static_cast<float>(500 + random() % 4000) / 100.0F;
  const auto volume = static_cast<float>(random() % 1000 * 100);
  const double cash = static_cast<double>(volume) * static_cast<double>(last);
  if (kind == kQuotes) {
    return support::QuoteRecord({.code = code,
                                 .high = last + 0.25F,
                                 .low = last - 0.25F,
                                 .last = last,
                                 .volume = volume,
                                 .cash = cash});
  }
  return support::MasterRecord({.code = code,
                                .name = name,
                                .previous = last - 0.1F,
                                .high = last + 0.25F,
                                .low = last - 0.25F,
                                .last = last,
                                .volume = volume,
                                .opening = last,
                                .cash = cash,
                                .date = 1000103});
}

// `records` of them, for the instruments that `next` names.
template <typename Next>
std::string Batch(Kind kind, std::mt19937& random, int records, Next next) {
  const std::string count = std::to_string(records);
  std::string batch = kind == kQuotes ? count + ",2:" : "99," + support::Pad(count, 4);
  for (int i = 0; i < records; ++i) batch += Record(kind, random, next());
  return batch;
}

struct Receiver {
  explicit Receiver(int instruments) {
    codec.steps = {.Procesar = [this](std::string_view text) { decoder.Proces(text); },
                   .QuedaTexto = {}};
    std::mt19937 random(1);
    for (int i = 0; i < instruments;) {
      decoder.Proces(Batch(kMasters, random, std::min(50, instruments - i), [&i] { return i++; }));
    }
  }

  platform::PictureBox picture;
  platform::Label label, time, date;
  platform::Ticker tape, status;
  platform::CheckBox check;
  store::InstrumentStore store;
  store::UpdatePipeline pipeline{store, tape, check};
  feed::Zip zip;
  feed::FrameCodec codec{zip};
  feed::MarketDecoder decoder{store, pipeline, {picture, label, time, date, tape, status}};
};

// Framed batches for instruments anywhere in the table.
std::vector<std::string> Batches(Kind kind, int instruments, bool compressed) {
  std::mt19937 random(5);
  const auto any = [&] { return static_cast<int>(random() >> 1U) % instruments; };
  std::vector<std::string> out;
  for (int i = 0; i < 64; ++i) {
    const std::string batch = Batch(kind, random, kBatch, any);
    out.push_back(support::Frame(compressed ? base::Compress(batch) : batch));
  }
  return out;
}

void WireToStore(benchmark::State& state, Kind kind, bool compressed) {
  const int instruments = static_cast<int>(state.range(0));
  Receiver receiver(instruments);
  const auto batches = Batches(kind, instruments, compressed);
  std::size_t next = 0;
  for (auto _ : state) {
    receiver.codec.Recibir(batches[next]);
    next = (next + 1) % batches.size();
  }
  state.SetItemsProcessed(state.iterations() * kBatch);
}

// Yardstick of the compressed batches: zlib alone, into a buffer that is large enough.
void Inflate(benchmark::State& state, Kind kind) {
  const auto batches = Batches(kind, static_cast<int>(state.range(0)), true);
  std::string out(8192, '\0');
  std::size_t next = 0;
  for (auto _ : state) {
    const std::string& batch = batches[next];
    const std::size_t start = batch.find("MQ") + 2;
    z_stream stream{};
    stream.next_in = reinterpret_cast<const Bytef*>(batch.data() + start);
    stream.avail_in = static_cast<uInt>(batch.size() - start);
    stream.next_out = reinterpret_cast<Bytef*>(out.data());
    stream.avail_out = static_cast<uInt>(out.size());
    if (inflateInit(&stream) != Z_OK || inflate(&stream, Z_FINISH) != Z_STREAM_END) {
      state.SkipWithError("inflate");
    }
    inflateEnd(&stream);
    benchmark::DoNotOptimize(out.data());
    next = (next + 1) % batches.size();
  }
  state.SetItemsProcessed(state.iterations() * kBatch);
}

BENCHMARK_CAPTURE(WireToStore, quotes, kQuotes, false)->Arg(200)->Arg(5000);
BENCHMARK_CAPTURE(WireToStore, compressed_quotes, kQuotes, true)->Arg(200);
BENCHMARK_CAPTURE(Inflate, the_same_quotes, kQuotes)->Arg(200);
BENCHMARK_CAPTURE(WireToStore, compressed_masters, kMasters, true)->Arg(200);
BENCHMARK_CAPTURE(Inflate, the_same_masters, kMasters)->Arg(200);

void LoadingOfMasters(benchmark::State& state) {
  const int instruments = static_cast<int>(state.range(0));
  for (auto _ : state) {
    Receiver receiver(instruments);
    benchmark::DoNotOptimize(receiver.store.NumInstrumentos());
  }
  state.SetItemsProcessed(state.iterations() * instruments);
}
BENCHMARK(LoadingOfMasters)->Arg(5000)->Unit(benchmark::kMillisecond);

}  // namespace
