#include "views/ticket.h"

#include "fixture.h"

namespace {

using platform::Label;
using platform::Window;

class Ticket : public ViewTest {
 protected:
  Ticket() { ticket.Load(); }
  ~Ticket() override { ticket.Unload(); }

  views::Ticker2 ticket{outside, store, tape};
};

std::string Colors(const Label& label) {
  return std::to_string(label.fore()) + '/' + std::to_string(label.back());
}

TEST_F(Ticket, QuotesAreWrittenAndColouredAgainstTheTextBefore) {
  struct Case {
    float previous, max, min, last, volume;
    std::string_view texts, last_colors, day_colors;
  };
  const Case cases[]{
      {10, 11, 9, 10.5F, 1234, "10.50 5.00% 11.00 9.00 1,234", "11/2", "2/15"},
      {10, 11, 9, 9.5F, 0, "9.50 -5.00% 11.00 9.00 ", "12/4", "4/15"},
      {9.5F, 11, 8, 9.5F, 1, "9.50 0.00% 11.00 8.00 1", "15/4", "2/15"},
      {10, 12, 8.5F, 12, 1, "12 20.00% 12 9 1", "11/2", "2/15"},
      {10, 12.5F, 8, 12, 1, "12.00 20.00% 12.50 8.00 1", "11/2", "2/15"},
      {0, 12, 8, 11, 1, "11 0.00% 12 8 1", "11/4", "2/15"},
      {-10, 12, 8, 9, 1, "9 0.00% 12 8 1", "12/4", "2/15"},
      {2000, 3000, 1000, 2500, 1, "2,500 25.00% 3,000 1,000 1", "11/2", "2/15"},
      // The text reads 2: it seems to rise.
      {2000, 3000, 1000, 1900, 1, "1,900 -5.00% 3,000 1,000 1", "12/2", "4/15"},
      {2000, 2, 0, 1, 1, "1 -99.95% 2  1", "15/2", "4/15"},
      {kNan, kNan, 8, kNan, kNan, " -99.95%  8.00 ", "15/2", "2/15"},
      {10, kInf, kInf, kInf, kInf, " %   ", "15/2", "2/15"},
      {kInf, kInf, 8, 0, -1500, " -100.00%  8 -1,500", "12/2", "4/15"},
  };
  for (const Case& c : cases) {
    store::Instrumento record = Share("", "", c.last);
    record.Anterior = c.previous;
    record.Maximo = c.max;
    record.Minimo = c.min;
    record.Volumen = c.volume;
    ticket.PintarCotizacion(record);
    std::string texts;
    for (const Label* label :
         {&ticket.Ultimo, &ticket.D, &ticket.Maximo, &ticket.Minimo, &ticket.Volumen}) {
      texts += (label == &ticket.Ultimo ? "" : " ") + label->caption();
    }
    EXPECT_EQ(texts, c.texts);
    EXPECT_EQ(Colors(ticket.Ultimo), c.last_colors) << c.texts;
    for (const Label* label : {&ticket.D, &ticket.Maximo, &ticket.Minimo, &ticket.Volumen}) {
      EXPECT_EQ(Colors(*label), c.day_colors) << c.texts;
    }
  }
}

struct Level {
  float volume, price;
};
using Side = std::array<Level, 5>;

store::LibroOrdenes BookOf(const Side& buy, const Side& sell) {
  store::LibroOrdenes book;
  for (std::size_t i = 0; i < buy.size(); ++i) {
    book.VolCompra[i] = buy[i].volume;
    book.PrecioCompra[i] = buy[i].price;
    book.VolVenta[i] = sell[i].volume;
    book.PrecioVenta[i] = sell[i].price;
  }
  return book;
}

class Books : public Ticket {
 protected:
  [[nodiscard]] std::string Bought() const { return Picture(ticket.vc, ticket.pc, ticket.Label5); }
  [[nodiscard]] std::string Sold() const { return Picture(ticket.vv, ticket.pv, ticket.Label6); }

