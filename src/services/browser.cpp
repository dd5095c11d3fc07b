#include "services/browser.h"

#include <array>

#include "base/text.h"

namespace services {
namespace {

using platform::Icon;

constexpr platform::Rect kPlace{450, 450, 13500, 9000};
constexpr int kLongestAddress = 2000, kLongestTitle = 100;
constexpr int kLeastHeight = 100, kEdge = 50;

// The pages of the service, in the order of `Pagina`. "" is the manual, which stands in for those
// that have no address yet.
constexpr std::array<std::string_view, 5> kPaginas{"", "", "", "", ""};
constexpr std::string_view kManual = "index.html";

std::string PlainLine(std::string_view text, std::size_t longest) {
  const std::string line = base::OneLine(text);
  return std::string(base::CutUtf8(base::Trim(line), longest));
}

}  // namespace

Browser::Browser(platform::Platform& platform) : Window(platform) {
  set_caption("Internet");
  set_rect(kPlace);
  ActiveBar1.tools = {{kBack, "Atrás", Icon::back},
                      {kForward, "Adelante", Icon::forward},
                      {kStop, "Detener", Icon::halt},
                      {kRefresh, "Actualizar", Icon::refresh},
                      {},
                      {kHome, "Inicio", Icon::home},
                      {kSearch, "Buscar", Icon::search},
                      {kService, "Cotirama", Icon::service}};
  ActiveBar1.on_click = [this](const platform::Tool& tool) { ActiveBar1_Click(tool.number); };
  Direccion.set_label("Dirección");
  Direccion.set_max_length(kLongestAddress);
  Direccion.on_enter = [this] { Direccion_Change(); };
  brwWebBrowser.on_busy = [this] { Mostrar(); };
}

void Browser::OnLoad() { Ir(Pagina::inicio); }

void Browser::Abrir(Pagina pagina) {
  Load();
  Ir(pagina);
  Show();
}

void Browser::Ir(Pagina pagina) {
  brwWebBrowser.set_files(steps.Manual ? steps.Manual() : std::string());
  const std::string_view address = kPaginas[static_cast<std::size_t>(pagina)];
  Seguir();
  brwWebBrowser.Navigate(address.empty() ? brwWebBrowser.files() + std::string(kManual)
                                         : std::string(address));
}

void Browser::ActiveBar1_Click(int tool) {
  Seguir();
  switch (tool) {
    case kBack:
      return brwWebBrowser.Back();
    case kForward:
      return brwWebBrowser.Forward();
    case kHome:
      return Ir(Pagina::inicio);
    case kStop:
      return brwWebBrowser.Stop();
    case kRefresh:
      return brwWebBrowser.Refresh();
    case kSearch:
      return Ir(Pagina::busqueda);
    case kService:
      return Ir(Pagina::servicio);
    default:
      return;
  }
}

void Browser::Direccion_Change() {
  constexpr std::string_view kHttp = "http://";
  std::string address = PlainLine(Direccion.text(), kLongestAddress);
  if (address.empty()) return;
  if (!address.starts_with(kHttp)) address.insert(0, kHttp);
  Direccion.set_text(address);
  seguida_ = Direccion.text();
  pedida_ = address;
  anterior_ = brwWebBrowser.location();
  brwWebBrowser.Navigate(address);
}

void Browser::Direccion_LostFocus() { Seguir(); }

void Browser::OnResize() {
  if (rect().height <= kLeastHeight) return;
  platform::Rect place = brwWebBrowser.rect();
  place.width = rect().width - kEdge;
  place.height = rect().height - kEdge;
  brwWebBrowser.set_rect(place);
}

void Browser::Seguir() {
  Direccion.set_text(
      PlainLine(pedida_.empty() ? brwWebBrowser.location() : pedida_, kLongestAddress));
  seguida_ = Direccion.text();
}

void Browser::Mostrar() {
  if (!brwWebBrowser.busy() || brwWebBrowser.location() != anterior_) pedida_.clear();
  if (Direccion.text() == seguida_) Seguir();
  const std::string name = PlainLine(brwWebBrowser.location_name(), kLongestTitle);
  if (brwWebBrowser.busy()) {
    set_caption("Trabajando...");
  } else {
    set_caption(name.empty() ? PlainLine(brwWebBrowser.location(), kLongestTitle) : name);
  }
}

}  // namespace services
