#include "views/tape.h"

namespace views {

Form2::Form2(platform::Platform& platform, const std::int16_t& fase_cierre)
    : Window(platform), FaseCierre(fase_cierre) {
  set_caption("Negociaciones");
  set_rect({300, 300, 9600, 6000});
  List1.set_cols(8);
  List1.set_rows(1);
}

void Form2::OnLoad() {}

bool Form2::OnQueryUnload() {
  if (FaseCierre > 0) return true;
  Hide();
  return false;
}

void Form2::Form_Resize() {}

}  // namespace views
