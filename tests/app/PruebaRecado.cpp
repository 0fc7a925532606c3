// Requests between programs, as bytes.
#include <gtest/gtest.h>

#include "app/Recado.h"

using namespace tarvo::app;

TEST(Recado, LoEscritoSeLeeIgual) {
  Peticion proceso;
  proceso.que = Peticion::Que::Proceso;
  proceso.nombre = QStringLiteral("NOCHE Ñ");
  proceso.traza = QStringLiteral("TIENDA.CRO");
  proceso.pasos = QStringList{QStringLiteral("N:una \"línea\"\nde dos"), QStringLiteral("S:ABRIR")};
  proceso.omitidas = QStringList{QStringLiteral("lo demás")};
  proceso.datos = {{QStringLiteral("%1"), QStringLiteral("5")}};
  Peticion alzar;
  alzar.ventana = QStringLiteral("VerTot");
  for (const Peticion& p : {proceso, alzar}) {
    const QByteArray linea = escribir(p);
    EXPECT_EQ(linea.count('\n'), 1);
    const auto leida = leerPeticion(linea);
    EXPECT_TRUE(leida && *leida == p) << linea.toStdString();
    EXPECT_FALSE(esParar(linea));
  }
  for (const Respuesta& r :
       {Respuesta{}, Respuesta{Respuesta::Que::Linea, QStringLiteral("día\n"), 0},
        Respuesta{Respuesta::Que::Aviso, QStringLiteral("ojo"), 0},
        Respuesta{Respuesta::Que::Fin, {}, 2}}) {
    const auto leida = leerRespuesta(escribir(r));
    EXPECT_TRUE(leida && *leida == r);
  }
  EXPECT_TRUE(esParar(escribirParar()));
}

TEST(Recado, LoQueNoEsUnRecadoSeRechaza) {
  for (const char* linea : {"", "{", "[]", "{\"que\":\"borrar\"}", "{\"que\":\"proceso\"}",
                            "{\"que\":\"proceso\",\"nombre\":\"../NOCHE\"}",
                            "{\"que\":\"proceso\",\"nombre\":\"N\",\"traza\":\"/tmp/X.CRO\"}",
                            "{\"que\":\"proceso\",\"nombre\":\"N\",\"traza\":\"..\\\\X.CRO\"}"})
    EXPECT_FALSE(leerPeticion(linea)) << linea;
  for (const char* linea : {"", "{}", "{\"fin\":\"0\"}", "{\"fin\":-1}", "{\"fin\":256}"})
    EXPECT_FALSE(leerRespuesta(linea)) << linea;
  EXPECT_FALSE(
      leerPeticion("{\"que\":\"alzar\",\"ventana\":\"" + QByteArray(kMayorRecado, 'x') + "\"}"));
}
