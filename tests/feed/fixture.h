#pragma once

#include <string>
#include <vector>

#include "feed/frame_codec.h"
#include "feed/strip.h"
#include "store/instrument_store.h"
#include "store/update_pipeline.h"

/// The strip of the main window, and a store whose pipeline notes what it is told.
struct Market {
  Market() {
    pipeline.steps.graficos = [this](std::int16_t slot) { quotes.push_back(slot); };
    pipeline.steps.ticks = [this](std::int16_t slot) { updates.push_back(slot); };
  }

  platform::PictureBox Picture2;
  platform::Label Label2, LT, LF;
  platform::Ticker Tickctl1, Tickctl2;
  platform::CheckBox Check2;
  feed::Strip strip{Picture2, Label2, LT, LF, Tickctl1, Tickctl2};
  store::InstrumentStore store;
  store::UpdatePipeline pipeline{store, Tickctl1, Check2};
  std::vector<int> quotes;   // slots, by quotes only
  std::vector<int> updates;  // slots, by quotes and loads

  /// "code last" of every slot, joined by commas.
  [[nodiscard]] std::string Table() const {
    std::string text;
    for (int i = 1; i <= store.NumInstrumentos(); ++i) {
      const auto& record = store.Instrumentos(i);
      text += (i > 1 ? "," : "") + record.Codigo.trimmed_utf8() + " " +
              std::to_string(static_cast<int>(record.Ultimo));
    }
    return text;
  }
};

/// A codec that keeps its messages.
struct Reader {
  Reader() {
    codec.steps.Procesar = [this](std::string_view text) { messages.emplace_back(text); };
  }

  feed::Zip zip;
  feed::FrameCodec codec{zip};
  std::vector<std::string> messages;
};
