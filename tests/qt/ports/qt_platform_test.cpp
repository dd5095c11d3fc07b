#include "qt/ports/qt_platform.h"

#include <gtest/gtest.h>

#include <QDateTime>

namespace {

platform::LocalTime Parts(const QDateTime& at) {
  return {at.date().year(), at.date().month(),  at.date().day(),
          at.time().hour(), at.time().minute(), at.time().second()};
}

TEST(QtPlatform, TellsTheTimeOfTheMachine) {
  const qt::Looks looks;
  const qt::QtPlatform platform(looks);
  platform::LocalTime before, now, after;
  do {
    before = Parts(QDateTime::currentDateTime());
    now = platform.local_time();
    after = Parts(QDateTime::currentDateTime());
  } while (before != after);
  EXPECT_EQ(now, before);
}

}  // namespace