  // "volume@price" of each level, then the backs of price and volume and the text colour of the
  // volume; last the total with its back. "." is the back of a book label at rest.
  static std::string Picture(const views::Ticker2::Cinco& volumes,
                             const views::Ticker2::Cinco& prices, const Label& total) {
    std::string text;
    for (std::size_t i = 0; i < volumes.size(); ++i) {
      text += volumes[i].caption() + '@' + prices[i].caption() + ' ' + Letter(prices[i].back()) +
              Letter(volumes[i].back()) + Letter(volumes[i].fore());
    }
    return text + " = " + total.caption() + ' ' + Letter(total.back());
  }
  static char Letter(base::Color color) { return "?bg?r??.???????w"[color & 15]; }
};

TEST_F(Books, AreWrittenWithTheirAverages) {
  struct Case {
    std::string_view what;
    Side buy, sell;
    std::string_view bought, sold;
  };
  const Case cases[]{
      {"plain",
       {{{100, 20}, {200, 19.5F}, {300, 19}}},
       {{{1000, 20.5F}, {1000, 21}}},
       " 100@20.00 r.w 200@19.50 r.w 300@19.00 b.w @0.00 ..w @0.00 ..w = 11,600  [19.33] g",
       " 1,000@20.50 r.w 1,000@21.00 b.w @0.00 ..w @0.00 ..w @0.00 ..w = 41,500  [20.75] g"},
      {"whole best prices, prices at the average",
       {{{100, 20}, {0, 20}, {0, 19.5F}}},
       {{{100, 21}, {0, 21}, {0, 22}}},
       " 100@20 ..w @20 ..w @20 b.w @ ..w @ ..w = 2,000  [20.00] .",
       " 100@21 ..w @21 ..w @22 b.w @ ..w @ ..w = 2,100  [21.00] ."},
      {"volumes that cancel out",
       {{{2, 20}, {-2, 10}}},
       {{{2, 21}, {-2, 22}}},
       " 2@20 r.w -2@10 r.w @ ..w @ ..w @ ..w = 20  [] g",
       " 2@21 b.w -2@22 b.w @ ..w @ ..w @ ..w = -2  [] g"},
      {"no prices but volumes",
       {{{5, 0}}},
       {{{5, 0}}},
       " 5@ ..w @ ..w @ ..w @ ..w @ ..w =   [] .",
       " 5@ ..w @ ..w @ ..w @ ..w @ ..w =   [0.00] ."},
      {"below the averages, and a negative side",
       {{{1, 10}, {1, 30}}},
       {{{-1, 12}, {-1, 50}}},
       " 1@10 b.w 1@30 r.w @ ..w @ ..w @ ..w = 40  [20.00] r",
       " -1@12 r.w -1@50 b.w @ ..w @ ..w @ ..w = -62  [31.00] r"},
      {"one price twice in a side: the last of its levels counts",
       {{{300, 20}, {100, 20}, {200, 20}}},
       {{{1, 30}, {2, 31}, {1, 31}}},
       " 300@20 ..w 100@20 ..r 200@20 ..w @ ..w @ ..w = 12,000  [20.00] r",
       " 1@30 r.w 2@31 b.w 1@31 b.w @ ..w @ ..w = 123  [30.75] r"},
  };
  for (const Case& c : cases) {
    ticket.Unload();  // and then as new
    ticket.Load();
    for (Label* total : {&ticket.Label5, &ticket.Label6}) total->set_back(base::palette::kWhite);
    const store::LibroOrdenes book = BookOf(c.buy, c.sell);
    ticket.PintarLibro(book, book);
    EXPECT_EQ(Bought(), c.bought) << c.what;
    EXPECT_EQ(Sold(), c.sold) << c.what;
  }
}

TEST_F(Books, KeepTheColourOfWhatCannotBeCompared) {
  const store::LibroOrdenes plain = BookOf({{{1, 20}, {1, 10}}}, {{{2, 30}, {1, 40}}});
  ticket.PintarLibro(plain, plain);
  const store::LibroOrdenes odd =
      BookOf({{{1, kNan}, {kNan, 10}, {kInf, 5}}}, {{{1, kInf}, {-kInf, 40}, {0, -kInf}}});
  ticket.PintarLibro(odd, odd);
  EXPECT_EQ(Bought(), " 1@ r.w @10.00 r.w @5.00 r.w @0.00 ..w @0.00 ..w =   [] g");
  EXPECT_EQ(Sold(), " 1@ r.w @40.00 b.w @ ..w @0.00 ..w @0.00 ..w =   [] g");
}

TEST_F(Books, TellWhatDiffersFromTheStoredOne) {
  const store::LibroOrdenes stored =
      BookOf({{{5, 20}, {5, 19}, {5, 18}}}, {{{5, 30}, {5, 31}, {5, 32}}});
  const store::LibroOrdenes come =
      BookOf({{{6, 20}, {4, 20}, {5, 18}, {4, 18}}}, {{{4, 31}, {5, 30}, {6, 33}}});
  ticket.PintarLibro(come, stored);
  EXPECT_EQ(Bought(), " 6@20 r.w 4@20 rgr 5@18 b.w 4@18 bgr @ ..w = 362  [19.05] g");
  EXPECT_EQ(Sold(), " 4@31 rgr 5@30 rrw 6@33 bgw @ ..w @ ..w = 472  [31.47] g");
}

class Sizing : public Ticket {
 protected:
  static constexpr int kWidth = 6000, kFrame = 420;

