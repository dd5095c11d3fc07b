#pragma once

#include <gtest/gtest.h>
#include <string>
#include <string_view>

#include "portfolios/portfolio_store.h"
#include "support/memory_platform.h"
#include "support/orders.h"

/// Portfolios that the dialogs work on.
class DialogTest : public testing::Test {
 protected:
  void AddPortfolio(std::string_view name, std::string_view agency = "AG") {
    portfolios::FichaCartera record;
    record.Nombre = base::FixedText<25>::FromUtf8(name);
    record.Agencia = base::FixedText<20>::FromUtf8(agency);
    ASSERT_TRUE(portfolios.AgregarCartera(record));
  }
  void Operate(int portfolio, std::string_view code, int shares, float price, int way = 1) {
    ASSERT_TRUE(portfolios.AgregarOperacion(support::Order(code, shares, price, way, portfolio)));
  }

  /// The lines of a list, or the entries of a selector, each with a "|" at its end.
  static std::string Lines(const auto& list) {
    std::string text;
    for (const std::string& line : list.items()) text += line + '|';
    return text;
  }
  /// A name as the selectors of the dialogs list it.
  static std::string Name(std::string_view name) { return support::Pad(name, 25); }
  std::string LastBox() {
    return outside.boxes.messages.empty() ? "" : outside.boxes.messages.back();
  }

  support::TempDir dir;
  support::MemoryPlatform outside;
  base::ProgramDir program{dir.path()};
  platform::ComboBox selector;
  portfolios::PortfolioStore portfolios{program, selector};
};
