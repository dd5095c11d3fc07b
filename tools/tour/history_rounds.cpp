#include "qt/app/sample_files.h"
#include "tour.h"

// The stores of the charting package, and the download that brings them up to date.
namespace tour {
namespace {

constexpr int kStores = 50, kUpdate = 51;  // tools

}  // namespace

void Tour::ChooseStores(const QString& directory) {
  metastock::Meta& window = terminal_.Meta;
  terminal_.MDI.ActiveBar1.Click({kStores, {}});
  Run(200);
  Keep(OuterOf(window), QStringLiteral("meta-vacio"));
  Click(window, window.Command1);
  Run(200);
  Keep(OuterOf(window), QStringLiteral("meta-sin-directorio"));
  (void)window.Dir1.set_path((directory + QStringLiteral("/intradia")).toStdString());
  (void)window.Dir2.set_path((directory + QStringLiteral("/diario")).toStdString());
  AnswerBox({}, QStringLiteral("meta-fichero"), [&] { Choose(window, window.List1, 2); });
  Run(200);
  Keep(OuterOf(window), QStringLiteral("meta-intradias"));
  Click(window, window.Command2);
  Choose(window, window.List2, 1);
  Run(200);
  Keep(OuterOf(window), QStringLiteral("meta-diario"));
  Click(window, window.C1);
}

void Tour::History() {
  const QString directory = files_.filePath(QStringLiteral("ms"));
  good_ = qt::WriteSampleStores(BusyMorning(), directory) && good_;
  ChooseStores(directory);
  const metastock::Stores& stores = terminal_.Stores;
  terminal_.MDI.ActiveBar1.Click({kUpdate, {}});
  Run(150);
  Keep(OuterOf(terminal_.Form1), QStringLiteral("historicos-empieza"));
  WaitFor("the history", [&] {
    return stores.MasterCount > 0 &&
           stores.CountSelected() == stores.MasterCount + stores.EMasterCount;
  });
  Run(300);
  Keep(OuterOf(terminal_.Form1), QStringLiteral("historicos"));
  KeepScreen(QStringLiteral("historicos-pantalla"));
  terminal_.Form1.Hide();
}

}  // namespace tour
