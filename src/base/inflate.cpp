#include "base/inflate.h"

#define ZLIB_CONST
#include <algorithm>
#include <limits>
#include <zlib.h>

namespace base {
namespace {

constexpr std::string_view kMark = "MQ";

class Inflater {
 public:
  explicit Inflater(std::string_view stream) {
    stream_.next_in = reinterpret_cast<const Bytef*>(stream.data());
    stream_.avail_in = static_cast<uInt>(stream.size());
    ready_ = inflateInit(&stream_) == Z_OK;
  }
  ~Inflater() {
    if (ready_) inflateEnd(&stream_);
  }
  Inflater(const Inflater&) = delete;
  Inflater& operator=(const Inflater&) = delete;

  // Fills `buffer` from `used` on and moves `used`; the state as zlib tells it.
  [[nodiscard]] int Fill(std::string& buffer, std::size_t& used) {
    if (!ready_) return Z_STREAM_ERROR;
    stream_.next_out = reinterpret_cast<Bytef*>(buffer.data()) + used;
    stream_.avail_out = static_cast<uInt>(buffer.size() - used);
    const int state = inflate(&stream_, Z_FINISH);
    used = buffer.size() - stream_.avail_out;
    return state;
  }

 private:
  z_stream stream_{};
  bool ready_ = false;
};

}  // namespace

bool IsCompressed(std::string_view text) { return text.starts_with(kMark); }

bool Expand(std::string_view in, std::string& out, std::size_t limit) {
  constexpr std::size_t kMost = std::numeric_limits<uInt>::max();
  if (!IsCompressed(in) || in.size() > kMost) return false;
  limit = std::min(limit, kMost);
  Inflater inflater(in.substr(kMark.size()));
  // Most market batches are no smaller than a quarter of their text, so one round does for them.
  std::string buffer(std::min(limit, std::max<std::size_t>(in.size() * 4, 2048)), '\0');
  std::size_t used = 0;
  int state = inflater.Fill(buffer, used);
  while (state == Z_BUF_ERROR && used == buffer.size() && used < limit) {
    buffer.resize(std::min(limit, buffer.size() * 4));
    state = inflater.Fill(buffer, used);
  }
  if (state != Z_STREAM_END) return false;
  buffer.resize(used);
  out.swap(buffer);
  return true;
}

std::string Compress(std::string_view in) {
  uLongf size = compressBound(in.size());
  std::string out(kMark);
  out.resize(kMark.size() + size);
  // Can't fail: the bound leaves room for every input.
  compress(reinterpret_cast<Bytef*>(out.data()) + kMark.size(), &size,
           reinterpret_cast<const Bytef*>(in.data()), in.size());
  out.resize(kMark.size() + size);
  return out;
}

}  // namespace base
