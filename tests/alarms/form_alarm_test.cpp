#include "alarms/form_alarm.h"

#include "fixture.h"

namespace {

using FormAlarm = AlarmTest;

TEST_F(FormAlarm, DeletesWhatNowStandsInTheChosenLine) {
  for (const char* code : {"A", "B", "C", "D"}) Define(Alarm(code, 1));
  form.Command7.Click();  // nothing chosen: only writes
  EXPECT_TRUE(dir.Read("Al.Set").starts_with("4\r\n\"A      \""));
  form.List1.Click(1);
  for (const char* const expected :
       {"1 A       1 vender|2 C       1 vender|3 D       1 vender|",
        "1 A       1 vender|2 D       1 vender|", "1 A       1 vender|", "", ""}) {
    form.Command7.Click();  // past the last alarm, that one goes
    EXPECT_EQ(Lines(form.List1), expected);
  }
  EXPECT_EQ(dir.Read("Al.Set"), "0\r\n");
}

TEST_F(FormAlarm, OnlyHidesUntilTheProgramEnds) {
  form.Show();
  form.UserClose();
  EXPECT_TRUE(form.loaded() && !form.visible());
  fase_cierre = 1;
  EXPECT_TRUE(form.Unload());
}

}  // namespace
