#include "demo/feed.h"

#include <algorithm>
#include <gtest/gtest.h>

#include "demo/catalogue.h"
#include "plain_terminal.h"

namespace demo {
namespace {

// A quiet market, in which only requests bring output, and one terminal.
class Session {
 public:
  explicit Session(const FeedOptions& options = {.quotes_per_second = 0, .start_second = 40'000})
      : feed(options), id(feed.Connect()) {}

  /// Sends, waits for one step and decodes.
  void Send(std::string_view bytes) {
    terminal.Clear();
    feed.Receive(id, bytes);
    Wait(20);
  }
  void Wait(int ms) {
    feed.Advance(ms);
    terminal.Read(feed.TakeOutput(id));
  }

  Feed feed;
  int id;
  PlainTerminal terminal;
};

TEST(Feed, SendsTheWholeMarketAfterLogIn) {
  Session session;
  session.Send(Line("TRZO:abc:abc") + Line("C:Brizna.Continuo"));
  EXPECT_TRUE(session.terminal.messages.empty());
  session.Send(LogIn());
  EXPECT_EQ(session.terminal.faults, std::vector<std::string>());
  // All but the two balances that terminals make a record of by themselves.
  EXPECT_EQ(session.terminal.mastered.size(), session.feed.market().listed() - 2);
  ASSERT_EQ(session.terminal.texts.size(), 1u);
  EXPECT_TRUE(session.terminal.texts[0].starts_with("DEMALE14:"));
  EXPECT_NE(session.terminal.texts[0].find("SIMULADOS"), std::string::npos);
  EXPECT_EQ(session.terminal.times, std::vector<float>{110640});
  session.Send(Line("TRZO:abcdefghijkl:abcdefghijkl"));
  EXPECT_EQ(session.terminal.messages, std::vector<std::string>{"0000"});
}

TEST(Feed, UnderstandsClientBytesCutAnywhere) {
  const std::string bytes = LogIn() + Line("TRZO:abc:abc") + Line("P:BVL    ") + Line("C:ELP    ");
  Session whole;
  whole.Send(bytes);
  ASSERT_EQ(whole.terminal.booked.size(), 1u);
  for (std::size_t cut = 1; cut < bytes.size(); ++cut) {
    Session session;
    session.feed.Receive(session.id, std::string_view(bytes).substr(0, cut));
    session.Send(std::string_view(bytes).substr(cut));
    EXPECT_EQ(session.terminal.messages, whole.terminal.messages) << cut;
  }
  Session slow;
  for (const char byte : bytes) slow.feed.Receive(slow.id, {&byte, 1});
  slow.Send("");
  EXPECT_EQ(slow.terminal.messages, whole.terminal.messages);
}

TEST(Feed, AnswersRequestsForOneInstrument) {
  Session session;
  session.Send(LogIn());
  using Codes = std::vector<std::string>;
  struct Case {
    std::string request;
    Codes masters, books;
  };
  const Case cases[] = {
      {"C:BVL    ", {"BVL    "}, {}},
      {"C:BVL.P", {"BVL.P  "}, {}},
      {"C:I IB   ", {"I IB   "}, {}},
      {"C:STSV   ", {}, {}},
      {"C:QQQ    ", {}, {}},
      {"C:", {}, {}},
      {"P:ELP    ", {}, {"ELP    "}},
      {"P:ELP    ", {}, {"ELP    "}},  // again after a reconnection
      {"P:PDIBXC ", {}, {"PDIBXC "}},
      {"P:I IB   ", {}, {}},
      {"P:QQQ    ", {}, {}},
      {"G:BVL    ", {}, {}},
      {"RNETCONTROL      :Msg001Ok", {}, {}},
      {"Not:0517", {}, {}},
      {"INIMER:.C", {}, {}},
      {"INIMER:.CBVL.P", {}, {}},
      {"INIMER:.XBVL", {}, {}},
  };
  for (const Case& one : cases) {
    session.Send(Line(one.request));
    EXPECT_EQ(session.terminal.mastered, one.masters) << one.request;
    EXPECT_EQ(session.terminal.booked, one.books) << one.request;
  }
}

TEST(Feed, OptionsComeToWhomAskedForThem) {
  Session session({.seed = 2, .start_second = 40'000});
  session.Send(LogIn());
  session.Send(Line("INIMER:.CTLB"));
  const auto is_option = [](const std::string& code) { return code.front() == '.'; };
  const auto options = [&](const std::vector<std::string>& codes, std::string_view start) {
    return std::count_if(codes.begin(), codes.end(),
                         [&](const std::string& code) { return code.starts_with(start); });
  };
  EXPECT_EQ(options(session.terminal.mastered, ".CTLB"), 10);
  EXPECT_EQ(options(session.terminal.mastered, ".P"), 0);

  const int other = session.feed.Connect();
  session.feed.Receive(other, LogIn());
  for (int second = 0; second < 60; ++second) session.Wait(1000);
  EXPECT_GT(options(session.terminal.quoted, ".CTLB"), 10);
  EXPECT_EQ(options(session.terminal.quoted, ".P"), 0);
  EXPECT_EQ(session.terminal.faults, std::vector<std::string>());

  PlainTerminal guest;
  guest.Read(session.feed.TakeOutput(other));
  EXPECT_TRUE(std::none_of(guest.quoted.begin(), guest.quoted.end(), is_option));
  EXPECT_TRUE(std::none_of(guest.mastered.begin(), guest.mastered.end(), is_option));
}

TEST(Feed, SameCallsGiveTheSameBytes) {
  const auto run = [](std::uint32_t seed, int slice) {
    Feed feed({.seed = seed});
    const int id = feed.Connect();
    feed.Receive(id, LogIn() + Line("P:BVL    "));
    for (int passed = 0; passed < 63'000; passed += slice) feed.Advance(slice);
    return feed.TakeOutput(id);
  };
  const std::string bytes = run(1, 100);
  EXPECT_GT(bytes.size(), 100'000u);
  EXPECT_TRUE(bytes == run(1, 100));
  EXPECT_TRUE(bytes == run(1, 7)) << "time in other slices";
  EXPECT_FALSE(bytes == run(2, 100));
}

// The clock of this second holds the bytes of the end mark.
TEST(Feed, ClockNeverTearsAPlainMessage) {
  Session session({.quotes_per_second = 0, .start_second = (13 * 60 + 5) * 60 + 50});
  session.Send(LogIn());
  for (int second = 0; second < 20; ++second) session.Wait(1000);
  EXPECT_EQ(session.terminal.faults, std::vector<std::string>());
  ASSERT_EQ(session.terminal.times.size(), 21u);
  for (int second = 0; second < 10; ++second) {
    EXPECT_EQ(session.terminal.times[static_cast<std::size_t>(second)], 130550 + second);
  }
}

TEST(Feed, SurvivesAHostileClient) {
  Session session;
  session.Send(LogIn());
  Random random(99);
  for (int round = 0; round < 2000; ++round) {
    std::string bytes;
    const char* const starts[] = {"", "P:", "C:", "INIMER:.", "TRZO:", "C:Brizna.Continuo", "ID:"};
    bytes += starts[random.Below(7)];
    for (int i = random.Below(60); i > 0; --i) bytes += static_cast<char>(random.Below(256));
    if (random.OneIn(2)) bytes += "\xFF\xFE";
    session.feed.Receive(session.id, bytes);
  }
  session.feed.Receive(session.id, std::string(3'000'000, 'x'));
  session.feed.Receive(session.id + 1, "P:");
  EXPECT_EQ(session.feed.TakeOutput(session.id + 1), "");
  session.Wait(5000);
  session.Send("\xFF\xFE" + Line("TRZO:a:b"));
  EXPECT_EQ(session.terminal.messages, std::vector<std::string>{"0000"});
}

TEST(Feed, AFloodOfRequestsBringsABoundedAnswer) {
  Session session;
  session.Send(LogIn());
  session.Wait(10'000);
  std::string flood;
  for (int i = 0; i < 20'000; ++i) {
    flood += Line("C:BVL    ") + Line("C:Brizna.Continuo") + Line("TRZO:a:b") + Line("P:BVL    ") +
             Line("INIMER:.CBVL");
  }
  session.feed.Receive(session.id, flood);
  session.feed.Advance(1000);
  EXPECT_LT(session.feed.TakeOutput(session.id).size(), 60'000u);
}

TEST(Feed, OutputThatNobodyTakesIsBounded) {
  Session session({.quotes_per_second = 100'000, .start_second = 40'000});
  session.Send(LogIn());
  session.feed.Advance(10'000);
  const std::string kept = session.feed.TakeOutput(session.id);
  EXPECT_LE(kept.size(), Connection::kMostPending);
  EXPECT_GT(kept.size(), Connection::kMostPending / 2);
  session.terminal.Read(kept);
  session.terminal.Clear();
  session.Wait(1000);
  EXPECT_EQ(session.terminal.faults, std::vector<std::string>());
  EXPECT_GT(session.terminal.quoted.size(), 1000u);
}

TEST(Catalogue, NamesAreFitForTheRecords) {
  std::vector<std::string> codes;
  const auto check = [&](std::string_view code, std::string_view name) {
    codes.emplace_back(code);
    const base::FixedText<20> kept = base::FixedText<20>::FromUtf8(name);
    EXPECT_EQ(kept.trimmed_utf8(), name);
    EXPECT_EQ(base::UpperUtf8(name), name);
    EXPECT_EQ(kept.bytes().find_first_of("?\xFE\xFF"), std::string_view::npos) << name;
    EXPECT_GE(static_cast<unsigned char>(kept[0]), '0') << name;
  };
  for (const auto& share : catalogue::Shares()) {
    check(share.code, share.name);
    EXPECT_TRUE(share.code.size() == 3 || (share.code.size() == 5 && share.code[3] == '.'));
    EXPECT_LT(static_cast<std::size_t>(share.sector), catalogue::Sectors().size());
  }
  for (const auto& index : catalogue::Sectors()) check(index.code, index.name);
  for (const auto& follower : catalogue::Followers()) check(follower.code, follower.name);
  for (const auto& statistic : catalogue::Statistics()) {
    check(statistic.code, statistic.name);
    EXPECT_TRUE(statistic.name.starts_with("ST"));
  }
  std::sort(codes.begin(), codes.end());
  EXPECT_EQ(std::adjacent_find(codes.begin(), codes.end()), codes.end());
}

}  // namespace
}  // namespace demo
