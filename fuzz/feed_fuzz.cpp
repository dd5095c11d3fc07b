// Whatever a server sends: pieces of the input, raw or wrapped, through slicer, codec, dispatcher,
// decoder, store and pipeline.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/inflate.h"
#include "feed/dispatcher.h"
#include "feed/frame_codec.h"
#include "feed/market_decoder.h"
#include "feed/read_slice.h"
#include "platform/controls.h"
#include "store/instrument_store.h"
#include "store/update_pipeline.h"
#include "support/wire.h"

namespace {

struct Receiver {
  Receiver() {
    check.set_value(1);
    codec.steps = {.Procesar = [this](auto message) { dispatcher.Procesar(message); },
                   .QuedaTexto = {}};
    dispatcher.steps = {.EnviarTexto = [this](auto text) { return Send(text); },
                        .Proces = [this](auto message) { decoder.Proces(message); },
                        .Redirigir = [this](auto text) { Touch(text); },
                        .PaginaLista = [this](auto text) { Touch(text); },
                        .AdmiteAviso = [] { return true; },
                        .Aviso = [this](auto text) { Touch(text); },
                        .Pitido = {[] {}}};
    decoder.steps.EnviarTexto = [this](auto text) { return Send(text); };
    decoder.steps.Negocio = [this](const auto& trade) { Touch(trade.Codigo.bytes()); };
    decoder.Proces("99,2   " + support::MasterRecord({.code = "I IB", .name = "INDEX"}) +
                   support::MasterRecord({.code = "ALD", .name = ""}));
  }

  bool Send(std::string_view text) {
    Touch(text);
    sent += text.size();
    return sent < (1U << 20);
  }
  void Touch(std::string_view text) {
    for (const char c : text) sum += static_cast<unsigned char>(c);
  }
  void Event() {
    const std::size_t count = slicer.Next(codec.ColaTramas(), pending);
    dispatcher.Renovar();
    codec.Recibir(pending.substr(0, count));
    pending.erase(0, count);
    sent = 0;
  }

  platform::PictureBox picture;
  platform::Label label, time, date;
  platform::Ticker tape, status;
  platform::CheckBox check;
  store::InstrumentStore store;
  store::UpdatePipeline pipeline{store, tape, check};
  feed::SessionState session;
  feed::Zip zip;
  feed::FrameCodec codec{zip};
  feed::Dispatcher dispatcher{session, store, tape, zip};
  feed::MarketDecoder decoder{store, pipeline, {picture, label, time, date, tape, status}};
  feed::ReadSlicer slicer;
  std::string pending;
  std::size_t sent = 0;
  unsigned sum = 0;
};

std::string Wrapped(std::string_view piece, unsigned how) {
  switch (how) {
    case 1:
      return support::Plain(piece);
    case 2:
      return support::Frame(piece);
    case 3:
      return support::Frame(base::Compress(piece));
    default:
      return std::string(piece);
  }
}

}  // namespace

// Each piece: a byte that tells the wrapping and how many data events follow, a byte of length.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view input(reinterpret_cast<const char*>(data), size);
  Receiver receiver;
  while (input.size() > 2) {
    const unsigned how = static_cast<unsigned char>(input[0]);
    const std::size_t length = static_cast<unsigned char>(input[1]);
    input.remove_prefix(2);
    const std::string piece = Wrapped(input.substr(0, length), how & 3U);
    // A few pieces are sent over and over, so that limits and backlogs come into play.
    const int times = (how & 0x70U) == 0x70U ? 200 : 1;
    for (int i = 0; i < times; ++i) receiver.pending += piece;
    input.remove_prefix(std::min(length, input.size()));
    for (unsigned events = how >> 2U & 3U; events > 0 && !receiver.pending.empty(); --events) {
      receiver.Event();
    }
  }
  while (!receiver.pending.empty()) receiver.Event();
  return 0;
}
