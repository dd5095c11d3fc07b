#include <memory>
#include <utility>

#include "fixture.h"
#include "views/divisas.h"
#include "views/futuros.h"
#include "views/indices.h"
#include "views/opciones.h"

namespace {

using support::I16;
using support::Initials;
using support::RowText;

enum View : std::size_t { kIndices, kEstadisticas, kFuturos, kDivisas, kOpciones };

struct Traits {
  std::string code;  // how its codes begin
  int window;        // of the settings
  bool remembers;    // the rows of its instruments
  bool rests;        // after a flash
  char added;        // mark of a new row's cells
};
const Traits kViews[]{{"I AA", 2, true, true, '+'},
                      {"STAA", 2, true, true, '+'},
                      {"MFAA", 3, true, true, '+'},
                      {"DVAA", 4, false, false, '+'},
                      {".CAA", 3, false, false, '.'}};

/// All of them, joined to the pipeline, with other colours for each window `n`.
class MarketViews : public ViewTest {
 protected:
  MarketViews() {
    std::string colors;
    for (int n = 1; n <= 4; ++n) {
      views::ConfigVentana& window = config[static_cast<std::size_t>(n)];
      window.VentanaSube = 100 + n, window.VentanaBaja = 200 + n, window.VentanaFondo = 60 + n;
      views::ColorRecord record;
      record.ColorSubeTexto = 10 + n, record.ColorSubeFondo = 20 + n;
      record.ColorBajaTexto = 30 + n, record.ColorBajaFondo = 40 + n;
      record.ColorNormalTexto = 50 + n;
      colors += record.Encode();
    }
    temp.Write("COLORES.SET", colors);
    Open();
  }
  ~MarketViews() override { Close(); }

  template <typename V, typename Paint>
  void Add(store::UpdatePipeline::Step& step, Paint paint) {
    auto view =
        std::make_unique<V>(views::GridContext{outside, dir, store, pipeline, config, FaseCierre});
    step = [v = view.get(), paint](std::int16_t slot) { (v->*paint)(slot); };
    view->graficos = {.Abrir = [this](std::int16_t slot) { charts += std::to_string(slot); },
                      .Pedir = [this] { return charts += "?", charts.size() < 2; }};
    view->Load();
    all.push_back(std::move(view));
  }
  void Open() {
    store::UpdatePipeline::Views& steps = pipeline.views;
    Add<views::Indices>(steps.Indices, &views::Indices::negotii);
    Add<views::Estadisticas>(steps.Estadisticas, &views::Estadisticas::negotii);
    Add<views::Futuros>(steps.Futuros, &views::Futuros::negotio);
    Add<views::Divisas>(steps.Divisas, &views::Divisas::negotiv);
    Add<views::Opciones>(steps.Opciones, &views::Opciones::negotiop);
  }
  void Close() {
    FaseCierre = 1;
    for (const auto& view : all) EXPECT_TRUE(view->Unload());
    FaseCierre = 0;
    all.clear();
  }
  void Reopen() {
    Close();
    Open();
  }
  std::int16_t Load(std::string_view code, std::string_view name, float last = 10) {
    store::Instrumento record = Share(code, name, last);
    record.Anterior = 10;
    const std::int16_t slot = store.GuardarMaestro(record);
    pipeline.RefrescarInstrumentoCarga(slot);
    return slot;
  }
  void Quote(std::int16_t slot, float last) {
    store.GuardarCotizacion(slot, {.Ultimo = last});
    pipeline.RefrescarInstrumento(slot);
  }
  /// Rows that each view gets by `step`.
  template <typename Step>
  [[nodiscard]] std::string Added(const Step& step) const {
    std::vector<int> before;
    for (const auto& view : all) before.push_back(view->G.rows());
    step();
    std::string added;
    for (std::size_t v = 0; v < all.size(); ++v) {
      added += std::to_string(all[v]->G.rows() - before[v]);
    }
    return added;
  }
  /// Row 1: "+" risen, "-" fallen, ">" and "<" the row's colours at rest, "." without colours.
  [[nodiscard]] std::string Marks(View v) const {
    const platform::Grid& grid = all[v]->G;
    const int n = kViews[v].window;
    return support::Marks(grid, 1,
                          {{{10 + n, 20 + n}, '+'},
                           {{30 + n, 40 + n}, '-'},
                           {{50 + n, 100 + n}, '>'},
                           {{50 + n, 200 + n}, '<'},
                           {{grid.fore_color(), grid.back_color()}, '.'}});
  }

