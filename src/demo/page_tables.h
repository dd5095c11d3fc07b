#pragma once

#include "demo/market.h"
#include "demo/page_sheet.h"

// What stands on the pages between head and foot.
namespace demo::pages {

void Indices(const Market& market, PageSheet& sheet);
void Futures(const Market& market, PageSheet& sheet);
void Dates(const Market& market, PageSheet& sheet);
void Options(const Market& market, PageSheet& sheet);
void MostTraded(const Market& market, PageSheet& sheet);
void Rises(const Market& market, PageSheet& sheet);
void Falls(const Market& market, PageSheet& sheet);
void Sectors(const Market& market, PageSheet& sheet);
void Currencies(const Market& market, PageSheet& sheet);
void Balances(const Market& market, PageSheet& sheet);

}  // namespace demo::pages
