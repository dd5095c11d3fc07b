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
constexpr int kMinSize = 1000;  // of a window

std::optional<int> ReadRecord(const base::RecordFile& file, std::int64_t n) {
  std::string record;
  std::int16_t value = 0;
  if (!file.Read(n, record) || !base::ReadField(record, 0, value)) return std::nullopt;
  return value;
}

// The records of a form, for a grid of so many columns.
struct Records {
  std::int64_t place;    // the first of four
  std::int64_t width_0;  // of column 0, were it stored
  int first_column;      // whose width is stored

  Records(LayoutForm form, int cols)
      : place(form == LayoutForm::place_first ? 1 : cols + 1),
        width_0(form == LayoutForm::place_first ? 5 : 1),
        first_column(form == LayoutForm::place_first ? 0 : 1) {}
};

}  // namespace

void ReadLayout(const base::ProgramDir& dir, std::string_view file, LayoutForm form,
                platform::Window& window, platform::Grid& grid) {
  const base::RecordFile content(dir.Path(file), kRecord);
  if (content.length() <= 10) return;
  const Records at(form, grid.cols());
  const auto height = ReadRecord(content, at.place), width = ReadRecord(content, at.place + 1);
  const auto left = ReadRecord(content, at.place + 2), top = ReadRecord(content, at.place + 3);
  if (height && width && left && top && *height >= kMinSize && *width >= kMinSize) {
    window.set_rect({*left, *top, *width, *height});
  }
  for (int k = at.first_column; k < grid.cols(); ++k) {
    if (const auto value = ReadRecord(content, at.width_0 + k)) grid.set_width(k, *value);
  }
}

void WriteLayout(const base::ProgramDir& dir, std::string_view file, LayoutForm form,
                 const platform::Window& window, const platform::Grid& grid) {
  const auto edit = [&](std::string& content) {
    const auto put = [&](std::int64_t n, int value) {
      const std::size_t end = static_cast<std::size_t>(n) * kRecord;
      if (content.size() < end) content.resize(end);
      const auto stored = static_cast<std::int16_t>(value);
      if (stored == value) std::memcpy(content.data() + end - kRecord, &stored, kRecord);
    };
    const Records at(form, grid.cols());
    const platform::Rect& rect = window.rect();
    std::int64_t n = at.place;
    for (const int value : {rect.height, rect.width, rect.left, rect.top}) put(n++, value);
    if (form == LayoutForm::widths_first) put(1, 0);
    for (int k = at.first_column; k < grid.cols(); ++k) put(at.width_0 + k, grid.width(k));
  };
  (void)base::EditFile(dir.Path(file), edit);  // where that fails the old layout stays
}

}  // namespace views
