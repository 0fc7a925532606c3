#include "totals/libros/CerrSes.h"

#include <algorithm>
#include <iterator>
#include <map>

#include "totals/TextosTotals.h"
#include "totals/libros/Cuadre.h"
#include "totals/libros/Dudas.h"
#include "totals/libros/TablasLibros.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;
using dao::conMarcas;

namespace {

constexpr double kDiasQueSeCuentan = 32;
constexpr double kRonda = 1.0 / 24;  // days between two readings of one round, at either end
const Fecha kSinPuestaACero = Fecha::de(QDate(2000, 1, 1));

// The memorised part of a reading, if the machine still holds one.
struct Base {
  qint64 link = 0;
  Fecha desde, hasta;
};

Resultado<std::optional<Base>> leerBase(dao::Database& db, int grupo, TipoTotal clase) {
  TARVO_TOMAR(
      auto rs,
      db.consultar(
          u"SELECT LINK, BASE_DESDE, BASE_HASTA FROM Lecturas WHERE GRUPO=? AND CLASE=? AND LINK IS "_s
          u"NOT NULL AND APARTE=1"_s,
          grupo, numeroDe(clase)));
  if (rs->Eof()) return std::nullopt;
  return Base{rs->entero(0), rs->fecha(1), rs->fecha(2)};
}

// Counters that still hold what period `base.link` has: when the whole span since the zeroing makes
// that very period, the new sales belong to it; otherwise they begin where that reading ended.
Resultado<> situar(Recibido& r, const Base& base, const Calendario& calendario, Periodos& periodos,
                   const std::optional<Horario>& horario) {
  r.conBase = true;
  r.linkBase = base.link;
  const Periodo todo = calendario.DeterminarPeriodo(base.desde, r.hasta, horario);
  TARVO_TOMAR(const auto vieja, periodos.columna(base.link));
  if (vieja && vieja->periodo == todo) {
    r.desde = r.baseDesde = base.desde;
    r.periodo = todo;
    return {};
  }
  r.desde = r.baseDesde = base.hasta;
  r.periodo = calendario.DeterminarPeriodo(r.desde, r.hasta, horario);
  return {};
}

Resultado<Recibido> leerRecibido(dao::Database& db, const dao::Recordset& rs, const ClaseTotal& c,
                                 Periodos& periodos, const Calendario& calendario) {
  Recibido r;
  r.CODGPO = static_cast<int>(rs.entero(rs.columna(u"CODGPO"_s)));
  r.clase = c.tipo;
  r.hasta = rs.fecha(rs.columna(c.hasta));
  // An impossible date is as good as none; clocks are set back by an hour, not by days.
  const int desde = rs.columna(c.desde);
  const bool vale =
      !rs.nulo(desde) && rs.fecha(desde) > kSinPuestaACero && rs.fecha(desde) < r.hasta + 1.0;
  r.desde = r.baseDesde = vale ? rs.fecha(desde) : kSinPuestaACero;
  const auto horario = LeerHorario(rs.texto(rs.columna(u"HORARIO"_s)));
  TARVO_TOMAR(const auto base, leerBase(db, r.CODGPO, c.tipo));
  if (base) {
    TARVO_INTENTAR(situar(r, *base, calendario, periodos, horario));
  } else {
    r.periodo = calendario.DeterminarPeriodo(r.desde, r.hasta, horario);
  }
  if (r.hasta - r.desde < kDiasQueSeCuentan)
    r.jornadas = calendario.Jornadas(r.desde, r.hasta, horario);
  else if (r.desde > kSinPuestaACero)
    r.jornadas = static_cast<int>(r.hasta - r.desde);
  return r;
}

// Machines read one after another have spans that end some moments apart. Those of one round become
// one span.
void igualarRonda(std::vector<Recibido>& recibidos) {
  std::vector<Periodo> rondas;
  const auto deLaRonda = [](const Periodo& ronda, const Periodo& p) {
    return std::abs(ronda.desde - p.desde) <= kRonda && std::abs(ronda.hasta - p.hasta) <= kRonda;
  };
  std::vector<std::pair<Recibido*, size_t>> suyas;
  std::vector<Periodo> primeras;  // compared with the first one: a round doesn't grow into the next
  suyas.reserve(recibidos.size());
  for (Recibido& r : recibidos) {
    if (r.periodo.tipo != kOtros) continue;
    const auto ronda =
        std::ranges::find_if(primeras, [&](const Periodo& p) { return deLaRonda(p, r.periodo); });
    const auto cual = static_cast<size_t>(ronda - primeras.begin());
    suyas.emplace_back(&r, cual);
    if (ronda == primeras.end()) {
      primeras.push_back(r.periodo);
      rondas.push_back(r.periodo);
    }
    rondas[cual].desde = std::min(rondas[cual].desde, r.periodo.desde);
    rondas[cual].hasta = std::max(rondas[cual].hasta, r.periodo.hasta);
  }
  for (const auto& [r, cual] : suyas) r->periodo = rondas[cual];
}

// Sales of several days in one day, or between two dates: a person would look for them elsewhere.
void avisarDeVariosDias(const std::vector<Recibido>& lecturas, const Periodo& destino,
                        const Textos& textos, std::vector<Aviso>& avisos) {
  if (destino.tipo != kDiario && destino.tipo != kOtros) return;
  int ultimo = -1;
  for (const Recibido& r : lecturas) {
    if (r.jornadas < 2 || r.CODGPO == ultimo) continue;
    ultimo = r.CODGPO;
    avisos.push_back({r.CODGPO,
                      textos(kTxVariosDias, {r.CODGPO, r.jornadas, r.desde.general(),
                                             r.hasta.general(), TextoPeriodo(destino)}),
                      destino.tipo == kDiario});
  }
}

// `contestado`: a person has just answered that this group wasn't zeroed.
void avisarDeBases(const std::vector<Recibido>& recibidos, const std::optional<int>& contestado,
                   const Textos& textos, std::vector<Aviso>& avisos) {
  int ultimo = -1;
  for (const Recibido& r : recibidos) {
    if (r.desde > r.hasta)
      avisos.push_back({r.CODGPO,
                        textos(kTxIntervaloInvertido, {r.CODGPO, NombreTabla(r.clase),
                                                       r.desde.general(), r.hasta.general()}),
                        true});
    if (!r.conBase || r.CODGPO == ultimo) continue;
    ultimo = r.CODGPO;
    avisos.push_back({r.CODGPO, textos(kTxSinConstanciaDeCero, {r.CODGPO, r.desde.general()}),
                      r.CODGPO != contestado});
  }
}

// For a group whose totals don't foot, more may have been memorised than its machines hold.
Resultado<> anotarDudosas(dao::Database& db, const std::vector<Recibido>& recibidos, int grupo) {
  TARVO_TOMAR(const auto mal,
              db.uno(u"SELECT count(*) FROM Lecturas WHERE GRUPO=? AND ESTADO=4"_s, grupo));
  for (const Recibido& r : recibidos)
    if (r.CODGPO == grupo)
      TARVO_INTENTAR(db.ejecutar(u"UPDATE Lecturas SET BASE_DUDOSA=? WHERE GRUPO=? AND CLASE=?"_s,
                                 mal.entero() > 0, grupo, numeroDe(r.clase)));
  return {};
}

}  // namespace

