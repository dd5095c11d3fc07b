#include "qt/look/suggest.h"

#include <utility>

#include <QAbstractItemView>
#include <QCompleter>
#include <QStandardItemModel>

#include "qt/look/text.h"

namespace qt {
namespace {

constexpr int kCode = Qt::UserRole;

void List(const std::vector<store::Sugerencia>& found, QStandardItemModel& lines) {
  lines.clear();
  for (const auto& [code, name] : found) {
    auto* line = new QStandardItem(Text(code + "   " + name));
    line->setData(Text(code), kCode);
    lines.appendRow(line);
  }
}

}  // namespace

void Suggest(std::function<std::vector<store::Sugerencia>(std::string_view)> find,
             platform::TextBox& box, QLineEdit& field, Binders& binders) {
  auto* lines = new QStandardItemModel(&field);
  auto* completer = new QCompleter(lines, &field);
  completer->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
  completer->setCompletionRole(kCode);
  completer->setMaxVisibleItems(8);
  completer->setWidget(&field);
  QObject::connect(&field, &QLineEdit::textEdited, binders.context(),
                   [find = std::move(find), &field, lines, completer](const QString& text) {
                     List(find(text.toStdString()), *lines);
                     // A code of full length may have led to the next field.
                     if (lines->rowCount() > 0 && field.hasFocus()) {
                       completer->complete();
                       completer->popup()->setCurrentIndex({});
                     } else {
                       completer->popup()->hide();
                     }
                   });
  QObject::connect(completer, qOverload<const QString&>(&QCompleter::activated), binders.context(),
                   [&box, &field](const QString& code) {
                     field.setText(code);
                     box.set_text(code.toStdString());
                   });
}

}  // namespace qt
