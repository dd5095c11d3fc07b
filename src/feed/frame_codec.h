#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "feed/zip.h"

namespace feed {

/// Turns the bytes of one read after the other into messages: frames (nested, chained, compressed)
/// and plain text up to its terminator. An incomplete frame is carried over together with the whole
/// read, so the frames before it come again; an unterminated plain tail is lost. A read that passes
/// a limit (30000 bytes with the carry, 51 frames, 49 plain messages) loses its rest. Any bytes
/// are fine. `zip` outlives the codec.
class FrameCodec {
 public:
  struct Steps {
    std::function<void(std::string_view message)> Procesar;  // one message without its delimiters
    std::function<void()> QuedaTexto;  // a frame has been taken and something is left
  };

  explicit FrameCodec(Zip& zip) : zip_(zip) {}

  Steps steps;

  void Recibir(std::string recibido);

  /// What waits for the next read.
  [[nodiscard]] const std::string& ColaTramas() const { return cola_tramas_; }

 private:
  /// What is left of a read: the text before the place of work, and that behind it.
  struct Trabajo {
    std::string kept;
    std::string_view rest;

    /// Steps behind the first head. False (and nothing changes) when there is none.
    [[nodiscard]] bool SkipHead();
    [[nodiscard]] bool empty() const { return kept.empty() && rest.empty(); }
  };

  /// False when the event ends with the frames.
  [[nodiscard]] bool Tramas(Trabajo& trabajo, const std::string& recibido);
  void Textos(std::string_view trabajo);
  void ProcesarTrama(std::string_view payload, int depth);
  void Cadena(std::string_view chain, int depth);

  Zip& zip_;
  std::string cola_tramas_;
};

}  // namespace feed
