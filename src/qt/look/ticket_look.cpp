#include "qt/look/ticket_look.h"

#include <algorithm>

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QPainter>
#include <QShortcut>

#include "qt/look/binders.h"
#include "qt/look/grid_widget.h"
#include "qt/look/small_widgets.h"
#include "qt/look/theme.h"
#include "qt/ports/twips.h"

namespace qt {
namespace {

constexpr double kNamePoints = 9;
constexpr int kPadding = 8;
constexpr auto kToTheRight = Qt::AlignRight | Qt::AlignVCenter;

constexpr QKeyCombination kTradesKey = Qt::CTRL | Qt::Key_D;

/// How the text of a label looks before the window has been scaled.
struct Type {
  double points;
  QFont::Weight weight = QFont::Normal;
  Qt::Alignment align = kToTheRight;
};

class Ticket : public QWidget {
 public:
  explicit Ticket(views::Ticker2& model);

  void Join(Binders& binders);
  void Drop();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  struct Figure {
    LabelWidget* widget;
    Type type;
  };

  LabelWidget* Add(platform::Label& label, const Type& type, Binders& binders,
                   bool own_colors = true);
  void AddQuote(Binders& binders);
  void AddBook(Binders& binders);
  void AddTrades(Binders& binders);
  void AddKeys();
  void FillMenu(QMenu& menu);
  void FollowPlaces();
  void FollowList();
  void PaintNames(QPainter& painter) const;

  views::Ticker2* model_;       // nullptr once it is gone
  QObject* context_ = nullptr;  // of what ends with the model
  std::vector<Figure> figures_;
  LabelWidget *last_ = nullptr, *heading_ = nullptr, *buying_ = nullptr, *selling_ = nullptr;
  /// With what is painted in front of them, and over the columns that they begin.
  std::vector<std::pair<LabelWidget*, QString>> named_, columns_;
  GridWidget* list_;
  QPushButton* more_;
  double scale_ = 1;
};

Ticket::Ticket(views::Ticker2& model)
    : model_(&model), list_(new GridWidget(model.List1, this)), more_(new QPushButton(this)) {
  setFocusPolicy(Qt::StrongFocus);
  setMinimumSize(260, 180);
}

void Ticket::Join(Binders& binders) {
  context_ = binders.context();
  connect(context_, &QObject::destroyed, this, &Ticket::Drop);
  binders.PlaceByModels();
  AddQuote(binders);
  AddBook(binders);
  AddTrades(binders);
  AddKeys();
  FollowPlaces();
}

LabelWidget* Ticket::Add(platform::Label& label, const Type& type, Binders& binders,
                         bool own_colors) {
  auto* widget = new LabelWidget(this);
  widget->setAlignment(type.align);
  widget->setContentsMargins(kPadding, 0, kPadding, 0);
  widget->setFont(FontOf(type.points, type.weight));
  if (own_colors) widget->set_blank_mark(QStringLiteral("–"));
  binders.Bind(label, *widget, own_colors ? Binders::Colors::model : Binders::Colors::theme);
  widget->installEventFilter(this);
  figures_.push_back({widget, type});
  return widget;
}

void Ticket::AddQuote(Binders& binders) {
  last_ = Add(model_->Ultimo, {26, QFont::Medium}, binders);
  Add(model_->D, {13, QFont::Medium}, binders);
  constexpr Type kFigure{11};
  named_ = {{Add(model_->Maximo, kFigure, binders), QStringLiteral("Máximo")},
            {Add(model_->Minimo, kFigure, binders), QStringLiteral("Mínimo")},
            {Add(model_->Volumen, kFigure, binders), QStringLiteral("Volumen")}};
}

void Ticket::AddBook(Binders& binders) {
  for (std::size_t i = 0; i < model_->vc.size(); ++i) {
    const bool best = i == 0;
    const Type price{best ? 13.0 : 12.0, QFont::Medium};
    const Type volume{best ? 13.0 : 12.0, QFont::Medium};
    LabelWidget* bought = Add(model_->vc[i], volume, binders);
    Add(model_->pc[i], price, binders);
    LabelWidget* asked = Add(model_->pv[i], price, binders);
    LabelWidget* sold = Add(model_->vv[i], volume, binders);
    if (!best) continue;
    columns_ = {{bought, QStringLiteral("Volumen")},
                {asked, QStringLiteral("Venta")},
                {sold, QStringLiteral("Volumen")}};
  }
  constexpr Type kTotal{11, QFont::Medium, Qt::AlignCenter};
  buying_ = Add(model_->Label5, kTotal, binders);
  selling_ = Add(model_->Label6, kTotal, binders);
  heading_ = Add(model_->Label7, {kNamePoints}, binders, false);
  heading_->setContentsMargins(0, 0, kPadding, 0);
  QPalette quiet = heading_->palette();
  quiet.setColor(QPalette::WindowText, tone::kMuted);
  heading_->setPalette(quiet);
}

void Ticket::AddTrades(Binders& binders) {
  list_->ReadAsTape(QStringLiteral("Sin negociaciones todavía"));
  list_->setAccessibleName(QStringLiteral("Negociaciones del día"));
  list_->on_menu = [this](QMenu& menu) { FillMenu(menu); };
  binders.Follow(model_->List1, *list_, [this] {
    list_->Refresh();
    FollowList();
  });
  more_->setAutoDefault(false);
  more_->setToolTip(QKeySequence(kTradesKey).toString(QKeySequence::NativeText));
  connect(more_, &QPushButton::clicked, context_, [this] { model_->Label6.DoubleClick(); });
}

void Ticket::AddKeys() {
  const auto add = [this](const QKeySequence& keys, auto action) {
    auto* key = new QShortcut(keys, this);
    key->setContext(Qt::WidgetWithChildrenShortcut);
    connect(key, &QShortcut::activated, context_, action);
  };
  add(kTradesKey, [this] { model_->Label6.DoubleClick(); });
  add(Qt::Key_Escape, [this] { model_->UserClose(); });
}

void Ticket::Drop() {
  model_ = nullptr;
  list_->Drop();
}

void Ticket::FillMenu(QMenu& menu) {
  auto* trades = menu.addAction(QStringLiteral("&Negociaciones del día"));
  trades->setShortcut(kTradesKey);
  connect(trades, &QAction::triggered, context_, [this] { model_->Label6.DoubleClick(); });
  menu.addSeparator();
  auto* close = menu.addAction(QStringLiteral("&Cerrar"));
  close->setShortcut(Qt::Key_Escape);
  connect(close, &QAction::triggered, context_, [this] { model_->UserClose(); });
}

bool Ticket::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize || event->type() == QEvent::Move) FollowPlaces();
  return QWidget::eventFilter(watched, event);
}

