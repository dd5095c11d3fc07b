#include "qt/look/portfolio_parts.h"

#include <algorithm>

#include "qt/look/form_parts.h"
#include "qt/look/small_widgets.h"
#include "qt/look/theme.h"

namespace qt {
namespace {

constexpr QSize kLeastList(280, 160);

}  // namespace

QVBoxLayout* AddBody(QDialog& dialog) {
  auto* body = new QVBoxLayout(&dialog);
  body->setContentsMargins(20, 16, 20, 16);
  body->setSpacing(16);
  return body;
}

Halves AddHalves(QDialog& dialog, int spacing) {
  auto* all = AddBody(dialog);
  auto* both = new QHBoxLayout;
  both->setSpacing(24);
  all->addLayout(both, 1);
  auto* left = new QVBoxLayout;
  left->setSpacing(spacing);
  both->addLayout(left);
  return {all, both, left};
}

void SetFieldWidth(QGridLayout& form, int least, int usual) {
  form.setColumnMinimumWidth(1, least);
  form.addItem(new QSpacerItem(usual, 0, QSizePolicy::Preferred), 0, 1);
}

QLabel* AddNote(QGridLayout& form, int row, int lines, QDialog* dialog) {
  auto* note = QuietLabel({}, SmallFont(), dialog);
  note->setContentsMargins(8, 0, 0, 0);
  note->setMinimumHeight(lines * note->fontMetrics().height() + 2);
  note->setWordWrap(true);
  note->setAlignment(Qt::AlignTop);
  form.addWidget(note, row, 1);
  return note;
}

void ShowNote(QLabel& note, const QString& text, const QColor& ink) {
  note.setText(text);
  QPalette palette = note.palette();
  palette.setColor(QPalette::WindowText, ink);
  note.setPalette(palette);
}

ListWidget* AddList(QHBoxLayout& row, platform::ListBox& list, const Columns& columns,
                    QWidget* parent, Binders& binders) {
  auto* column = new QVBoxLayout;
  column->setSpacing(8);
  row.addLayout(column, 1);
  auto* name = QuietLabel(WithMnemonic(list.tool_tip(), columns.letter), TextFont(), parent);
  column->addWidget(name);
  auto* widget = new ListWidget(list, parent);
  widget->set_cells(columns.split, columns.alignments, columns.headings);
  widget->setMinimumSize(kLeastList);
  name->setBuddy(widget);
  column->addWidget(widget, 1);
  binders.Bind(list, *widget);
  return widget;
}

Columns PositionColumns(QChar letter) {
  return {.letter = letter,
          .headings = {QStringLiteral("Títulos"), QStringLiteral("Código"),
                       QStringLiteral("Precio medio")},
          .split = [](const QString& line) { return line.split(u'\t'); },
          .alignments = {Qt::AlignRight, Qt::AlignLeft, Qt::AlignRight}};
}

QComboBox* MakePortfolioBox(platform::ComboBox& box, QWidget* parent, Binders& binders) {
  auto* widget = new QComboBox(parent);
  widget->setMinimumSize(220, kFieldHeight);
  binders.Bind(box, *widget);
  return widget;
}

bool Lists(const platform::ComboBox& box, std::string_view text) {
  return std::ranges::find(box.items(), text) != box.items().end();
}

QString HowToAddPortfolios() {
  return QStringLiteral(
      "Todavía no hay carteras. Se hacen en el menú Carteras, Configurar Carteras.");
}

}  // namespace qt
