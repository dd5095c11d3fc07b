#include <gtest/gtest.h>
#include <memory>

#include <QApplication>

namespace {

/// The one application object that everything with a widget or an event loop needs.
class Application : public testing::Environment {
 public:
  void SetUp() override { application_ = std::make_unique<QApplication>(argc_, argv_); }
  void TearDown() override { application_.reset(); }

 private:
  int argc_ = 1;
  char name_[8] = "qt_test";
  char* argv_[2] = {name_, nullptr};
  std::unique_ptr<QApplication> application_;
};

[[maybe_unused]] const testing::Environment* const kApplication =
    testing::AddGlobalTestEnvironment(new Application);

}  // namespace
