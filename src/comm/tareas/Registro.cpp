#include "comm/tareas/Registro.h"

#include "comm/tareas/Fabricas.h"

namespace tarvo::tareas {

motor::RegistroTareas registro() {
  struct Fabrica {
    int numero;
    Trabajo (*crear)(const motor::DatosTarea&, const motor::Entorno&);
  };
  constexpr Fabrica kFabricas[] = {{1, crearTxPlus},    {10, crearBorrPlu}, {11, crearTPreci},
                                   {24, crearRxDatPlu}, {6, crearTxZero},   {7, crearTxHora},
                                   {9, crearTxCerr},    {16, crearRxPlus},  {17, crearRxGrTot},
                                   {18, crearRxOpera},  {19, crearRxDepar}, {20, crearRxHorar},
                                   {21, crearRxOpHor},  {22, crearRxPedid}, {23, crearRxInven}};
  motor::RegistroTareas r;
  for (motor::ClaseTarea& c : motor::TablaClases()) {
    for (const Fabrica& f : kFabricas)
      if (f.numero == c.numero) c.crear = f.crear;
    r.anadir(std::move(c));
  }
  return r;
}

namespace {

constexpr QStringView kGuion =
    uR"(
CREATE TABLE IF NOT EXISTS ListasRecibidas (
  GRUPO INTEGER NOT NULL, CLASE INTEGER NOT NULL, NUMERO INTEGER NOT NULL, HUELLA TEXT, LINEAS INTEGER DEFAULT 0,
  OLVIDADA INTEGER DEFAULT 0,
  PRIMARY KEY (CLASE, NUMERO));
)";

}  // namespace

dao::TablasDeSala tablasTareas() {
  return {.sala = QStringLiteral("tareas"), .pasos = {{1, kGuion.toString()}}, .copias = {}};
}

Resultado<> asegurarTablasTareas(dao::Database& db) {
  return dao::darPasos(db, {tablasTareas()});
}

}  // namespace tarvo::tareas
