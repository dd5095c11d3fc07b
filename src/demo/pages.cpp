#include "demo/pages.h"

#include "base/ansi.h"
#include "base/text.h"
#include "demo/page_figures.h"
#include "demo/page_sheet.h"
#include "demo/page_tables.h"

namespace demo::pages {
namespace {

constexpr std::size_t kFoot = PageSheet::kLines - 2;

void Index(const Market& market, PageSheet& sheet);
void Help(const Market& market, PageSheet& sheet);

struct Page {
  std::string_view number, title, content;
  void (*fill)(const Market&, PageSheet&);
};

constexpr Page kPages[] = {
    {"1", "ÍNDICE DE PÁGINAS", "Esta página", Index},
    {"2", "ÍNDICES", "Índices generales y de sectores", Indices},
    {"3", "FUTUROS", "Futuros y sus referencias al contado", Futures},
    {"4", "FECHAS", "Vencimientos y horario de la sesión", Dates},
    {"5", "OPCIONES", "Primas teóricas de opciones al dinero", Options},
    {"10", "MÁS NEGOCIADOS", "Valores con más efectivo", MostTraded},
    {"11", "MAYORES SUBIDAS", "Valores que más suben", Rises},
    {"12", "MAYORES BAJADAS", "Valores que más bajan", Falls},
    {"13", "SECTORES", "Volumen por sectores", Sectors},
    {"20", "DIVISAS", "Cambios del euro y cruzados", Currencies},
    {"21", "ESTADÍSTICAS", "Saldos del mercado y recuento de valores", Balances},
    {"90", "AYUDA", "Cómo se usan estas páginas", Help},
};

void Index(const Market&, PageSheet& sheet) {
  constexpr PageTable::Column kColumns[] = {
      {"Página", 8}, {"Título", 12, false}, {"Contenido", 36, false}};
  PageTable table(sheet, kColumns);
  for (const Page& page : kPages) {
    table.Add({std::string(page.number), std::string(page.title), std::string(page.content)});
  }
}

void Help(const Market&, PageSheet& sheet) {
  constexpr std::string_view kText[] = {
      "Escriba el número de una página y pulse Intro para pedirla.",
      "Los botones piden el índice, que es la página 1.",
      "",
      "Cada página se hace en el momento en que se pide: la hora que lleva arriba",
      "es la del mercado. Para ponerla al día, pídala otra vez.",
      "",
      "  %Dif     variación sobre el cierre de la sesión anterior",
      "  Miles €  efectivo negociado en la sesión, en miles de euros",
      "  Hora     hora del último precio",
      "",
      "En opciones, el precio de ejercicio es el más próximo al último del valor.",
      "",
      "Los valores, los precios y las empresas de este mercado son simulados.",
  };
  for (std::size_t i = 0; i < std::size(kText); ++i) sheet.Left(4 + i, 2, kText[i]);
}

void HeadAndFoot(const Market& market, std::string_view number, std::string_view title,
                 PageSheet& sheet) {
  sheet.Left(0, 1, "COTIRAMA");
  sheet.Left(0, (PageSheet::kWidth - base::CountUtf8(title)) / 2, title);
  sheet.Right(0, PageSheet::kWidth - 1, "Página " + std::string(number));
  sheet.Left(1, 1, DayText(market.clock().day()));
  sheet.Left(1, 30, "Mercado de demostración");
  sheet.Right(1, PageSheet::kWidth - 1, TimeText(market.clock().time()));
  sheet.Rule(2, '=');
  sheet.Rule(kFoot, '=');
  sheet.Left(kFoot + 1, 1,
             "1 Índice   2 Índices   3 Futuros   5 Opciones   10 Más negociados   90 Ayuda");
}

}  // namespace

std::string Make(const Market& market, std::string_view number) {
  constexpr std::size_t kShown = 20;
  const std::string_view asked = base::Trim(number).substr(0, kShown);
  PageSheet sheet;
  for (const Page& page : kPages) {
    if (page.number != asked) continue;
    HeadAndFoot(market, page.number, page.title, sheet);
    page.fill(market, sheet);
    return sheet.bytes();
  }
  HeadAndFoot(market, "-", "PÁGINA DESCONOCIDA", sheet);
  sheet.Left(5, 2, "No hay ninguna página «" + base::AnsiToUtf8(asked) + "».");
  sheet.Left(7, 2, "La página 1 es el índice, con los números de todas las demás.");
  return sheet.bytes();
}

}  // namespace demo::pages
