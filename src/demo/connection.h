#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "demo/events.h"
#include "demo/market.h"
#include "demo/packer.h"
#include "demo/wire.h"

namespace demo {

/// The server's side of one terminal: who it is, what it has been told and what it asked for. The
/// market and the packer outlive it. Any bytes may come: unknown messages are ignored, unterminated
/// text past 64 KiB is dropped, requests are answered at a bounded rate, records and books wait
/// while 256 KiB are still to be sent, and what moves is left out while 8 MiB are.
class Connection {
 public:
  static constexpr std::size_t kMostUnfinished = 64 * 1024;
  static constexpr std::size_t kMostPending = 8 * 1024 * 1024;
  static constexpr int kMostCredit = 400;

  Connection(Market& market, Packer& packer) : market_(market), packer_(packer) {}

  void Receive(std::string_view bytes);
  /// After a step of the market: `common` is what every terminal gets of it, ready to send.
  void Step(const Events& events, std::string_view clock, std::string_view common);

  [[nodiscard]] bool HasOutput() const { return !output_.empty(); }
  [[nodiscard]] std::string TakeOutput();

 private:
  void Handle(std::string_view message);
  void Load();
  void AnswerMaster(std::string_view code);
  void AnswerBook(std::string_view code);
  void AnswerOptions(std::string_view wish);
  void AnswerPage(std::string_view number);
  void Queue(std::size_t slot);
  [[nodiscard]] bool Spend(int cost);

  void SendMasters();
  void SendOptions(const Events& events);
  void SendBooks();
  void Send(std::string_view bytes);
  void SendShort(std::string_view message);
  void SendBatches(wire::Batches& batches);

  struct Subscription {
    std::size_t slot;
    std::uint32_t version;  // of the book sent last
    bool sent = false;
  };

  Market& market_;
  Packer& packer_;
  std::string input_;
  std::size_t searched_ = 0;  // of input_, without finding an end
  std::string output_;
  bool known_ = false;               // has logged in
  bool following_ = false;           // has asked for the market
  bool loaded_ = false;              // has all records and so gets what moves
  int credit_ = kMostCredit;         // for requests; comes back with time
  unsigned pages_ = 0;               // sent
  std::deque<std::size_t> queue_;    // records to send
  std::vector<bool> queued_, told_;  // by slot: stands in queue_; has been sent
  std::vector<Subscription> books_;
  std::vector<std::size_t> book_places_;  // by slot: place in books_ from 1 on, 0 for none
  std::size_t next_book_ = 0;
};

}  // namespace demo
