#include "demo/page_tables.h"

#include <cstdlib>
#include <vector>

#include "demo/catalogue.h"
#include "demo/option_series.h"
#include "demo/page_figures.h"

namespace demo::pages {
namespace {

using Column = PageTable::Column;
using std::chrono::sys_days;

constexpr Column kPrices[] = {{"Nombre", 1, false}, {"Último", 34}, {"%Dif", 43},
                              {"Apertura", 55},     {"Máximo", 67}, {"Mínimo", 79}};

std::string NameOf(const Instrument& state) { return state.name.trimmed_utf8(); }

const Instrument* Find(const Market& market, std::string_view code) {
  const auto slot = market.Find(code);
  return slot ? &market.instruments()[*slot] : nullptr;
}

void AddPrices(const Instrument& state, PageTable& table) {
  table.Add({NameOf(state), PriceText(state, state.last), ChangeText(state),
             PriceText(state, state.is_open() ? state.open : state.previous),
             PriceText(state, state.high), PriceText(state, state.low)});
}

void AddIndex(const Market& market, const catalogue::Index& index, PageTable& table) {
  if (const Instrument* state = Find(market, index.code)) AddPrices(*state, table);
}

// The day on which contracts end: the third Friday of a month.
sys_days EndOf(std::chrono::year_month month) { return month / std::chrono::Friday[3]; }

// The first such day from `day` on; of the last month of a quarter only, if so wished.
sys_days NextEnd(sys_days day, bool quarterly) {
  const std::chrono::year_month_day date(day);
  std::chrono::year_month month = date.year() / date.month();
  while (EndOf(month) < day || (quarterly && static_cast<unsigned>(month.month()) % 3 != 0)) {
    month += std::chrono::months(1);
  }
  return EndOf(month);
}

void AddEnd(const std::string& name, sys_days end, sys_days today, PageTable& table) {
  table.Add({name, DayText(end), CountText((end - today).count())});
}

std::string TimeOfDay(int second) { return TimeText(TimeOf(second)); }

// What an option at the money, or as near to it as the strikes allow, is worth.
const OptionSeries::Option* AtTheMoney(const OptionSeries& series, bool call, int months,
                                       std::int64_t price) {
  const OptionSeries::Option* nearest = nullptr;
  for (const OptionSeries::Option& option : series.options()) {
    if (option.call != call || option.months != months) continue;
    if (!nearest || std::abs(option.strike - price) < std::abs(nearest->strike - price)) {
      nearest = &option;
    }
  }
  return nearest;
}

void AddOptions(const Instrument& share, PageTable& table) {
  std::vector<Instrument> made;
  const OptionSeries series(share.code.trimmed(), share.last, share.time, made);
  const int near = series.options().front().months, far = series.options().back().months;
  const auto worth = [&](bool call, int months) {
    const OptionSeries::Option* option = AtTheMoney(series, call, months, share.last);
    return PriceText(share, option ? OptionSeries::Value(*option, share.last) : 0);
  };
  const OptionSeries::Option* option = AtTheMoney(series, true, near, share.last);
  table.Add({std::string(share.code.trimmed()), NameOf(share), PriceText(share, share.last),
             PriceText(share, option ? option->strike : 0), worth(true, near), worth(false, near),
             worth(true, far), worth(false, far)});
}

}  // namespace

void Indices(const Market& market, PageSheet& sheet) {
  PageTable table(sheet, kPrices);
  AddIndex(market, catalogue::BlueChips(), table);
  AddIndex(market, catalogue::General(), table);
  AddIndex(market, catalogue::SmallCaps(), table);
  table.AddRule();
  for (const catalogue::Index& sector : catalogue::Sectors()) AddIndex(market, sector, table);
}

void Futures(const Market& market, PageSheet& sheet) {
  constexpr Column kColumns[] = {{"Contrato", 1, false}, {"Último", 34}, {"%Dif", 43},
                                 {"Máximo", 55},         {"Mínimo", 67}, {"Volumen", 79}};
  PageTable table(sheet, kColumns);
  for (const catalogue::Follower& follower : catalogue::Followers()) {
    const Instrument* state = Find(market, follower.code);
    if (!state || follower.lots == 0) continue;
    table.Add({NameOf(*state), PriceText(*state, state->last), ChangeText(*state),
               PriceText(*state, state->high), PriceText(*state, state->low),
               CountText(state->volume)});
  }
  table.AddRule();
  for (const catalogue::Follower& follower : catalogue::Followers()) {
    const Instrument* state = Find(market, follower.code);
    if (!state || follower.lots > 0 || follower.all_day) continue;
    table.Add({NameOf(*state), PriceText(*state, state->last), ChangeText(*state),
               PriceText(*state, state->high), PriceText(*state, state->low), ""});
  }
}

void Dates(const Market& market, PageSheet& sheet) {
  constexpr Column kColumns[] = {{"Contrato", 1, false}, {"Vencimiento", 32, false}, {"Días", 60}};
  const sys_days today = market.clock().day();
  const sys_days near = NextEnd(today, false);
  const sys_days second = NextEnd(near + std::chrono::days(1), true);
  const sys_days third = NextEnd(second + std::chrono::days(1), true);
  PageTable table(sheet, kColumns);
  AddEnd("Futuro IBEX 35, cercano", near, today, table);
  AddEnd("Futuro IBEX 35, segundo", second, today, table);
  AddEnd("Futuro IBEX 35, tercero", third, today, table);
  AddEnd("Opciones sobre acciones", NextEnd(today, true), today, table);
  table.AddRule();
  table.Say("Sesión de contratación:  " + TimeOfDay(SessionClock::kOpening) + " a " +
            TimeOfDay(SessionClock::kClose) + ", de lunes a viernes");
  table.Say("Subasta de apertura:     desde las " + TimeOfDay(SessionClock::kOpening));
  table.Say("Divisas:                 todo el día");
}

void Options(const Market& market, PageSheet& sheet) {
  constexpr Column kColumns[] = {{"Cód", 1, false}, {"Valor", 5, false}, {"Último", 34},
                                 {"Ejercicio", 44}, {"Call JUN", 53},    {"Put JUN", 62},
                                 {"Call SEP", 71},  {"Put SEP", 79}};
  PageTable table(sheet, kColumns);
  for (std::size_t slot = market.first_share(); market.ShareAt(slot) && !table.full(); ++slot) {
    const Instrument& share = market.instruments()[slot];
    constexpr int kSteady = 12;  // deals: enough of a market for options
    if (share.code.trimmed().size() != 3 || market.ShareAt(slot)->activity() < kSteady) continue;
    AddOptions(share, table);
  }
}

void Currencies(const Market& market, PageSheet& sheet) {
  PageTable table(sheet, kPrices);
  for (const catalogue::Follower& follower : catalogue::Followers()) {
    const Instrument* state = Find(market, follower.code);
    if (state && follower.all_day) AddPrices(*state, table);
  }
}

void Balances(const Market& market, PageSheet& sheet) {
  constexpr Column kColumns[] = {
      {"Estadística", 1, false}, {"Valor", 40}, {"Títulos", 58}, {"Efectivo (miles)", 79}};
  PageTable table(sheet, kColumns);
  for (const catalogue::Statistic& statistic : catalogue::Statistics()) {
    const Instrument* state = Find(market, statistic.code);
    if (!state) continue;
    const bool counted = state->volume > 0;
    table.Add({NameOf(*state), PriceText(*state, state->last),
               counted ? CountText(state->volume) : "",
               counted ? ThousandsText(state->Cash()) : ""});
  }
}

}  // namespace demo::pages
