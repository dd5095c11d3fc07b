#pragma once

#include <array>
#include <functional>
#include <string>

#include "base/masks.h"
#include "platform/controls.h"
#include "platform/grid.h"
#include "platform/window.h"
#include "store/instrument_store.h"
#include "store/trade.h"
#include "views/height_slide.h"
#include "views/resizer.h"
#include "views/tape.h"

namespace views {

/// A quote ticket: price labels, the five best levels of both sides of the book, and below them,
/// once it has been enlarged, the trades of the day. Bound to its instrument by its tag, the code
/// with its blanks. Any number may be open, on one instrument or many. Books and trades may hold
/// any numbers.
class Ticker2 : public platform::Window {
 public:
  using Cinco = std::array<platform::Label, 5>;  // best level first

  /// All outlive it.
  Ticker2(platform::Platform& platform, const store::InstrumentStore& store, const Form2& tape);

  platform::Label Ultimo, D, Maximo, Minimo, Volumen;
  Cinco vc, pc, vv, pv;    // volume and price, buying and selling side
  platform::Label Label5;  // totals of the buying side
  platform::Label Label6;  // totals of the selling side; a double click shows or hides the trades
  platform::Label Label7;  // heading; its width is the unit of the list's columns
  platform::Grid List1;    // trades of the day, in order of their time
  Resizer ReSize1;
  int ListaLista = 0;  // 1 once `List1` has been filled from the tape
  int Linea_Y1 = 0;    // where the line between book and list stands, in twips

  /// It is being unloaded. May drop it from lists, but not end it: that is for the event loop.
  std::function<void()> al_descargar;

  /// Fills `List1` from the tape.
  void inicio();
  void Label5_Click();
  /// Grows until the whole list is in sight, or shrinks until it is out of sight, in small steps; a
  /// second one meanwhile is dropped. A maximised window is restored first.
  void Label6_DblClick();

  void PintarCotizacion(const store::Instrumento& record);
  /// `scratch` is the book that has come, `stored` that of the table.
  void PintarLibro(const store::LibroOrdenes& scratch, const store::LibroOrdenes& stored);
  void AgregarNegocio(const store::Negocio& trade);

 protected:
  void OnLoad() override;
  void OnUnload() override;
  void OnResize() override;

 private:
  void NameLabels();
  void JoinResizer();
  void ChangeHeight();
  [[nodiscard]] int ListBottom() const;
  [[nodiscard]] bool ListInSight() const;

  void CopiarDeCinta();
  void AgregarFila(char lado);
  void Ordenar();
  void Ordenadas();

  const store::InstrumentStore& store_;
  const Form2& tape_;
  platform::RowText fila_;  // of `List1`, while it is being built
  int sueltas_desde_ = 0;   // first row of `List1` that may be out of order; 0 is none
  float ultima_hora_ = 0;   // of its last row
  HeightSlide slide_;
  int design_linea_y1_ = 0;
  int grown_to_ = -1;  // inner height after the last change, where that was a whole growth
  std::string text_;   // of a label, while it is being made
};

/// How two prices are written, and with them those that stand beside them: without decimals only if
/// both are whole.
[[nodiscard]] const base::Mask& PriceMask(float one, float other);

/// Places and sizes of a ticket's window and controls.
void DesignTicket(Ticker2& ticket);

}  // namespace views
