#include "qt/look/grid_widget.h"

#include <gtest/gtest.h>
#include <memory>
#include <set>
#include <string>

#include <QAccessible>
#include <QAccessibleTableInterface>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDeadlineTimer>
#include <QMenu>
#include <QMouseEvent>
#include <QPointer>
#include <QScrollBar>
#include <QWheelEvent>

#include "../wait.h"

namespace {

/// Notes the rows that are painted.
class CountingDelegate : public qt::GridDelegate {
 public:
  using GridDelegate::GridDelegate;
  mutable std::set<int> rows;
  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    rows.insert(index.row());
    GridDelegate::paint(painter, option, index);
  }
};

class GridWidgetTest : public testing::Test {
 protected:
  static constexpr int kRows = 2000, kCols = 5;

  GridWidgetTest() {
    grid.set_cols(kCols);
    grid.set_rows(kRows + 1);
    for (int c = 0; c < kCols; ++c) {
      grid.set_text(0, c, std::string("H") + static_cast<char>('0' + c));
      grid.set_width(c, 1200);
    }
    for (int r = 1; r <= kRows; ++r) grid.set_text(r, 0, "name " + std::to_string(r));
    grid.on_click = [this] { Log("click"); };
    grid.on_double_click = [this] { Log("double"); };
    grid.on_mouse_move = [this] { Log("move"); };
    grid.on_after_user_resize = [this] { Log("resized"); };
    view.resize(600, 300);
    view.show();
    Frame();
  }
  void Frame() {
    view.Refresh();
    QApplication::processEvents();
  }
  void Log(const std::string& what) {
    log += what + " " + std::to_string(grid.mouse_row) + "," + std::to_string(grid.mouse_col) + ";";
  }
  std::string TakeLog() { return std::exchange(log, {}); }
  void Key(int key, Qt::KeyboardModifiers modifiers = {}, QEvent::Type type = QEvent::KeyPress,
           bool repeated = false) {
    QKeyEvent event(type, key, modifiers, {}, repeated);
    QApplication::sendEvent(&view, &event);
  }
  static void Mouse(QWidget* on, QEvent::Type type, QPoint at, Qt::MouseButton button) {
    Mouse(on, type, at, button, type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton);
  }
  static void Mouse(QWidget* on, QEvent::Type type, QPoint at, Qt::MouseButton button,
                    Qt::MouseButton held) {
    QMouseEvent event(type, at, on->mapToGlobal(at), button, held, Qt::NoModifier);
    QApplication::sendEvent(on, &event);
  }
  void DragHeading(QPoint from, QPoint to) {
    QWidget* on = view.horizontalHeader()->viewport();
    Mouse(on, QEvent::MouseMove, from, Qt::NoButton);
    Mouse(on, QEvent::MouseButtonPress, from, Qt::LeftButton);
    for (int i = 1; i <= 10; ++i) {
      Mouse(on, QEvent::MouseMove, from + (to - from) * i / 10, Qt::NoButton);
    }
    Mouse(on, QEvent::MouseButtonRelease, to, Qt::LeftButton);
  }
  std::string Headings() const {
    std::string all;
    for (int c = 0; c < kCols; ++c) all += grid.text(0, c);
    return all;
  }

  platform::Grid grid;
  qt::GridWidget view{grid};
  std::string log;
};

TEST_F(GridWidgetTest, PaintsAndTellsOfNothingThatIsOffScreen) {
  CountingDelegate delegate(grid);
  view.setItemDelegate(&delegate);
  support::Settle();
  EXPECT_GT(delegate.rows.size(), 5U);
  EXPECT_LT(delegate.rows.size(), 20U);

  std::string spans;
  QObject::connect(view.model(), &QAbstractItemModel::dataChanged, &view,
                   [&](const QModelIndex& first, const QModelIndex& last) {
                     spans += std::to_string(first.row()) + "-" + std::to_string(last.row()) + " ";
                   });
  delegate.rows.clear();
  for (const int row : {4, 3, 7, 1500}) grid.set_text(row, 2, "new");
  view.Refresh();
  EXPECT_EQ(spans, "2-3 6-6 ");
  EXPECT_TRUE(support::WaitFor([&] { return !delegate.rows.empty(); }));
  for (const int row : {2, 3, 6}) EXPECT_TRUE(delegate.rows.contains(row));
  EXPECT_LE(delegate.rows.size(), 5U) << "Qt takes in the row below a changed one";
  view.setItemDelegate(nullptr);
}

