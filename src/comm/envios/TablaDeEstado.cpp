#include "comm/envios/TablaDeEstado.h"

#include <algorithm>

namespace tarvo::envios {

using namespace Qt::StringLiterals;

dao::Origen listaEstados() {
  return {.desde = u"EstadoDeEnvio"_s, .identidad = u"CODPLU"_s, .orden = u"CODPLU"_s};
}

dao::Origen listaEstados(Situacion cual) {
  dao::Origen o = listaEstados();
  o.filtro = u"SITUACION=?"_s;
  o.parametros = {static_cast<int>(cual)};
  return o;
}

dao::Origen listaEstadosSalvo(Situacion cual) {
  dao::Origen o = listaEstados(cual);
  o.filtro = u"SITUACION<>?"_s;
  return o;
}

Resultado<bool> TablaDeEstado::paso(Trabajo::Avance& avance) {
  constexpr size_t kFilasPorPaso = 500;
  if (!hecha_) {
    TARVO_INTENTAR(db_.ejecutar(u"DROP TABLE IF EXISTS EstadoDeEnvio"));
    TARVO_INTENTAR(
        db_.ejecutar(u"CREATE TEMP TABLE EstadoDeEnvio (CODPLU INTEGER PRIMARY KEY, NOMPLU TEXT, "
                     u"SITUACION INTEGER, DESDE REAL, MOTIVO TEXT)"));
    hecha_ = true;
  }
  TARVO_TOMAR(auto tr, dao::Transaccion::empezar(db_));
  const size_t fin = std::min(articulos_.size(), hechos_ + kFilasPorPaso);
  for (; hechos_ < fin; ++hechos_) {
    const EstadoArticulo& a = articulos_[hechos_];
    TARVO_INTENTAR(db_.ejecutar(
        u"INSERT INTO EstadoDeEnvio (CODPLU, NOMPLU, SITUACION, DESDE, MOTIVO) VALUES (?, ?, ?, ?, "
        u"?)",
        a.codigo, a.nombre, static_cast<int>(a.situacion),
        a.desde ? dao::Valor(*a.desde) : dao::Valor(), a.motivo));
  }
  TARVO_INTENTAR(tr.confirmar());
  avance.hechos = static_cast<qint64>(hechos_);
  avance.total = static_cast<qint64>(articulos_.size());
  return hechos_ < articulos_.size();
}

}  // namespace tarvo::envios
