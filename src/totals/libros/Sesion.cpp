#include "totals/libros/Sesion.h"

#include <cmath>

#include "core/ajustes/Sala.h"
#include "totals/libros/Accesos.h"
#include "totals/libros/AjustesSesion.h"
#include "totals/libros/Bajas.h"
#include "totals/libros/SesionInterior.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;

namespace {

const QString kClaveEstado = u"SesionAbier"_s;
const QString kClaveHasta = u"SesionHasta"_s;
const QString kClaveCero = u"SesionACero"_s;
const QString kClaveDe = u"SesionDe"_s;
const QString kClaveNombre = u"SesionNombre"_s;
// The longest collection, in days: the readings of a run end together, so that they make one
// period. Without a run, or in a resumed one, there may have been sales in between.
constexpr double kDeUnaVez = 0.5, kSinContinuidad = 1.0 / 24;

constexpr Limites kEstados{0, 2};

}  // namespace

SalaDeAjustes ajustesSesion(Fecha ahora) {
  using A = AjustesSesion;
  return salaDeAjustes(
      A{.SesionAbier = 0, .SesionHasta = ahora, .SesionACero = ahora},
      {clave<&A::SesionAbier, ini::leerLimitado<kEstados>>(800, u"SesiónAbier"),
       clave<&A::SesionHasta, ini::leerFecha, ini::verFecha>(801, u"SesiónHasta"),
       clave<&A::SesionACero, ini::leerFecha, ini::verFecha>(802, u"SesiónACero")});
}

Sesion::Sesion(dao::Database& db, Ajustes& ajustes, Reloj& reloj, const Textos& textos)
    : db_(db),
      ajustes_(ajustes),
      reflejo_(ajustes.de<AjustesSesion>()),
      reloj_(reloj),
      textos_(textos),
      d(std::make_unique<Estado>(db)) {}

Sesion::~Sesion() = default;

int Sesion::estado() const {
  return d->abierta;
}

qint64 Sesion::ejecucion() const {
  return d->ejecucion;
}

void Sesion::ponerEjecucion(qint64 numero, bool reanuda) {
  d->ejecucion = numero;
  d->reanuda = reanuda;
  d->leidosAhora.clear();
  d->retenidas.clear();
  d->rechazadas.clear();
  d->porDecir.clear();
}

void Sesion::ponerEnProceso(bool si) {
  d->enProceso = si;
}

Resultado<> Sesion::cargar() {
  d->abierta = reflejo_.SesionAbier;
  d->hasta = reflejo_.SesionHasta;
  d->aCero = reflejo_.SesionACero;
  TARVO_TOMAR(const auto guardado, d->valores.leer(kClaveEstado));
  if (guardado.nulo()) return {};
  TARVO_TOMAR(const auto hasta, d->valores.leer(kClaveHasta));
  TARVO_TOMAR(const auto aCero, d->valores.leer(kClaveCero));
  d->abierta = static_cast<int>(guardado.entero());
  d->hasta = hasta.fecha();
  d->aCero = aCero.fecha();
  TARVO_TOMAR(const auto de, d->valores.leer(kClaveDe));
  d->de = de.entero();
  return {};
}

Resultado<> Sesion::ponerEstado(int nuevo) {
  TARVO_INTENTAR(d->valores.poner(kClaveEstado, nuevo));
  TARVO_INTENTAR(d->valores.poner(kClaveHasta, d->hasta));
  TARVO_INTENTAR(d->valores.poner(kClaveCero, d->aCero));
  TARVO_INTENTAR(d->valores.poner(kClaveDe, d->de));
  const bool ajena = d->abierta == 0 && !d->enProceso;
  if (nuevo == 0 || ajena) TARVO_INTENTAR(ponerNombre({}));
  d->abierta = nuevo;
  return {};
}

Resultado<> Sesion::ponerNombre(const QString& nombre) {
  return d->valores.poner(kClaveNombre, nombre);
}

Resultado<QString> Sesion::nombre() {
  TARVO_TOMAR(const auto guardado, d->valores.leer(kClaveNombre));
  return guardado.texto();
}

