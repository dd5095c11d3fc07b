#include "metastock/download.h"

#include <cmath>
#include <utility>

#include "base/ansi.h"
#include "base/masks.h"
#include "base/record_file.h"
#include "base/text.h"
#include "base/val.h"

namespace metastock {
namespace {

constexpr std::size_t kMostReads = 1000;
constexpr std::size_t kMostLines = 2000;  // twice what both tables hold

std::string Shown(std::string_view ansi) { return base::AnsiToUtf8(base::OneLine(ansi)); }

std::string Question(const store::Codigo& code) {
  return "El instrumento " + Shown(code.bytes()) +
         " es nuevo, ¿Desde que fecha desea recargar? (yymmdd)\r\n\r\n"
         "Introduzca la fecha que desea sin separadores, por ejemplo 980931.";
}

float NumberOr0(float value) { return std::isfinite(value) ? value : 0; }

/// The number of the first entry that isn't selected; 0 when there is none.
std::size_t FirstPending(const Stores::Table<std::int16_t>& selected, std::int16_t count) {
  for (std::size_t i = 1; i <= static_cast<std::size_t>(count); ++i) {
    if (selected[i] == 0) return i;
  }
  return 0;
}

}  // namespace

Download::Download(platform::Platform& platform, const base::ProgramDir& directory, Stores& stores,
                   Bars& bars, Form1& form, platform::Socket& tcpData,
                   const std::int16_t& FaseCierre)
    : platform_(platform),
      directory_(directory),
      stores_(stores),
      form_(form),
      tcpData_(tcpData),
      FaseCierre_(FaseCierre),
      rows_(stores, bars),
      queue_(platform, tcpData),
      alive_(std::make_shared<const bool>(true)) {
  JoinQueue();
}

void Download::JoinQueue() {
  queue_.steps = {
      .Preguntar = [this](const store::Codigo& code) -> std::optional<float> {
        return base::ValFloat(steps.Preguntar ? steps.Preguntar(Question(code)) : std::string());
      },
      .Pidiendo =
          [this](const HistoryRequest& request) {
            form_.Label2.set_caption("Pidiendo " + Shown(request.code.bytes()) +
                                     " a Fecha: " + base::masks::kSixDigits.Format(request.date));
          },
      .Enviado =
          [this](HistoryRequest::Kind kind) {
            (kind == HistoryRequest::Kind::daily ? DataBusyDaily : DataBusy) = 1;
          },
  };
}

void Download::Actualizar() {
  if (FaseCierre_ > 0) return;
  encadenar_ = true;
  form_.Show();
  MostrarAvance();
  // Two answers to one request would put the same bars into a file twice.
  if (Ocupada() || queue_.just_sent()) return;
  if (!PedirDaily(DateOf::bar)) PedirIntraday(DateOf::bar);
}

bool Download::Ocupada() const { return !queue_.empty() || rows_.running() || !lecturas_.empty(); }

void Download::ReanudarDescarga() {
  if (DownloadIntraday != 1 || DataBusy != 0 || Ocupada()) return;
  encadenar_ = true;
  PedirIntraday(DateOf::load);
}

void Download::Cancelar() {
  queue_.Clear();
  lecturas_.clear();
  bytes_en_espera_ = 0;
  reader_ = {};
  encadenar_ = false;
}

void Download::DatosConectados() {
  // What was cut off has no rest to come.
  reader_ = {};
  queue_.Changed();
}

void Download::OnDataArrival() {
  if (FaseCierre_ > 0) return;
  if (!rows_.running() && lecturas_.empty()) {
    Leer(tcpData_.Read(tcpData_.pending().size()));
  } else if (lecturas_.size() < kMostReads && bytes_en_espera_ < ReplyReader::kMostCarried) {
    // What came apart is read apart: a reply ends its read. The rest waits in the socket, as long
    // as that is connected.
    lecturas_.push_back(tcpData_.Read(tcpData_.pending().size()));
    bytes_en_espera_ += lecturas_.back().size();
  }
}

void Download::OnDataClose() {
  DataBusy = 0;
  queue_.Changed();
}

void Download::Leer(std::string recibido) {
  auto reply = reader_.Recibir(std::move(recibido));
  encadenar_ = true;
  if (reply && reply->kind == Reply::Kind::no_more) {
    MarcarIntraday(reply->code);
    PedirIntraday(DateOf::load);
  } else if (reply) {
    rows_.Begin(std::move(*reply));
    Almacenar();
    return;
  }
  if (!lecturas_.empty() || !tcpData_.pending().empty()) Luego(&Download::SeguirLeyendo);
}

void Download::SeguirLeyendo() {
  if (rows_.running()) return;
  if (!lecturas_.empty()) {
    std::string next = std::move(lecturas_.front());
    lecturas_.pop_front();
    bytes_en_espera_ -= next.size();
    Leer(std::move(next));
  } else if (!tcpData_.pending().empty()) {
    // No event tells of it again.
    OnDataArrival();
  }
}

void Download::Almacenar() {
  if (FaseCierre_ > 0) rows_.Drop();
  if (!rows_.running()) return;
  if (const auto result = rows_.Slice()) {
    Almacenado(*result);
    Luego(&Download::SeguirLeyendo);
  } else {
    Luego(&Download::Almacenar);
  }
}

void Download::Almacenado(const RowStore::Result& result) {
  const bool daily = rows_.reply().kind == Reply::Kind::daily;
  const store::Codigo code = rows_.reply().code;
  if (!result.last_row.empty()) {
    base::RecordFile file(directory_.Path(daily ? "MSD.TMP" : "MSI.TMP"), result.last_row.size());
    file.Write(1, result.last_row);
  }
  if (daily) {
    FinDaily(code, result);
  } else {
    FinIntraday(code, result);
  }
}

void Download::FinIntraday(const store::Codigo& code, const RowStore::Result& result) {
  using End = RowStore::Result::End;
  if (result.end == End::bad_row) return PedirDesde(code, result.date, result.time);
  // A minute past the last good row.
  if (result.end == End::fillers) return PedirDesde(code, result.date, result.time + 100);
  if (result.time > 240000 || result.time < 0) return PedirDesde(code, result.date, 0);
  if (result.is_long) PedirDesde(code, result.date, result.time);
  MarcarIntraday(code);
  PedirIntraday(DateOf::load);
}

void Download::FinDaily(const store::Codigo& code, const RowStore::Result& result) {
  using End = RowStore::Result::End;
  if (result.end == End::end_marker) return FinMarca(code);
  if (result.end == End::bad_row) {
    if (encadenar_) RequestDaily(code.bytes(), result.date);
    return;
  }
  for (const int i : EntriesOf(stores_.MasterTable, stores_.MasterCount, code)) {
    const auto entry = static_cast<std::size_t>(i);
    stores_.MasterSelected[entry] = 1;
    Acabada("D " + Shown(stores_.MasterTable[entry].Name.bytes()));
  }
  MostrarAvance();
  if (!PedirDaily(DateOf::load)) PedirIntraday(DateOf::bar);
}

void Download::FinMarca(const store::Codigo& code) {
  const auto count = static_cast<std::size_t>(stores_.MasterCount);
  std::size_t i = 1;
  for (; i <= count; ++i) {
    const MasterEntry& entry = stores_.MasterTable[i];
    if (CodeOf(entry.Symbol.bytes()) == code) {
      stores_.MasterSelected[i] = 1;
      Acabada("D:" + Shown(entry.Name.bytes()));
    }
    // The scan ends there: entries of this code further on stay pending.
    if (stores_.MasterSelected[i] == 0) break;
  }
  MostrarAvance();
  if (!PedirDaily(DateOf::bar)) PedirIntraday(DateOf::bar);
}

void Download::MarcarIntraday(const store::Codigo& code) {
  for (const int i : EntriesOf(stores_.EMasterTable, stores_.EMasterCount, code)) {
    const auto entry = static_cast<std::size_t>(i);
    stores_.EMasterSelected[entry] = 1;
    Acabada(Shown(stores_.EMasterTable[entry].Name.bytes()));
  }
  MostrarAvance();
}

bool Download::PedirDaily(DateOf from) {
  const std::size_t i = FirstPending(stores_.MasterSelected, stores_.MasterCount);
  if (i == 0) return false;
  const MasterEntry& entry = stores_.MasterTable[i];
  if (encadenar_) {
    RequestDaily(entry.Symbol.bytes(),
                 from == DateOf::bar ? stores_.DailyLast[i].Date : entry.LastDate);
  }
  return true;
}

void Download::PedirIntraday(DateOf from) {
  const std::size_t i = FirstPending(stores_.EMasterSelected, stores_.EMasterCount);
  if (i == 0) return;
  const BarState& state = stores_.BarState[i];
  const EMasterEntry& entry = stores_.EMasterTable[i];
  PedirDesde(CodeOf(entry.Symbol.bytes()), from == DateOf::bar ? state.Date : entry.LastDate,
             state.Time);
}

void Download::PedirDesde(const store::Codigo& code, float date, float time) {
  if (encadenar_) RequestIntraday(code.bytes(), date, time, 1);
}

void Download::RequestIntraday(std::string_view code, float date, float time, int /*flag*/) {
  if (FaseCierre_ > 0) return;
  DownloadIntraday = 1;
  date = NumberOr0(date);
  const store::Codigo codigo = CodeOf(code);
  // Never past what the file holds.
  for (const int i : EntriesOf(stores_.EMasterTable, stores_.EMasterCount, codigo)) {
    const auto entry = static_cast<std::size_t>(i);
    const float last = stores_.BarState[entry].Date;
    if (stores_.EMasterSelected[entry] == 0 && date > last) date = last;
  }
  queue_.Add({HistoryRequest::Kind::intraday, codigo, date, NumberOr0(time)});
}

void Download::RequestDaily(std::string_view code, float date) {
  if (FaseCierre_ > 0) return;
  DownloadDaily = 1;
  date = NumberOr0(date);
  const store::Codigo codigo = CodeOf(code);
  for (const int i : EntriesOf(stores_.MasterTable, stores_.MasterCount, codigo)) {
    const auto entry = static_cast<std::size_t>(i);
    const float last = stores_.DailyLast[entry].Date;
    if (stores_.MasterSelected[entry] == 0 && date > last) date = last;
  }
  queue_.Add({HistoryRequest::Kind::daily, codigo, date, 0});
}

void Download::Acabada(std::string_view line) {
  if (form_.List1.items().size() >= kMostLines) form_.List1.Clear();
  form_.List1.AddItem(line);
}

void Download::MostrarAvance() {
  form_.Avance.set_max(stores_.MasterCount + stores_.EMasterCount);
  form_.Avance.set_value(stores_.CountSelected());
}

void Download::Luego(void (Download::*step)()) {
  platform_.Post([this, step, alive = std::weak_ptr(alive_)] {
    if (!alive.expired()) (this->*step)();
  });
}

}  // namespace metastock
