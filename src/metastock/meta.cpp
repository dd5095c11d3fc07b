#include "metastock/meta.h"

namespace metastock {

Meta::Meta(platform::Platform& platform, const base::ProgramDir& directory, Stores& stores)
    : Window(platform), directory_(directory), stores_(stores) {
  set_caption("Configurar MetaStock");
}

void Meta::LeerRutas() {}

void Meta::Dir1_Change() {}

void Meta::Dir2_Change() {}

void Meta::Drive1_Change() {}

void Meta::Drive2_Change() {}

void Meta::List1_Click() {}

void Meta::List2_Click() {}

void Meta::Command1_Click() {}

void Meta::Command2_Click() {}

void Meta::C1_Click() {}

void Meta::OnLoad() {}

}  // namespace metastock
