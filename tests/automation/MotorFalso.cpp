// Stands in for the engine and its links: a queue that carries out one task a tick, with the engine's promises to the runner.
#include "Banco.h"

namespace tarvo::enlace {
struct Enlaces::Datos {};
Enlaces::Enlaces(Reloj&, const Ajustes&, FabricaEnlaces&, Azar&) {}
Enlaces::~Enlaces() = default;
}  // namespace tarvo::enlace

namespace tarvo::motor {

QString TextoEstado(int estado) {
  return estado == kInterrumpido ? QStringLiteral("Interrumpido por algún problema") : QStringLiteral("En espera de ser procesado");
}
TextosError textosError(int codigo) {
  return {{}, codigo == 6 ? QStringLiteral("Ha habido time out de recepción") : QString(), {}};
}
void RegistroTareas::anadir(ClaseTarea clase) { clases_.push_back(std::move(clase)); }
const ClaseTarea* RegistroTareas::porNumero(int numero) const {
  for (const auto& c : clases_)
    if (c.numero == numero) return &c;
  return nullptr;
}
const ClaseTarea* RegistroTareas::porClave(QStringView clave) const {
  for (const auto& c : clases_)
    if (clave == c.clave) return &c;
  return nullptr;
}

struct gestcomm::Interior {
  Interior(Entorno e, const RegistroTareas& r) : en(e), registro(r), t(e.reloj.temporizador([this] { tic(); })) { t->cada(500); }

  void tic() {
    if (cola.empty()) return;
    for (auto it = cola.begin(); it != cola.end(); ++it) {
      if (it->FallosTrama > reintentos && !borrar) continue;
      if (atender(*it)) cola.erase(it);
      return;
    }
  }

  // True when the task leaves the queue.
  bool atender(VistaTarea& v) {
    const auto& d = v.datos;
    if (d.Clase == 6 && fallidos.contains(d.Grupo)) {
      if (vigilante) vigilante->InformeProblema(d.Clase, d.Grupo, 22, v.Estado, 0);
      return true;
    }
    if (!automation::maquinasDePrueba().mudas.contains(d.Grupo) && hacer(v)) return true;
    ++v.FallosTrama;
    v.Estado = kInterrumpido;
    if (v.FallosTrama <= reintentos) {
      if (vigilante) vigilante->InformeRetry(d.Clase, d.Grupo, 6, v.Estado, 0);
      return false;
    }
    if (!borrar) return false;
    if (vigilante) vigilante->InformeProblema(d.Clase, d.Grupo, 6, v.Estado, 0);
    if (d.Clase >= 16) fallidos.insert(d.Grupo);
    return true;
  }

  bool hacer(const VistaTarea& v) {
    auto trabajo = registro.porNumero(v.datos.Clase)->crear(v.datos, en);
    auto tr = dao::Transaccion::empezar(en.db);
    if (!tr || !trabajo->cerrar()) return false;
    if (vigilante && !vigilante->TareaHecha(v.datos)) return false;
    return tr->confirmar().has_value();
  }

  Entorno en;
  const RegistroTareas& registro;
  std::vector<VistaTarea> cola;
  std::set<int> fallidos;
  Vigilante* vigilante = nullptr;
  int reintentos = 0, ultimo = 0;
  bool borrar = false, automatico = true;
  std::unique_ptr<Temporizador> t;
};

gestcomm::gestcomm(Entorno entorno, enlace::Enlaces&, const RegistroTareas& registro)
    : d(std::make_unique<Interior>(entorno, registro)) {}
gestcomm::~gestcomm() = default;

int gestcomm::NuevaTarea(int grupo, bool todo, qint64 desde, qint64 hasta, int clase, qint64 paso) {
  const auto hay = d->en.db.uno(u"SELECT CODGPO FROM GRUPOS WHERE CODGPO=? AND remoto<>0", grupo);
  if (!hay || hay->nulo()) return 2;
  const auto puede = d->en.sesion.PuedeRecibir(grupo, clase);
  if (clase >= 16 && puede && !*puede) return 1;
  VistaTarea v;
  v.datos.Id = ++d->ultimo;
  v.datos.Clase = clase;
  v.datos.Grupo = grupo;
  v.datos.Todo = todo;
  v.datos.Desde = desde;
  v.datos.Hasta = hasta;
  v.datos.paso = paso;
  d->cola.push_back(v);
  return 0;
}
void gestcomm::CambioAModo(bool automatico) { d->automatico = automatico; }
bool gestcomm::ModoAutomatico() const { return d->automatico; }
void gestcomm::VigilaProcesos(int reintentos, bool borrarFallos, Vigilante* vigilante) {
  d->reintentos = reintentos;
  d->borrar = borrarFallos;
  d->vigilante = vigilante;
}
gestcomm::Cuenta gestcomm::CuantosQuedan() const {
  const int n = static_cast<int>(d->cola.size());
  return {n, 0, n};
}
const std::set<int>& gestcomm::GruposFallidos() const { return d->fallidos; }
void gestcomm::anadirGrupoFallido(int grupo) { d->fallidos.insert(grupo); }
Resultado<bool> gestcomm::LaSesion(int nuevo) {
  if (nuevo == 1) return d->en.sesion.AbrirSesion();
  TARVO_INTENTAR(d->en.sesion.ponerEstado(nuevo));
  return true;
}
void gestcomm::AvanzarTarea(int) {}
void gestcomm::PausarTarea(int) {}
void gestcomm::DetenerTarea(int) {}
void gestcomm::EliminarTarea(int id) { std::erase_if(d->cola, [id](const VistaTarea& v) { return v.datos.Id == id; }); }
void gestcomm::terminator() { d->cola.clear(); }
void gestcomm::cerrar(std::function<void()> alCerrar) { alCerrar(); }
bool gestcomm::puedeCerrar() const { return true; }
std::vector<VistaTarea> gestcomm::tareas() const { return d->cola; }
std::vector<VistaCanal> gestcomm::canales() const { return {}; }
void gestcomm::observar(Observador*) {}
void gestcomm::Abrir_Evento(int, int) {}
void gestcomm::Cerrar_Evento(int, int) {}
void gestcomm::EnvioVEK_Evento(int, int, int, int, const QByteArray&) {}
void gestcomm::EnvioNDL_Evento(int, int) {}
void gestcomm::ReciboNDL_Evento(int, int, int, const QByteArray&) {}
void gestcomm::ReciboVEK_Evento(int, int, int, int, const QByteArray&) {}
void gestcomm::CD_Evento(int, bool) {}
bool gestcomm::encaja(int, int, int, const QByteArray&) { return false; }

}  // namespace tarvo::motor
