#include "charts/medias.h"

namespace charts {

Medias::Medias(platform::Platform& platform) : Window(platform) { set_caption(" Medias"); }

void Medias::Pedir(std::function<void(const std::string& periodos)>) {}
void Medias::Command1_Click() {}
void Medias::Command2_Click() {}
bool Medias::OnQueryUnload() { return true; }

}  // namespace charts
