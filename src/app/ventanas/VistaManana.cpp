#include "app/ventanas/VistaManana.h"

#include <algorithm>
#include <cmath>
#include <ranges>
#include <utility>

#include "app/Aplicacion.h"
#include "app/ventanas/TextosPrincipal.h"
#include "automation/Ejecutor.h"
#include "comm/motor/TextosMotor.h"
#include "core/dinero/Dinero.h"
#include "core/ventanas/TextosVentanas.h"
#include "totals/periodos/Calendario.h"

namespace tarvo::app {

using namespace Qt::StringLiterals;
using automation::EstadoGrupo;
using automation::FinEjecucion;
using automation::Resumen;
using ventanas::Clase;
using ventanas::Estado;

namespace {

constexpr size_t kAvisosVistos = 5, kGruposVistos = 200, kEsperanVistos = 3, kPosterioresVistas = 3;

QString horaCorta(Fecha momento) {
  return momento.horaLarga().left(5);
}

class Redactor {
 public:
  Redactor(const Resumen& r, const Textos& t, const Ajustes& a)
      : r_(r), t_(t), a_(a), formato_(a) {}

  Renglon noche() const;
  Renglon comoFue() const;
  Renglon ventas() const;
  Renglon bandeja() const;
  Renglon proxima() const;
  Renglon grupo(const automation::GrupoResumen& g) const;
  std::vector<Renglon> deArranque() const;
  std::vector<Renglon> avisos() const;
  std::vector<Renglon> grupos() const;
  QString cuenta() const;

 private:
  QString cuando(Fecha momento) const { return cuandoFue(momento, r_.ahora, t_); }
  QString ver(Clase clase, const dao::Valor& valor, int cifras = 0) const {
    return formato_.ver({.clase = clase, .cifras = cifras}, valor, 0);
  }
  QString nombreGrupo(int grupo, const QString& nombre) const {
    return ver(Clase::Codigo, grupo, 4) + u' ' + nombre;
  }
  QString frase(const automation::EjecucionHecha& e) const;
  QString comparado(const automation::PeriodoResumen& p) const;
  const automation::PeriodoResumen& principal() const;
  void ponerImporte(Renglon& r, const automation::GrupoResumen& g) const;
  void ponerTraza(Renglon& r) const;
  Lleva loQueLoExplica(const automation::GrupoResumen& g) const;

