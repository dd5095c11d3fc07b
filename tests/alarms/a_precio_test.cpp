#include "alarms/a_precio.h"

#include <utility>

#include "fixture.h"

namespace {

class APrecio : public AlarmTest {
 protected:
  void Open(std::int16_t kind) {
    dialog.tipo = kind;
    dialog.Show();
  }
  void Accept(const char* code, const char* value, const char* order) {
    dialog.Text1.set_text(code);
    dialog.Text2.set_text(value);
    dialog.Text3.set_text(order);
    dialog.Command1.Click();
  }
};

TEST_F(APrecio, AddsListsAndSavesAnAlarm) {
  Define(Alarm("X", 1));
  Open(1);
  dialog.Option2.set_value(true);
  Accept("tef", "19.5x", "vender ya");
  EXPECT_EQ(Lines(form.List1), "1 X       1 vender|2 TEF     19.5 vender ya|");
  EXPECT_TRUE(dir.Read("Al.Set").ends_with("\"vender ya\"\r\n19.5\r\n19.5\r\n2\r\n1\r\n"));
  EXPECT_TRUE(!dialog.loaded() && dialog.tipo == 0);
  Open(1);  // as new
  EXPECT_EQ(dialog.Text1.text() + dialog.Text2.text() + dialog.Text3.text(), "");
  EXPECT_TRUE(dialog.Option1.value());
  dialog.Command2.Click();
  EXPECT_FALSE(dialog.loaded());
}

TEST_F(APrecio, AsksVolumesOnlyFromBelow) {
  Open(1);
  dialog.Option2.set_value(true);
  Open(4);
  EXPECT_EQ(dialog.Label5.caption() + dialog.Text2.label(), "VolumenVolumen");
  EXPECT_FALSE(dialog.Option2.enabled());
  Accept("TEF", "1e6", "");
  EXPECT_TRUE(table[1].AlarmaCondicion == 1 && table[1].AlarmaTipo == 4);
  Open(1);
  EXPECT_TRUE(dialog.Option2.enabled() && dialog.Label5.caption() == "Precio");
}

TEST_F(APrecio, StaysWithARefusedThresholdAndThenStoresNoKind) {
  for (const char* const value : {"", "0", "-1", "abc", ",5", "1e39", "1e999", "1e-60"}) {
    Open(4);
    Accept("TEF", value, "");
    EXPECT_TRUE(dialog.visible() && dialog.tipo == 0 && table.NumAlarmas() == 0) << value;
    EXPECT_EQ(std::exchange(outside.desktop().focus, nullptr), &dialog.Text2) << value;
  }
  EXPECT_FALSE(dir.Has("Al.Set"));
  Accept("TEF", "1,664.5", "");
  ASSERT_EQ(table.NumAlarmas(), 1);
  EXPECT_TRUE(table[1].AlarmaTipo == 0 && table[1].AlarmaValor == 1);
}

TEST_F(APrecio, CapitalisesALongCodeAndGoesOn) {
  Open(1);
  dialog.Text1.set_text("ñandúe");
  EXPECT_EQ(dialog.Text1.text(), "ñandúe");
  EXPECT_EQ(outside.desktop().focus, nullptr);
  dialog.Text1.set_text("ñandúesx");
  EXPECT_EQ(dialog.Text1.text(), "ÑANDÚESX");
  EXPECT_EQ(outside.desktop().focus, &dialog.Text2);
}

TEST_F(APrecio, SuggestsNamedInstrumentsByCodeAndThenByName) {
  const auto add = [this](std::string_view code, std::string_view name) {
    ASSERT_GT(store.AgregarSinDatos(store::Codigo::FromUtf8(code), base::Utf8ToAnsi(name)), 0);
  };
  add("ACE", "Acerías Tazo");
  add("TAZ", "ASTILLEROS TAZO");
  add("TAZX", "");
  add("ÑU", "Cañas");
  add("tad", "OTRA");
  add("X", "Tapas");
  const auto all = [this](std::string_view text) {
    std::string found;
    for (const auto& [code, name] : dialog.Sugerencias(text)) found += code + '=' + name + '|';
    return found;
  };
  EXPECT_EQ(all(" ta "), "TAZ=ASTILLEROS TAZO|tad=OTRA|X=Tapas|ACE=Acerías Tazo|");
  EXPECT_EQ(all("ñ"), "ÑU=Cañas|");
  EXPECT_EQ(all("CERÍ"), "ACE=Acerías Tazo|");
  EXPECT_EQ(all("  ") + all("") + all("zzz"), "");
  for (int i = 0; i < 20; ++i) add("B" + std::to_string(i), "TAZA");
  EXPECT_EQ(dialog.Sugerencias("TAZ").size(), 8U);
  EXPECT_EQ(dialog.Sugerencias("TAZ").at(0).codigo, "TAZ");
  add("TAZA", "DETRÁS");
  EXPECT_EQ(dialog.Sugerencias("TAZ").at(1).codigo, "TAZA") << "a code behind names";
}

TEST_F(APrecio, RefusesWhatTheTableCannotHold) {
  for (int i = 0; i < alarms::kMaxAlarmas; ++i) Define(Alarm(i < 499 ? "A" : "Z", 1));
  Open(1);
  Accept("TEF", "1", "");
  EXPECT_TRUE(dialog.visible() && dialog.tipo == 0 && table.NumAlarmas() == 500);
  EXPECT_EQ(outside.desktop().focus, nullptr) << "not for its threshold";
  Arrive(Quote("Z", 1));
  EXPECT_EQ(form.List1.items().at(499), "500 * Z     1 vender");
}

}  // namespace
