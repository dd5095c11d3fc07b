#include "metastock/path_file.h"

#include <algorithm>

#include "base/record_file.h"

namespace metastock {
namespace {

constexpr std::size_t kDrive = 3, kRecord = 53;

void Read(const base::RecordFile& file, std::int64_t n, base::FixedText<kDrive>& drive,
          base::FixedText<kRecord - kDrive>& directory) {
  std::string record;
  if (!file.Read(n, record)) return;
  drive.assign(std::string_view(record).substr(0, kDrive));
  directory.assign(std::string_view(record).substr(kDrive));
}

}  // namespace

void ReadPathFile(const std::string& file, Stores& stores) {
  const base::RecordFile records(file, kRecord);
  Read(records, 1, stores.EMasterDrive, stores.EMasterDir);
  Read(records, 2, stores.MasterDrive, stores.MasterDir);
}

bool WritePathFile(const std::string& file, const Stores& stores) {
  std::string records(stores.EMasterDrive.bytes());
  records.append(stores.EMasterDir.bytes());
  records.append(stores.MasterDrive.bytes()).append(stores.MasterDir.bytes());
  return base::EditFile(file, [&records](std::string& content) {
    content.replace(0, std::min(content.size(), records.size()), records);
  });
}

}  // namespace metastock
