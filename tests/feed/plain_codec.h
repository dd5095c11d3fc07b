#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "base/inflate.h"
#include "base/text.h"
#include "base/val.h"

/// The rules of the stream written down step by step, positions from 1, without a thought for
/// speed: the judge of the codec.
struct PlainCodec {
  static constexpr std::string_view kHead{"\0AZ[", 4};
  std::vector<std::string> messages;
  std::string ColaTramas;

  void DataArrival(std::string Recibido) {
    Recibido = ColaTramas + Recibido;
    ColaTramas = "";
    std::string Trabajo = Recibido;
    if (Trabajo.size() > 30000) return;
    int Vueltas = 0;
    while (const auto Pos = base::Find(Trabajo, kHead)) {
      const auto Cierre = base::Find(Trabajo, "]", Pos);
      if (Cierre == 0) return (void)(ColaTramas += base::Mid(Trabajo, Pos));
      const long Longitud = base::ValInteger<long>(base::Mid(Trabajo, Pos + 4)).value_or(0);
      const auto size = static_cast<std::size_t>(std::max(Longitud, 0L));
      if (size > Trabajo.size() - Cierre) return (void)(ColaTramas += Recibido);
      if (size > 0) {
        ProcesarTrama(std::string(base::Mid(Trabajo, Cierre + 1, size)), 0);
        Trabajo = Trabajo.substr(0, Pos - 1) + Trabajo.substr(Cierre + size);
      }
      if (++Vueltas > 50) return;
    }
    if (base::Find(Trabajo, "\xFF\xFE") > 0) Textos(Trabajo);
  }

  void Textos(const std::string& Trabajo) {
    std::vector<std::string> slots(1);
    for (std::size_t Inicio = 1; Trabajo.size() > Inicio + 3;) {
      const std::size_t from = slots.size() > 49 ? Trabajo.size() : Inicio;
      const auto Fin = base::Find(Trabajo, "\xFF\xFE", from + 1);
      slots.push_back(Fin == 0 ? Trabajo : Trabajo.substr(Inicio - 1, Fin - Inicio));
      if (Fin > 0 && slots.back()[0] == '\0') slots.back().erase(0, 1);
      Inicio = Fin == 0 ? Trabajo.size() : Fin + 2;
    }
    messages.insert(messages.end(), slots.begin() + 1, slots.end());
  }

  void ProcesarTrama(std::string payload, int depth) {
    if (depth > 32) return;
    if (payload.starts_with("MQ")) (void)base::Expand(std::string(payload), payload, 4 << 20);
    if (!payload.starts_with(kHead)) return messages.push_back(payload);
    const auto Cierre = base::Find(payload, "]", 5);
    const short Longitud = base::ValInteger<short>(base::Mid(payload, 5)).value_or(0);
    const auto size = static_cast<std::size_t>(Cierre == 0 ? 0 : std::max<short>(Longitud, 0));
    ProcesarTrama(std::string(base::Mid(payload, Cierre + 1, size)), depth + 1);
    const auto next = size == 0 ? 0 : base::Find(payload, kHead, std::max<std::size_t>(size, 2));
    ProcesarTrama(std::string(base::Mid(payload, next)), depth);
  }
};
