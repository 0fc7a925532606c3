#include "articles/Catalogo.h"

#include "articles/TextosArticles.h"

namespace tarvo::articles {

using dao::Busca;
using dao::Transaccion;

namespace {

Resultado<std::unique_ptr<dao::Recordset>> abrir(dao::Database& db) {
  return db.OpenTable(u"PLUSES", u"PrimaryKey");
}

constexpr size_t kPorLectura = 250;  // codes per query

const QString& leerVariosSql() {
  static const QString sql = dao::conMarcas(
      u"SELECT {columnas} FROM PLUSES WHERE SECCION=? AND CODPLU IN ({codigos}) ORDER BY CODPLU",
      {{u"columnas", columnasArticulo().join(QStringLiteral(", "))},
       {u"codigos", QStringLiteral("?, ").repeated(kPorLectura).chopped(2)}});
  return sql;
}

}  // namespace

Catalogo::Catalogo(dao::Database& db, const Textos& textos, Reloj& reloj, QString quien)
    : db_(db), textos_(textos), reloj_(reloj), quien_(std::move(quien)), cambios_(db) {}

std::unexpected<Error> Catalogo::intocable() const {
  return fallo(Fallo::Restriccion, textos_(kTxIntocables));
}

Resultado<std::optional<Articulo>> Catalogo::leer(ClaveArticulo clave) {
  TARVO_TOMAR(auto rs, abrir(db_));
  TARVO_TOMAR(const auto hay, rs->Seek(Busca::Igual, clave.seccion, clave.codigo));
  if (!hay) return std::nullopt;
  return ColumnasArticulo(*rs).leer(*rs);
}

Resultado<std::vector<Articulo>> Catalogo::leerVarios(std::span<const ClaveArticulo> claves) {
  std::vector<Articulo> salida;
  for (size_t i = 0; i < claves.size();) {
    const int seccion = claves[i].seccion;
    std::vector<dao::Valor> valores{seccion};
    for (; i < claves.size() && claves[i].seccion == seccion && valores.size() <= kPorLectura; ++i)
      valores.emplace_back(claves[i].codigo);
    valores.resize(kPorLectura + 1, valores.back());
    TARVO_TOMAR(const auto filas, db_.OpenQuery(leerVariosSql(), valores));
    const ColumnasArticulo columnas(*filas);
    TARVO_INTENTAR(dao::recorrer(
        *filas, [&](const dao::Recordset& fila) { salida.push_back(columnas.leer(fila)); }));
  }
  return salida;
}

Resultado<std::optional<ClaveArticulo>> Catalogo::vecino(ClaveArticulo clave, int pasos) {
  const auto [seccion, codigo] = clave;
  TARVO_TOMAR(
      const auto otro,
      db_.uno(pasos > 0 ? u"SELECT min(CODPLU) FROM PLUSES WHERE SECCION=? AND CODPLU>? AND "
                          u"CODPLU>2"
                        : u"SELECT max(CODPLU) FROM PLUSES WHERE SECCION=? AND CODPLU<? AND "
                          u"CODPLU>2",
              seccion, codigo));
  return otro.nulo() ? std::nullopt : std::optional(ClaveArticulo{seccion, otro.entero()});
}

// The offers of a deleted article stay, in case it is restored.
Resultado<> Catalogo::crear(const Articulo& articulo, const QString& ventana) {
  if (articulo.clave.deSistema()) return intocable();
  TARVO_TOMAR(auto t, Transaccion::empezar(db_));
  TARVO_TOMAR(auto rs, abrir(db_));
  rs->AddNew();
  ColumnasArticulo(*rs).poner(*rs, articulo);
  TARVO_INTENTAR(rs->Update());
  TARVO_INTENTAR(cambios_.ArticuloLlega(articulo.clave));
  TARVO_INTENTAR(anotarPrecios(articulo.clave, {}, articulo.precios, ventana));
  cambios_.recordar(articulo.clave, std::nullopt);
  return t.confirmar();
}

Resultado<> Catalogo::modificar(ClaveArticulo clave, const Articulo& articulo,
                                const QString& ventana) {
  if (clave.deSistema() || articulo.clave.deSistema()) return intocable();
  TARVO_TOMAR(auto t, Transaccion::empezar(db_));
  TARVO_TOMAR(auto rs, abrir(db_));
  TARVO_TOMAR(const auto hay, rs->Seek(Busca::Igual, clave.seccion, clave.codigo));
  if (!hay) return fallo(Fallo::NoExiste, textos_(kTxArticuloBorrado));
  const ColumnasArticulo columnas(*rs);
  const Articulo antes = columnas.leer(*rs);
  rs->Edit();
  columnas.poner(*rs, articulo);
  TARVO_INTENTAR(rs->Update());
  TARVO_INTENTAR(anotarPrecios(clave, antes.precios, articulo.precios, ventana));
  TARVO_INTENTAR(cambios_.ArticuloCambiado(clave.seccion, articulo.clave.codigo));
  cambios_.recordar(clave, antes);
  if (articulo.clave != clave) cambios_.recordar(articulo.clave, std::nullopt);
  if (articulo.clave != clave) TARVO_INTENTAR(cambiarDeCodigo(clave, articulo.clave.codigo));
  return t.confirmar();
}

// What depends on the old code follows.
Resultado<> Catalogo::cambiarDeCodigo(ClaveArticulo clave, qint64 nuevo) {
  const auto [seccion, codigo] = clave;
  TARVO_INTENTAR(cambios_.ArticuloLlega({seccion, nuevo}));
  TARVO_INTENTAR(
      db_.ejecutar(u"UPDATE OFERTAS SET CODIGO=?, enviado=0 WHERE SECCION=? AND CODIGO=?", nuevo,
                   seccion, codigo));
  TARVO_INTENTAR(db_.ejecutar(u"UPDATE HistoriaPrecios SET CODPLU=? WHERE SECCION=? AND CODPLU=?",
                              nuevo, seccion, codigo));
  return cambios_.MarcarArticuloBorrado(seccion, codigo, true);
}

Resultado<> Catalogo::ponerPrecios(ClaveArticulo clave, const Precios& precios,
                                   const QString& ventana) {
  TARVO_TOMAR(auto articulo, leer(clave));
  if (!articulo) return fallo(Fallo::NoExiste, textos_(kTxArticuloBorrado));
  if (articulo->precios == precios) return {};
  articulo->precios = precios;
  return modificar(clave, *articulo, ventana);
}

Resultado<> Catalogo::volver(const Articulo& antes, const Articulo& ahora, const QString& ventana) {
  TARVO_TOMAR(const auto hoy, leer(ahora.clave));
  if (!hoy) return fallo(Fallo::NoExiste, textos_(kTxArticuloBorrado));
  const auto vuelto = sinElCambio(*hoy, antes, ahora);
  if (!vuelto) return fallo(Fallo::Restriccion, textos_(kTxCambiadoDespues));
  return modificar(ahora.clave, *vuelto, ventana);
}

Resultado<bool> Catalogo::cambiadoDespues(const Articulo& antes, const Articulo& ahora) {
  TARVO_TOMAR(const auto hoy, leer(ahora.clave));
  return hoy && *hoy != ahora && sinElCambio(*hoy, antes, ahora).has_value();
}

Resultado<std::vector<int>> Catalogo::seccionesQueDifieren() {
  std::set<int> difieren;
  for (const int seccion : cambios_.SeccionesModificadas())
    if (cambios_.cambiada(seccion)) difieren.insert(seccion);
  for (const auto& [clave, antes] : cambios_.recordados()) {
    if (difieren.contains(clave.seccion)) continue;
    TARVO_TOMAR(const auto hoy, leer(clave));
    if (hoy != antes) difieren.insert(clave.seccion);
  }
  std::vector<int> salida;
  for (const int seccion : cambios_.SeccionesModificadas())
    if (difieren.contains(seccion)) salida.push_back(seccion);
  return salida;
}

Resultado<int> Catalogo::borrar(std::span<const ClaveArticulo> claves) {
  TARVO_TOMAR(auto t, Transaccion::empezar(db_));
  int borrados = 0;
  for (const ClaveArticulo& c : claves) {
    if (c.deSistema()) continue;
    TARVO_TOMAR(const auto antes, leer(c));
    TARVO_TOMAR(const auto n, db_.ejecutar(u"DELETE FROM PLUSES WHERE SECCION=? AND CODPLU=?",
                                           c.seccion, c.codigo));
    if (n == 0) continue;
    TARVO_INTENTAR(cambios_.MarcarArticuloBorrado(c.seccion, c.codigo, true));
    cambios_.recordar(c, antes);
    ++borrados;
  }
  TARVO_INTENTAR(t.confirmar());
  return borrados;
}

Resultado<std::vector<ClaveArticulo>> Catalogo::copiar(std::span<const ClaveArticulo> claves,
                                                       int destino, const QString& ventana) {
  return trasladar(claves, destino,
                   [&](const Articulo& a) { return copiarUno(a, destino, ventana); });
}

Resultado<std::vector<ClaveArticulo>> Catalogo::mover(std::span<const ClaveArticulo> claves,
                                                      int destino) {
  return trasladar(claves, destino, [&](const Articulo& a) { return moverUno(a.clave, destino); });
}

Resultado<std::vector<ClaveArticulo>> Catalogo::trasladar(std::span<const ClaveArticulo> claves,
                                                          int destino, const Trasladar& como) {
  TARVO_TOMAR(auto t, Transaccion::empezar(db_));
  std::vector<ClaveArticulo> fuera;
  for (const ClaveArticulo& c : claves) {
    TARVO_TOMAR(const auto articulo, leer(c));
    if (!articulo) return fallo(Fallo::NoExiste, textos_(kTxArticuloBorrado));
    TARVO_TOMAR(const auto hay, leer({destino, c.codigo}));
    const auto hecho = hay || c.deSistema() ? fallo(Fallo::Duplicado, {}) : como(*articulo);
    if (hecho) continue;
    if (hecho.error().clase != Fallo::Duplicado) return std::unexpected(hecho.error());
    fuera.push_back(c);
  }
  TARVO_INTENTAR(t.confirmar());
  return fuera;
}

Resultado<> Catalogo::copiarUno(Articulo articulo, int destino, const QString& ventana) {
  TARVO_TOMAR(auto rs, abrir(db_));
  articulo.clave.seccion = destino;
  rs->AddNew();
  ColumnasArticulo(*rs).poner(*rs, articulo);
  TARVO_INTENTAR(rs->Update());
  TARVO_INTENTAR(cambios_.ArticuloLlega(articulo.clave));
  return anotarPrecios(articulo.clave, {}, articulo.precios, ventana);
}

// The groups of its old section must delete it.
Resultado<> Catalogo::moverUno(ClaveArticulo origen, int destino) {
  const auto [seccion, codigo] = origen;
  TARVO_INTENTAR(db_.ejecutar(u"UPDATE PLUSES SET SECCION=? WHERE SECCION=? AND CODPLU=?", destino,
                              seccion, codigo));
  TARVO_INTENTAR(cambios_.ArticuloLlega({destino, codigo}));
  TARVO_INTENTAR(db_.ejecutar(u"UPDATE HistoriaPrecios SET SECCION=? WHERE SECCION=? AND CODPLU=?",
                              destino, seccion, codigo));
  return cambios_.ArticuloSale(seccion, codigo);
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
