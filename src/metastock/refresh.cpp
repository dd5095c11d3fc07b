#include "metastock/refresh.h"

namespace metastock {

bool Refresh::RefreshMetaStock() { return true; }

void Refresh::Avisar() {}

}  // namespace metastock
