#pragma once

namespace load {

void Heading(const char* what);
/// One measured figure beside what there is to reach, 0 for a figure that only informs.
void Line(const char* what, double value, const char* unit, double most = 0);

}  // namespace load
