#include "views/grid_view.h"

#include "base/val.h"

// The window: its design, commands, mouse and files. Rows are in grid_view_rows.cpp.
namespace views {
namespace {

constexpr int kTicksToHide = 5;

constexpr int kBarHeight = 600;
constexpr int kGridLeft = -12;
constexpr platform::Rect kFirstButton{120, 90, 1320, 420};
constexpr int kButtonStep = 1440;
constexpr platform::Rect kName{5940, 165, 4500, 270};
constexpr std::string_view kNameHeading = "Instrumento";

}  // namespace

GridView::GridView(const GridContext& context, const GridDesign& design)
    : Window(context.platform),
      Timer1(context.platform, design.timer_ms, false),
      context_(context),
      design_(design),
      bar_(context.platform, Picture1, G, design.bar_top, [this] { Form_Resize(); }) {
  Design();
  Wire();
}

void GridView::Design() {
  set_caption(design_.caption);
  set_rect(design_.rect);
  G.set_rows(1);
  const int bar_height = design_.bar ? kBarHeight : 0;
  G.set_rect({kGridLeft, bar_height + 1, design_.rect.width, design_.rect.height});
  Picture1.set_rect({0, design_.bar_top, design_.rect.width, bar_height});
  platform::Rect place = kFirstButton;
  const auto put = [&](platform::Button& button, std::string_view caption) {
    button.set_caption(caption);
    button.set_rect(place);
    place.left += kButtonStep;
  };
  put(Command4, "Grabar");
  put(Command3, "Copiar");
  put(Command2, "Imprimir");
  put(Command1, "Graficos");
  Command5.set_visible(false);
  Label1.set_rect(kName);
  if (design_.bar) return;
  for (platform::Control* control : std::initializer_list<platform::Control*>{
           &Picture1, &Command1, &Command2, &Command3, &Command4, &Label1}) {
    control->set_visible(false);
  }
}

void GridView::Wire() {
  Command1.on_click = [this] { Command1_Click(); };
  Command2.on_click = [this] { Command2_Click(); };
  Command3.on_click = [this] { Command3_Click(); };
  Command4.on_click = [this] { Command4_Click(); };
  Timer1.on_tick = [this] { Timer1_Timer(); };
  G.on_click = [this] { G_Click(); };
  G.on_double_click = [this] { G_DblClick(); };
  G.on_mouse_move = [this] { G_MouseMove(); };
  G.on_before_move_column = [this](int from, int to) { return G_BeforeMoveColumn(from, to); };
  G.on_after_user_resize = [this] { G_AfterUserResize(); };
}

void GridView::OnLoad() {
  ApplyLook(config(), G);
  ShowCommands();
  BuildColumns(design_.flagged_width);
  AddRows();
  LoadLayout();
  ReadColors(design_.first_colors);
  Timer1.set_enabled(true);
}

void GridView::ShowCommands() {
  Command1.set_visible(design_.bar && graficos.Abrir && graficos.Pedir);
}

bool GridView::OnQueryUnload() {
  if (context_.FaseCierre != 0) return true;
  Hide();
  return false;
}

void GridView::OnUnload() {
  Timer1.set_enabled(false);
  bar_.Cancel();
}

void GridView::ReadColors(bool write_first) {
  Colores = ReadColorRecord(context_.dir, design_.registro, write_first);
}

void GridView::BuildColumns(int flagged_width) {
  const ColumnTable& table = design_.columns;
  const bool by_file = !design_.cam.empty() && ReadColFlags(context_.dir, design_.cam, ColFlags);
  const std::vector<std::string_view> headings =
      by_file ? table.Flagged(ColFlags) : table.Designed();
  const std::size_t equal_widths =
      by_file && flagged_width > 0 ? headings.size() - table.closing.size() : 0;

  if (G.text(0, 0) != kNameHeading) {
    G.set_cols(1);
    G.set_text(0, 0, kNameHeading);
    G.set_width(0, table.name_width);
  }
  for (std::size_t k = 0; k < headings.size(); ++k) {
    const int c = static_cast<int>(k) + 1;
    BringColumn(c, headings[k], table.Of(headings[k]).width);
    if (k < equal_widths) G.set_width(c, flagged_width);
  }
  G.set_cols(static_cast<int>(headings.size()) + 1);
}

void GridView::BringColumn(int c, std::string_view heading, int width) {
  int from = c;
  while (from < G.cols() && G.text(0, from) != heading) ++from;
  if (from == G.cols()) {
    G.set_cols(from + 1);
    G.set_text(0, from, heading);
    G.set_width(from, width);
    G.set_align(from, platform::Align::right);
  }
  G.MoveColumn(from, c);
}

void GridView::LoadLayout() { ReadLayout(context_.dir, design_.pos, design_.layout, *this, G); }

void GridView::Form_Resize() {
  platform::Rect bar = Picture1.rect();
  bar.width = inner_width();
  Picture1.set_rect(bar);
  platform::Rect grid = G.rect();
  if (inner_height() - grid.top - 350 > 0) grid.height = inner_height() - grid.top - 300;
  if (inner_width() > 75) grid.width = inner_width() - 75;
  G.set_rect(grid);
}

template <typename Visit>
void GridView::ForEachNamed(std::string_view name, const Visit& visit) {
  for (int slot = 1; slot <= context_.store.NumInstrumentos(); ++slot) {
    const store::Instrumento& record = context_.store.Instrumentos(slot);
    name_.clear();
    AppendName(name_, record.Nombre);
    if (name_ == name && !visit(static_cast<std::int16_t>(slot), record)) return;
  }
}

void GridView::Command1_Click() {
  // A chart that has opened keeps the front.
  if (!OpenChart()) SetFocus(Command5);
}

bool GridView::OpenChart() {
  if (!graficos.Abrir || !graficos.Pedir) return false;
  if (FilaActual < 1) return graficos.Pedir();
  std::int16_t named = 0;
  ForEachNamed(G.text(FilaActual, 0), [&](std::int16_t slot, const store::Instrumento&) {
    named = slot;
    return false;
  });
  if (named > 0) graficos.Abrir(named);
  return named > 0;
}

void GridView::Command2_Click() {
  platform().printer().Print(G, caption());
  SetFocus(Command5);
}

void GridView::Command3_Click() {
  platform().clipboard().Clear();
  platform().clipboard().SetText(G.AllText());
  SetFocus(Command5);
}

void GridView::SaveLayout() {
  WriteLayout(context_.dir, design_.pos, design_.layout, *this, G);
  SetFocus(Command5);
}

void GridView::Timer1_Timer() {
  if (G.rows() < 2) return;
  ClearFlashes();
  HoverTicks = base::CheckedIncrement(HoverTicks);
  if (design_.bar && HoverTicks > kTicksToHide && bar_.shown()) bar_.SlideOut();
}

void GridView::SlideBarIn() {
  if (design_.bar && bar_.hidden()) bar_.SlideIn();
}

void GridView::OnShow() {
  HoverTicks = 0;
  SlideBarIn();
}

void GridView::G_Click() {
  if (G.mouse_row < 1) return;
  FilaActual = base::ToInteger<std::int16_t>(G.mouse_row).value_or(FilaActual);
  Label1.set_caption(G.text(G.mouse_row, 0));
}

void GridView::G_DblClick() {
  if (G.mouse_row == 0 && G.rows() > 1) SortRows(G.mouse_col);
  if (G.mouse_row > 0 && G.mouse_col == 0) OpenTickets(std::string(G.text(G.mouse_row, 0)));
}

void GridView::G_MouseMove() {
  HoverTicks = 0;
  if (G.mouse_row == 0) SlideBarIn();
  if (G.mouse_row > 0 && G.mouse_row < G.rows()) ShowCode(G.text(G.mouse_row, 0));
}

void GridView::ShowCode(std::string_view name) {
  ForEachNamed(name, [this](std::int16_t, const store::Instrumento& record) {
    G.set_tool_tip(record.Codigo.utf8());
    return false;
  });
}

void GridView::OpenTickets(const std::string& name) {
  // Names are the server's: one double click isn't to open thousands of windows.
  constexpr int kMost = 20;
  int opened = 0;
  ForEachNamed(name, [&](std::int16_t slot, const store::Instrumento& record) {
    const bool open = platform().windows.WithTag(record.Codigo.utf8()) != nullptr;
    if (open || !context_.pipeline.AbrirTicket) return true;
    context_.pipeline.AbrirTicket(slot);
    return ++opened < kMost;
  });
}

}  // namespace views
