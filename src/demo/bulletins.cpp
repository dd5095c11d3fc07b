#include "demo/bulletins.h"

#include <cstdlib>

#include "base/ansi.h"

namespace demo::bulletins {
namespace {

std::string TwoDigits(std::int64_t number) { return std::to_string(100 + number % 100).substr(1); }

std::string Hundredths(std::int64_t number) {
  return (number < 0 ? "-" : "") + std::to_string(std::abs(number) / 100) + "." +
         TwoDigits(std::abs(number));
}

std::string HourAndMinute(const SessionClock& clock) {
  return TwoDigits(clock.second() / 3600) + ":" + TwoDigits(clock.second() / 60 % 60);
}

// Lines with the same three letters and colour replace one another on the ticker.
std::string Line(std::string_view key, std::string_view colour, const std::string& text) {
  return base::Utf8ToAnsi(std::string(key) + "ALE" + std::string(colour) + ":" + text);
}

std::string Day(const SessionClock& clock) {
  return TwoDigits(clock.date()) + "/" + TwoDigits(clock.date() / 100) + "/" +
         TwoDigits(clock.date() / 10000);
}

std::string IndexLine(const SessionClock& clock, const Instrument& index) {
  const std::int64_t change = index.last * 10'000 / index.previous - 10'000;
  return Line("IBX", change < 0 ? "12" : "10",
              "IBEX 35 A LAS " + HourAndMinute(clock) + ": " + Hundredths(index.last) + " (" +
                  Hundredths(change) + "%)");
}

}  // namespace

std::string Greeting() {
  return Line("DEM", "14", "MERCADO DE DEMOSTRACIÓN: TODOS LOS DATOS SON SIMULADOS");
}

void Announce(const SessionClock& clock, const Instrument& index, bool notices,
              std::vector<std::string>& messages) {
  const int second = clock.second();
  if (second == SessionClock::kOpening) {
    messages.push_back(Line("SES", "11", "ABIERTA LA SESIÓN DEL " + Day(clock)));
  }
  if (second == SessionClock::kClose) {
    messages.push_back(Line("SES", "11", "CERRADA LA SESIÓN DEL " + Day(clock)));
  }
  if (second % 1800 == 0 && index.is_open()) messages.push_back(IndexLine(clock, index));
  if (second % 1200 == 300) {
    messages.push_back("Msg" + std::to_string(1000 + second / 1200).substr(1) + "CONTROL      " +
                       "DEMOSTRACION " + Day(clock) + " " + HourAndMinute(clock));
  }
  if (notices && second == SessionClock::kOpening + 300) {
    messages.push_back(base::Utf8ToAnsi("Not:" + TwoDigits(clock.date() / 100) +
                                        TwoDigits(clock.date()) +
                                        " Sesión simulada: estos precios no existen."));
  }
}

}  // namespace demo::bulletins
