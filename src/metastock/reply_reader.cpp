#include "metastock/reply_reader.h"

namespace metastock {

std::optional<Reply> ReplyReader::Recibir(std::string /*recibido*/) { return std::nullopt; }

}  // namespace metastock
