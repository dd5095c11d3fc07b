#include "platform/ticker.h"

#include <gtest/gtest.h>
#include <string>

namespace {

TEST(Ticker, TakesOutEveryItemOfAKey) {
  platform::Ticker ticker;
  ticker.PonerTexto("uno", "", 7, 80, "");
  for (const char* text : {"dos", "tres"}) ticker.PonerTexto(text, "TEF", 10, 30, "t");
  ticker.Clean();
  EXPECT_FALSE(ticker.QuitarItem("SAN") || ticker.dirty());
  EXPECT_TRUE(ticker.QuitarItem(ticker.items()[1].key) && ticker.dirty());
  ASSERT_EQ(ticker.items().size(), 1U);
  EXPECT_EQ(ticker.items()[0].text, "uno");
}

TEST(Ticker, CutsTextsToOneLineOf500CharactersAndBoundsItsItems) {
  platform::Ticker ticker;
  std::string text = "a\r\nb\t", cut = "a  b ";
  for (int i = 0; i < 600; ++i) text += "ñ";
  for (int i = 0; i < 495; ++i) cut += "ñ";
  ticker.PonerTexto(text, "", 7, 0, "");
  EXPECT_EQ(ticker.items()[0].text, cut);
  for (int i = 0; i < 600; ++i) ticker.PonerTexto(std::to_string(i), "", 7, 0, "");
  ASSERT_EQ(ticker.items().size(), platform::Ticker::kMaxItems);
  EXPECT_EQ(ticker.items()[0].text, "88");
}

}  // namespace
