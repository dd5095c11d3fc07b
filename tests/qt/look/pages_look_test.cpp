#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QTextBlock>

#include "../wait.h"
#include "base/ansi.h"
#include "qt/look/register.h"
#include "qt/ports/qt_platform.h"
#include "services/pages.h"

namespace {

class PagesLookTest : public testing::Test {
 protected:
  PagesLookTest() {
    qt::RegisterLooks(looks);
    pages.steps = {.Conectado = [this] { return connected; },
                   .IdSesion = [] { return std::string(12, 'x'); },
                   .EnviarTexto = [this](std::string_view text) { sent.emplace_back(text); }};
  }
  ~PagesLookTest() override { platform.desktop().Clear(); }

  QPlainTextEdit& Show(std::string_view page) {
    pages.Label1.set_caption(page);
    pages.Show();
    support::Settle();
    return *static_cast<QPlainTextEdit*>(
        platform.desktop().FrameOf(pages)->look().widget_of(pages.Label1));
  }

  qt::Looks looks;
  qt::QtPlatform platform{looks};
  services::Pages pages{platform};
  bool connected = true;
  std::vector<std::string> sent;
};

TEST_F(PagesLookTest, AWholePageFitsInCellsOfOneWidthAndASmallWindowScrolls) {
  // All that bytes can stand for, markup and what has no width or breaks lines elsewhere included.
  std::string text;
  for (int byte = 32; byte < 256; ++byte) text += static_cast<char>(byte);
  std::string page;
  for (int line = 0; line < 25; ++line) {
    const std::string all = "<b>&amp;</b>" + text + text + text;
    page += base::AnsiToUtf8(all.substr(static_cast<std::size_t>(line) * 16, 80)) + "\r\n";
  }
  QPlainTextEdit& edit = Show(page);
  // The screen here is smaller than any that a terminal runs on.
  edit.window()->resize(edit.window()->sizeHint());
  support::Settle();
  EXPECT_EQ(edit.blockCount(), 25);
  EXPECT_EQ(edit.verticalScrollBar()->maximum(), 0);
  EXPECT_EQ(edit.horizontalScrollBar()->maximum(), 0);
  EXPECT_LE(edit.window()->width(), 1000);
  EXPECT_LE(edit.window()->height(), 650);
  EXPECT_TRUE(edit.toPlainText().startsWith(QStringLiteral("<b>&amp;</b> !")));
  const double cell = QFontMetricsF(edit.font()).horizontalAdvance(u'0');
  for (QTextBlock block = edit.document()->begin(); block.isValid(); block = block.next()) {
    EXPECT_EQ(block.length(), 81);
    EXPECT_NEAR(block.layout()->lineAt(0).naturalTextWidth(), 80 * cell, cell / 2)
        << block.text().toStdString();
  }
  edit.window()->resize(edit.window()->minimumSizeHint());
  support::Settle();
  EXPECT_GT(edit.verticalScrollBar()->maximum(), 0);
  EXPECT_GT(edit.horizontalScrollBar()->maximum(), 0);
  edit.window()->resize(edit.window()->sizeHint());
  support::Settle();
  EXPECT_EQ(edit.verticalScrollBar()->maximum() + edit.horizontalScrollBar()->maximum(), 0);
  edit.zoomIn(3);
  support::Settle();
  EXPECT_GT(edit.verticalScrollBar()->maximum(), 0) << "larger letters";
}

TEST_F(PagesLookTest, ThePageIsReadOutAndCopiedByKeyboardAndNotChanged) {
  QPlainTextEdit& edit = Show("uno  12.50\r\ndos   9.75\r\n");
  edit.setFocus();
  for (const auto& [key, modifiers] : {std::pair{Qt::Key_A, Qt::ControlModifier},
                                       {Qt::Key_C, Qt::ControlModifier},
                                       {Qt::Key_X, Qt::ControlModifier},
                                       {Qt::Key_Delete, Qt::NoModifier}}) {
    QKeyEvent press(QEvent::KeyPress, key, modifiers, QString());
    QApplication::sendEvent(&edit, &press);
  }
  EXPECT_EQ(QApplication::clipboard()->text(), "uno  12.50\ndos   9.75");
  EXPECT_EQ(edit.toPlainText(), "uno  12.50\ndos   9.75");
  auto* spoken = QAccessible::queryAccessibleInterface(&edit);
  EXPECT_EQ(spoken->text(QAccessible::Name), "Texto de la página");
  ASSERT_TRUE(spoken->textInterface());
  EXPECT_EQ(spoken->textInterface()->text(0, 10), "uno  12.50");
}

TEST_F(PagesLookTest, TellsWhyThereIsNoPage) {
  connected = false;
  const QPlainTextEdit& edit = Show("");
  EXPECT_TRUE(edit.placeholderText().contains(QStringLiteral("Conecte")));
  connected = true;
  EXPECT_TRUE(support::WaitFor(
      [&] { return edit.placeholderText().contains(QStringLiteral("pulse Indice")); }));
  auto& field =
      *static_cast<QLineEdit*>(platform.desktop().FrameOf(pages)->look().widget_of(pages.Text1));
  EXPECT_EQ(QAccessible::queryAccessibleInterface(&field)->text(QAccessible::Name), "Página");
  EXPECT_TRUE(field.hasFocus());
  pages.Text1.set_text("12");
  QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
  QApplication::sendEvent(&field, &enter);
  ASSERT_EQ(sent.size(), 1U) << "the field's Enter is not that of the button as well";
  EXPECT_TRUE(sent[0].ends_with(":PAGS:12"));
}

}  // namespace
