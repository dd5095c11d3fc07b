#include "demo/wire.h"

#include <gtest/gtest.h>

#include "demo/packer.h"
#include "plain_terminal.h"
#include "support/bytes.h"

namespace demo {
namespace {

using support::F32;
using support::F64;
using support::I16;
using support::Pad;

TEST(Wire, RecordsHaveTheirFieldsInPlace) {
  Instrument state("ABC", "EJEMPLO, S.A.", 100, 1000);
  state.Trade(1025, 300, 93001);
  state.Trade(1010, 100, 93002);
  std::string master, quote, trade, book;
  wire::AppendMaster(master, state, 1000517);
  EXPECT_EQ(master, "ABC    " + F32(10) + F32(10.25f) + F32(10.10f) + F32(10.10f) + F32(400) +
                        F32(10.25f) + F64(4085) + F32(1000517) + F32(93002) +
                        Pad("EJEMPLO, S.A.", 20));
  wire::AppendQuote(quote, QuoteOf(state));
  EXPECT_EQ(quote, "ABC    " + F32(10.25f) + F32(10.10f) + F32(10.10f) + F32(400) + F64(4085));
  wire::AppendTrade(trade, {state.code, 'C', 93002, 100, 123, 456, 10.10f});
  EXPECT_EQ(trade, "C ABC  " + F32(93002) + I16(100) + I16(123) + I16(456) + F32(10.10f) +
                       std::string(4, '\0'));
  wire::AppendBook(book, state, OrderBook::OfTicks(3, 1, 1));
  ASSERT_EQ(book.size(), 91u);
  EXPECT_EQ(book.substr(27, 20), F32(.02f) + F32(.01f) + F32(0) + F32(0) + F32(0));
  EXPECT_EQ(book.substr(67, 20), F32(.04f) + F32(.05f) + F32(.06f) + F32(.07f) + F32(.08f));
  EXPECT_EQ(wire::Clock(93000, 1000426), "ST" + F32(93000) + F32(1000426) + std::string(8, '\0'));
}

TEST(Wire, BatchesStopAt98AndLeavePagesOut) {
  wire::Batches batches(wire::Batches::Kind::kInstruments);
  const auto add = [&](std::string_view record) {
    batches.Add([&](std::string& out) { out += record; });
  };
  for (int i = 0; i < 100; ++i) add("record");
  add("a Pag e");
  add("ends in Pa");
  add("g");
  std::vector<std::string> messages;
  batches.TakeInto(messages);
  ASSERT_EQ(messages.size(), 2u);
  EXPECT_EQ(messages[0].substr(0, 13), "99,0098record");
  EXPECT_EQ(messages[1], "99,0003recordrecordends in Pa");
}

TEST(Packer, NoMessageIsLostOrTornWhateverItsBytes) {
  const std::string pieces[] = {std::string("\0AZ[", 4), "\xFF\xFE", "]",  "12",
                                std::string(1, '\0'),    "\xFF",     "MQ", "a"};
  Random random(4);
  Packer packer(1);
  PlainTerminal terminal;
  for (int round = 0; round < 3000; ++round) {
    std::vector<std::string> messages(static_cast<std::size_t>(random.Between(1, 12)));
    for (std::string& message : messages) {
      message = "m";
      for (int i = random.Below(6); i > 0; --i) message += pieces[random.Below(8)];
    }
    std::string bytes;
    switch (random.Below(3)) {
      case 0:
        packer.PackSmall(messages, bytes);
        break;
      case 1:
        packer.Pack(messages, bytes);
        break;
      default:
        messages.resize(1);
        packer.PackShort(messages.front(), bytes);
    }
    terminal.Clear();
    terminal.Read(bytes);
    ASSERT_EQ(terminal.messages, messages);
  }
}

}  // namespace
}  // namespace demo
