#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "demo/instrument.h"

namespace demo {

/// The calls and puts on one share: five strikes about the price that it had when the series was
/// opened, for two maturities.
class OptionSeries {
 public:
  /// `code` is the three letters of the share, `price` in cents. Appends its instruments to
  /// `instruments`, where they are found from then on.
  OptionSeries(std::string_view code, std::int64_t price, int now,
               std::vector<Instrument>& instruments);

  struct Option {
    std::size_t slot;
    bool call;
    std::int64_t strike;  // in cents
    int months;           // to maturity
  };
  [[nodiscard]] const std::vector<Option>& options() const { return options_; }

  /// What an option is worth while its share costs `price`; both in cents, at least 1.
  [[nodiscard]] static std::int64_t Value(const Option& option, std::int64_t price);

 private:
  std::vector<Option> options_;
};

}  // namespace demo
