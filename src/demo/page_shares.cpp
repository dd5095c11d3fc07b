#include <algorithm>
#include <functional>
#include <vector>

#include "base/masks.h"
#include "demo/catalogue.h"
#include "demo/page_figures.h"
#include "demo/page_tables.h"

namespace demo::pages {
namespace {

using Column = PageTable::Column;
using Rank = std::function<double(const Instrument&)>;  // above 0 to be listed

/// The listed shares, those of the highest rank first.
void Ranking(const Market& market, PageSheet& sheet, const Rank& rank) {
  constexpr Column kColumns[] = {{"Nº", 3},       {"Cód", 5, false}, {"Valor", 11, false},
                                 {"Último", 41},  {"%Dif", 50},      {"Títulos", 62},
                                 {"Miles €", 70}, {"Hora", 79}};
  struct Place {
    double rank;
    const Instrument* share;
  };
  std::vector<Place> places;
  for (std::size_t slot = market.first_share(); market.ShareAt(slot); ++slot) {
    const Instrument& share = market.instruments()[slot];
    if (const double of = rank(share); of > 0) places.push_back({of, &share});
  }
  const std::size_t most = std::min(places.size(), PageSheet::kLines);
  std::partial_sort(places.begin(), places.begin() + static_cast<std::ptrdiff_t>(most),
                    places.end(), [](const Place& a, const Place& b) {
                      return a.rank != b.rank ? a.rank > b.rank : a.share < b.share;
                    });
  PageTable table(sheet, kColumns);
  if (places.empty()) table.Say("Todavía no hay ninguno en esta sesión.");
  for (std::size_t i = 0; i < most; ++i) {
    const Instrument& share = *places[i].share;
    table.Add({CountText(static_cast<std::int64_t>(i) + 1), share.code.trimmed_utf8(),
               share.name.trimmed_utf8(), PriceText(share, share.last), ChangeText(share),
               CountText(share.volume), ThousandsText(share.Cash()), TimeText(share.time)});
  }
}

/// What the shares of a sector have done today.
struct Turnover {
  std::int64_t volume = 0;
  double cash = 0;
  int rising = 0, falling = 0, equal = 0;

  void Add(const Instrument& share) {
    volume += share.volume;
    cash += share.Cash();
    ++(share.last > share.previous ? rising : share.last < share.previous ? falling : equal);
  }
  Turnover& operator+=(const Turnover& other) {
    volume += other.volume;
    cash += other.cash;
    rising += other.rising;
    falling += other.falling;
    equal += other.equal;
    return *this;
  }
};

void AddTurnover(std::string_view name, const Turnover& turnover, double all, PageTable& table) {
  table.Add({std::string(name), CountText(turnover.volume), ThousandsText(turnover.cash),
             base::masks::kPercent.Format(all > 0 ? turnover.cash / all * 100 : 0.0),
             CountText(turnover.rising), CountText(turnover.falling), CountText(turnover.equal)});
}

}  // namespace

void MostTraded(const Market& market, PageSheet& sheet) {
  Ranking(market, sheet, [](const Instrument& share) { return share.Cash(); });
}

void Rises(const Market& market, PageSheet& sheet) { Ranking(market, sheet, ChangeOf); }

void Falls(const Market& market, PageSheet& sheet) {
  Ranking(market, sheet, [](const Instrument& share) { return -ChangeOf(share); });
}

void Sectors(const Market& market, PageSheet& sheet) {
  constexpr Column kColumns[] = {{"Sector", 1, false}, {"Títulos", 38}, {"Miles €", 50},
                                 {"%Total", 58},       {"Suben", 65},   {"Bajan", 72},
                                 {"Igual", 79}};
  const auto sectors = catalogue::Sectors();
  const auto shares = catalogue::Shares();
  std::vector<Turnover> turnovers(sectors.size());
  Turnover all;
  for (std::size_t i = 0; i < shares.size(); ++i) {
    turnovers[static_cast<std::size_t>(shares[i].sector)].Add(
        market.instruments()[market.first_share() + i]);
  }
  for (const Turnover& turnover : turnovers) all += turnover;
  PageTable table(sheet, kColumns);
  for (std::size_t i = 0; i < sectors.size(); ++i) {
    AddTurnover(sectors[i].name, turnovers[i], all.cash, table);
  }
  table.AddRule();
  AddTurnover("TOTAL", all, all.cash, table);
}

}  // namespace demo::pages