TEST_F(GridWidgetTest, FollowsRowsAndColumnsThatComeAndGo) {
  int inserted = 0, reset = 0;
  QObject::connect(view.model(), &QAbstractItemModel::rowsInserted, &view, [&] { ++inserted; });
  QObject::connect(view.model(), &QAbstractItemModel::modelReset, &view, [&] { ++reset; });
  for (int i = 0; i < 50; ++i) grid.AddRow();
  EXPECT_EQ(view.model()->rowCount(), kRows) << "not before the frame";
  Frame();
  EXPECT_EQ(view.model()->rowCount(), kRows + 50);
  EXPECT_EQ(inserted, 1);
  grid.set_rows(4);
  grid.set_cols(3);
  grid.set_width(1, 1515);
  Frame();
  EXPECT_EQ(view.model()->rowCount(), 3);
  EXPECT_EQ(view.model()->columnCount(), 3);
  EXPECT_EQ(view.columnWidth(1), 101);
  EXPECT_EQ(reset, 0);
  EXPECT_TRUE(view.currentIndex().isValid());
}

TEST_F(GridWidgetTest, ADraggedColumnMovesInTheGridButTheNameStaysFirst) {
  grid.on_before_move_column = [](int from, int to) { return from == 0 ? 0 : to; };
  const auto middle = [this](int c) {
    return QPoint(view.columnViewportPosition(c) + view.columnWidth(c) / 2, 10);
  };
  DragHeading(middle(3), middle(1) - QPoint(30, 0));
  Frame();
  EXPECT_EQ(Headings(), "H0H3H1H2H4");
  for (int c = 0; c < kCols; ++c) EXPECT_EQ(view.horizontalHeader()->visualIndex(c), c);
  DragHeading(middle(0), middle(2) + QPoint(30, 0));
  DragHeading(middle(2), QPoint(2, 10));
  Frame();
  EXPECT_EQ(Headings().substr(0, 2), "H0");
}

TEST_F(GridWidgetTest, ADraggedBoundarySetsTheWidthAndTellsOnceAtItsRelease) {
  const QPoint edge(view.columnViewportPosition(2) - 1, 10);
  DragHeading(edge, edge + QPoint(33, 0));
  EXPECT_EQ(grid.width(1), 1200 + 33 * 15);
  const std::string log_now = TakeLog();
  EXPECT_EQ(log_now.find("resized"), log_now.rfind("resized"));
  EXPECT_NE(log_now.find("resized"), std::string::npos);
  EXPECT_EQ(log_now.find("click"), std::string::npos);
  grid.set_width(1, 3000);
  Frame();
  EXPECT_EQ(view.columnWidth(1), 200);
  EXPECT_EQ(TakeLog(), "") << "the program's own widths are not the user's";
}

TEST_F(GridWidgetTest, NoColumnGetsWiderThanItsGridTakes) {
  const QPoint edge(view.columnViewportPosition(2) - 1, 10);
  DragHeading(edge, edge + QPoint(1500, 0));
  EXPECT_EQ(grid.width(1), 15000);
  EXPECT_EQ(view.columnWidth(1), 1000);
  grid.set_text(1, 1, std::string(3000, 'W'));
  Frame();
  view.resizeColumnToContents(1);
  EXPECT_EQ(view.columnWidth(1), 1000);
}

