#include "shell/stop.h"

#include <cstdint>

#include "shell/terminal.h"

namespace shell {
namespace {

// Of FaseCierre, which is 1 at first.
constexpr std::int16_t kViewsGo = 2, kProgramGoes = 4, kSocketGivenUp = 6;

}  // namespace

void Stop::Begin() {
  Silence();
  stage_ = Stage::closing;
  Advance();
}

void Stop::Silence() {
  terminal_.MDI.Tickctl1.set_scrolling(false);
  terminal_.MDI.Tickctl2.set_scrolling(false);
  terminal_.MDI.FaseCierre = 1;
  terminal_.Download.Cancelar();
  terminal_.Conecta.Cerrar();
  terminal_.MDI.Picture2.set_picture(platform::Picture::closed);
  // Whatever waits for an answer gets none, and finds the session closed already.
  terminal_.platform().dialogs().Dismiss();
}

void Stop::Advance() {
  const std::int16_t phase = terminal_.MDI.FaseCierre;
  if (stage_ == Stage::closing && (terminal_.Conecta.cerrado() || phase >= kSocketGivenUp)) {
    terminal_.Indices.Timer1.set_enabled(false);
    terminal_.Continuo.Timer1.set_enabled(false);
    terminal_.Futuros.Timer1.set_enabled(false);
    stage_ = Stage::views_at_rest;
  }
  if (stage_ == Stage::views_at_rest && phase >= kViewsGo) {
    (void)terminal_.Conecta.Unload();
    UnloadWindows();
    UnloadWindows();  // those that were loaded again by the going of others
    stage_ = Stage::unloaded;
  }
  if (stage_ == Stage::unloaded && phase >= kProgramGoes) End();
}

void Stop::UnloadWindows() {
  terminal_.platform().windows.ForEach([this](platform::Window& window) {
    if (&window != &terminal_.MDI) (void)window.Unload();
  });
}

void Stop::End() {
  stage_ = Stage::ended;
  terminal_.MDI.Timer1.set_enabled(false);
  // Not inside the timer, which may go with the program.
  if (terminal_.on_end) terminal_.platform().Post(terminal_.on_end);
}

}  // namespace shell
