#include "metastock/stores.h"

namespace metastock {

Stores::Stores()
    : MasterTable(kMaxEntries + 1),
      EMasterTable(kMaxEntries + 1),
      MasterSelected(kMaxEntries + 1),
      EMasterSelected(kMaxEntries + 1),
      MasterWide(kMaxEntries + 1),
      EMasterWide(kMaxEntries + 1),
      DailyLast(kMaxEntries + 1),
      BarState(kMaxEntries + 1) {}

void Stores::LoadMasterDir() {}

void Stores::LoadEMasterDir() {}

void Stores::ReadDailyBar(int /*file_number*/, std::int64_t /*record*/) {}

void Stores::ReadIntradayBar(int /*file_number*/, std::int64_t /*record*/) {}

std::string Stores::DirectoryOf(const base::FixedText<50>& /*text*/, Cut /*cut*/) { return {}; }

const std::string& Stores::DailyFile(int /*file_number*/, Cut /*cut*/) {
  static const std::string none;
  return none;
}

const std::string& Stores::IntradayFile(int file_number, Cut cut) {
  return DailyFile(file_number, cut);
}

int Stores::CountSelected() const { return 0; }

std::int16_t SlotOf(float /*time*/, std::int16_t /*period*/) { return 0; }

}  // namespace metastock