  views::ConfigVentanas config;
  std::vector<std::unique_ptr<views::GridView>> all;
  std::string charts;  // slots of those opened; "?" the user was asked, and only at first answered
};

TEST_F(MarketViews, ShowTheirColumnsByTheirFormats) {
  struct Case {
    View view;
    std::string_view cam, flags;
    std::string headings, row;
  };
  const std::string nine = "Anterior|Apertura|%D|Ultimo|Maximo|Minimo|Volumen|Efectivo|Ponderado|";
  const std::string nine_cells =
      "1,234.50|9.00|-99.18|10.06|11.13|0.00|1,234,567|98,765,432.10|80.00|-86,342,608.00|09:30:"
      "05|";
  const Case cases[]{
      {kIndices, "IN.CAM", "", nine + "Saldos|Hora|Pesetas|Hora", nine_cells + "1,674|09:30:05"},
      {kEstadisticas, "IN.CAM", "   1    1 1", "Ultimo|Ponderado|Hora|Hora",
       "10.06|80.00|09:30:05|09:30:05"},
      {kFuturos, "FU.CAM", "", nine + "Saldos|Hora|Fecha", nine_cells + "2000/04/26"},
      {kFuturos, "FU.CAM", "         1 1", "Saldos|Fecha|Hora",
       "-86,342,608.00|2000/04/26|09:30:05"},
      {kDivisas, "DV.CAM", "1", "Anterior|Apertura|%D|Ultimo|Maximo|Minimo|Hora|Fecha",
       "1,234.500|9.000|-99.18|10.063|11.125|0.000|09:30:05|2000/04/26"},
      {kOpciones, "FU.CAM", "1", nine + " Saldos |Hora|Fecha", nine_cells + "2000/04/26"},
  };
  for (const Case& c : cases) {
    temp.Write(c.cam, c.flags);
    Reopen();
    store::Instrumento record = Share(kViews[c.view].code, "NOMBRE", 10.0625F);
    record.Anterior = 1234.5F, record.Apertura = 9, record.Maximo = 11.125F;
    record.Volumen = 1234567, record.Efectivo = 98765432.1;
    record.Hora = 93005, record.Fecha = 1000426;
    store::Derivar(record);
    pipeline.RefrescarInstrumentoCarga(store.GuardarMaestro(record));
    EXPECT_EQ(RowText(all[c.view]->G, 0), "Instrumento|" + c.headings);
    EXPECT_EQ(RowText(all[c.view]->G, 1), "NOMBRE              |" + c.row);
  }
}

TEST_F(MarketViews, KeepTheirLayoutByPlaceOfTheColumns) {
  const std::string_view files[]{"IN.POS", "ESTA.POS", "FU.POS", "DV.POS", "FU.POS"};
  for (std::size_t v = 0; v < all.size(); ++v) {
    platform::Grid& grid = all[v]->G;
    all[v]->set_rect({-20, 30, 5000, 4000});
    std::string expected = I16(0);
    for (std::int16_t width = 100; width < 100 * grid.cols(); width += std::int16_t{100}) {
      grid.set_width(width / 100, width);
      expected += I16(width);
    }
    grid.on_after_user_resize();
    EXPECT_EQ(temp.Read(files[v]), expected + I16(4000) + I16(5000) + I16(-20) + I16(30));
  }
  // Six columns where the options have thirteen, and back.
  temp.Write("FU.CAM", "1111");
  Reopen();
  EXPECT_TRUE(all[kDivisas]->rect().left == -20 && all[kDivisas]->G.width(8) == 800);
  EXPECT_EQ(all[kFuturos]->G.width(5), 500);
  EXPECT_EQ(all[kFuturos]->rect().width, 17670) << "widths that make no place of a window";
  all[kFuturos]->set_rect({-20, 30, 6000, 4500});
  all[kFuturos]->Command4_Click();
  Reopen();
  EXPECT_EQ(all[kFuturos]->rect().width, 6000);
  EXPECT_EQ(all[kOpciones]->rect().width, 5000) << "what lies past the shorter layout stays";
  EXPECT_EQ(all[kOpciones]->G.width(6), 4500);
  EXPECT_EQ(all[kOpciones]->G.width(8), 1560) << "-20 is no width";
}

TEST_F(MarketViews, ReceiveTheInstrumentsOfTheirClass) {
  struct Case {
    std::string code, name;
    std::string_view loaded, quoted;
  };
  const Case cases[]{
      {"I AAA", "IBEX", "10000", "10000"},  {"I BBB", "ST IBEX", "01000", "01000"},
      {"STAAA", "SALDO", "01000", "01000"}, {"XXXXX", "ST X", "01000", "01000"},
      {"MFAAA", "IBEX", "00100", "00100"},  {"PDAAA", "BONO", "00100", "00100"},
      {"CMAAA", "CM", "00100", "00000"},    {"DVAAA", "DOLAR", "00010", "00010"},
      {".CAAA", "TEF", "00001", "00001"},   {".PAAA", "FIE", "00001", "00001"},
      {"I CCC", " NADA", "00000", "00000"}, {"TEF", "TEF", "00000", "00000"},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(Added([&] { Load(c.code, c.name); }), c.loaded) << c.code << c.name;
    const std::int16_t other = Know(c.code + "2", c.name + "2");
    EXPECT_EQ(Added([&] { Quote(other, 11); }), c.quoted) << c.code << c.name;
  }
  Quote(store.Buscar("CMAAA"), 12);
  EXPECT_EQ(all[kFuturos]->G.text(5, 4), "10.00") << "a quote of such a future goes nowhere";
  Know("DVDDD", " NAMELESS");
  for (int twice = 0; twice < 2; ++twice) {
    const auto repaint = [&] {
      for (const auto& view : all) view->ColoresOn();
    };
    EXPECT_EQ(Added(repaint), twice == 0 ? "42110" : "00000") << "those of the other view, too";
  }
}

TEST_F(MarketViews, ARowThatNobodyRepaintsKeepsItsTextsUnderTheirHeadings) {
  Load("XXAAA", "ST POR NOMBRE", 12);  // coded as neither index nor statistic
  platform::Grid& grid = all[kEstadisticas]->G;
  grid.set_width(13, 444);  // the second "Hora"
  temp.Write("IN.CAM", "001100000010");
  all[kEstadisticas]->ColoresOn();
  EXPECT_EQ(RowText(grid, 0), "Instrumento|%D|Ultimo|Hora|Hora");
  EXPECT_EQ(RowText(grid, 1), "ST POR NOMBRE       |20.00|12.00|00:00:00|00:00:00");
  EXPECT_EQ(grid.width(4), 444);
  temp.Write("IN.CAM", "1001");
  all[kEstadisticas]->ColoresOn();
  EXPECT_EQ(RowText(grid, 1), "ST POR NOMBRE       ||12.00|00:00:00");
}

TEST_F(MarketViews, FindTheirRowsAsTheyAreOrAsTheyWere) {
  for (std::size_t v = 0; v < all.size(); ++v) {
    const auto& [code, window, remembers, rests, mark] = kViews[v];
    platform::Grid& grid = all[v]->G;
    const std::int16_t a = Load(code + "1", "A" + code, 3);
    Load(code + "2", "B" + code, 2);
    Load(code + "3", "C" + code, 1);
    Quote(a, 3);
    const auto sort = [&] { support::Mouse(grid, 0, 4, grid.on_double_click); };
    sort();
    EXPECT_EQ(Initials(grid), "CBA") << code;
    Quote(a, 5);
    EXPECT_EQ(Initials(grid), remembers ? "ABA" : "CBA") << code;
    sort();
    Load(code + "4", "D" + code);
    Quote(a, 6);
    EXPECT_EQ(Initials(grid), remembers ? "BAAD" : "CBAD") << "found anew after a new row";
    EXPECT_EQ(grid.text(remembers ? 2 : 3, 4).substr(0, 4), "6.00");
  }
  // A name that only differs by a blank in front is another one of the options alone.
  const std::int16_t rate = Know("DVZZ2", " 1"), option = Know(".CZZ2", " 1");
  Load("DVZZZ", "1"), pipeline.views.Divisas(rate);
  Load(".CZZZ", "1"), pipeline.views.Opciones(option), pipeline.views.Opciones(option);
  EXPECT_EQ(Initials(all[kDivisas]->G) + Initials(all[kOpciones]->G), "CBAD CBAD1 ");
  const auto nobody = [this] {
    for (const auto* step : {&pipeline.views.Indices, &pipeline.views.Divisas}) (*step)(-1);
    pipeline.views.Opciones(99);
  };
  EXPECT_EQ(Added(nobody), "00000");
  Know("MFZZZ", "0");
  Reopen();
  std::string rows;
  for (const auto& view : all) rows += Initials(view->G) + "|";
  EXPECT_EQ(rows, "||0ABCD|ABCD 1|ABCD 1|") << "of what is known when they load";
}

TEST_F(MarketViews, MarkWhatHasChanged) {
  for (const View v : {kIndices, kEstadisticas, kFuturos, kDivisas, kOpciones}) {
    const auto& [code, window, remembers, rests, added] = kViews[v];
    const auto marks = [&] {
      const std::string cells = Marks(v);
      return std::string{cells[0], cells[4], cells[5], cells.back()};  // name, last, high, end
    };
    const std::int16_t slot = Load(code, "NOMBRE", 20);
    EXPECT_EQ(marks(), std::string({'>', added, added, added})) << code;
    Quote(slot, 30);
    EXPECT_EQ(marks(), std::string({'>', '+', added, '+'})) << code;
    outside.avanzar(60000);
    EXPECT_EQ(marks(), rests ? ">>>>" : std::string({'>', '+', added, '+'})) << code;
    Quote(slot, 1);
    outside.avanzar(2000);
    EXPECT_EQ(marks().substr(0, 2), "<-") << "not before the second tick";
    outside.avanzar(2000);
    EXPECT_EQ(marks().substr(0, 2), rests ? "<<" : "<-") << code;
  }
  const std::int16_t rate = store.Buscar("DVAA");
  Quote(rate, 1.23441F), Quote(rate, 1.23441F);
  const std::string seen = RowText(all[kDivisas]->G, 1) + Marks(kDivisas);
  Quote(rate, 1.23442F);
  EXPECT_EQ(RowText(all[kDivisas]->G, 1) + Marks(kDivisas), seen) << "the fourth decimal";
  Reopen();
  outside.avanzar(60000);
  EXPECT_EQ(all[kFuturos]->G.back(1, 3), 63) << "a row that has only its name stays as it is";
}

TEST_F(MarketViews, HaveTheCommandsOfTheirBar) {
  views::GridView& view = *all[kIndices];
  EXPECT_TRUE(view.Command1.visible() && !all[kFuturos]->Command1.visible());
  Load("I AAA", "IBEX"), Know("I BBB", "IBEX");
  view.Show();
  const auto opens = [&] {
    outside.desktop().focus = nullptr;
    view.Command1.Click();
    return outside.desktop().focus == nullptr;  // what has opened keeps the front
  };
  EXPECT_TRUE(opens());
  EXPECT_FALSE(opens());
  support::Mouse(view.G, 1, 2, view.G.on_click);
  EXPECT_TRUE(opens());
  view.G.set_text(1, 0, "NOBODY");
  EXPECT_FALSE(opens());
  EXPECT_EQ(charts, "??1");
  view.Command2.Click();
  EXPECT_TRUE(outside.printer().jobs.empty());

  const auto tops = [&] { return std::pair(view.Picture1.rect().top, view.G.rect().top); };
  const int height = view.Picture1.rect().height;
  EXPECT_EQ(tops(), std::pair(1, height + 1));
  outside.avanzar(13000);
  EXPECT_EQ(tops(), std::pair(1 - height, 1));
  for (const View v : {kIndices, kFuturos}) {
    support::Mouse(all[v]->G, 0, 0, all[v]->G.on_mouse_move);
  }
  outside.avanzar(500);
  EXPECT_EQ(tops(), std::pair(1, height + 1));
  EXPECT_EQ(all[kFuturos]->G.rect().top, 1);
}

}  // namespace
