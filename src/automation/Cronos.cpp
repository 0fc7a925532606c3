#include "automation/Cronos.h"

#include <algorithm>
#include <cmath>
#include <set>

#include "automation/ProximaVez.h"
#include "automation/TextosAutomation.h"
#include "automation/historia/Traza.h"

namespace tarvo::automation {

using namespace Qt::StringLiterals;

namespace {

constexpr int kTicCronos = 500;
constexpr double kSegundosDia = 86400.0;
// The wall clock may overshoot an hour by this much between two ticks (daylight saving, a
// correction, a slow step), and the hour still counts. Beyond that, a missed hour is not made up.
constexpr double kSaltoMaximo = 3 / 24.0;

// Seconds since the day began.
int segundos(double fraccion) {
  return static_cast<int>(std::lround(fraccion * kSegundosDia));
}

QString conExtensionPorDefecto(const QString& nombre, const QString& extension) {
  return NombreFichero(nombre).contains(u'.') ? nombre : nombre + extension;
}

// Without folder and extension, in capitals.
QString nombreBase(const QString& nombre) {
  QString base = NombreFichero(nombre);
  if (const auto punto = base.lastIndexOf(u'.'); punto > 0) base.truncate(punto);
  return base.toUpper();
}

}  // namespace

struct Cronos::Interior {
  enum class Marcha { Parada = 0, EnCurso = 1, Bien = 2, Abortada = 3, Problemas = 4 };

  Interior(Cronos& cronos, Corredor elCorredor, const Lenguaje& elLenguaje,
           const Ajustes& losAjustes, Reloj& elReloj)
      : yo(cronos),
        corredor(std::move(elCorredor)),
        lenguaje(elLenguaje),
        ajustes(losAjustes),
        reloj(elReloj),
        temporizador(reloj.temporizador([this] { tic(); })) {}

  Resultado<> cargar(const QString& nombre);
  Entrada entradaDe(const LineaActivacion& linea, const QString& rutaHorario) const;
  void tic();
  void pasada(Fecha desde, Fecha ahora);
  bool vence(size_t i, Fecha desde, Fecha ahora);
  bool toca(const Entrada& e, QDate dia, Fecha desde, Fecha ahora) const;
  void arrancar(Entrada& e);
  int proxima(Fecha ahora) const;
  std::optional<Proxima> proximoInicio(Fecha ahora) const;
  void avisar(const QString& texto) const {
    if (yo.alAvisar) yo.alAvisar(texto);
  }

