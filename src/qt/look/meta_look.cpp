#include <array>

#include <QKeyEvent>

#include "qt/look/dir_box.h"
#include "qt/look/form_parts.h"
#include "qt/look/metastock_looks.h"
#include "qt/look/portfolio_parts.h"
#include "qt/look/text.h"

namespace qt {
namespace {

using metastock::Meta;

constexpr int kGap = 14, kLeastDetail = 130, kDetail = 190, kDriveWidth = 58;
constexpr int kLongestPath = 50;  // of what is kept

/// The controls of one store.
struct Store {
  platform::PictureBox& panel;
  platform::DriveBox& drive;
  platform::DirBox& directory;
  platform::ListBox& list;
  std::array<platform::TextBox*, 5> details;
  std::array<QChar, 5> letters;  // mnemonics of the details
  QString file;                  // that lists the entries
};

/// Tells when it comes and goes.
class Panel : public QWidget {
 public:
  using QWidget::QWidget;

  std::function<void()> on_seen;

 protected:
  void showEvent(QShowEvent*) override { Tell(); }
  void hideEvent(QHideEvent*) override { Tell(); }

 private:
  void Tell() const {
    if (on_seen) on_seen();
  }
};

/// One of two, of which the one that is on stays marked. Enter presses it, though it never becomes
/// the button of the dialog.
class Switch : public QPushButton {
 public:
  Switch() {
    setCheckable(true);
    setAutoDefault(false);
  }

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) {
      return QPushButton::keyPressEvent(event);
    }
    click();
  }
  // Up to who presses it.
  void nextCheckState() override {}
};

QString WhyEmpty(const Store& store) {
  const QString path = Text(store.directory.path());
  if (path.isEmpty()) return QStringLiteral("Elija el directorio que contiene estas empresas.");
  if (path.size() > kLongestPath) {
    return QStringLiteral("La ruta pasa de %1 caracteres y queda cortada.\nElija una más corta.")
        .arg(kLongestPath);
  }
  return QStringLiteral("Este directorio no contiene empresas de MetaStock\n(fichero %1).")
      .arg(store.file);
}

DirBoxWidget* AddDirectory(QVBoxLayout& column, const Store& store, QWidget* panel,
                           Binders& binders) {
  auto* row = new QHBoxLayout;
  row->setSpacing(kGap);
  column.addLayout(row);
  auto* drive = new QComboBox(panel);
  drive->setFixedSize(kDriveWidth, kFieldHeight);
  auto* directory = new DirBoxWidget(store.directory, panel);
  const auto add_label = [&](QLabel* label, QWidget& buddy) {
    label->setBuddy(&buddy);
    label->setMinimumHeight(kFieldHeight);
    row->addWidget(label, 0, Qt::AlignTop);
  };
  add_label(LabelFor(store.drive, u'U', panel), *drive);
  row->addWidget(drive, 0, Qt::AlignTop);
  add_label(LabelFor(store.directory, u'r', panel), directory->field());
  row->addWidget(directory, 1);
  binders.Bind(store.drive, *drive);
  binders.Bind(store.directory, *directory);
  return directory;
}

void AddDetails(QHBoxLayout& row, const Store& store, QWidget* panel, Binders& binders) {
  auto* column = new QVBoxLayout;
  column->setSpacing(8);
  row.addLayout(column);
  column->addWidget(QuietLabel(QStringLiteral("Empresa elegida"), TextFont(), panel));
  auto* form = new QGridLayout;
  form->setHorizontalSpacing(kGap);
  form->setVerticalSpacing(8);
  SetFieldWidth(*form, kLeastDetail, kDetail);
  column->addLayout(form);
  for (std::size_t i = 0; i < store.details.size(); ++i) {
    platform::TextBox& box = *store.details[i];
    AddField(*form, static_cast<int>(i), LabelFor(box, store.letters[i], panel), box, binders);
  }
  column->addStretch();
}

