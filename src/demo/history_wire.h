#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "demo/history.h"
#include "demo/instrument.h"

// Messages of the data channel: requests as terminals send them, replies as they read them.
namespace demo::history_wire {

struct Request {
  bool daily = false;
  Code code;
  int date = 0;  // the last one known, with the years from 1900; 0 for none
  int time = 0;  // of an intraday request
};
/// A message without its terminator; nothing for one that is no request. Numbers that are none
/// read as 0, years of two digits up to 69 as those of 2000 on.
[[nodiscard]] std::optional<Request> ParseRequest(std::string_view message);

// One row each, appended. Prices are in units of `state`.
void AppendPart(std::string& rows, const Instrument& state, const HistoryBar& part);
void AppendDay(std::string& rows, const Instrument& state, const HistoryBar& day);
/// Ends the days of a share.
void AppendEndMarker(std::string& rows);

// Rows that no terminal takes, appended.
/// Passed over, unless three follow one another: then a terminal asks from the row before on.
void AppendEmptyPart(std::string& rows);
/// These make it ask from the row before on.
void AppendWrongPart(std::string& rows);
void AppendWrongDay(std::string& rows);

/// A compressed frame.
[[nodiscard]] std::string Reply(bool daily, const Code& code, std::string_view rows);
/// There are no further parts. The only message that stands without a frame.
[[nodiscard]] std::string NoMore(const Code& code);

}  // namespace demo::history_wire
