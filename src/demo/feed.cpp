#include "demo/feed.h"

#include <algorithm>
#include <vector>

#include "demo/wire.h"

namespace demo {
namespace {

constexpr int kLongestAdvance = 3'600'000;

}  // namespace

Feed::Feed(const FeedOptions& options) : market_(options), packer_(options.seed) {}

int Feed::Connect() {
  connections_.try_emplace(++last_id_, market_, packer_);
  return last_id_;
}

void Feed::Disconnect(int id) { connections_.erase(id); }

void Feed::Receive(int id, std::string_view bytes) {
  if (const auto found = connections_.find(id); found != connections_.end()) {
    found->second.Receive(bytes);
  }
}

void Feed::Advance(int milliseconds) {
  owed_ms_ += std::clamp(milliseconds, 0, kLongestAdvance);
  for (; owed_ms_ >= SessionClock::kStepMs; owed_ms_ -= SessionClock::kStepMs) Step();
}

void Feed::Step() {
  market_.Step(events_);
  if (connections_.empty()) return;
  std::string clock;
  if (events_.second) {
    packer_.PackShort(wire::Clock(market_.clock().time(), market_.clock().date()), clock);
  }
  const std::string common = PackCommon();
  for (auto& [id, connection] : connections_) connection.Step(events_, clock, common);
}

// Trades before the quotes that they explain, and last the records with the opening prices.
std::string Feed::PackCommon() {
  wire::Batches trades(wire::Batches::Kind::kTrades);
  for (const TradeEvent& trade : events_.trades) {
    trades.Add([&](std::string& out) { wire::AppendTrade(out, trade); });
  }
  wire::Batches quotes(wire::Batches::Kind::kQuotes);
  for (const QuoteEvent& quote : events_.quotes) {
    quotes.Add([&](std::string& out) { wire::AppendQuote(out, quote); });
  }
  wire::Batches opened(wire::Batches::Kind::kInstruments);
  for (const std::size_t slot : events_.opened) {
    if (slot >= market_.listed() || !market_.HasMaster(slot)) continue;
    opened.Add([&](std::string& out) {
      wire::AppendMaster(out, market_.instruments()[slot], market_.clock().date());
    });
  }
  std::vector<std::string> messages;
  trades.TakeInto(messages);
  quotes.TakeInto(messages);
  opened.TakeInto(messages);
  std::string packed;
  packer_.Pack(messages, packed);
  for (const std::string& bulletin : events_.bulletins) packer_.PackShort(bulletin, packed);
  return packed;
}

bool Feed::HasOutput(int id) const {
  const auto found = connections_.find(id);
  return found != connections_.end() && found->second.HasOutput();
}

std::string Feed::TakeOutput(int id) {
  const auto found = connections_.find(id);
  return found == connections_.end() ? std::string() : found->second.TakeOutput();
}

}  // namespace demo
