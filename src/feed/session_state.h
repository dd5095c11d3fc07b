#pragma once

#include "base/fixed_text.h"

namespace feed {

/// What the client knows of its session with the server.
struct SessionState {
  bool SesionLista = false;           // the server has confirmed the session
  base::FixedText<7> Usuario, Clave;  // as typed
  base::FixedText<12> IdSesion;       // names the session in messages
};

}  // namespace feed
