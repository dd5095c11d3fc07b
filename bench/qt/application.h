#pragma once

#include <QApplication>

#include "qt/look/theme.h"

/// The one application that the windows of all benchmarks need.
inline void MakeApplication() {
  static int argc = 1;
  static char name[] = "bench";
  static char* argv[] = {name, nullptr};
  if (!qApp) qt::ApplyTheme(*new QApplication(argc, argv));
}
