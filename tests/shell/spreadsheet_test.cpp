#include "terminal_fixture.h"

namespace {

TEST_F(TerminalTest, AQuoteReachesTheSheetWhileTheLinkIsOn) {
  support::FakeSheet& sheet = outside.spreadsheet();
  sheet.running = true;
  sheet.Type(2, 1, "ALD");
  Start();
  LogIn("ALD");
  const auto quote = [this](std::string_view code, float last) {
    feed().Arrive(support::Frame("01,2:" + support::QuoteRecord({code, 12, 9, last, 500, 5000})));
  };
  PressTool(78);
  quote("ALD", 10.5F);
  EXPECT_EQ(sheet.writes, 0) << "before the answer";
  sheet.Answer();
  EXPECT_EQ(sheet.Row(2),
            "ALD|ACME                |9|0|=g2-c2|=((g2/c2)*100)-100|10.5|12|9|500|5000|0|0|250|10");
  sheet.Type(3, 1, "ibe");
  feed().Arrive(support::Frame(
      "99,1   " + support::MasterRecord({.code = "IBE", .name = "IBERIA", .last = 3})));
  quote("ALD", 10.25F);
  EXPECT_EQ(sheet.Row(3).substr(0, 37), "ibe|IBERIA              |0|0|||3|0|0|");
  EXPECT_EQ(sheet.Fore(2) + sheet.Fore(3), "2222221222222..222222c222222..");
  PressTool(79);
  const std::string row = sheet.Row(2);
  quote("ALD", 11);
  EXPECT_EQ(sheet.Row(2), row);
}

}  // namespace
