#include <QBuffer>
#include <QFileInfo>
#include <array>
#include <cmath>

#include "core/ajustes/Ficheros.h"
#include "core/dao/Recorrido.h"
#include "core/textos/Textos.h"
#include "totals/TextosTotals.h"
#include "totals/intercambio/Exportado.h"
#include "totals/intercambio/FinDeFichero.h"
#include "totals/intercambio/Lector.h"
#include "totals/intercambio/Vuelta.h"
#include "totals/intercambio/XporTot.h"
#include "totals/periodos/FilasTotales.h"

namespace tarvo::totals {

namespace {

struct Cabecera {
  Fecha desde, hasta;
  QString comentario;
};
// Two consecutive star lines, in either order. Nothing when they are missing; the reader is then on
// the faulty line. A comment may look like dates: the comment is written first.
std::optional<Cabecera> leerCabecera(Lector& l) {
  const auto fechas1 = leerFechas(l.linea());
  const QString primera = l.linea().mid(1);
  l.siguiente();
  if (!l.esCabecera()) return std::nullopt;
  const auto fechas2 = leerFechas(l.linea());
  if (!fechas1 && !fechas2) return std::nullopt;
  const auto& f = fechas2 ? *fechas2 : *fechas1;
  const Cabecera c{f.first, f.second, fechas2 ? primera : l.linea().mid(1)};
  l.siguiente();
  return c;
}

std::unexpected<Error> noReconocible(const Lector& l, const QString& nombre, const Textos& textos) {
  if (const auto averia = l.averia())
    return fallo(Fallo::Interno, textos(kTxSinLeerHastaElFinal, {nombre, *averia}));
  return fallo(Fallo::Formato, l.fin() ? textos(kTxFinNoReconocible, {nombre})
                                       : textos(kTxLineaNoReconocible, {nombre, l.numero()}));
}

// Adds rows to one period, keeping one prepared statement per kind.
class Sumador {
 public:
  Sumador(dao::Database& db, qint64 link) : db_(db), link_(link) {}
  Resultado<> sumar(const FilaExport& f) {
    const ClaseTotal& c = claseDe(f.clase);
    auto& s = sentencias_[f.clase];
    if (!s) {
      TARVO_TOMAR(auto nueva, prepararSuma(db_, c));
      s = std::move(nueva);
    }
    int i = 0;
    for (const qint64 x : {link_, f.GRUPO, f.CODI}) s->ligar(i++, x);
    if (c.conHora) s->ligar(i++, f.HORA);
    for (const qint64 x : {f.c.CON, f.c.PES, f.c.IMP, f.c.SCO}) s->ligar(i++, x);
    TARVO_INTENTAR(s->ejecutar());
    return {};
  }
  Resultado<> comprobar(const Textos& textos) {
    for (const auto& [tipo, sentencia] : sentencias_)
      TARVO_INTENTAR(comprobarRango(db_, claseDe(tipo), link_, textos));
    return {};
  }