// Type grows and shrinks with the window; what stands between the labels goes with them.
void Ticket::FollowPlaces() {
  if (!model_ || !heading_) return;
  const double scale = std::min(model_->ReSize1.scale_x(), model_->ReSize1.scale_y());
  if (scale != scale_) {
    scale_ = scale;
    for (const Figure& figure : figures_) {
      figure.widget->setFont(FontOf(figure.type.points * scale, figure.type.weight));
    }
    more_->setFont(FontOf(kNamePoints * scale));
  }
  const int gap = qRound(6 * scale_);
  const int top = buying_->geometry().bottom() + 1 + gap;
  more_->setGeometry(buying_->x(), top, selling_->geometry().right() + 1 - buying_->x(),
                     qRound(22 * scale_));
  update();
}

void Ticket::FollowList() {
  if (!model_) return;
  const bool seen = model_->List1.visible() && list_->y() < height();
  more_->setText(seen ? QStringLiteral("Ocultar las negociaciones del día")
                      : QStringLiteral("Ver las negociaciones del día"));
  if (list_->isHidden() != seen) return;
  const bool active = isAncestorOf(QApplication::focusWidget()) || hasFocus();
  list_->setVisible(seen);
  if (active) (seen ? static_cast<QWidget*>(list_) : this)->setFocus(Qt::OtherFocusReason);
}

void Ticket::resizeEvent(QResizeEvent*) { FollowList(); }

void Ticket::contextMenuEvent(QContextMenuEvent* event) {
  if (!model_) return;
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  FillMenu(*menu);
  menu->popup(event->globalPos());
}

void Ticket::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  painter.fillRect(event->rect(), tone::kWindow);
  if (!model_) return;
  painter.fillRect(0, ToPixels(model_->Linea_Y1), width(), 1, tone::kLine);
  PaintNames(painter);
}

void Ticket::PaintNames(QPainter& painter) const {
  painter.setFont(FontOf(kNamePoints * scale_));
  painter.setPen(tone::kMuted);
  for (const auto& [label, name] : named_) {
    const int left = last_->geometry().right() + 1;
    painter.drawText(QRect(left, label->y(), label->x() - kPadding - left, label->height()),
                     kToTheRight, name);
  }
  for (const auto& [label, name] : columns_) {
    painter.drawText(
        QRect(label->x(), heading_->y(), label->width() - kPadding, heading_->height()),
        kToTheRight, name);
  }
}

}  // namespace

Look MakeTicketLook(views::Ticker2& window, FrameClock& clock) {
  auto* ticket = new Ticket(window);
  auto binders = std::make_shared<Binders>(*ticket, clock);
  ticket->Join(*binders);
  return {.widget = ticket,
          .place = Place::child,
          .widget_of = [b = binders.get()](platform::Control& c) { return b->WidgetOf(c); },
          .bond = binders,
          .apart = true};
}

}  // namespace qt
