#include "store/instrument_store.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace store {
namespace {

constexpr std::size_t WholeBlocks(std::size_t count) {
  return (count + kCodeBlock - 1) / kCodeBlock * kCodeBlock;
}

std::size_t HashOf(CodeKey key) {
  return static_cast<std::size_t>((key * 0x9E3779B97F4A7C15U) >> 40);
}

// Codes of books stand as they came; their keys differ wherever a byte does.
CodeKey ExactKey(const Codigo& code) {
  CodeKey key = 0;
  std::memcpy(&key, code.bytes().data(), code.bytes().size());
  return key;
}

// A number that came as infinity or NaN goes on as it is; one that becomes infinite on the way
// doesn't fit.
bool Fits(float result, double a, double b) {
  return !std::isinf(result) || !std::isfinite(a) || !std::isfinite(b);
}

}  // namespace

void Derivar(Instrumento& record) {
  record.Medio = 0;
  if (const double volume = static_cast<double>(record.Volumen); volume != 0) {
    const auto average = static_cast<float>(record.Efectivo / volume);
    if (Fits(average, record.Efectivo, volume)) record.Medio = average;
  }
  const float difference = record.Ultimo - record.Medio;
  const float balance = difference * record.Volumen;
  if (Fits(balance, difference, record.Volumen)) record.Saldo = static_cast<double>(balance);
  if (record.Efectivo == 0) {
    record.Saldo = 0;
    record.Medio = record.Ultimo;
  }
}

InstrumentStore::InstrumentStore()
    : codes_(WholeBlocks(kMaxInstrumentos + 1), kNoCode),
      libros_(1),
      book_codes_(kCodeBlock, kNoCode) {
  instrumentos_.reserve(kMaxInstrumentos + 1);
  instrumentos_.emplace_back();
}

const Instrumento& InstrumentStore::Instrumentos(int slot) const {
  const bool inside = slot > 0 && slot <= NumInstrumentos();
  return instrumentos_[inside ? static_cast<std::size_t>(slot) : 0];
}

std::int16_t InstrumentStore::Buscar(std::string_view code) const {
  const CodeKey key = PackCode(code);
  if (key == kNoCode) return 0;
  // Codes never move, so what the scan once found first is first for good.
  std::int16_t& hit = hits_[HashOf(key) % hits_.size()];
  if (codes_[static_cast<std::size_t>(hit)] == key) return hit;
  const std::span used(codes_.data(), WholeBlocks(instrumentos_.size()));
  const int found = FindCode(used, key);
  if (found <= 0) return 0;
  hit = static_cast<std::int16_t>(found);
  return hit;
}

std::int16_t InstrumentStore::SiguienteDe(const Codigo& code, std::int16_t after) const {
  const CodeKey key = PackCode(code.bytes());
  const std::size_t end = instrumentos_.size();
  for (std::size_t slot = static_cast<std::size_t>(std::max<int>(after, 0)) + 1; slot < end;
       ++slot) {
    if (slot % kCodeBlock == 0) {
      const int found = FindCode(std::span(codes_).subspan(slot, WholeBlocks(end) - slot), key);
      if (found < 0) return 0;
      slot += static_cast<std::size_t>(found);
    }
    // Codes of the same key may differ in where their blanks stand.
    if (codes_[slot] == key && instrumentos_[slot].Codigo == code) {
      return static_cast<std::int16_t>(slot);
    }
  }
  return 0;
}

InstrumentStore::Scan InstrumentStore::Recorrer(std::string_view code) const {
  const std::int16_t slot = Buscar(code);
  if (nameless_.empty()) return {slot, 0};
  const auto end = slot == 0 ? nameless_.end() : std::ranges::upper_bound(nameless_, slot);
  return {slot, static_cast<int>(end - nameless_.begin())};
}

std::int16_t InstrumentStore::GuardarMaestro(const Instrumento& record) {
  const std::int16_t slot = Buscar(record.Codigo.bytes());
  if (slot == 0) return Add(record);
  instrumentos_[static_cast<std::size_t>(slot)] = record;
  NoteName(slot);
  return slot;
}

std::int16_t InstrumentStore::AgregarSinDatos(const store::Codigo& code, std::string_view name) {
  Instrumento record;
  record.Codigo = code;
  record.Nombre.assign(name);
  return Add(record);
}

void InstrumentStore::GuardarCotizacion(std::int16_t slot, const Cotizacion& quote) {
  if (slot < 1 || slot > NumInstrumentos()) return;
  Instrumento& record = instrumentos_[static_cast<std::size_t>(slot)];
  record.Ultimo = quote.Ultimo;
  record.Fecha = MercadoFecha;
  record.Hora = MercadoHora;
  record.Maximo = quote.Maximo;
  record.Minimo = quote.Minimo;
  record.Volumen = quote.Volumen;
  record.Efectivo = quote.Efectivo;
  Derivar(record);
}

const LibroOrdenes& InstrumentStore::Libros(int index) const {
  return libros_[index > 0 && index <= NumLibros() ? static_cast<std::size_t>(index) : 0];
}

int InstrumentStore::GuardarLibro(const LibroOrdenes& book) {
  const CodeKey key = ExactKey(book.Codigo);
  int index = FindCode(book_codes_, key);
  if (index < 0) {
    if (NumLibros() >= kMaxLibros) return 0;
    libros_.emplace_back();
    index = NumLibros();
    book_codes_.resize(WholeBlocks(libros_.size()), kNoCode);
    book_codes_[static_cast<std::size_t>(index)] = key;
  }
  libros_[static_cast<std::size_t>(index)] = book;
  return index;
}

std::int16_t InstrumentStore::Add(const Instrumento& record) {
  if (NumInstrumentos() >= kMaxInstrumentos) return 0;
  codes_[instrumentos_.size()] = PackCode(record.Codigo.bytes());
  instrumentos_.push_back(record);
  NoteName(NumInstrumentos());
  return NumInstrumentos();
}

void InstrumentStore::NoteName(std::int16_t slot) {
  const auto at = std::ranges::lower_bound(nameless_, slot);
  const bool noted = at != nameless_.end() && *at == slot;
  const bool nameless = instrumentos_[static_cast<std::size_t>(slot)].Nombre[0] == ' ';
  if (nameless && !noted) nameless_.insert(at, slot);
  if (!nameless && noted) nameless_.erase(at);
}

}  // namespace store
