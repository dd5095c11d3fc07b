#include <cmath>

#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QTextLayout>
#include <QTimerEvent>

#include "qt/look/form_parts.h"
#include "qt/look/page_grounds.h"
#include "qt/look/service_looks.h"
#include "qt/look/style_parts.h"
#include "qt/look/text.h"

namespace qt {
namespace {

constexpr int kColumns = 80, kLines = 25, kMargin = 10;
constexpr QSize kLeastPage(320, 120);

// Brought along, for a machine without it; nothing is loaded before a page is to be seen.
QFont PageFont() {
  const QString family = QStringLiteral("DejaVu Sans Mono");
  if (!QFontDatabase::hasFamily(family)) {
    QFontDatabase::addApplicationFont(QStringLiteral(":/fonts/DejaVuSansMono.ttf"));
  }
  QFont font = FontOf(11);
  font.setFamilies({family, QFontDatabase::systemFont(QFontDatabase::FixedFont).family()});
  font.setFixedPitch(true);
  return font;
}

/// Line by line, with something of one cell's width for every character.
QString CellsOf(std::string_view page) {
  QStringList lines = Text(page).split(QStringLiteral("\r\n"));
  if (lines.last().isEmpty()) lines.removeLast();
  for (QString& line : lines) line = OneLine(line).replace(QChar::SoftHyphen, u'-');
  return lines.join(u'\n');
}

/// The page, to be read and copied from.
class PageText : public QPlainTextEdit {
 public:
  explicit PageText(QWidget* panel) : QPlainTextEdit(panel) {
    setFont(PageFont());
    setAccessibleName(QStringLiteral("Texto de la página"));
    setFrameShape(NoFrame);
    setLineWrapMode(NoWrap);
    setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    setTabChangesFocus(true);
    setMinimumSize(kLeastPage);
    QPalette clear = palette();
    clear.setColor(QPalette::Base, Qt::transparent);
    setPalette(clear);
  }

  void ShowPage(const QString& cells) {
    if (cells != toPlainText()) setPlainText(cells);
  }
  [[nodiscard]] QSize sizeHint() const override {
    // As the lines of a text are laid out, which font metrics may fall short of.
    QTextLayout layout(QString(kColumns, u'0'), font());
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLeadingIncluded(true);
    layout.endLayout();
    const double around = 2 * document()->documentMargin() + 2;
    return {static_cast<int>(std::ceil(line.naturalTextWidth() + around)),
            static_cast<int>(std::ceil(kLines * line.height() + around))};
  }

 protected:
  void resizeEvent(QResizeEvent* event) override {
    ShowBars();
    QPlainTextEdit::resizeEvent(event);
  }
  void changeEvent(QEvent* event) override {
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::FontChange) ShowBars();
  }
  void focusInEvent(QFocusEvent* event) override {
    QPlainTextEdit::focusInEvent(event);
    parentWidget()->update();
  }
  void focusOutEvent(QFocusEvent* event) override {
    QPlainTextEdit::focusOutEvent(event);
    parentWidget()->update();
  }

 private:
  // By themselves two bars stay for good, as each takes the room that the other one would need.
  void ShowBars() {
    const bool fits = size().expandedTo(sizeHint()) == size();
    const auto policy = fits ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded;
    setHorizontalScrollBarPolicy(policy);
    setVerticalScrollBarPolicy(policy);
  }
};

/// What the page stands on, with a ring while the page has the keyboard.
class Panel : public PageGround {
 public:
  explicit Panel(QWidget* parent)
      : PageGround(PageGround::Pattern::dots, parent), text_(new PageText(this)) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    column->addWidget(text_);
  }
  [[nodiscard]] PageText& text() const { return *text_; }

 protected:
  void paintEvent(QPaintEvent* event) override {
    PageGround::paintEvent(event);
    QPainter painter(this);
    DrawRounded(painter, rect(), Qt::transparent, text_->hasFocus() ? tone::kAccent : tone::kLine,
                0);
  }

