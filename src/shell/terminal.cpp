#include "shell/terminal.h"

#include <span>
#include <utility>

#include "alarms/evaluate.h"
#include "services/manual.h"
#include "shell/commands.h"

namespace shell {

Terminal::Terminal(platform::Platform& platform, base::ProgramDir directory)
    : platform_(platform),
      directory_(std::move(directory)),
      MDI(platform),
      pipeline(store, MDI.Tickctl1, MDI.Check2),
      Conecta(platform, directory_, store, pipeline,
              {MDI.Picture2, MDI.Label2, MDI.LT, MDI.LF, MDI.Tickctl1, MDI.Tickctl2}),
      context{platform, directory_, store, pipeline, ConfigVentana, MDI.FaseCierre},
      Continuo(context),
      Indices(context),
      Estadisticas(context),
      Futuros(context),
      Divisas(context),
      Opciones(context),
      Colores(platform, directory_, ConfigVentana),
      Form2(platform, MDI.FaseCierre),
      Tickets(platform, store, pipeline, Form2),
      Alarmas(directory_),
      FormAlarm(platform, Alarmas, MDI.FaseCierre),
      ListAlarm(platform, MDI.FaseCierre),
      APrecio(platform, store, Alarmas, FormAlarm),
      Carteras(directory_, MDI.Combo1),
      TCartera(context, Carteras),
      Cartera(platform, Carteras),
      Operar_Cartera(platform, store, Carteras),
      Detalle(platform, Carteras),
      Ticks(directory_, store),
      Graficos(platform, store, Ticks, MDI.FaseCierre),
      Hot(context, Ticks),
      Bars(Stores, store, platform),
      Form1(platform),
      Meta(platform, directory_, Stores),
      Download(platform, directory_, Stores, Bars, Form1, *Conecta.tcpData, MDI.FaseCierre),
      Refresh(platform.other_windows(), MDI.Check1, Conecta.TickCarteras),
      Excel(platform.spreadsheet(), store),
      Pages(platform),
      Irc(platform),
      Browser(platform),
      Sobre(platform, shell::MDI::kCaption),
      resumen_(MDI, store, Carteras, TCartera),
      stop_(*this) {
  JoinMainWindow();
  JoinPipeline();
  JoinViews();
  JoinCharts();
  JoinColors();
  JoinMetaStock();
  JoinServices();
  JoinCommands(*this);
}

Terminal::~Terminal() = default;

void Terminal::JoinMainWindow() {
  MDI.steps = {
      .Cargar = [this] { StartUp(*this, directory_); },
      .Conectado = [this] { return Conecta.conectado(); },
      .Cerrado = [this] { return Conecta.cerrado(); },
      .Conectar = [this] { ShowLogin(); },
      .Desconectar =
          [this] {
            Download.Cancelar();
            Conecta.Recargar();
          },
      .Refresco = [this](bool on) { Conecta.Timer2.set_enabled(on); },
      .Terminar = [this] { stop_.Begin(); },
      .Avanzar = [this] { stop_.Advance(); },
  };
}

void Terminal::JoinPipeline() {
  pipeline.steps.tickets = [this](std::int16_t slot) { Tickets.RefrescarTickets(slot); };
  pipeline.steps.alarmas = [this](std::int16_t slot) {
    alarms::EvaluarAlarmas(store.Instrumentos(slot), Alarmas, FormAlarm, ListAlarm);
  };
  pipeline.AbrirTicket = [this](std::int16_t slot) { Tickets.AbrirTicket(slot); };
  pipeline.steps.cartera = [this](std::int16_t slot) { TCartera.negoti(slot); };
  Conecta.steps.ResumenCartera = [this] { resumen_.Combo1_Click(); };
  MDI.Combo1.on_click = [this] { resumen_.Combo1_Click(); };
  Conecta.steps.RefrescarLibro = [this](int index) { Tickets.RefrescarLibro(index); };
  Conecta.steps.Negocio = [this](const store::Negocio& trade) { Tickets.Negocio(trade); };
  Conecta.steps.FinNegocios = [this] { Tickets.FinNegocios(); };
  Tickets.steps.EnviarTexto = [this](std::string_view text) { (void)Conecta.EnviarTexto(text); };
  FormAlarm.steps.VerLista = [this] { ListAlarm.Show(); };
  ListAlarm.steps.VerAlarmas = [this] { FormAlarm.Show(); };
}

void Terminal::JoinViews() {
  store::UpdatePipeline::Views& views = pipeline.views;
  views.Continuo_negoti = [this](std::int16_t slot) { Continuo.negoti(slot); };
  views.Continuo_negotii = [this](std::int16_t slot) { Continuo.negotii(slot); };
  views.Indices = [this](std::int16_t slot) { Indices.negotii(slot); };
  views.Futuros = [this](std::int16_t slot) { Futuros.negotio(slot); };
  views.Divisas = [this](std::int16_t slot) { Divisas.negotiv(slot); };
  // These two are loaded when they are first needed.
  views.Estadisticas = [this](std::int16_t slot) {
    Estadisticas.Load();
    Estadisticas.negotii(slot);
  };
  views.Opciones = [this](std::int16_t slot) {
    Opciones.Load();
    Opciones.negotiop(slot);
  };
}

void Terminal::JoinCharts() {
  pipeline.steps.graficos = [this](std::int16_t slot) { Graficos.GraficosVivo(slot); };
  pipeline.steps.ticks = [this](std::int16_t slot) {
    Ticks.TickAppend(slot);
    Excel.RefrescarFilas(slot);
  };
  Excel.steps.TickAppend = pipeline.steps.ticks;
  pipeline.steps.hot = [this](std::int16_t slot) {
    if (Hot.loaded()) Hot.ActuaHot(slot);
  };
  for (views::GridView* view : std::initializer_list<views::GridView*>{
           &Continuo, &Indices, &Estadisticas, &Divisas, &Opciones, &TCartera, &Hot}) {
    view->graficos = {.Abrir = [this](std::int16_t slot) { Graficos.Abrir(slot); },
                      .Pedir = [this] { return Graficos.Pedir(); }};
  }
}

std::vector<views::GridView*> Terminal::ViewsOf(int ventana) {
  std::vector<views::GridView*> shown;
  const auto add = [&](views::GridView& view) {
    if (view.loaded()) shown.push_back(&view);
  };
  if (ventana == 1) {
    add(Continuo);
    add(TCartera);
  } else if (ventana == 2) {
    add(Indices);
    add(Estadisticas);
  } else if (ventana == 3) {
    add(Futuros);
  } else if (ventana == 4) {
    add(Divisas);
  }
  return shown;
}

void Terminal::JoinColors() {
  Colores.steps.Grids = [this](int ventana) {
    std::vector<platform::Grid*> grids;
    for (views::GridView* view : ViewsOf(ventana)) grids.push_back(&view->G);
    return grids;
  };
  Colores.steps.Campos = [this](int ventana) -> std::span<const std::string_view> {
    const auto shown = ViewsOf(ventana);
    return shown.empty() ? std::span<const std::string_view>{} : shown.front()->Campos();
  };
  Colores.steps.ColoresOn = [this](int ventana) {
    for (views::GridView* view : ViewsOf(ventana)) view->ColoresOn();
    // The rows of the holdings are made anew by this.
    if (ventana == 1) resumen_.Combo1_Click();
  };
  Colores.steps.OcultarConecta = [this] { Conecta.Hide(); };
}

void Terminal::JoinMetaStock() {
  pipeline.steps.barras = [this](std::int16_t slot) { Bars.ActualizarBarras(slot); };
  Bars.on_live = [this] { Refresh.Avisar(); };
  Download.steps.Preguntar = [this](std::string_view text) { return Conecta.Preguntar(text); };
  feed::Conecta::Steps& steps = Conecta.steps;
  steps.RefreshMetaStock = [this] { (void)Refresh.RefreshMetaStock(); };
  steps.ReanudarDescarga = [this] { Download.ReanudarDescarga(); };
  steps.DatosConectados = [this] { Download.DatosConectados(); };
  steps.OnDataArrival = [this] { Download.OnDataArrival(); };
  steps.OnDataClose = [this] { Download.OnDataClose(); };
  steps.DatosFallidos = [this] { Download.DatosFallidos(); };
}

void Terminal::JoinServices() {
  Conecta.steps.PaginaLista = [this](std::string_view page) { Pages.PaginaLista(page); };
  Pages.steps = {.Conectado = [this] { return Conecta.conectado(); },
                 .IdSesion = [this] { return Conecta.IdSesion(); },
                 .EnviarTexto = [this](std::string_view text) { (void)Conecta.EnviarTexto(text); }};
  Irc.steps = {.Usuario = [this] { return Conecta.Usuario(); },
               .Clave = [this] { return Conecta.Clave(); }};
  Browser.steps.Manual = [this] {
    return services::EscribirManual(directory_, platform_.manual());
  };
}

void Terminal::Start() {
  MDI.Show();
  ShowLogin();
}

void Terminal::ShowLogin() {
  Conecta.Show();
  Conecta.SetFocus(Conecta.Text1);
}

}  // namespace shell
