#pragma once

#include "base/program_dir.h"
#include "metastock/stores.h"
#include "platform/controls.h"
#include "platform/dir_controls.h"
#include "platform/window.h"

namespace metastock {

/// Chooses the directories of both stores and shows what they hold. A chosen directory is loaded at
/// once; one without a directory file leaves the tables as they were, of which the daily one then
/// has no entries. Reads and writes "path.cfg". Both panels are hidden until one is chosen; lists
/// and boxes keep what they show while the window is closed. What the constructor takes outlives
/// it.
class Meta : public platform::Window {
 public:
  Meta(platform::Platform& platform, const base::ProgramDir& directory, Stores& stores);

  platform::PictureBox F1;  // the panel of the intraday store, with:
  platform::DriveBox Drive1;
  platform::DirBox Dir1;
  platform::ListBox List1;                              // its entries
  platform::TextBox Text1, Text2, Text3, Text4, Text5;  // company, code, period, start, end; locked
  platform::PictureBox F2;                              // the panel of the daily store, with:
  platform::DriveBox Drive2;
  platform::DirBox Dir2;
  platform::ListBox List2;
  platform::TextBox Text6, Text7, Text8, Text9, Text10;  // company, code, file, dates; locked
  platform::Button Command1, Command2;                   // show the one panel, the other
  platform::Button C1;                                   // save

  /// The start of the program: loads the window and takes over what the file says, twice, which
  /// loads the tables. A file that is missing is created empty.
  void LeerRutas();

  void Dir1_Change();
  void Dir2_Change();
  void Drive1_Change();
  void Drive2_Change();
  void List1_Click();
  void List2_Click();
  void Command1_Click();
  void Command2_Click();
  void C1_Click();

 protected:
  void OnLoad() override;

 private:
  void PrepararControles();
  void AplicarRutas();

  const base::ProgramDir& directory_;
  Stores& stores_;
};

}  // namespace metastock