  Sizing() {
    ticket.Show();
    Place(shorter());
  }
  // The screen gives the window that height.
  void Place(int height, Window::State state = Window::State::normal) {
    ticket.Clean();
    ticket.Placed({600, 600, kWidth, height}, state, kWidth, height - kFrame);
  }
  // Over so many ms the screen follows the program all the time.
  void DoubleClick(int ms = 1000) {
    ticket.Label6.DoubleClick();
    for (; ms > 0; ms -= 10) {
      outside.avanzar(10);
      Place(height());
    }
  }
  void DoubleClickUnseen() {
    ticket.Label6.DoubleClick();
    outside.avanzar(1000);
  }
  [[nodiscard]] int height() const { return ticket.rect().height; }
  [[nodiscard]] int shorter() const { return ticket.Linea_Y1 + 250 + kFrame - 350; }
  [[nodiscard]] int taller() const {
    return ticket.List1.rect().top + ticket.List1.rect().height + 350 + kFrame - 350;
  }
};

TEST_F(Sizing, ADoubleClickShowsAndHidesTheTradesAtAnyScale) {
  Place(2 * shorter() - kFrame);
  const int small = shorter(), large = taller();
  ASSERT_GT(large, small + 500);
  for (int round = 0; round < 3; ++round) {
    DoubleClick(100);
    EXPECT_TRUE(height() > small && height() < large);
    EXPECT_FALSE(ticket.ReSize1.enabled());
    DoubleClick(600);
    EXPECT_EQ(height(), large);
    EXPECT_TRUE(ticket.ReSize1.enabled());
    EXPECT_EQ(ticket.Label7.caption(), round == 0 ? "Comp" : "");
    ticket.Label7.set_caption("");
    DoubleClick(600);
    EXPECT_EQ(height(), small);
    EXPECT_EQ(taller(), large);
  }
}

TEST_F(Sizing, TheScreenMayFollowLate) {
  const int large = taller();
  DoubleClick(0);
  for (int n = 0; n < 1000 && height() != large; ++n) outside.avanzar(1);
  outside.avanzar(40);
  Place(large);
  EXPECT_EQ(taller(), large);
  outside.avanzar(40);
  EXPECT_TRUE(ticket.ReSize1.enabled());
}

TEST_F(Sizing, NothingStopsTheNextDoubleClickFromDoingTheOtherThing) {
  DoubleClickUnseen();  // the window takes none of the heights
  Place(shorter());
  const int large = taller();
  DoubleClickUnseen();
  EXPECT_EQ(height(), shorter());
  DoubleClickUnseen();
  EXPECT_EQ(height(), large);
}

TEST_F(Sizing, AMaximisedWindowIsRestoredAndAMinimisedOneStaysAsItIs) {
  const int small = shorter(), large = taller();
  Place(100, Window::State::minimized);
  DoubleClickUnseen();
  EXPECT_EQ(height(), 100);
  Place(9000, Window::State::maximized);
  DoubleClick(0);
  EXPECT_EQ(ticket.state(), Window::State::normal);
  Place(small);
  DoubleClick();
  EXPECT_EQ(height(), large);
  // In the middle it stops there, and restored it is as it was.
  for (const Window::State state : {Window::State::maximized, Window::State::minimized}) {
    DoubleClick();
    EXPECT_EQ(height(), small);
    DoubleClick(100);
    const int between = height();
    Place(state == Window::State::maximized ? 9000 : between, state);
    outside.avanzar(1000);
    EXPECT_TRUE(ticket.ReSize1.enabled());
    Place(between);
    EXPECT_EQ(taller(), large);
    DoubleClick();
    EXPECT_EQ(height(), large);
  }
}

}  // namespace
