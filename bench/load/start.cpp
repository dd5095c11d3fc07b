#include <filesystem>
#include <string>

#include "process.h"
#include "report.h"
#include "samples.h"
#include "scenarios.h"
#include "support/temp_dir.h"

namespace load {
namespace {

struct Times {
  Samples painted;
  double processor = 0;
};

bool StartOnce(const std::string& program, Times& times) {
  const auto began = Clock::now();
  Child child({program}, {std::string("LD_PRELOAD=") + PAINTED_LIBRARY});
  if (!child.Line()) return false;
  times.painted.Add(Clock::now() - began);
  times.processor += child.Wait();
  return true;
}

void Tell(const std::string& what, const Times& times) {
  Line((what + ", median").c_str(), times.painted.At(0.5), "ms");
  Line((what + ", best").c_str(), times.painted.At(0), "ms");
  Line((what + ", processor").c_str(),
       times.processor * 1000 / static_cast<double>(times.painted.size()), "ms");
}

}  // namespace

bool Start(int runs) {
  // The program keeps its files beside itself.
  const support::TempDir directory;
  const std::string program = directory.Path("cotirama");
  std::error_code failed;
  std::filesystem::copy_file(TERMINAL_PROGRAM, program, failed);
  Times bare, fields, whole;
  for (int i = 0; i < runs; ++i) {
    if (!StartOnce(DIALOG_PROGRAM, bare) || !StartOnce(FIELDS_PROGRAM, fields) ||
        !StartOnce(program, whole)) {
      return false;
    }
  }
  Heading("From the start of the process to the painted login window");
  Tell("bare dialog", bare);
  Tell("dialog with the same fields", fields);
  Tell("terminal", whole);
  Line("medians, to the bare dialog", whole.painted.At(0.5) / bare.painted.At(0.5), "times", 1.3);
  Line("medians, to that with the fields", whole.painted.At(0.5) / fields.painted.At(0.5), "times");
  return true;
}

}  // namespace load
