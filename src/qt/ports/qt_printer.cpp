#include "qt/ports/qt_printer.h"

#include <QApplication>
#include <QPrintDialog>
#include <QPrinter>

#include "qt/ports/table_print.h"

namespace qt {

void QtPrinter::Print(const platform::Grid& grid, std::string_view title) {
  const QString name = QString::fromUtf8(title.data(), static_cast<qsizetype>(title.size()));
  QPrinter printer(QPrinter::HighResolution);
  printer.setDocName(name);
  printer.setPageOrientation(QPageLayout::Landscape);
  QPrintDialog dialog(&printer, QApplication::activeWindow());
  dialog.setWindowTitle(QStringLiteral("Imprimir"));
  if (dialog.exec() != QDialog::Accepted) return;
  if (printer.printRange() != QPrinter::PageRange) printer.setPageRanges({});
  PrintTable(printer, grid, name);
}

}  // namespace qt
