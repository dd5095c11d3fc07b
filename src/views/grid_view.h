#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "base/program_dir.h"
#include "platform/controls.h"
#include "platform/grid.h"
#include "platform/timer.h"
#include "platform/window.h"
#include "store/instrument_store.h"
#include "store/update_pipeline.h"
#include "views/color_records.h"
#include "views/column_layout.h"
#include "views/command_bar.h"
#include "views/layout_file.h"
#include "views/row_names.h"

namespace views {

/// What every grid view works with; all of it outlives the views.
struct GridContext {
  platform::Platform& platform;
  const base::ProgramDir& dir;
  const store::InstrumentStore& store;
  store::UpdatePipeline& pipeline;
  const ConfigVentanas& config;
  /// Above 0 while the program ends: only then a view lets itself be closed.
  const std::int16_t& FaseCierre;
};

/// What a view does with the colour of a row, and which text changed cells take on Color..Fondo.
enum class ColorFamily {
  text,  // it is the row's text at rest; changed cells take ColorMov..
  back   // it is the back of the name, and at rest of the whole row; they take Color..Texto
};

/// What tells one grid view from another. Constants.
struct GridDesign {
  std::string_view caption;
  platform::Rect rect;
  const ColumnTable& columns;
  std::string_view cam, pos;  // its files; no `cam` where the columns are fixed
  int entrada = 1;            // entry of ConfigVentanas
  int registro = 1;           // record of "COLORES.SET"
  ColorFamily colors = ColorFamily::text;
  int own_columns = 0;        // last columns, whose cells the view adds to the built row itself
  int flagged_width = 0;      // at load, of all columns that flags turn on; 0 is each its own
  bool first_colors = false;  // puts its record into "COLORES.SET" where that is empty
  bool bar = true;            // has a command bar
  int bar_top = 0;            // of the bar when it is in sight, in twips
  int timer_ms = 1000;        // of Timer1; 0 where cells stay lit until they change again
  LayoutForm layout = LayoutForm::place_first;
};

/// Opens charts.
struct ChartSteps {
  std::function<void(std::int16_t slot)> Abrir;  // of an instrument
  std::function<bool()> Pedir;                   // of a code that the user types; false for none
};

/// A market view: one grid under a command bar that slides away, one row per instrument. Shows the
/// store in place, flashes what has changed, and remembers its layout. Closing only hides it; it
/// goes on painting. Takes any text in names; a slot or row that isn't there paints nothing.
class GridView : public platform::Window {
 public:
  GridView(const GridContext& context, const GridDesign& design);

  platform::Grid G;
  platform::PictureBox Picture1;                            // command bar; the rest stands on it
  platform::Button Command1, Command2, Command3, Command4;  // chart, print, copy, save
  platform::Button Command5;                                // out of sight; takes the focus back
  platform::Label Label1;                                   // name of the row last clicked
  platform::Timer Timer1;

  /// The chart button shows only where these are set before the load, and there is a bar.
  ChartSteps graficos;

  /// Takes the settings anew and repaints what they change.
  virtual void ColoresOn() {}
  /// Headings of its optional columns, by flag from 0; "" makes no column.
  [[nodiscard]] std::span<const std::string_view> Campos() const { return design_.columns.by_flag; }

  void Form_Resize();
  void Timer1_Timer();
  void Command1_Click();
  virtual void Command2_Click();
  void Command3_Click();
  virtual void Command4_Click() { SaveLayout(); }
  void G_Click();
  virtual void G_DblClick();
  void G_MouseMove();
  [[nodiscard]] virtual int G_BeforeMoveColumn(int from, int to) const {
    return from == 0 ? 0 : to;
  }
  void G_AfterUserResize() { SaveLayout(); }

 protected:
  bool OnQueryUnload() override;
  void OnUnload() override;
  void OnResize() override { Form_Resize(); }
  /// Whoever opens the board sees its commands, however long it was out of sight.
  void OnShow() override;

  [[nodiscard]] const GridContext& context() const { return context_; }
  [[nodiscard]] const ConfigVentana& config() const {
    return context_.config[static_cast<std::size_t>(design_.entrada)];
  }
  /// A slot that holds an instrument.
  [[nodiscard]] bool IsSlot(int slot) const {
    return slot >= 1 && slot <= context_.store.NumInstrumentos();
  }

