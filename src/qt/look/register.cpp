#include "qt/look/register.h"

#include "feed/conecta.h"
#include "qt/look/alarm_looks.h"
#include "qt/look/board_look.h"
#include "qt/look/login_look.h"
#include "qt/look/main_look.h"
#include "qt/look/portfolio_looks.h"
#include "qt/look/tape_look.h"
#include "qt/look/ticket_look.h"
#include "shell/mdi.h"
#include "views/continuo.h"
#include "views/divisas.h"
#include "views/futuros.h"
#include "views/indices.h"
#include "views/opciones.h"

namespace qt {

void RegisterLooks(Looks& looks) {
  looks.Add<shell::MDI>(MakeMainLook);
  looks.Add<feed::Conecta>(MakeLoginLook);
  looks.Add<views::Continuo>(MakeBoardLook);
  looks.Add<views::Indices>(MakeBoardLook);
  looks.Add<views::Estadisticas>(MakeBoardLook);
  looks.Add<views::Futuros>(MakeBoardLook);
  looks.Add<views::Divisas>(MakeBoardLook);
  looks.Add<views::Opciones>(MakeBoardLook);
  looks.Add<portfolios::TCartera>(MakeHoldingsLook);
  looks.Add<views::Ticker2>(MakeTicketLook);
  looks.Add<views::Form2>(MakeTapeLook);
  looks.Add<alarms::APrecio>(MakeAlarmLook);
  looks.Add<alarms::FormAlarm>(MakeDefinedAlarmsLook);
  looks.Add<alarms::ListAlarm>(MakeFiredAlarmsLook);
  looks.Add<portfolios::Cartera>(MakePortfolioLook);
  looks.Add<portfolios::Operar_Cartera>(MakeOperationLook);
  looks.Add<portfolios::Detalle>(MakeDetailLook);
}

}  // namespace qt
