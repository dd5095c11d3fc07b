#include "metastock/download.h"

namespace metastock {

Download::Download(platform::Platform& platform, const base::ProgramDir& directory, Stores& stores,
                   Bars& bars, Form1& form, platform::Socket& tcpData,
                   const std::int16_t& FaseCierre)
    : platform_(platform),
      directory_(directory),
      stores_(stores),
      bars_(bars),
      form_(form),
      tcpData_(tcpData),
      FaseCierre_(FaseCierre) {}

void Download::Actualizar() { form_.Show(); }

void Download::ReanudarDescarga() {}

void Download::Cancelar() {}

void Download::DatosConectados() {}

void Download::OnDataArrival() {}

void Download::OnDataClose() {}

void Download::DatosFallidos() {}

void Download::RequestIntraday(std::string_view /*code*/, float /*date*/, float /*time*/,
                               int /*flag*/) {}

void Download::RequestDaily(std::string_view /*code*/, float /*date*/) {}

}  // namespace metastock
