#include "alarms/form_alarm.h"

#include "fixture.h"

namespace {

using FormAlarm = AlarmTest;

TEST_F(FormAlarm, DeletesWhatNowStandsInTheChosenLine) {
  for (const char* code : {"A", "B", "C", "D"}) Define(Alarm(code, 1));
  form.Command7.Click();  // nothing chosen: only writes
  EXPECT_EQ(form.List1.items().size(), 4U);
  EXPECT_TRUE(dir.Read("Al.Set").starts_with("4\r\n\"A      \""));
  form.List1.Click(1);
  const char* const lines[] = {"1 A       1 vender|2 C       1 vender|3 D       1 vender|",
                               "1 A       1 vender|2 D       1 vender|", "1 A       1 vender|", "",
                               ""};  // past the last alarm, that one goes
  for (const char* const expected : lines) {
    form.Command7.Click();
    std::string shown;
    for (const std::string& line : form.List1.items()) shown += line + '|';
    EXPECT_EQ(shown, expected);
  }
  EXPECT_EQ(dir.Read("Al.Set"), "0\r\n");
}

TEST_F(FormAlarm, OnlyHidesUntilTheProgramEnds) {
  form.Show();
  fired.Show();
  form.UserClose();
  EXPECT_TRUE(form.loaded() && !form.visible());
  fase_cierre = 1;
  EXPECT_TRUE(form.Unload() && fired.Unload());
}

}  // namespace
