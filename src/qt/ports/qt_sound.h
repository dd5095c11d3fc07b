#pragma once

#include <QApplication>

#include "platform/ports.h"

namespace qt {

class QtSound : public platform::Sound {
 public:
  void Beep() override { QApplication::beep(); }
};

}  // namespace qt
