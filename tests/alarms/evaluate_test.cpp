#include "alarms/evaluate.h"

#include <cmath>
#include <random>

#include "fixture.h"

namespace {

using Evaluate = AlarmTest;

TEST_F(Evaluate, MeetsPriceByConditionAndVolumeByKind) {
  const float nan = std::nanf("");
  const struct {
    float value;
    int condition, kind;
    float last, volume;
    bool fires;
  } cases[] = {
      {10, 1, 1, 10, 0, true},      {10, 2, 1, 10, 0, true},     {10, 1, 1, 9.99F, 99, false},
      {10, 2, 1, 10.01F, 0, false}, {0.1F, 1, 1, 0.1F, 0, true}, {500, 1, 4, 10, 500, true},
      {500, 1, 4, 10, 499, false},  {500, 1, 4, 500, 0, true},  // by its price
      {500, 2, 4, 600, 400, false}, {10, 1, 0, 11, 0, true},     {10, 0, 1, 10, 10, false},
      {10, 1, 4, nan, nan, false},  {10, 2, 1, nan, 99, false},  {10, 1, 4, nan, 10, true},
  };
  for (const auto& c : cases) {
    alarms::AlarmTable one(program);
    ASSERT_TRUE(one.Agregar(Alarm("TEF", c.value, c.condition, c.kind)));
    EXPECT_EQ(one.Cumplida(Quote("TEF", c.last, c.volume)), c.fires ? 1 : 0)
        << &c - cases << ": " << c.value;
  }
}

TEST_F(Evaluate, FiresOneAnUpdateAndNeverAgain) {
  Define(Alarm("TEF", 50));
  Define(Alarm("TEF", 10, 1, 4, "avisar"));
  Define(Alarm("TEF", 20));
  Define(Alarm(" TEF", 10));
  const auto quote = Quote("TEF", 20.5F);
  Arrive(quote);
  EXPECT_EQ(fired.List1.items(),
            std::vector<std::string>{"93005 CAÑAS                A 20.5  Orden: avisar"});
  EXPECT_EQ(form.List1.items().at(1), "2 * TEF   10 avisar");
  Arrive(quote);
  EXPECT_EQ(form.List1.items().at(2), "3 * TEF   20 vender");
  Arrive(quote);
  Arrive(Quote("* TEF", 20.5F));
  EXPECT_EQ(fired.List1.items().size(), 2U);
  EXPECT_FALSE(dir.Has("Al.Set"));
}

TEST_F(Evaluate, BeepsEverySecondUntilTheUserTakesNote) {
  for (const char* code : {"A", "B", "C", "D"}) Define(Alarm(code, 1));
  const auto beeps = [this](int ms) {
    const int before = outside.sound().beeps;
    outside.avanzar(ms);
    return outside.sound().beeps - before;
  };
  Arrive(Quote("A", 1));
  EXPECT_EQ(outside.desktop().log.back(), "raised Lista de alarmas");
  EXPECT_EQ(beeps(999), 0);
  Arrive(Quote("B", 1));  // doesn't start the second anew
  EXPECT_EQ(beeps(3001), 4);
  fired.Form_DblClick();
  EXPECT_TRUE(fired.visible());
  EXPECT_EQ(beeps(3000), 0);
  Arrive(Quote("C", 1));
  fired.UserClose();
  EXPECT_TRUE(!fired.visible() && fired.loaded());
  EXPECT_EQ(beeps(3000), 0);
  Arrive(Quote("D", 1));
  EXPECT_TRUE(fired.visible());
  EXPECT_EQ(beeps(1000), 1);
  fired.Command5.Click();
  EXPECT_FALSE(fired.visible());
  EXPECT_EQ(beeps(3000), 0);
  EXPECT_EQ(fired.List1.items().size(), 4U);
}

TEST_F(Evaluate, FindsWhatAPlainScanFinds) {
  std::minstd_rand random(7);
  const auto pick = [&](unsigned n) { return static_cast<int>(random() % n); };
  const auto code = [&] {
    std::string text(7, ' ');
    for (int k = 0; k < 2; ++k) text[static_cast<std::size_t>(pick(7))] = "AB"[pick(2)];
    return text;
  };
  for (int round = 0; round < 3000; ++round) {
    (void)table.Agregar(Alarm(code(), static_cast<float>(pick(100)), 1 + pick(2)));
    if (pick(5) == 0) table.Eliminar(1 + pick(400));
    const auto quote = Quote(code(), static_cast<float>(pick(100)));
    int expected = 0;
    for (int i = table.NumAlarmas(); i > 0; --i) {
      const alarms::Alarma& a = table[i];
      const float above = quote.Ultimo - a.AlarmaValor;
      const bool met = a.AlarmaCondicion == 1 ? above >= 0 : above <= 0;
      if (met && a.AlarmaCodigo == quote.Codigo) expected = i;
    }
    ASSERT_EQ(table.Cumplida(quote), expected) << round;
    if (expected > 0) table.Marcar(expected);
  }
}

}  // namespace
