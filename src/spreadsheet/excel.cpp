#include "spreadsheet/excel.h"

#include <cmath>
#include <limits>
#include <variant>

#include "base/masks.h"
#include "base/palette.h"
#include "base/text.h"
#include "base/val.h"

namespace spreadsheet {
namespace {

using platform::Spreadsheet;

constexpr std::string_view kSheet = "Cotirama";
constexpr std::uint32_t kWakeUp = 1042;
constexpr std::array<std::string_view, Spreadsheet::kCols> kHeadings{
    "Cotirama", "Empresa", "Anterior",         "Apertura", "Dif",   "%Dif",  "Ultimo",   "Maximo",
    "Minimo",   "Volumen", "Volumen Efectivo", "Hora",     "Fecha", "Saldo", "Ponderado"};

enum Column {
  kCodigo = 1,
  kEmpresa,
  kAnterior,
  kApertura,
  kDif,
  kPorcentaje,
  kUltimo,
  kMaximo,
  kMinimo,
  kVolumen,
  kEfectivo,
  kHora,
  kFecha,
  kSaldo,
  kPonderado
};

bool IsNumber(std::string_view text) {
  return text.find_first_not_of("0123456789.+-eE") == std::string_view::npos &&
         text.find_first_of("0123456789") != std::string_view::npos;
}

// 0 where the cell is empty. A text that is no number gives NaN: it differs from any price and is
// neither above nor below it.
double PriceIn(const Spreadsheet::Value& value) {
  constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();
  if (const auto* const number = std::get_if<double>(&value)) return *number;
  const auto* const text = std::get_if<std::string>(&value);
  if (text == nullptr) return 0;
  const std::string_view digits = base::Trim(*text);
  return IsNumber(digits) ? base::Val(digits).value_or(kNoNumber) : kNoNumber;
}

}  // namespace

Excel::Excel(Spreadsheet& sheet, const store::InstrumentStore& store)
    : sheet_(sheet), store_(store) {}

Excel::~Excel() { sheet_.Detach(); }

void Excel::ExcelAttach() {
  if (waiting_) return;
  waiting_ = true;
  sheet_.Attach(kSheet, [this](bool attached) { Attached(attached); });
}

void Excel::Attached(bool attached) {
  waiting_ = false;
  ExcelApp = attached;
  ExcelCheck();
  if (ExcelOff != 0 || ExcelBusy != 0) return;
  Encabezar();
  LeerCodigos();
  if (!steps.TickAppend) return;
  for (std::int16_t slot = 1; slot <= store_.NumInstrumentos(); ++slot) steps.TickAppend(slot);
}

void Excel::ExcelCheck() {
  ExcelOff = sheet_.HasWindow() ? 0 : -1;
  if (ExcelOff == 0) sheet_.SendToWindow(kWakeUp);
}

void Excel::ExcelDetach() {
  ExcelOff = -1;
  ExcelBusy = 0;
  ExcelApp = waiting_ = false;
  sheet_.Detach();
}

void Excel::Encabezar() {
  int col = 0;
  for (const std::string_view heading : kHeadings) sheet_.SetText(1, ++col, heading);
  sheet_.SetFore(1, kCodigo, kPonderado, base::palette::kBrightWhite);
  for (col = kCodigo; col <= kPonderado; ++col) {
    sheet_.SetBack(1, col, base::palette::kLightBlue);
  }
}

void Excel::LeerCodigos() {
  for (int row = CodeRows::kFirst; row <= CodeRows::kLast; ++row) {
    std::string& code = ExcelCodes[static_cast<std::size_t>(row)];
    code = CodeText(sheet_.value(row, kCodigo));
    if (code.empty()) continue;
    const std::string n = std::to_string(row);
    sheet_.SetFormula(row, kDif, "=g" + n + "-c" + n);
    sheet_.SetFormula(row, kPorcentaje, "=((g" + n + "/c" + n + ")*100)-100");
  }
  version_ = sheet_.codes_version();
  rows_.Read(ExcelCodes, sheet_);
}

void Excel::RefrescarFilas(std::int16_t slot) {
  if (!ExcelApp || ExcelOff != 0) return;
  if (const std::uint32_t version = sheet_.codes_version(); version != version_) {
    version_ = version;
    rows_.Read(ExcelCodes, sheet_);
  }
  const store::Instrumento& record = store_.Instrumentos(slot);
  const store::CodeKey code = store::PackCode(record.Codigo.bytes());
  int row = rows_.Find(code);
  if (row == 0) return;
  const std::string nombre = record.Nombre.utf8();
  for (; row != 0; row = rows_.Find(code, row + 1)) {
    ColorearFila(row, record);
    EscribirFila(row, record, nombre);
  }
}

void Excel::ColorearFila(int row, const store::Instrumento& record) {
  const double old = PriceIn(sheet_.value(row, kUltimo));
  const double last = base::AsWritten(record.Ultimo);
  if (last == old) return;
  if (record.Ultimo > record.Anterior) sheet_.SetFore(row, kCodigo, kFecha, base::palette::kGreen);
  if (record.Ultimo < record.Anterior) sheet_.SetFore(row, kCodigo, kFecha, base::palette::kRed);
  if (last > old) sheet_.SetFore(row, kUltimo, kUltimo, base::palette::kLightRed);
  if (last < old) sheet_.SetFore(row, kUltimo, kUltimo, base::palette::kBlue);
}

void Excel::EscribirFila(int row, const store::Instrumento& record, std::string_view nombre) {
  // What isn't finite fits into no cell.
  const auto write = [&](Column col, double number) {
    if (std::isfinite(number)) sheet_.SetNumber(row, col, number);
  };
  const auto write_float = [&](Column col, float number) { write(col, base::AsWritten(number)); };
  sheet_.SetText(row, kEmpresa, nombre);
  write_float(kAnterior, record.Anterior);
  write_float(kApertura, record.Apertura);
  write_float(kUltimo, record.Ultimo);
  write_float(kMaximo, record.Maximo);
  write_float(kMinimo, record.Minimo);
  write_float(kVolumen, record.Volumen);
  write(kEfectivo, record.Efectivo);
  write_float(kHora, record.Hora);
  write_float(kFecha, record.Fecha);
  write(kSaldo, record.Saldo);
  write_float(kPonderado, record.Medio);
}

}  // namespace spreadsheet
