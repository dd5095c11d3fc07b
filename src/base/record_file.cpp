#include "base/record_file.h"

#include <algorithm>
#include <cassert>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <limits>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

namespace base {
namespace {

constexpr mode_t kOwnerOnly = S_IRUSR | S_IWUSR;
constexpr mode_t kEveryone = 0666;  // less the umask
constexpr std::size_t kMostEdited = 65536;

// A system call again for as long as signals break it off.
template <typename Call>
auto Retry(Call call) {
  auto result = call();
  while (result < 0 && errno == EINTR) result = call();
  return result;
}

// O_NONBLOCK keeps a FIFO in the place of a file from hanging us.
int OpenAny(const std::string& path, int flags, mode_t mode) {
  return Retry([&] { return open(path.c_str(), flags | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, mode); });
}

bool MayOnlyBeRead() { return errno == EACCES || errno == EPERM || errno == EROFS; }

int OpenRegular(const std::string& path, int flags, mode_t mode, struct stat& status) {
  const int fd = OpenAny(path, flags, mode);
  if (fd < 0) return -1;
  if (fstat(fd, &status) == 0 && S_ISREG(status.st_mode)) return fd;
  close(fd);
  return -1;
}

bool WriteAll(int fd, std::string_view content) {
  while (!content.empty()) {
    const ssize_t n = Retry([&] { return write(fd, content.data(), content.size()); });
    if (n <= 0) return false;
    content.remove_prefix(static_cast<std::size_t>(n));
  }
  return true;
}

// Bytes of the file from `offset` on, at most `buffer.size()`.
std::size_t ReadAt(int fd, std::int64_t offset, std::span<char> buffer) {
  std::size_t done = 0;
  while (done < buffer.size()) {
    const ssize_t n = Retry([&] {
      return pread(fd, buffer.data() + done, buffer.size() - done,
                   offset + static_cast<std::int64_t>(done));
    });
    if (n <= 0) break;
    done += static_cast<std::size_t>(n);
  }
  return done;
}

std::string StartOf(int fd, std::size_t size) {
  std::string buffer(size, '\0');
  buffer.resize(ReadAt(fd, 0, buffer));
  return buffer;
}

std::string WithoutLinks(const std::string& path) {
  const std::unique_ptr<char, decltype(&std::free)> real(realpath(path.c_str(), nullptr),
                                                         &std::free);
  return real ? std::string(real.get()) : path;
}

bool Sync(int fd) {
  return Retry([&] { return fsync(fd); }) == 0;
}

// A new or renamed file is only sure to be found again once its directory is on the disk as well.
bool SyncDirectoryOf(const std::string& path) {
  const std::size_t slash = path.rfind('/');
  const std::string directory = slash == std::string::npos ? "." : path.substr(0, slash + 1);
  const int fd = Retry([&] { return open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC); });
  if (fd < 0) return false;
  const bool synced = Sync(fd);
  close(fd);
  return synced;
}

bool WriteNewFile(const std::string& path, std::string_view content, mode_t mode, bool exact_mode) {
  unlink(path.c_str());  // left by a crash
  const int fd =
      Retry([&] { return open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, mode); });
  if (fd < 0) return false;
  if (exact_mode) (void)fchmod(fd, mode);
  const bool written = WriteAll(fd, content) && Sync(fd);
  return close(fd) == 0 && written;
}

}  // namespace

RecordFile::RecordFile(const std::string& path, std::size_t record_size, bool owner_only)
    : path_(path), record_size_(record_size) {
  assert(record_size > 0);
  struct stat status {};
  fd_ = OpenRegular(path, O_RDWR | O_CREAT, owner_only ? kOwnerOnly : kEveryone, status);
  if (fd_ < 0 && MayOnlyBeRead()) fd_ = OpenRegular(path, O_RDONLY, 0, status);
  if (fd_ >= 0) length_ = status.st_size;
  const bool open_to_others = (status.st_mode & (S_IRWXG | S_IRWXO)) != 0;
  if (fd_ >= 0 && owner_only && open_to_others) (void)fchmod(fd_, kOwnerOnly);
}

