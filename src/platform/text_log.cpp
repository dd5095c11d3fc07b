#include "platform/text_log.h"

#include "base/text.h"

namespace platform {

void TextLog::AddLine(std::string_view utf8) {
  lines_.push_back(base::OneLine(base::CutUtf8(utf8, kMaxLine)));
  if (lines_.size() > kMaxLines) lines_.pop_front();
  ++end_;
  Touch();
}

}  // namespace platform
