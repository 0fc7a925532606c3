#include "comm/tareas/Totales.h"
#include "comm/tareas/TextosTareas.h"

#include <algorithm>
#include <utility>

#include "comm/maquinas/Caja.h"
#include "comm/maquinas/Nodal.h"
#include "core/dinero/Dinero.h"

namespace tarvo::tareas {

using motor::Siguiente;

namespace {

// Of a frame of records: its own two characters and the number of its first record, which tells it
// from the other frames of its list.
constexpr qsizetype kCabezaDeTrama = 6;

}  // namespace

std::unexpected<Error> falloEn(const Error& e, int grupo, const QString& lugar,
                               const Textos& textos) {
  return tarvo::fallo(e.clase, textos(kTxEnGrupo, {grupo, lugar, e.texto}), e.numero);
}

std::unexpected<Error> malRegistro(const maquinas::RegistroMalo& malo, const Textos& textos) {
  const QString texto =
      malo.que == maquinas::RegistroMalo::Corto
          ? textos(kTxRegistroCorto, {malo.donde})
          : textos(kTxRegistroSinNumero, {malo.donde, QString::fromLatin1(malo.campo)});
  return tarvo::fallo(Fallo::Formato, texto, motor::kErrorTrama);
}

Resultado<std::array<qint64, 21>> leerOperadores(const motor::Entorno& e, int grupo) {
  std::array<qint64, 21> salida{};
  TARVO_TOMAR(auto rs, e.db.OpenTable(u"GRUPOS", u"CODGPO"));
  TARVO_TOMAR(const auto hay, rs->Seek(dao::Busca::Igual, grupo));
  if (!hay) return tarvo::fallo(Fallo::NoExiste, e.textos(kTxGrupoBorrado, {grupo}));
  for (size_t n = 1; n < salida.size(); ++n) {
    const int c = rs->columna(QStringLiteral("OP%1_C").arg(n, 2, 10, QLatin1Char('0')));
    salida[n] = c < 0 || rs->nulo(c) ? 0 : rs->entero(c);
  }
  return salida;
}

// --- all readings ---

Totales::Totales(const motor::DatosTarea& t, const motor::Entorno& e)
    : t_(t), total_(*totalDe(t.Clase)), e_(e) {}

Resultado<Siguiente> Totales::siguiente() {
  if (!anunciada_) {
    TARVO_INTENTAR(e_.sesion.PrepararRecepcion(t_.Grupo, total_));
    // A counter that is 0 because its field is missing would look like a machine that forgot.
    TARVO_TOMAR(const bool comparada, e_.sesion.conBase(t_.Grupo));
    if (comparada) malos_.sinTolerancia();
    anunciada_ = true;
  }
  if (!preparada_) {
    TARVO_INTENTAR(preparar());
    preparada_ = true;
  }
  return paso();
}

Resultado<std::vector<totals::Aviso>> Totales::cerrar() {
  std::vector<totals::Aviso> avisos;
  if (const auto donde = malos_.desmentido())
    return falloEn({Fallo::Formato, motor::kErrorTrama, e_.textos(kTxUnosEnterosYOtrosNo)},
                   t_.Grupo, *donde, e_.textos);
  malos_.avisar(t_.Grupo, e_.textos, avisos);
  TARVO_INTENTAR(e_.sesion.guardarLectura(t_.Grupo, total_, lectura_, avisos));
  return avisos;
}

QString Totales::trajo() const {
  qint64 conVentas = 0, importe = 0;
  for (const auto& [maquina, filas] : lectura_.maquinas)
    for (const auto& [clave, c] : filas) {
      conVentas += c.cero() ? 0 : 1;
      importe += c.IMP;
    }
  return e_.textos(kTxTrajo,
                   {conVentas, VerImporte(e_.ajustes, importe, e_.ajustes.MonedaPreferente)});
}

// --- kinds 1 and 4 ---

Resultado<Siguiente> PreguntasVek::paso() {
  filasGrupo();
  if (acabada()) return Siguiente::fin();
  const maquinas::Peticion p = pregunta();
  return Siguiente{Siguiente::Enviar, 0, p.codigo, p.datos, timeOut()};
}

bool PreguntasVek::encaja(int, int codigo, const QByteArray& datos) const {
  return !acabada() && codigo == pregunta().codigo && responde(datos);
}

Resultado<> PreguntasVek::respuesta(int, int, const QByteArray& datos) {
  const QString donde = lugar();
  const maquinas::Peticion p = pregunta();
  rigor_ = malos_.rigor(p.codigo, p.datos, datos);
  if (const auto r = registro(datos); !r) {
    malos_.anotar(p.codigo, p.datos, datos);
    if (malos_.insistir()) return {};
    return falloEn(r.error(), t_.Grupo, donde, e_.textos);
  }
  if (rigor_ == maquinas::Rigor::Tolerante)
    malos_.tomado(p.codigo, p.datos, datos, donde);
  else
    malos_.entero(p.codigo, datos);
  malos_.otraPregunta();
  ++hechas_;
  return {};
}

// --- kind 2 ---

ListaNodal::ListaNodal(const motor::DatosTarea& t, const motor::Entorno& e)
    : Totales(t, e), duda_(e, QStringLiteral("%1 N%2").arg(lineaDe(t)).arg(t.Addr)) {}

Resultado<Siguiente> ListaNodal::paso() {
  if (fase_ == 0) return Siguiente::fin();
  TARVO_INTENTAR(duda_.empezar());
  if (fase_ == 2) return Siguiente{Siguiente::EsperarNODAL, t_.Addr, 0, {}};
  const maquinas::Peticion p = pregunta();
  return Siguiente{Siguiente::Enviar, t_.Addr, p.codigo, p.datos};
}

// A frame with another request's code may belong to this list, which would look whole without it if
// it were passed over. It is taken, and spoils the reading.
bool ListaNodal::encaja(int, int, const QByteArray&) const {
  return true;
}

Resultado<> ListaNodal::respuesta(int, int codigo, const QByteArray& datos) {
  if (fase_ == 1) {
    fase_ = 2;
  } else if (codigo == maquinas::nodal::kFinDeLista) {
    if (malo_) {
      fase_ = 1;
      deNuevo();
      const Error malo = *std::exchange(malo_, {});
      return malos_.insistir() ? Resultado<>() : std::unexpected(malo);
    }
    if (recibidos_.empty() && !puedeVenirVacia())
      return falloEn({Fallo::Formato, 7, e_.textos(kTxListaVacia)}, t_.Grupo, lugar(), e_.textos);
    const auto vale = duda_.vale(recibidos_);
    if (!vale) return falloEn(vale.error(), t_.Grupo, lugar(), e_.textos);
    if (!*vale) {
      fase_ = 1;
      deNuevo();
      return {};
    }
    auto& suma = filas(0);
    suma.clear();
    for (const auto& [numero, r] : recibidos_) suma[r.first] += r.second;
    fase_ = 0;
    return duda_.acabar();
  } else if (codigo != pregunta().codigo && maquinas::nodal::esDePeticion(codigo)) {
    return falloEn({Fallo::Formato, 7, e_.textos(kTxTramaDeOtra, {codigo})}, t_.Grupo, lugar(),
                   e_.textos);
  } else {
    tomar(datos);
  }
  return {};
}

void ListaNodal::tomar(const QByteArray& datos) {
  const int preguntado = pregunta().codigo;
  const QByteArray primero = datos.left(kCabezaDeTrama);
  rigor_ = malos_.rigor(preguntado, primero, datos);
  const bool tolerado = rigor_ == maquinas::Rigor::Tolerante;
  const QString donde = tolerado ? lugar() : QString();
  const auto r = registros(datos);
  if (r && tolerado) return malos_.tomado(preguntado, primero, datos, donde);
  if (r) return malos_.entero(preguntado, primero, datos);
  if (!malo_) malo_ = falloEn(r.error(), t_.Grupo, lugar(), e_.textos).error();
  malos_.anotar(preguntado, primero, datos);
}

void ListaNodal::reanudar() {
  duda_.romper();
  if (fase_ != 2) return;
  fase_ = 1;
  if (std::exchange(malo_, {}))
    deNuevo();
  else
    otraVez();
}

// --- kind 3 ---

ListasCaja::ListasCaja(const motor::DatosTarea& t, const motor::Entorno& e)
    : Totales(t, e), duda_(e, lineaDe(t)) {
  // A register listed twice is one register: its sales count once.
  std::vector<int> distintas;
  for (const int addr : t_.Direcciones)
    if (std::ranges::find(distintas, addr) == distintas.end()) distintas.push_back(addr);
  t_.Direcciones = std::move(distintas);
}

Resultado<Siguiente> ListasCaja::paso() {
  if (t_.Direcciones.empty())
    return tarvo::fallo(Fallo::Restriccion, e_.textos(kTxSinCajasQueLeer, {t_.Grupo}),
                        motor::kErrorSuprimido);
  if (indice_ == t_.Direcciones.size()) return Siguiente::fin();
  TARVO_INTENTAR(duda_.empezar());
  const maquinas::Peticion p = pregunta();
  if (fase_ == 2) return Siguiente{Siguiente::EsperarVEK, direccion(), p.codigo, {}};
  lista_.clear();
  return Siguiente{Siguiente::Pedir, direccion(), p.codigo, p.datos};
}

// A frame with another request's code may belong to this list, as with kind 2.
bool ListasCaja::encaja(int addr, int, const QByteArray&) const {
  return indice_ < t_.Direcciones.size() && (addr < 0 || addr == direccion());
}

Resultado<> ListasCaja::respuesta(int, int codigo, const QByteArray& datos) {
  const auto donde = [&] { return e_.textos(kTxLugarCaja, {direccion(), lugar()}); };
  const auto sujeto = [&](const QByteArray& registroLeido) {
    return QByteArray::number(direccion()) + ' ' + maquinas::caja::clave(codigo, registroLeido);
  };
  const auto leer = [&](const QByteArray& registroLeido,
                        totals::Lectura::Filas& filas) -> Resultado<> {
    const QByteArray suyo = sujeto(registroLeido);
    rigor_ = malos_.rigor(codigo, suyo, registroLeido);
    if (const auto r = registro(registroLeido, filas); !r)
      return falloEn(r.error(), t_.Grupo, donde(), e_.textos);
    if (rigor_ == maquinas::Rigor::Tolerante)
      malos_.tomado(codigo, suyo, registroLeido, donde());
    else
      malos_.entero(codigo, suyo, registroLeido);
    return {};
  };
  if (codigo != pregunta().codigo)
    return falloEn({Fallo::Formato, 7, e_.textos(kTxTramaDeOtra, {codigo})}, t_.Grupo, lugar(),
                   e_.textos);
  if (!maquinas::caja::finDeLista(codigo, datos)) {
    totals::Lectura::Filas prueba;
    fase_ = 2;
    const auto r = leer(datos, prueba);
    if (r) return lista_[maquinas::caja::clave(codigo, datos)] = datos, Resultado<>{};
    if (!malo_) malo_ = r.error();
    malos_.anotar(codigo, sujeto(datos), datos);
    return {};
  }
  fase_ = 1;
  if (malo_) {
    const Error malo = *std::exchange(malo_, {});
    return malos_.insistir() ? Resultado<>() : std::unexpected(malo);
  }
  const auto vale = duda_.vale(lista_);
  if (!vale) return falloEn(vale.error(), t_.Grupo, lugar(), e_.textos);
  if (!*vale) return {};
  totals::Lectura::Filas suma;
  for (const auto& [clave, registroLeido] : lista_) TARVO_INTENTAR(leer(registroLeido, suma));
  filas(direccion()) = std::move(suma);
  malos_.otraPregunta();
  if (++indice_ == t_.Direcciones.size()) return duda_.acabar();
  return {};
}

void ListasCaja::reanudar() {
  fase_ = 1;
  malo_.reset();
  duda_.romper();
}

QString ListasCaja::MostrarTraza() const {
  return indice_ < t_.Direcciones.size() ? e_.textos(kTxPasoCaja, {direccion()}) : QString();
}

}  // namespace tarvo::tareas
