#include "alarms/a_precio.h"

#include "base/text.h"
#include "base/val.h"

namespace alarms {
namespace {

constexpr std::size_t kCodigoCorto = 6;  // characters that still wait for more

}  // namespace

APrecio::APrecio(platform::Platform& platform, const store::InstrumentStore& store,
                 AlarmTable& table, FormAlarm& list)
    : Window(platform), store_(store), table_(table), list_(list) {
  set_caption(" Definir Alarmas");
  PrepararControles();
  Text1.on_change = [this] { Text1_Change(); };
  Command1.on_click = [this] { Command1_Click(); };
  Command2.on_click = [this] { Command2_Click(); };
}

void APrecio::PrepararControles() {
  Text1.set_label("Codigo");
  Text1.set_tool_tip("Codigo de la empresa en mayúsculas");
  Label5.set_caption("Precio");
  Text2.set_label(Label5.caption());
  Text2.set_tool_tip("Precio desde donde se activa la alarma");
  Text3.set_label("Orden");
  Text3.set_tool_tip("Texto explicativo");
  Text3.set_max_length(kMaxOrden);
  Option1.set_caption("Igual o &Superior");
  Option2.set_caption("Igual o &Inferior");
  for (auto* option : {&Option1, &Option2}) {
    option->set_tool_tip("Condicion para activarse la alarma");
  }
  Command1.set_caption("&Aceptar");
  Command1.set_tool_tip("Valida esta alarma.");
  Command2.set_caption("&Cancelar");
  Command2.set_tool_tip("Salir sin configurar la alarma");
}

void APrecio::OnLoad() {
  for (auto* text : {&Text1, &Text2, &Text3}) text->set_text("");
  Option1.set_value(true);
}

void APrecio::OnActivate() {
  if (tipo == AlarmTable::kPrecio) {
    Label5.set_caption("Precio");
    Option2.set_enabled(true);
  } else if (tipo == AlarmTable::kVolumen) {
    Label5.set_caption("Volumen");
    Option1.set_value(true);
    Option2.set_enabled(false);
  }
  Text2.set_label(Label5.caption());
}

void APrecio::Text1_Change() {
  if (base::CountUtf8(Text1.text()) <= kCodigoCorto) return;
  Text1.set_text(base::UpperUtf8(Text1.text()));
  SetFocus(Text2);
}

bool APrecio::Aceptar(float value) {
  return value > 0 && table_.Agregar({
                          .AlarmaCodigo = store::Codigo::FromUtf8(base::UpperUtf8(Text1.text())),
                          .AlarmaValor = value,
                          .AlarmaValorInicial = value,
                          .AlarmaTipo = tipo,
                          .AlarmaCondicion = Option1.value() ? AlarmTable::kIgualOSuperior
                                                             : AlarmTable::kIgualOInferior,
                          .AlarmaOrden = Text3.text(),
                      });
}

void APrecio::Command1_Click() {
  const float value = base::ValFloat(Text2.text()).value_or(0);
  if (Aceptar(value)) {
    list_.AgregarUltima();
    table_.GuardarAlarmas();
    Unload();
  } else if (!(value > 0)) {
    SetFocus(Text2);
  }
  tipo = 0;
}

void APrecio::Command2_Click() { Unload(); }

}  // namespace alarms
