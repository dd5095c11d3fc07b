#include "alarms/alarm_file.h"

#include "fixture.h"

namespace {

constexpr const char* kTwo =
    "2\r\n"
    "\"TEF    \"\r\n\"Vender 'ya' \xF1 \x80\"\r\n19.5\r\n19.5\r\n1\r\n1\r\n"
    "\"* SAN  \"\r\n\"\"\r\n1234567\r\n0.1\r\n2\r\n4\r\n";

class AlarmFile : public AlarmTest {
 protected:
  int Load(const std::string& text) {
    dir.Write("Al.Set", text);
    table.CargarAlarmas();
    return table.NumAlarmas();
  }
};

TEST_F(AlarmFile, HoldsTheseBytes) {
  Define(Alarm("TEF", 19.5F, 1, 1, "Vender \"ya\"\nñ €"));
  Define({store::Codigo("* SAN"), 1234567, 0.1F, 4, 2, ""});
  table.GuardarAlarmas();
  EXPECT_EQ(dir.Read("Al.Set"), kTwo);
  ASSERT_EQ(Load(kTwo), 2);
  EXPECT_EQ(table.Linea(1), "1 TEF     19.5 Vender 'ya' ñ €");
  table.GuardarAlarmas();
  EXPECT_EQ(dir.Read("Al.Set"), kTwo);
}

TEST_F(AlarmFile, GivesTheAlarmsThatAreWhole) {
  const std::string first = "\"A\"\n\"o\"\n1\n1\n1\n1\n";
  const std::vector<std::pair<std::string, int>> cases = {
      {"", 0},
      {"\"1\"\n" + first, 0},
      {"x\n" + first, 0},
      {"-3\n" + first, 0},
      {"1e999\n" + first, 0},
      {"1e300\n" + first + first, 2},
      {" 1 \n" + first + first, 1},
      {"2\n" + first + "\"B\"\n\"o\"\n1\n1\n1\n", 1},         // ends in the middle
      {"2\n" + first + "\"B\"\n\"o\"\n1e39\n1\n1\n1\n", 1},   // no float
      {"2\n" + first + "\"B\"\n\"o\"\n1\n1\n40000\n1\n", 1},  // no int16
      {"2\n" + first + "\"B\"\n1\n1\n1\n1\n" + first, 1},     // a line is missing
      {"2\n" + first + "\"B\"\n\"o\"\nnan\n1\n1\n1\n", 1},
      {"\r\n1\r\r\n\t\"A\"  \n\n  \"o\"x\n .5 \n-.5\n+1\n1", 1},
      {"1\n\"A\no\n1,5\n1\n1\n1\n", 1},
      {std::string(3U << 20, '7'), 0},
      {"1\n" + first + std::string(5U << 20, '\n'), 1},
  };
  for (const auto& [text, count] : cases) EXPECT_EQ(Load(text), count) << text.substr(0, 80);
  std::string many = "501\n";
  for (int i = 0; i < 501; ++i) many += first;
  EXPECT_EQ(Load(many), 500);
}

}  // namespace
