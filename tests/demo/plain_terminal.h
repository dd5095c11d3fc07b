#pragma once

#include <array>
#include <map>
#include <string>
#include <string_view>
#include <vector>

// The reading end of the wire, written a second time and as plainly as can be: no state but the
// text of an unfinished frame, and no care for speed.
namespace demo {

struct ReadInstrument {
  std::string name;
  float previous = 0, open = 0, high = 0, low = 0, last = 0, volume = 0;
  double cash = 0;
  float date = 0, time = 0;
};

struct ReadTrade {
  char side;
  std::string code;  // 7 characters
  float time;
  int shares, buyer, seller;
  float price;
};

struct ReadBook {
  std::array<float, 5> bid_volumes, bids, ask_volumes, asks;
};

/// Decodes a stream. What it takes in since the last Clear() stands in the lists; the table of
/// instruments stays.
class PlainTerminal {
 public:
  /// One read: the pending bytes as they came.
  void Read(std::string_view bytes);
  void Clear();

  std::map<std::string, ReadInstrument> table;  // by 7-character code
  std::map<std::string, ReadBook> books;

  std::vector<std::string> messages;  // as they came out of their envelopes, in order
  std::vector<std::string> quoted;    // codes of quotes, masters, trades and books, in order
  std::vector<std::string> mastered;
  std::vector<ReadTrade> trades;
  std::vector<std::string> booked;
  std::vector<float> times, dates;  // of the clock
  std::vector<std::string> texts;   // other messages that a terminal knows
  std::vector<std::string> pages;   // expanded
  std::vector<std::string> faults;  // what no terminal would understand

  int plain = 0, framed = 0, compressed = 0, chained = 0;  // forms met, over all
  std::size_t longest_frame = 0, most_frames = 0, longest_read = 0;

 private:
  void Unwrap(std::string payload);
  void Take(const std::string& message);
  void TakeBatch(const std::string& message, std::size_t count, std::size_t start);
  void TakeQuote(std::string_view record);
  void TakeMaster(std::string_view record);
  void TakeTrade(std::string_view record);
  void TakeBook(std::string_view record);

  std::string carry_;
};

/// What a terminal sends to log in.
[[nodiscard]] std::string LogIn();
/// `text` with the end mark.
[[nodiscard]] std::string Line(std::string_view text);

}  // namespace demo
