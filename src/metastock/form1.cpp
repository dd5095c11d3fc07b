#include "metastock/form1.h"

namespace metastock {

Form1::Form1(platform::Platform& platform) : Window(platform) {
  set_caption("Recuperación Históricos MetaStock");
  Label1.set_caption("Empresas MetaStock");
}

}  // namespace metastock
