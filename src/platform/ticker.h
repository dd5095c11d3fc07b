#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "base/palette.h"
#include "platform/control.h"
#include "platform/controls.h"

namespace platform {

/// One text or picture on a ticker. `id` is never given twice in a ticker.
struct TickerItem {
  std::uint32_t id = 0;
  std::string text;
  Picture picture = Picture::none;
  std::string key;
  base::Color color = base::palette::kWhite;
  int spacing = 0;  // pixels to the next item
  std::string tag;
};

/// A strip over which keyed items run from right to left. An item is replaced by taking its key
/// out and putting it in again. Texts are cut at 500 characters for display, and hold no line ends.
/// Past kMaxItems items the oldest goes.
class Ticker : public Control {
 public:
  static constexpr std::size_t kMaxItems = 512;

  /// What the program asks of the movement: its kind, milliseconds a step, and three speeds. A
  /// strip that runs smoothly at a pace of its own may leave them be.
  struct Setup {
    int mode = 2, interval = 50, rest = 96, step = 20, pace = 100;
    friend bool operator==(const Setup&, const Setup&) = default;
  };

  void PonerTexto(std::string_view text, std::string_view key, base::Color color, int spacing,
                  std::string_view tag);
  void PonerPicture(Picture picture, std::string_view key, std::string_view tag);
  /// Takes out every item of that key; false when there is none.
  bool QuitarItem(std::string_view key);

  [[nodiscard]] const std::vector<TickerItem>& items() const { return items_; }
  [[nodiscard]] const Setup& setup() const { return setup_; }
  void set_setup(const Setup& setup) { Set(setup_, setup); }
  [[nodiscard]] bool scrolling() const { return scrolling_; }
  void set_scrolling(bool scrolling) { Set(scrolling_, scrolling); }

 private:
  void Append(TickerItem item);

  std::vector<TickerItem> items_;
  std::uint32_t last_id_ = 0;
  Setup setup_;
  bool scrolling_ = false;
};

}  // namespace platform
