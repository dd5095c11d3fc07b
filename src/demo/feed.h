#pragma once

#include <map>
#include <string>
#include <string_view>

#include "demo/connection.h"
#include "demo/events.h"
#include "demo/feed_options.h"
#include "demo/market.h"
#include "demo/packer.h"

namespace demo {

/// One simulated market and the server's side of any number of terminals. Bytes go in, bytes come
/// out, and time passes only in Advance(); the same options and calls give the same bytes. A client
/// may send anything (see Connection); calls with an unknown id do nothing.
class Feed {
 public:
  explicit Feed(const FeedOptions& options);

  /// The number of a new connection, from 1 on, never used again.
  [[nodiscard]] int Connect();
  void Disconnect(int id);
  /// Bytes of the client as they come, cut anywhere.
  void Receive(int id, std::string_view bytes);
  /// Time goes on for the market and all connections, by an hour at most in one call; what is below
  /// a step of the clock is kept for the next one.
  void Advance(int milliseconds);

  [[nodiscard]] bool HasOutput(int id) const;
  /// What to send next, in order; "" when there is nothing.
  [[nodiscard]] std::string TakeOutput(int id);

  [[nodiscard]] const Market& market() const { return market_; }

 private:
  void Step();
  [[nodiscard]] std::string PackCommon();

  Market market_;
  Packer packer_;
  Events events_;
  std::map<int, Connection> connections_;
  int last_id_ = 0;
  int owed_ms_ = 0;
};

}  // namespace demo
