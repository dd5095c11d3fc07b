#include "calc/lines.h"

#include <cmath>
#include <gtest/gtest.h>

namespace {

using calc::Fields, calc::LineReader, calc::Value;

TEST(Lines, ComeOutTheSameWhereverTheBytesAreCut) {
  const std::string limit(LineReader::kMaxLine, 'x');
  const std::string bytes = "one\n\ntwo\tá\n" + limit + "\n" + limit + "x\nlast\nbegun";
  const std::vector<std::string> expected{"one", "", "two\tá", limit, "last"};
  for (const std::size_t step : {1, 2, 3, 5, 7, 4096, 200000}) {
    LineReader reader;
    std::vector<std::string> lines;
    for (std::size_t at = 0; at < bytes.size(); at += step) {
      reader.Feed(std::string_view(bytes).substr(at, step),
                  [&](std::string_view line) { lines.emplace_back(line); });
    }
    EXPECT_EQ(lines, expected) << step;
    reader.Clear();
    reader.Feed("\n", [](std::string_view line) { EXPECT_EQ(line, ""); });
  }
}

TEST(Lines, ACellReadsBackAsItWasWritten) {
  std::string long_text;
  for (int i = 0; i < 300; ++i) long_text += "ñ";
  const std::vector<std::pair<Value, Value>> cells{
      {{}, {}},
      {"", {}},
      {"=1", "=1"},
      {"'12", "'12"},
      {"\t\r\n\\t\\", "\t\r\n\\t\\"},
      {long_text, long_text.substr(0, 510)},
      {0.1F, double{0.1F}},
      {-1e300, -1e300},
      {5e-324, 5e-324},
      {123456789.25, 123456789.25},
      {std::nan(""), {}},
      {-INFINITY, {}},
  };
  for (const auto& [written, read] : cells) {
    Value value = written;
    calc::MakeSendable(value);
    std::string line = "row\t200\t15";
    calc::AppendCell(line, value);
    EXPECT_EQ(line.find_first_of("\r\n"), std::string::npos);
    Fields fields(line);
    EXPECT_EQ(fields.Word(), "row");
    calc::RowLine row;
    ASSERT_TRUE(calc::ReadRow(fields, row)) << line;
    EXPECT_EQ(row.cells.at(0).value, read) << line;
  }
}

TEST(Lines, ARowThatIsBrokenAnywhereIsRefused) {
  const std::string long_formula = "1\t1\t=" + std::string(255, '1');
  for (const std::string text : {"",
                                 "1",
                                 "1\t1",
                                 "0\t1\t5",
                                 "201\t1\t5",
                                 "1\t0\t5",
                                 "1\t16\t5",
                                 "1\t15\t5\t5",
                                 "-1\t1\t5",
                                 "+1\t1\t5",
                                 " 1\t1\t5",
                                 "1.0\t1\t5",
                                 "99999999999\t1\t5",
                                 "1\t1\tx",
                                 "1\t1\t5x",
                                 "1\t1\t 5",
                                 "1\t1\t5,5",
                                 "1\t1\t+5",
                                 "1\t1\tinf",
                                 "1\t1\tnan",
                                 "1\t1\t1e999",
                                 "1\t1\t0x10",
                                 "1\t1\t5\r",
                                 "1\t1\t'\\x",
                                 "1\t1\t'\\",
                                 "1\t1\t5\tx",
                                 long_formula.c_str()}) {
    Fields fields(text);
    calc::RowLine row;
    EXPECT_FALSE(calc::ReadRow(fields, row)) << text;
  }
}

}  // namespace
