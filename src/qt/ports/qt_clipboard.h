#pragma once

#include "platform/ports.h"

namespace qt {

class QtClipboard : public platform::Clipboard {
 public:
  void Clear() override;
  void SetText(std::string_view utf8) override;
};

}  // namespace qt
