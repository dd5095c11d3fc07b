#include "report.h"

#include <cstdio>

namespace load {

void Heading(const char* what) {
  std::printf("\n%s\n", what);
  std::fflush(stdout);
}

void Line(const char* what, double value, const char* unit, double most) {
  std::printf("  %-52s %10.2f %-9s", what, value, unit);
  if (most > 0) std::printf(" at most %6.2f  %s", most, value <= most ? "ok" : "MISSED");
  std::printf("\n");
  std::fflush(stdout);
}

}  // namespace load
