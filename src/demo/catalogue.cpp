#include "demo/catalogue.h"

#include <algorithm>
#include <unordered_set>

namespace demo::catalogue {
namespace {

// In the order of the sectors of the shares.
constexpr Index kSectors[] = {
    {"I BANC", "BANCOS Y FINANZAS", 82140},
    {"I ENER", "ENERGIA Y AGUA", 71835},
    {"I CONS", "CONSTRUCCION", 64310},
    {"I COMU", "COMUNICACIONES", 195260},
    {"I ALIM", "ALIMENTACION", 52775},
    {"I METL", "METAL Y MECANICA", 60420},
    {"I PAPL", "TEXTIL, PAPEL Y MODA", 48190},
    {"I SERV", "SERVICIOS Y COMERCIO", 66545},
    {"I QUIM", "QUIMICAS", 57905},
    {"I INMO", "INMOBILIARIAS", 70260},
    {"I TECN", "NUEVA TECNOLOGIA", 812480},
};
constexpr Index kBlueChips = {"I IB", "IBEX 35", 1082450};
constexpr Index kGeneral = {"I GRAL", "INDICE GENERAL", 98230};
constexpr Index kSmallCaps = {"I PQVL", "PEQUEÑOS VALORES", 410560};

constexpr Follower kFollowers[] = {
    {"PDIBXC", "FUT. IBEX VTO. CERC.", 100, 0, 1150, 90, 100, 30, false},
    {"MFIBXM", "FUT. IBEX 2º VTO.", 100, 0, 2900, 140, 500, 6, false},
    {"MFIBXU", "FUT. IBEX 3ER VTO.", 100, 0, 6400, 180, 1000, 3, false},
    {"MFBN10", "FUT. BONO 10 AÑOS", 100, 9463, 0, 45, 1, 25, false},
    {"MFEU03", "FUT. EURIBOR 3 MESES", 1000, 95480, 0, 12, 5, 40, false},
    {"CMIBXS", "IBEX 35 CONTADO", 100, 0, 0, 20, 1, 0, false},
    {"I ETH2", "IBEX 35 TEORICO", 100, 0, 150, 120, 10, 0, false},
    {"I TKUP", "IBEX 35 TENDENCIA", 100, 0, -400, 200, 10, 0, false},
    {"DVUSD", "EURO / DOLAR USA", 10000, 8974, 0, 90, 1, 0, true},
    {"DVGBP", "EURO / LIBRA", 10000, 6012, 0, 80, 1, 0, true},
    {"DVJPY", "EURO / YEN", 1000, 97860, 0, 110, 10, 0, true},
    {"DVCHF", "EURO / FRANCO SUIZO", 10000, 15562, 0, 50, 1, 0, true},
    {"DVCAD", "EURO / DOLAR CANADA", 10000, 13427, 0, 90, 1, 0, true},
    {"DVSEK", "EURO / CORONA SUECA", 10000, 82510, 0, 60, 5, 0, true},
    {"DVUSJ", "DOLAR / YEN", 1000, 109050, 0, 100, 10, 0, true},
    {"DVGBU", "LIBRA / DOLAR USA", 10000, 14927, 0, 80, 1, 0, true},
    {"DVMXN", "EURO / PESO MEJICANO", 10000, 85340, 0, 110, 5, 0, true},
};

constexpr Statistic kStatistics[] = {
    {Figure::kSold, "STSV", "ST SALDO VENDEDOR"},
    {Figure::kBought, "STSC", "ST SALDO COMPRADOR"},
    {Figure::kSoldLarge, "STSVT1", "ST SALDO VENDEDOR T1"},
    {Figure::kBoughtLarge, "STSCT1", "ST SALDO COMPR. T1"},
    {Figure::kBoughtPart, "I MCSC", "ST % SALDO COMPRADOR"},
    {Figure::kBoughtLargePart, "I MCT1", "ST % SALDO COMPR. T1"},
    {Figure::kRisingPart, "I MVAL", "ST % VALORES AL ALZA"},
    {Figure::kVolume, "STVOLU", "ST MILES DE TITULOS"},
    {Figure::kCash, "STEFEC", "ST MILES DE EUROS"},
    {Figure::kTrades, "STOPER", "ST OPERACIONES"},
    {Figure::kRising, "STSUBE", "ST VALORES SUBEN"},
    {Figure::kFalling, "STBAJA", "ST VALORES BAJAN"},
    {Figure::kEqual, "STIGUA", "ST VALORES REPITEN"},
};

}  // namespace

std::span<const Index> Sectors() { return kSectors; }
const Index& BlueChips() { return kBlueChips; }
const Index& General() { return kGeneral; }
const Index& SmallCaps() { return kSmallCaps; }
std::span<const Follower> Followers() { return kFollowers; }
std::span<const Statistic> Statistics() { return kStatistics; }

std::vector<NumberedShare> NumberedShares(int count) {
  std::unordered_set<std::string_view> taken;
  for (const Share& share : Shares()) taken.insert(share.code);
  std::vector<NumberedShare> shares;
  for (int n = 0; static_cast<int>(shares.size()) < std::min(count, 4800); ++n) {
    std::string code;
    for (const int place : {26 * 26, 26, 1}) code += static_cast<char>('A' + n / place % 26);
    if (taken.contains(code)) continue;
    if (n % 10 == 9) code += ".B";
    shares.push_back({code, "VALOR DE CARGA " + std::to_string(10000 + n).substr(1)});
  }
  return shares;
}

}  // namespace demo::catalogue
