#include "metastock/reply_reader.h"

#include <cstdint>
#include <utility>

#include "base/text.h"
#include "feed/frame.h"

namespace metastock {
namespace {

constexpr std::string_view kIntraday = "DATA:", kDaily = "DATD:", kEnd = "END";
constexpr std::size_t kCodeAt = 6, kCodeSize = 7, kEndAt = 14, kRowsAt = 17;

store::Codigo CodeIn(std::string_view text) {
  return store::Codigo(base::Mid(text, kCodeAt, kCodeSize));
}

std::optional<Reply> NoMore(std::string_view text) {
  if (!text.starts_with(kIntraday) || base::Mid(text, kEndAt, kEnd.size()) != kEnd) return {};
  return Reply{Reply::Kind::no_more, CodeIn(text), {}};
}

}  // namespace

std::optional<Reply> ReplyReader::Recibir(std::string recibido) {
  zip_.Renovar();
  std::string trabajo = std::exchange(data_carry_, {}).append(recibido);
  const std::size_t needed = std::exchange(needed_, 0);
  if (trabajo.size() < needed) {
    data_carry_ = std::move(trabajo);
    needed_ = needed;
    return {};
  }
  const std::size_t pos = trabajo.find(feed::kCabezaTrama);
  return pos == std::string::npos ? NoMore(trabajo) : CortarTramas(trabajo, pos);
}

std::optional<Reply> ReplyReader::CortarTramas(std::string_view trabajo, std::size_t pos) {
  constexpr std::size_t kHead = feed::kCabezaTrama.size();
  std::size_t from = 0;  // what an incomplete frame keeps begins here
  while (pos != std::string_view::npos) {
    const auto length = feed::ReadFrameLength(trabajo.substr(pos + kHead));
    if (!length) {
      Guardar(trabajo.substr(pos), 0);
      return {};
    }
    if (length->longitud <= 0) return {};
    const auto longitud = static_cast<std::uint64_t>(length->longitud);
    const std::size_t begin = pos + kHead + length->payload;
    if (longitud > trabajo.size() - begin) {
      if (longitud <= kMostCarried) Guardar(trabajo.substr(from), begin - from + longitud);
      return {};
    }
    if (auto reply = LeerTrama(trabajo.substr(begin, longitud))) return reply;
    from = begin + longitud;
    pos = trabajo.find(feed::kCabezaTrama, from);
  }
  return {};
}

std::optional<Reply> ReplyReader::LeerTrama(std::string_view payload) {
  std::string text;
  if (!zip_.Expandir(payload, text)) return {};
  const bool daily = text.starts_with(kDaily);
  if (!daily && !text.starts_with(kIntraday)) return {};
  Reply reply{daily ? Reply::Kind::daily : Reply::Kind::intraday, CodeIn(text), {}};
  text.erase(0, kRowsAt - 1);
  reply.rows = std::move(text);
  return reply;
}

void ReplyReader::Guardar(std::string_view text, std::size_t needed) {
  if (text.size() > kMostCarried || needed > kMostCarried) return;
  data_carry_ = text;
  needed_ = needed;
}

}  // namespace metastock