TEST_F(GridWidgetTest, ADragWhoseReleaseGoesElsewhereIsOverWithTheNextMove) {
  QWidget* heading = view.horizontalHeader()->viewport();
  const QPoint edge(view.columnViewportPosition(2) - 1, 10);
  Mouse(heading, QEvent::MouseMove, edge, Qt::NoButton, Qt::NoButton);
  Mouse(heading, QEvent::MouseButtonPress, edge, Qt::LeftButton);
  Mouse(heading, QEvent::MouseMove, edge + QPoint(20, 0), Qt::NoButton);
  EXPECT_EQ(grid.width(1), 1500);
  TakeLog();
  Mouse(heading, QEvent::MouseMove, {30, 8}, Qt::NoButton, Qt::NoButton);
  EXPECT_EQ(TakeLog(), "resized 0,1;move 0,0;");
  view.horizontalHeader()->resizeSection(1, 50);
  EXPECT_EQ(grid.width(1), 1500) << "nobody drags any more";
}

TEST_F(GridWidgetTest, AHeldWideningKeyTellsOnceWhenItIsLetGo) {
  constexpr auto kModifiers = Qt::ControlModifier | Qt::ShiftModifier;
  for (const bool repeated : {false, true, true}) {
    Key(Qt::Key_Right, kModifiers, QEvent::KeyPress, repeated);
    if (repeated) Key(Qt::Key_Right, kModifiers, QEvent::KeyRelease, true);
  }
  EXPECT_EQ(TakeLog(), "");
  EXPECT_EQ(grid.width(0), 1200 + 3 * 8 * 15);
  Key(Qt::Key_Right, kModifiers, QEvent::KeyRelease);
  Key(Qt::Key_Control, {}, QEvent::KeyRelease);
  EXPECT_EQ(TakeLog(), "resized -1,-1;");
}

TEST_F(GridWidgetTest, MouseAndKeysCallTheHooksWithTheirCell) {
  QWidget* body = view.viewport();
  const QPoint cell = view.visualRect(view.model()->index(4, 2)).center();
  Mouse(body, QEvent::MouseButtonPress, cell, Qt::LeftButton);
  Mouse(body, QEvent::MouseButtonRelease, cell, Qt::LeftButton);
  Mouse(body, QEvent::MouseButtonDblClick, cell, Qt::LeftButton);
  EXPECT_EQ(TakeLog(), "click 5,2;double 5,2;");
  EXPECT_EQ(grid.row(), 5);
  Key(Qt::Key_Down);
  EXPECT_EQ(TakeLog(), "click 6,2;");
  Key(Qt::Key_Return);
  EXPECT_EQ(TakeLog(), "double 6,0;");
  Key(Qt::Key_O, Qt::ControlModifier);
  EXPECT_EQ(TakeLog(), "double 0,2;");
  Key(Qt::Key_Right, Qt::ControlModifier);
  EXPECT_EQ(Headings(), "H0H1H3H2H4");
  Mouse(view.horizontalHeader()->viewport(), QEvent::MouseMove, {100, 8}, Qt::NoButton);
  EXPECT_EQ(TakeLog(), "move 0,1;");
  Mouse(view.horizontalHeader()->viewport(), QEvent::MouseMove, {500, 8}, Qt::NoButton);
  EXPECT_EQ(TakeLog(), "move 0,-1;") << "the strip behind the last heading";
  QEvent leave(QEvent::Leave);
  QApplication::sendEvent(view.horizontalHeader()->viewport(), &leave);
  EXPECT_EQ(grid.mouse_row, -1);
  EXPECT_EQ(TakeLog(), "");
  grid.set_rows(3);
  Frame();
  Mouse(body, QEvent::MouseMove, {100, 250}, Qt::NoButton);
  EXPECT_EQ(TakeLog(), "move -1,1;") << "below the last row";
}

TEST_F(GridWidgetTest, TheGroundTakesEveryColourOfTheGrid) {
  const QColor own = view.palette().color(QPalette::Base);
  for (const QColor& color : {QColor(Qt::red), own}) {
    grid.set_back_color(color.blue() << 16 | color.green() << 8 | color.red());
    Frame();
    EXPECT_EQ(view.viewport()->palette().color(QPalette::Base).name(), color.name());
  }
}

