#include "articles/Existencias.h"

#include <algorithm>
#include <cmath>

namespace tarvo::articles {

namespace {

constexpr std::array<std::pair<const char16_t*, qint64 Existencia::*>, 6> kContadores{
    {{u"Inicial", &Existencia::inicial},
     {u"Compra", &Existencia::compra},
     {u"Venta", &Existencia::venta},
     {u"Entrada", &Existencia::entrada},
     {u"Salida", &Existencia::salida},
     {u"Merma", &Existencia::merma}}};

Resultado<> ponerUna(dao::Database& db, ClaveArticulo clave, const Existencia& antes,
                     const Existencia& ahora) {
  TARVO_TOMAR(auto rs, db.OpenTable(u"MovsAlm", u"PLU"));
  TARVO_TOMAR(const auto hay,
              rs->Seek(dao::Busca::Igual, clave.seccion, clave.codigo, ahora.almacen));
  hay ? rs->Edit() : rs->AddNew();
  if (!hay) {
    rs->poner(rs->columna(u"CODALM"), ahora.almacen);
    rs->poner(rs->columna(u"SECCION"), clave.seccion);
    rs->poner(rs->columna(u"CODIGO"), clave.codigo);
  }
  for (const auto& [columna, contador] : kContadores)
    if (!hay || antes.*contador != ahora.*contador)
      rs->poner(rs->columna(columna), ahora.*contador);
  return rs->Update();
}

}  // namespace

qint64 Existencia::valoracion(int cada, qint64 coste) const {
  const double valor = static_cast<double>(actual()) * static_cast<double>(coste);
  return std::llround(cada == kPorUnidad ? valor : valor / 1000);
}

Resultado<std::vector<Existencia>> leerExistencias(dao::Database& db, ClaveArticulo clave) {
  return dao::reunir(
      db.consultar(
          u"SELECT a.CODALM, a.NOMALM, m.Inicial, m.Compra, m.Venta, m.Entrada, m.Salida, m.Merma "
          u"FROM ALMACEN AS a LEFT JOIN MovsAlm AS m ON (m.CODALM=a.CODALM) AND (m.SECCION=?) AND "
          u"(m.CODIGO=?) ORDER BY a.CODALM",
          clave.seccion, clave.codigo),
      [](const dao::Recordset& fila) {
        Existencia e{.almacen = static_cast<int>(fila.entero(0)), .nombre = fila.texto(1)};
        for (size_t i = 0; i < kContadores.size(); ++i)
          e.*kContadores[i].second = fila.entero(static_cast<int>(i) + 2);
        return e;
      });
}

Resultado<> ponerExistencias(dao::Database& db, ClaveArticulo clave,
                             std::span<const Existencia> antes, std::span<const Existencia> ahora) {
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(db));
  for (const Existencia& e : ahora) {
    const auto vieja = std::ranges::find(antes, e.almacen, &Existencia::almacen);
    const Existencia cero{.almacen = e.almacen, .nombre = e.nombre};
    TARVO_INTENTAR(ponerUna(db, clave, vieja == antes.end() ? cero : *vieja, e));
  }
  return t.confirmar();
}

}  // namespace tarvo::articles
