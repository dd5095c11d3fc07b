#include "qt/app/sample_files.h"

#include <algorithm>
#include <cstdio>
#include <vector>

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include "base/ansi.h"
#include "demo/feed.h"
#include "demo/sample_stores.h"

namespace qt {
namespace {

constexpr std::size_t kLongestPath = 50;  // that a terminal takes

bool IsThere(const QString& path) { return QFileInfo(path).isSymLink() || QFile::exists(path); }

bool WriteNew(const QString& path, const std::string& bytes) {
  QFile file(path);
  const auto size = static_cast<qint64>(bytes.size());
  return file.open(QIODevice::WriteOnly | QIODevice::NewOnly) &&
         file.write(bytes.data(), size) == size && file.flush();
}

bool Fail(const QString& path, const char* why) {
  std::fprintf(stderr, "%s %s\n", qPrintable(path), why);
  return false;
}

bool WriteAll(const QDir& directory, const std::vector<demo::SampleFile>& files) {
  for (const demo::SampleFile& file : files) {
    const QString path = directory.filePath(QString::fromStdString(file.name));
    if (IsThere(path)) return Fail(path, "is there already: nothing was written");
  }
  for (const char* store : {demo::kSampleDaily, demo::kSampleIntraday}) {
    if (!directory.mkpath(store)) return Fail(directory.filePath(store), "can't be made");
  }
  for (const demo::SampleFile& file : files) {
    const QString path = directory.filePath(QString::fromStdString(file.name));
    if (!WriteNew(path, file.bytes)) return Fail(path, "can't be written");
  }
  return true;
}

void SayWhatToDo(const QDir& directory) {
  const QString daily = directory.filePath(demo::kSampleDaily);
  const QString intraday = directory.filePath(demo::kSampleIntraday);
  std::printf(
      "Daily store     %s\n"
      "Intraday store  %s\n\n"
      "In the terminal, connected to \"demostracion\":\n"
      "  Meta Stock, Configurar: choose the first under \"Diario\", the other under "
      "\"Intradias\",\n"
      "  and save them with \"Guardar\". Then Meta Stock, Actualizar, soon after connecting: what\n"
      "  is quoted before its history has come may be left without it.\n",
      qPrintable(daily), qPrintable(intraday));
  if (intraday.contains(u' ') || base::Utf8ToAnsi(intraday.toStdString()).size() > kLongestPath) {
    std::printf(
        "The terminal finds stores only below paths without blanks of up to %zu letters:\n"
        "move these to such a place first.\n",
        kLongestPath);
  }
}

}  // namespace

bool WriteSampleStores(const demo::FeedOptions& market, const QString& directory) {
  const demo::Feed feed(market);
  const QDir target(QDir(directory).absolutePath());
  if (!WriteAll(target, demo::SampleStores(demo::History(feed.market(), market.seed))))
    return false;
  SayWhatToDo(target);
  return true;
}

}  // namespace qt
