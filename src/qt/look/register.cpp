#include "qt/look/register.h"

#include "feed/conecta.h"
#include "portfolios/t_cartera.h"
#include "qt/look/alarm_looks.h"
#include "qt/look/board_look.h"
#include "qt/look/chart_looks.h"
#include "qt/look/colores_look.h"
#include "qt/look/hot_look.h"
#include "qt/look/login_look.h"
#include "qt/look/main_look.h"
#include "qt/look/metastock_looks.h"
#include "qt/look/portfolio_looks.h"
#include "qt/look/service_looks.h"
#include "qt/look/tape_look.h"
#include "qt/look/ticket_look.h"
#include "shell/mdi.h"
#include "views/continuo.h"
#include "views/divisas.h"
#include "views/futuros.h"
#include "views/indices.h"
#include "views/opciones.h"

namespace qt {
namespace {

template <typename View>
void AddBoard(Looks& looks, const char* empty_text) {
  looks.Add<View>([empty_text](View& view, FrameClock& clock) {
    return MakeBoardLook(view, clock, {.empty_text = QString::fromUtf8(empty_text)});
  });
}

}  // namespace

void RegisterLooks(Looks& looks) {
  looks.Add<shell::MDI>(MakeMainLook);
  looks.Add<feed::Conecta>(MakeLoginLook);
  AddBoard<views::Continuo>(looks, "Sin instrumentos todavía");
  AddBoard<views::Indices>(looks, "Sin índices todavía");
  AddBoard<views::Estadisticas>(looks, "Sin estadísticas todavía");
  AddBoard<views::Futuros>(looks, "Sin futuros todavía");
  AddBoard<views::Divisas>(looks, "Sin divisas todavía");
  AddBoard<views::Opciones>(looks, "Sin opciones todavía: Instrumentos, Opciones MEFF");
  AddBoard<portfolios::TCartera>(looks, "Sin valores en cartera");
  looks.Add<charts::Hot>(MakeHotLook);
  looks.Add<charts::Graficos>(MakeChartLook);
  looks.Add<charts::Medias>(MakeAverageLook);
  looks.Add<views::Colores>(MakeColoresLook);
  looks.Add<views::Ticker2>(MakeTicketLook);
  looks.Add<views::Form2>(MakeTapeLook);
  looks.Add<alarms::APrecio>(MakeAlarmLook);
  looks.Add<alarms::FormAlarm>(MakeDefinedAlarmsLook);
  looks.Add<alarms::ListAlarm>(MakeFiredAlarmsLook);
  looks.Add<portfolios::Cartera>(MakePortfolioLook);
  looks.Add<portfolios::Operar_Cartera>(MakeOperationLook);
  looks.Add<portfolios::Detalle>(MakeDetailLook);
  looks.Add<metastock::Meta>(MakeStoresLook);
  looks.Add<metastock::Form1>(MakeDownloadLook);
  looks.Add<services::Pages>(MakePagesLook);
  looks.Add<services::Irc>(MakeChatLook);
  looks.Add<services::Browser>(MakeBrowserLook);
  looks.Add<services::Sobre>(MakeAboutLook);
}

}  // namespace qt
