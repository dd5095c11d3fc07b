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
    EXPECT_EQ(one.Cumplida(Quote("TEF", c.last, c.volume)), c.fires) << &c - cases;
  }
}

TEST_F(Evaluate, FiresOneAnUpdateAndNeverAgain) {
  Define(Alarm("TEF", 50));
  Define(Alarm("TEF", 10, 1, 4, "avisar"));
  Define(Alarm("TEF", 20));
  Define(Alarm(" TEF", 10));
  Arrive(Quote("TEF", 20.5F));
  EXPECT_EQ(Lines(fired.List1), "93005 CAÑAS                A 20.5  Orden: avisar|");
  for (const char* code : {"TEF", "TEF", "* TEF"}) Arrive(Quote(code, 20.5F));
  EXPECT_EQ(Lines(form.List1),
            "1 TEF     50 vender|2 * TEF   10 avisar|3 * TEF   20 vender|4  TEF    10 vender|");
  EXPECT_EQ(fired.List1.items().size(), 2U);
  EXPECT_FALSE(dir.Has("Al.Set"));
}

TEST_F(Evaluate, BeepsEverySecondUntilTheUserTakesNote) {
  const auto beeps = [this](int ms) {
    const int before = outside.sound().beeps;
    outside.avanzar(ms);
    return outside.sound().beeps - before;
  };
  const auto fire = [this](const char* code) {
    Define(Alarm(code, 1));
    Arrive(Quote(code, 1));
  };
  fire("A");
  EXPECT_EQ(outside.desktop().log, std::vector<std::string>{"raised Lista de alarmas"});
  EXPECT_EQ(beeps(999), 0);
  fire("B");  // doesn't start the second anew
  EXPECT_EQ(beeps(3001), 4);
  fired.Form_DblClick();
  EXPECT_TRUE(fired.visible());
  EXPECT_EQ(beeps(3000), 0);
  fire("C");
  fired.UserClose();
  EXPECT_TRUE(!fired.visible() && fired.loaded());
  EXPECT_EQ(beeps(3000), 0);
  fire("D");
  EXPECT_TRUE(fired.visible());
  EXPECT_EQ(beeps(1000), 1);
  fase_cierre = 1;
  EXPECT_TRUE(fired.Unload());
  EXPECT_EQ(beeps(3000), 0);
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