Panel* MakePanel(const Store& store, QWidget* parent, Binders& binders) {
  auto* panel = new Panel(parent);
  auto* column = new QVBoxLayout(panel);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(10);
  DirBoxWidget* directory = AddDirectory(*column, store, panel, binders);
  auto* halves = new QHBoxLayout;
  halves->setSpacing(24);
  column->addLayout(halves, 1);
  const auto split = [](const QString& line) { return QStringList{line.left(1), line.mid(2)}; };
  auto* list = AddList(*halves, store.list,
                       {.letter = u'E',
                        .headings = {QStringLiteral("Periodo"), QStringLiteral("Empresa")},
                        .split = split,
                        .alignments = {Qt::AlignLeft, Qt::AlignLeft}},
                       panel, binders);
  AddDetails(*halves, store, panel, binders);
  directory->on_path = [store, list] { list->set_empty_text(WhyEmpty(store)); };
  directory->on_path();
  // The place of one that is hidden is kept, so that nothing moves when it comes.
  QSizePolicy policy = panel->sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  panel->setSizePolicy(policy);
  binders.BindPanel(store.panel, *panel);
  return panel;
}

Switch* AddSwitch(QHBoxLayout& row, platform::Button& button, Binders& binders) {
  auto* widget = new Switch;
  row.addWidget(widget);
  binders.Bind(button, *widget);
  widget->setMinimumSize(130, kFieldHeight);
  return widget;
}

/// Saves what can be seen: a path that is still typed is taken over first.
void AddSaving(QVBoxLayout& column, Meta& window, Binders& binders) {
  auto* row = new QHBoxLayout;
  row->addStretch();
  column.addLayout(row);
  auto* save = AddButton(*row, window.C1, binders);
  save->setDefault(true);
  QObject::disconnect(save, &QPushButton::clicked, binders.context(), nullptr);
  const auto box_of = [&binders](platform::DirBox& box) {
    return static_cast<DirBoxWidget*>(binders.WidgetOf(box));
  };
  const std::array boxes{box_of(window.Dir1), box_of(window.Dir2)};
  QObject::connect(save, &QPushButton::clicked, binders.context(), [&window, boxes] {
    for (DirBoxWidget* box : boxes) {
      if (box->isVisible() && !box->Commit()) return box->setFocus();
    }
    window.C1.Click();
  });
}

}  // namespace

Look MakeStoresLook(Meta& window, FrameClock& clock) {
  auto* dialog = new QDialog;
  auto binders = std::make_shared<Binders>(*dialog, clock);
  auto* column = AddBody(*dialog);
  auto* switches = new QHBoxLayout;
  switches->setSpacing(8);
  column->addLayout(switches);
  auto* intraday = AddSwitch(*switches, window.Command1, *binders);
  auto* daily = AddSwitch(*switches, window.Command2, *binders);
  switches->addStretch();

  auto* stage = new QGridLayout;
  column->addLayout(stage, 1);
  auto* hint = QuietLabel(
      QStringLiteral("Elija arriba Intradias o Diario para ver su directorio y sus empresas."),
      TextFont(), dialog);
  hint->setAlignment(Qt::AlignCenter);
  stage->addWidget(hint, 0, 0);
  Panel* first = MakePanel(
      {.panel = window.F1,
       .drive = window.Drive1,
       .directory = window.Dir1,
       .list = window.List1,
       .details = {&window.Text1, &window.Text2, &window.Text3, &window.Text4, &window.Text5},
       .letters = {u'm', u'C', u'T', u'n', u'F'},
       .file = QStringLiteral("EMASTER")},
      dialog, *binders);
  stage->addWidget(first, 0, 0);
  Panel* second = MakePanel(
      {.panel = window.F2,
       .drive = window.Drive2,
       .directory = window.Dir2,
       .list = window.List2,
       .details = {&window.Text6, &window.Text7, &window.Text8, &window.Text9, &window.Text10},
       .letters = {u'm', u'C', u's', u'n', u'F'},
       .file = QStringLiteral("MASTER")},
      dialog, *binders);
  stage->addWidget(second, 0, 0);
  AddSaving(*column, window, *binders);

  const auto tell = [intraday, daily, hint, first, second] {
    intraday->setChecked(!first->isHidden());
    daily->setChecked(!second->isHidden());
    hint->setVisible(first->isHidden() && second->isHidden());
  };
  first->on_seen = second->on_seen = tell;
  tell();
  intraday->setFocus();
  return LookOf(dialog, binders);
}

}  // namespace qt
