#include "metastock/mbf.h"

namespace metastock {

Field IeeeToMbf(Field ieee) { return ieee; }

Field MbfToIeee(Field mbf) { return mbf; }

float FromMbf(std::string_view /*bytes*/) { return 0; }

void AppendMbf(std::string& /*out*/, float /*value*/) {}

}  // namespace metastock
