#include "demo/connection.h"

#include <algorithm>
#include <utility>

#include "base/inflate.h"
#include "base/text.h"
#include "demo/bulletins.h"
#include "demo/pages.h"

namespace demo {
namespace {

using wire::Batches;

constexpr int kCreditPerStep = 4;
constexpr int kLoadCost = 200, kOptionsCost = 20, kPageCost = 10;
constexpr std::string_view kPageRequest = ":PAGS:";
constexpr std::size_t kMastersPerStep = 6 * Batches::kMostRecords;
constexpr std::size_t kMostBooks = 5000;
constexpr std::size_t kBooksPerStep = 80;  // one message of usual length
constexpr std::size_t kLongestMessage = 200;
constexpr std::size_t kMostAhead = 256 * 1024;  // more than this waits: what was asked for does too

}  // namespace

void Connection::Receive(std::string_view bytes) {
  while (!bytes.empty()) {
    const std::string_view some = bytes.substr(0, kMostUnfinished);
    bytes.remove_prefix(some.size());
    input_ += some;
    std::size_t begin = 0, end = 0;
    while ((end = input_.find(envelope::kEnd, std::max(begin, searched_))) != std::string::npos) {
      Handle(std::string_view(input_).substr(begin, end - begin));
      begin = end + envelope::kEnd.size();
    }
    input_.erase(0, begin);
    if (input_.size() > kMostUnfinished) input_.clear();
    searched_ = input_.empty() ? 0 : input_.size() - 1;
  }
}

void Connection::Handle(std::string_view message) {
  if (message.size() > kLongestMessage) return;
  if (message.starts_with("ID:")) {
    known_ = true;
    return;
  }
  if (!known_) return;
  if (message == "C:Brizna.Continuo") {
    Load();
  } else if (message.starts_with("TRZO:")) {
    if (Spend(1)) SendShort("0000");
  } else if (message.starts_with("C:")) {
    AnswerMaster(message.substr(2));
  } else if (message.starts_with("P:")) {
    AnswerBook(message.substr(2));
  } else if (message.starts_with("INIMER:.")) {
    AnswerOptions(message.substr(8));
  } else if (message.starts_with("Msg:")) {
    const std::size_t at = message.find(kPageRequest);
    if (at != std::string_view::npos) AnswerPage(message.substr(at + kPageRequest.size()));
  }
  // "RNET" and acknowledged notices need no answer.
}

void Connection::Load() {
  if (!Spend(kLoadCost)) return;
  const SessionClock& clock = market_.clock();
  SendShort(wire::Clock(clock.time(), clock.date()));
  if (!following_) {
    // Unasked: a terminal that comes back doesn't ask, but renews its books when it hears this.
    SendShort("0003");
    SendShort(bulletins::Greeting());
  }
  following_ = true;
  for (std::size_t slot = 0; slot < market_.listed(); ++slot) {
    if (market_.HasMaster(slot)) Queue(slot);
  }
}

void Connection::AnswerMaster(std::string_view code) {
  const auto slot = market_.Find(base::Trim(code));
  if (slot && market_.HasMaster(*slot) && Spend(1)) Queue(*slot);
}

void Connection::AnswerBook(std::string_view code) {
  const auto slot = market_.Find(base::Trim(code));
  if (!slot || !market_.Book(*slot)) return;
  if (book_places_.size() <= *slot) book_places_.resize(market_.instruments().size());
  std::size_t& place = book_places_[*slot];
  if (place != 0) {
    books_[place - 1].sent = false;
  } else if (books_.size() < kMostBooks) {
    books_.push_back({*slot, 0});
    place = books_.size();
  }
}

// ".C" or ".P" and the share's code; the dot has been taken off.
void Connection::AnswerOptions(std::string_view wish) {
  if (wish.empty() || (wish.front() != 'C' && wish.front() != 'P') || !Spend(kOptionsCost)) return;
  for (const std::size_t slot :
       market_.OpenOptions(base::Trim(wish.substr(1)), wish.front() == 'C')) {
    Queue(slot);
  }
}

// Compressed behind the mark; now and then it goes as it is, which terminals understand as well.
void Connection::AnswerPage(std::string_view number) {
  constexpr int kPlainEach = 4;
  if (!Spend(kPageCost)) return;
  const std::string page = pages::Make(market_, number);
  ++pages_;
  const std::string message = "Pag " + (pages_ % kPlainEach == 0 ? page : base::Compress(page));
  // In a frame: a text as long as this would be lost when it comes in two reads.
  std::string packed;
  packer_.Pack({&message, 1}, packed);
  Send(packed);
}

void Connection::Queue(std::size_t slot) {
  if (queued_.size() <= slot) queued_.resize(market_.instruments().size());
  if (queued_[slot]) return;
  queued_[slot] = true;
  queue_.push_back(slot);
}

bool Connection::Spend(int cost) {
  if (credit_ < cost) return false;
  credit_ -= cost;
  return true;
}

void Connection::Step(const Events& events, std::string_view clock, std::string_view common) {
  credit_ = std::min(credit_ + kCreditPerStep, kMostCredit);
  if (!following_) return;
  Send(clock);
  if (events.day) {
    for (std::size_t slot = 0; slot < told_.size(); ++slot) {
      if (told_[slot]) Queue(slot);
    }
  }
  const bool was_loaded = loaded_;
  SendMasters();
  // What moved while the last records went out stands in them.
  if (was_loaded) {
    Send(common);
    SendOptions(events);
  }
  SendBooks();
}

void Connection::SendMasters() {
  if (queue_.empty() || output_.size() > kMostAhead) return;
  Batches batches(Batches::Kind::kInstruments);
  told_.resize(market_.instruments().size());
  for (std::size_t n = 0; n < kMastersPerStep && !queue_.empty(); ++n, queue_.pop_front()) {
    const std::size_t slot = queue_.front();
    queued_[slot] = false;
    told_[slot] = true;
    batches.Add([&](std::string& out) {
      wire::AppendMaster(out, market_.instruments()[slot], market_.clock().date());
    });
  }
  std::vector<std::string> messages;
  batches.TakeInto(messages);
  packer_.PackSmall(messages, output_);
  if (queue_.empty()) loaded_ = true;
}

void Connection::SendOptions(const Events& events) {
  Batches batches(Batches::Kind::kQuotes);
  for (const Events::OptionQuote& option : events.options) {
    if (option.slot >= told_.size() || !told_[option.slot]) continue;
    batches.Add([&](std::string& out) { wire::AppendQuote(out, option.quote); });
  }
  // The opening price stands in the record only.
  for (const std::size_t slot : events.opened) {
    if (slot >= market_.listed() && slot < told_.size() && told_[slot]) Queue(slot);
  }
  SendBatches(batches);
}

void Connection::SendBooks() {
  if (output_.size() > kMostAhead) return;
  Batches batches(Batches::Kind::kBooks);
  std::size_t sent = 0;
  for (std::size_t n = 0; n < books_.size() && sent < kBooksPerStep; ++n) {
    Subscription& book = books_[next_book_ % books_.size()];
    ++next_book_;
    const std::uint32_t version = market_.BookVersion(book.slot);
    if (book.sent && book.version == version) continue;
    book = {book.slot, version, true};
    ++sent;
    batches.Add([&](std::string& out) {
      wire::AppendBook(out, market_.instruments()[book.slot], *market_.Book(book.slot));
    });
  }
  SendBatches(batches);
}

void Connection::SendBatches(Batches& batches) {
  std::vector<std::string> messages;
  batches.TakeInto(messages);
  std::string packed;
  packer_.Pack(messages, packed);
  Send(packed);
}

void Connection::SendShort(std::string_view message) {
  std::string packed;
  packer_.PackShort(message, packed);
  Send(packed);
}

void Connection::Send(std::string_view bytes) {
  if (output_.size() + bytes.size() <= kMostPending) output_ += bytes;
}

std::string Connection::TakeOutput() { return std::exchange(output_, {}); }

}  // namespace demo
