#include "qt/look/form_parts.h"

#include <algorithm>

#include "qt/look/text.h"

namespace qt {

QString WithMnemonic(std::string_view text, QChar letter) {
  QString caption = Text(text).trimmed();
  const qsizetype at = caption.indexOf(letter);
  return at < 0 ? caption : caption.insert(at, u'&');
}

QLineEdit* AddField(QGridLayout& form, int row, QLabel* label, platform::TextBox& box,
                    Binders& binders) {
  auto* field = new QLineEdit;
  field->setMinimumHeight(kFieldHeight);
  field->setTextMargins(6, 0, 6, 0);
  label->setBuddy(field);
  form.addWidget(label, row, 0, Qt::AlignRight | Qt::AlignVCenter);
  form.addWidget(field, row, 1);
  binders.Bind(box, *field);
  return field;
}

QPushButton* AddButton(QHBoxLayout& row, platform::Button& button, Binders& binders) {
  auto* widget = new QPushButton;
  row.addWidget(widget);
  binders.Bind(button, *widget);
  const int text = widget->fontMetrics().horizontalAdvance(SpokenCaption(button.caption()));
  widget->setMinimumSize(std::max(104, text + 32), kFieldHeight);
  return widget;
}

Look LookOf(QDialog* dialog, const std::shared_ptr<Binders>& binders) {
  return {.widget = dialog,
          .place = Place::dialog,
          .widget_of = [b = binders.get()](platform::Control& c) { return b->WidgetOf(c); },
          .bond = binders};
}

}  // namespace qt
