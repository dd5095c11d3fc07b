#include <algorithm>
#include <gtest/gtest.h>
#include <set>

#include "demo/catalogue.h"
#include "session.h"

namespace demo {
namespace {

TEST(Feed, SendsTheWholeMarketAfterLogIn) {
  Session session;
  session.Send(Line("TRZO:abc:abc") + Line("C:Brizna.Continuo"));
  EXPECT_TRUE(session.terminal.messages.empty());
  session.Send(LogIn());
  EXPECT_EQ(session.terminal.faults, std::vector<std::string>());
  // All but the two balances that terminals make a record of by themselves.
  EXPECT_EQ(session.terminal.mastered.size(), session.feed.market().listed() - 2);
  ASSERT_EQ(session.terminal.texts.size(), 2u);
  EXPECT_EQ(session.terminal.texts[0], "0003");  // so that one that comes back renews its books
  EXPECT_TRUE(session.terminal.texts[1].starts_with("DEMALE14:"));
  EXPECT_NE(session.terminal.texts[1].find("SIMULADOS"), std::string::npos);
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
  const auto options = [](const std::vector<std::string>& codes, std::string_view start) {
    return std::count_if(codes.begin(), codes.end(),
                         [&](const std::string& code) { return code.starts_with(start); });
  };
  EXPECT_EQ(options(session.terminal.mastered, ".CTLB"), 10);
  EXPECT_EQ(options(session.terminal.mastered, ".P"), 0);

  PlainTerminal guest;
  const int other = session.feed.Connect();
  session.feed.Receive(other, LogIn());
  session.Wait(60'000, 1000);
  guest.Read(session.feed.TakeOutput(other));
  EXPECT_GT(options(session.terminal.quoted, ".CTLB"), 10);
  EXPECT_EQ(options(session.terminal.quoted, ".P"), 0);
  EXPECT_EQ(options(guest.quoted, ".") + options(guest.mastered, "."), 0);
  EXPECT_EQ(session.terminal.faults, std::vector<std::string>());
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
  session.Wait(20'000, 1000);
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

// As after a reconnection of a terminal with many tickets.
TEST(Feed, ManyBooksAskedForAtOnceNeitherFloodNorHoldUpTheRest) {
  Session session({.quotes_per_second = 400,
                   .extra_instruments = 4000,
                   .bursts = false,
                   .start_second = 40'000});
  session.Send(LogIn());
  PlainTerminal guest;
  const int other = session.feed.Connect();
  session.feed.Receive(other, LogIn());
  session.Wait(2000);
  guest.Read(session.feed.TakeOutput(other));
  std::string requests;
  for (const auto& [code, state] : session.terminal.table) requests += Line("P:" + code);
  for (int round = 0; round < 2; ++round) {
    session.Send(requests + requests + Line("TRZO:a:b"));
    EXPECT_EQ(session.terminal.texts, std::vector<std::string>{"0000"});
    std::size_t most = 0;
    for (int step = 0; step < 50 * 2; ++step) {
      const std::size_t booked = session.terminal.booked.size();
      session.Wait(20);
      most = std::max(most, session.terminal.booked.size() - booked);
    }
    EXPECT_LE(most, 98u);
    guest.Clear();
    guest.Read(session.feed.TakeOutput(other));
    EXPECT_EQ(session.terminal.quoted, guest.quoted);
    const std::set<std::string> codes(session.terminal.booked.begin(),
                                      session.terminal.booked.end());
    EXPECT_EQ(codes.size(), 4000 + 146u);
    EXPECT_EQ(session.terminal.faults, std::vector<std::string>());
  }
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
  std::vector<std::pair<std::string_view, std::string_view>> all;
  const auto add = [&](const auto& entries) {
    for (const auto& entry : entries) all.emplace_back(entry.code, entry.name);
  };
  add(catalogue::Shares());
  for (const auto& [code, name] : all) {
    EXPECT_TRUE(code.size() == 3 || (code.size() == 5 && code[3] == '.')) << code;
  }
  add(catalogue::Sectors());
  add(catalogue::Followers());
  for (const auto& entry : catalogue::Statistics()) EXPECT_TRUE(entry.name.starts_with("ST"));
  add(catalogue::Statistics());
  for (const auto& [code, name] : all) {
    const base::FixedText<20> kept = base::FixedText<20>::FromUtf8(name);
    EXPECT_EQ(kept.trimmed_utf8(), name);
    EXPECT_EQ(base::UpperUtf8(name), name);
    EXPECT_EQ(kept.bytes().find_first_of("?\xFE\xFF"), std::string_view::npos) << name;
    EXPECT_GE(static_cast<unsigned char>(kept[0]), '0') << name;
  }
}

}  // namespace
}  // namespace demo
