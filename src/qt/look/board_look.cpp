#include "qt/look/board_look.h"

#include <algorithm>

#include <QKeySequence>
#include <QMenu>
#include <QPainter>
#include <QResizeEvent>
#include <QShortcut>
#include <QTimer>

#include "qt/look/grid_widget.h"
#include "qt/look/small_widgets.h"
#include "qt/look/text.h"
#include "qt/look/theme.h"
#include "qt/ports/twips.h"

namespace qt {
namespace {

/// The bar stands where the model says, and the rest takes all that the bar leaves.
class Board : public QWidget {
 public:
  explicit Board(views::GridView& view)
      : bar_(new QWidget(this)), grid_(new GridWidget(view.G, this)), rest_(grid_) {
    bar_->setAutoFillBackground(true);
    settled_.setSingleShot(true);
    settled_.setInterval(kSettleMs);
    connect(&settled_, &QTimer::timeout, this,
            [this] { bar_->setAttribute(Qt::WA_TransparentForMouseEvents, false); });
    setTabOrder(grid_, bar_);
  }

  /// `rest`, which holds the grid, stands in its place.
  void Surround(QWidget* rest) {
    rest_ = rest;
    rest_->setParent(this);
    setTabOrder(grid_, bar_);
  }
  void PlaceBar(const platform::PictureBox& bar) {
    if (const int top = ToPixels(bar.rect().top); top != bar_top_) {
      bar_top_ = top;
      // A press that was meant for the heading, where the bar has just come in, isn't its.
      bar_->setAttribute(Qt::WA_TransparentForMouseEvents);
      settled_.start();
    }
    bar_height_ = bar.visible() ? ToPixels(bar.rect().height) : 0;
    Place();
  }
  [[nodiscard]] QWidget& bar() const { return *bar_; }
  [[nodiscard]] GridWidget& grid() const { return *grid_; }

 protected:
  void resizeEvent(QResizeEvent*) override { Place(); }
  // The area gives the keyboard to what stands first.
  void showEvent(QShowEvent*) override {
    if (isAncestorOf(window()->focusWidget())) grid_->setFocus();
  }

 private:
  void Place() {
    const int seen = std::clamp(bar_top_ + bar_height_, 0, bar_height_);
    // Out of sight its buttons are no stops for the Tab key either.
    if (seen == 0 && bar_->isAncestorOf(focusWidget())) grid_->setFocus();
    bar_->setVisible(seen > 0);
    bar_->setGeometry(0, bar_top_, width(), bar_height_);
    rest_->setGeometry(0, seen, width(), height() - seen);
  }

  static constexpr int kSettleMs = 350;

  QTimer settled_;
  QWidget* bar_;
  GridWidget* grid_;
  QWidget* rest_;
  int bar_top_ = 0, bar_height_ = 0;
};

/// A command of the bar, which the menu of the grid and a key give too.
struct Command {
  platform::Button* button;
  QKeySequence key;
};

std::vector<Command> CommandsOf(views::GridView& view, const QKeySequence& first_key) {
  return {{&view.Command4, first_key},
          {&view.Command3, QKeySequence::Copy},
          {&view.Command2, QKeySequence::Print},
          {&view.Command1, Qt::CTRL | Qt::Key_G}};
}

void FillMenu(QMenu& menu, const std::vector<Command>& commands, const QObject* context) {
  for (const Command& command : commands) {
    if (!command.button->visible()) continue;
    auto* action = menu.addAction(Text(command.button->caption()));
    QObject::connect(action, &QAction::triggered, context,
                     [button = command.button] { button->Click(); });
    action->setShortcut(command.key);
    action->setEnabled(command.button->enabled());
  }
}

void JoinCommands(views::GridView& view, const QKeySequence& first_key, Board& board,
                  Binders& binders) {
  const auto commands = CommandsOf(view, first_key);
  for (const Command& command : commands) {
    auto* button = new QPushButton(&board.bar());
    button->setAutoDefault(false);
    button->setGeometry(ToPixels(command.button->rect()));
    binders.Bind(*command.button, *button);
    auto* key = new QShortcut(command.key, &board);
    key->setContext(Qt::WidgetWithChildrenShortcut);
    QObject::connect(key, &QShortcut::activated, binders.context(), [model = command.button] {
      if (model->visible()) model->Click();
    });
  }
  board.grid().on_menu = [commands, context = binders.context()](QMenu& menu) {
    FillMenu(menu, commands, context);
  };
}

void JoinName(views::GridView& view, Board& board, Binders& binders) {
  auto* name = new LabelWidget(&board.bar());
  name->setFont(StrongFont());
  name->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
  name->setGeometry(ToPixels(view.Label1.rect()));
  binders.Bind(view.Label1, *name, Binders::Colors::theme);
}

}  // namespace

Look MakeBoardLook(views::GridView& view, FrameClock& clock, const BoardDesign& design) {
  auto* board = new Board(view);
  board->setMinimumSize(320, 160);
  board->grid().set_empty_text(design.empty_text);
  auto binders = std::make_shared<Binders>(*board, clock);
  if (design.surround) board->Surround(design.surround(board->grid(), *binders));
  if (view.Picture1.visible()) {
    JoinCommands(view, design.first_key, *board, *binders);
    JoinName(view, *board, *binders);
  }
  binders->Bind(view.G, board->grid());
  board->grid().setAccessibleName(Text(view.caption()));
  binders->Follow(view.Picture1, board->bar(), [&view, board] { board->PlaceBar(view.Picture1); });
  board->setFocusProxy(&board->grid());
  return {.widget = board,
          .place = Place::child,
          // The focus that the hidden button takes is the grid's.
          .widget_of = [b = binders.get(), board, &view](platform::Control& control) -> QWidget* {
            return &control == &view.Command5 ? &board->grid() : b->WidgetOf(control);
          },
          .bond = binders};
}

}  // namespace qt
