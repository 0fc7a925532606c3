#include "automation/Resumen.h"
#include "automation/historia/TablasHistoria.h"

#include <QDir>
#include <algorithm>
#include <numeric>

#include "automation/ProximaVez.h"
#include "automation/TextosAutomation.h"
#include "automation/historia/Pendientes.h"
#include "core/dao/Marcas.h"
#include "core/dao/Recorrido.h"
#include "totals/libros/AjustesSesion.h"
#include "totals/libros/Cuadre.h"
#include "totals/libros/Dudas.h"
#include "totals/libros/SinArticulos.h"
#include "totals/libros/TablasLibros.h"
#include "totals/periodos/Calendario.h"

namespace tarvo::automation {

using namespace Qt::StringLiterals;

namespace {

constexpr double kNoche = 1;  // days: runs begun within them are shown
// A run that was stopped or cut off isn't another night than one that ended this much before it.
constexpr double kMismaNoche = 20.0 / 24;
constexpr int kSemanas = 4;
constexpr double kHorarioMirado = 7;      // days
constexpr double kGracia = 1.0 / 24;      // another process may have run first
constexpr double kAdelanto = 1.0 / 1440;  // a run that began a little early counts

QString nombreBaseDe(const QString& fichero) {
  return NombreFichero(fichero).section(u'.', 0, 0).toUpper();
}

}  // namespace

std::optional<qint64> PeriodoResumen::media() const {
  qint64 suma = 0, n = 0;
  for (const auto& a : anteriores)
    if (a) suma += *a, ++n;
  return n > 0 ? std::optional(suma / n) : std::nullopt;
}

int Resumen::cuantos(EstadoGrupo estado) const {
  return static_cast<int>(std::ranges::count(grupos, estado, &GrupoResumen::estado));
}

LectorResumen::LectorResumen(const FuentesResumen& fuentes) : f_(fuentes) {
  r_.ahora = f_.ahora;
  r_.enCola = f_.enCola;
  anadir([this] { return leerEjecuciones(); });
  anadir([this] { return leerBandeja(); });
  anadir([this] { return leerDebidos(); });
  anadir([this]() -> Resultado<> {
    leerCronos();
    leerHorarios();
    return {};
  });
}

Resultado<bool> LectorResumen::paso() {
  if (siguiente_ < pasos_.size()) {
    const auto este = std::move(pasos_[siguiente_++]);
    TARVO_INTENTAR(este());
  }
  return siguiente_ < pasos_.size();
}

Resultado<Resumen> leerResumen(const FuentesResumen& fuentes) {
  LectorResumen lector(fuentes);
  for (;;) {
    TARVO_TOMAR(const auto sigue, lector.paso());
    if (!sigue) return std::move(lector.resumen());
  }
}

// --- the night ----------------------------------------------------------------------------------

Resultado<> LectorResumen::leerEjecuciones() {
  TARVO_INTENTAR(asegurarTablasHistoria(f_.db));
  const auto enMarcha = f_.curso ? std::optional(f_.curso->numero) : std::nullopt;
  TARVO_TOMAR(auto ultimas, Historial(f_.db, f_.textos).ejecuciones(enMarcha));
  for (const auto& e : ultimas) ultimas_.try_emplace(e.nombre, e.inicio);  // the latest first
  TARVO_TOMAR(r_.noche, cualEsLaNoche(ultimas));
  for (size_t i = 0; i < ultimas.size(); ++i)
    if (i <= r_.noche || f_.ahora - ultimas[i].inicio < kNoche)
      r_.ejecuciones.push_back(std::move(ultimas[i]));
  TARVO_INTENTAR(leerLoHechoAMano());
  if (!r_.ejecuciones.empty()) TARVO_INTENTAR(leerMemorizadoAMano(r_.ejecuciones[r_.noche]));
  // The earliest first, so that the latest prevails.
  for (size_t i = r_.ejecuciones.size(); i > 0; --i)
    anadir([this, i] { return leerEjecucion(r_.ejecuciones[i - 1]); });
  anadir([this] { return leerGrupos(); });
  for (const auto& [grupo, memorizado] : aMano_)
    anadir([this, p = PeriodoHecho{memorizado.link, {}}, n = r_.ejecuciones[r_.noche].numero] {
      return leerPeriodo(p, n);
    });
  for (const auto& e : r_.ejecuciones)
    for (const PeriodoHecho& p : e.periodos)
      anadir([this, p, n = e.numero] { return leerPeriodo(p, n); });
  return {};
}

// What was read since a night that was stopped or cut off began is in periods that its own record
// lacks.
Resultado<> LectorResumen::leerMemorizadoAMano(const EjecucionHecha& noche) {
  const bool cortada =
      noche.fin == FinEjecucion::Abortada || noche.fin == FinEjecucion::Interrumpida;
  if (!cortada || !f_.db.existeTabla(u"Origenes")) return {};
  return dao::recorrer(
      f_.db.consultar(
          u"SELECT DISTINCT o.GRUPO, o.LINK, c.TIPO, c.FECHA1, c.FECHAF FROM Origenes o "
          u"INNER JOIN COLUMNA c ON c.LINK=o.LINK WHERE o.LEIDO>=? ORDER BY o.LINK",
          noche.inicio),
      [&](const dao::Recordset& rs) {
        const qint64 link = rs.entero(1);
        if (std::ranges::find(noche.periodos, link, &PeriodoHecho::link) == noche.periodos.end())
          aMano_[static_cast<int>(rs.entero(0))] = {
              link, totals::DecirPeriodo({static_cast<int>(rs.entero(2)), rs.fecha(3), rs.fecha(4)},
                                         f_.textos)};
      });
}

// The latest run that asks more than half as many groups for their totals as any of them: a small
// process is no night. One that was stopped or cut off during the day is another attempt of the
// night that ended before it.
Resultado<size_t> LectorResumen::cualEsLaNoche(const std::vector<EjecucionHecha>& ultimas) const {
  if (ultimas.empty()) return 0;
  TARVO_TOMAR(auto pedidos, Historial(f_.db, f_.textos).gruposPedidos(ultimas.back().numero));
  int mas = 0;
  for (const auto& [numero, cuantos] : pedidos) mas = std::max(mas, cuantos);
  if (f_.curso) {
    int& suyos = pedidos[f_.curso->numero];
    suyos = f_.curso->aTodos ? std::max(suyos, mas)
                             : std::max(suyos, static_cast<int>(f_.curso->porPedir.size()));
  }
  const auto grande = [&](const EjecucionHecha& e) {
    return mas == 0 || 2 * pedidos[e.numero] > mas;
  };
  const auto acabada = [](const EjecucionHecha& e) {
    return e.fin == FinEjecucion::Bien || e.fin == FinEjecucion::Problemas;
  };
  const auto esta = std::ranges::find_if(ultimas, grande);
  if (esta == ultimas.end()) return 0;
  const auto entera = std::find_if(esta, ultimas.end(), [&](const EjecucionHecha& e) {
    return grande(e) && acabada(e) && esta->inicio - e.inicio < kMismaNoche;
  });
  const bool cortada = !acabada(*esta) && esta->fin != FinEjecucion::EnMarcha;
  return static_cast<size_t>((cortada && entera != ultimas.end() ? entera : esta) -
                             ultimas.begin());
}

Resultado<> LectorResumen::leerEjecucion(const EjecucionHecha& e) {
  Historial historial(f_.db, f_.textos);
  TARVO_TOMAR(const auto tareas, historial.tareas(e.numero));
  TARVO_TOMAR(const auto avisos, historial.avisos(e.numero));
  const bool enMarcha = e.fin == FinEjecucion::EnMarcha;
  if (enMarcha) TARVO_INTENTAR(leerMemorizado(e.numero));
  for (const auto& t : tareas) {
    DeGrupo& d = enMarcha ? tomarlo(t.grupo) : porGrupo_[t.grupo];
    if (esDeTotales(t.clase)) {
      d.avisos.clear();  // read again: earlier reports no longer count
      d.recogida = e.numero;
    }
    Asunto& asunto = d.clases[t.clase];
    const bool fallaba =
        asunto.vez > 0 && asunto.tarea.estado != TareaHecha::Estado::Hecha && esDeTotales(t.clase);
    d.arreglado = d.arreglado || (fallaba && t.estado == TareaHecha::Estado::Hecha);
    asunto = {t, e.numero, e.inicio, ++veces_};
  }
  const bool posterior = e.numero > r_.ejecuciones[r_.noche].numero;
  if (!posterior) r_.avisos.clear();
  if (!posterior) r_.sinQueHacer.clear();
  const bool mal =
      std::ranges::any_of(avisos, [](const AvisoHecho& a) { return a.peso == PesoAviso::Grave; }) ||
      std::ranges::any_of(
          tareas, [](const TareaHecha& t) { return t.estado != TareaHecha::Estado::Hecha; });
  for (const auto& a : avisos) {
    if (a.peso == PesoAviso::SinQueHacer && !mal && !posterior && !r_.sinQueHacer.contains(a.texto))
      r_.sinQueHacer << a.texto;
    if (a.peso != PesoAviso::Grave) continue;
    if (a.grupo == 0) {
      r_.avisos.push_back(a);
      continue;
    }
    DeGrupo& d = enMarcha ? tomarlo(a.grupo) : porGrupo_[a.grupo];
    if (!d.avisos.contains(a.texto)) d.avisos << a.texto;
    d.avisado = e.numero;
  }
  return {};
}

// --- what a window has read or zeroed since ------------------------------------------------------

Resultado<> LectorResumen::leerLoHechoAMano() {
  if (!f_.db.existeTabla(u"Lecturas")) return {};
  TARVO_INTENTAR(dao::recorrer(
      f_.db.consultar(u"SELECT GRUPO, CLASE, FIN FROM Lecturas WHERE ESTADO=2 AND ENTERA<>0 AND "
                      u"FIN IS NOT NULL"),
      [this](const dao::Recordset& rs) {
        if (const auto clase = deNumero<TipoTarea>(rs.entero(1)))
          lecturas_[{static_cast<int>(rs.entero(0)), *clase}] = rs.fecha(2);
      }));
  return dao::recorrer(
      f_.db.consultar(u"SELECT GRUPO, MIN(COALESCE(HECHO, 0)) FROM Ceros GROUP BY GRUPO"),
      [this](const dao::Recordset& rs) {
        ceros_[static_cast<int>(rs.entero(0))] = Fecha::deDias(rs.valor(1).real());
      });
}

bool LectorResumen::leidoEntero(int grupo, TipoTarea clase, Fecha desde) const {
  const auto suya = lecturas_.find({grupo, clase});
  return suya != lecturas_.end() && suya->second > desde;
}

// What a run failed to read, or to zero, counts as done if it was done whole since, without a run.
void LectorResumen::arreglarAMano(int grupo, DeGrupo& d) {
  if (d.enCurso) return;
  for (auto& [clase, asunto] : d.clases) {
    if (!esDeTotales(clase) || asunto.tarea.estado == TareaHecha::Estado::Hecha ||
        !leidoEntero(grupo, clase, asunto.inicio))
      continue;
    const Fecha cuando = lecturas_.at({grupo, clase});
    asunto.tarea.estado = TareaHecha::Estado::Hecha;
    asunto.vez = ++veces_;
    d.aMano = std::max(d.aMano.value_or(cuando), cuando);
  }
  if (d.aMano || aMano_.contains(grupo)) d.arreglado = true;
  if (d.aMano) d.avisos.clear();  // they are of what was read again
  const auto cero = d.clases.find(TipoTarea::TxZero);
  const auto hecho = ceros_.find(grupo);
  if (cero == d.clases.end() || hecho == ceros_.end()) return;
  if (cero->second.tarea.estado == TareaHecha::Estado::Hecha ||
      hecho->second <= cero->second.inicio || (d.aMano && hecho->second < *d.aMano))
    return;
  cero->second.tarea.estado = TareaHecha::Estado::Hecha;
  cero->second.vez = ++veces_;
}

// The run under way works on the group: nothing from earlier ones is reported of it.
LectorResumen::DeGrupo& LectorResumen::tomarlo(int grupo) {
  DeGrupo& d = porGrupo_[grupo];
  if (d.enCurso) return d;
  d = {};
  d.enCurso = true;
  d.recogida = f_.curso->numero;
  return d;
}

Resultado<> LectorResumen::leerMemorizado(qint64 ejecucion) {
  if (!f_.db.existeTabla(u"Origenes")) return {};
  return dao::recorrer(
      f_.db.consultar(u"SELECT DISTINCT GRUPO FROM Origenes WHERE EJECUCION=?", ejecucion),
      [this](const dao::Recordset& rs) {
        tomarlo(static_cast<int>(rs.entero(0))).memorizado = true;
      });
}

Resultado<> LectorResumen::leerGrupos() {
  TARVO_INTENTAR(
      dao::recorrer(f_.db.consultar(u"SELECT CODGPO, NOMGPO, REMOTO FROM GRUPOS ORDER BY CODGPO"),
                    [this](const dao::Recordset& rs) {
                      GrupoResumen g;
                      g.grupo = static_cast<int>(rs.entero(0));
                      g.nombre = rs.texto(1).trimmed();
                      const bool comunica = rs.entero(2) != 0;
                      if (comunica && porPedir(g.grupo)) tomarlo(g.grupo);
                      g.comunica = comunica;
                      arreglarAMano(g.grupo, porGrupo_[g.grupo]);
                      juzgar(g, comunica, porGrupo_[g.grupo]);
                      r_.grupos.push_back(std::move(g));
                      anadir([this, i = r_.grupos.size() - 1] { return cuadrar(i); });
                    }));
  anadir([this] { return mirarVentas(); });
  return {};
}

// No group sold anything on a weekday with usual sales: the machines read may be unused, or may
// have been zeroed by others. A night under way may still bring them.
Resultado<> LectorResumen::mirarVentas() {
  if (f_.curso) return {};
  const auto dia = std::ranges::find(r_.periodos, totals::kDiario, &PeriodoResumen::tipo);
  if (dia == r_.periodos.end() || dia->importe != 0 || dia->media().value_or(0) <= 0) return {};
  const auto vendio = [](const GrupoResumen& g) { return g.importe.value_or(0) != 0; };
  if (std::ranges::any_of(r_.grupos, vendio)) return {};
  r_.avisos.push_back({0, f_.textos(kTxNocheSinVentas, {dia->texto}), PesoAviso::Grave});
  return {};
}

// --- what was made ------------------------------------------------------------------------------

Resultado<> LectorResumen::leerPeriodo(const PeriodoHecho& hecho, qint64 ejecucion) {
  TARVO_TOMAR(auto rs,
              hecho.dias
                  ? f_.db.consultar(u"SELECT TIPO, FECHA1, FECHAF, DESCR, LINK FROM COLUMNA WHERE "
                                    u"TIPO=? AND FECHA1=? AND FECHAF=?",
                                    hecho.dias->tipo, hecho.dias->desde, hecho.dias->hasta)
                  : f_.db.consultar(u"SELECT TIPO, FECHA1, FECHAF, DESCR, LINK FROM COLUMNA WHERE "
                                    u"LINK=?",
                                    hecho.link));
  if (rs->Eof()) {
    ++r_.perdidos;
    return {};
  }
  const qint64 link = rs->entero(4);
  const auto repetido = std::ranges::find(r_.periodos, link, &PeriodoResumen::link);
  if (repetido != r_.periodos.end()) return {};
  const totals::Periodo p{static_cast<int>(rs->entero(0)), rs->fecha(1), rs->fecha(2)};
  PeriodoResumen nuevo{.link = link,
                       .ejecucion = ejecucion,
                       .tipo = p.tipo,
                       .desde = p.desde,
                       .texto = totals::DecirPeriodo(p, f_.textos),
                       .descripcion = rs->texto(3).trimmed(),
                       .anteriores = {}};
  TARVO_TOMAR(auto suma,
              f_.db.consultar(u"SELECT SUM(IMP), SUM(CON) FROM TOTGRT WHERE LINK=?", link));
  nuevo.importe = suma->entero(0);
  nuevo.operaciones = suma->entero(1);
  if (p.tipo == totals::kDiario) TARVO_INTENTAR(leerAnteriores(nuevo, p.desde));
  r_.periodos.push_back(std::move(nuevo));
  return {};
}

// Only groups in both are compared: a failed one must not look like a bad day.
Resultado<> LectorResumen::leerAnteriores(PeriodoResumen& p, Fecha desde) {
  constexpr double kHolgura = 1e-4;
  for (int semana = 1; semana <= kSemanas; ++semana) {
    const Fecha dia = desde - 7.0 * semana;
    TARVO_TOMAR(
        const auto suma,
        f_.db.uno(
            u"SELECT SUM(t.IMP) FROM COLUMNA c INNER JOIN TOTGRT t ON t.LINK=c.LINK WHERE c.TIPO=1 "
            u"AND "
            u"c.FECHA1 BETWEEN ? AND ? AND t.GRUPO IN (SELECT GRUPO FROM TOTGRT WHERE LINK=?)",
            dia - kHolgura, dia + kHolgura, p.link));
    p.anteriores.push_back(suma.nulo() ? std::nullopt : std::optional(suma.entero()));
  }
  return {};
}

// The group's part of the period that received its last collection, and whether it foots; if no
// period has it, the inbox. A period made before that collection shows nothing about it.
Resultado<> LectorResumen::cuadrar(size_t cual) {
  GrupoResumen& g = r_.grupos[cual];
  const DeGrupo& d = porGrupo_[g.grupo];
  if (g.estado == EstadoGrupo::SinIntentar || (d.enCurso && !d.memorizado)) return {};
  qint64 link = 0;
  for (const PeriodoResumen& p : r_.periodos) {
    if (p.ejecucion < d.recogida) continue;
    TARVO_TOMAR(const auto suma, f_.db.uno(u"SELECT SUM(IMP) FROM TOTGRT WHERE LINK=? AND GRUPO=?",
                                           p.link, g.grupo));
    if (suma.nulo()) continue;
    g.importe = suma.entero();
    link = g.link = p.link;
    break;
  }
  TARVO_TOMAR(const auto lista, totals::compararTotales(f_.db, f_.ajustes, link, g.grupo));
  for (const auto& c : lista) ++(c.cuadra() ? g.cuadran : g.difieren);
  TARVO_TOMAR(const auto sinArticulos, loQueNoTieneArticulos(g, link));
  if (g.difieren > 0) g.motivos << Plural(f_.textos(kTxNoCuadran), g.difieren);
  if (g.difieren > 0 && g.estado == EstadoGrupo::Bien) {
    g.estado = EstadoGrupo::Dudoso;
    g.motivo = g.motivos.last();
  } else if (g.estado == EstadoGrupo::Bien && g.cuadran > 0) {
    g.motivos << Plural(f_.textos(kTxCuadran), g.cuadran);
  }
  if (!sinArticulos.isEmpty()) g.motivos << sinArticulos;
  if (g.estado == EstadoGrupo::Bien) g.motivo = g.motivos.join(u' ');
  return {};
}

// Of its part of the period, or of what was read last.
Resultado<QString> LectorResumen::loQueNoTieneArticulos(const GrupoResumen& g, qint64 link) const {
  std::vector<int> sin;
  if (link != 0) {
    TARVO_TOMAR(sin, totals::gruposSinArticulos(f_.db, f_.ajustes, link, g.grupo));
  } else {
    TARVO_TOMAR(const auto falta, totals::leidoSinArticulos(f_.db, f_.ajustes, g.grupo));
    if (falta) sin.push_back(g.grupo);
  }
  return totals::decirSinArticulos(f_.db, f_.textos, sin);
}

// --- what waits and what comes ------------------------------------------------------------------

Resultado<> LectorResumen::leerBandeja() {
  TARVO_TOMAR(const auto estado, totals::EstadoBase(f_.db).leer(u"SesionAbier"_s));
  r_.sesion = estado.nulo() ? f_.ajustes.de<totals::AjustesSesion>().SesionAbier
                            : static_cast<int>(estado.entero());
  if (r_.sesion == 0) return {};
  const auto clases = totals::enVigor(f_.ajustes);
  QStringList campos, marcas;
  for (const auto& c : clases) {
    campos << QString::fromUtf16(c.sesion) << QString::fromUtf16(c.hasta);
    marcas << QString::fromUtf16(c.sesion) + u"<>0"_s;
  }
  const QString sql = dao::conMarcas(
      u"SELECT s.CODGPO, g.NOMGPO, {campos} FROM Sesiones s LEFT JOIN GRUPOS g ON "
      u"g.CODGPO=s.CODGPO WHERE {alguna} ORDER BY s.CODGPO",
      {{u"campos", campos.join(u',')}, {u"alguna", marcas.join(u" OR "_s)}});
  return dao::recorrer(f_.db.consultar(sql), [&](const dao::Recordset& rs) {
    EsperaResumen e{static_cast<int>(rs.entero(0)), rs.texto(1).trimmed(), {}, f_.ahora};
    int columna = 2;
    for (const auto& c : clases) {
      if (rs.logico(columna)) {
        e.clases.push_back(c.tipo);
        if (!rs.nulo(columna + 1)) e.desde = std::min(e.desde, rs.fecha(columna + 1));
      }
      columna += 2;
    }
    r_.bandeja.push_back(std::move(e));
  });
}

Resultado<> LectorResumen::leerDebidos() {
  TARVO_TOMAR(const auto todos, Pendientes(f_.db).todos());
  r_.debidos = static_cast<int>(todos.size());
  TARVO_TOMAR(const auto dudas, totals::dudasAbiertas(f_.db));
  r_.dudasCero = static_cast<int>(dudas.size());
  for (const auto& duda : dudas) r_.conDuda.insert(duda.grupo);
  return {};
}

void LectorResumen::proponer(const LineaActivacion& linea, const QString& proceso,
                             const QString& horario, bool activo) {
  const auto cuando = proximaVez(linea, f_.ahora);
  if (!cuando || (r_.proxima && r_.proxima->cuando <= *cuando)) return;
  r_.proxima = ProximaResumen{proceso, horario, *cuando, activo};
}

void LectorResumen::leerCronos() {
  if (!f_.cronos || f_.cronos->siguiente() < 0) return;
  for (const Entrada& e : f_.cronos->entradas())
    if (e.estado != EstadoEntrada::Inutil) proponer(e.linea, e.proceso, {}, true);
}

// One file per step; an unreadable one has no timetable.
void LectorResumen::leerHorarios() {
  const QDir carpeta(f_.ajustes.HomeDir);
  for (const QString& fichero :
       carpeta.entryList({u"*.cro"_s, u"*.aut"_s}, QDir::Files | QDir::Readable, QDir::Name))
    anadir([this, ruta = carpeta.filePath(fichero)]() -> Resultado<> {
      leerHorario(ruta);
      return {};
    });
}

void LectorResumen::leerHorario(const QString& ruta) {
  const auto texto = f_.lenguaje.leerTexto(ruta);
  if (!texto) return;
  const auto lineas = f_.lenguaje.leerCro(*texto, ruta.endsWith(u".aut", Qt::CaseInsensitive));
  if (!lineas) return;
  const QString horario = nombreBaseDe(ruta);
  const Fecha escrito = Fecha::de(QFileInfo(ruta).lastModified());
  const bool activo = r_.proxima && r_.proxima->activo;
  for (const auto& l : *lineas) {
    const QString proceso = l.nombre == u"@" ? horario : nombreBaseDe(l.nombre);
    mirarPerdida(l, proceso, escrito);
    if (!activo) proponer(l, proceso, NombreFichero(ruta), false);
  }
}

// A process used by this shop that was not run when its timetable last required it.
void LectorResumen::mirarPerdida(const LineaActivacion& linea, const QString& proceso,
                                 Fecha escrito) {
  const auto suya = ultimas_.find(proceso);
  if (suya == ultimas_.end()) return;
  std::optional<Fecha> debida;
  for (auto vez = proximaVez(linea, f_.ahora - kHorarioMirado); vez && *vez < f_.ahora - kGracia;
       vez = proximaVez(linea, *vez))
    debida = vez;
  if (!debida || *debida < escrito || suya->second > *debida - kAdelanto) return;
  r_.avisos.push_back(
      {0, f_.textos(kTxNocheNoEjecutada, {proceso, debida->general()}), PesoAviso::Grave});
}

}  // namespace tarvo::automation
