#include "qt/ports/table_print.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QImage>
#include <QPaintEngine>
#include <QPdfWriter>
#include <QStringList>

namespace {

/// Takes note of the texts that are painted on it.
class TextEngine : public QPaintEngine {
 public:
  QStringList texts;

  TextEngine() : QPaintEngine(AllFeatures) {}
  bool begin(QPaintDevice*) override { return true; }
  bool end() override { return true; }
  void updateState(const QPaintEngineState&) override {}
  void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
  void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
  void drawTextItem(const QPointF&, const QTextItem& item) override { texts << item.text(); }
  [[nodiscard]] Type type() const override { return User; }
};

class TextDevice : public QImage {
 public:
  TextDevice() : QImage(1000, 700, QImage::Format_RGB32) {}
  [[nodiscard]] QPaintEngine* paintEngine() const override { return &engine; }
  mutable TextEngine engine;
};

void Fill(platform::Grid& grid, int rows, int cols, int twips) {
  grid.set_rows(rows);
  grid.set_cols(cols);
  for (int c = 0; c < cols; ++c) {
    grid.set_width(c, twips);
    grid.set_text(0, c, "H" + std::to_string(c));
    for (int r = 1; r < rows; ++r) {
      grid.set_text(r, c, std::to_string(r) + "/" + std::to_string(c));
    }
  }
}

TEST(TablePages, EveryRowStandsOnOnePageUnderTheHeadings) {
  platform::Grid grid;
  Fill(grid, 301, 2, 1440);
  TextDevice device;
  const qt::TablePages pages(grid, QStringLiteral("Mercado"), device, QRectF(0, 0, 1000, 700));
  ASSERT_GT(pages.count(), 3);
  QStringList expected, printed;
  for (int r = 1; r <= 300; ++r) {
    for (const char* c : {"/0", "/1"}) expected << QString::number(r) + QLatin1String(c);
  }
  for (int page = 0; page < pages.count(); ++page) {
    device.engine.texts.clear();
    QPainter painter(&device);
    pages.Draw(painter, page);
    painter.end();
    QStringList& texts = device.engine.texts;
    ASSERT_GE(texts.size(), 6);
    EXPECT_EQ(texts.mid(0, 3).join(u' '), QStringLiteral("Mercado H0 H1"));
    EXPECT_EQ(texts.takeLast(), QStringLiteral("Página %1 de %2").arg(page + 1).arg(pages.count()));
    printed += texts.mid(3);
  }
  EXPECT_EQ(printed, expected);
}

TEST(TablePages, WideTablesShrinkSoThatNothingIsCut) {
  platform::Grid grid;
  Fill(grid, 2, 30, 1440);
  TextDevice device;
  const qt::TablePages pages(grid, {}, device, QRectF(0, 0, 1000, 700));
  QPainter painter(&device);
  pages.Draw(painter, 0);
  painter.end();
  EXPECT_TRUE(device.engine.texts.contains(QStringLiteral("1/29")));
}

TEST(PrintTable, WritesAsManyPagesAsChosen) {
  platform::Grid grid;
  Fill(grid, 5000, 14, 1000);
  for (const bool some : {false, true}) {
    QBuffer file;
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    QPdfWriter pdf(&file);
    if (some) pdf.setPageRanges(QPageRanges::fromString(QStringLiteral("2-3,5")));
    ASSERT_TRUE(qt::PrintTable(pdf, grid, QStringLiteral("Continuo")));
    const QPainter painter(&pdf);
    const qt::TablePages pages(grid, {}, pdf, painter.viewport());
    const QByteArray count = "/Count " + QByteArray::number(some ? 3 : pages.count()) + "\n";
    EXPECT_TRUE(file.data().contains(count)) << some;
  }
}

TEST(TablePages, GridWithoutRowsOrColumnsIsOneEmptyPage) {
  const platform::Grid grid;
  TextDevice device;
  const qt::TablePages pages(grid, {}, device, QRectF(0, 0, 10, 10));
  EXPECT_EQ(pages.count(), 1);
  QPainter painter(&device);
  pages.Draw(painter, 0);
}

}  // namespace
