#include "portfolios/records.h"

#include <gtest/gtest.h>
#include <random>

#include "support/bytes.h"

namespace {

using namespace portfolios;  // NOLINT
using support::F32, support::I16, support::I32, support::Pad;

TEST(PortfolioRecords, HaveTheseBytes) {
  FichaCartera ficha;
  ficha.Cuenta.assign("0049-1500");
  ficha.Agencia = base::FixedText<20>::FromUtf8("Bolsa Añil");
  ficha.Nombre.assign("Largo plazo");
  ficha.ComisionOperacion = 0.25F;
  ficha.ComisionMinima = 6;
  EXPECT_EQ(ficha.Encode(), Pad("0049-1500", 25) + Pad("Bolsa A\xF1il", 20) +
                                Pad("Largo plazo", 25) + std::string(18, '\0') + F32(0.25F) +
                                F32(6));
  Operacion operacion;
  operacion.Codigo.assign("TEF");
  operacion.Nombre.assign("TELEFONICA");
  operacion.Titulos = 70000;
  operacion.Precio = 19.5F;
  operacion.Fecha = 426;
  operacion.Hora = 90507;
  operacion.CarteraId = 2;
  operacion.Sentido = Operacion::kVenta;
  EXPECT_EQ(operacion.Encode(), Pad("TEF", 7) + Pad("TELEFONICA", 25) + I32(70000) + F32(19.5F) +
                                    F32(426) + F32(90507) + I16(2) + I16(2));
}

TEST(PortfolioRecords, GiveBackAnyBytes) {
  std::mt19937 random(7);
  for (int round = 0; round < 200; ++round) {
    std::string bytes(FichaCartera::kSize, '\0');
    for (char& byte : bytes) byte = static_cast<char>(random());
    EXPECT_EQ(FichaCartera::Decode(bytes).Encode(), bytes);
    bytes.resize(Operacion::kSize);
    EXPECT_EQ(Operacion::Decode(bytes).Encode(), bytes);
  }
}

}  // namespace
