#include "demo/history_wire.h"

#include <algorithm>

#include "base/bytes.h"
#include "base/inflate.h"
#include "demo/packer.h"

namespace demo::history_wire {
namespace {

using base::AppendField;
using base::PutBytes;

constexpr std::size_t kPartSize = 28, kDaySize = 124;
constexpr std::string_view kParts = "DATA:", kDays = "DATD:", kEndMarker = ".-.-.-";
constexpr int kWrongDate = 1'150'101;

int Number(std::string_view digits) {
  int value = 0;
  for (const char digit : digits.substr(0, 9)) {
    if (digit < '0' || digit > '9') break;
    value = value * 10 + (digit - '0');
  }
  return value;
}

void PutFloat(std::string& row, std::size_t offset, float value) {
  std::string field;
  AppendField(field, value);
  PutBytes(row, offset, field);
}

}  // namespace

std::optional<Request> ParseRequest(std::string_view message) {
  const bool daily = message.starts_with(kDays);
  if (!daily && !message.starts_with(kParts)) return std::nullopt;
  message.remove_prefix(kParts.size());
  Request request{.daily = daily, .code = Code(message.substr(0, 7))};
  message.remove_prefix(std::min(message.size(), request.code.bytes().size()));
  request.date = Number(message);
  if (request.date > 0 && request.date < 700'000) request.date += 1'000'000;
  if (const auto colon = message.find(':'); colon != std::string_view::npos) {
    request.time = Number(message.substr(colon + 1));
  }
  return request;
}

void AppendPart(std::string& rows, const Instrument& state, const HistoryBar& part) {
  AppendField(rows, static_cast<float>(part.date));
  AppendField(rows, static_cast<float>(part.time));
  AppendField(rows, state.Price(part.bar.high));
  AppendField(rows, state.Price(part.bar.low));
  AppendField(rows, state.Price(part.bar.close));
  AppendField(rows, static_cast<float>(part.bar.volume));
  AppendField(rows, state.Price(part.bar.open));
}

void AppendDay(std::string& rows, const Instrument& state, const HistoryBar& day) {
  std::string row(kDaySize, '\0');
  PutFloat(row, 0, static_cast<float>(day.date));
  PutFloat(row, 4, static_cast<float>(day.time));
  PutFloat(row, 24, static_cast<float>(day.bar.volume));
  PutFloat(row, 100, state.Price(day.bar.open));
  PutFloat(row, 104, state.Price(day.bar.close));
  PutFloat(row, 108, state.Price(day.bar.high));
  PutFloat(row, 112, state.Price(day.bar.low));
  rows += row;
}

void AppendEndMarker(std::string& rows) {
  rows += kEndMarker;
  rows.append(kDaySize - kEndMarker.size(), '\0');
}

void AppendEmptyPart(std::string& rows) { rows.append(kPartSize, '\0'); }

void AppendWrongPart(std::string& rows) {
  AppendField(rows, static_cast<float>(kWrongDate));
  rows.append(kPartSize - sizeof(float), '\0');
}

void AppendWrongDay(std::string& rows) {
  AppendField(rows, static_cast<float>(kWrongDate));
  rows.append(kDaySize - sizeof(float), '\0');
}

std::string Reply(bool daily, const Code& code, std::string_view rows) {
  std::string text(daily ? kDays : kParts);
  text += code.bytes();
  text.append(4, ' ');
  text += rows;
  std::string out;
  envelope::AppendFrame(out, base::Compress(text));
  return out;
}

std::string NoMore(const Code& code) {
  std::string out(kParts);
  out += code.bytes();
  out += " END";
  out += envelope::kEnd;
  return out;
}

}  // namespace demo::history_wire