 private:
  PageText* text_;
};

/// What can be done now. The connection comes and goes without telling the window.
class Hint : public QLabel {
 public:
  Hint(const services::Pages& window, PageText& page, QWidget* parent)
      : QLabel(parent), window_(&window), page_(page) {
    setTextFormat(Qt::PlainText);
    Tell();
  }
  void Drop() { window_ = nullptr; }

 protected:
  void showEvent(QShowEvent*) override {
    constexpr int kAskMs = 500;
    Tell();
    timer_.start(kAskMs, this);
  }
  void hideEvent(QHideEvent*) override { timer_.stop(); }
  void timerEvent(QTimerEvent* event) override {
    if (event->timerId() == timer_.timerId()) Tell();
  }

 private:
  void Tell() {
    if (!window_) return;
    const bool connected = window_->Conectado();
    setText(connected ? QStringLiteral("Escriba el número de una página y pulse Intro.")
                      : QStringLiteral("Sin conexión: no se puede pedir ninguna página."));
    const QString empty =
        connected ? QStringLiteral("Todavía no ha llegado ninguna página: pulse Indice.")
                  : QStringLiteral("No hay ninguna página. Conecte antes con el servidor.");
    page_.setPlaceholderText(empty);
    page_.setAccessibleDescription(page_.document()->isEmpty() ? empty : QString());
  }

  const services::Pages* window_;
  PageText& page_;
  QBasicTimer timer_;
};

void AddField(QHBoxLayout& row, services::Pages& window, QWidget* parent, Binders& binders) {
  constexpr int kWidth = 76;
  QLabel* label = LabelFor(window.Text1, u'P', parent);
  label->setForegroundRole(QPalette::ButtonText);  // a quiet one would be lost on the pattern
  auto* field = new QLineEdit(parent);
  field->setFixedSize(kWidth, kFieldHeight);
  field->setTextMargins(6, 0, 6, 0);
  label->setBuddy(field);
  row.addWidget(label);
  row.addWidget(field);
  binders.Bind(window.Text1, *field);
  field->setFocus();
}

}  // namespace

Look MakePagesLook(services::Pages& window, FrameClock& clock) {
  auto* dialog = new QDialog;
  auto binders = std::make_shared<Binders>(*dialog, clock);
  auto* all = new QVBoxLayout(dialog);
  all->setContentsMargins(0, 0, 0, 0);
  auto* ground = new PageGround(PageGround::Pattern::waves, dialog);
  all->addWidget(ground);
  auto* column = new QVBoxLayout(ground);
  column->setContentsMargins(16, 14, 16, 12);
  column->setSpacing(12);

  auto* row = new QHBoxLayout;
  column->addLayout(row);
  AddField(*row, window, ground, *binders);
  row->addSpacing(8);
  const auto add = [&](platform::Button& button) {
    constexpr int kLeastButton = 72;  // so that the window fits on a small screen
    QPushButton* widget = AddButton(*row, button, *binders);
    widget->setMinimumWidth(kLeastButton);
    return widget;
  };
  add(window.Command1)->setDefault(true);
  for (platform::Button* button : {&window.Command2, &window.Command3, &window.Command4}) {
    add(*button);
  }
  row->addStretch();
  add(window.Command5);

  auto* panel = new Panel(ground);
  column->addWidget(panel, 1);
  PageText& text = panel->text();
  auto* hint = new Hint(window, text, ground);
  column->addWidget(hint);
  QObject::connect(binders->context(), &QObject::destroyed, hint, [hint] { hint->Drop(); });
  binders->BindPanel(window.Picture1, *panel);
  binders->Follow(window.Label1, text,
                  [&window, &text] { text.ShowPage(CellsOf(window.Label1.caption())); });
  return LookOf(dialog, binders);
}

}  // namespace qt