  Cronos& yo;
  Corredor corredor;
  Automat* automat = nullptr;  // that reports its ends by itself
  const Lenguaje& lenguaje;
  const Ajustes& ajustes;
  Reloj& reloj;
  std::unique_ptr<Temporizador> temporizador;
  std::vector<Entrada> entradas;
  std::vector<std::set<QDate>> vencidos;  // by entry: the days when it came due
  QString horario;                        // base name of the timetable, in capitals
  Marcha marcha = Marcha::Parada;
  bool activo = false;
  int siguiente = -1;
  Fecha ultimoTic;
};

// --- loading ------------------------------------------------------------------------------------

Resultado<> Cronos::Interior::cargar(const QString& nombre) {
  const QString fichero = conExtensionPorDefecto(nombre, u".CRO"_s);
  const QString ruta = Ajustes::ruta(fichero, ajustes.HomeDir);
  TARVO_TOMAR(const auto texto, lenguaje.leerTexto(ruta));
  TARVO_TOMAR(const auto lineas,
              lenguaje.leerCro(texto, fichero.endsWith(u".AUT", Qt::CaseInsensitive)));
  std::vector<Entrada> nuevas;
  nuevas.reserve(lineas.size());
  for (const auto& l : lineas) nuevas.push_back(entradaDe(l, ruta));
  entradas = std::move(nuevas);
  vencidos.assign(entradas.size(), {});
  horario = nombreBase(fichero);
  return {};
}

Entrada Cronos::Interior::entradaDe(const LineaActivacion& linea,
                                    const QString& rutaHorario) const {
  Entrada e;
  e.linea = linea;
  const bool propio = linea.nombre == u"@";
  const QString ruta =
      propio ? rutaHorario
             : Ajustes::ruta(conExtensionPorDefecto(linea.nombre, u".AUT"_s), ajustes.HomeDir);
  e.proceso = nombreBase(propio ? rutaHorario : linea.nombre);
  auto fichero = lenguaje.LeerProceso(ruta);
  if (fichero) {
    e.pasos = std::move(fichero->pasos);
    e.omitidas = std::move(fichero->omitidas);
    return e;
  }
  e.estado = EstadoEntrada::Inutil;
  const QString inutil = lenguaje.textos()(
      kTxNoSeEjecutara, {e.proceso, linea.hora.horaLarga(), fichero.error().texto});
  avisar(inutil);
  // Tells the morning's reader of the traces why there is none of this process.
  Traza traza(lenguaje.textos());
  traza.empezar(ajustes, nombreBase(rutaHorario) + u".CRO"_s, e.proceso);
  traza.escribir({inutil}, [](const QString&) {});
  return e;
}

// --- the clock ----------------------------------------------------------------------------------

void Cronos::Interior::tic() {
  const Fecha ahora = reloj.ahora();
  const Fecha desde = std::exchange(ultimoTic, ahora);
  if (activo) {
    pasada(desde, ahora);
    siguiente = proxima(ahora);
  }
  if (yo.alCambiar) yo.alCambiar();
}

void Cronos::Interior::pasada(Fecha desde, Fecha ahora) {
  for (size_t i = 0; i < entradas.size(); ++i) {
    Entrada& e = entradas[i];
    switch (e.estado) {
      case EstadoEntrada::Espera:
        if (vence(i, desde, ahora)) e.estado = EstadoEntrada::Vencida;
        break;
      case EstadoEntrada::Vencida:
        // A process run by a person is waited for as well.
        if (marcha != Marcha::Parada) break;
        if (!corredor.ocupado())
          arrancar(e);
        else if (yo.alEsperar)
          yo.alEsperar(e);
        break;
      case EstadoEntrada::Iniciada:
        if (marcha == Marcha::EnCurso) break;
        e.estado = marcha == Marcha::Bien ? EstadoEntrada::Bien : EstadoEntrada::Mal;
        break;
      case EstadoEntrada::Bien:
        ++e.exitos;
        e.estado = EstadoEntrada::Espera;
        break;
      case EstadoEntrada::Mal:
        ++e.fallos;
        e.estado = EstadoEntrada::Espera;
        break;
      case EstadoEntrada::Inutil:
        break;
    }
  }
  // Its end has been seen, or its timetable no longer exists.
  const bool esperada = std::ranges::any_of(
      entradas, [](const Entrada& e) { return e.estado == EstadoEntrada::Iniciada; });
  if (marcha != Marcha::EnCurso && !esperada) marcha = Marcha::Parada;
}

// Once for each hour of each calendar day, however the clock is moved.
bool Cronos::Interior::vence(size_t i, Fecha desde, Fecha ahora) {
  for (const QDate dia : {desde.qdate(), ahora.qdate()}) {
    if (!toca(entradas[i], dia, desde, ahora)) continue;
    if (vencidos[i].insert(dia).second) return true;
  }
  return false;
}

bool Cronos::Interior::toca(const Entrada& e, QDate dia, Fecha desde, Fecha ahora) const {
  if (!e.linea.dias[static_cast<size_t>(dia.dayOfWeek() - 1)]) return false;
  const int hora = segundos(e.linea.hora.hora());
  if (dia == ahora.qdate() && std::abs(segundos(ahora.hora()) - hora) <= 1) return true;
  const Fecha momento = Fecha::de(dia, QTime(0, 0).addSecs(hora));
  return ahora - desde <= kSaltoMaximo && desde < momento && momento <= ahora;
}

void Cronos::Interior::arrancar(Entrada& e) {
  marcha = Marcha::EnCurso;
  e.estado = EstadoEntrada::Iniciada;
  if (yo.alArrancar) yo.alArrancar(e);
  corredor.correr(e, horario + u".CRO"_s);
}

// The first in the file whose hour is still to come today, or the first of all.
int Cronos::Interior::proxima(Fecha ahora) const {
  const int s = segundos(ahora.hora());
  const auto it = std::ranges::find_if(
      entradas, [s](const Entrada& e) { return segundos(e.linea.hora.hora()) >= s; });
  if (it != entradas.end()) return static_cast<int>(it - entradas.begin());
  return entradas.empty() ? -1 : 0;
}

std::optional<Cronos::Proxima> Cronos::Interior::proximoInicio(Fecha ahora) const {
  std::optional<Proxima> primera;
  for (size_t i = 0; i < entradas.size(); ++i) {
    const Entrada& e = entradas[i];
    if (e.estado == EstadoEntrada::Inutil) continue;
    auto cuando = proximaVez(e.linea, ahora);
    // An hour repeated by setting the clock back doesn't count.
    if (cuando && vencidos[i].contains(cuando->qdate())) cuando = proximaVez(e.linea, *cuando);
    if (cuando && (!primera || *cuando < primera->cuando)) primera = {static_cast<int>(i), *cuando};
  }
  return primera;
}

// --- the outside --------------------------------------------------------------------------------

Cronos::Cronos(Automat& automat, const Lenguaje& lenguaje, const Ajustes& ajustes, Reloj& reloj)
    : Cronos({.ocupado = [&automat] { return !automat.libre(); },
              .correr =
                  [&automat, this](const Entrada& e, const QString& traza) {
                    automat.PROCESO(e.pasos, traza, e.proceso,
                                    (alEmpezar ? alEmpezar() : QStringList()) + e.omitidas);
                  }},
             lenguaje, ajustes, reloj) {
  d->automat = &automat;
  automat.alTerminarDiferida = [this](ResultadoProceso r) { FinDeMacro(r); };
}

Cronos::Cronos(Corredor corredor, const Lenguaje& lenguaje, const Ajustes& ajustes, Reloj& reloj)
    : d(std::make_unique<Interior>(*this, std::move(corredor), lenguaje, ajustes, reloj)) {}

Cronos::~Cronos() {
  if (d->automat) d->automat->alTerminarDiferida = nullptr;
}

Resultado<> Cronos::ActivarCron(const QString& nombre) {
  TARVO_INTENTAR(d->cargar(nombre));
  d->ultimoTic = d->reloj.ahora();
  ponerActivo(true);
  d->temporizador->cada(kTicCronos);
  return {};
}

void Cronos::FinDeMacro(ResultadoProceso resultado) {
  if (d->marcha != Interior::Marcha::EnCurso) return;
  switch (resultado) {
    case ResultadoProceso::Bien:
      d->marcha = Interior::Marcha::Bien;
      break;
    case ResultadoProceso::Problemas:
      d->marcha = Interior::Marcha::Problemas;
      break;
    case ResultadoProceso::Abortado:
      d->marcha = Interior::Marcha::Abortada;
      break;
  }
}

void Cronos::ponerActivo(bool activo) {
  d->activo = activo;
  d->siguiente = activo ? d->proxima(d->reloj.ahora()) : -1;
}

const std::vector<Entrada>& Cronos::entradas() const {
  return d->entradas;
}
int Cronos::siguiente() const {
  return d->siguiente;
}
bool Cronos::hayProcesoEnMarcha() const {
  return d->marcha == Interior::Marcha::EnCurso;
}
bool Cronos::activo() const {
  return d->activo;
}
const QString& Cronos::nombre() const {
  return d->horario;
}
bool Cronos::adelantar(int entrada) {
  if (entrada < 0 || entrada >= static_cast<int>(d->entradas.size())) return false;
  Entrada& e = d->entradas[static_cast<size_t>(entrada)];
  if (e.estado != EstadoEntrada::Espera) return false;
  e.estado = EstadoEntrada::Vencida;
  return true;
}
std::optional<Cronos::Proxima> Cronos::proximoInicio() const {
  if (!d->activo) return std::nullopt;
  return d->proximoInicio(d->reloj.ahora());
}
void Cronos::parar() {
  d->temporizador->parar();
  ponerActivo(false);
}

}  // namespace tarvo::automation
