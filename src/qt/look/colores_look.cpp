#include "qt/look/colores_look.h"

#include <algorithm>
#include <array>

#include <QVBoxLayout>

#include "qt/look/form_parts.h"
#include "qt/look/grid_widget.h"
#include "qt/look/list_widget.h"
#include "qt/look/small_widgets.h"
#include "qt/look/text.h"
#include "qt/look/theme.h"
#include "qt/ports/twips.h"

namespace qt {
namespace {

using views::Colores;

constexpr int kGap = 6;
constexpr int kSampleHeight = 28, kLeastSample = 56, kLeastPreview = 128;
constexpr int kWidestColumn = 1000;
constexpr int kFlagWidth = 92;  // of the longest caption: nothing moves when others come
constexpr QSize kLeastFonts(180, 60);

// By the number of the style.
constexpr std::array kLines{"sin líneas",
                            "finas",
                            "dobles",
                            "en relieve",
                            "horizontales",
                            "horizontales dobles",
                            "horiz. en relieve",
                            "verticales",
                            "verticales dobles",
                            "verticales en relieve",
                            "punteadas",
                            "gruesas"};

/// Shows the grid with its columns shared out over the width, or as wide as their texts need.
class Preview : public GridWidget {
 public:
  explicit Preview(platform::Grid& grid, QWidget* parent) : GridWidget(grid, parent), grid_(grid) {
    setContextMenuPolicy(Qt::PreventContextMenu);
    setMinimumHeight(kLeastPreview);
    horizontalHeader()->setSectionsMovable(false);
    Fill(0);
  }

  void Show() {
    Refresh();
    ShareOut();
  }

 protected:
  void resizeEvent(QResizeEvent* event) override {
    if (model()) ShareOut();
    GridWidget::resizeEvent(event);
  }

 private:
  void ShareOut() {
    const int share = viewport()->width() / (grid_.cols() + 1);
    for (int col = 0; col < grid_.cols(); ++col) {
      const int width = std::max(sizeHintForColumn(col), col > 0 ? share : 0);
      grid_.set_width(col, ToTwips(std::min(width, kWidestColumn)));
    }
  }

