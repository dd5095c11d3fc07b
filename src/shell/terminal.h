#pragma once

#include <functional>
#include <vector>

#include "alarms/a_precio.h"
#include "alarms/alarm_table.h"
#include "alarms/form_alarm.h"
#include "alarms/list_alarm.h"
#include "base/program_dir.h"
#include "charts/graficos_abiertos.h"
#include "charts/hot.h"
#include "charts/tick_files.h"
#include "feed/conecta.h"
#include "metastock/bars.h"
#include "metastock/download.h"
#include "metastock/form1.h"
#include "metastock/meta.h"
#include "metastock/refresh.h"
#include "metastock/stores.h"
#include "platform/platform.h"
#include "portfolios/cartera.h"
#include "portfolios/detalle.h"
#include "portfolios/operar_cartera.h"
#include "portfolios/portfolio_store.h"
#include "portfolios/t_cartera.h"
#include "services/browser.h"
#include "services/irc.h"
#include "services/pages.h"
#include "services/sobre.h"
#include "shell/mdi.h"
#include "shell/resumen.h"
#include "shell/start_up.h"
#include "shell/stop.h"
#include "spreadsheet/excel.h"
#include "store/instrument_store.h"
#include "store/update_pipeline.h"
#include "views/color_records.h"
#include "views/colores.h"
#include "views/continuo.h"
#include "views/divisas.h"
#include "views/futuros.h"
#include "views/indices.h"
#include "views/opciones.h"
#include "views/tape.h"
#include "views/tickets.h"

namespace shell {

/// Owns every object of the program and joins them. `platform` outlives it. A test builds as many
/// as it likes.
class Terminal {
 public:
  /// `directory` holds every file of the program.
  Terminal(platform::Platform& platform, base::ProgramDir directory);
  ~Terminal();

  /// Brings the program up to its shown main window with the login window in front.
  void Start();
  /// Called once, from the event loop, when the stop is complete: the program ends, status 0. Set
  /// before.
  std::function<void()> on_end;

  [[nodiscard]] platform::Platform& platform() const { return platform_; }
  /// Those loaded that show entry `ventana` (1 to 4) of the settings.
  [[nodiscard]] std::vector<views::GridView*> ViewsOf(int ventana);

 private:
  /// The login window in front, the cursor in its first field.
  void ShowLogin();
  void JoinMainWindow();
  void JoinPipeline();
  void JoinViews();
  void JoinCharts();
  void JoinColors();
  void JoinMetaStock();
  void JoinServices();
  platform::Platform& platform_;
  base::ProgramDir directory_;

 public:
  // The program's single objects, in the order in which they need one another.
  views::ConfigVentanas ConfigVentana;
  store::InstrumentStore store;
  shell::MDI MDI;
  store::UpdatePipeline pipeline;
  feed::Conecta Conecta;
  views::GridContext context;
  views::Continuo Continuo;
  views::Indices Indices;
  views::Estadisticas Estadisticas;
  views::Futuros Futuros;
  views::Divisas Divisas;
  views::Opciones Opciones;
  views::Colores Colores;
  views::Form2 Form2;
  views::Tickets Tickets;
  alarms::AlarmTable Alarmas;
  alarms::FormAlarm FormAlarm;
  alarms::ListAlarm ListAlarm;
  alarms::APrecio APrecio;
  portfolios::PortfolioStore Carteras;
  portfolios::TCartera TCartera;
  portfolios::Cartera Cartera;
  portfolios::Operar_Cartera Operar_Cartera;
  portfolios::Detalle Detalle;
  charts::TickFiles Ticks;
  charts::GraficosAbiertos Graficos;
  charts::Hot Hot;
  metastock::Stores Stores;
  metastock::Bars Bars;
  metastock::Form1 Form1;
  metastock::Meta Meta;
  metastock::Download Download;
  metastock::Refresh Refresh;
  spreadsheet::Excel Excel;
  services::Pages Pages;
  services::Irc Irc;
  services::Browser Browser;
  services::Sobre Sobre;

 private:
  Resumen resumen_;
  Stop stop_;
};

}  // namespace shell
