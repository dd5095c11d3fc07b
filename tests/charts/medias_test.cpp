#include "charts/medias.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "support/memory_platform.h"

namespace {

class MediasTest : public testing::Test {
 protected:
  void Ask(const std::string& who) {
    medias.Pedir([this, who](const std::string& text) { heard.push_back(who + ":" + text); });
  }

  support::MemoryPlatform outside;
  std::int16_t FaseCierre = 0;
  charts::Medias medias{outside, FaseCierre};
  std::vector<std::string> heard;
};

TEST_F(MediasTest, EveryWayOutAnswersOnceAndHidesIt) {
  const auto way_out = [this](const std::string& who, const auto& leave) {
    Ask(who);
    EXPECT_EQ(outside.desktop().focus, &medias.Text1);
    leave();
    EXPECT_FALSE(medias.visible());
    medias.Command1_Click();
  };
  medias.Text1.set_text("20");
  way_out("accept", [this] { medias.Command1.Click(); });
  way_out("enter", [this] { medias.Text1.on_enter(); });
  way_out("cancel", [this] { medias.Command2.Click(); });
  medias.Text1.set_text("5");
  way_out("cross", [this] { medias.UserClose(); });
  EXPECT_TRUE(medias.loaded());
  Ask("first");
  Ask("second");
  medias.Text1.set_text("7");
  medias.Command1.Click();
  EXPECT_EQ(heard,
            (std::vector<std::string>{"accept:20", "enter:20", "cancel:", "cross:", "second:7"}));
}

TEST_F(MediasTest, GivesWayToTheEndOfTheProgram) {
  Ask("nobody");
  FaseCierre = 1;
  EXPECT_TRUE(medias.Unload());
  Ask("late");
  EXPECT_FALSE(medias.loaded());
  medias.Command1_Click();
  EXPECT_TRUE(heard.empty());
}

}  // namespace
