#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace base {

/// A file of fixed-size records, numbered from 1, open for as long as the object lives: meant to
/// be opened, used and closed within one routine. Opening creates a missing file empty; with
/// `owner_only` the file is narrowed to its owner (mode 0600), an old one too. What isn't a regular
/// file (or a link to one) doesn't open, and never blocks; one that may only be read is opened for
/// that. Plain system calls, no buffering, and none to spare: open and fstat, one for each reading
/// or writing, close.
class RecordFile {
 public:
  /// `record_size` above 0.
  RecordFile(const std::string& path, std::size_t record_size, bool owner_only = false);
  /// For a file that the caller knows to be a regular one: it isn't looked at, so one call less,
  /// and `length()` is only what has been written.
  struct Known {};
  RecordFile(const std::string& path, std::size_t record_size, Known);
  ~RecordFile();
  RecordFile(const RecordFile&) = delete;
  RecordFile& operator=(const RecordFile&) = delete;

  [[nodiscard]] bool is_open() const { return fd_ >= 0; }
  /// False as well for one that may only be read.
  [[nodiscard]] bool writable() const;
  /// Bytes in the file as it was opened and written to since; 0 when it isn't open.
  [[nodiscard]] std::int64_t length() const { return length_; }
  /// True and `record` (record_size bytes) when record `n` is there whole; otherwise `record`
  /// stays as it was.
  [[nodiscard]] bool Read(std::int64_t n, std::string& record) const;
  /// As many whole records from record `first` on as there are and `records` has room for. Gives
  /// their number; the bytes behind them may be anything.
  [[nodiscard]] std::size_t ReadMany(std::int64_t first, std::span<char> records) const;
  /// Writes record `n` in one write. `record` must have record_size bytes. A gap before it is
  /// filled with zero bytes. False for `n` below 1 or past what a file can hold, and when the
  /// disk takes less than the whole record.
  bool Write(std::int64_t n, std::string_view record);
  /// Waits until what was written is on the disk, and the file's name with it. False where the disk
  /// doesn't say so.
  [[nodiscard]] bool Flush() const;

 private:
  [[nodiscard]] std::optional<std::int64_t> OffsetOf(std::int64_t n) const;

  std::string path_;
  std::size_t record_size_;
  int fd_;
  std::int64_t length_ = 0;
};

/// Replaces a file of ours as a whole: written beside the old one, flushed to the disk and renamed
/// over it, so a crash leaves the old or the new content, and once it has returned the new. A link
/// is kept and its target replaced; the old file's permissions stay unless `owner_only`. False
/// leaves the old one, as does a `path` that isn't a regular file.
[[nodiscard]] bool ReplaceFile(const std::string& path, std::string_view content,
                               bool owner_only = false);

/// `ReplaceFile` by what `edit` makes of the old content, which is "" where there is none to be
/// read. Of a file over 64 KiB only the start is kept.
[[nodiscard]] bool EditFile(const std::string& path,
                            const std::function<void(std::string& content)>& edit);

/// The whole content of a regular file of at most `limit` bytes. False when missing or larger;
/// creates nothing, never blocks, and leaves `content` as it was on failure.
[[nodiscard]] bool ReadWholeFile(const std::string& path, std::size_t limit, std::string& content);
/// The same of a file of any size: what lies past the limit is left out.
[[nodiscard]] bool ReadFileStart(const std::string& path, std::size_t limit, std::string& content);

}  // namespace base
