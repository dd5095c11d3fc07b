#pragma once

#include <string_view>

#include <QBoxLayout>
#include <QComboBox>
#include <QDialog>
#include <QGridLayout>
#include <QLabel>

#include "platform/controls.h"
#include "qt/look/binders.h"
#include "qt/look/list_widget.h"

// What the dialogs of the portfolios have in common.
namespace qt {

/// The column that all of `dialog` stands in.
[[nodiscard]] QVBoxLayout* AddBody(QDialog& dialog);
/// The same with two halves side by side in it, of which the right one is still to come. Lines of
/// the left one stand `spacing` apart.
struct Halves {
  QVBoxLayout* all;
  QHBoxLayout* both;
  QVBoxLayout* left;
};
[[nodiscard]] Halves AddHalves(QDialog& dialog, int spacing);
/// Gives the fields of `form` `usual` pixels, of which `least` are left in a narrow window.
void SetFieldWidth(QGridLayout& form, int least, int usual);

/// Room of so many lines below a field, for what there is to say about it.
[[nodiscard]] QLabel* AddNote(QGridLayout& form, int row, int lines, QDialog* dialog);
void ShowNote(QLabel& note, const QString& text, const QColor& ink);

/// How the lines of a list stand in columns.
struct Columns {
  QChar letter;  // mnemonic in the list's own name
  QStringList headings;
  ListWidget::Split split;
  QList<Qt::Alignment> alignments;
};

/// A list in columns, below the name that its tool tip gives.
[[nodiscard]] ListWidget* AddList(QHBoxLayout& row, platform::ListBox& list, const Columns& columns,
                                  QWidget* parent, Binders& binders);
/// Shares, code and price, as the lines of positions give them.
[[nodiscard]] Columns PositionColumns(QChar letter);

/// The selector of a portfolio.
[[nodiscard]] QComboBox* MakePortfolioBox(platform::ComboBox& box, QWidget* parent,
                                          Binders& binders);
/// Whether an entry of the selector reads exactly so.
[[nodiscard]] bool Lists(const platform::ComboBox& box, std::string_view text);
/// How to come by a portfolio, for where there is none.
[[nodiscard]] QString HowToAddPortfolios();

}  // namespace qt
