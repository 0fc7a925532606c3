#include "comm/tareas/Repertorio.h"

#include <utility>

#include "comm/tareas/Fabricas.h"

namespace tarvo::tareas {

namespace {

using Fabrica = Curso (*)(const motor::DatosTarea&, const motor::Entorno&);

Fabrica fabricaDe(TipoTarea tarea) {
  switch (tarea) {
    case TipoTarea::TxPlus:
      return crearTxPlus;
    case TipoTarea::TxZero:
      return crearTxZero;
    case TipoTarea::TxHora:
      return crearTxHora;
    case TipoTarea::TxCerr:
      return crearTxCerr;
    case TipoTarea::BorrPlu:
      return crearBorrPlu;
    case TipoTarea::TPreci:
      return crearTPreci;
    case TipoTarea::RxPlus:
      return crearRxPlus;
    case TipoTarea::RxGrTot:
      return crearRxGrTot;
    case TipoTarea::RxOpera:
      return crearRxOpera;
    case TipoTarea::RxDepar:
      return crearRxDepar;
    case TipoTarea::RxHorar:
      return crearRxHorar;
    case TipoTarea::RxOpHor:
      return crearRxOpHor;
    case TipoTarea::RxPedid:
      return crearRxPedid;
    case TipoTarea::RxInven:
      return crearRxInven;
    case TipoTarea::RxDatPlu:
      return crearRxDatPlu;
    case TipoTarea::TxTecla:
    case TipoTarea::TxTick:
    case TipoTarea::TxCnfig:
    case TipoTarea::TxCfBal:
    case TipoTarea::TxEtiq:
      return crearEnvioConfig;
  }
  std::unreachable();
}

}  // namespace

motor::RepertorioTareas repertorio() {
  motor::RepertorioTareas r;
  for (motor::ClaseTarea& c : motor::TablaClases()) {
    c.crear = fabricaDe(c.tarea);
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

std::vector<QString> tablasDeGrupo() {
  return {QStringLiteral("ListasRecibidas")};
}

Resultado<> olvidarGrupo(dao::Database& db, int grupo) {
  TARVO_INTENTAR(db.ejecutar(u"DELETE FROM ListasRecibidas WHERE GRUPO=?", grupo));
  return {};
}

}  // namespace tarvo::tareas
