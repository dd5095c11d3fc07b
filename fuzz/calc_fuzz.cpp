// Lines of any bytes at both ends of the spreadsheet link: the size of the pieces, then the bytes.
// Whatever either end says after that must be understood by the other.

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "calc/helper.h"
#include "calc/mirror.h"
#include "support/fake_office.h"
#include "support/fake_pipe.h"
#include "support/memory_platform.h"

namespace {

constexpr int kRows = calc::Mirror::kRows, kCols = calc::Mirror::kCols;

void Check(bool holds) {
  if (!holds) std::abort();
}

template <typename Take>
void InPieces(std::string_view bytes, std::size_t size, Take&& take) {
  for (; !bytes.empty(); bytes.remove_prefix(std::min(size, bytes.size()))) {
    take(bytes.substr(0, size));
  }
}

void CheckCuts(std::string_view bytes, std::size_t size) {
  std::vector<std::string> whole, cut;
  calc::LineReader one, many;
  one.Feed(bytes, [&](std::string_view line) { whole.emplace_back(line); });
  InPieces(bytes, size, [&](std::string_view piece) {
    many.Feed(piece, [&](std::string_view line) { cut.emplace_back(line); });
  });
  Check(whole == cut);
}

struct Link {
  support::MemoryPlatform platform;
  support::FakePipe pipe;
  support::FakeOffice office;
  std::string said;
  calc::Helper helper{office, [this](std::string_view bytes) { said += bytes; }};
  calc::Mirror mirror{platform, pipe};
  bool attached = false;

  void Attach() {
    mirror.Attach("Cotirama", [this](bool answer) { attached = answer; });
    Carry();
  }
  void Carry() {
    platform.avanzar(500);
    while (!pipe.sent.empty() || !said.empty()) {
      helper.Receive(pipe.TakeSent());
      const std::string answer = std::exchange(said, {});
      if (!answer.empty()) pipe.on_data(answer);
    }
  }
  void CheckAlike() {
    Attach();
    Check(attached);
    for (int row = 2; row <= kRows; ++row) {
      for (int col = 1; col <= 7; ++col) {
        const auto cell = office.cells.find({row, col});
        const calc::Value empty;
        calc::Value there = cell == office.cells.end() ? empty : cell->second;
        calc::MakeSendable(there);
        Check(mirror.value(row, col) == there);
      }
    }
  }
};

// The bytes come from the helper while the terminal waits, and go on when it is attached.
void HelperGoneMad(std::string_view bytes, std::size_t size) {
  Link link;
  link.Attach();
  InPieces(bytes, size, [&](std::string_view piece) {
    link.pipe.on_data(piece);
    link.mirror.SetNumber(3, 7, 1);
    link.platform.RunPosted();
  });
  for (int row = 1; row <= kRows; ++row) {
    for (int col = 1; col <= kCols; ++col) {
      const auto* text = std::get_if<std::string>(&link.mirror.value(row, col));
      Check(text == nullptr || text->size() <= 1020);
    }
  }
  link.pipe.on_data("\n");
  link.mirror.Detach();
  link.Carry();
  link.CheckAlike();
}

void TerminalGoneMad(std::string_view bytes, std::size_t size) {
  Link link;
  link.Attach();
  link.office.cells[{2, 1}] = std::string(bytes.substr(0, 2000));
  InPieces(bytes, size, [&](std::string_view piece) {
    link.helper.Receive(piece);
    link.helper.Look();
  });
  link.helper.Receive("\n");
  link.CheckAlike();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 1) return 0;
  const std::size_t piece = data[0] + std::size_t{1};
  const std::string_view bytes(reinterpret_cast<const char*>(data + 1), size - 1);
  CheckCuts(bytes, piece);
  HelperGoneMad(bytes, 16 * piece);
  TerminalGoneMad(bytes, 16 * piece);
  return 0;
}
