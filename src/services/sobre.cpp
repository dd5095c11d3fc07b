#include "services/sobre.h"

#include <string>

namespace services {

Sobre::Sobre(platform::Platform& platform, std::string_view programa) : Window(platform) {
  set_caption("Sobre Cotirama Brizna");
  Label1.set_caption(
      std::string(programa) +
      "\r\n\r\n"
      "Terminal de bolsa en tiempo real.\r\n"
      "Copyright © Los autores de Cotirama\r\n\r\n"
      "Programa libre bajo la Licencia Pública General de GNU (GPL), versión 3 o posterior. "
      "Se distribuye sin garantía alguna.");
}

}  // namespace services
