#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/controls.h"
#include "platform/window.h"

namespace services {

/// "Páginas de Información": asks the server for text pages by number and shows the one that came
/// last, 25 lines of 80 characters. Without a connection nothing is asked for. What is typed goes
/// out in Windows-1252, and nothing of it can end the request.
class Pages : public platform::Window {
 public:
  explicit Pages(platform::Platform& platform);

  platform::Button Command1, Command2, Command3, Command4, Command5;
  platform::TextBox Text1;        // number of a page
  platform::PictureBox Picture1;  // panel behind the page
  platform::Label Label1;         // the page: 25 lines, each with CR LF

  struct Steps {
    std::function<bool()> Conectado;                         // the feed socket is connected
    std::function<std::string()> IdSesion;                   // 12 bytes
    std::function<void(std::string_view text)> EnviarTexto;  // one write, terminator added
  } steps;

  /// A page of 25 lines has come. Loads the window, but doesn't show it.
  void PaginaLista(std::string_view page);
  [[nodiscard]] bool Conectado() const { return steps.Conectado && steps.Conectado(); }

  /// Any of the buttons: all ask for the first page.
  void Command1_Click();
  void Command5_Click();
  /// Enter in Text1.
  void Text1_KeyPress();

 private:
  void Pedir(std::string_view page);
};

}  // namespace services
