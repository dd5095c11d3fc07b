#include "feed/frame_codec.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>

#include "base/val.h"
#include "feed/frame.h"

namespace feed {
namespace {

constexpr int kMaxVueltas = 50;
constexpr int kMaxTextos = 49;
constexpr int kMaxDepth = 32;

}  // namespace

bool FrameCodec::Trabajo::SkipHead() {
  constexpr std::size_t kHead = kCabezaTrama.size();
  // Taking a frame out can join two halves of a head.
  const std::size_t tail = std::min(kept.size(), kHead - 1);
  if (tail > 0) {
    const std::string seam = kept.substr(kept.size() - tail).append(rest.substr(0, kHead - 1));
    if (const std::size_t at = seam.find(kCabezaTrama); at != std::string::npos) {
      kept.resize(kept.size() - tail + at);
      rest.remove_prefix(at + kHead - tail);
      return true;
    }
  }
  const std::size_t at = rest.find(kCabezaTrama);
  if (at == std::string_view::npos) return false;
  kept.append(rest.substr(0, at));
  rest.remove_prefix(at + kHead);
  return true;
}

void FrameCodec::Recibir(std::string recibido) {
  zip_.Renovar();
  if (!cola_tramas_.empty()) {
    recibido.insert(0, std::exchange(cola_tramas_, {}));
  }
  if (recibido.size() > kMaxTrabajo) return;
  Trabajo trabajo{{}, recibido};
  if (!Tramas(trabajo, recibido)) return;
  if (trabajo.kept.empty()) return Textos(trabajo.rest);
  trabajo.kept.append(trabajo.rest);
  Textos(trabajo.kept);
}

bool FrameCodec::Tramas(Trabajo& trabajo, const std::string& recibido) {
  for (int vueltas = 0; trabajo.SkipHead();) {
    const auto length = ReadFrameLength(trabajo.rest);
    if (!length) {
      cola_tramas_.append(kCabezaTrama).append(trabajo.rest);
      return false;
    }
    std::string_view& rest = trabajo.rest;
    const auto behind = static_cast<std::int64_t>(rest.size() - length->payload);
    if (length->longitud > behind) {
      // Whole, with the frames already taken: they are sent on again when the rest is there.
      cola_tramas_ = recibido;
      return false;
    }
    if (length->longitud <= 0) {
      // It stays where it is, so that every further round would find it again.
      if (steps.QuedaTexto) steps.QuedaTexto();
      return false;
    }
    const auto size = static_cast<std::size_t>(length->longitud);
    ProcesarTrama(rest.substr(length->payload, size), 0);
    rest.remove_prefix(length->payload + size);
    if (!trabajo.empty() && steps.QuedaTexto) steps.QuedaTexto();
    if (++vueltas > kMaxVueltas) return false;
  }
  return true;
}

void FrameCodec::Textos(std::string_view trabajo) {
  if (trabajo.find(kTerminador) == std::string_view::npos) return;
  std::size_t inicio = 0;
  // A tail of four bytes is too short to look at.
  for (int cuenta = 1; trabajo.size() - inicio > 4; ++cuenta) {
    // An empty message has no terminator of its own: the search starts behind its first byte.
    const std::size_t fin =
        cuenta > kMaxTextos ? std::string_view::npos : trabajo.find(kTerminador, inicio + 1);
    if (fin == std::string_view::npos) return steps.Procesar(trabajo);
    std::string_view text = trabajo.substr(inicio, fin - inicio);
    if (text.starts_with('\0')) text.remove_prefix(1);
    steps.Procesar(text);
    inicio = fin + kTerminador.size();
  }
}

void FrameCodec::ProcesarTrama(std::string_view payload, int depth) {
  if (depth > kMaxDepth) return;
  std::string expanded;
  if (payload.starts_with("MQ") && zip_.Expandir(payload, expanded)) payload = expanded;
  if (payload.starts_with(kCabezaTrama)) return Cadena(payload, depth);
  steps.Procesar(payload);
}

void FrameCodec::Cadena(std::string_view chain, int depth) {
  constexpr std::size_t kNone = std::string_view::npos;
  std::size_t cierre = 0;
  for (std::size_t at = 0; at != kNone;) {
    const std::size_t digits = at + kCabezaTrama.size();
    // Heads without a "]" of their own share the next one; it isn't searched again for each.
    if (cierre != kNone && cierre < digits) cierre = chain.find(']', digits);
    const std::string_view number =
        cierre == kNone ? std::string_view{} : chain.substr(digits, cierre - digits);
    const std::int16_t longitud = base::ValInteger<std::int16_t>(number).value_or(0);
    if (longitud <= 0) {
      ProcesarTrama({}, depth + 1);
      break;
    }
    const auto size = static_cast<std::size_t>(longitud);
    ProcesarTrama(chain.substr(cierre + 1, size), depth + 1);
    // By the bare length, not behind the frame: servers rely on it.
    at = chain.find(kCabezaTrama, at + std::max<std::size_t>(size, 2) - 1);
  }
  // The rest without a head is an empty message.
  steps.Procesar({});
}

}  // namespace feed
