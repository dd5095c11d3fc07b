#include "qt/look/browser_look.h"

#include <utility>

#include <QFocusEvent>
#include <QPointer>
#include <QShortcut>
#include <QVBoxLayout>

#include "qt/look/desktop_page.h"
#include "qt/look/form_parts.h"
#include "qt/look/text.h"
#include "qt/look/tool_bar_look.h"
#include "qt/look/web_loader.h"

namespace qt {
namespace {

constexpr QSize kLeastSize{480, 240};
constexpr int kLineHeight = 2;

/// Whether the page may be there; a file in whatever writing.
bool MayBeAt(const platform::WebView& view, const QUrl& address) {
  const QString text = address.isLocalFile() ? QString() : QString::fromLatin1(address.toEncoded());
  return view.Allows(address.isLocalFile()
                         ? platform::FileAddress(address.toLocalFile().toStdString())
                         : text.toStdString());
}

/// Keeps the view's hooks filled while the window has a screen.
class ViewBond {
 public:
  ViewBond(platform::WebView& view, std::shared_ptr<Binders> binders)
      : view_(view), binders_(std::move(binders)) {}
  ~ViewBond() {
    view_.do_navigate = nullptr;
    for (auto* hook : {&view_.do_back, &view_.do_forward, &view_.do_refresh, &view_.do_stop}) {
      *hook = nullptr;
    }
  }
  ViewBond(const ViewBond&) = delete;
  ViewBond& operator=(const ViewBond&) = delete;

 private:
  platform::WebView& view_;
  std::shared_ptr<Binders> binders_;
};

/// The keyboard is the page's when the window comes up, whatever stands first.
class Desk : public QWidget {
 public:
  void set_page(QWidget* page) {
    page_ = page;
    setFocusProxy(page);
  }

 protected:
  void showEvent(QShowEvent*) override {
    if (isAncestorOf(window()->focusWidget())) page_->setFocus();
  }

 private:
  QWidget* page_ = nullptr;
};

/// Puts the page's address back into the field when the user leaves that for another control.
class FieldWatch : public QObject {
 public:
  FieldWatch(services::Browser& window, QLineEdit& field, QObject* parent)
      : QObject(parent), window_(window) {
    field.installEventFilter(this);
  }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() != QEvent::FocusOut) return false;
    const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
    if (reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason) {
      window_.Direccion_LostFocus();
    }
    return false;
  }

 private:
  services::Browser& window_;
};

QWidget* MakeBar(services::Browser& window, Binders& binders, QWidget* parent) {
  auto* band = new Band(Qt::BottomEdge, tone::kWindow, parent);
  auto* row = new QHBoxLayout(band);
  row->setContentsMargins(0, 0, 8, 0);
  row->addWidget(MakeToolBar(window.ActiveBar1, binders, band));
  auto* field = new QLineEdit(band);
  field->setTextMargins(4, 0, 4, 0);
  QLabel* label = LabelFor(window.Direccion, u'D', band);
  label->setBuddy(field);
  row->addWidget(label);
  row->addWidget(field, 1);
  binders.Bind(window.Direccion, *field);
  new FieldWatch(window, *field, binders.context());
  return band;
}

QWidget* MakeBusyLine(platform::WebView& view, Binders& binders, QWidget* parent) {
  auto* line = new QWidget(parent);
  line->setFixedHeight(kLineHeight);
  line->setAutoFillBackground(true);
  binders.Follow(view, *line, [&view, line] {
    line->setPalette(view.busy() ? QPalette(tone::kAccent) : QPalette(tone::kWindow));
  });
  return line;
}

QLabel* MakeNotice(QWidget* parent) {
  QLabel* notice = QuietLabel({}, TextFont(), parent);
  notice->setWordWrap(true);
  notice->setContentsMargins(12, 8, 12, 8);
  notice->hide();
  return notice;
}

