#include "views/colores.h"

namespace views {

Colores::Colores(platform::Platform& platform, const base::ProgramDir& dir, ConfigVentanas& config)
    : Window(platform), dir_(dir), config_(config) {
  set_caption("Definir Colores y Fuentes");
}

void Colores::OnLoad() {}
void Colores::OnActivate() {}
void Colores::Option_Click() {}
void Colores::Label_Click(platform::Label&) {}
void Colores::List1_Click() {}
void Colores::Text1_Enter() {}
void Colores::Command1_Click() {}
void Colores::Command2_Click() {}
void Colores::Command3_Click() {}

}  // namespace views
