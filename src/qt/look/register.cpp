#include "qt/look/register.h"

#include "feed/conecta.h"
#include "qt/look/board_look.h"
#include "qt/look/login_look.h"
#include "qt/look/main_look.h"
#include "shell/mdi.h"
#include "views/continuo.h"

namespace qt {

void RegisterLooks(Looks& looks) {
  looks.Add<shell::MDI>(MakeMainLook);
  looks.Add<feed::Conecta>(MakeLoginLook);
  looks.Add<views::Continuo>(MakeBoardLook);
}

}  // namespace qt
