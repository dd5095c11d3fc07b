#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "platform/controls.h"
#include "platform/menu.h"
#include "platform/ticker.h"
#include "platform/timer.h"
#include "platform/window.h"

namespace shell {

/// The main window: menu, tool bar, status strip, both tickers. It stands first in the window list
/// and paints nothing by itself. A request to close it begins the stop of the program and is
/// otherwise refused: it stays loaded to the end.
class MDI : public platform::Window {
 public:
  static constexpr const char* kCaption = "Cotirama Brizna 4.1";

  explicit MDI(platform::Platform& platform);

  platform::PictureBox Picture1;          // strip that holds the market ticker
  platform::Ticker Tickctl1;              // market ticker
  platform::PictureBox Picture3;          // strip that holds the status ticker
  platform::Ticker Tickctl2;              // status ticker
  platform::PictureBox Picture2;          // session light
  platform::Label Label2;                 // count of instruments
  platform::Label LT, LF;                 // server time and date
  platform::CheckBox Check1;              // timer of the charting package's refresh on or off
  platform::CheckBox Check2;              // market ticker on or off
  platform::Button Command1;              // fired alarms
  platform::Button Command2;              // buys or sells
  platform::Button Command3;              // brings up the board
  platform::Button Command4;              // indices
  platform::Button Command5;              // futures
  platform::Button Command6;              // currencies
  platform::Label Label1;                 // brings up the holdings
  platform::ComboBox Combo1;              // the portfolios
  platform::TextBox Text1, Text2, Text3;  // value of the chosen one, gain in %, gain; locked
  platform::ToolBar ActiveBar1;
  platform::Timer Timer1;  // once a second

  /// The menu bar; filled before the window is first shown.
  std::vector<platform::MenuItem> menu;
  /// Commands that have a key and stand in no menu; filled likewise.
  std::vector<platform::MenuItem> keys;

  /// 0 while the program runs, from 1 on while it closes.
  std::int16_t FaseCierre = 0;

  struct Steps {
    std::function<void()> Cargar;        // the window is loading
    std::function<bool()> Conectado;     // the feed socket is connected
    std::function<bool()> Cerrado;       // the feed socket is closed
    std::function<void()> Conectar;      // the user wants a session
    std::function<void()> Desconectar;   // the user wants none
    std::function<void(bool)> Refresco;  // turns the timer of the refresh on or off
    std::function<void()> Terminar;      // the program is to stop
    std::function<void()> Avanzar;       // it stops, and another second of that has begun
  };
  Steps steps;

  void Timer1_Timer();
  void Picture2_Click();
  void Check1_Click();
  void Check2_Click();
  void Form_Resize();

 protected:
  void OnLoad() override;
  bool OnQueryUnload() override;
  void OnResize() override;
};

}  // namespace shell
