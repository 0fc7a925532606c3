#include "comm/envios/Estado.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

#include "comm/envios/Motivos.h"
#include "comm/envios/Tenencias.h"
#include "comm/envios/TextosEnvios.h"
#include "core/dao/Recorrido.h"

namespace tarvo::envios {

namespace {

struct Confirmado {
  std::optional<Huella> huella;
  Fecha cuando;
};
struct NoEnviado {
  QString motivo;
  int error = 0;
  Fecha desde;
};

// The rows of one group.
struct Sabido {
  std::unordered_map<qint64, Confirmado> enviados;
  std::unordered_map<qint64, NoEnviado> retenidos;
  std::unordered_set<qint64> pendientes;
  std::vector<qint64> sobrantes;
};

// While a wipe is unanswered, or after a change of machine, nothing is proved.
Resultado<> leerEnviados(dao::Database& db, const Destino& d, const Mudanza& m, Sabido& s) {
  return dao::recorrer(
      db.consultar(u"SELECT CODPLU, HUELLA, HUELLA_PRE, CUANDO FROM Enviados WHERE GRUPO=? AND "
                   u"SECCION=?",
                   d.grupo, d.seccion),
      [&](const dao::Recordset& rs) {
        Confirmado& c = s.enviados[rs.entero(0)];
        c.cuando = rs.fecha(3);
        if (!rs.nulo(1) && !rs.nulo(2) && !m.borrando && !m.maquina)
          c.huella = Huella{rs.entero(1), rs.entero(2)};
      });
}

Resultado<> leerSobrantes(dao::Database& db, const Destino& d, Sabido& s) {
  TARVO_INTENTAR(dao::recorrer(
      db.consultar(
          u"SELECT DISTINCT CODPLU FROM Enviados WHERE GRUPO=? AND CODPLU>2 AND NOT EXISTS "
          u"(SELECT 1 FROM PLUSES WHERE PLUSES.SECCION=? AND "
          u"PLUSES.CODPLU=Enviados.CODPLU)",
          d.grupo, d.seccion),
      [&](const dao::Recordset& rs) { s.sobrantes.push_back(rs.entero(0)); }));
  TARVO_TOMAR(auto marcados, articulosPorBorrar(db, d));
  s.sobrantes.insert(s.sobrantes.end(), marcados.begin(), marcados.end());
  std::ranges::sort(s.sobrantes);
  s.sobrantes.erase(std::ranges::unique(s.sobrantes).begin(), s.sobrantes.end());
  return {};
}

Resultado<Sabido> leerSabido(dao::Database& db, const Destino& d, Fecha ahora) {
  Sabido s;
  TARVO_TOMAR(const auto mudanza, mudanzaDe(db, d));
  TARVO_INTENTAR(leerEnviados(db, d, mudanza, s));
  TARVO_INTENTAR(leerSobrantes(db, d, s));
  TARVO_INTENTAR(dao::recorrer(
      db.consultar(
          u"SELECT CODPLU, MOTIVO, ERROR, DESDE FROM Retenidos WHERE GRUPO=? AND SECCION=?",
          d.grupo, d.seccion),
      [&](const dao::Recordset& rs) {
        s.retenidos[rs.entero(0)] = {rs.texto(1), static_cast<int>(rs.entero(2)), rs.fecha(3)};
      }));
  if (!d.conCross()) return s;
  TARVO_TOMAR(const auto pendientes, mudanza.tarifa || mudanza.maquina
                                         ? todosLosArticulos(db, d, {})
                                         : SaltarSinCambios(db, d, {}, ahora));
  s.pendientes.insert(pendientes.begin(), pendientes.end());
  return s;
}

EstadoArticulo juzgar(const Preparado& p, const Destino& d, const Sabido& s, const Textos& textos) {
  EstadoArticulo e{p.codigo, p.nombre, Situacion::Pendiente, {}, {}};
  const auto retenido = s.retenidos.find(p.codigo);
  const auto enviado = s.enviados.find(p.codigo);
  const std::optional<Huella> suya =
      enviado == s.enviados.end() ? std::nullopt : enviado->second.huella;
  if (!p.registro) {
    e.situacion = Situacion::Retenido;
    e.motivo = motivoDe(p.registro.error(), textos);
    if (retenido != s.retenidos.end()) e.desde = retenido->second.desde;
    return e;
  }
  const bool probado = suya && *suya == huellaDe(d.tipo, *p.registro);
  const bool pendiente = d.conCross() ? s.pendientes.contains(p.codigo) : !probado;
  if (pendiente && retenido != s.retenidos.end() && retenido->second.error != 0) {
    e.situacion = Situacion::Rechazado;
    e.motivo = retenido->second.motivo;
    e.desde = retenido->second.desde;
  } else if (!pendiente) {
    e.situacion = probado ? Situacion::AlDia : suya ? Situacion::Distinto : Situacion::SinPrueba;
    if (enviado != s.enviados.end()) e.desde = enviado->second.cuando;
  }
  return e;
}

constexpr size_t kEncargosMaximos = 20;

// Runs of articles that are adjacent in the catalogue.
Resultado<std::vector<Encargo>> tramos(dao::Database& db, const Destino& d,
                                       std::span<const qint64> codigos) {
  TARVO_TOMAR(const auto todos, todosLosArticulos(db, d, {codigos.front(), codigos.back()}));
  std::vector<Encargo> salida;
  bool seguido = false;
  for (const qint64 c : todos) {
    const bool elegido = std::ranges::binary_search(codigos, c);
    if (elegido && seguido)
      salida.back().rango.hasta = c;
    else if (elegido)
      salida.push_back({true, {c, c}});
    seguido = elegido;
  }
  if (salida.size() > kEncargosMaximos)
    return std::vector<Encargo>{{true, {salida.front().rango.desde, salida.back().rango.hasta}}};
  return salida;
}

}  // namespace

Resultado<std::optional<Destino>> destinoDeGrupo(dao::Database& db, int grupo) {
  TARVO_TOMAR(const auto rs,
              db.consultar(u"SELECT SECCION, TIPO, tarifa FROM GRUPOS WHERE CODGPO=?", grupo));
  if (rs->Eof()) return std::nullopt;
  const auto entero = [&](int c) { return static_cast<int>(rs->entero(c)); };
  const auto tipo = deNumero<TipoGrupo>(rs->entero(1));
  if (!tipo) return std::nullopt;
  return Destino{grupo, entero(0), *tipo, std::clamp(entero(2), 0, 7)};
}

Resultado<std::vector<EstadoArticulo>> estadoDeEnvio(dao::Database& db, const Destino& d,
                                                     const Textos& textos, Fecha ahora) {
  TARVO_TOMAR(const auto sabido, leerSabido(db, d, ahora));
  TARVO_TOMAR(const auto codigos, todosLosArticulos(db, d, {}));
  Lector lector(db, d);
  std::vector<EstadoArticulo> salida;
  salida.reserve(codigos.size() + sabido.sobrantes.size());
  for (std::span<const qint64> resto(codigos); !resto.empty();) {
    const size_t n = std::min(resto.size(), Lector::kLote);
    TARVO_TOMAR(const auto leidos, lector.leer(resto.first(n), ahora));
    for (const Preparado& p : leidos) salida.push_back(juzgar(p, d, sabido, textos));
    resto = resto.subspan(n);
  }
  const QString porQueSobra = d.conCross() ? QString() : textos(kTxNoBorraUnoSolo);
  for (const qint64 c : sabido.sobrantes)
    salida.push_back({c, {}, Situacion::Sobra, {}, porQueSobra});
  std::ranges::stable_sort(salida, {}, &EstadoArticulo::codigo);
  return salida;
}

Resultado<Encargos> encargar(dao::Database& db, const Destino& d, std::span<const qint64> codigos) {
  Encargos salida;
  if (codigos.empty()) return salida;
  TARVO_TOMAR(const auto suyos, todosLosArticulos(db, d, {codigos.front(), codigos.back()}));
  std::vector<qint64> nuestros;
  for (const qint64 c : codigos)
    if (std::ranges::binary_search(suyos, c)) nuestros.push_back(c);
  if (!d.conCross()) {
    salida.imposibles = static_cast<int>(codigos.size() - nuestros.size());
    if (nuestros.empty()) return salida;
    TARVO_TOMAR(auto t, tramos(db, d, nuestros));
    salida.tareas = std::move(t);
    return salida;
  }
  TARVO_TOMAR(auto tr, dao::Transaccion::empezar(db));
  for (const qint64 c : codigos) {
    TARVO_INTENTAR(db.ejecutar(u"DELETE FROM [Cross] WHERE Secc=? AND plu=? AND Grupo=?", d.seccion,
                               c, d.grupo));
    if (!std::ranges::binary_search(nuestros, c))
      TARVO_INTENTAR(
          db.ejecutar(u"INSERT INTO [Cross] (Secc, plu, Grupo, borra) VALUES (?, ?, ?, 1)",
                      d.seccion, c, d.grupo));
  }
  TARVO_INTENTAR(tr.confirmar());
  salida.tareas.push_back({false, {codigos.front(), codigos.back()}});
  return salida;
}

}  // namespace tarvo::envios