TEST(GridWidgetMenu, ItsOwnersMayGoWhileItIsOpen) {
  platform::Grid grid;
  grid.set_cols(2);
  grid.set_rows(3);
  int sorted = 0;
  grid.on_double_click = [&sorted] { ++sorted; };
  auto view = std::make_unique<qt::GridWidget>(grid);
  view->show();
  QContextMenuEvent ask(QContextMenuEvent::Mouse, {20, 30}, {20, 30});
  QApplication::sendEvent(view->viewport(), &ask);
  const QPointer<QMenu> menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  ASSERT_NE(menu, nullptr);
  menu->actions().front()->trigger();
  EXPECT_EQ(sorted, 1);
  view->Drop();
  EXPECT_FALSE(menu->isVisible());
  menu->actions().front()->trigger();
  EXPECT_EQ(sorted, 1);
  view.reset();
  EXPECT_EQ(menu, nullptr);
}

TEST_F(GridWidgetTest, TheTopRowOfTheModelIsKeptUntilTheUserScrolls) {
  grid.set_top_row(kRows);
  Frame();
  EXPECT_EQ(view.verticalScrollBar()->value(), view.verticalScrollBar()->maximum());
  EXPECT_EQ(grid.top_row(), kRows) << "though so high it can't be scrolled";
  view.verticalScrollBar()->setValue(70);
  EXPECT_EQ(grid.top_row(), 71);
}

/// A grid whose rows come in the order of time, in a view that shows more than 40 of them.
class TapeTest : public GridWidgetTest {
 protected:
  TapeTest() {
    view.ReadAsTape("none yet");
    view.resize(600, 1400);
    Frame();
    bar = view.verticalScrollBar();
  }
  /// As the tape does: the new row is the current one, and is followed near the end.
  void Append(int times = 1) {
    for (int i = 0; i < times; ++i) {
      const int row = grid.AddRow();
      grid.set_text(row, 0, "name " + std::to_string(row));
      grid.set_row(row);
      if (grid.top_row() > grid.rows() - 40) grid.set_top_row(row);
    }
    Frame();
  }

