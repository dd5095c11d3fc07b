#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "charts/chart.h"
#include "charts/medias.h"
#include "charts/tick_files.h"
#include "platform/timer.h"
#include "platform/window.h"
#include "store/instrument_store.h"

namespace charts {

/// A chart of one instrument: what the run has seen of it, then every quote. Its tag
/// is "G:" and the code. The size with which it comes up is that of its chart; a later change of
/// it reaches the chart two to four seconds after the last one, and until then the chart is out of
/// sight (the screen lets the chart and its bar fill the window then). What the constructor takes
/// outlives it.
class Graficos : public platform::Window {
 public:
  Graficos(platform::Platform& platform, const store::InstrumentStore& store,
           const TickFiles& ticks, Medias& medias);

  Chart Gr1;
  platform::Timer Timer1;

  std::int16_t ChartMargin = 0;     // not 0 where the chart leaves room for its bar below
  std::int16_t ResizePending = 0;   // 1 after a change of size, 2 a tick later
  std::int16_t InternalResize = 0;  // 1 while the window changes its own size

  /// It is being unloaded. May drop it from lists, but not end it.
  std::function<void()> al_descargar;

  /// Starts the series of its code, which brings its past.
  void Empezar(const store::Codigo& code);
  void OnChartData(const store::Codigo& code);
  void Gr1_Command(int command);
  void Timer1_Timer();
  void Form_Resize();
  /// The instrument has been quoted.
  void Vivo(const store::Instrumento& record);

 protected:
  void OnLoad() override;
  void OnUnload() override;
  void OnResize() override;

 private:
  /// `step`, which does nothing once the window has been unloaded.
  template <typename Step>
  [[nodiscard]] auto WhileOpen(Step step);
  /// Sets the margin and moves the width to and fro, events running in between. A second one
  /// meanwhile only sets the margin.
  void Sacudir(std::int16_t margin);
  /// A window that fills its area, or is an icon, keeps its width.
  void CambiarAncho(int by);
  void Ajustar(int width, int height);
  void AgregarMedia(const std::string& periodos);

  const store::InstrumentStore& store_;
  const TickFiles& ticks_;
  Medias& medias_;
  std::shared_ptr<bool> open_;  // while it is loaded
  bool placed_ = false;         // has come up
  static constexpr int kNotShaken = -1;
  // The size from which it was last moved to and fro, until that has reached the chart.
  int shaken_width_ = kNotShaken, shaken_height_ = kNotShaken;
  std::string caption_;  // while it is being made
};

}  // namespace charts
