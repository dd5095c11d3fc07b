#include "metastock/reply_reader.h"

#include <gtest/gtest.h>
#include <vector>

#include "base/inflate.h"
#include "support/wire.h"

namespace {

using metastock::Reply;
using metastock::ReplyReader;
using support::Frame;

const std::string kHead("\0AZ[", 4);

std::string Packed(std::string_view text) { return Frame(base::Compress(text)); }

/// "kind code rows" of every reply, joined by ";".
std::string Read(ReplyReader& reader, const std::vector<std::string>& reads) {
  std::string text;
  for (const std::string& read : reads) {
    const auto reply = reader.Recibir(read);
    if (!reply) continue;
    text += "IDN"[static_cast<int>(reply->kind)];
    text += " " + std::string(reply->code.trimmed()) + " " + reply->rows + ";";
  }
  return text;
}

TEST(ReplyReader, TakesAReplySplitAnywhereButInItsHead) {
  const std::string wire = "junk" + Frame("no reply") + Packed("DATD:TEF    1234the rows");
  const std::size_t head = wire.rfind(kHead);
  const auto torn = [head](std::size_t cut) { return cut > head && cut < head + kHead.size(); };
  for (std::size_t a = 0; a <= wire.size(); ++a) {
    for (std::size_t b = a; b <= wire.size(); ++b) {
      ReplyReader reader;
      EXPECT_EQ(Read(reader, {wire.substr(0, a), wire.substr(a, b - a), wire.substr(b)}),
                torn(a) || torn(b) ? "" : "D TEF the rows;")
          << a << " " << b;
    }
  }
}

TEST(ReplyReader, LeavesOutWhatIsNoReply) {
  const std::string good = Packed("DATA:TEF    1234rows");
  const std::string again = Packed("DATD:SAN    1234rows");
  const std::string end = "DATA:TEF    #END";
  const struct {
    const char* name;
    std::vector<std::string> reads;
    const char* replies;
  } kCases[] = {
      {"plain payload", {Frame("DATA:TEF    1234rows") + good}, "I TEF rows;"},
      {"not to be expanded", {Frame("MQ no zlib") + good}, "I TEF rows;"},
      {"something else", {Packed("DATX:TEF") + Packed("") + good}, "I TEF rows;"},
      {"short",
       {Packed("DATA:"), Packed("DATD:AB"), Packed("DATA:TEF    123")},
       "I  ;D AB ;I TEF ;"},
      {"the rest of a read", {good + again, again}, "I TEF rows;D SAN rows;"},
      {"length 0", {kHead + "0]" + good, again}, "D SAN rows;"},
      {"negative", {kHead + "-5]" + good, again}, "D SAN rows;"},
      {"unreadable", {kHead + "1E999]" + good, again}, "D SAN rows;"},
      {"longer than can be kept", {kHead + "9999999]" + good, again}, "D SAN rows;"},
      {"end", {end, end + "?", "x" + end, "DATA:TEF    #EN", "DATD:TEF    #END"}, "N TEF ;N TEF ;"},
      {"end beside a frame", {end + Frame("x"), Frame("x") + end}, ""},
      {"length without an end", {kHead + "12", "34"}, ""},
  };
  for (const auto& test : kCases) {
    ReplyReader reader;
    EXPECT_EQ(Read(reader, test.reads), test.replies) << test.name;
  }
}

TEST(ReplyReader, KeepsNoMoreThanItMay) {
  ReplyReader reader;
  const std::string megabyte(1 << 20, '7');
  EXPECT_EQ(Read(reader, {"junk" + kHead, megabyte, megabyte, megabyte}), "");
  EXPECT_EQ(reader.DataCarry().size(), 3 * megabyte.size() + 4);  // not what stood before the head
  EXPECT_EQ(Read(reader, {megabyte}), "");
  EXPECT_EQ(reader.DataCarry(), "");
  EXPECT_EQ(Read(reader, {"junk" + kHead + "4194290]"}), "");
  EXPECT_EQ(reader.DataCarry(), "") << "with what stands before it there is no room";
  EXPECT_EQ(Read(reader, {"junk" + kHead + "10]MQ"}), "");
  EXPECT_EQ(reader.DataCarry(), "junk" + kHead + "10]MQ");
}

}  // namespace
