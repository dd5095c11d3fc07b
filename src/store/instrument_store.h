#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "store/code_scan.h"
#include "store/instrument.h"

namespace store {

/// All market knowledge of the terminal: instruments in slots 1 to NumInstrumentos in order of
/// first arrival, never moved or removed, and order books 1 to NumLibros. Slot 0 of both tables is
/// never used. The decoder is the only writer; everyone reads in place. Beyond its capacity a table
/// refuses.
class InstrumentStore {
 public:
  static constexpr int kMaxInstrumentos = 5000;
  static constexpr int kMaxLibros = 5000;

  InstrumentStore();
  InstrumentStore(const InstrumentStore&) = delete;
  InstrumentStore& operator=(const InstrumentStore&) = delete;

  [[nodiscard]] std::int16_t NumInstrumentos() const {
    return static_cast<std::int16_t>(instrumentos_.size() - 1);
  }
  /// `slot` 0 to NumInstrumentos; other numbers give the empty slot 0. Valid for the whole run.
  [[nodiscard]] const Instrumento& Instrumentos(int slot) const;

  /// First slot whose code equals `code`, both without the blanks at their ends; 0 when there is
  /// none.
  [[nodiscard]] std::int16_t Buscar(std::string_view code) const;
  /// The same scan, and how it passed: `nameless` is the number of slots visited (the match
  /// included) whose Nombre begins with a blank.
  struct Scan {
    std::int16_t slot = 0;
    int nameless = 0;
  };
  [[nodiscard]] Scan Recorrer(std::string_view code) const;

  /// First slot after `after` (from 0) whose code is exactly `code`, blanks included; 0 when there
  /// is none.
  [[nodiscard]] std::int16_t SiguienteDe(const store::Codigo& code, std::int16_t after) const;

  /// Puts `record` into the slot of its code, or into a new one. Gives the slot, 0 when the table
  /// is full.
  std::int16_t GuardarMaestro(const Instrumento& record);
  /// A new slot with only a code and a name; 0 when the table is full.
  std::int16_t AgregarSinDatos(const store::Codigo& code, std::string_view name);
  /// The numbers of a quote into a slot, with Medio and Saldo derived.
  struct Cotizacion {
    float Maximo = 0, Minimo = 0, Ultimo = 0, Volumen = 0;
    double Efectivo = 0;
  };
  void GuardarCotizacion(std::int16_t slot, const Cotizacion& quote);

  [[nodiscard]] int NumLibros() const { return static_cast<int>(libros_.size()) - 1; }
  /// `index` from 1 to NumLibros; other numbers give the empty entry 0.
  [[nodiscard]] const LibroOrdenes& Libros(int index) const;
  /// Replaces the book of exactly that code, blanks included, or adds one. Gives its index, 0 when
  /// the table is full.
  int GuardarLibro(const LibroOrdenes& book);

  float MercadoHora = 0;           // HHMMSS of the last clock message
  float MercadoFecha = 0;          // YYYMMDD of the last clock message
  Instrumento InstrumentoScratch;  // the record in hand of the decoder
  LibroOrdenes LibroScratch;

 private:
  std::int16_t Add(const Instrumento& record);
  void NoteName(std::int16_t slot);

  std::vector<Instrumento> instrumentos_;          // never reallocated: references stay valid
  std::vector<CodeKey> codes_;                     // by slot, in whole blocks
  mutable std::array<std::int16_t, 4096> hits_{};  // where a key was last found; 0 nowhere
  std::vector<std::int16_t> nameless_;  // slots whose Nombre begins with a blank, ascending
  std::vector<LibroOrdenes> libros_;
  std::vector<CodeKey> book_codes_;  // by index, in whole blocks
};

/// Sets Medio and Saldo from Ultimo, Volumen and Efectivo. A value too large for a float32 leaves
/// its field as it was.
void Derivar(Instrumento& record);

}  // namespace store
