#include "views/layout_file.h"

#include <cstdint>
#include <cstring>
#include <optional>
#include <string>

#include "base/bytes.h"
#include "base/record_file.h"

namespace views {
namespace {

constexpr std::size_t kRecord = sizeof(std::int16_t);
constexpr std::int64_t kFirstWidth = 5;
constexpr int kMinSize = 1000;  // of a window
constexpr std::size_t kMaxFile = 65536;

std::optional<int> ReadRecord(const base::RecordFile& file, std::int64_t n) {
  std::string record;
  std::int16_t value = 0;
  if (!file.Read(n, record) || !base::ReadField(record, 0, value)) return std::nullopt;
  return value;
}

}  // namespace

void ReadLayout(const base::ProgramDir& dir, std::string_view file, platform::Window& window,
                platform::Grid& grid) {
  const base::RecordFile records(dir.Path(file), kRecord);
  if (records.length() <= 10) return;
  const auto height = ReadRecord(records, 1), width = ReadRecord(records, 2);
  const auto left = ReadRecord(records, 3), top = ReadRecord(records, 4);
  if (height && width && left && top && *height >= kMinSize && *width >= kMinSize) {
    window.set_rect({*left, *top, *width, *height});
  }
  for (int k = 0; k < grid.cols(); ++k) {
    if (const auto value = ReadRecord(records, kFirstWidth + k)) grid.set_width(k, *value);
  }
}

void WriteLayout(const base::ProgramDir& dir, std::string_view file, const platform::Window& window,
                 const platform::Grid& grid) {
  const std::string path = dir.Path(file);
  std::string content;
  (void)base::ReadWholeFile(path, kMaxFile, content);  // what can't be read is written anew
  std::size_t at = 0;
  const auto put = [&](int value) {
    if (content.size() < at + kRecord) content.resize(at + kRecord);
    const auto stored = static_cast<std::int16_t>(value);
    if (stored == value) std::memcpy(content.data() + at, &stored, kRecord);
    at += kRecord;
  };
  const platform::Rect& rect = window.rect();
  for (const int value : {rect.height, rect.width, rect.left, rect.top}) put(value);
  for (int k = 0; k < grid.cols(); ++k) put(grid.width(k));
  (void)base::ReplaceFile(path, content);  // the old layout stays
}

}  // namespace views
