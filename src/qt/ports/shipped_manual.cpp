#include "qt/ports/shipped_manual.h"

#include <QDir>
#include <QResource>

namespace qt {

std::vector<platform::ShippedFile> ShippedManual() {
  const QDir manual(QStringLiteral(":/manual"));
  std::vector<platform::ShippedFile> files;
  for (const QString& name : manual.entryList(QDir::Files, QDir::Name)) {
    const QResource file(manual.filePath(name));
    // Embedded as it is, so what it points to is the file.
    files.push_back(
        {name.toStdString(),
         {reinterpret_cast<const char*>(file.data()), static_cast<size_t>(file.size())}});
  }
  return files;
}

}  // namespace qt
