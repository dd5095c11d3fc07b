#include "feed/market_decoder.h"

#include <gtest/gtest.h>
#include <limits>

#include "fixture.h"
#include "support/wire.h"

namespace {

using support::BookRecord;
using support::F32;
using support::MasterRecord;
using Texts = std::vector<std::string>;

const float kNan = std::numeric_limits<float>::quiet_NaN();

std::string Quote(std::string_view code, float last) {
  return support::QuoteRecord({.code = code, .last = last});
}

class MarketDecoderTest : public testing::Test {
 protected:
  MarketDecoderTest() {
    decoder.steps.EnviarTexto = [this](auto text) { return sent.emplace_back(text), sending; };
    decoder.steps.RefrescarLibro = [this](int index) { books.push_back(index); };
    decoder.steps.SesionPerdida = [this] { ++lost; };
  }
  /// A batch of masters with these codes and, but for the blank ones, names.
  void Load(const Texts& codes, const std::string& name = "NAME") {
    std::string records;
    for (const auto& code : codes) records += MasterRecord({.code = code, .name = name});
    decoder.Proces("99," + support::Pad(std::to_string(codes.size()), 4) + records);
    market.updates.clear();
  }

  Market market;
  feed::MarketDecoder decoder{market.store, market.pipeline, market.strip};
  Texts sent;
  bool sending = true;
  std::vector<int> books;
  int lost = 0;
};

TEST_F(MarketDecoderTest, ShowsTheServersClock) {
  const std::tuple<float, float, const char*> cases[] = {
      {93000, 1000426, "09:30:00 26-04-2000"},   {173559, 1000103, "17:35:59 03-01-2000"},
      {-93000, 93000.5F, "17:35:59 03-01-2000"}, {kNan, kNan, "17:35:59 03-01-2000"},
      {235959, 990426, "23:59:59 42-90-09"},
  };
  for (const auto& [hora, fecha, shown] : cases) {
    decoder.Proces(support::Clock(hora, fecha));
    EXPECT_EQ(market.LT.caption() + ' ' + market.LF.caption(), shown);
  }
  decoder.Proces(support::Clock(90000, 990426).substr(0, 17));
  EXPECT_EQ(market.store.MercadoHora, 235959.0F);
}

TEST_F(MarketDecoderTest, StoresMastersOfItsTimesInOrderOfArrival) {
  decoder.Proces("99,3   " +
                 MasterRecord({.code = "ALD", .name = "A", .last = 12, .volume = 3, .cash = 30}) +
                 MasterRecord({.code = "BET", .name = "BETEL\xFEGEUSE\xFF", .opening = 7}) +
                 MasterRecord({.code = " no code", .name = "X"}));
  EXPECT_EQ(market.Table(), "ALD 12,BET 0");
  EXPECT_EQ(market.Label2.caption() + market.LT.tool_tip(), "Instrumentos: 23");
  EXPECT_EQ(market.updates, (std::vector{1, 2}));
  EXPECT_TRUE(market.quotes.empty());
  EXPECT_EQ(market.store.Instrumentos(1).Saldo, 6.0);
  EXPECT_EQ(market.store.Instrumentos(1).Hora, 93000.0F);
  EXPECT_EQ(market.store.Instrumentos(2).Apertura, 7.0F);
  EXPECT_EQ(market.store.Instrumentos(2).Nombre.trimmed(), "BETEL");

  std::string records;
  for (const float date : {990104.0F, 990105.0F, 1200103.0F, 1200104.0F, kNan}) {
    const std::string code = std::to_string(date);
    records += MasterRecord({.code = code, .name = "A", .date = date});
  }
  decoder.Proces("99,5   " + records);
  EXPECT_EQ(market.Table(), "ALD 12,BET 0,990105. 0,1200103 0");
}

TEST_F(MarketDecoderTest, DropsABatchThatClaimsMoreThanItBrings) {
  const std::string record = MasterRecord({.code = "ALD", .name = "ALD"});
  decoder.Proces("99,2   " + record + record.substr(0, 66));
  decoder.Proces("99,9999");
  EXPECT_EQ(lost, 2);
  EXPECT_EQ(market.Label2.caption(), "");
  for (const std::string count : {"0   ", "-5  ", "    ", "xyz "}) {
    decoder.Proces("99," + count + record);
  }
  decoder.Proces("99,");
  EXPECT_EQ(lost, 2);
  EXPECT_EQ(market.Label2.caption(), "Instrumentos: 0");
}

TEST_F(MarketDecoderTest, AppliesQuotesWithTheServersClockAndTheNumbersThatAreThere) {
  Load({"ALD", "BET"});
  decoder.Proces(support::Clock(93000, 1000103));
  decoder.Proces("02,2:" + support::QuoteRecord({"BET", 3, 1, 2, 4, 4}) + Quote("ALD", 8.5F));
  const auto& record = market.store.Instrumentos(2);
  EXPECT_EQ(record.Maximo + record.Minimo * 10, 13.0F);
  EXPECT_EQ(record.Hora + record.Fecha, 1093103.0F);
  EXPECT_EQ(record.Saldo, 4.0);
  EXPECT_EQ(market.quotes, (std::vector{2, 1}));
  EXPECT_EQ(market.store.InstrumentoScratch.Codigo.trimmed(), "ALD");
  EXPECT_EQ(market.store.InstrumentoScratch.Medio, 8.5F);
  // A cut record keeps the numbers of the one before: this has code, high and half of low; nothing
  // is there of the other 97.
  decoder.Proces("99,2:" + support::QuoteRecord({"ALD", 9, 8, 5}) + "BET    " + F32(4) +
                 "\x01\x02");
  EXPECT_EQ(market.Table(), "ALD 5,BET 5");
  EXPECT_EQ(record.Maximo + record.Minimo * 10, 84.0F);
  EXPECT_EQ(market.quotes.size(), 4U);
}

TEST_F(MarketDecoderTest, AsksForWhatItDoesNotKnow) {
  const std::tuple<const char*, std::string, std::string, Texts> cases[] = {
      {"unknown", "03,2:" + Quote("ALD", 2) + Quote("ZZZ", 3) + Quote("ALD", 4), "ALD 2", {}},
      {"index", "02,2:" + Quote("I IB", 3) + Quote("ALD", 4), "ALD 2", {"C:I IB   "}},
      {"statistic", "02,2:" + Quote("STXX", 1) + Quote("ALD", 4), "ALD 4", {"C:STXX   "}},
      {"no price", "02,2:" + Quote("ALD", 0) + Quote("ALD", 5), "ALD 4", {}},
      {"no number", "02,2:" + Quote("ALD", kNan) + Quote("ALD", 5), "ALD 4", {}},
      {"balance", "02,2:" + Quote("STSV", 5) + Quote("STSV", 6), "ALD 4,STSV 6", {"C:STSV   "}},
      {"its double", "01,2:" + Quote("STSV", 0), "ALD 4,STSV 6,STSV 0", {"C:STSV   "}},
      {"blank", "02,2:" + Quote(" ALD", 0) + Quote("ALD", 5), "ALD 4,STSV 6,STSV 0", {}},
  };
  Load({"ALD"});
  for (const auto& [what, message, table, requests] : cases) {
    sent.clear();
    decoder.Proces(message);
    EXPECT_EQ(market.Table(), table) << what;
    EXPECT_EQ(sent, requests) << what;
  }
}

TEST_F(MarketDecoderTest, AsksOnceForEachNamelessSlotThatItPasses) {
  Load({"ALD", "BET"}, "");
  Load({"CAS"});
  decoder.Proces("02,2:" + Quote("ALD", 1) + Quote("CAS", 1));
  EXPECT_EQ(sent, (Texts{"C:ALD    ", "C:CAS    ", "C:CAS    "}));
  EXPECT_EQ(market.quotes, std::vector{3});
  sending = false;
  decoder.Proces("01,2:" + Quote("CAS", 1));
  EXPECT_EQ(sent.size(), 4U);
}

TEST_F(MarketDecoderTest, StoresBooksAndTellsOfEach) {
  decoder.Proces("03,3:" + BookRecord("ALD", 1) + BookRecord("BET", 100) + BookRecord("ALD", 50));
  EXPECT_EQ(books, (std::vector{1, 2, 1}));
  const auto& book = market.store.Libros(1);
  EXPECT_EQ(book.VolCompra[0] + book.PrecioCompra[4] + book.VolVenta[0], 50.0F + 59 + 60);
  EXPECT_EQ(book.PrecioVenta[4] + book.LibroExtra, 69.0F + 70);
  // Only the fourth character counts, so a batch of masters can be one of books first.
  decoder.Proces("1xx3:" + BookRecord("ZZZ", 1));
  EXPECT_EQ(market.store.NumLibros(), 3);
  Load({"ALD", "BET", "CAS"});
  EXPECT_EQ(market.store.NumInstrumentos(), 3);
  EXPECT_EQ(market.store.NumLibros(), 6);
}

TEST_F(MarketDecoderTest, TellsOfEachTradeAndOfTheEndOfTheirBatch) {
  std::string told;
  decoder.steps.Negocio = [&](const store::Negocio& trade) {
    told += trade.Lado + trade.Codigo.trimmed_utf8();
    for (const int number : {static_cast<int>(trade.Hora), int{trade.Titulos}, int{trade.Comprador},
                             int{trade.Vendedor}, static_cast<int>(trade.Precio)}) {
      told += ' ' + std::to_string(number);
    }
    told += '\n';
  };
  decoder.steps.FinNegocios = [&] { told += "end"; };
  const std::string bet = support::TradeRecord({'V', "BET", 101500, -7, 300, 400, 12});
  const std::string bet_told = "VBET 101500 -7 300 400 12\n";
  const std::pair<std::string, std::string> cases[] = {
      {"02,1:" + support::TradeRecord({.side = 'C', .code = "ALDEX", .price = 9}) + bet,
       "CALDEX 93000 100 101 999 9\n" + bet_told + "end"},
      // Of the second one only side, code, time and half of the shares are there.
      {"09,1:" + bet + "CxALD  " + F32(93000) + "\x01", bet_told + "CALD 93000 -7 300 400 12\nend"},
      {"09,1:" + bet + "CxAL", bet_told + "CAL 101500 -7 300 400 12\nend"},
      {"01,1:" + bet + bet, bet_told + "end"},
      {"03,1:", "end"},
      {"-1,1:" + bet, "end"},
  };
  for (const auto& [message, expected] : cases) {
    told.clear();
    decoder.Proces(message);
    EXPECT_EQ(told, expected) << message;
  }
}

}  // namespace
