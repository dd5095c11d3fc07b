#include "portfolios/t_cartera.h"

#include <array>
#include <string_view>

namespace portfolios {
namespace {

using views::Campo;
using views::Columna;

constexpr std::array kColumns{
    Columna{"Anterior", Campo::Anterior, 1110}, Columna{"Apertura", Campo::Apertura, 1110},
    Columna{"%D", Campo::Variacion, 900},       Columna{"Ultimo", Campo::Ultimo, 1110},
    Columna{"Maximo", Campo::Maximo, 1110},     Columna{"Minimo", Campo::Minimo, 1110},
    Columna{"Volumen", Campo::Volumen, 1335},   Columna{"% Gain", Campo::ninguno, 990},
    Columna{"Ganancia", Campo::ninguno, 1560},  Columna{"Hora", Campo::Hora, 1110},
};

constexpr std::array<std::string_view, 3> kClosing{"% Gain", "Ganancia", "Hora"};

constexpr views::ColumnTable kTable{
    .name_width = 2550,
    .design = kColumns,
    .by_flag = {"Anterior", "Apertura", "%D", "Ultimo", "Maximo", "Minimo", "Volumen"},
    .closing = kClosing,
};

constexpr views::GridDesign kDesign{
    .caption = "Valores en Carteras",
    .rect = {900, 900, 14400, 5400},
    .columns = kTable,
    .cam = "MC.CAM",
    .pos = "CA.POS",
    .entrada = 1,
    .registro = 1,
};

}  // namespace

TCartera::TCartera(const views::GridContext& context, const PortfolioStore& portfolios)
    : GridView(context, kDesign), portfolios_(portfolios) {}

void TCartera::OnLoad() {}

void TCartera::Mostrar(int) { (void)portfolios_; }

void TCartera::ColoresOn() {}

void TCartera::negoti(std::int16_t) {}

void TCartera::G_DblClick() { GridView::G_DblClick(); }

int TCartera::G_BeforeMoveColumn(int from, int to) const {
  return GridView::G_BeforeMoveColumn(from, to);
}

}  // namespace portfolios
