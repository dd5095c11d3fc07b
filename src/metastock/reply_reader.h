#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "feed/zip.h"
#include "store/instrument.h"

namespace metastock {

/// What the server has said on the data channel.
struct Reply {
  enum class Kind {
    intraday,  // rows of 28 bytes
    daily,     // rows of 124 bytes
    no_more,   // of an intraday entry there is nothing else
  };
  Kind kind = Kind::intraday;
  store::Codigo code;
  std::string rows;
};

/// Turns the reads of the data channel into replies: compressed frames of the feed's form, and one
/// unframed text, which must stand alone. An incomplete frame is kept for the next read, up to 4
/// MiB. What is no reply is left out, and a reply ends its read: what stands behind it is lost. Any
/// bytes are fine.
class ReplyReader {
 public:
  static constexpr std::size_t kMostCarried = std::size_t{4} << 20;

  /// The reply of this read, if there is one.
  [[nodiscard]] std::optional<Reply> Recibir(std::string recibido);
  [[nodiscard]] const std::string& DataCarry() const { return data_carry_; }

 private:
  [[nodiscard]] std::optional<Reply> CortarTramas(std::string_view trabajo, std::size_t pos);
  [[nodiscard]] std::optional<Reply> LeerTrama(std::string_view payload);
  void Guardar(std::string_view text, std::size_t needed);

  feed::Zip zip_;
  std::string data_carry_;
  std::size_t needed_ = 0;  // bytes that data_carry_ needs to hold a whole frame; 0 isn't known
};

}  // namespace metastock
