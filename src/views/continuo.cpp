#include "views/continuo.h"

#include <array>
#include <string_view>

namespace views {
namespace {

constexpr int kPrice = 990;

constexpr std::array kColumns{
    Columna{"Ant", Campo::Anterior, kPrice},  Columna{"Aper", Campo::Apertura, kPrice},
    Columna{"%D", Campo::Variacion, 900},     Columna{"Ult", Campo::Ultimo, kPrice},
    Columna{"Max", Campo::Maximo, kPrice},    Columna{"Min", Campo::Minimo, kPrice},
    Columna{"Volumen", Campo::Volumen, 1200}, Columna{"Efectivo", Campo::Efectivo, 1560},
    Columna{"Medio", Campo::Medio, kPrice},   Columna{"Saldos", Campo::Saldo, 1560},
    Columna{"Hora", Campo::Hora, 1110},       Columna{"Fecha", Campo::Fecha, 1335},
    Columna{"Pesetas", Campo::Pesetas, 1110},
};

constexpr std::array<std::string_view, 1> kClosing{"Hora"};

constexpr ColumnTable kTable{
    .name_width = 2550,
    .design = kColumns,
    .by_flag = {"Ant", "Aper", "%D", "Ult", "Max", "Min", "Volumen", "Efectivo", "Medio", "Saldos",
                "Fecha", "Pesetas"},
    .closing = kClosing,
};

constexpr GridDesign kDesign{
    .caption = "Cotirama Mercado Continuo",
    .rect = {300, 300, 17670, 9000},
    .columns = kTable,
    .cam = "MC.CAM",
    .pos = "MC.POS",
    .entrada = 1,
    .registro = 1,
    .flagged_width = kColumns[0].width,
    .first_colors = true,
};

constexpr int kNewWidth = 600;  // of the columns that a change of the settings turns on

bool IsShare(const store::Instrumento& record) {
  return record.Codigo.bytes().substr(3, 2) == "  ";
}

}  // namespace

Continuo::Continuo(const GridContext& context) : GridView(context, kDesign) {}

void Continuo::AddRows() {
  for (int slot = 1; slot <= context().store.NumInstrumentos(); ++slot) {
    const store::Instrumento& record = context().store.Instrumentos(slot);
    if (IsShare(record)) AddNameRow(record);
  }
  SortRows(0);
}

void Continuo::ColoresOn() {
  ReadColors(/*write_first=*/false);
  BuildColumns(kNewWidth);
  for (int slot = 1; slot <= context().store.NumInstrumentos(); ++slot) {
    context().pipeline.RefrescarInstrumentoCarga(static_cast<std::int16_t>(slot));
  }
}

void Continuo::negoti(std::int16_t indice) {
  if (!IsSlot(indice)) return;
  const store::Instrumento& record = context().store.Instrumentos(indice);
  BuildRow(record);
  const int row = RowOf(indice);
  if (row > 0 && row < G.rows()) FlashRow(row, RowColor(record));
}

void Continuo::negotii(std::int16_t indice) {
  if (!IsSlot(indice)) return;
  const store::Instrumento& record = context().store.Instrumentos(indice);
  BuildRow(record);
  if (const int row = FindRow()) {
    PaintRow(row, RowColor(record));
    return;
  }
  InsertRow(RowColor(record));
}

}  // namespace views
