#include "qt/look/list_widget.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QScrollBar>

#include "qt/look/binders.h"
#include "qt/look/list_columns.h"
#include "qt/look/theme.h"

namespace {

class ListWidgetTest : public testing::Test {
 protected:
  ListWidgetTest() {
    host.resize(400, 200);
    widget->resize(400, 200);
    list.on_click = [this] { clicks << list.list_index(); };
    list.on_double_click = [this] { ++double_clicks; };
    binders.Bind(list, *widget);
    host.show();
    Add(3);
  }
  void Add(int lines) {
    for (int i = 0; i < lines; ++i) list.AddItem("línea " + std::to_string(list.items().size()));
    widget->Refresh();
  }
  void Press(int key) {
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QApplication::sendEvent(widget, &press);
  }
  void Mouse(QEvent::Type type, QPointF at) {
    QMouseEvent event(type, at, widget->viewport()->mapToGlobal(at), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    QApplication::sendEvent(widget->viewport(), &event);
  }
  void ClickOn(int row) {
    const QPointF at = widget->visualRect(widget->model()->index(row, 0)).center();
    Mouse(QEvent::MouseButtonPress, at);
    Mouse(QEvent::MouseButtonRelease, at);
  }
  [[nodiscard]] QList<int> Selected() const {
    QList<int> rows;
    for (const QModelIndex& index : widget->selectionModel()->selectedIndexes()) {
      rows << index.row();
    }
    return rows;
  }

  platform::ListBox list;
  QWidget host;
  qt::ListWidget* widget = new qt::ListWidget(list, &host);
  qt::FrameClock clock;
  qt::Binders binders{host, clock};
  QList<int> clicks;
  int double_clicks = 0;
};

TEST_F(ListWidgetTest, EachChoiceByMouseOrKeyboardIsAClick) {
  widget->setFocus();
  EXPECT_TRUE(clicks.isEmpty()) << "to come by isn't to choose";
  ClickOn(1);
  ClickOn(1);
  Press(Qt::Key_Down);
  Press(Qt::Key_Down);
  Press(Qt::Key_Home);
  EXPECT_EQ(clicks, (QList<int>{1, 1, 2, 0}));
  Mouse(QEvent::MouseButtonPress, {5, 190});
  EXPECT_EQ(Selected(), QList<int>{0}) << "below the last line stands nothing to choose";
  EXPECT_EQ(double_clicks, 0);
  ClickOn(2);
  Mouse(QEvent::MouseButtonDblClick, widget->visualRect(widget->model()->index(2, 0)).center());
  EXPECT_EQ(double_clicks, 1);
}

TEST_F(ListWidgetTest, TheFirstArrowChoosesTheFirstLineWhereverTheFrameIs) {
  for (const int current : {0, 1, -1}) {
    list.Clear();
    widget->Refresh();
    Press(Qt::Key_Down);  // on nothing
    Add(3);
    widget->selectionModel()->setCurrentIndex(widget->model()->index(current, 0),
                                              QItemSelectionModel::NoUpdate);
    Press(current == 1 ? Qt::Key_Up : Qt::Key_Down);
    EXPECT_EQ(Selected(), QList<int>{0}) << current;
  }
  Press(Qt::Key_Down);
  EXPECT_EQ(clicks, (QList<int>{0, 0, 0, 1}));
}

TEST_F(ListWidgetTest, NewLinesAreAddedBelowAndTheChoiceStays) {
  ClickOn(1);
  int added = 0, resets = 0;
  QObject::connect(
      widget->model(), &QAbstractItemModel::rowsInserted, widget,
      [&added](const QModelIndex&, int first, int last) { added += last - first + 1; });
  QObject::connect(widget->model(), &QAbstractItemModel::modelReset, widget,
                   [&resets] { ++resets; });
  Add(500);
  EXPECT_EQ(added, 500);
  EXPECT_EQ(resets, 0);
  EXPECT_EQ(Selected(), QList<int>{1});
  EXPECT_EQ(clicks, QList<int>{1});
  EXPECT_EQ(widget->model()->index(502, 0).data().toString(), QStringLiteral("línea 502"));

  list.Clear();
  list.AddItem("<b>otra</b>");
  EXPECT_TRUE(widget->model()->index(400, 0).data().isNull()) << "gone before the next frame";
  widget->Refresh();
  EXPECT_EQ(widget->model()->rowCount(), 1);
  EXPECT_EQ(widget->model()->index(0, 0).data().toString(), QStringLiteral("<b>otra</b>"));
  EXPECT_TRUE(Selected().isEmpty());
  list.set_list_index(0);
  widget->Refresh();
  EXPECT_EQ(Selected(), QList<int>{0});
  EXPECT_EQ(clicks, QList<int>{1}) << "the program's choice is no click";
}

TEST_F(ListWidgetTest, FollowsItsEndOnlyWhileTheReaderIsThere) {
  widget->set_follows_end(true);
  Add(100);
  const QScrollBar& bar = *widget->verticalScrollBar();
  EXPECT_EQ(bar.value(), bar.maximum());
  EXPECT_GT(bar.maximum(), 0);
  widget->verticalScrollBar()->setValue(30);
  Add(100);
  EXPECT_EQ(bar.value(), 30);
}

TEST_F(ListWidgetTest, CellsStandInColumnsAndAreToldWithoutTabs) {
  list.Clear();
  const auto line = [this] {
    widget->Refresh();
    return widget->model()->index(0, 0).data().toString();
  };
  list.AddItem("7\tTEF\x01\t12.50");
  EXPECT_EQ(line(), "7  TEF   12.50");
  widget->set_cells([](const QString& text) { return text.split('\t'); }, {Qt::AlignRight});
  EXPECT_EQ(line(), "7  TEF  12.50");
  const int top = widget->viewport()->y();
  widget->set_cells([](const QString& text) { return text.split('\t'); }, {}, {"Títulos"});
  EXPECT_EQ(line(), "7  TEF  12.50");
  EXPECT_GT(widget->viewport()->y(), top) << "room for the headings";
  widget->grab();
  list.Clear();
  EXPECT_NO_FATAL_FAILURE(widget->grab()) << "gone before the next frame";
}

TEST(ListColumns, AreAsWideAsTheirWidestCellsAndLookOnlyAtNewLines) {
  int looks = 0;
  qt::ListColumns columns(
      [&looks](const QString& line) {
        ++looks;
        return line.split('\t');
      },
      {});
  const QFont font = qt::TextFont();
  const QFontMetrics metrics(font);
  const auto width = [&](const char* text) { return metrics.horizontalAdvance(text); };
  std::vector<std::string> lines{"WWWWWWWWWW\t1", "i\t1000.00"};
  columns.Measure(lines, font);
  const int gap = columns.width() - width("WWWWWWWWWW") - width("1000.00");
  EXPECT_GE(gap, 10);
  lines.push_back("i\t1\tmás");
  columns.Measure(lines, font);
  EXPECT_EQ(looks, 3) << "only the new line";
  const int whole = columns.width();
  EXPECT_EQ(whole,
            width("WWWWWWWWWW") + width("1000.00") + metrics.horizontalAdvance("más") + 2 * gap);
  lines.assign({"i\t1"});
  columns.Measure(lines, font);
  EXPECT_EQ(columns.width(), width("i") + width("1") + gap);
}

TEST(ListColumns, HeadingsAndFiguresEndAtTheSamePlaceHoweverNarrowTheRoom) {
  qt::ListColumns columns([](const QString& line) { return line.split('\t'); },
                          {Qt::AlignLeft, Qt::AlignLeft, Qt::AlignRight}, {"i", "i", "H"});
  const auto last = [&columns](int room, bool heading) {
    QImage image(room, 30, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setFont(qt::TextFont());
    heading ? columns.DrawHeadings(painter, image.rect()) : columns.Draw(painter, image.rect(), 0);
    return image.copy(room - 20, 0, 20, 30);
  };
  columns.Measure({"WWWWWWWWWWWWWWW\tWWWWWWWWWWW\tH", "i\ti\t1000.00"}, qt::TextFont());
  const QImage whole = last(columns.width(), false);
  QImage blank(whole);
  blank.fill(Qt::white);
  EXPECT_NE(whole, blank);
  for (const int less : {0, 1, 20, 90}) {
    EXPECT_EQ(last(columns.width() - less, false), whole) << less;
    EXPECT_EQ(last(columns.width() - less, true), whole) << less;
  }
  for (int room = 20; room < columns.width(); ++room) (void)last(room, true);
}

}  // namespace