CerrSes::CerrSes(Sesion& sesion, Periodos& periodos) : s_(sesion), p_(periodos) {}

Resultado<> CerrSes::AnalizarScratch(std::vector<Aviso>& avisos) {
  recibidos_.clear();
  propuestos_.clear();
  elegido_ = -1;
  TARVO_TOMAR(auto tr, dao::Transaccion::empezar(s_.base()));
  TARVO_INTENTAR(s_.soltarRetenidas(avisos));
  std::ranges::copy(s_.porDecir(), std::back_inserter(avisos));
  const size_t anteriores = avisos.size();
  TARVO_INTENTAR(resolverBases(s_.base(), s_.ajustes(), s_.textos(), avisos));
  for (size_t i = anteriores; i < avisos.size(); ++i)
    if (avisos[i].grupo == contestado_) avisos[i].grave = false;
  const Calendario calendario(s_.ajustes());
  for (const ClaseTotal& c : enVigor(s_.ajustes())) {
    TARVO_INTENTAR(s_.base().ejecutar(
        conMarcas(u"UPDATE Sesiones SET {desde}=? WHERE {enSesion} AND {desde} IS NULL",
                  {{u"desde", CampoDesde(c.tipo)}, {u"enSesion", CampoSesion(c.tipo)}}),
        kSinPuestaACero));
  }
  const auto tomar = [&](const dao::Recordset& fila) -> Resultado<> {
    for (const ClaseTotal& c : enVigor(s_.ajustes())) {
      if (!fila.logico(fila.columna(c.sesion))) continue;
      TARVO_TOMAR(auto r, leerRecibido(s_.base(), fila, c, p_, calendario));
      recibidos_.push_back(r);
    }
    return {};
  };
  TARVO_INTENTAR(dao::recorrer(
      s_.base().consultar(u"select Sesiones.*, HORARIO from Sesiones left join GRUPOS on "
                          u"Sesiones.CODGPO=GRUPOS.CODGPO order by Sesiones.CODGPO"),
      tomar));
  std::ranges::stable_sort(recibidos_, {}, &Recibido::periodo);
  igualarRonda(recibidos_);
  std::ranges::stable_sort(recibidos_, {}, &Recibido::periodo);
  for (const Recibido& r : recibidos_) {
    if (propuestos_.empty() || propuestos_.back().periodo != r.periodo)
      propuestos_.push_back({r.periodo, 0});
    ++propuestos_.back().cuenta;
  }
  const auto mejor = std::ranges::max_element(propuestos_, {}, &Propuesto::cuenta);
  const auto preferido = preferido_
                             ? std::ranges::find(propuestos_, *preferido_, &Propuesto::periodo)
                             : propuestos_.end();
  const auto uno = preferido != propuestos_.end() ? preferido : mejor;
  if (uno != propuestos_.end()) elegido_ = static_cast<int>(uno - propuestos_.begin());
  return tr.confirmar();
}

