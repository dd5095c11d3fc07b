#include "demo/store_format.h"

#include <gtest/gtest.h>

#include "support/meta_store.h"

namespace demo {
namespace {

TEST(StoreFormat, NumbersAreThoseOfTheChartingPackage) {
  for (const float value : {1.0f, -1.0f, 0.01f, 1000517.0f, 93000.0f, 15.2f, 1.5e8f, 0.0f}) {
    std::string bytes;
    store_format::AppendMbf(bytes, value);
    EXPECT_EQ(bytes, support::Mbf(value));
  }
}

}  // namespace
}  // namespace demo
