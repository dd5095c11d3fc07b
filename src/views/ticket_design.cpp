#include "views/ticket.h"

namespace views {
namespace {

constexpr int kPixel = 15;

// In pixels. The line stands as far below the short form as the window stops short of it when it
// shrinks; the tall form ends with the list.
constexpr int kInnerWidth = 432, kShortHeight = 310;
constexpr int kFrameWidth = 6, kFrameHeight = 37;
constexpr int kLinePastShort = 100;  // twips
constexpr int kMargin = 10, kHeight = 24, kGap = 2;
constexpr int kVolume = 104, kPrice = 96, kSide = kVolume + kGap + kPrice;
constexpr int kSelling = kInnerWidth - kMargin - kSide;
constexpr int kBookTop = 116, kLevel = 26, kBookEnd = kBookTop + 5 * kLevel;

// The trades stand on the ground of the program.
constexpr base::Color kListGround = 0x221A15;

platform::Rect Pixels(int left, int top, int width, int height) {
  return {left * kPixel, top * kPixel, width * kPixel, height * kPixel};
}

void PlaceQuote(Ticker2& ticket) {
  constexpr int kTop = 10, kRow = 28, kFigures = 302, kFigureWidth = 120;
  ticket.Ultimo.set_rect(Pixels(kMargin, kTop, kSide, 2 * kRow - 4));
  ticket.D.set_rect(Pixels(kMargin, kTop + 2 * kRow, kSide, kHeight));
  ticket.Maximo.set_rect(Pixels(kFigures, kTop, kFigureWidth, kHeight));
  ticket.Minimo.set_rect(Pixels(kFigures, kTop + kRow, kFigureWidth, kHeight));
  ticket.Volumen.set_rect(Pixels(kFigures, kTop + 2 * kRow, kFigureWidth, kHeight));
}

// Buying and selling side mirror each other, prices inside.
void PlaceBook(Ticker2& ticket) {
  for (std::size_t i = 0; i < ticket.vc.size(); ++i) {
    const int top = kBookTop + static_cast<int>(i) * kLevel;
    ticket.vc[i].set_rect(Pixels(kMargin, top, kVolume, kHeight));
    ticket.pc[i].set_rect(Pixels(kMargin + kVolume + kGap, top, kPrice, kHeight));
    ticket.pv[i].set_rect(Pixels(kSelling, top, kPrice, kHeight));
    ticket.vv[i].set_rect(Pixels(kSelling + kPrice + kGap, top, kVolume, kHeight));
  }
  ticket.Label5.set_rect(Pixels(kMargin, kBookEnd + 4, kSide, kLevel));
  ticket.Label6.set_rect(Pixels(kSelling, kBookEnd + 4, kSide, kLevel));
  constexpr int kUnit = 54, kHeading = 16;
  ticket.Label7.set_rect(Pixels(kMargin + kSide - kUnit, kBookTop - kHeading - 2, kUnit, kHeading));
  ticket.Label7.set_caption("Compra");
}

void PlaceTrades(Ticker2& ticket) {
  ticket.Linea_Y1 = kShortHeight * kPixel + kLinePastShort;
  platform::Grid& list = ticket.List1;
  list.set_rect(Pixels(0, kShortHeight + 12, kInnerWidth, 206));
  list.set_cols(6);
  list.set_width(5, 50 * kPixel);
  list.set_fore_color(base::palette::kBrightWhite);
  list.set_back_color(kListGround);
}

}  // namespace

void DesignTicket(Ticker2& ticket) {
  PlaceQuote(ticket);
  PlaceBook(ticket);
  PlaceTrades(ticket);
  ticket.ReSize1.set_least((kInnerWidth - kMargin) * kPixel, (kShortHeight - kMargin) * kPixel);
  ticket.set_rect(Pixels(40, 40, kInnerWidth + kFrameWidth, kShortHeight + kFrameHeight));
}

}  // namespace views
