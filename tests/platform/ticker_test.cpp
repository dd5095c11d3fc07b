#include "platform/ticker.h"

#include <gtest/gtest.h>
#include <string>

namespace {

std::string Texts(const platform::Ticker& ticker) {
  std::string text;
  for (const auto& item : ticker.items()) text += item.key + "=" + item.text + " ";
  return text;
}

TEST(Ticker, TakesOutEveryItemOfAKey) {
  platform::Ticker ticker;
  ticker.PonerTexto("uno", "", 7, 80, "");
  ticker.PonerTexto("dos", "TEF", 10, 30, "t");
  ticker.PonerPicture(platform::Picture::connected, "", "");
  ticker.PonerTexto("tres", "TEF", 12, 30, "t");
  ticker.Clean();
  EXPECT_FALSE(ticker.QuitarItem("SAN"));
  EXPECT_FALSE(ticker.dirty());
  EXPECT_TRUE(ticker.QuitarItem(ticker.items()[1].key));
  EXPECT_TRUE(ticker.dirty());
  EXPECT_EQ(Texts(ticker), "=uno = ");
  EXPECT_TRUE(ticker.QuitarItem(""));
  EXPECT_TRUE(ticker.items().empty());
}

TEST(Ticker, CutsTextsToOneLineOf500CharactersAndBoundsItsItems) {
  platform::Ticker ticker;
  std::string text = "a\r\nb\t";
  for (int i = 0; i < 600; ++i) text += "ñ";
  ticker.PonerTexto(text, "", 7, 0, "");
  EXPECT_EQ(ticker.items()[0].text.substr(0, 7), "a  b ñ");
  EXPECT_EQ(ticker.items()[0].text.size(), 5u + 2 * 495u);
  for (int i = 0; i < 600; ++i) ticker.PonerTexto(std::to_string(i), "", 7, 0, "");
  ASSERT_EQ(ticker.items().size(), platform::Ticker::kMaxItems);
  EXPECT_EQ(ticker.items()[0].text, "88");
}

}  // namespace