RecordFile::RecordFile(const std::string& path, std::size_t record_size, Known /*regular*/)
    : path_(path), record_size_(record_size), fd_(OpenAny(path, O_RDWR | O_CREAT, kEveryone)) {
  assert(record_size > 0);
  if (fd_ < 0 && MayOnlyBeRead()) fd_ = OpenAny(path, O_RDONLY, 0);
}

RecordFile::~RecordFile() {
  if (fd_ >= 0) close(fd_);
}

bool RecordFile::writable() const {
  return fd_ >= 0 && (fcntl(fd_, F_GETFL) & O_ACCMODE) == O_RDWR;
}

std::optional<std::int64_t> RecordFile::OffsetOf(std::int64_t n) const {
  const auto size = static_cast<std::int64_t>(record_size_);
  if (fd_ < 0 || n < 1 || n > std::numeric_limits<std::int64_t>::max() / size) return std::nullopt;
  return (n - 1) * size;
}

bool RecordFile::Read(std::int64_t n, std::string& record) const {
  const auto offset = OffsetOf(n);
  if (!offset) return false;
  std::string buffer(record_size_, '\0');
  if (ReadAt(fd_, *offset, buffer) != record_size_) return false;
  record.swap(buffer);
  return true;
}

std::size_t RecordFile::ReadMany(std::int64_t first, std::span<char> records) const {
  const auto offset = OffsetOf(first);
  const std::size_t whole = records.size() / record_size_ * record_size_;
  return offset ? ReadAt(fd_, *offset, records.first(whole)) / record_size_ : 0;
}

bool RecordFile::Write(std::int64_t n, std::string_view record) {
  const auto offset = OffsetOf(n);
  assert(record.size() == record_size_);
  if (!offset || record.size() != record_size_) return false;
  const ssize_t done = Retry([&] { return pwrite(fd_, record.data(), record.size(), *offset); });
  if (done > 0) length_ = std::max<std::int64_t>(length_, *offset + done);
  return done == static_cast<ssize_t>(record.size());
}

bool RecordFile::Flush() const {
  return fd_ >= 0 && Sync(fd_) && SyncDirectoryOf(WithoutLinks(path_));
}

bool ReplaceFile(const std::string& path, std::string_view content, bool owner_only) {
  const std::string target = WithoutLinks(path);
  struct stat old {};
  const bool exists = stat(target.c_str(), &old) == 0;
  if (exists && !S_ISREG(old.st_mode)) return false;
  const mode_t mode = owner_only ? kOwnerOnly : exists ? old.st_mode & 0777u : kEveryone;
  const std::string fresh = target + "." + std::to_string(getpid()) + ".tmp";
  if (WriteNewFile(fresh, content, mode, exists) && rename(fresh.c_str(), target.c_str()) == 0) {
    (void)SyncDirectoryOf(target);  // the new content is in place in any case
    return true;
  }
  unlink(fresh.c_str());
  return false;
}

bool EditFile(const std::string& path, const std::function<void(std::string& content)>& edit) {
  std::string content;
  (void)ReadFileStart(path, kMostEdited, content);
  edit(content);
  return ReplaceFile(path, content);
}

bool ReadWholeFile(const std::string& path, std::size_t limit, std::string& content) {
  struct stat status {};
  const int fd = OpenRegular(path, O_RDONLY, 0, status);
  if (fd < 0) return false;
  const auto size = static_cast<std::size_t>(status.st_size);
  const bool fits = size <= limit;
  if (fits) content = StartOf(fd, size);
  close(fd);
  return fits;
}

bool ReadFileStart(const std::string& path, std::size_t limit, std::string& content) {
  struct stat status {};
  const int fd = OpenRegular(path, O_RDONLY, 0, status);
  if (fd < 0) return false;
  content = StartOf(fd, std::min(limit, static_cast<std::size_t>(status.st_size)));
  close(fd);
  return true;
}

}  // namespace base
