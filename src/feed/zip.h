#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace feed {

/// Expansion of texts that begin with "MQ", bounded to 4 MiB a call and 16 MiB a data event. What
/// fails counts as well, by what it may have cost.
class Zip {
 public:
  /// A data event begins.
  void Renovar() { left_ = kPerEvent; }
  /// False leaves `salida` as it was. `entrada` may be (part of) `salida`.
  [[nodiscard]] bool Expandir(std::string_view entrada, std::string& salida);

 private:
  static constexpr std::size_t kPerCall = std::size_t{4} << 20;
  static constexpr std::size_t kPerEvent = std::size_t{16} << 20;

  std::size_t left_ = kPerEvent;
};

}  // namespace feed
