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

TEST_F(Proportions, FollowTheInnerSize) {
  EXPECT_EQ(upper.rect(), (Rect{105, 30, 795, 305}));
  resizer.Sized(8000, 4500);
  EXPECT_EQ(upper.rect(), (Rect{210, 45, 1590, 458}));
  EXPECT_DOUBLE_EQ(resizer.scale_x(), 2);
  EXPECT_DOUBLE_EQ(resizer.scale_y(), 1.5);
}

TEST_F(Proportions, NeitherDriftNorTearApart) {
  for (int size = 1; size < 5000; size += 7) {
    resizer.Sized(size, 2 * size);
    ASSERT_EQ(upper.rect().top + upper.rect().height, lower.rect().top) << size;
  }
  resizer.Sized(0, 3000);
  resizer.Sized(4000, -5);
  resizer.Sized(4000, 3000);
  EXPECT_EQ(upper.rect(), (Rect{105, 30, 795, 305}));
  EXPECT_EQ(lower.rect(), (Rect{105, 335, 795, 410}));
}

TEST_F(Proportions, GoOnFromTheSizeThatTheWindowTookWhileOff) {
  resizer.Sized(8000, 6000);
  resizer.set_enabled(false);
  resizer.Sized(8000, 12345);
  resizer.Sized(8000, 9000);
  EXPECT_EQ(upper.rect(), (Rect{210, 60, 1590, 610}));
  resizer.set_enabled(true);
  resizer.Sized(8000, 4500);
  EXPECT_EQ(upper.rect(), (Rect{210, 30, 1590, 305}));
  resizer.Sized(8000, 9000);
  EXPECT_EQ(upper.rect(), (Rect{210, 60, 1590, 610}));
}

}  // namespace
