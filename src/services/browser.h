#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/controls.h"
#include "platform/menu.h"
#include "platform/web_view.h"
#include "platform/window.h"

namespace services {

/// A small web window: a bar of commands, a field for an address, the page. It comes up with the
/// home page. The field follows the page except while something typed stands in it; leaving it
/// gives that up. Titles and addresses of pages are shown in one line, and cut.
class Browser : public platform::Window {
 public:
  // Tools of the bar by number; the others go by name.
  enum Herramienta {
    kBack = 1,
    kForward = 2,
    kHome = 3,
    kStop = 4,
    kRefresh = 5,
    kSearch = 6,
    kService = 7
  };

  explicit Browser(platform::Platform& platform);

  platform::ToolBar ActiveBar1;
  platform::TextBox Direccion;
  platform::WebView brwWebBrowser;

  enum class Pagina { inicio, servicio, manual, foro, busqueda };

  struct Steps {
    /// Sees to it that the user's guide is there; its directory as an address that ends in "/".
    std::function<std::string()> Manual;
  } steps;

  /// Shows the window with that page.
  void Abrir(Pagina pagina);
  void ActiveBar1_Click(int tool);
  /// The user has typed an address and pressed Enter. Whatever doesn't start with "http://" gets
  /// that in front, "https://" too.
  void Direccion_Change();
  void Direccion_LostFocus();

 protected:
  void OnLoad() override;
  void OnResize() override;

 private:
  void Ir(Pagina pagina);
  void Seguir();
  void Mostrar();

  std::string seguida_;   // what the field held when it last followed the page
  std::string pedida_;    // the address typed, until its page is there or nothing is loading
  std::string anterior_;  // where the page was when it was typed
};

}  // namespace services
