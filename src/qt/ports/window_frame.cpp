#include "qt/ports/window_frame.h"

#include <algorithm>
#include <limits>
#include <utility>

#include <QApplication>
#include <QEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QScreen>
#include <QToolTip>
#include <QWindow>

#include "qt/ports/twips.h"

namespace qt {
namespace {

using State = platform::Window::State;

State StateOf(const QWidget& widget) {
  if (widget.isMinimized()) return State::minimized;
  return widget.isMaximized() ? State::maximized : State::normal;
}

Qt::WindowStates FlagOf(State state) {
  switch (state) {
    case State::minimized:
      return Qt::WindowMinimized;
    case State::maximized:
      return Qt::WindowMaximized;
    default:
      return Qt::WindowNoState;
  }
}

/// `rect` made no larger than `area`, and moved into it.
QRect Inside(const QRect& area, const QRect& rect) {
  QRect inside(rect.topLeft(), rect.size().boundedTo(area.size()));
  inside.moveLeft(qBound(area.left(), rect.left(), area.right() + 1 - inside.width()));
  inside.moveTop(qBound(area.top(), rect.top(), area.bottom() + 1 - inside.height()));
  return inside;
}

// The property of the frames of windows that stand apart from one another.
constexpr char kApart[] = "apart";

QList<QRect> PlacesOfOthersApart(const QMdiArea& area, const QWidget& own) {
  QList<QRect> places;
  for (const QMdiSubWindow* other : area.subWindowList()) {
    if (other != &own && other->isVisible() && other->property(kApart).toBool()) {
      places << other->geometry();
    }
  }
  return places;
}

/// Where a window of `size` covers as little as can be of the others that stand apart: from the
/// upper right corner of the area downwards, then to the left.
QPoint PlaceApart(const QMdiArea& area, const QWidget& own, const QSize& size) {
  constexpr int kGap = 6, kStep = 28;
  const QList<QRect> others = PlacesOfOthersApart(area, own);
  const QSize room = area.viewport()->size() - size;
  const auto covered = [&](const QPoint& at) {
    qint64 dots = 0;
    for (const QRect& other : others) {
      const QRect both = other & QRect(at, size);
      dots += both.isEmpty() ? 0 : qint64{both.width()} * both.height();
    }
    return dots;
  };
  QPoint best;
  qint64 least = std::numeric_limits<qint64>::max();
  for (int left = room.width() - kGap; left >= 0; left -= size.width() + kGap) {
    for (int top = kGap; top < room.height() + size.height(); top += size.height() + kGap) {
      const QPoint place(left, std::min(top, std::max(room.height(), 0)));
      if (const qint64 dots = covered(place); dots < least) {
        least = dots;
        best = place;
      }
    }
  }
  if (least < qint64{size.width()} * size.height() / 2) return best;
  const int aside = kStep * static_cast<int>(others.size());
  return {room.width() - aside % std::max(room.width(), 1), aside % std::max(room.height(), 1)};
}

bool AsksToClose(const QKeyEvent& key, Place place) {
  if (place == Place::dialog) return key.matches(QKeySequence::Cancel);
  return place == Place::child && key.keyCombination() == (Qt::CTRL | Qt::Key_F4);
}

// Room for what the window manager adds to a window.
constexpr QSize kAdded(16, 48);

/// Moves `place` below `other`, or above it where there is no room, if it would lie over that. With
/// room nowhere it goes to the foot of the screen, where it covers the least.
void StepAside(QRect& place, const QRect& other, const QRect& screen) {
  if (!place.intersects(other)) return;
  if (other.bottom() + kAdded.height() + place.height() <= screen.bottom()) {
    place.moveTop(other.bottom() + kAdded.height());
  } else if (other.top() - kAdded.height() - place.height() >= screen.top()) {
    place.moveBottom(other.top() - kAdded.height());
  } else {
    place.moveBottom(screen.bottom() - kAdded.height());
  }
}

bool HasSize(const platform::Rect& rect) { return rect.width > 0 && rect.height > 0; }

}  // namespace

QSize RoomOnScreen(const QWidget& widget) { return widget.screen()->availableSize() - kAdded; }

QString TitleText(std::string_view caption) {
  QString title = QString::fromUtf8(caption.data(), static_cast<qsizetype>(caption.size()));
  return title.replace(QStringLiteral("[*]"), QStringLiteral("[*][*]"));
}

WindowFrame::WindowFrame(platform::Window& window, Look look, FrameClock& clock, QMdiArea* area)
    : window_(window), look_(std::move(look)), clock_(clock), outer_(look_.widget) {
  if (look_.place == Place::child && area) {
    area_ = area;
    auto* frame = new QMdiSubWindow;
    frame->setProperty(kApart, look_.apart);
    frame->setWindowFlag(Qt::WindowStaysOnTopHint, look_.apart);
    frame->setWidget(look_.widget);
    area->addSubWindow(frame);
    frame->hide();
    outer_ = frame;
    look_.widget->installEventFilter(this);
  } else if (look_.place == Place::dialog) {
    look_.widget->setWindowFlags(Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                                 Qt::WindowSystemMenuHint | Qt::WindowMinimizeButtonHint |
                                 Qt::WindowCloseButtonHint);
    // What locks the others must not get out of sight.
    look_.widget->setWindowFlag(Qt::WindowMinimizeButtonHint, !look_.modal);
    if (look_.modal) look_.widget->setWindowModality(Qt::ApplicationModal);
  }
  outer_->setAttribute(Qt::WA_DeleteOnClose, false);
  outer_->setAttribute(Qt::WA_QuitOnClose, false);
  outer_->installEventFilter(this);
  window_.set_watcher(this);
}

WindowFrame::~WindowFrame() {
  window_.set_watcher(nullptr);
  look_.bond.reset();
  if (!outer_) return;
  outer_->removeEventFilter(this);
  HideOuter();
  outer_->deleteLater();
}

void WindowFrame::Show(const QWidget* over) {
  if (!outer_) return;
  MakeVisible(over);
  Activate();
  Report();
}

void WindowFrame::ShowQuietly(const QWidget* over) {
  if (!outer_) return;
  const QPointer<QMdiSubWindow> active = area_ ? area_->activeSubWindow() : nullptr;
  const QPointer<QWidget> focus = QApplication::focusWidget();
  outer_->setAttribute(Qt::WA_ShowWithoutActivating);
  MakeVisible(over);
  outer_->setAttribute(Qt::WA_ShowWithoutActivating, false);
  outer_->raise();
  // An area gives the keyboard to whatever comes up in it.
  if (active) area_->setActiveSubWindow(active);
  if (focus) focus->setFocus(Qt::OtherFocusReason);
  Report();
}

void WindowFrame::MakeVisible(const QWidget* over) {
  const bool placed = HasSize(window_.rect()) || outer_->testAttribute(Qt::WA_Moved);
  const State state = window_.state() == State::maximized ? State::maximized : State::normal;
  showing_ = true;
  FitIntoArea();
  Apply();
  if (!placed && !area_) Centre(over);
  // A hidden window of its own may have been moved by the window manager.
  if (!area_ && !outer_->isVisible() && state == State::normal && HasSize(window_.rect())) {
    ApplyPlace(window_.rect());
  }
  outer_->setWindowState((outer_->windowState() & Qt::WindowActive) | FlagOf(state));
  outer_->show();
  showing_ = false;
}

// Neither a design nor a file knows how much room there is.
void WindowFrame::FitIntoArea() {
  if (fitted_ || !area_ || !area_->isVisible()) return;
  fitted_ = true;
  const QRect wanted = ToPixels(window_.rect());
  QRect inside = wanted;
  if (look_.apart) inside.moveTopLeft(PlaceApart(*area_, *outer_, wanted.size()));
  inside = Inside(area_->viewport()->rect(), inside);
  if (HasSize(window_.rect()) && inside != wanted) window_.set_rect(ToTwips(inside));
}

void WindowFrame::Centre(const QWidget* over) {
  const QRect screen = outer_->screen()->availableGeometry();
  QSize wanted = outer_->size();
  if (look_.place == Place::dialog) {
    outer_->adjustSize();
    wanted = outer_->sizeHint();  // of which Qt gives no more than two thirds of the screen
  }
  outer_->resize(wanted.boundedTo(RoomOnScreen(*outer_)));
  const QRect below = over ? over->geometry() : screen;
  QRect place(below.center() - outer_->rect().center(), outer_->size());
  for (const QWidget* other : QApplication::topLevelWidgets()) {
    if (other == outer_ || other == over || !other->isVisible() || !other->isWindow()) continue;
    StepAside(place, other->geometry(), screen);
  }
  outer_->move(Inside(screen, QRect(place.topLeft(), place.size() + kAdded)).topLeft());
}

void WindowFrame::Hide() {
  if (outer_) HideOuter();
}

// An area leaves the keyboard to nobody when its active window hides.
void WindowFrame::HideOuter() {
  const bool was_current = area_ && area_->currentSubWindow() == outer_;
  outer_->hide();
  if (!was_current) return;
  const QList<QMdiSubWindow*> others = area_->subWindowList(QMdiArea::ActivationHistoryOrder);
  const auto last = std::find_if(others.rbegin(), others.rend(), [](const QMdiSubWindow* other) {
    return other->isVisible() && !other->isMinimized();
  });
  if (last != others.rend()) area_->setActiveSubWindow(*last);
}

void WindowFrame::Focus(platform::Control& control) {
  QWidget* widget = outer_ && look_.widget_of ? look_.widget_of(control) : nullptr;
  if (!widget) return;
  Activate();
  widget->setFocus(Qt::OtherFocusReason);
}

void WindowFrame::Raise() {
  if (Ready() && !outer_->isMinimized()) outer_->raise();
}

void WindowFrame::Activate() {
  if (area_) {
    area_->setActiveSubWindow(qobject_cast<QMdiSubWindow*>(outer_.data()));
  } else {
    outer_->activateWindow();
  }
  outer_->raise();
}

void WindowFrame::Touched(platform::Model&) { clock_.Want(*this); }

bool WindowFrame::Ready() const { return outer_ && outer_->isVisible(); }

void WindowFrame::Refresh() { Apply(); }

void WindowFrame::Apply() {
  window_.Clean();
  const State state = window_.state();
  // What follows is reported back, and would be taken for the wish of the program.
  const platform::Rect rect = window_.rect();
  const QString title = TitleText(window_.caption());
  if (outer_->windowTitle() != title) outer_->setWindowTitle(title);
  if (outer_->isVisible() && state != StateOf(*outer_)) {
    outer_->setWindowState((outer_->windowState() & Qt::WindowActive) | FlagOf(state));
  } else if (state == State::normal && HasSize(rect) && rect != known_) {
    ApplyPlace(rect);
  }
  known_ = rect;
}

void WindowFrame::ApplyPlace(const platform::Rect& rect) {
  QRect wanted = ToPixels(rect);
  // One that grows stays in sight.
  if (look_.apart && area_ && wanted.height() > outer_->height()) {
    const int over = wanted.bottom() - area_->viewport()->rect().bottom();
    wanted.translate(0, -std::clamp(over, 0, std::max(wanted.top(), 0)));
  }
  outer_->setGeometry(wanted);
}

void WindowFrame::Report() {
  if (showing_ || !Ready()) return;
  // Without what the window manager adds: that isn't known at every time.
  const QRect place = outer_->geometry();
  // A place between two pixels stays as the program has set it.
  known_ = ToPixels(window_.rect()) == place ? window_.rect() : ToTwips(place);
  window_.Placed(known_, StateOf(*outer_), ToTwips(look_.widget->width()),
                 ToTwips(look_.widget->height()));
}

bool WindowFrame::ShowCaption(const QHelpEvent& help) const {
  if (!area_ || !outer_->isMinimized()) return false;
  const int buttons = 3 * outer_->height();
  if (help.pos().x() > outer_->width() - buttons) return false;
  const std::string_view caption = window_.caption();
  // Never taken for markup.
  QToolTip::showText(
      help.globalPos(),
      QStringLiteral("<p>%1</p>")
          .arg(QString::fromUtf8(caption.data(), static_cast<qsizetype>(caption.size()))
                   .toHtmlEscaped()),
      outer_);
  return true;
}

bool WindowFrame::eventFilter(QObject* watched, QEvent* event) {
  if (watched->isWindowType()) {
    if (event->type() == QEvent::MouseButtonPress && on_lifted) on_lifted();
    return false;
  }
  switch (event->type()) {
    case QEvent::Close:
      if (watched != outer_) break;
      event->ignore();
      window_.UserClose();  // may end this object
      return true;
    case QEvent::KeyPress:
      if (watched != outer_ || !AsksToClose(*static_cast<QKeyEvent*>(event), look_.place)) break;
      window_.UserClose();
      return true;
    case QEvent::Show:
      if (look_.place == Place::main) outer_->windowHandle()->installEventFilter(this);
      clock_.Wake();
      break;
    case QEvent::WindowStateChange:
      clock_.Wake();
      Report();
      break;
    case QEvent::Move:
    case QEvent::Resize:
      Report();
      break;
    case QEvent::WindowActivate:
      if (watched != outer_) break;
      // Not every window manager lifts what it gives the keyboard to.
      if (look_.place == Place::dialog) Raise();
      if (on_lifted) on_lifted();
      break;
    case QEvent::ToolTip:
      return watched == outer_ && ShowCaption(*static_cast<QHelpEvent*>(event));
    default:
      break;
  }
  return false;
}

}  // namespace qt
