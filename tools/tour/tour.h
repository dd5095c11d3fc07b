#pragma once

#include <functional>
#include <optional>

#include <QString>
#include <QTemporaryDir>

#include "demo/feed_options.h"
#include "qt/demo/embedded_market.h"
#include "qt/ports/qt_platform.h"
#include "shell/terminal.h"

namespace tour {

constexpr int kPatienceMs = 30000;

/// Lets the program run.
void Run(int ms);
[[nodiscard]] demo::FeedOptions BusyMorning();

/// Goes through a terminal and its embedded market and keeps pictures in `directory`, their names
/// behind `prefix`.
class Tour {
 public:
  Tour(const QString& directory, const QString& prefix);
  ~Tour() { platform_.desktop().Clear(); }

  /// The whole round.
  [[nodiscard]] bool Full();
  /// Login and board alone.
  [[nodiscard]] bool Short();

 private:
  void Login();
  void Menu(int place, const QString& name);
  void Board();
  void Tickets();
  void Tape();
  void Alarms();
  void MarketViews();
  void AskForOptions(const QString& code);
  /// Answers the box that comes up next, and keeps a picture of it.
  void AnswerBox(const QString& text, const QString& name, const std::function<void()>& ask);
  void Charts();
  void Colors();
  void History();
  void ChooseStores(const QString& directory);
  void Portfolios();
  void MakePortfolios();
  void RecordOperations();
  void Services();
  void Pages();
  void Chat();
  void Manual();
  void Sheet();
  void Holdings();
  void Operations();
  void Slide();
  void Sort();
  void LoseServer();
  void SmallScreen();

  void Keep(QWidget* widget, const QString& name);
  void KeepScreen(const QString& name);
  /// Shows it for a moment, and hides it again.
  void KeepShown(platform::Window& window, const QString& name);
  /// False, with a word on it, when `done` doesn't come true in time.
  bool WaitFor(const char* what, const std::function<bool()>& done);
  void Type(platform::Window& window, platform::TextBox& box, const QString& text);
  /// Types over what the field holds.
  void Fill(platform::Window& window, platform::TextBox& box, const char* text);
  void Click(platform::Window& window, platform::Control& control);
  void Choose(platform::Window& window, platform::ListBox& list, int row);
  void Choose(platform::Window& window, platform::ComboBox& box, int row);
  void AddPortfolio(const char* name, const char* agency, const char* account);
  void OpenTicket(int row);
  void DefineAlarm(const QString& price);
  void HoverHeading();
  [[nodiscard]] QWidget* OuterOf(platform::Window& window);
  [[nodiscard]] QWidget* WidgetOf(platform::Window& window, platform::Control& control);

  QString directory_, prefix_;
  bool good_ = true;
  QTemporaryDir files_;
  qt::Looks looks_;
  std::optional<qt::EmbeddedMarket> market_;
  qt::QtPlatform platform_;
  shell::Terminal terminal_;
};

}  // namespace tour
