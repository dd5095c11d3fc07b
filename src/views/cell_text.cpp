#include "views/cell_text.h"

#include <algorithm>

#include "base/masks.h"
#include "base/text.h"
#include "store/market_class.h"

namespace views {
namespace {

constexpr double kPesetasPerEuro = 166.386;
constexpr float kYear2000 = 1000000;  // dates count their years from 1900

// From 2000 on the year has three digits, of which the last two count. 1000000 itself is no date.
void AppendDate(std::string& out, float date) {
  if (date < kYear2000) base::masks::kDate.Append(out, date);
  if (date > kYear2000) {
    const std::size_t at = out.size();
    base::masks::kDate.Append(out, date);
    if (out.size() > at) out.replace(at, 1, "20");
  }
}

}  // namespace

void AppendCell(std::string& out, Campo campo, const store::Instrumento& record,
                const base::Mask& price) {
  using namespace base::masks;
  switch (campo) {
    case Campo::ninguno:
      return;
    case Campo::Anterior:
      return price.Append(out, record.Anterior);
    case Campo::Apertura:
      return price.Append(out, record.Apertura);
    case Campo::Variacion:
      return kPercent.Append(out, store::Variacion(record));
    case Campo::Ultimo:
      return price.Append(out, record.Ultimo);
    case Campo::Maximo:
      return price.Append(out, record.Maximo);
    case Campo::Minimo:
      return price.Append(out, record.Minimo);
    case Campo::Volumen:
      return kCount.Append(out, record.Volumen);
    case Campo::Efectivo:
      return kMoney.Append(out, record.Efectivo);
    case Campo::Medio:
      return price.Append(out, record.Medio);
    case Campo::Saldo:
      return kMoney.Append(out, record.Saldo);
    case Campo::Hora:
      return kTime.Append(out, record.Hora);
    case Campo::Fecha:
      return AppendDate(out, record.Fecha);
    case Campo::Pesetas:
      return kCount.Append(out, static_cast<double>(record.Ultimo) * kPesetasPerEuro);
  }
}

void AppendName(std::string& out, const base::FixedText<20>& name) {
  const auto plain = [](char c) { return c >= ' ' && c < '\x7F'; };
  if (std::ranges::all_of(name.bytes(), plain)) {
    out += name.bytes();
  } else {
    out += base::OneLine(name.utf8());
  }
}

}  // namespace views
