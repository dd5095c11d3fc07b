#include "demo/data_channel.h"

#include <algorithm>
#include <tuple>
#include <vector>

#include "base/text.h"
#include "demo/packer.h"

namespace demo {
namespace {

constexpr std::size_t kFewestToSpoil = 6;

// From the last row at or before the moment asked for: terminals leave out the first one.
std::vector<HistoryBar> Since(std::vector<HistoryBar> parts, int date, int time) {
  const auto after = std::find_if(parts.begin(), parts.end(), [&](const HistoryBar& part) {
    return std::tie(part.date, part.time) > std::tie(date, time);
  });
  if (after - parts.begin() > 1) parts.erase(parts.begin(), after - 1);
  return parts;
}

void AppendBadPart(std::string& rows, std::size_t slot) {
  if (slot % 3 == 0) return history_wire::AppendWrongPart(rows);
  for (std::size_t n = slot % 3 == 1 ? 1 : 3; n > 0; --n) history_wire::AppendEmptyPart(rows);
}

}  // namespace

void DataChannel::Receive(std::string_view bytes) {
  while (!bytes.empty()) {
    const std::string_view some = bytes.substr(0, kMostUnfinished);
    bytes.remove_prefix(some.size());
    input_ += some;
    std::size_t begin = 0, end = 0;
    while ((end = input_.find(envelope::kEnd, begin)) != std::string::npos) {
      Handle(std::string_view(input_).substr(begin, end - begin));
      begin = end + envelope::kEnd.size();
    }
    input_.erase(0, begin);
    if (input_.size() > kMostUnfinished) input_.clear();
  }
}

void DataChannel::Handle(std::string_view message) {
  if (requests_.size() == kMostWaiting) return;
  if (const auto request = history_wire::ParseRequest(message)) requests_.push_back(*request);
}

std::optional<std::string> DataChannel::Answer() {
  const Request request = requests_.front();
  if (MayFail(request) && outages_.Due()) return std::nullopt;
  requests_.pop_front();
  const auto slot = history_.market().Find(request.code.trimmed());
  return request.daily ? AnswerDays(request, slot) : AnswerParts(request, slot);
}

// Terminals come back by themselves for the parts of the share that they are at, and for nothing
// else.
bool DataChannel::MayFail(const Request& request) const {
  return !request.daily && requests_.size() == 1 && !unfinished_;
}

std::string DataChannel::AnswerParts(const Request& request, std::optional<std::size_t> slot) {
  if (unfinished_ == request.code) unfinished_.reset();
  if (!slot) return history_wire::NoMore(request.code);
  std::vector<HistoryBar> parts = Since(history_.Parts(*slot), request.date, request.time);
  if (parts.size() < 2) return history_wire::NoMore(request.code);
  const bool is_long = parts.size() > kMostParts;
  if (is_long) {
    parts.resize(kMostParts);
    unfinished_ = request.code;
  }
  // The rest of a long reply is asked for from its end, so it must come to its end.
  const bool bad = !is_long && parts.size() >= kFewestToSpoil && Spoils(*slot, false);
  const Instrument& state = history_.market().instruments()[*slot];
  std::string rows;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    if (bad && i == parts.size() / 2) AppendBadPart(rows, *slot);
    history_wire::AppendPart(rows, state, parts[i]);
  }
  return history_wire::Reply(false, request.code, rows);
}

std::string DataChannel::AnswerDays(const Request& request, std::optional<std::size_t> slot) {
  std::string rows;
  if (slot) {
    std::vector<HistoryBar> days = history_.Days(*slot);
    std::erase_if(days, [&](const HistoryBar& day) { return day.date < request.date; });
    const bool bad = days.size() >= kFewestToSpoil && Spoils(*slot, true);
    const Instrument& state = history_.market().instruments()[*slot];
    for (std::size_t i = 0; i < days.size(); ++i) {
      // A terminal asks from its last bar on again, so it mustn't have stored a new one.
      if (bad && i == 1) history_wire::AppendWrongDay(rows);
      history_wire::AppendDay(rows, state, days[i]);
    }
  }
  if (rows.empty() || *slot % 2 == 0) history_wire::AppendEndMarker(rows);
  return history_wire::Reply(true, request.code, rows);
}

// Every fourth share, once in each kind of reply.
bool DataChannel::Spoils(std::size_t slot, bool daily) {
  return slot % 4 == (daily ? 1 : 2) && spoiled_.emplace(slot, daily).second;
}

}  // namespace demo
