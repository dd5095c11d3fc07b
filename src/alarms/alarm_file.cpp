#include "alarms/alarm_file.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "base/ansi.h"
#include "base/masks.h"
#include "base/text.h"
#include "base/val.h"

namespace alarms {
namespace {

constexpr std::string_view kLineEnd = "\r\n", kBlanks = " \t";

void AppendText(std::string& out, std::string_view bytes) {
  std::string line = base::OneLine(bytes);
  std::replace(line.begin(), line.end(), '"', '\'');
  out.append("\"").append(line).append("\"").append(kLineEnd);
}

template <typename Number>
void AppendNumber(std::string& out, Number value) {
  out.append(base::NumberText(value)).append(kLineEnd);
}

bool IsNumber(std::string_view line) {
  if (line.starts_with('-') || line.starts_with('+')) line.remove_prefix(1);
  if (line.starts_with('.')) line.remove_prefix(1);
  return !line.empty() && line[0] >= '0' && line[0] <= '9';
}

// The values of a file, one after another; nothing for one that isn't of its kind, and at the end.
class Values {
 public:
  explicit Values(std::string_view text) : rest_(text) {}

  std::optional<std::string_view> Text() {
    auto line = Next();
    if (line && line->starts_with('"')) line = line->substr(1, line->find('"', 1) - 1);
    return line;
  }
  /// The text of a number.
  std::optional<std::string_view> Number() {
    const auto line = Next();
    return line && IsNumber(*line) ? line : std::nullopt;
  }
  std::optional<float> Single() {
    const auto line = Number();
    return line ? base::ValFloat(*line) : std::nullopt;
  }
  std::optional<std::int16_t> Small() {
    const auto line = Number();
    return line ? base::ValInteger<std::int16_t>(*line) : std::nullopt;
  }

 private:
  // The next line with something in it, less the blanks at its ends.
  std::optional<std::string_view> Next() {
    while (!rest_.empty()) {
      const std::size_t end = std::min(rest_.find_first_of(kLineEnd), rest_.size());
      const std::string_view line = rest_.substr(0, end);
      rest_.remove_prefix(std::min(end + 1, rest_.size()));
      const std::size_t first = line.find_first_not_of(kBlanks);
      if (first == std::string_view::npos) continue;
      return line.substr(first, line.find_last_not_of(kBlanks) - first + 1);
    }
    return std::nullopt;
  }

  std::string_view rest_;
};

std::size_t Count(Values& values) {
  const auto line = values.Number();
  const auto count = line ? base::Val(*line) : std::nullopt;
  if (!count) return 0;
  return static_cast<std::size_t>(std::clamp(std::nearbyint(*count), 0.0, double{kMaxAlarmas}));
}

std::optional<Alarma> Next(Values& values) {
  const auto code = values.Text(), order = values.Text();
  const auto value = values.Single(), first_value = values.Single();
  const auto condition = values.Small(), kind = values.Small();
  if (!code || !order || !value || !first_value || !condition || !kind) return std::nullopt;
  return Alarma{
      .AlarmaCodigo = store::Codigo(*code),
      .AlarmaValor = *value,
      .AlarmaValorInicial = *first_value,
      .AlarmaTipo = *kind,
      .AlarmaCondicion = *condition,
      .AlarmaOrden = base::AnsiToUtf8(base::OneLine(order->substr(0, kMaxOrden))),
  };
}

}  // namespace

std::string EncodeAlarms(std::span<const Alarma> alarms) {
  std::string out;
  AppendNumber(out, static_cast<std::int64_t>(alarms.size()));
  for (const Alarma& alarm : alarms) {
    AppendText(out, alarm.AlarmaCodigo.bytes());
    AppendText(out, base::Utf8ToAnsi(alarm.AlarmaOrden));
    AppendNumber(out, alarm.AlarmaValor);
    AppendNumber(out, alarm.AlarmaValorInicial);
    AppendNumber(out, std::int64_t{alarm.AlarmaCondicion});
    AppendNumber(out, std::int64_t{alarm.AlarmaTipo});
  }
  return out;
}

std::vector<Alarma> DecodeAlarms(std::string_view text) {
  Values values(text);
  const std::size_t count = Count(values);
  std::vector<Alarma> alarms;
  while (alarms.size() < count) {
    auto alarm = Next(values);
    if (!alarm) break;
    alarms.push_back(std::move(*alarm));
  }
  return alarms;
}

}  // namespace alarms
