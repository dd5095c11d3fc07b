#include "charts/typed_code.h"

#include "base/ansi.h"
#include "base/text.h"

namespace charts {

std::string CodigoTecleado(std::string_view typed) {
  constexpr std::size_t kTooShort = 2;
  std::string code = base::UpperAnsi(base::Utf8ToAnsi(base::Trim(typed)));
  return code.size() > kTooShort ? code : std::string();
}

}  // namespace charts
