#include "feed/frame_codec.h"

#include <gtest/gtest.h>
#include <random>

#include "feed/frame.h"
#include "fixture.h"
#include "plain_codec.h"
#include "support/wire.h"

namespace {

using base::Compress;
using support::Frame;
using support::Plain;
using Texts = std::vector<std::string>;

const std::string kHead(feed::kCabezaTrama);

std::string Repeat(std::string_view text, int times) {
  std::string out;
  for (int i = 0; i < times; ++i) out += text;
  return out;
}

// A stream of sound and broken pieces of every kind.
std::string RandomStream(std::mt19937& random, std::size_t pieces, int depth = 0) {
  std::string out;
  while (pieces-- > 0) {
    const std::string text(random() % 9, static_cast<char>('a' + random() % 20));
    const std::string inner = depth < 3 ? RandomStream(random, random() % 4, depth + 1) : text;
    const std::string number = std::to_string(static_cast<int>(random() % 40) - 4);
    const std::string choice[] = {text,
                                  Plain(text),
                                  '\0' + Plain(text),
                                  Plain(inner),
                                  Frame(text),
                                  Frame(inner),
                                  Frame(inner),
                                  Frame(Compress(inner)),
                                  Frame("MQ" + text),
                                  kHead + "  " + text + "]",
                                  kHead + number + ".5]",
                                  kHead.substr(0, random() % 5),
                                  "Z[3]",
                                  "\xFE\xFF\xFE"};
    out += choice[random() % std::size(choice)];
  }
  return out;
}

TEST(FrameCodec, AgreesWithThePlainRulesWhereverAStreamIsSplit) {
  std::mt19937 random(41);
  std::size_t seen = 0;
  for (int round = 0; round < 400; ++round) {
    const std::string stream = RandomStream(random, 1 + random() % 9);
    for (std::size_t at = 0; at <= stream.size(); ++at) {
      Reader reader;
      PlainCodec judge;
      for (const std::string& part : {stream.substr(0, at), stream.substr(at), stream}) {
        reader.codec.Recibir(part);
        judge.DataArrival(part);
      }
      ASSERT_EQ(reader.codec.ColaTramas(), judge.ColaTramas) << "round " << round << " at " << at;
      ASSERT_EQ(reader.messages, judge.messages) << "round " << round << " at " << at;
      seen += judge.messages.size();
    }
  }
  EXPECT_GT(seen, 50000U);
}

TEST(FrameCodec, CarriesRepeatsUnwrapsAndLosesByItsRules) {
  const std::string third = Frame("third");
  const std::string y(29990, 'y');
  const std::string many = Repeat(Plain("m"), 60);
  Texts first49(49, "m");
  first49.push_back(many);
  const std::string chain = Frame("uno") + Frame("dos");
  const std::tuple<const char*, Texts, Texts> cases[] = {
      {"again", {Frame("1") + third.substr(0, 9), third.substr(9)}, {"1", "1", "third"}},
      {"tail of four", {Plain("uno") + "1234"}, {"uno"}},
      {"length 0", {Frame("") + third + Plain("uno")}, {}},
      {"30000 bytes", {Frame(y)}, {y}},
      {"30001 bytes", {Frame(y + "y")}, {}},
      {"30001 with the carry", {Frame(y).substr(0, 20000), y.substr(0, 10001), third}, {"third"}},
      {"52 frames", {Repeat(Frame("f"), 52) + Plain("uno")}, Texts(51, "f")},
      {"60 messages", {many}, first49},
      {"compressed", {Frame(Compress(chain))}, {"uno", "dos", ""}},
      {"broken", {Frame(Compress(chain).substr(0, 20))}, {Compress(chain).substr(0, 20)}},
      // The second head is searched from position 14 on, which lies before that of "b".
      {"nested",
       {Frame(Frame(Frame("a") + Frame("b")) + Frame("c"))},
       {"a", "b", "", "b", "c", ""}},
      {"16 bits", {Frame(kHead + "40000]abc" + Frame("d"))}, {"", ""}},
  };
  for (const auto& [what, reads, messages] : cases) {
    Reader reader;
    for (const std::string& read : reads) reader.codec.Recibir(read);
    EXPECT_TRUE(reader.messages == messages) << what;
  }
}

TEST(FrameCodec, KeepsItsBoundsForHostilePayloads) {
  std::string deep = "core";
  for (int i = 0; i < 32; ++i) deep = Frame(deep);
  Reader nested;
  nested.codec.Recibir(Frame(deep));
  nested.codec.Recibir(Frame(Frame(deep)));
  EXPECT_EQ(std::ranges::count(nested.messages, "core"), 1);

  // Half a million heads that share one "]".
  Reader heads;
  heads.codec.Recibir(Frame(Compress(Repeat(kHead + "8 ..", 500000) + "]12345678")));
  EXPECT_EQ(heads.messages.size(), 500001U);

  // 4 MiB a call, 16 MiB an event, and anew with the next event.
  const std::string most(std::size_t{4} << 20, 'q');
  Reader bombs;
  bombs.codec.Recibir(Frame(Compress(most + "q")));
  EXPECT_EQ(std::ranges::count(bombs.messages, most + "q"), 0);
  bombs.codec.Recibir(Repeat(Frame(Compress(most)), 6));
  EXPECT_EQ(std::ranges::count(bombs.messages, most), 4);
  bombs.codec.Recibir(Frame(Compress(most)));
  EXPECT_EQ(std::ranges::count(bombs.messages, most), 5);
}

}  // namespace
