#include "demo/packer.h"

#include <algorithm>

#include "base/inflate.h"

namespace demo {
namespace {

constexpr std::size_t kLongestChain = 8000;
constexpr std::size_t kLongestShrunk = 14'000;  // before compression, which takes a third at least
constexpr std::size_t kMostChained = 4;
constexpr std::size_t kBusy = 8;  // messages at once, from where on compression is rare

// How many of the first messages go into one chain.
std::size_t Chainable(std::span<const std::string> messages, std::size_t longest) {
  std::size_t count = 0, bytes = 0;
  for (const std::string& message : messages) {
    bytes += message.size() + envelope::kHead.size() + 6;
    if (bytes > longest || count == kMostChained || !envelope::FitsChain(message)) break;
    ++count;
  }
  return count;
}

}  // namespace

namespace envelope {

void AppendPlain(std::string& out, std::string_view message) {
  out += message;
  out += kEnd;
}

bool FitsPlain(std::string_view message) {
  return !message.empty() && message.front() != '\0' &&
         message.find(kEnd) == std::string_view::npos && FitsChain(message);
}

void AppendFrame(std::string& out, std::string_view payload) {
  out += kHead;
  out += std::to_string(payload.size());
  out += ']';
  out += payload;
}

std::string Chain(std::span<const std::string> messages) {
  std::string chain;
  for (const std::string& message : messages) AppendFrame(chain, message);
  return chain;
}

bool FitsChain(std::string_view message) { return message.find(kHead) == std::string_view::npos; }

}  // namespace envelope

void Packer::Pack(std::span<const std::string> messages, std::string& out) {
  const bool busy = messages.size() > kBusy;
  while (!messages.empty()) {
    const bool may_compress = !busy || random_.OneIn(8);
    std::size_t count = random_.OneIn(3) ? Chainable(messages, kLongestChain) : 1;
    if (count < 2) {
      count = 1;
      PackOne(messages.front(), may_compress, out);
    } else {
      const std::string chain = envelope::Chain(messages.first(count));
      const bool small = may_compress && random_.OneIn(2);
      envelope::AppendFrame(out, small ? base::Compress(chain) : chain);
    }
    messages = messages.subspan(count);
  }
}

void Packer::PackSmall(std::span<const std::string> messages, std::string& out) {
  while (!messages.empty()) {
    const std::size_t count = std::max<std::size_t>(1, Chainable(messages, kLongestShrunk));
    const auto some = messages.first(count);
    envelope::AppendFrame(out, count == 1 ? base::Compress(some.front()) : ChainSmall(some));
    messages = messages.subspan(count);
  }
}

void Packer::PackShort(std::string_view message, std::string& out) {
  if (envelope::FitsPlain(message) && !random_.OneIn(8)) {
    envelope::AppendPlain(out, message);
  } else {
    envelope::AppendFrame(out, message);
  }
}

// A chain compressed as a whole, or one of compressed messages.
std::string Packer::ChainSmall(std::span<const std::string> messages) {
  if (random_.OneIn(2)) {
    std::vector<std::string> each;
    for (const std::string& message : messages) each.push_back(base::Compress(message));
    if (std::all_of(each.begin(), each.end(), envelope::FitsChain)) return envelope::Chain(each);
  }
  return base::Compress(envelope::Chain(messages));
}

void Packer::PackOne(const std::string& message, bool may_compress, std::string& out) {
  const bool small = may_compress && random_.OneIn(8);
  envelope::AppendFrame(out, small ? base::Compress(message) : message);
}

}  // namespace demo
