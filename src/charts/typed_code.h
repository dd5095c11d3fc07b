#pragma once

#include <string>
#include <string_view>

namespace charts {

/// The code that the user has typed, in capitals and without the blanks at its ends, as bytes of
/// Windows-1252. "" where it has two characters or fewer, which is no code.
[[nodiscard]] std::string CodigoTecleado(std::string_view typed);

}  // namespace charts