// For each group the amount of its grand total, else of its first kind.
Resultado<EnBandeja> CerrSes::enBandeja() const {
  EnBandeja b;
  std::map<int, const Recibido*> cuenta;
  for (const Recibido& r : recibidos_) {
    auto [suyo, nuevo] = cuenta.try_emplace(r.CODGPO, &r);
    if (!nuevo && r.clase == TipoTotal::GranTotal) suyo->second = &r;
  }
  for (const auto& [grupo, r] : cuenta) {
    TARVO_TOMAR(const auto leido,
                s_.base().uno(conMarcas(u"SELECT SUM(IMP) FROM {tabla} WHERE LINK=0 AND GRUPO=?",
                                        {{u"tabla", NombreTabla(r->clase)}}),
                              grupo));
    b.importe += leido.entero();
    if (!r->conBase) continue;
    TARVO_TOMAR(const auto base,
                s_.base().uno(u"SELECT SUM(IMP) FROM BaseFilas WHERE GRUPO=? AND CLASE=?", grupo,
                              numeroDe(r->clase)));
    b.importe -= base.entero();
  }
  TARVO_INTENTAR(dao::recorrer(
      s_.base().consultar(u"SELECT CODGPO FROM GRUPOS WHERE REMOTO<>0 ORDER BY CODGPO"),
      [&](const dao::Recordset& fila) {
        const auto grupo = static_cast<int>(fila.entero(0));
        if (!cuenta.contains(grupo)) b.faltan.push_back(grupo);
      }));
  return b;
}

void CerrSes::describir(const QString& patron, Fecha ahora) {
  Descrip = ExpandirNombre(patron, ahora, s_.base());
}

void CerrSes::elegir(int indice) {
  if (indice < 0 || indice >= static_cast<int>(propuestos_.size())) return;
  elegido_ = indice;
  preferido_ = propuestos_[static_cast<size_t>(indice)].periodo;
}

Resultado<bool> CerrSes::recuperar() {
  if (s_.estado() != 0) return false;
  std::vector<Aviso> avisos;
  TARVO_INTENTAR(AnalizarScratch(avisos));
  if (recibidos_.empty()) return false;
  const auto abrir = [this]() -> Resultado<> {
    TARVO_TOMAR(auto tr, dao::Transaccion::empezar(s_.base()));
    TARVO_INTENTAR(s_.base().ejecutar(u"DELETE FROM Olvidos"_s));
    TARVO_INTENTAR(s_.ponerEstado(2));
    return tr.confirmar();
  };
  if (const auto abierta = abrir(); !abierta) {
    TARVO_INTENTAR(s_.cargar());
    return std::unexpected(abierta.error());
  }
  return true;
}

Resultado<std::vector<DudaAbierta>> CerrSes::dudas() {
  return dudasAbiertas(s_.base());
}

