#include "views/resizer.h"

#include <gtest/gtest.h>

#include "platform/controls.h"

namespace {

using platform::Rect;

class Proportions : public testing::Test {
 protected:
  Proportions() {
    upper.set_rect({105, 30, 795, 305});
    lower.set_rect({105, 335, 795, 410});
    resizer.Add(upper);
    resizer.Add(lower);
    resizer.Sized(4000, 3000);
  }

  platform::Label upper, lower;
  views::Resizer resizer;
};

TEST_F(Proportions, NeitherDriftNorTearApart) {
  for (int size = 1; size < 5000; size += 7) {
    resizer.Sized(size, 2 * size);
    ASSERT_EQ(upper.rect().top + upper.rect().height, lower.rect().top) << size;
  }
  for (const auto& [width, height] : {std::pair{0, 3000}, {4000, -5}, {4000, 3000}}) {
    resizer.Sized(width, height);
  }
  EXPECT_EQ(upper.rect(), (Rect{105, 30, 795, 305}));
  EXPECT_EQ(lower.rect(), (Rect{105, 335, 795, 410}));
}

TEST_F(Proportions, GoOnFromTheSizeThatTheWindowTookWhileOff) {
  resizer.Sized(8000, 6000);
  resizer.set_enabled(false);
  for (const int height : {12345, 9000}) resizer.Sized(8000, height);
  EXPECT_EQ(upper.rect(), (Rect{210, 60, 1590, 610}));
  resizer.set_enabled(true);
  resizer.Sized(8000, 4500);
  EXPECT_EQ(upper.rect(), (Rect{210, 30, 1590, 305}));
}

TEST(Resizer, ShrinksWhatDoesNotFitIntoTheFirstSize) {
  platform::Label label;
  label.set_rect({1000, 300, 3000, 600});
  views::Resizer resizer;
  resizer.Add(label);
  resizer.set_least(4000, 3000);
  resizer.Sized(2000, 4500);
  EXPECT_EQ(label.rect(), (Rect{500, 300, 1500, 600}));
}

}  // namespace
