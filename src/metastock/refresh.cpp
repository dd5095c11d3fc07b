#include "metastock/refresh.h"

namespace metastock {
namespace {

constexpr std::string_view kWindowClass = "MetaStockMainWnd";
constexpr std::uint32_t kStillThere = 1042, kFileChanged = 49440;

}  // namespace

bool Refresh::RefreshMetaStock() {
  const platform::OtherWindows::Handle window = windows_.Find(kWindowClass);
  if (window == 0) return true;
  windows_.Send(window, kStillThere);
  MetaWindow = window;
  check_.set_visible(true);
  if (due_ && check_.value() == 1) {
    windows_.SendKeys("%{RIGHT}");
    windows_.SendKeys("%{LEFT}");
    due_ = false;
  }
  return false;
}

void Refresh::Avisar() {
  if (MetaWindow != 0) windows_.Send(MetaWindow, kFileChanged);
}

}  // namespace metastock
