#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "charts/registro.h"
#include "platform/control.h"
#include "store/instrument.h"

namespace charts {

/// A point of a line: x in seconds of session time, y in the unit of the prices. Session time runs
/// from the midnight before the first record, and each further date that the chart hears of adds
/// one day. It never goes back within a series. What comes before the market's clock is heard
/// stands at the first time that comes.
struct Punto {
  double x = 0, y = 0;
};

/// What a line of the chart is drawn from. Points come in order of x. They are only ever added at
/// the end, unless `generation` has changed: then everything may be different.
struct Linea {
  std::string nombre;  // code, or "Media 20"
  std::vector<Punto> puntos;
  unsigned generation = 0;
};

/// What was traded in one minute; x is its beginning. The last one grows.
struct Barra {
  double x = 0;
  double volumen = 0;
};

/// The part of the chart that is seen, in the units of the points.
struct Vista {
  double desde = 0, hasta = 1;
  double minimo = 0, maximo = 1;  // of the prices
  double volumen = 1;             // the tallest bar
};

/// What lies under the pointer.
struct Senalado {
  Punto punto;  // the record's own place
  Registro record;
  double negociado;  // since the record before
};

/// The chart control: series of records as lines over session time, moving averages of the first
/// one, its volume by minute below. Holds the data and what of it is seen; the screen only draws.
/// Numbers may be anything: a record whose close is no number is left out, and what was traded
/// until then counts with the next. A series keeps its last 262,144 records, or up to a quarter
/// fewer. What is added shows with the next `ShowFeed`.
class Chart : public platform::Control {
 public:
  /// Commands of its bar, by number.
  static constexpr int kMedia = 10, kAjustar = 550;
  static constexpr int kMaxSeries = 16, kMaxMedias = 16, kMaxPeriodos = 10000;
  static constexpr int kMaxDecimals = 6;

  Chart();
  ~Chart() override;

  /// A series has been started for this code: its past is wanted.
  std::function<void(const store::Codigo& code)> on_data;
  /// The user has picked a command.
  std::function<void(int command)> on_command;
  /// The user has asked for the bar, or has put it away.
  std::function<void()> on_bar_shown, on_bar_hidden;

  void AddSerie(const store::Codigo& code);
  /// Average of the closes of so many records (1 to 10000) of the first series; it begins where
  /// there are enough of them.
  void AddMedia(int periodos);
  /// To the first series of that code. Without one it is dropped.
  void AddReg(const store::Codigo& code, const Registro& record);
  void ShowFeed(const store::Codigo& code);
  /// Records of a series, from 1; 0 of one that isn't there.
  [[nodiscard]] std::size_t Count(int serie = 1) const;
  /// Close of record `index` (from 0); 0 where there is none.
  [[nodiscard]] float Value(std::size_t index, int serie = 1) const;

  /// Of the price axis, 0 to 6.
  [[nodiscard]] int decimals() const { return decimals_; }
  void set_decimals(int decimals);
  /// Whether there is room for the volume below the lines.
  [[nodiscard]] bool with_volume() const { return with_volume_; }
  void set_with_volume(bool with) { Set(with_volume_, with); }

  // For who draws. Series first, in the order of their coming, then averages likewise.
  [[nodiscard]] std::size_t lineas() const;
  [[nodiscard]] const Linea& linea(std::size_t index) const;
  [[nodiscard]] std::size_t series() const;  // how many of the lines are series
  [[nodiscard]] const std::vector<Barra>& barras() const;

  /// As long as the user hasn't looked closer, everything there is in whole minutes, growing with
  /// it. Else a stretch of time that stays, with the prices and the volume that are in it.
  [[nodiscard]] Vista vista() const;
  [[nodiscard]] bool ve_todo() const;
  /// Factor below 1 looks closer; what stands at `x` stays there. Ends at ten seconds, and at
  /// everything.
  void Acercar(double x, double factor);
  /// By a part of what is seen; above 0 towards later.
  void Desplazar(double parte);
  void VerTodo();

  /// The record of the first series nearest to x. Of those of one second it is the last.
  [[nodiscard]] std::optional<Senalado> Senalar(double x) const;
  /// The one `steps` times after (or before) it; the first or last where there are fewer.
  [[nodiscard]] std::optional<Senalado> Vecino(double x, int steps) const;
  /// Texts of the axes: "hh:mm:ss", and the price with its decimals.
  [[nodiscard]] static std::string TextoHora(double x);
  [[nodiscard]] std::string TextoPrecio(double price) const;

 private:
  struct Data;
  std::unique_ptr<Data> data_;
  int decimals_ = 2;
  bool with_volume_ = true;
};

}  // namespace charts
