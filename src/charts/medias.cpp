#include "charts/medias.h"

#include <initializer_list>
#include <string_view>
#include <utility>

namespace charts {
namespace {

void Fill(platform::ComboBox& combo, std::string_view label,
          std::initializer_list<std::string_view> items) {
  combo.set_label(label);
  for (const std::string_view item : items) combo.AddItem(item);
  combo.set_text(combo.items().front());
}

}  // namespace

Medias::Medias(platform::Platform& platform, const std::int16_t& fase_cierre)
    : Window(platform), FaseCierre(fase_cierre) {
  set_caption(" Medias");
  Text1.set_label("Periodos");
  Fill(Combo1, "Método", {"Simple", "Esponencial", "Ponderado"});
  Fill(Combo2, "Aplicable a", {"Cierre", "Maximo", "Minimo", "Medio", "Ponderado", "Volumen"});
  Command1.set_caption("&Aceptar");
  Command2.set_caption("&Cancelar");

  Text1.on_enter = [this] { Command1_Click(); };
  Command1.on_click = [this] { Command1_Click(); };
  Command2.on_click = [this] { Command2_Click(); };
}

void Medias::Pedir(std::function<void(const std::string& periodos)> then) {
  if (FaseCierre > 0) return;
  then_ = std::move(then);
  Show();
  SetFocus(Text1);
}

void Medias::Command1_Click() {
  Hide();
  if (const auto then = std::exchange(then_, nullptr)) then(Text1.text());
}

void Medias::Command2_Click() {
  Text1.set_text("");
  Command1_Click();
}

bool Medias::OnQueryUnload() {
  if (FaseCierre > 0) {
    then_ = nullptr;
    return true;
  }
  Command2_Click();
  return false;
}

}  // namespace charts
