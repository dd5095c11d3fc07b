#include "qt/ports/x11_windows.h"

namespace qt {
namespace {

class NoWindows : public platform::OtherWindows {
 public:
  [[nodiscard]] Handle Find(std::string_view /*window_class*/) override { return 0; }
  void Send(Handle /*window*/, std::uint32_t /*message*/) override {}
  void SendKeys(std::string_view /*keys*/) override {}
};

}  // namespace

std::unique_ptr<platform::OtherWindows> MakeOtherWindows() { return std::make_unique<NoWindows>(); }

}  // namespace qt
