#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "platform/spreadsheet.h"
#include "spreadsheet/code_rows.h"
#include "store/instrument_store.h"

namespace spreadsheet {

/// Keeps the rows of the sheet "Cotirama" of a running spreadsheet program current: row 1 holds the
/// headings, rows 2 to 200 one instrument each, whose code the user types into column 1. Attached
/// by the user only. Prices stand there as they are written, not as their binary form widens:
/// 11.05. Failing calls are ignored. `sheet` and `store` outlive it.
class Excel {
 public:
  Excel(platform::Spreadsheet& sheet, const store::InstrumentStore& store);
  ~Excel();
  Excel(const Excel&) = delete;
  Excel& operator=(const Excel&) = delete;

  /// Appends a tick of the slot and refreshes its rows: what a quote does.
  struct Steps {
    std::function<void(std::int16_t slot)> TickAppend;
  } steps;

  bool ExcelApp = false;  // a program has been found
  std::int16_t ExcelOff = 0, ExcelBusy = 0;
  /// 2 to 200: column 1 as it was when the sheet was set up.
  std::array<std::string, CodeRows::kLast + 1> ExcelCodes;

  /// Looks for the program and, once its answer has come, sets up headings and formulas and fills
  /// the sheet. `ExcelOff` is -1 afterwards where there is none. One that waits for its answer is
  /// not begun again.
  void ExcelAttach();
  /// `ExcelOff` by whether the program has a window.
  void ExcelCheck();
  /// Off until the next `ExcelAttach`; one under way ends without effect.
  void ExcelDetach();
  /// The slot's record into every row of its code. Next to nothing for an instrument that isn't on
  /// the sheet.
  void RefrescarFilas(std::int16_t slot);

 private:
  void Attached(bool attached);
  void Encabezar();
  void LeerCodigos();
  void ColorearFila(int row, const store::Instrumento& record);
  void EscribirFila(int row, const store::Instrumento& record, std::string_view nombre);

  platform::Spreadsheet& sheet_;
  const store::InstrumentStore& store_;
  bool waiting_ = false;
  CodeRows rows_;
  std::uint32_t version_ = 0;  // of the cells that `rows_` was made from
};

}  // namespace spreadsheet