Resultado<bool> Sesion::AbrirSesion() {
  if (d->abierta > 0) return false;
  const Estado::Foto antes = d->foto();
  TARVO_TOMAR(auto tr, dao::Transaccion::empezar(db_));
  QStringList campos;
  for (const ClaseTotal& c : enVigor(ajustes_)) campos << CampoSesion(c.tipo) + u"=FALSE"_s;
  const auto abrir = [&]() -> Resultado<> {
    TARVO_INTENTAR(db_.ejecutar(
        dao::conMarcas(u"UPDATE Sesiones SET {campos}", {{u"campos", campos.join(u", "_s)}})));
    d->hasta = d->aCero = reloj_.ahora();
    d->de = d->ejecucion;
    TARVO_INTENTAR(ponerEstado(1));
    return tr.confirmar();
  };
  if (auto r = abrir(); !r) {
    d->volver(antes);
    return std::unexpected(r.error());
  }
  return true;
}

void Sesion::Estado::renovar(Fecha ahora) {
  const double plazo = ejecucion == 0 || reanuda ? kSinContinuidad : kDeUnaVez;
  if (de == ejecucion && std::abs(ahora - hasta) < plazo) return;
  hasta = aCero = ahora;
  de = ejecucion;
}

Resultado<> Sesion::reflejar() {
  reflejo_.SesionAbier = d->abierta;
  reflejo_.SesionHasta = d->hasta;
  reflejo_.SesionACero = d->aCero;
  return ajustes_.GuardarConfig();
}

Resultado<bool> Sesion::PuedeRecibir(int grupo, TipoTotal clase) {
  TARVO_TOMAR(const auto rs,
              db_.consultar(dao::conMarcas(
                                u"SELECT PZERO, {hasta}, {enSesion} FROM Sesiones WHERE CODGPO=?",
                                {{u"hasta", CampoHasta(clase)}, {u"enSesion", CampoSesion(clase)}}),
                            grupo));
  if (rs->Eof() || d->abierta == 0 || !rs->logico(2)) return true;
  // A zeroing begun after this reading, confirmed or not: for its machine the reading is all that
  // is left, though the others of the group wait for theirs.
  TARVO_TOMAR(
      const auto empezada,
      db_.uno(
          u"SELECT count(*) FROM Ceros, Lecturas WHERE Ceros.GRUPO=? AND Lecturas.GRUPO=Ceros.GRUPO "_s
          u"AND Lecturas.CLASE=? AND SEC_INTENCION>SEC"_s,
          grupo, numeroDe(clase)));
  if (empezada.entero() > 0) return false;
  if (rs->nulo(0) || rs->nulo(1)) return true;
  return rs->fecha(0) < rs->fecha(1);
}

Resultado<> Sesion::PrepararRecepcion(int grupo, TipoTotal clase) {
  TARVO_TOMAR(const QString acceso, accesoDe(db_, grupo));
  d->accesos[{grupo, clase}] = acceso;
  return d->anotarLectura(grupo, clase, Estado::kEnCurso, reloj_.ahora());
}

Resultado<> Sesion::lecturaFallida(int grupo, TipoTotal clase) {
  TARVO_TOMAR(auto tr, dao::Transaccion::empezar(db_));
  TARVO_INTENTAR(d->anotarLectura(grupo, clase, Estado::kFallida, reloj_.ahora()));
  const auto rechazada = d->rechazadas.find({grupo, clase});
  if (rechazada != d->rechazadas.end()) {
    TARVO_TOMAR(const auto sec, d->valores.siguienteSecuencia());
    TARVO_TOMAR(const auto otros, otrosDelAcceso(db_, grupo, rechazada->second.acceso));
    if (otros.empty())
      TARVO_INTENTAR(anotarRechazada(db_, grupo, clase, rechazada->second.lectura, sec));
  }
  TARVO_INTENTAR(tr.confirmar());
  if (rechazada != d->rechazadas.end()) d->rechazadas.erase(rechazada);
  return {};
}

}  // namespace tarvo::totals
