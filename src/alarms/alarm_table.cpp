#include "alarms/alarm_table.h"

#include <algorithm>
#include <iterator>
#include <span>

#include "base/masks.h"
#include "base/record_file.h"
#include "base/text.h"

namespace alarms {
namespace {

constexpr const char* kFichero = "Al.Set";
constexpr std::size_t kMaxFile = 2U << 20;  // more than what we write
constexpr std::string_view kMarca = "* ";

// A mark of our own is no code, even where the market has one that reads the same: what has fired
// must not fire again.
store::CodeKey KeyOf(const store::Codigo& code) {
  return code.bytes().starts_with(kMarca) ? store::kNoCode : store::PackCode(code.bytes());
}

bool Meets(const store::Instrumento& record, const Alarma& alarm) {
  return (record.Ultimo >= alarm.AlarmaValor &&
          alarm.AlarmaCondicion == AlarmTable::kIgualOSuperior) ||
         (record.Ultimo <= alarm.AlarmaValor &&
          alarm.AlarmaCondicion == AlarmTable::kIgualOInferior) ||
         (record.Volumen >= alarm.AlarmaValor && alarm.AlarmaTipo == AlarmTable::kVolumen);
}

}  // namespace

AlarmTable::AlarmTable(const base::ProgramDir& dir) : dir_(dir), alarmas_(1) { Indexar(); }

const Alarma& AlarmTable::operator[](int i) const {
  return alarmas_[i >= 1 && i <= NumAlarmas() ? static_cast<std::size_t>(i) : 0];
}

void AlarmTable::Indexar() {
  claves_.fill(store::kNoCode);
  for (std::size_t i = 1; i < alarmas_.size(); ++i) claves_[i] = KeyOf(alarmas_[i].AlarmaCodigo);
}

void AlarmTable::CargarAlarmas() {
  std::string text;
  if (!base::ReadFileStart(dir_.Path(kFichero), kMaxFile, text)) return;
  std::vector<Alarma> read = DecodeAlarms(text);
  alarmas_.resize(1);
  std::move(read.begin(), read.end(), std::back_inserter(alarmas_));
  Indexar();
}

void AlarmTable::GuardarAlarmas() const {
  (void)base::ReplaceFile(dir_.Path(kFichero), EncodeAlarms(std::span(alarmas_).subspan(1)));
}

bool AlarmTable::Agregar(const Alarma& alarm) {
  if (NumAlarmas() >= kMaxAlarmas) return false;
  alarmas_.push_back(alarm);
  Indexar();
  return true;
}

void AlarmTable::Eliminar(int i) {
  if (i < 1 || NumAlarmas() == 0) return;
  alarmas_.erase(alarmas_.begin() + std::min(i, NumAlarmas()));
  Indexar();
}

int AlarmTable::Cumplida(const store::Instrumento& record) const {
  if (NumAlarmas() == 0) return 0;
  const std::size_t used = (alarmas_.size() / store::kCodeBlock + 1) * store::kCodeBlock;
  const store::CodeKey key = store::PackCode(record.Codigo.bytes());
  const int hit = store::FindCode(std::span(claves_).first(used), key);
  if (hit < 0) return 0;
  for (auto i = static_cast<std::size_t>(hit); i < alarmas_.size(); ++i) {
    const Alarma& alarm = alarmas_[i];
    // The keys are blind to where the blanks of a code stand.
    const bool same = claves_[i] == key && alarm.AlarmaCodigo == record.Codigo;
    if (same && Meets(record, alarm)) return static_cast<int>(i);
  }
  return 0;
}

void AlarmTable::Marcar(int i) {
  if (i < 1 || i > NumAlarmas()) return;
  store::Codigo& code = alarmas_[static_cast<std::size_t>(i)].AlarmaCodigo;
  code = store::Codigo(std::string(kMarca).append(code.bytes()));
  claves_[static_cast<std::size_t>(i)] = KeyOf(code);
}

std::string AlarmTable::Linea(int i) const {
  const Alarma& alarm = (*this)[i];
  std::string line = base::NumberText(std::int64_t{i});
  line.append(" ").append(alarm.AlarmaCodigo.utf8());
  line.append(" ").append(base::NumberText(alarm.AlarmaValor));
  line.append(" ").append(alarm.AlarmaOrden);
  return base::OneLine(line);
}

}  // namespace alarms
