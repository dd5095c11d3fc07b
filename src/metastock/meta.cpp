#include "metastock/meta.h"

#include <filesystem>
#include <utility>

#include "base/ansi.h"
#include "base/masks.h"
#include "base/text.h"
#include "metastock/path_file.h"
#include "metastock/store_files.h"

namespace metastock {
namespace {

using platform::DirBox;
using platform::DriveBox;

constexpr const char* kFichero = "path.cfg";

// Names and symbols may hold any bytes.
template <std::size_t N>
std::string Shown(const base::FixedText<N>& text) {
  return base::AnsiToUtf8(base::OneLine(text.bytes()));
}

std::string Shown(float number) { return base::NumberText(number); }

std::string Shown(int number) { return base::NumberText(std::int64_t{number}); }

template <typename Entry>
std::string LineOf(const Entry& entry) {
  return base::AnsiToUtf8(base::OneLine({&entry.TimeFrame, 1})) + ' ' + Shown(entry.Name);
}

template <typename Table>
void Fill(platform::ListBox& list, const Table& table, int count) {
  for (int i = 1; i <= count; ++i) list.AddItem(LineOf(table[static_cast<std::size_t>(i)]));
}

// Null where no line is chosen.
template <typename Table>
const typename Table::value_type* Chosen(const platform::ListBox& list, const Table& table) {
  const auto entry = static_cast<std::size_t>(list.list_index() + 1);
  return entry > 0 && entry < table.size() ? &table[entry] : nullptr;
}

// What ends in "/", as the root does, or a path that was cut there, holds nothing.
bool Holds(const base::FixedText<50>& text, std::string_view name) {
  const std::string_view bytes = text.bytes();
  if (bytes.substr(0, bytes.find("  ")).ends_with('/')) return false;
  const base::ProgramDir directory(DirectoryOf(text, Cut::double_blank));
  std::error_code ignored;
  return std::filesystem::is_regular_file(directory.Path(name), ignored);
}

// The drive of `drive` where it is one, else the machine's.
void ShowDrive(DriveBox& box, base::FixedText<3>& drive) {
  if (!box.set_drive(drive.trimmed())) drive.assign(DriveBox::kDrive);
}

// A directory that the box shows already counts as chosen anew.
void ShowDirectory(DirBox& box, const base::FixedText<50>& directory) {
  const std::string before = box.path();
  const std::string path = base::AnsiToUtf8(base::TrimEnd(directory.bytes()));
  if (box.set_path(path) && box.path() == before) box.on_change();
}

void TakeDrive(DriveBox& box, DirBox& directories, base::FixedText<3>& drive) {
  if (directories.set_path(box.drive())) {
    drive.assign(box.drive());
  } else {
    (void)box.set_drive(directories.path().substr(0, DriveBox::kDrive.size()));
  }
}

}  // namespace

Meta::Meta(platform::Platform& platform, const base::ProgramDir& directory, Stores& stores)
    : Window(platform), directory_(directory), stores_(stores) {
  set_caption("Configurar MetaStock");
  PrepararControles();
  Drive1.on_change = [this] { Drive1_Change(); };
  Drive2.on_change = [this] { Drive2_Change(); };
  Dir1.on_change = [this] { Dir1_Change(); };
  Dir2.on_change = [this] { Dir2_Change(); };
  List1.on_click = [this] { List1_Click(); };
  List2.on_click = [this] { List2_Click(); };
  Command1.on_click = [this] { Command1_Click(); };
  Command2.on_click = [this] { Command2_Click(); };
  C1.on_click = [this] { C1_Click(); };
}

void Meta::PrepararControles() {
  F1.set_tool_tip("Intradías");
  F2.set_tool_tip("Diario");
  for (DriveBox* box : {&Drive1, &Drive2}) box->set_label("Unidad");
  for (DirBox* box : {&Dir1, &Dir2}) box->set_label("Directorio");
  List1.set_tool_tip("Empresas del directorio intradía");
  List2.set_tool_tip("Empresas del directorio diario");
  const std::pair<platform::TextBox*, const char*> boxes[] = {
      {&Text1, "Empresa"}, {&Text2, "Codigo"},  {&Text3, "Tick"},   {&Text4, "Inicio"},
      {&Text5, "Fin"},     {&Text6, "Empresa"}, {&Text7, "Codigo"}, {&Text8, "nDias"},
      {&Text9, "Inicio"},  {&Text10, "Fin"}};
  for (const auto& [box, label] : boxes) {
    box->set_label(label);
    box->set_locked(true);
  }
  Command1.set_caption("&Intradias");
  Command2.set_caption("&Diario");
  C1.set_caption("&Guardar");
}

void Meta::OnLoad() {
  F1.set_visible(false);
  F2.set_visible(false);
}

void Meta::LeerRutas() {
  Load();
  stores_.EMasterDrive.assign(DriveBox::kDrive);
  // What is left of the bars read last is that of the second pass.
  for (int pass = 1; pass <= 2; ++pass) AplicarRutas();
}

void Meta::AplicarRutas() {
  ReadPathFile(directory_.Path(kFichero), stores_);
  ShowDrive(Drive1, stores_.EMasterDrive);
  ShowDrive(Drive2, stores_.MasterDrive);
  ShowDirectory(Dir2, stores_.MasterDir);
  ShowDirectory(Dir1, stores_.EMasterDir);
}

void Meta::Dir1_Change() {
  List1.Clear();
  stores_.EMasterDir = stores_.EMasterDir.FromUtf8(Dir1.path());
  if (!Holds(stores_.EMasterDir, "EMASTER")) return;
  stores_.LoadEMasterDir();
  Fill(List1, stores_.EMasterTable, stores_.EMasterCount);
}

void Meta::Dir2_Change() {
  List2.Clear();
  stores_.MasterDir = stores_.MasterDir.FromUtf8(Dir2.path());
  stores_.MasterCount = 0;
  if (!Holds(stores_.MasterDir, "MASTER")) return;
  stores_.LoadMasterDir();
  Fill(List2, stores_.MasterTable, stores_.MasterCount);
}

void Meta::Drive1_Change() { TakeDrive(Drive1, Dir1, stores_.EMasterDrive); }

void Meta::Drive2_Change() { TakeDrive(Drive2, Dir2, stores_.MasterDrive); }

void Meta::List1_Click() {
  const EMasterEntry* entry = Chosen(List1, stores_.EMasterTable);
  if (!entry) return;
  Text1.set_text(Shown(entry->Name));
  Text2.set_text(Shown(entry->Symbol));
  Text3.set_text(Shown(entry->Period));
  Text4.set_text(Shown(entry->Inicio));
  Text5.set_text(Shown(entry->Fin));
  // Last: the tables may be loaded anew while the box is open.
  platform().dialogs().Message("Fichero " + Shown(entry->FileNumber));
}

void Meta::List2_Click() {
  const MasterEntry* entry = Chosen(List2, stores_.MasterTable);
  if (!entry) return;
  Text6.set_text(Shown(entry->Name));
  Text7.set_text(Shown(entry->Symbol));
  Text8.set_text(Shown(entry->FileNumber));
  Text9.set_text(Shown(entry->FirstDate));
  Text10.set_text(Shown(entry->LastDate));
}

void Meta::Command1_Click() {
  F1.set_visible(true);
  F2.set_visible(false);
}

void Meta::Command2_Click() {
  F2.set_visible(true);
  F1.set_visible(false);
}

void Meta::C1_Click() {
  stores_.EMasterDrive.assign(DriveBox::kDrive);
  (void)WritePathFile(directory_.Path(kFichero), stores_);
  Hide();
}

}  // namespace metastock
