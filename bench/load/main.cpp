#include <cstdio>
#include <cstdlib>
#include <string>

#include <QApplication>

#include "qt/look/theme.h"
#include "scenarios.h"

// cotirama-load: the whole program under load, one scenario a process.

namespace {

int Usage() {
  std::fprintf(stderr,
               "cotirama-load steady SECONDS [MORE_INSTRUMENTS] | burst | memory MILLION_QUOTES |\n"
               "              idle SECONDS | start RUNS\n");
  return 2;
}

}  // namespace

int main(int argc, char** argv) {
  const std::string what = argc > 1 ? argv[1] : "";
  const double amount = argc > 2 ? std::atof(argv[2]) : 1;
  const int more = argc > 3 ? std::atoi(argv[3]) : 4800;
  if (what.empty() || amount <= 0 || amount > 600) return Usage();
  bool measured = false;
  if (what == "start") {
    measured = load::Start(static_cast<int>(amount));
  } else {
    int names = 1;
    QApplication application(names, argv);
    qt::ApplyTheme(application);
    if (what == "steady") {
      measured = load::Steady(amount, more);
    } else if (what == "burst") {
      measured = load::Burst();
    } else if (what == "memory") {
      measured = load::Memory(amount);
    } else if (what == "idle") {
      measured = load::Idle(amount);
    } else {
      return Usage();
    }
  }
  if (!measured) std::fprintf(stderr, "%s: could not be measured\n", what.c_str());
  return measured ? 0 : 1;
}