  platform::Grid& grid_;  // while there is a model
};

/// A group of controls below its name.
QVBoxLayout* AddGroup(QBoxLayout& row, std::string_view name) {
  auto* group = new QWidget;
  auto* column = new QVBoxLayout(group);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(kGap);
  group->setAccessibleName(Text(name).trimmed());
  column->addWidget(QuietLabel(group->accessibleName(), SmallFont(), group));
  row.addWidget(group);
  return column;
}

void AddOptions(QBoxLayout& row, Colores& window, Binders& binders) {
  auto* form = new QGridLayout;
  form->setSpacing(kGap);
  AddGroup(row, Colores::kVentanas)->addLayout(form);
  int place = 0;
  for (platform::OptionButton* option :
       {&window.Option1, &window.Option2, &window.Option3, &window.Option4}) {
    auto* widget = new QRadioButton;
    form->addWidget(widget, place / 2, place % 2);
    binders.Bind(*option, *widget);
    ++place;
  }
}

/// Colours that are picked by a press, side by side; `of` tells what they are the colours of.
void AddSamples(QVBoxLayout& column, std::initializer_list<platform::Label*> labels,
                const QString& of, Binders& binders) {
  auto* row = new QHBoxLayout;
  row->setSpacing(kGap);
  column.addLayout(row);
  for (platform::Label* label : labels) {
    auto* sample = new LabelWidget;
    sample->setFont(SmallFont());
    sample->setAlignment(Qt::AlignCenter);
    sample->setContentsMargins(4, 0, 4, 0);
    sample->setMinimumSize(kLeastSample, kSampleHeight);
    sample->setAccessibleDescription(of);
    sample->set_edge(tone::kLine);
    sample->set_pressable(true);
    sample->setFocusPolicy(Qt::StrongFocus);
    row->addWidget(sample, 1);
    binders.Bind(*label, *sample);
  }
}

void AddFlags(QBoxLayout& row, Colores& window, Binders& binders) {
  auto* form = new QGridLayout;
  form->setHorizontalSpacing(14);
  form->setVerticalSpacing(kGap);
  for (const int col : {0, 1}) form->setColumnMinimumWidth(col, kFlagWidth);
  auto* group = AddGroup(row, Colores::kCampos);
  group->addLayout(form);
  group->addStretch();
  const int rows = static_cast<int>(window.Check1.size()) / 2;
  int place = 0;
  for (platform::CheckBox& check : window.Check1) {
    auto* widget = new QCheckBox;
    widget->setMinimumHeight(22);
    form->addWidget(widget, place % rows, place / rows);
    binders.Bind(check, *widget);
    ++place;
  }
}

void AddFonts(QVBoxLayout& column, Colores& window, QDialog* dialog, Binders& binders) {
  auto* name = QuietLabel(WithMnemonic(window.List1.tool_tip(), u'p'), SmallFont(), dialog);
  column.addWidget(name);
  auto* list = new ListWidget(window.List1, dialog);
  list->setFont(TextFont());
  list->setMinimumSize(kLeastFonts);
  list->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
  name->setBuddy(list);
  column.addWidget(list, 1);
  binders.Bind(window.List1, *list);
  auto* form = new QGridLayout;
  form->setHorizontalSpacing(10);
  column.addLayout(form);
  AddField(*form, 0, LabelFor(window.Text1, u'L', dialog), window.Text1, binders);
}

/// The steps through the styles of the lines, around the name of the present one.
LabelWidget* AddLines(QVBoxLayout& column, Colores& window, Binders& binders) {
  auto* row = new QHBoxLayout;
  row->setSpacing(kGap);
  AddGroup(column, Colores::kEstilo)->addLayout(row);
  const auto add = [&](platform::Button& button) {
    auto* step = new QPushButton;
    step->setFixedSize(kFieldHeight, kFieldHeight);
    step->setAutoDefault(false);
    row->addWidget(step);
    binders.Bind(button, *step);
  };
  add(window.Command3);
  auto* style = new LabelWidget;
  style->setFont(TextFont());
  style->setAlignment(Qt::AlignCenter);
  row->addWidget(style, 1);
  add(window.Command2);
  return style;
}

/// What the grid shows, and the name of its lines, which are a part of that.
Preview* AddPreview(Colores& window, LabelWidget* style, QDialog* dialog, Binders& binders) {
  auto* preview = new Preview(window.G, dialog);
  preview->setAccessibleName(QStringLiteral("Muestra"));
  binders.Follow(window.G, *preview, [&window, style, preview] {
    style->ShowText(QString::fromUtf8(kLines.at(static_cast<std::size_t>(window.G.grid_lines()))));
    preview->Show();
  });
  QObject::connect(binders.context(), &QObject::destroyed, preview, [preview] { preview->Drop(); });
  return preview;
}

}  // namespace

Look MakeColoresLook(Colores& window, FrameClock& clock) {
  auto* dialog = new QDialog;
  auto binders = std::make_shared<Binders>(*dialog, clock);
  auto* all = new QVBoxLayout(dialog);
  all->setContentsMargins(20, 16, 20, 16);
  all->setSpacing(14);
  auto* parts = new QHBoxLayout;
  parts->setSpacing(28);
  all->addLayout(parts);

  auto* left = new QVBoxLayout;
  left->setSpacing(10);
  parts->addLayout(left, 3);
  AddOptions(*left, window, *binders);
  auto* colors = AddGroup(*left, "Colores");
  AddSamples(*colors, {&window.Label2, &window.Label3, &window.Label4, &window.Label5},
             QStringLiteral("Colores de la ventana"), *binders);
  AddSamples(*colors, {&window.Label24, &window.Label25, &window.Label26},
             QStringLiteral("Fondos de lo que acaba de cambiar"), *binders);
  AddSamples(*AddGroup(*left, Colores::kMovimiento),
             {&window.Label27, &window.Label29, &window.Label30}, Text(Colores::kMovimiento),
             *binders);
  left->addStretch();
  AddFlags(*parts, window, *binders);
  auto* right = new QVBoxLayout;
  right->setSpacing(kGap);
  parts->addLayout(right, 2);
  AddFonts(*right, window, dialog, *binders);
  auto* style = AddLines(*right, window, *binders);

  all->addWidget(AddPreview(window, style, dialog, *binders), 1);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  AddButton(*buttons, window.Command1, *binders)->setDefault(true);
  all->addLayout(buttons);
  return LookOf(dialog, binders);
}

}  // namespace qt
