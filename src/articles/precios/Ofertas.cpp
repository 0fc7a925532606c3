#include "articles/precios/Ofertas.h"

#include <algorithm>

#include "articles/precios/TextosPrecios.h"

namespace tarvo::precios {

using dao::Transaccion;

namespace {

constexpr const char16_t* kDeClave = u"GRUPO=? AND SECCION=? AND CODIGO=?";

Oferta deFila(const dao::Recordset& rs) {
  Oferta o;
  o.clave = {static_cast<int>(rs.entero(0)), static_cast<int>(rs.entero(1)), rs.entero(2)};
  for (std::size_t nivel = 0; nivel < o.precios.size(); ++nivel)
    o.precios[nivel] = rs.entero(3 + static_cast<int>(nivel));
  o.desde = comoDia(rs.valor(6));
  o.hasta = comoDia(rs.valor(7));
  o.enviado = rs.logico(8);
  return o;
}

const char16_t* columnaDe(Extremo e) {
  return e == Extremo::Desde ? u"FECHA_INI" : u"FECHA_FIN";
}

const Dia& diaDe(const Oferta& o, Extremo e) {
  return e == Extremo::Desde ? o.desde : o.hasta;
}

bool cabe(const Oferta& o, Extremo e, const Dia& dia) {
  return (e == Extremo::Desde ? Vigencia::de(dia, o.hasta) : Vigencia::de(o.desde, dia))
      .has_value();
}

}  // namespace

Condicion FiltroOfertas::condicion(bool todosLosGrupos) const {
  Condicion c{QStringLiteral("borrado=0"), {}};
  const auto y = [&c](const char16_t* sql, const dao::Valor& valor) {
    c.sql += QStringLiteral(" AND ") + QString::fromUtf16(sql);
    c.parametros.push_back(valor);
  };
  if (desde) y(u"(FECHA_INI >= ?)", desde->dia());
  if (hasta) y(u"(FECHA_FIN <= ?)", hasta->dia());
  if (!todosLosGrupos) y(u"(OFERTAS.GRUPO = ?)", grupo);
  return c;
}

Resultado<std::vector<int>> Ofertas::gruposDe(int seccion) {
  return dao::reunir(
      db_.consultar(u"SELECT CODGPO FROM GRUPOS WHERE SECCION=? ORDER BY CODGPO", seccion),
      [](const dao::Recordset& fila) { return static_cast<int>(fila.entero(0)); });
}

Resultado<std::vector<Oferta>> Ofertas::leerVarias(const Condicion& condicion) {
  return dao::reunir(
      db_.OpenQuery(
          dao::conMarcas(u"SELECT GRUPO, SECCION, CODIGO, PRECIO_0, PRECIO_1, PRECIO_2, FECHA_INI, "
                         u"FECHA_FIN, enviado FROM OFERTAS WHERE {condicion}",
                         {{u"condicion", condicion.sql}}),
          condicion.parametros),
      deFila);
}

Resultado<std::optional<Oferta>> Ofertas::leer(const ClaveOferta& c) {
  const auto filas = leerVarias({QString::fromUtf16(kDeClave) + QStringLiteral(" AND borrado=0"),
                                 {c.grupo, c.seccion, c.codigo}});
  if (!filas) return std::unexpected(filas.error());
  if (filas->empty()) return std::nullopt;
  return filas->front();
}

// The group no longer holds the article as it should.
Resultado<> Ofertas::debeOir(const ClaveOferta& c) {
  TARVO_INTENTAR(db_.ejecutar(u"DELETE FROM [Cross] WHERE Secc=? AND plu=? AND Grupo=? AND borra=0",
                              c.seccion, c.codigo, c.grupo));
  return {};
}

// --- new ones, and prices

Resultado<std::vector<int>> Ofertas::ocupados(int seccion, qint64 codigo,
                                              std::span<const int> grupos) {
  std::vector<int> salida;
  for (const int grupo : grupos) {
    TARVO_TOMAR(const auto hay, leer({grupo, seccion, codigo}));
    if (hay) salida.push_back(grupo);
  }
  return salida;
}

Resultado<Ofertas::Alta> Ofertas::guardar(const OfertaNueva& oferta, std::span<const int> grupos) {
  TARVO_TOMAR(auto t, Transaccion::empezar(db_));
  Alta alta{oferta, {}};
  alta.grupos.reserve(grupos.size());
  for (const int grupo : grupos) {
    TARVO_TOMAR(auto antes, escribir(oferta, grupo));
    alta.grupos.push_back(std::move(antes));
  }
  TARVO_INTENTAR(t.confirmar());
  return alta;
}

// Also over a row waiting to be removed from the scales: it becomes visible again.
Resultado<Ofertas::Alta::Antes> Ofertas::escribir(const OfertaNueva& n, int grupo) {
  TARVO_TOMAR(const auto antes,
              leerVarias({QString::fromUtf16(kDeClave), {grupo, n.seccion, n.codigo}}));
  if (!antes.empty()) {
    TARVO_TOMAR(const auto ocultas,
                db_.ejecutar(u"UPDATE OFERTAS SET borrado=0 WHERE GRUPO=? AND SECCION=? AND "
                             u"CODIGO=? AND borrado",
                             grupo, n.seccion, n.codigo));
    TARVO_INTENTAR(cambiar(antes.front(), n.precios, n.vigencia.desde(), n.vigencia.hasta()));
    return Alta::Antes{grupo, antes.front(), ocultas > 0};
  }
  TARVO_INTENTAR(db_.ejecutar(
      u"INSERT INTO OFERTAS (GRUPO, SECCION, CODIGO, PRECIO_0, PRECIO_1, PRECIO_2, FECHA_INI, "
      u"FECHA_FIN, enviado, borrado) VALUES (?, ?, ?, ?, ?, ?, ?, ?, 0, 0)",
      grupo, n.seccion, n.codigo, n.precios[0], n.precios[1], n.precios[2],
      comoValor(n.vigencia.desde()), comoValor(n.vigencia.hasta())));
  return Alta::Antes{grupo};
}

Resultado<int> Ofertas::deshacer(const Alta& alta) {
  const OfertaNueva& n = alta.oferta;
  TARVO_TOMAR(auto t, Transaccion::empezar(db_));
  int fuera = 0;
  for (const Alta::Antes& antes : alta.grupos) {
    TARVO_TOMAR(const auto hoy, leer({antes.grupo, n.seccion, n.codigo}));
    const bool igual = hoy && hoy->precios == n.precios && hoy->desde == n.vigencia.desde() &&
                       hoy->hasta == n.vigencia.hasta();
    if (igual)
      TARVO_INTENTAR(volver(antes, *hoy));
    else
      ++fuera;
  }
  if (fuera == static_cast<int>(alta.grupos.size()))
    return fallo(Fallo::Restriccion, textos_(kTxOfertaCambiada));
  TARVO_INTENTAR(t.confirmar());
  return fuera;
}

// The scales may hold one that was hidden: it waits to be removed from them, as before.
Resultado<> Ofertas::volver(const Alta::Antes& antes, const Oferta& hoy) {
  if (!antes.fila)
    return quitar(
        {QString::fromUtf16(kDeClave), {hoy.clave.grupo, hoy.clave.seccion, hoy.clave.codigo}});
  TARVO_INTENTAR(cambiar(hoy, antes.fila->precios, antes.fila->desde, antes.fila->hasta));
  if (antes.oculta)
    TARVO_INTENTAR(db_.ejecutar(
        u"UPDATE OFERTAS SET borrado=1, enviado=1 WHERE GRUPO=? AND SECCION=? AND CODIGO=?",
        hoy.clave.grupo, hoy.clave.seccion, hoy.clave.codigo));
  return {};
}

Resultado<> Ofertas::cambiar(const Oferta& antes, const PreciosOferta& precios, const Dia& desde,
                             const Dia& hasta) {
  const bool enviado = antes.enviado && antes.precios == precios;
  TARVO_INTENTAR(db_.ejecutar(
      u"UPDATE OFERTAS SET PRECIO_0=?, PRECIO_1=?, PRECIO_2=?, FECHA_INI=?, FECHA_FIN=?, enviado=? "
      u"WHERE GRUPO=? AND SECCION=? AND CODIGO=?",
      precios[0], precios[1], precios[2], comoValor(desde), comoValor(hasta), enviado,
      antes.clave.grupo, antes.clave.seccion, antes.clave.codigo));
  const bool esperaDia = desde && *desde > reloj_.ahora();
  if (antes.enviado && (!enviado || esperaDia)) return debeOir(antes.clave);
  return {};
}

Resultado<Ofertas::CambioPrecios> Ofertas::ponerPrecios(const ClaveOferta& clave,
                                                        const PreciosOferta& precios, bool sincro) {
  TARVO_TOMAR(const auto antes, leer(clave));
  if (!antes) return fallo(Fallo::NoExiste, textos_(kTxOfertaQueFalta));
  CambioPrecios cambio{precios, antes->desde, antes->hasta, {*antes}};
  if (sincro) {
    TARVO_TOMAR(const auto hermanas,
                leerVarias({QStringLiteral("borrado=0 AND SECCION=? AND CODIGO=? AND GRUPO<>?"),
                            {clave.seccion, clave.codigo, clave.grupo}}));
    cambio.ofertas.insert(cambio.ofertas.end(), hermanas.begin(), hermanas.end());
  }
  TARVO_TOMAR(auto t, Transaccion::empezar(db_));
  for (const Oferta& o : cambio.ofertas)
    TARVO_INTENTAR(cambiar(o, precios, cambio.desde, cambio.hasta));
  TARVO_INTENTAR(t.confirmar());
  return cambio;
}

Resultado<int> Ofertas::deshacer(const CambioPrecios& cambio) {
  TARVO_TOMAR(auto t, Transaccion::empezar(db_));
  int fuera = 0;
  for (const Oferta& antes : cambio.ofertas) {
    TARVO_TOMAR(const auto hoy, leer(antes.clave));
    const bool igual = hoy && hoy->precios == cambio.precios && hoy->desde == cambio.desde &&
                       hoy->hasta == cambio.hasta;
    if (igual)
      TARVO_INTENTAR(cambiar(*hoy, antes.precios, antes.desde, antes.hasta));
    else if (&antes == &cambio.ofertas.front())
      return fallo(hoy ? Fallo::Restriccion : Fallo::NoExiste,
                   textos_(hoy ? kTxOfertaCambiada : kTxOfertaQueFalta));
    else
      ++fuera;
  }
  TARVO_INTENTAR(t.confirmar());
  return fuera;
}

// --- dates

Resultado<int> Ofertas::contar(const FiltroOfertas& filtro, bool todosLosGrupos) {
  TARVO_TOMAR(const auto ofertas, leerVarias(filtro.condicion(todosLosGrupos)));
  return static_cast<int>(ofertas.size());
}

Resultado<> Ofertas::ponerFecha(const Oferta& antes, Extremo extremo, const Dia& dia) {
  if (extremo == Extremo::Desde) return cambiar(antes, antes.precios, dia, antes.hasta);
  return cambiar(antes, antes.precios, antes.desde, dia);
}

Resultado<Ofertas::CambioFechas> Ofertas::cambiarFechas(const FiltroOfertas& filtro,
                                                        bool todosLosGrupos, Extremo extremo,
                                                        const Dia& dia) {
  TARVO_TOMAR(const auto ofertas, leerVarias(filtro.condicion(todosLosGrupos)));
  const auto malas =
      std::ranges::count_if(ofertas, [&](const Oferta& o) { return !cabe(o, extremo, dia); });
  if (malas > 0)
    return fallo(Fallo::Restriccion, Plural(textos_(kTxAcabanAntes), static_cast<int>(malas)));
  TARVO_TOMAR(auto t, Transaccion::empezar(db_));
  CambioFechas cambio{extremo, {}};
  for (const Oferta& o : ofertas) {
    cambio.filas.push_back({o.clave, diaDe(o, extremo)});
    TARVO_INTENTAR(ponerFecha(o, extremo, dia));
  }
  TARVO_INTENTAR(t.confirmar());
  return cambio;
}

Resultado<int> Ofertas::deshacer(const CambioFechas& cambio) {
  TARVO_TOMAR(auto t, Transaccion::empezar(db_));
  int hechas = 0;
  for (const auto& [clave, fecha] : cambio.filas) {
    TARVO_TOMAR(const auto ahora, leer(clave));
    if (!ahora || !cabe(*ahora, cambio.extremo, fecha)) continue;
    TARVO_INTENTAR(ponerFecha(*ahora, cambio.extremo, fecha));
    ++hechas;
  }
  TARVO_INTENTAR(t.confirmar());
  return hechas;
}

// --- deleting

Resultado<Condicion> Ofertas::iguales(const ClaveOferta& clave, bool todosLosGrupos) {
  if (!todosLosGrupos)
    return Condicion{QString::fromUtf16(kDeClave), {clave.grupo, clave.seccion, clave.codigo}};
  TARVO_TOMAR(const auto una, leer(clave));
  Condicion c{QStringLiteral("borrado=0 AND SECCION=? AND CODIGO=?"),
              {clave.seccion, clave.codigo}};
  if (!una) c.sql += QStringLiteral(" AND 0=1");
  for (const Extremo e : {Extremo::Desde, Extremo::Hasta}) {
    if (!una) break;
    const Dia& dia = diaDe(*una, e);
    const QString columna = QString::fromUtf16(columnaDe(e));
    c.sql += QStringLiteral(" AND ") +
             (dia ? QStringLiteral("%1=?") : QStringLiteral("isnull(%1)")).arg(columna);
    if (dia) c.parametros.emplace_back(*dia);
  }
  return c;
}

Resultado<int> Ofertas::contarIguales(std::span<const ClaveOferta> claves) {
  int suma = 0;
  for (const ClaveOferta& clave : claves) {
    TARVO_TOMAR(const auto c, iguales(clave, true));
    TARVO_TOMAR(const auto filas, leerVarias(c));
    suma += static_cast<int>(filas.size());
  }
  return suma;
}

// Those that the scales hold are hidden, the others go.
Resultado<> Ofertas::quitar(const Condicion& c) {
  for (const char16_t* orden : {u"DELETE FROM OFERTAS WHERE not enviado AND not borrado AND ",
                                u"UPDATE OFERTAS SET borrado=1 WHERE enviado AND not borrado AND "})
    TARVO_INTENTAR(db_.Execute(QString::fromUtf16(orden) + c.sql, c.parametros));
  return {};
}

Resultado<std::vector<Oferta>> Ofertas::borrar(std::span<const ClaveOferta> claves,
                                               bool todosLosGrupos) {
  TARVO_TOMAR(auto t, Transaccion::empezar(db_));
  std::vector<Oferta> idas;
  for (const ClaveOferta& clave : claves) {
    TARVO_TOMAR(const auto c, iguales(clave, todosLosGrupos));
    TARVO_TOMAR(const auto suyas,
                leerVarias({QStringLiteral("not borrado AND ") + c.sql, c.parametros}));
    idas.insert(idas.end(), suyas.begin(), suyas.end());
    TARVO_INTENTAR(quitar(c));
  }
  TARVO_INTENTAR(t.confirmar());
  return idas;
}

Resultado<int> Ofertas::reponer(std::span<const Oferta> borradas) {
  TARVO_TOMAR(auto t, Transaccion::empezar(db_));
  int fuera = 0;
  for (const Oferta& o : borradas) {
    TARVO_TOMAR(const auto vuelve, reponerUna(o));
    if (!vuelve) ++fuera;
  }
  TARVO_INTENTAR(t.confirmar());
  return fuera;
}

// One that still waits to be removed from the scales is shown again; of one that is gone they are
// told anew.
Resultado<bool> Ofertas::reponerUna(const Oferta& o) {
  const auto [grupo, seccion, codigo] = o.clave;
  TARVO_TOMAR(const auto espera,
              db_.ejecutar(u"UPDATE OFERTAS SET borrado=0 WHERE GRUPO=? AND SECCION=? AND CODIGO=? "
                           u"AND borrado",
                           grupo, seccion, codigo));
  if (espera > 0) return true;
  TARVO_TOMAR(
      const auto nuevas,
      db_.ejecutar(
          u"INSERT INTO OFERTAS (GRUPO, SECCION, CODIGO, PRECIO_0, PRECIO_1, PRECIO_2, "
          u"FECHA_INI, FECHA_FIN, enviado, borrado) SELECT CODGPO, ?, ?, ?, ?, ?, ?, ?, 0, 0 FROM "
          u"GRUPOS WHERE CODGPO=? AND NOT EXISTS (SELECT 1 FROM OFERTAS WHERE GRUPO=? AND "
          u"SECCION=? AND CODIGO=?)",
          seccion, codigo, o.precios[0], o.precios[1], o.precios[2], comoValor(o.desde),
          comoValor(o.hasta), grupo, grupo, seccion, codigo));
  return nuevas > 0;
}

}  // namespace tarvo::precios