 private:
  dao::Database& db_;
  qint64 link_;
  std::map<TipoTotal, std::unique_ptr<dao::Sentencia>> sentencias_;
};

struct Detalle {
  int lineas = 0, supuestas = 0;
};
// The detail lines up to the next header.
Resultado<Detalle> leerDetalle(Lector& l, Sumador& sumador, const Ajustes& a,
                               const Secciones& secciones, const QString& nombre,
                               const Textos& textos) {
  Detalle d;
  for (; !l.fin() && !l.esCabecera(); l.siguiente()) {
    if (l.enBlanco()) continue;
    if (l.demasiadoLarga()) return noReconocible(l, nombre, textos);
    const auto fila = leerLineaExport(l.linea(), a, secciones);
    if (!fila && fila.error() == LineaMala::Dudosa)
      return fallo(Fallo::Formato, textos(kTxLineaDudosa, {nombre, l.numero()}));
    if (!fila) return noReconocible(l, nombre, textos);
    TARVO_INTENTAR(sumador.sumar(*fila));
    ++d.lineas;
    if (fila->supuesta) ++d.supuestas;
  }
  if (l.averia()) return noReconocible(l, nombre, textos);
  return d;
}

}  // namespace

ImpTot::ImpTot(Periodos& periodos) : db_(periodos.base()), p_(periodos), a_(periodos.ajustes()) {}

// The period of the general schedule. Dates that match a calendar period to the second are that
// period, even where the shop was closed: it was exported as such.
Periodo ImpTot::periodoDe(Fecha desde, Fecha hasta) const {
  const Periodo p = Calendario(a_).DeterminarPeriodo(desde, hasta, std::nullopt);
  if (p.tipo != kOtros) return p;
  for (int tipo = kDiario; tipo <= kAnual; ++tipo) {
    const Periodo entero = LimitesPeriodo(tipo, desde, hasta);
    if (entero.desde == desde && std::abs(entero.hasta - hasta) < 0.5 / 86400) return entero;
  }
  return p;
}

// The block's target period: emptied, created, or as it is.
Resultado<qint64> ImpTot::destino(const Periodo& p, const QString& descr, SiExiste siExiste) {
  TARVO_TOMAR(const auto hay, p_.BuscarPeriodo(p.tipo, p.desde, p.hasta));
  if (!hay) return p_.CrearPeriodo(p.tipo, p.desde, p.hasta, true, descr);
  if (siExiste == SiExiste::Acumularlo) return hay->LINK;
  const auto nuevo = p_.sustituir(*hay, descr);
  if (nuevo) TARVO_INTENTAR(p_.VaciarPeriodo(*nuevo));
  return nuevo;
}

struct Importacion::Interior {
  ImpTot& motor;
  QString nombre;
  Lector lector;
  std::optional<Bloque> bloque = {};
  bool empezado = false;
};

Importacion::Importacion(ImpTot& motor, std::unique_ptr<QIODevice> fichero, const QString& nombre)
    : d(new Interior{motor, nombre, Lector(std::move(fichero))}) {}

Importacion::~Importacion() = default;

Resultado<std::unique_ptr<Importacion>> Importacion::abrir(ImpTot& motor, const QString& ruta) {
  auto f = std::make_unique<QFile>(ruta);
  if (QFileInfo::exists(ruta) && !QFileInfo(ruta).isFile())
    return fallo(Fallo::Formato, motor.p_.textos()(kTxNoEsExportacion, {ruta}));
  if (!f->open(QIODevice::ReadOnly))
    return fallo(QFileInfo::exists(ruta) ? Fallo::SinPermiso : Fallo::NoExiste,
                 motor.p_.textos()(kTxSinLeerHastaElFinal, {ruta, f->errorString()}));
  TARVO_TOMAR(const bool cortado, faltaElFinal(motor.db_, ruta));
  if (cortado) return fallo(Fallo::Formato, motor.p_.textos()(kTxImportarCortado, {ruta}));
  return std::make_unique<Importacion>(motor, std::move(f), NombreFichero(ruta));
}

std::unique_ptr<Importacion> Importacion::deBytes(ImpTot& motor, const QByteArray& bytes,
                                                  const QString& nombre) {
  auto b = std::make_unique<QBuffer>();
  b->setData(bytes);
  b->open(QIODevice::ReadOnly);
  return std::make_unique<Importacion>(motor, std::move(b), nombre);
}

qint64 Importacion::leidos() const {
  return d->lector.leidos();
}

qint64 Importacion::tamano() const {
  return d->lector.tamano();
}

Resultado<std::optional<Importacion::Bloque>> Importacion::siguiente() {
  Lector& l = d->lector;
  d->bloque.reset();
  if (!std::exchange(d->empezado, true)) {
    while (!l.fin() && !l.esCabecera()) l.siguiente();
    if (l.fin()) return noReconocible(l, d->nombre, d->motor.p_.textos());
  }
  if (l.fin()) return std::nullopt;
  const auto cabecera = leerCabecera(l);
  if (!cabecera) return noReconocible(l, d->nombre, d->motor.p_.textos());
  const Periodo p = d->motor.periodoDe(cabecera->desde, cabecera->hasta);
  auto hay = d->motor.p_.BuscarPeriodo(p.tipo, p.desde, p.hasta);
  if (!hay) return std::unexpected(std::move(hay).error());
  d->bloque = Bloque{p, cabecera->comentario, *std::move(hay)};
  return d->bloque;
}

Resultado<ImpTot::Hecho> Importacion::incorporar(SiExiste siExiste, const AlCambiarFase& fase) {
  ImpTot& m = d->motor;
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(m.db_));
  const Periodo p = d->bloque->periodo;
  if (fase && d->bloque->existente && siExiste == SiExiste::Borrarlo) fase(Fase::Borrando);
  const auto link = m.destino(p, d->bloque->comentario, siExiste);
  if (!link)
    return fallo(link.error().clase, m.p_.textos()(kTxPeriodoSinCrear, {link.error().texto}),
                 link.error().numero);
  TARVO_TOMAR(const auto marcas, m.p_.DesacumularTodo(*link));
  if (fase) fase(Fase::Leyendo);
  Sumador sumador(m.db_, *link);
  TARVO_TOMAR(const auto secciones, leerSecciones(m.db_));
  TARVO_TOMAR(const auto detalle,
              leerDetalle(d->lector, sumador, m.a_, secciones, d->nombre, m.p_.textos()));
  TARVO_INTENTAR(sumador.comprobar(m.p_.textos()));
  TARVO_INTENTAR(m.p_.ReacumularTodo(*link, marcas));
  TARVO_INTENTAR(t.confirmar());
  return ImpTot::Hecho{*link, p, detalle.lineas, detalle.supuestas};
}

Resultado<> ImpTot::importarTodo(Importacion& fichero, SiExiste siExiste,
                                 std::vector<Hecho>& hechos) {
  while (true) {
    TARVO_TOMAR(const auto bloque, fichero.siguiente());
    if (!bloque) return {};
    TARVO_TOMAR(auto hecho, fichero.incorporar(siExiste));
    hechos.push_back(std::move(hecho));
  }
}

Resultado<> ImpTot::importarBytes(const QByteArray& bytes, const QString& nombre, SiExiste siExiste,
                                  std::vector<Hecho>& hechos) {
  return importarTodo(*Importacion::deBytes(*this, bytes, nombre), siExiste, hechos);
}

Resultado<> ImpTot::importar(const QString& ruta, SiExiste siExiste, std::vector<Hecho>& hechos) {
  TARVO_TOMAR(const auto fichero, Importacion::abrir(*this, ruta));
  return importarTodo(*fichero, siExiste, hechos);
}

}  // namespace tarvo::totals