  void Wheel(int notches) {
    QWheelEvent event({50, 50}, view.mapToGlobal(QPointF(50, 50)), {}, {0, 120 * notches},
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(view.viewport(), &event);
  }
  /// A low view at its end.
  void ReadTheEnd() {
    view.resize(600, 300);
    bar->setValue(bar->maximum());
    Frame();
  }
  [[nodiscard]] bool AtEnd() const { return bar->value() == bar->maximum(); }

  QScrollBar* bar;
};

TEST_F(TapeTest, ScrolledToItsEndFollowsAndAnywhereElseStays) {
  const auto at_end = [this] { return bar->value() == bar->maximum(); };
  ASSERT_GT(view.rowAt(view.viewport()->height() - 1) - view.rowAt(0), 40);
  bar->setValue(bar->maximum());
  EXPECT_EQ(grid.top_row(), grid.rows() - 1);
  Append(3);
  EXPECT_TRUE(at_end());
  view.resize(600, 500);
  Frame();
  EXPECT_TRUE(at_end()) << "the top row is scrolled as high as it can be";
  view.resize(600, 1400);
  Frame();
  Append();
  EXPECT_TRUE(at_end());

  Key(Qt::Key_PageUp);
  const int left = bar->value();
  EXPECT_EQ(grid.top_row(), left + 1);
  const int mine = view.currentIndex().row();
  Append(50);
  EXPECT_EQ(bar->value(), left);
  EXPECT_EQ(view.currentIndex().row(), mine) << "the reader's row stays his";
  Key(Qt::Key_End);
  EXPECT_TRUE(at_end());
  Append();
  EXPECT_TRUE(at_end());
  EXPECT_EQ(view.currentIndex().row() + 1, grid.row());
}

TEST_F(TapeTest, RowsThatComePullNobodyBackWhileHeScrolls) {
  ReadTheEnd();
  const int end = bar->value(), notch = QApplication::wheelScrollLines();
  for (int i = 1; i <= 6; ++i) {
    Wheel(1);
    Append();
    ASSERT_EQ(bar->value(), end - i * notch);
  }
  ASSERT_EQ(grid.top_row(), grid.rows() - 1) << "the program's, not shown";
  EXPECT_TRUE(support::WaitFor([this] { return grid.top_row() == bar->value() + 1; }));
  EXPECT_EQ(bar->value(), end - 6 * notch);
  Append();
  EXPECT_TRUE(AtEnd()) << "he stopped near the end";
}

TEST_F(TapeTest, WhoScrollsFarUpStaysThereUntilHeReachesTheEnd) {
  ReadTheEnd();
  for (int i = 0; i < 6; ++i) {
    Key(Qt::Key_PageUp);
    Append(3);
  }
  const int left = bar->value();
  EXPECT_LT(left, grid.rows() - 1 - 60);
  const QDeadlineTimer over(700);
  ASSERT_TRUE(support::WaitFor([&over] { return over.hasExpired(); }));
  Append(20);
  EXPECT_EQ(bar->value(), left);
  for (int i = 0; i < 100 && !AtEnd(); ++i) {
    Wheel(-1);
    if (!AtEnd()) Append();
  }
  ASSERT_TRUE(AtEnd());
  for (int i = 0; i < 3; ++i) Append(5);
  EXPECT_TRUE(AtEnd());
}

TEST_F(TapeTest, APressedScrollBarAndAnArrowKeyHoldTheRows) {
  ReadTheEnd();
  const int end = bar->value();
  Append();
  Key(Qt::Key_Up);
  const int mine = view.currentIndex().row();
  Append(2);
  EXPECT_EQ(bar->value(), end + 1);
  EXPECT_EQ(view.currentIndex().row(), mine);
  Key(Qt::Key_End);
  Append();
  EXPECT_TRUE(AtEnd());

  bar->setSliderDown(true);
  bar->setValue(bar->value() - 5);
  const int held = bar->value();
  const QDeadlineTimer over(700);
  ASSERT_TRUE(support::WaitFor([&over] { return over.hasExpired(); }));
  Append();
  EXPECT_EQ(bar->value(), held);
  bar->setSliderDown(false);
  EXPECT_TRUE(support::WaitFor([this] { return grid.top_row() == bar->value() + 1; }));
}

TEST_F(TapeTest, AColumnTakesTheRoomLeftOnTheScreenOnly) {
  view.Fill(1);
  const auto filled = [this] {
    return view.horizontalHeader()->length() == view.viewport()->width();
  };
  for (const int width : {600, 900}) {
    view.resize(width, 300);
    Frame();
    EXPECT_TRUE(filled()) << width;
    EXPECT_EQ(grid.width(1), 1200);
  }
  const QPoint other(view.columnViewportPosition(4) - 1, 10);
  DragHeading(other, other + QPoint(20, 0));
  EXPECT_EQ(grid.width(3), 1200 + 20 * 15);
  EXPECT_TRUE(support::WaitFor(filled));
  EXPECT_EQ(grid.width(1), 1200);
  const int wide = view.columnWidth(1);
  const QPoint edge(view.columnViewportPosition(2) - 1, 10);
  DragHeading(edge, edge - QPoint(30, 0));
  EXPECT_EQ(grid.width(1), (wide - 30) * 15);
  EXPECT_TRUE(support::WaitFor(filled));
  grid.set_width(1, 1200);
  view.resize(300, 300);
  Frame();
  EXPECT_EQ(view.columnWidth(1), 80);
}

TEST_F(TapeTest, CutsWhatIsTooWideAndKeepsItsType) {
  const auto first_cell = [this](int letters) {
    grid.set_text(1, 0, std::string(static_cast<std::size_t>(letters), 'm'));
    Frame();
    return view.viewport()->grab(view.visualRect(view.model()->index(0, 0))).toImage();
  };
  first_cell(12);
  grid.set_width(0, (view.sizeHintForIndex(view.model()->index(0, 0)).width() - 5) * 15);
  EXPECT_EQ(first_cell(12), first_cell(24));
  EXPECT_NE(first_cell(12), first_cell(5));
}

TEST_F(TapeTest, CopiesTheChosenRowsOrElseTheCurrentOne) {
  Append();
  Key(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "name 1\t\t\t\t\n");
  grid.set_text(4, 4, "C");
  auto* chosen = view.selectionModel();
  constexpr auto kRow = QItemSelectionModel::Select | QItemSelectionModel::Rows;
  chosen->select(view.model()->index(4, 0), kRow);
  chosen->select(view.model()->index(3, 0), kRow);
  Append();
  Key(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "name 4\t\t\t\tC\nname 5\t\t\t\t\n");
}

TEST_F(TapeTest, ItsColumnsStayInTheirPlaces) {
  view.setCurrentIndex(view.model()->index(0, 2));
  Key(Qt::Key_Right, Qt::ControlModifier);
  EXPECT_FALSE(view.horizontalHeader()->sectionsMovable());
  EXPECT_EQ(Headings(), "H0H1H2H3H4");
}

TEST_F(GridWidgetTest, ReadsOutCellsAndHeadings) {
  grid.set_text(2, 1, "<b>9.25</b>");
  Frame();
  QAccessibleInterface* table = QAccessible::queryAccessibleInterface(&view);
  ASSERT_NE(table, nullptr);
  auto* cells = table->tableInterface();
  ASSERT_NE(cells, nullptr);
  EXPECT_EQ(cells->rowCount(), kRows);
  EXPECT_EQ(cells->columnDescription(3), "H3");
  EXPECT_EQ(cells->cellAt(1, 1)->text(QAccessible::Name), "<b>9.25</b>");
}

TEST_F(GridWidgetTest, IsEmptyAndDeafOnceItsGridIsGone) {
  view.Drop();
  Key(Qt::Key_Down);
  Mouse(view.viewport(), QEvent::MouseMove, {20, 20}, Qt::NoButton);
  Mouse(view.horizontalHeader()->viewport(), QEvent::MouseMove, {20, 8}, Qt::NoButton);
  view.repaint();
  EXPECT_EQ(TakeLog(), "");
}

TEST(GridLook, EveryStyleOfLinesLooksDifferentOnAnyGround) {
  for (const base::Color back : {0, 15, 0x808080}) {
    platform::Grid grid;
    grid.set_rows(4);
    grid.set_cols(3);
    grid.set_back_color(back);
    qt::GridWidget view(grid);
    view.resize(200, 140);
    QList<QImage> seen;
    for (int style = 0; style <= 11; ++style) {
      grid.set_grid_lines(style);
      view.Refresh();
      const QImage image = view.grab().toImage();
      EXPECT_FALSE(seen.contains(image)) << style << " on " << back;
      seen << image;
    }
  }
}

TEST(GridLook, RowsOfAnyTypeCanBeReadBelowAHeadingThatLeavesRoom) {
  platform::Grid grid;
  grid.set_rows(2);
  qt::GridWidget view(grid);
  const QString usual = QFontInfo(view.horizontalHeader()->font()).family();
  grid.set_font_name("No existe tal letra");
  for (const auto& [size, least, most] :
       {std::tuple{0.001F, 14, 24}, {7.0F, 20, 30}, {72.0F, 110, 250}}) {
    grid.set_font_size(size);
    view.Refresh();
    EXPECT_EQ(std::clamp(view.rowHeight(0), least, most), view.rowHeight(0)) << size;
    EXPECT_LT(view.horizontalHeader()->sizeHint().height(), 60) << size;
  }
  EXPECT_EQ(QFontInfo(view.horizontalHeader()->font()).family(), usual);
}

}  // namespace
