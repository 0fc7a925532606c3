// The line of a test: when it may be opened, on which channel, and how it is given back.
#include <algorithm>

#include "comm/cables/AjustesCables.h"
#include "comm/conexion/Prueba.h"
#include "comm/conexion/TextosConexion.h"
#include "comm/enlace/Errores.h"

namespace tarvo::conexion {

namespace {

constexpr int kCanalesFijos = 4;

// It has a line, or is about to get one.
bool enCurso(const motor::VistaTarea& t, const std::vector<motor::VistaCanal>& canales) {
  switch (t.Estado) {
    case motor::kAbriendo:
    case motor::kTransfiriendo:
    case motor::kRetenido:
      return true;
    case motor::kAperturaFallida:
    case motor::kInterrumpido:
      return !t.descansa && t.Canal >= 0 &&
             canales[static_cast<size_t>(t.Canal)].TareaCanal == t.datos.Id;
    default:
      return false;
  }
}

}  // namespace

// --- the engine

// A task that only waits for another, or rests after its failures, has no line: then a test is most
// wanted.
Resultado<> Prueba::libre() const {
  if (e_.motor.Vigilando() || e_.motor.ModoFijado())
    return fallo(Fallo::Ocupado, e_.textos(kTxHayOtra));
  const auto canales = e_.motor.canales();
  for (const motor::VistaTarea& t : e_.motor.tareas())
    if (enCurso(t, canales)) return fallo(Fallo::Ocupado, e_.textos(kTxHayOtra));
  return {};
}

// Has nobody a link on that channel, or the access on another one?
bool Prueba::canalLibre(int canal) const {
  const auto canales = e_.motor.canales();
  const auto i = static_cast<size_t>(canal);
  if (e_.enlaces[canal] || (i < canales.size() && canales[i].TareaCanal >= 0)) return false;
  for (int c = 0; c < e_.enlaces.tamano(); ++c) {
    const enlace::comtvIP* otro = e_.enlaces[c];
    const bool suyo =
        otro && !grupo_.acceso.isEmpty() &&
        otro->Acceso().trimmed().compare(grupo_.acceso.trimmed(), Qt::CaseInsensitive) == 0;
    if (suyo) return false;
  }
  return true;
}

// As the engine chooses one. A connector gets a number that no channel of the engine has.
Resultado<int> Prueba::elegirCanal() const {
  const auto& cables = e_.ajustes.de<enlace::AjustesCables>();
  const auto ocupado = [&] { return fallo(Fallo::Ocupado, e_.textos(kTxLineaOcupada)); };
  int primero = 0, ultimo = kCanalesFijos - 1;
  if (grupo_.remoto == TipoAcceso::Directo) primero = ultimo = grupo_.canal;
  if (grupo_.remoto == TipoAcceso::Conector) {
    int c = static_cast<int>(e_.motor.canales().size());
    while (e_.enlaces[c]) ++c;
    return canalLibre(c) ? Resultado<int>(c) : ocupado();
  }
  bool hay = false;
  for (int c = std::max(primero, 0); c <= std::min(ultimo, kCanalesFijos - 1); ++c) {
    if (cables.canales[static_cast<size_t>(c)].Device != grupo_.remoto) continue;
    hay = true;
    if (canalLibre(c)) return c;
  }
  if (hay) return ocupado();
  if (grupo_.remoto == TipoAcceso::Directo)
    return fallo(Fallo::Restriccion, e_.textos(kTxCanalSinCable, {grupo_.canal + 1}));
  const QString clase = e_.textos(kTxAccesos + numeroDe(grupo_.remoto)).remove(u'&');
  return fallo(Fallo::Restriccion, e_.textos(kTxSinCanal, {clase}));
}

// Called before the engine opens anything: it reports its steps first.
void Prueba::mirarMotor() {
  if (!enMarcha()) return;
  bool suyo = !libre();
  for (const motor::VistaTarea& t : e_.motor.tareas()) suyo |= !habia_.contains(t.datos.Id);
  if (suyo) acabar(estado_ == Estado::Cerrando ? fin_ : Fin::Cedida);
}

// --- the line

Resultado<> Prueba::empezar(GrupoProbado grupo) {
  if (enMarcha()) return fallo(Fallo::Ocupado, e_.textos(kTxHayOtra));
  if (grupo.remoto == TipoAcceso::Ninguno)
    return fallo(Fallo::Restriccion, e_.textos(kTxNoComunica));
  TARVO_INTENTAR(libre());
  grupo_ = std::move(grupo);
  filas_ = {{}};
  std::set<int> direcciones;
  for (const MaquinaProbada& m : grupo_.maquinas) {
    Contestacion c{.sitio = m.sitio, .modelo = m.modelo, .direccion = m.direccion};
    if (!balanzas() && !m.direccion) c.que = Que::SinDireccion;
    if (!balanzas() && m.direccion && !direcciones.insert(*m.direccion).second)
      c.que = Que::MismaDireccion;
    filas_.push_back(c);
  }
  TARVO_TOMAR(const int canal, elegirCanal());
  return abrir(canal);
}

Resultado<> Prueba::abrir(int canal) {
  habia_.clear();
  for (const motor::VistaTarea& t : e_.motor.tareas()) habia_.insert(t.datos.Id);
  fin_ = Fin::Entera;
  error_.reset();
  nota_.reset();
  acabada_ = false;
  actual_ = 0;
  canal_ = canal;
  estado_ = Estado::Abriendo;
  filas_.front().que = Que::Preguntando;
  desde_ = e_.reloj.monotono();
  e_.motor.dejarDeObservar(this);
  e_.motor.observar(this);
  const auto para = protocoloDe(grupo_.tipo) == Protocolo::Nodal ? enlace::Para::NodalMotor
                                                                 : enlace::Para::VekMotor;
  const int error = e_.enlaces.AbrirEnlace(para, canal, grupo_.baudios, grupo_.acceso, this);
  if (error != 0) Abrir_Evento(canal, error);
  cambiada();
  return {};
}

void Prueba::Abrir_Evento(int, int error) {
  if (estado_ == Estado::Cerrando) return acabar(fin_);
  if (estado_ != Estado::Abriendo) return;
  Contestacion& acceso = filas_.front();
  acceso.error = error;
  acceso.que = error == 0 ? Que::Abierto : Que::NoAbre;
  acceso.ms = error == 0 ? msDesde() : -1;
  if (error != 0) return acabar(Fin::Entera);
  estado_ = Estado::Preguntando;
  siguiente();
}

// The line is gone: as it was told to, or under a question.
void Prueba::Cerrar_Evento(int, int) {
  if (estado_ == Estado::Reposo) return;
  if (estado_ == Estado::Preguntando)
    for (Contestacion& c : filas_)
      if (c.que == Que::Preguntando) {
        c.que = Que::Cortado;
        c.error = motor::errorDeCaida(grupo_.remoto);
      }
  acabar(fin_);
}

void Prueba::parar() {
  if (estado_ != Estado::Abriendo && estado_ != Estado::Preguntando) return;
  fin_ = Fin::Parada;
  cerrar();
}

void Prueba::cerrar() {
  estado_ = Estado::Cerrando;
  enlace::comtvIP* const enlace = e_.enlaces[canal_];
  if (!enlace || enlace->CerrarEnlace() != 0) return acabar(fin_);
  cambiada();
}

// Gives the line back now. Closing it first leaves on record what it may still be answered.
void Prueba::soltar() {
  if (!enMarcha()) return;
  estado_ = Estado::Reposo;
  if (enlace::comtvIP* const enlace = e_.enlaces[canal_]) {
    static_cast<void>(enlace->CerrarEnlace());
    e_.enlaces.abandonar(canal_, this);
  }
  canal_ = -1;
}

void Prueba::acabar(Fin fin) {
  if (!enMarcha()) return;
  fin_ = fin;
  soltar();
  todas(Que::SinProbar);
  acabada_ = true;
  cambiada();
}

}  // namespace tarvo::conexion
