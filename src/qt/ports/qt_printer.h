#pragma once

#include "platform/ports.h"

namespace qt {

/// Prints by way of the system's print dialog, on paper or into a file.
class QtPrinter : public platform::Printer {
 public:
  void Print(const platform::Grid& grid, std::string_view title) override;
};

}  // namespace qt
