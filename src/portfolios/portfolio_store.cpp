#include "portfolios/portfolio_store.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "base/ansi.h"
#include "base/record_file.h"
#include "base/text.h"
#include "base/val.h"

namespace portfolios {
namespace {

constexpr const char* kFicheroCarteras = "Carteras.QRT";
constexpr const char* kFicheroOperaciones = "Operaciones.QRT";
constexpr std::string_view kDobleBlanco = "  ";

template <typename Record>
std::optional<Record> ReadRecord(const base::RecordFile& file, std::int64_t n) {
  std::string bytes;
  if (!file.Read(n, bytes)) return std::nullopt;
  return Record::Decode(bytes);
}

template <typename Record>
std::int64_t WholeRecords(const base::RecordFile& file) {
  return file.length() / static_cast<std::int64_t>(Record::kSize);
}

// More than half a record at the end counts as one, exactly half goes to the even number. It can't
// be read, so its slot is empty.
template <typename Record>
void Load(const base::RecordFile& file, int most, Tabla<Record>& table) {
  const double count = std::nearbyint(static_cast<double>(file.length()) / Record::kSize);
  const int slots = static_cast<int>(std::min<double>(count, most));
  table.records.assign(static_cast<std::size_t>(slots) + 1, Record{});
  for (int n = 1; n <= slots; ++n) {
    if (const auto record = ReadRecord<Record>(file, n)) {
      table.records[static_cast<std::size_t>(n)] = *record;
    }
  }
  table.in_file = static_cast<int>(std::min<std::int64_t>(slots, WholeRecords<Record>(file)));
}

// Reads what the file has beyond what we know of it (another terminal added it, or the file
// couldn't be read before) and puts it in front of what the file still lacks. False where that
// can't be done: nothing may be written then.
template <typename Record>
bool TakeIn(const base::RecordFile& file, int most, Tabla<Record>& table) {
  if (!file.is_open()) return false;
  const std::int64_t whole = WholeRecords<Record>(file);
  table.in_file = static_cast<int>(std::min<std::int64_t>(table.in_file, whole));
  while (table.in_file < whole) {
    const auto record = ReadRecord<Record>(file, table.in_file + 1);
    if (!record || table.count() >= most) return false;
    table.records.insert(table.records.begin() + table.in_file + 1, *record);
    ++table.in_file;
  }
  return true;
}

// What the file lacks, each record in one write, none before the one in front of it.
template <typename Record>
void Append(base::RecordFile& file, Tabla<Record>& table) {
  if (table.in_file == table.count()) return;
  while (table.in_file < table.count() &&
         file.Write(table.in_file + 1, table[table.in_file + 1].Encode())) {
    ++table.in_file;
  }
  (void)file.Flush();
}

// The same in one go. What the file has stays in it as it is.
bool Replace(const base::RecordFile& file, const std::string& path,
             Tabla<FichaCartera>& portfolios) {
  if (portfolios.in_file == portfolios.count()) return true;
  std::string content, record;
  for (int i = 1; i <= portfolios.count(); ++i) {
    if (i > portfolios.in_file) {
      record = portfolios[i].Encode();
    } else if (!file.Read(i, record)) {
      return false;
    }
    content += record;
  }
  if (!file.writable() || !base::ReplaceFile(path, content)) return false;
  portfolios.in_file = portfolios.count();
  return true;
}

// The shares that a position of `held` has after `operation`. Whole numbers, exact in a double.
std::optional<std::int32_t> NewTitulos(double held, const Operacion& operation) {
  const bool sale = operation.Sentido == Operacion::kVenta;
  return base::ToInteger<std::int32_t>(sale ? held - operation.Titulos : held + operation.Titulos);
}

void Sumar(Operacion& position, const Operacion& operation) {
  double cost = static_cast<double>(position.Precio) * position.Titulos;
  cost = static_cast<double>(operation.Precio) * operation.Titulos + cost;
  position.Titulos = NewTitulos(position.Titulos, operation).value_or(position.Titulos);
  if (operation.Sentido != Operacion::kCompra) return;
  // The old price stays where there is no new one, or none that fits.
  position.Precio = base::ToFloat(cost / position.Titulos).value_or(position.Precio);
}

}  // namespace

PortfolioStore::PortfolioStore(const base::ProgramDir& dir, platform::ComboBox& selector)
    : dir_(dir), selector_(selector) {}

int PortfolioStore::NumPosiciones(int cartera) const {
  if (cartera < 0 || cartera > kMaxCarteras) return 0;
  return static_cast<int>(posiciones_[static_cast<std::size_t>(cartera)].size());
}

const Operacion& PortfolioStore::Posiciones(int cartera, int j) const {
  if (j < 1 || j > NumPosiciones(cartera)) return operaciones_[0];
  return posiciones_[static_cast<std::size_t>(cartera)][static_cast<std::size_t>(j - 1)];
}

std::string NombreCorto(const base::FixedText<25>& name) {
  return base::AnsiToUtf8(name.bytes().substr(0, base::Find(name.bytes(), kDobleBlanco)));
}

void PortfolioStore::CargarCarteras() {
  Load(base::RecordFile(dir_.Path(kFicheroCarteras), FichaCartera::kSize), kMaxCarteras, carteras_);
  LlenarSelector();
  Load(base::RecordFile(dir_.Path(kFicheroOperaciones), Operacion::kSize), kMaxOperaciones,
       operaciones_);
  RecalcularPosiciones();
}

void PortfolioStore::RecalcularPosiciones() {
  for (auto& positions : posiciones_) positions.clear();
  for (int i = 1; i <= NumOperaciones(); ++i) Anotar(operaciones_[i]);
}

void PortfolioStore::Anotar(const Operacion& operacion) {
  if (operacion.CarteraId < 0 || operacion.CarteraId > kMaxCarteras) return;
  auto& positions = posiciones_[static_cast<std::size_t>(operacion.CarteraId)];
  const auto held = std::ranges::find(positions, operacion.Codigo, &Operacion::Codigo);
  if (held != positions.end()) {
    if (operacion.conocida()) Sumar(*held, operacion);
    return;
  }
  if (positions.size() >= kMaxPosiciones) return;
  positions.push_back(operacion);
  positions.back().Titulos = NewTitulos(0, operacion).value_or(operacion.Titulos);
}

bool PortfolioStore::AgregarCartera(const FichaCartera& record) {
  const std::string path = dir_.Path(kFicheroCarteras);
  base::RecordFile file(path, FichaCartera::kSize);
  const bool in_step = TakeIn(file, kMaxCarteras, carteras_);
  const bool room = NumCarteras() < kMaxCarteras;
  if (room) carteras_.records.push_back(record);
  LlenarSelector();
  // A directory that takes no new file may still hold one that can be written to.
  if (in_step && !Replace(file, path, carteras_)) Append(file, carteras_);
  carteras_.refused = carteras_.in_file < NumCarteras();
  return room;
}

bool PortfolioStore::AgregarOperacion(const Operacion& record) {
  base::RecordFile file(dir_.Path(kFicheroOperaciones), Operacion::kSize);
  const bool in_step = TakeIn(file, kMaxOperaciones, operaciones_);
  const bool room = NumOperaciones() < kMaxOperaciones;
  if (room) operaciones_.records.push_back(record);
  if (in_step) Append(file, operaciones_);
  operaciones_.refused = operaciones_.in_file < NumOperaciones();
  return room;
}

void PortfolioStore::LlenarSelector() {
  selector_.Clear();
  for (int i = 1; i <= NumCarteras(); ++i) selector_.AddItem(NombreCorto(carteras_[i].Nombre));
}

}  // namespace portfolios
