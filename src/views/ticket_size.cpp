#include <cmath>

#include "views/ticket.h"

namespace views {
namespace {

// Outer heights, reckoned for a frame of so many twips.
constexpr int kFrame = 350;
constexpr int kBelowList = 350;
constexpr int kBelowLine = 250;

constexpr int kPixel = 15;

// What the frame of the window adds to the one reckoned for; 0 as long as nobody knows.
int OddFrame(const platform::Window& window) {
  constexpr int kMost = 2000;
  const int frame = window.rect().height - window.inner_height();
  const bool known = window.inner_height() > 0 && frame >= 0 && frame <= kMost;
  return known ? frame - kFrame : 0;
}

}  // namespace

void Ticker2::OnResize() {
  if (state() == State::minimized) return;
  if (state() == State::maximized && slide_.running()) {
    slide_.Stop();
    ReSize1.set_enabled(true);
  }
  ReSize1.Sized(inner_width(), inner_height());
  Linea_Y1 = static_cast<int>(std::lround(design_linea_y1_ * ReSize1.scale_y()));
}

void Ticker2::Label5_Click() { set_rect(rect()); }

void Ticker2::Label6_DblClick() {
  if (slide_.running() || state() == State::minimized) return;
  if (state() == State::normal) return ChangeHeight();
  set_state(State::normal);
  slide_.Await([this] { ChangeHeight(); });
}

void Ticker2::ChangeHeight() {
  ReSize1.set_enabled(false);
  const bool grows = !ListInSight();
  if (grows && ListaLista == 0) {
    ListaLista = 1;
    inicio();
  }
  const int end = grows ? ListBottom() + kBelowList : Linea_Y1 + kBelowLine;
  slide_.To(end + OddFrame(*this), [this, grows] {
    grown_to_ = grows && state() == State::normal ? inner_height() : -1;
    ReSize1.set_enabled(true);
  });
}

int Ticker2::ListBottom() const { return List1.rect().top + List1.rect().height; }

// Also where there was no room to grow far enough: the next double click is to shrink again.
bool Ticker2::ListInSight() const {
  return ListBottom() <= inner_height() + kPixel || inner_height() == grown_to_;
}

}  // namespace views