  /// Look, columns, rows, layout file, colours; then the timer runs.
  void OnLoad() override;
  /// Those that are there from the load on.
  virtual void AddRows() {}

  // Frame, used at load and when the settings have changed.
  void ReadColors(bool write_first);
  /// Headings by design or by file. A column that was there keeps its texts and width, a new one
  /// gets the design's; those that a flag turns on all get `flagged_width` where it isn't 0.
  void BuildColumns(int flagged_width = 0);
  void LoadLayout();
  void SaveLayout();
  void ShowCommands();

  // Rows.
  /// Instruments whose code begins with one of these, in the order of the market.
  [[nodiscard]] std::vector<std::int16_t> SlotsOf(
      std::initializer_list<std::string_view> beginnings) const;
  /// For all that `SlotsOf` gives, a row with no more than its name.
  void AddNameRows(std::initializer_list<std::string_view> beginnings);
  void AddNameRow(const store::Instrumento& record);
  /// Leaves the heading alone.
  void ClearRows();
  void BuildRow(const store::Instrumento& record);
  /// The built row, for the cells of its own columns.
  [[nodiscard]] platform::RowText& row_text() { return row_text_; }
  /// By the config: that of a fall where `Anterior` is above `Ultimo`.
  [[nodiscard]] base::Color RowColor(const store::Instrumento& record) const;
  /// First row with the built row's name; 0 when there is none.
  [[nodiscard]] int FindRow();
  /// The same, where blanks in front of a name count.
  [[nodiscard]] int FindPaddedRow();
  /// The slot's remembered row, which may be past the last one, else the first one with its name,
  /// which is then remembered; 0 when there is none.
  [[nodiscard]] int RowOf(int slot);
  /// Writes the built row and marks what has changed against the old texts.
  void FlashRow(int row, base::Color color);
  /// Flashes the instrument's row, as `RowOf` gives it; adds one at the end where it is missing,
  /// unless its name begins with a blank.
  void FlashOrAdd(int slot);
  /// Writes the built row without a mark.
  void PaintRow(int row, base::Color color);
  /// Adds a row with the built one's name at the end and forgets all rows; 0 where there are too
  /// many.
  [[nodiscard]] int AppendRow();
  /// Adds the built row in its place by name and forgets all rows, as they have moved.
  void InsertRow(base::Color color);
  /// Sorts by `col` and selects the first cell.
  void SortRows(int col);
  /// Of every instrument of that name that has no window yet.
  void OpenTickets(const std::string& name);

  views::ColFlags ColFlags{};
  ColorRecord Colores;
  std::int16_t FilaActual = 0;
  std::int16_t HoverTicks = 0;

 private:
  struct Fila {
    std::int16_t FilaFlash = 0;                      // above 0 while the row has flash colours
    std::int16_t FilaTicks = 0;                      // ticks it has been seen so
    base::Color FilaColor = platform::Grid::kUnset;  // text or back at rest, by family
  };

  void Design();
  /// Puts the column of that heading, with all that is in it, in place `c`; a new one where none
  /// from there on bears it.
  void BringColumn(int c, std::string_view heading, int width);
  void Wire();
  void SlideBarIn();
  [[nodiscard]] bool OpenChart();
  [[nodiscard]] bool IsLit(int row, const Fila& fila) const;
  void ClearFlashes();
  void ClearFlash(int row, Fila& fila);
  void CompileHeadings();
  [[nodiscard]] Fila& FilaAt(int row);
  void ShowCode(std::string_view name);
  template <typename Visit>
  void ForEachNamed(std::string_view name, const Visit& visit);

  GridContext context_;
  const GridDesign& design_;
  CommandBar bar_;

  std::array<std::int16_t, store::InstrumentStore::kMaxInstrumentos + 1> FilaDeInstrumento{};
  std::vector<Fila> filas_;  // by row; moves with the rows
  RowNames names_{G};
  std::vector<Campo> campos_;  // by column, as of heading_changes_
  unsigned heading_changes_ = 0;
  platform::RowText row_text_;
  std::vector<std::int8_t> moves_;  // by column while a row is compared
  std::string name_;
};

}  // namespace views
