#include "qt/ports/parts.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace qt {

QString FindPart(const QString& name) {
  for (const QString& place :
       {QCoreApplication::applicationDirPath(), QStringLiteral(COTIRAMA_PARTS_DIR)}) {
    const QString path = QDir(place).filePath(name);
    if (QFileInfo(path).isFile()) return path;
  }
  return {};
}

}  // namespace qt