void Say(QLabel& notice, const QString& text) {
  notice.setText(text);
  notice.setVisible(!text.isEmpty());
}

WebHooks HooksOf(platform::WebView& view, QLabel& notice, QObject* context) {
  // The web view goes after the window's models may have gone.
  const QPointer<QObject> there = context;
  return {.allows = [&view, there](const QUrl& at) { return there && MayBeAt(view, at); },
          .tell =
              [&view, &notice, there](bool busy, const QString& title, const QUrl& location) {
                if (!there) return;
                if (busy) Say(notice, {});
                view.Tell(busy, title.toStdString(), location.toDisplayString().toStdString());
              },
          .failed =
              [&notice, there] {
                if (!there) return;
                Say(notice, QStringLiteral("La página ha fallado y se ha cerrado. Pulse Actualizar "
                                           "o elija otra."));
              }};
}

WebScreen MakeScreen(const WebHooks& hooks, WebPlugin* plugin, QWidget& parent) {
  if (plugin) return plugin->Make(hooks, parent);
  auto* page = new DesktopPage(&parent);
  return {.widget = page,
          .navigate =
              [page, tell = hooks.tell](const QUrl& address) {
                page->Open(address);
                tell(false, {}, address);
              },
          .back = [] {},
          .forward = [] {},
          .refresh = [] {},
          .stop = [] {}};
}

void Join(platform::WebView& view, const WebScreen& screen, QLabel& notice) {
  view.do_back = screen.back;
  view.do_forward = screen.forward;
  view.do_refresh = screen.refresh;
  view.do_stop = screen.stop;
  view.do_navigate = [navigate = screen.navigate, &notice](const std::string& wanted) {
    const QUrl address(Text(wanted));
    if (address.isValid()) return navigate(address);
    Say(notice, QStringLiteral("No es una dirección: ") + Text(wanted));
  };
  if (!view.address().empty()) view.do_navigate(view.address());
}

void AddKeys(services::Browser& window, QWidget& all, QObject* context) {
  const std::pair<QKeySequence, int> keys[] = {
      {Qt::ALT | Qt::Key_Left, services::Browser::kBack},
      {Qt::ALT | Qt::Key_Right, services::Browser::kForward},
      {Qt::Key_Escape, services::Browser::kStop}};
  for (const auto& [sequence, tool] : keys) {
    auto* key = new QShortcut(sequence, &all);
    key->setContext(Qt::WidgetWithChildrenShortcut);
    QObject::connect(key, &QShortcut::activated, context,
                     [&window, tool = tool] { window.ActiveBar1_Click(tool); });
  }
}

}  // namespace

Look MakeBrowserLook(services::Browser& window, FrameClock& clock, WebPlugin* plugin) {
  auto* all = new Desk;
  all->setMinimumSize(kLeastSize);
  auto binders = std::make_shared<Binders>(*all, clock);
  platform::WebView& view = window.brwWebBrowser;
  auto* column = new QVBoxLayout(all);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  column->addWidget(MakeBar(window, *binders, all));
  column->addWidget(MakeBusyLine(view, *binders, all));
  QLabel* notice = MakeNotice(all);
  column->addWidget(notice);
  const WebScreen screen = MakeScreen(HooksOf(view, *notice, binders->context()), plugin, *all);
  screen.widget->setAccessibleName(QStringLiteral("Página"));
  column->addWidget(screen.widget, 1);
  AddKeys(window, *all, binders->context());
  all->set_page(screen.widget);
  Join(view, screen, *notice);
  return {.widget = all,
          .place = Place::child,
          .widget_of =
              [b = binders.get(), &view, page = screen.widget](platform::Control& control) {
                return &control == &view ? page : b->WidgetOf(control);
              },
          .bond = std::make_shared<ViewBond>(view, binders)};
}

Look MakeBrowserLook(services::Browser& window, FrameClock& clock) {
  return MakeBrowserLook(window, clock, LoadWebPlugin());
}

}  // namespace qt