  const Resumen& r_;
  const Textos& t_;
  const Ajustes& a_;
  ventanas::Formato formato_;
};

// --- the night ----------------------------------------------------------------------------------

QString Redactor::frase(const automation::EjecucionHecha& e) const {
  switch (e.fin) {
    case FinEjecucion::EnMarcha:
      return t_(kTxSigueDesde, {e.nombre, cuando(e.inicio)});
    case FinEjecucion::Interrumpida:
      return t_(kTxSeCorto, {e.nombre, cuando(e.inicio)});
    case FinEjecucion::Abortada:
      return t_(kTxNocheAbortada, {e.nombre, cuando(e.inicio)});
    case FinEjecucion::Problemas:
    case FinEjecucion::Bien:
      return t_(kTxCuandoFue, {e.nombre, cuando(e.inicio), horaCorta(e.final.value_or(e.inicio))});
  }
  std::unreachable();
}

// The trace contains all details of a run.
void Redactor::ponerTraza(Renglon& r) const {
  const QString& traza = r_.ejecuciones[r_.noche].traza;
  r.lleva = traza.isEmpty() ? automation::PuertaVeoLog()
                            : automation::PuertaVeoLog{Ajustes::ruta(traza, a_.HomeDir)};
}

Renglon Redactor::noche() const {
  if (r_.ejecuciones.empty())
    return {
        .palabra = {}, .titulo = t_(kTxSinNoche), .texto = t_(kTxSinNocheQueHacer), .valor = {}};
  Renglon r = comoFue();
  QStringList frases{frase(r_.ejecuciones[r_.noche])};
  frases += r_.sinQueHacer;
  for (size_t i = std::min(r_.noche, kPosterioresVistas); i > 0; --i)
    frases << t_(kTxDespues, {frase(r_.ejecuciones[i - 1])});
  r.texto = frases.join(u' ');
  r.valor = t_(kTxVerTraza);
  ponerTraza(r);
  return r;
}

// The verdict on the night alone, and on what was run or mended after it.
Renglon Redactor::comoFue() const {
  const FinEjecucion fin = r_.ejecuciones[r_.noche].fin;
  Renglon r;
  if (fin == FinEjecucion::EnMarcha) {
    r.titulo = t_(kTxNocheEnMarcha);
    return r;
  }
  const auto hay = [this](auto cual) { return std::ranges::any_of(r_.grupos, cual); };
  const auto mal = [](const auto& g) {
    return g.estado == EstadoGrupo::Fallido || g.estado == EstadoGrupo::Dudoso;
  };
  const bool cortada = fin == FinEjecucion::Interrumpida || fin == FinEjecucion::Abortada;
  const bool tropezo = cortada || (fin == FinEjecucion::Problemas && r_.sinQueHacer.isEmpty());
  const bool sinPedir = cortada && hay([](const auto& g) {
                          return g.comunica && g.estado == EstadoGrupo::SinIntentar;
                        });
  const bool faltan = sinPedir || hay([&](const auto& g) { return mal(g) && !g.posterior; });
  const bool algo = hay([](const auto& g) { return g.arreglado; });
  const bool arreglada = !faltan && algo;
  if (hay([](const auto& g) { return g.estado == EstadoGrupo::Fallido && !g.posterior; }) ||
      (cortada && (sinPedir || !algo))) {
    r.estado = Estado::Mal;
    r.titulo = t_(kTxNocheMal);
  } else if (faltan || !r_.avisos.empty() || (tropezo && !arreglada)) {
    r.estado = Estado::Duda;
    r.titulo = t_(kTxNocheDudosa);
  } else if (tropezo && !r_.bandeja.empty()) {
    r.estado = Estado::Duda;
    r.titulo = t_(kTxNocheSinMemorizar);
  } else {
    r.estado = Estado::Bien;
    r.titulo = t_(tropezo ? kTxNocheResuelta : kTxNocheBien);
  }
  if (hay([&](const auto& g) { return mal(g) && g.posterior; })) {
    r.estado = Estado::Mal;
    r.titulo = t_(kTxYDespuesMal, {r.titulo});
  }
  return r;
}

// Problems of the start-up come first: everything else depends on it.
std::vector<Renglon> Redactor::deArranque() const {
  std::vector<Renglon> lista;
  if (baseFuera(a_))
    lista.push_back({.estado = Estado::Duda,
                     .palabra = t_(kTxVerAjustes),
                     .titulo = t_(kTxBaseFuera),
                     .texto = t_(kTxBaseFueraQue, {a_.BaseDatos, a_.carpeta}),
                     .valor = {}});
  for (const QString& duda : dudasDe(a_, t_).mid(0, kAvisosVistos))
    lista.push_back({.estado = Estado::Duda,
                     .palabra = t_(kTxVerAjustes),
                     .titulo = {},
                     .texto = duda,
                     .valor = {},
                     .lleva = PuertaPortalCnf()});
  for (const Ajustes::Pisada& p : a_.pisadas | std::views::take(kAvisosVistos))
    lista.push_back({.estado = Estado::Duda,
                     .palabra = t_(kTxVerAjustes),
                     .titulo = {},
                     .texto = automation::decirPisada(p, t_),
                     .valor = {},
                     .lleva = PuertaPortalCnf()});
  return lista;
}

std::vector<Renglon> Redactor::avisos() const {
  std::vector<Renglon> lista = deArranque();
  if (r_.dudasCero > 0)
    lista.push_back({.estado = Estado::Duda,
                     .palabra = t_(kTxVerDudasCero),
                     .titulo = {},
                     .texto = Plural(t_(kTxHayDudasCero), r_.dudasCero),
                     .valor = {},
                     .lleva = totals::PuertaDudasCero()});
  if (r_.debidos > 0)
    lista.push_back({.estado = Estado::Duda,
                     .palabra = t_(kTxVerDebidos),
                     .titulo = {},
                     .texto = Plural(t_(kTxQuedaPorHacer), r_.debidos),
                     .valor = {},
                     .lleva = automation::PuertaDebidos()});
  const size_t hasta = lista.size() + kAvisosVistos;
  for (const auto& aviso : r_.avisos) {
    if (lista.size() == hasta) break;
    Renglon r{.estado = Estado::Duda,
              .palabra = t_(kTxVerAviso),
              .titulo = {},
              .texto = aviso.texto,
              .valor = {}};
    ponerTraza(r);
    lista.push_back(std::move(r));
  }
  return lista;
}

// --- figures ------------------------------------------------------------------------------------

QString Redactor::comparado(const automation::PeriodoResumen& p) const {
  const auto media = p.media();
  if (!media || *media == 0) return t_(kTxSinOtras);
  const auto semanas = static_cast<int>(
      std::ranges::count_if(p.anteriores, [](const auto& a) { return a.has_value(); }));
  const QString dias = Plural(t_(kTxDiaDeSemana + p.desde.diaSemana() - 1), semanas);
  const double diferencia =
      100.0 * static_cast<double>(p.importe - *media) / static_cast<double>(*media);
  if (std::abs(diferencia) < 0.5) return t_(kTxComoOtras, {dias});
  return t_(diferencia > 0 ? kTxMasQueOtras : kTxMenosQueOtras,
            {ver(Clase::Porcentaje, std::abs(diferencia)), dias, ver(Clase::Importe, *media)});
}

std::vector<double> barrasDe(const automation::PeriodoResumen& p) {
  qint64 mayor = std::max<qint64>(p.importe, 1);
  for (const auto& a : p.anteriores) mayor = std::max(mayor, a.value_or(0));
  std::vector<double> barras;
  const auto parte = [mayor](qint64 n) {
    return static_cast<double>(std::max<qint64>(n, 0)) / static_cast<double>(mayor);
  };
  for (auto a = p.anteriores.rbegin(); a != p.anteriores.rend(); ++a)
    barras.push_back(*a ? parte(**a) : -1);
  barras.push_back(parte(p.importe));
  return barras;
}

// The day created by the night, otherwise the first period created by it. REQUIRES a period.
const automation::PeriodoResumen& Redactor::principal() const {
  const auto dia =
      std::ranges::find(r_.periodos, totals::kDiario, &automation::PeriodoResumen::tipo);
  return dia != r_.periodos.end() ? *dia : r_.periodos.front();
}

Renglon Redactor::ventas() const {
  Renglon r{.palabra = {},
            .titulo = t_(kTxVentas),
            .texto = {},
            .valor = {},
            .lleva = totals::PuertaVerTot()};
  if (r_.periodos.empty()) {
    r.valor = t_(kTxSinVentas);
    if (!r_.ejecuciones.empty())
      r.texto = t_(r_.perdidos > 0 ? kTxPeriodoPerdido : kTxSinVentasQueHacer);
    return r;
  }
  const auto& p = principal();
  r.titulo += u": "_s + p.texto;
  r.valor = ver(Clase::Importe, p.importe) + u' ' +
            a_.MonedaLogo[static_cast<size_t>(a_.MonedaPreferente != 0)].trimmed();
  r.lleva = totals::PuertaVerTot{p.link};
  r.texto = p.descripcion;
  if (p.tipo != totals::kDiario) return r;
  r.texto = comparado(p);
  if (p.media()) r.barras = barrasDe(p);
  return r;
}

Renglon Redactor::bandeja() const {
  Renglon r{.palabra = {},
            .titulo = t_(kTxBandeja),
            .texto = {},
            .valor = t_(kTxBandejaVacia),
            .lleva = comm::PuertaGestcomm()};
  if (r_.bandeja.empty()) {
    r.texto = t_(r_.sesion == 0 ? kTxSesionCerrada : kTxSesionAbierta);
    return r;
  }
  r.lleva = totals::PuertaCerrSes();
  r.estado = Estado::Duda;
  r.valor = Plural(t_(kTxGruposEsperan), static_cast<int>(r_.bandeja.size()));
  Fecha desde = r_.ahora;
  QStringList lineas, todo;
  for (const auto& e : r_.bandeja) {
    desde = std::min(desde, e.desde);
    QStringList clases;
    for (const TipoTotal c : e.clases)
      clases << t_(motor::kTxMensajeClase + numeroDe(lecturaDe(c)));
    const QString nombre = nombreGrupo(e.grupo, e.nombre) + u": "_s;
    todo << nombre + clases.join(u", "_s);
    if (lineas.size() < static_cast<qsizetype>(kEsperanVistos))
      lineas << nombre + (e.clases.size() == 1
                              ? clases.first()
                              : Plural(t_(kTxClases), static_cast<int>(e.clases.size())));
  }
  if (const auto mas = r_.bandeja.size() - static_cast<size_t>(lineas.size()); mas > 0)
    lineas << Plural(t_(kTxYMas), static_cast<int>(mas));
  r.detalle = todo.join(u'\n');
  r.texto = t_(kTxEsperanDesde, {cuando(desde)}) + u'\n' + lineas.join(u'\n');
  return r;
}

Renglon Redactor::proxima() const {
  Renglon r{.palabra = {},
            .titulo = t_(kTxProxima),
            .texto = t_(kTxSinProximaQueHacer),
            .valor = t_(kTxSinProxima),
            .lleva = automation::PuertaEdiCron()};
  if (!r_.proxima) return r;
  const auto& p = *r_.proxima;
  const auto dias = r_.ahora.qdate().daysTo(p.cuando.qdate());
  const QString hora = horaCorta(p.cuando);
  r.valor = dias == 0   ? hora
            : dias == 1 ? t_(kTxMananaHora, {hora})
            : dias < 7  ? t_(kTxDiaYHora, {t_(kTxNombreDia + p.cuando.diaSemana() - 1), hora})
                        : t_(kTxDiaYHora, {p.cuando.corta(), hora});
  if (p.activo) {
    r.lleva = automation::PuertaCronos();
    r.texto = t_(kTxProximaActiva, {p.proceso, cuando(p.cuando)});
  } else {
    r.estado = Estado::Duda;
    r.texto = t_(kTxProximaParada, {p.proceso, cuando(p.cuando), p.horario});
    r.lleva = automation::PuertaEdiCron{Ajustes::ruta(p.horario, a_.HomeDir)};
  }
  return r;
}

// --- groups -------------------------------------------------------------------------------------

Renglon Redactor::grupo(const automation::GrupoResumen& g) const {
  static constexpr struct {
    Estado estado;
    int palabra;
  } kModos[] = {{Estado::Bien, ventanas::kTxBien},
                {Estado::Duda, kTxGrupoDudoso},
                {Estado::Mal, kTxGrupoFallido},
                {Estado::Ninguno, kTxGrupoSinIntentar},
                {Estado::Ninguno, kTxGrupoEnMarcha}};
  const auto& modo = kModos[static_cast<size_t>(g.estado)];
  Renglon r{.estado = modo.estado,
            .palabra = t_(modo.palabra),
            .titulo = nombreGrupo(g.grupo, g.nombre),
            .texto = g.motivo,
            .valor = {},
            .lleva = comm::PuertaGestcomm{g.grupo}};
  if (g.estado == EstadoGrupo::Fallido || g.estado == EstadoGrupo::Dudoso)
    r.lleva = loQueLoExplica(g);
  // A single line; the other reasons are in the tool tip and in the trace.
  if (g.estado != EstadoGrupo::Bien && g.motivos.size() > 1) {
    if (!r.texto.endsWith(u'.')) r.texto += u'.';
    r.texto += u' ' + Plural(t_(kTxYMotivosMas), static_cast<int>(g.motivos.size()) - 1);
    r.detalle = g.motivos.join(u'\n');
  }
  ponerImporte(r, g);
  if (g.estado != EstadoGrupo::Bien) return r;
  if (g.link > 0)
    r.lleva = totals::PuertaVerCols{.link = g.link, .grupo = g.grupo};
  else
    r.lleva = comm::PuertaEstadoEnvio{g.grupo};  // it was sent to, or no sales of it were asked for
  return r;
}

// The question that has to be answered, else its tasks while the queue has some, else the trace of
// the run, else what was read of it.
Lleva Redactor::loQueLoExplica(const automation::GrupoResumen& g) const {
  if (r_.conDuda.contains(g.grupo)) return totals::PuertaDudasCero();
  if (r_.enCola.contains(g.grupo)) return comm::PuertaGestcomm{g.grupo};
  const auto e =
      std::ranges::find(r_.ejecuciones, g.ejecucion, &automation::EjecucionHecha::numero);
  if (e != r_.ejecuciones.end() && !e->traza.isEmpty())
    return automation::PuertaVeoLog{Ajustes::ruta(e->traza, a_.HomeDir)};
  if (std::ranges::find(r_.bandeja, g.grupo, &automation::EsperaResumen::grupo) != r_.bandeja.end())
    return totals::PuertaCerrSes();
  return comm::PuertaGestcomm{g.grupo};
}

// All amounts in the column belong to one period; that of a group in another period is added to its
// text.
void Redactor::ponerImporte(Renglon& r, const automation::GrupoResumen& g) const {
  if (!g.importe) return;
  const auto suyo = std::ranges::find(r_.periodos, g.link, &automation::PeriodoResumen::link);
  if (suyo == r_.periodos.end() || suyo->link == principal().link)
    r.valor = ver(Clase::Importe, *g.importe);
  else
    r.texto += u' ' + t_(kTxEnOtroPeriodo, {ver(Clase::Importe, *g.importe), suyo->texto});
}

// Groups that need attention come first.
std::vector<Renglon> Redactor::grupos() const {
  std::vector<Renglon> lista;
  for (const auto estado : {EstadoGrupo::Fallido, EstadoGrupo::Dudoso, EstadoGrupo::EnMarcha,
                            EstadoGrupo::SinIntentar, EstadoGrupo::Bien})
    for (const auto& g : r_.grupos)
      if (g.estado == estado && lista.size() < kGruposVistos) lista.push_back(grupo(g));
  if (const auto mas = r_.grupos.size() - lista.size(); mas > 0)
    lista.push_back({.palabra = {},
                     .titulo = Plural(t_(kTxYMas), static_cast<int>(mas)),
                     .texto = {},
                     .valor = {},
                     .lleva = comm::PuertaGestcomm()});
  return lista;
}

QString Redactor::cuenta() const {
  if (r_.grupos.empty()) return t_(kTxSinGrupos);
  QStringList partes;
  const auto contar = [&](EstadoGrupo estado, int texto) {
    if (const int n = r_.cuantos(estado); n > 0) partes << Plural(t_(texto), n);
  };
  contar(EstadoGrupo::Fallido, kTxCuentaFallidos);
  contar(EstadoGrupo::Dudoso, kTxCuentaDudosos);
  contar(EstadoGrupo::EnMarcha, kTxCuentaEnMarcha);
  contar(EstadoGrupo::SinIntentar, kTxCuentaSinIntentar);
  contar(EstadoGrupo::Bien, kTxCuentaBien);
  return partes.join(u", "_s);
}

}  // namespace

QString cuandoFue(Fecha momento, Fecha ahora, const Textos& t) {
  const QString hora = horaCorta(momento);
  switch (ahora.qdate().daysTo(momento.qdate())) {
    case 0:
      return t(kTxHoy, {hora});
    case -1:
      return t(kTxAyer, {hora});
    case 1:
      return t(kTxDiaSiguiente, {hora});
    default:
      return t(kTxDia, {momento.corta(), hora});
  }
}

VistaManana vistaDe(const Resumen& resumen, const Textos& textos, const Ajustes& ajustes) {
  const Redactor d(resumen, textos, ajustes);
  return {d.noche(), d.ventas(), d.bandeja(), d.proxima(), d.avisos(), d.grupos(), d.cuenta()};
}

}  // namespace tarvo::app