Resultado<std::vector<qint64>> CerrSes::responder(int grupo, int addr, bool olvido,
                                                  std::vector<Aviso>& avisos) {
  const int antes = s_.estado();
  const auto anotar = [&]() -> Resultado<bool> {
    TARVO_TOMAR(auto tr, dao::Transaccion::empezar(s_.base()));
    // Marks left by a closed session are no longer waiting.
    if (antes == 0)
      for (const ClaseTotal& c : enVigor(s_.ajustes()))
        TARVO_INTENTAR(s_.base().ejecutar(conMarcas(u"UPDATE Sesiones SET {enSesion}=FALSE",
                                                    {{u"enSesion", CampoSesion(c.tipo)}})));
    TARVO_TOMAR(const auto lista, anotarRespuesta(s_.base(), s_.textos(), {grupo, addr}, olvido));
    if (lista) TARVO_INTENTAR(s_.ponerEstado(2));
    TARVO_INTENTAR(tr.confirmar());
    return lista;
  };
  const auto lista = anotar();
  if (!lista) {
    TARVO_INTENTAR(s_.cargar());
    return std::unexpected(lista.error());
  }
  if (!*lista || antes != 0) return std::vector<qint64>{};
  contestado_ = grupo;
  auto hechos = LaSesion(true, 0, avisos);
  contestado_.reset();
  for (const qint64 link : hechos.value_or(std::vector<qint64>{})) {
    TARVO_TOMAR(const auto periodo, p_.columna(link));
    if (periodo)
      avisos.push_back(
          {grupo,
           s_.textos()(kTxContestadoEn, {grupo, TextoPeriodo(periodo->periodo).simplified()}),
           false});
  }
  return hechos;
}

Resultado<std::vector<qint64>> CerrSes::memorizar(std::vector<Aviso>& avisos) {
  std::vector<qint64> links;
  TARVO_INTENTAR(AnalizarScratch(avisos));
  if (recibidos_.empty()) return links;
  avisarDeBases(recibidos_, contestado_, s_.textos(), avisos);
  Memoria memoria(s_.base(), s_.ajustes(), p_, s_.ejecucion());
  std::map<Periodo, std::vector<Recibido>> destinos;
  for (const Recibido& r : recibidos_)
    destinos[TodoAUno ? propuestos_[static_cast<size_t>(elegido_)].periodo : r.periodo].push_back(
        r);
  for (const auto& [periodo, lecturas] : destinos) {
    TARVO_TOMAR(const auto link, memoria.incorporar(periodo, lecturas, OverWr, Descrip, avisos));
    links.push_back(link);
    avisarDeVariosDias(lecturas, periodo, s_.textos(), avisos);
  }
  std::vector<int> grupos;
  grupos.reserve(recibidos_.size());
  for (const Recibido& r : recibidos_) grupos.push_back(r.CODGPO);
  std::ranges::sort(grupos);
  grupos.erase(std::ranges::unique(grupos).begin(), grupos.end());
  for (const int g : grupos) {
    TARVO_INTENTAR(s_.base().ejecutar(
        u"UPDATE Lecturas SET ESTADO=0 WHERE GRUPO=? AND ESTADO IN (1, 3) AND EJECUCION<?"_s, g,
        s_.ejecucion()));
    TARVO_INTENTAR(anotarCuadre(s_.base(), s_.ajustes(), s_.textos(), g, avisos));
    TARVO_INTENTAR(anotarDudosas(s_.base(), recibidos_, g));
  }
  return links;
}

Resultado<std::vector<qint64>> CerrSes::LaSesion(bool guardar, int nuevo,
                                                 std::vector<Aviso>& avisos) {
  std::vector<qint64> links;
  const int s = s_.estado();
  if (nuevo == s || (s == 1 && nuevo == 2)) return links;
  if (s == 0 && nuevo == 1) {
    TARVO_INTENTAR(s_.AbrirSesion());
    return links;
  }
  if (nuevo != 0) return links;
  const auto cerrar = [&]() -> Resultado<> {
    TARVO_TOMAR(auto tr, dao::Transaccion::empezar(s_.base()));
    if (s == 2 && guardar) {
      TARVO_TOMAR(auto hechos, memorizar(avisos));
      links = std::move(hechos);
    } else if (s == 2) {
      TARVO_INTENTAR(s_.anotarOlvido());
    }
    TARVO_INTENTAR(s_.ponerEstado(0));
    return tr.confirmar();
  };
  if (auto r = cerrar(); !r) {
    TARVO_INTENTAR(s_.cargar());
    TARVO_INTENTAR(s_.anotarCierreFallido());
    return std::unexpected(r.error());
  }
  s_.olvidarRetenidas();
  return links;
}

}  // namespace tarvo::totals
