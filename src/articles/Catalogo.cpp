#include "articles/Catalogo.h"

#include "articles/TextosArticles.h"

namespace tarvo::articles {

using dao::Busca;
using dao::Transaccion;

namespace {

Resultado<std::unique_ptr<dao::Recordset>> abrir(dao::Database& db) {
  return db.OpenTable(u"PLUSES", u"PrimaryKey");
}

}  // namespace

Catalogo::Catalogo(dao::Database& db, const Textos& textos, Reloj& reloj, QString quien)
    : db_(db), textos_(textos), reloj_(reloj), quien_(std::move(quien)), cambios_(db) {}

std::unexpected<Error> Catalogo::intocable() const {
  return fallo(Fallo::Restriccion, textos_(kTxIntocables));
}

Resultado<std::optional<Articulo>> Catalogo::leer(ClaveArticulo clave) {
  auto rs = abrir(db_);
  if (!rs) return std::unexpected(rs.error());
  const auto hay = (*rs)->Seek(Busca::Igual, clave.seccion, clave.codigo);
  if (!hay) return std::unexpected(hay.error());
  if (!*hay) return std::nullopt;
  return ColumnasArticulo(**rs).leer(**rs);
}

Resultado<> Catalogo::crear(const Articulo& articulo, const QString& ventana) {
  if (articulo.clave.deSistema()) return intocable();
  auto t = Transaccion::empezar(db_);
  if (!t) return std::unexpected(t.error());
  auto rs = abrir(db_);
  if (!rs) return std::unexpected(rs.error());
  (*rs)->AddNew();
  ColumnasArticulo(**rs).poner(**rs, articulo);
  TARVO_INTENTAR((*rs)->Update());
  TARVO_INTENTAR(anotarPrecios(articulo.clave, {}, articulo.precios, ventana));
  TARVO_INTENTAR(cambios_.ArticuloCambiado(articulo.clave.seccion, articulo.clave.codigo));
  return t->confirmar();
}

Resultado<> Catalogo::modificar(ClaveArticulo clave, const Articulo& articulo,
                                const QString& ventana) {
  if (clave.deSistema() || articulo.clave.deSistema()) return intocable();
  auto t = Transaccion::empezar(db_);
  if (!t) return std::unexpected(t.error());
  auto rs = abrir(db_);
  if (!rs) return std::unexpected(rs.error());
  const auto hay = (*rs)->Seek(Busca::Igual, clave.seccion, clave.codigo);
  if (!hay) return std::unexpected(hay.error());
  if (!*hay) return fallo(Fallo::NoExiste, textos_(kTxArticuloBorrado));
  const ColumnasArticulo columnas(**rs);
  const Precios antes = columnas.leer(**rs).precios;
  (*rs)->Edit();
  columnas.poner(**rs, articulo);
  TARVO_INTENTAR((*rs)->Update());
  if (articulo.clave != clave) {
    const qint64 nuevo = articulo.clave.codigo;
    TARVO_INTENTAR(
        db_.ejecutar(u"UPDATE OFERTAS SET CODIGO=?, enviado=0 WHERE SECCION=? AND CODIGO=?", nuevo,
                     clave.seccion, clave.codigo));
    TARVO_INTENTAR(db_.ejecutar(u"UPDATE HistoriaPrecios SET CODPLU=? WHERE SECCION=? AND CODPLU=?",
                                nuevo, clave.seccion, clave.codigo));
  }
  TARVO_INTENTAR(anotarPrecios(articulo.clave, antes, articulo.precios, ventana));
  TARVO_INTENTAR(cambios_.ArticuloCambiado(articulo.clave.seccion, articulo.clave.codigo));
  if (articulo.clave != clave)
    TARVO_INTENTAR(cambios_.MarcarArticuloBorrado(clave.seccion, clave.codigo, true));
  return t->confirmar();
}

Resultado<> Catalogo::ponerPrecios(ClaveArticulo clave, const Precios& precios,
                                   const QString& ventana) {
  auto articulo = leer(clave);
  if (!articulo) return std::unexpected(articulo.error());
  if (!*articulo) return fallo(Fallo::NoExiste, textos_(kTxArticuloBorrado));
  if ((*articulo)->precios == precios) return {};
  (*articulo)->precios = precios;
  return modificar(clave, **articulo, ventana);
}

Resultado<int> Catalogo::borrar(std::span<const ClaveArticulo> claves) {
  auto t = Transaccion::empezar(db_);
  if (!t) return std::unexpected(t.error());
  int borrados = 0;
  for (const ClaveArticulo& c : claves) {
    if (c.deSistema()) continue;
    const auto n =
        db_.ejecutar(u"DELETE FROM PLUSES WHERE SECCION=? AND CODPLU=?", c.seccion, c.codigo);
    if (!n) return std::unexpected(n.error());
    if (*n == 0) continue;
    TARVO_INTENTAR(cambios_.MarcarArticuloBorrado(c.seccion, c.codigo, true));
    cambios_.MarcarSeccion(c.seccion);
    ++borrados;
  }
  TARVO_INTENTAR(t->confirmar());
  return borrados;
}

Resultado<std::vector<ClaveArticulo>> Catalogo::copiar(std::span<const ClaveArticulo> claves,
                                                       int destino) {
  return trasladar(claves, destino, &Catalogo::copiarUno);
}

Resultado<std::vector<ClaveArticulo>> Catalogo::mover(std::span<const ClaveArticulo> claves,
                                                      int destino) {
  return trasladar(claves, destino, &Catalogo::moverUno);
}

Resultado<std::vector<ClaveArticulo>> Catalogo::trasladar(std::span<const ClaveArticulo> claves,
                                                          int destino, Trasladar como) {
  auto t = Transaccion::empezar(db_);
  if (!t) return std::unexpected(t.error());
  std::vector<ClaveArticulo> fuera;
  for (const ClaveArticulo& c : claves) {
    const auto hay = leer({destino, c.codigo});
    if (!hay) return std::unexpected(hay.error());
    if (*hay || c.deSistema()) {
      fuera.push_back(c);
      continue;
    }
    const auto r = (this->*como)(c, destino);
    if (r) continue;
    if (r.error().clase != Fallo::Duplicado) return std::unexpected(r.error());
    fuera.push_back(c);  // its bar code stands there already
  }
  TARVO_INTENTAR(t->confirmar());
  return fuera;
}

Resultado<> Catalogo::copiarUno(ClaveArticulo origen, int destino) {
  auto articulo = leer(origen);
  if (!articulo) return std::unexpected(articulo.error());
  if (!*articulo) return fallo(Fallo::NoExiste, textos_(kTxArticuloBorrado));
  auto rs = abrir(db_);
  if (!rs) return std::unexpected(rs.error());
  (*articulo)->clave.seccion = destino;
  (*rs)->AddNew();
  ColumnasArticulo(**rs).poner(**rs, **articulo);
  return (*rs)->Update();
}

// The groups of the section that it leaves must delete it; those of the other one have no row of
// it, so it is due there.
Resultado<> Catalogo::moverUno(ClaveArticulo origen, int destino) {
  TARVO_INTENTAR(db_.ejecutar(u"UPDATE PLUSES SET SECCION=? WHERE SECCION=? AND CODPLU=?", destino,
                              origen.seccion, origen.codigo));
  return cambios_.ArticuloSale(origen.seccion, origen.codigo);
}

Resultado<> Catalogo::anotarPrecios(ClaveArticulo clave, const Precios& antes, const Precios& ahora,
                                    const QString& ventana) {
  for (std::size_t nivel = 0; nivel < kNiveles; ++nivel)
    for (std::size_t tarifa = 0; tarifa < kTarifas; ++tarifa) {
      const qint64 de = antes[nivel][tarifa], a = ahora[nivel][tarifa];
      if (de == a) continue;
      TARVO_INTENTAR(db_.ejecutar(
          u"INSERT INTO HistoriaPrecios (SECCION, CODPLU, NIVEL, TARIFA, ANTES, AHORA, CUANDO, "
          u"QUIEN, VENTANA) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)",
          clave.seccion, clave.codigo, static_cast<int>(nivel), static_cast<int>(tarifa), de, a,
          reloj_.ahora(), quien_, ventana));
    }
  return {};
}

}  // namespace tarvo::articles
