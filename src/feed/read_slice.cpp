#include "feed/read_slice.h"

#include <algorithm>
#include <string>

#include "feed/frame.h"

namespace feed {
namespace {

constexpr int kMaxPieces = 49;            // of either kind in one read
constexpr std::size_t kShortMessage = 4;  // with its terminator; ignored at the end of a read

// Steps through `text` as the codec would and remembers the last good end of a read.
class EndFinder {
 public:
  // Ends lie behind the first `carried` bytes and at most at `limit`. Behind `text` come `beyond`
  // bytes more.
  EndFinder(std::string_view text, std::size_t carried, std::size_t limit, std::size_t beyond)
      : text_(text), carried_(carried), limit_(limit), whole_(text.size() + beyond) {}

  // End of the read in `text`, 0 when there is none.
  [[nodiscard]] std::size_t Find() {
    while (Room()) {
      const std::size_t head = text_.find(kCabezaTrama, at_);
      Messages(text_.substr(0, head));
      if (head == std::string_view::npos || !Room() || !Frame(head)) break;
    }
    if (clean_ > 0) return clean_;
    return cut_ > 0 ? cut_ : larger_;
  }

 private:
  // At least one end is looked for, however many pieces the carry holds already.
  [[nodiscard]] bool Room() const {
    const bool full = frames_ == kMaxPieces || messages_ == kMaxPieces;
    return at_ < limit_ && !(full && (clean_ > 0 || cut_ > 0));
  }

  void Messages(std::string_view upto) {
    while (Room()) {
      const std::size_t end = upto.find(kTerminador, at_ + (open_ == 0 ? 1 : 0));
      if (end == std::string_view::npos) break;
      messages_ = std::min(messages_ + 1, kMaxPieces);
      const std::size_t behind = end + kTerminador.size();
      const bool taken = open_ + behind - at_ > kShortMessage;
      at_ = behind;
      open_ = 0;
      Note(taken ? clean_ : cut_);
    }
    open_ += upto.size() - at_;
    at_ = upto.size();
  }

  // False when nothing behind the head can be told.
  bool Frame(std::size_t head) {
    const std::size_t digits = head + kCabezaTrama.size();
    const auto length = ReadFrameLength(text_.substr(digits));
    if (!length || length->longitud <= 0) return false;
    const std::size_t payload = digits + length->payload;
    if (static_cast<std::size_t>(length->longitud) > whole_ - payload) return false;
    at_ = payload + static_cast<std::size_t>(length->longitud);
    frames_ = std::min(frames_ + 1, kMaxPieces);
    if (at_ > limit_) {
      larger_ = at_;
      return false;
    }
    Note(open_ == 0 ? clean_ : cut_);
    return true;
  }

  void Note(std::size_t& end) const {
    if (at_ > carried_ && at_ <= limit_) end = at_;
  }

  std::string_view text_;
  std::size_t carried_, limit_, whole_;
  std::size_t at_ = 0;
  std::size_t open_ = 0;  // bytes of the message that has no terminator yet
  int frames_ = 0, messages_ = 0;
  std::size_t clean_ = 0;   // behind a whole frame or message
  std::size_t cut_ = 0;     // behind a frame inside a message, or a message too short for an end
  std::size_t larger_ = 0;  // behind a frame beyond the limit
};

}  // namespace

std::size_t ReadSlicer::Next(std::string_view cola, std::string_view pending) {
  backlog_ = backlog_ || pending.size() > kMaxRead;
  std::size_t count = std::min(pending.size(), kMaxRead);
  if (backlog_) {
    const std::string_view window = pending.substr(0, kMaxRead);
    const std::string joined = cola.empty() ? std::string{} : std::string(cola).append(window);
    const std::size_t limit = std::min(cola.size() + window.size(), kMaxTrabajo);
    const std::size_t end = EndFinder(cola.empty() ? window : joined, cola.size(), limit,
                                      pending.size() - window.size())
                                .Find();
    if (end > cola.size()) count = end - cola.size();
  }
  if (count == pending.size()) backlog_ = false;
  return count;
}

}  // namespace feed
