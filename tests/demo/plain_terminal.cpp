#include "plain_terminal.h"

#include <algorithm>

#include "base/bytes.h"
#include "base/inflate.h"
#include "base/text.h"
#include "base/val.h"

namespace demo {
namespace {

const std::string kHead("\0AZ[", 4);
const std::string kEnd = "\xFF\xFE";

template <typename T>
T Number(std::string_view record, std::size_t position) {
  T value{};
  return base::ReadField(record, position - 1, value) ? value : T{};
}

std::size_t Count(std::string_view digits) {
  return static_cast<std::size_t>(base::ValInteger<int>(digits).value_or(0));
}

std::array<float, 5> Five(std::string_view record, std::size_t position) {
  std::array<float, 5> numbers;
  for (std::size_t i = 0; i < 5; ++i) numbers[i] = Number<float>(record, position + 4 * i);
  return numbers;
}

}  // namespace

std::string Line(std::string_view text) { return std::string(text) + kEnd; }

std::string LogIn() { return Line("ID:abcdefg.hijklmn") + Line("C:Brizna.Continuo"); }

void PlainTerminal::Clear() {
  messages.clear();
  quoted.clear();
  mastered.clear();
  trades.clear();
  booked.clear();
  times.clear();
  dates.clear();
  texts.clear();
  pages.clear();
  faults.clear();
}

void PlainTerminal::Read(std::string_view bytes) {
  longest_read = std::max(longest_read, bytes.size());
  std::string work = carry_ + std::string(bytes);
  carry_.clear();
  std::size_t frames = 0;
  for (std::size_t head; (head = work.find(kHead)) != std::string::npos; ++frames) {
    const std::size_t close = work.find(']', head);
    const std::size_t length =
        close == std::string::npos ? 0 : Count(work.substr(head + 4, close - head - 4));
    if (close == std::string::npos || work.size() - close - 1 < length) {
      carry_ = work.substr(head);
      work.resize(head);
      break;
    }
    ++framed;
    longest_frame = std::max(longest_frame, length);
    const std::string payload = work.substr(close + 1, length);
    work.erase(head, close + 1 + length - head);
    Unwrap(payload);
  }
  most_frames = std::max(most_frames, frames);
  for (std::size_t start = 0; start < work.size();) {
    const std::size_t end = work.find(kEnd, start + 1);
    if (end == std::string::npos) {
      faults.push_back("unfinished text");
      return;
    }
    ++plain;
    Take(work.substr(start, end - start));
    start = end + 2;
  }
}

void PlainTerminal::Unwrap(std::string payload) {
  if (payload.starts_with("MQ")) {
    ++compressed;
    if (!base::Expand(payload, payload, 1 << 22)) faults.push_back("broken compression");
  }
  if (!payload.starts_with(kHead)) {
    if (!payload.empty()) Take(payload);
    return;
  }
  ++chained;
  const std::size_t close = payload.find(']', 4);
  const std::size_t length = Count(payload.substr(4, close - 4));
  if (length > 32767) faults.push_back("a length that 16 bits don't hold");
  Unwrap(payload.substr(close + 1, length));
  // The next head is looked for from the length, taken as a position.
  const std::size_t next = payload.find(kHead, std::max<std::size_t>(length, 2) - 1);
  Unwrap(next == std::string::npos ? "" : payload.substr(next));
}

void PlainTerminal::Take(const std::string& message) {
  messages.push_back(message);
  const std::string mark = message.substr(0, 3);
  if (message.starts_with("Pag ")) {
    std::string page = message.substr(4);
    if (page.starts_with("MQ") && !base::Expand(page, page, 1 << 22))
      faults.push_back("broken page");
    pages.push_back(page);
  } else if (message.find("Pag") != std::string::npos) {
    faults.push_back("looks like a page");
  } else if (message == "0000" || message == "0003" || mark == "Msg" ||
             message.starts_with("Not:") || base::Mid(message, 4, 3) == "ALE") {
    texts.push_back(message);
  } else if (message.starts_with("ST") && message.size() == 18) {
    times.push_back(Number<float>(message, 3));
    dates.push_back(Number<float>(message, 7));
  } else if (mark == "99,") {
    TakeBatch(message, Count(message.substr(3, 4)), 7);
  } else {
    TakeBatch(message, Count(message.substr(0, 2)), 5);
  }
}

void PlainTerminal::TakeBatch(const std::string& message, std::size_t count, std::size_t start) {
  struct Form {
    std::string_view mark;
    std::size_t size;
    void (PlainTerminal::*take)(std::string_view);
  };
  static constexpr Form kForms[] = {{",1:", 25, &PlainTerminal::TakeTrade},
                                    {",2:", 31, &PlainTerminal::TakeQuote},
                                    {",3:", 91, &PlainTerminal::TakeBook},
                                    {",00", 67, &PlainTerminal::TakeMaster}};
  for (const Form& form : kForms) {
    if (base::Mid(message, 3, 3) != form.mark) continue;
    // A lone 99 in front stands for instruments, a 3 in the fourth place for books.
    if (count == 0 || count > 98 || message.size() != start + count * form.size) break;
    for (std::size_t i = 0; i < count; ++i) {
      (this->*form.take)(std::string_view(message).substr(start + i * form.size, form.size));
    }
    return;
  }
  faults.push_back("unknown message " + message.substr(0, 20));
}

void PlainTerminal::TakeQuote(std::string_view record) {
  const std::string code(record.substr(0, 7));
  quoted.push_back(code);
  if (!table.contains(code)) {
    if (code != "STSV   " && code != "STSC   ") faults.push_back("quote of unknown " + code);
    table[code].name = "ST";
  }
  ReadInstrument& state = table[code];
  state.high = Number<float>(record, 8);
  state.low = Number<float>(record, 12);
  state.last = Number<float>(record, 16);
  state.volume = Number<float>(record, 20);
  state.cash = Number<double>(record, 24);
}

void PlainTerminal::TakeMaster(std::string_view record) {
  const std::string code(record.substr(0, 7));
  mastered.push_back(code);
  table[code] = {.name = std::string(record.substr(47)),
                 .previous = Number<float>(record, 8),
                 .open = Number<float>(record, 28),
                 .high = Number<float>(record, 12),
                 .low = Number<float>(record, 16),
                 .last = Number<float>(record, 20),
                 .volume = Number<float>(record, 24),
                 .cash = Number<double>(record, 32),
                 .date = Number<float>(record, 40),
                 .time = Number<float>(record, 44)};
}

void PlainTerminal::TakeTrade(std::string_view record) {
  trades.push_back({.side = record[0],
                    .code = std::string(record.substr(2, 5)) + "  ",
                    .time = Number<float>(record, 8),
                    .shares = Number<std::int16_t>(record, 12),
                    .buyer = Number<std::int16_t>(record, 14),
                    .seller = Number<std::int16_t>(record, 16),
                    .price = Number<float>(record, 18)});
}

void PlainTerminal::TakeBook(std::string_view record) {
  const std::string code(record.substr(0, 7));
  booked.push_back(code);
  books[code] = {Five(record, 8), Five(record, 28), Five(record, 48), Five(record, 68)};
}

}  // namespace demo
