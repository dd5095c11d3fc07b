#include "tour.h"

// Tickets, tape and alarms.
namespace tour {

void Tour::OpenTicket(int row) {
  auto& grid = terminal_.Continuo.G;
  grid.mouse_row = row;
  grid.mouse_col = 0;
  grid.on_double_click();
}

void Tour::Tickets() {
  OpenTicket(5);
  OpenTicket(9);
  WaitFor("a book", [this] {
    const auto open = terminal_.Tickets.abiertos();
    return open.size() == 2 && !open.front()->pc[0].caption().empty();
  });
  Run(4000);
  views::Ticker2& first = *terminal_.Tickets.abiertos().front();
  Keep(OuterOf(first), QStringLiteral("ticket"));
  Keep(OuterOf(terminal_.MDI), QStringLiteral("tickets"));
  first.Label6.DoubleClick();
  const int all = first.List1.rect().top + first.List1.rect().height;
  WaitFor("the ticket to grow", [&] { return first.inner_height() >= all; });
  Run(300);
  Keep(OuterOf(first), QStringLiteral("ticket-ampliado"));
  for (views::Ticker2* ticket : terminal_.Tickets.abiertos()) ticket->Unload();
}

void Tour::Tape() {
  terminal_.Form2.Show();
  Run(3000);
  Keep(OuterOf(terminal_.Form2), QStringLiteral("negociaciones"));
  terminal_.Form2.Hide();
}

void Tour::DefineAlarm(const QString& price) {
  alarms::APrecio& dialog = terminal_.APrecio;
  dialog.tipo = alarms::AlarmTable::kPrecio;
  dialog.Show();
  Type(dialog, dialog.Text1, QStringLiteral("BVL"));
  Type(dialog, dialog.Text2, price);
  Type(dialog, dialog.Text3, QStringLiteral("Vender la mitad"));
}

void Tour::Alarms() {
  alarms::APrecio& dialog = terminal_.APrecio;
  DefineAlarm(QStringLiteral("999"));
  Keep(OuterOf(dialog), QStringLiteral("alarma"));
  Click(dialog, dialog.Command1);
  DefineAlarm(QStringLiteral("0.01"));
  Click(dialog, dialog.Command1);
  terminal_.FormAlarm.Show();
  Keep(OuterOf(terminal_.FormAlarm), QStringLiteral("alarmas-definidas"));
  terminal_.FormAlarm.Hide();
  WaitFor("an alarm", [this] { return terminal_.ListAlarm.visible(); });
  Keep(OuterOf(terminal_.ListAlarm), QStringLiteral("alarmas-disparadas"));
  terminal_.ListAlarm.Command5.Click();
}

}  // namespace tour
