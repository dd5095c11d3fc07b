#include "feed/read_slice.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <random>

#include "base/inflate.h"
#include "fixture.h"
#include "support/wire.h"

namespace {

using support::Frame;
using support::Plain;
using Texts = std::vector<std::string>;

// A codec behind a socket from which each data event takes its slice.
struct Wire : Reader {
  void Event() {
    const std::size_t count = slicer.Next(codec.ColaTramas(), pending);
    codec.Recibir(pending.substr(0, count));
    pending.erase(0, count);
  }
  feed::ReadSlicer slicer;
  std::string pending;
};

// Message `n` as a server may send it: framed, compressed, in a chain or plain.
std::string Sent(std::mt19937& random, int n, std::size_t most, Texts& messages) {
  const std::string text = std::to_string(n) + std::string(random() % most, '.');
  messages.push_back(text);
  const std::string choice[] = {Frame(text), Frame(base::Compress(text)), Frame(Frame(text)),
                                Plain(text), Plain(text)};
  // A plain message has no length by which a large one could be told from a torn one.
  return choice[random() % (text.size() > 6000 ? 3 : std::size(choice))];
}

TEST(ReadSlicer, ABacklogLosesAndRepeatsNothing) {
  std::mt19937 random(7);
  for (const std::size_t most : {12U, 300U, 3000U, 25000U}) {
    Texts expected;
    std::string stream;
    for (int n = 100; stream.size() < 400000; ++n) stream += Sent(random, n, most, expected);
    std::ranges::sort(expected);
    // All at once, and growing while it is read, broken anywhere.
    for (const std::size_t step : {stream.size(), std::size_t{9001}, std::size_t{31000}}) {
      Wire wire;
      for (std::size_t at = 0; at < stream.size() || !wire.pending.empty();) {
        if (at < stream.size() && wire.pending.size() < 40000) {
          wire.pending += stream.substr(at, step);
          at += step;
        } else {
          wire.Event();
        }
      }
      std::erase(wire.messages, "");
      std::ranges::sort(wire.messages);  // within one read frames come before plain texts
      EXPECT_TRUE(wire.messages == expected) << most << " step " << step;
    }
  }
}

TEST(ReadSlicer, CutsBehindWholePieces) {
  const std::string noise(9000, 'n');
  const std::string f20000 = Frame(std::string(20000, 'f'));
  const std::string f25000 = Frame(std::string(25000, 'f'));
  const std::string p3000 = Plain(std::string(3000, 'p'));
  std::string small;
  while (small.size() + 5 <= 8192) small += Plain("abc");
  const std::tuple<const char*, std::string, std::string, std::size_t> cases[] = {
      {"no backlog", "", small, small.size()},
      {"49 pieces", "", small + small, 49U * 5},
      {"no end at all", "", noise, 8192},
      {"in front of a bad frame", "", Plain("abc") + Frame("") + noise, 5},
      {"torn frame", "", f20000.substr(0, 9000), 8192},
      {"larger frame", "", f20000 + noise, 20010},
      {"rest of a frame", f20000.substr(0, 15000), f20000.substr(15000) + Plain("abc") + noise,
       5015},
      {"less room", f25000.substr(0, 24000), f25000.substr(24000) + p3000 + p3000 + noise, 4012},
      {"open message", "", "abc" + Frame("x") + Frame("y") + noise, 17},
      {"short message", "", Plain(std::string(5000, 'a')) + Plain("a") + noise, 5002},
  };
  for (const auto& [what, cola, pending, count] : cases) {
    EXPECT_EQ(feed::ReadSlicer().Next(cola, pending), count) << what;
  }
}

}  // namespace
