// The queue: adding, finding and removing tasks; and the groups with a failed reading.
#include "comm/motor/Interior.h"
#include "comm/motor/TextosMotor.h"
#include "core/dao/Recorrido.h"

namespace tarvo::motor {

namespace {

Resultado<std::vector<int>> leerDirecciones(dao::Database& db, int grupo) {
  TARVO_TOMAR(auto rs, db.OpenTable(u"BZAS", u"PrimaryKey"));
  const int cGrupo = rs->columna(u"SUGPO");
  const int cAddr = rs->columna(u"ADDR");
  std::vector<int> salida;
  TARVO_INTENTAR(rs->Seek(dao::Busca::MayorIgual, grupo));
  TARVO_INTENTAR(dao::recorrer(*rs, [&](const dao::Recordset& fila) {
    const bool suya = fila.entero(cGrupo) == grupo;
    if (suya) salida.push_back(static_cast<int>(fila.entero(cAddr)));
    return suya;
  }));
  return salida;
}

Acceso accesoDe(const DatosTarea& t) {
  if (t.Remoto == TipoAcceso::Directo) return {t.Remoto, QString::number(t.CanalDirecto)};
  return {t.Remoto, t.Telefono.trimmed().toCaseFolded()};
}

}  // namespace

void TareaViva::contarFallo(int TareaViva::* seguidos, int TareaViva::* sinAvance) {
  const qint64 ya = trabajo ? trabajo->avance() : 0;
  if (ya != avance) enlaceSinAvance = tramaSinAvance = 0;
  avance = ya;
  ++(this->*seguidos);
  ++(this->*sinAvance);
}

void TareaViva::olvidarFallos() {
  FallosEnlace = FallosTrama = enlaceSinAvance = tramaSinAvance = 0;
  EsperaReintento = kPulsosReintento;
  otraVez = 0;
}

qint64 TareaViva::codigo() const {
  return trabajo ? trabajo->codigoActual() : datos.Desde;
}

// The group's row as a task keeps it; nothing if there is no such group, it has no kind, or it
// doesn't communicate.
Resultado<std::optional<DatosTarea>> gestcomm::Interior::leerGrupo(int grupo) {
  TARVO_TOMAR(auto rs, entorno.db.OpenTable(u"GRUPOS", u"CODGPO"));
  TARVO_TOMAR(const auto hay, rs->Seek(dao::Busca::Igual, grupo));
  if (!hay) return std::nullopt;
  const auto entero = [&](QStringView columna, int defecto) {
    const int c = rs->columna(columna);
    return c < 0 || rs->nulo(c) ? defecto : static_cast<int>(rs->entero(c));
  };
  DatosTarea t;
  t.Grupo = grupo;
  const auto remoto = deNumero<TipoAcceso>(entero(u"remoto", 0));
  const auto tipo = deNumero<TipoGrupo>(entero(u"tipo", 0));
  if (!tipo || remoto.value_or(TipoAcceso::Ninguno) == TipoAcceso::Ninguno) return std::nullopt;
  t.Remoto = *remoto;
  t.Baudios = entero(u"Baudios", 0);
  if (t.Remoto == TipoAcceso::Directo)
    t.CanalDirecto = entero(u"canal", 0) - 1;
  else
    t.Telefono = rs->texto(rs->columna(u"telef"));
  t.Seccion = entero(u"seccion", 1);
  t.Tarifa = entero(u"tarifa", 0);
  t.Tipo = *tipo;
  t.protocolo = protocoloDe(*tipo);
  t.Addr = entero(u"ADDR", 0);
  TARVO_TOMAR(auto direcciones, leerDirecciones(entorno.db, grupo));
  t.Direcciones = std::move(direcciones);
  return t;
}

Resultado<bool> gestcomm::Interior::hayGrupo(int grupo) {
  TARVO_TOMAR(const auto n, entorno.db.uno(u"SELECT count(*) FROM GRUPOS WHERE CODGPO=?", grupo));
  return n.entero() > 0;
}

Pedida gestcomm::Interior::nueva(const DatosTarea& que) {
  const TipoTarea clase = que.Clase;
  const int grupo = que.Grupo;
  const ClaseTarea* c = repertorio.de(clase);
  // A build lacks kinds by their keyword; the kind without one is in all builds.
  const bool tiene = c && (*c->clave == 0 || entorno.ajustes.clases.tiene(clase));
  if (!tiene || !c->crear) return Pedida::DestinoMalo;
  if (c->esLectura || clase == TipoTarea::TxZero) {
    const auto mismas = fuera.MismasMaquinas(grupo);
    if (!mismas) return Pedida::DestinoMalo;
    if (!mismas->isEmpty()) return Pedida::Repetida;
  }
  if (c->total) {
    const auto puede = entorno.sesion.PuedeRecibir(grupo, *c->total);
    if (!puede) {
      // Not read, so the machine must not be told to forget: if that can't be recorded either, the
      // zeroing can't get permission.
      static_cast<void>(entorno.sesion.lecturaFallida(grupo, *c->total));
      return Pedida::DestinoMalo;
    }
    if (!*puede) return Pedida::YaUsada;
  }
  auto datos = leerGrupo(grupo);
  if (!datos || !*datos || !c->valePara((*datos)->Tipo)) return Pedida::DestinoMalo;
  auto t = std::make_unique<TareaViva>();
  t->datos = std::move(**datos);
  t->datos.Id = que.Id != 0 ? que.Id : ++ultimoId;
  t->datos.Clase = clase;
  t->datos.Todo = que.Todo;
  t->datos.Desde = que.Desde;
  t->datos.Hasta = que.Hasta;
  t->datos.paso = que.paso;
  t->clase = c;
  t->acceso = accesoDe(t->datos);
  hacerEsperar(*t);
  const int id = t->datos.Id;
  tareas.emplace(id, std::move(t));
  mirarPronto();
  cambioCola();
  return Pedida::EnCola;
}

// Those under way end as they began. A group that can't be read leaves them as they are: they are
// given up when their turn comes.
void gestcomm::Interior::mudarTareas(int antes, int ahora) {
  const auto llave = [antes, ahora](auto& mapa) {
    if (auto nodo = mapa.extract(antes)) nodo.key() = ahora, mapa.insert(std::move(nodo));
  };
  if (antes != ahora) llave(lecturas), llave(borrados), llave(clasesFallidas);
  if (gruposFallidos.erase(antes) > 0) gruposFallidos.insert(ahora);
  for (DatosTarea& que : quitadas)
    if (que.Grupo == antes) que.Grupo = ahora;
  const auto grupo = leerGrupo(ahora);
  if (!grupo || !*grupo) return;
  for (auto& [id, t] : tareas) {
    if (t->datos.Grupo != antes || t->Estado == kTerminado || t->Estado == kAbriendo ||
        t->Estado == kTransfiriendo || t->Estado == kRetenido)
      continue;
    DatosTarea datos = **grupo;
    datos.Id = id, datos.Clase = t->datos.Clase, datos.paso = t->datos.paso;
    datos.Todo = t->datos.Todo, datos.Desde = t->datos.Desde, datos.Hasta = t->datos.Hasta;
    if (datos == t->datos) continue;
    t->datos = std::move(datos);
    t->acceso = accesoDe(t->datos);
    t->trabajo.reset();
  }
}

TareaViva* gestcomm::Interior::tarea(int id) {
  const auto it = tareas.find(id);
  return it == tareas.end() ? nullptr : it->second.get();
}

TareaViva* gestcomm::Interior::tareaDe(int canal) {
  if (canal < 0 || canal >= static_cast<int>(canales.size())) return nullptr;
  return tarea(canales[static_cast<size_t>(canal)].TareaCanal);
}

// Takes a task out of the queue. A reading removed before its end counts as failed.
void gestcomm::Interior::quitar(int id) {
  TareaViva* t = tarea(id);
  if (!t) return;
  std::vector<totals::Aviso> avisos;
  if (t->Estado != kTerminado) {
    marcarFallida(*t);
    if (t->trabajo) avisos = t->trabajo->abandonar();
  }
  dejarPaso(*t);
  if (tareaDe(t->Canal) == t) liberarCanal(t->Canal);
  const auto nodo = tareas.extract(id);  // dies with this scope, after the observer's call
  decirAvisos(avisos);
  cambioCola();
}

bool gestcomm::Interior::delante(const PorGrupo& cuales, const TareaViva& t) {
  const auto it = cuales.find(t.datos.Grupo);
  return it != cuales.end() && !it->second.empty() && *it->second.begin() < t.datos.Id;
}

// Tasks that must come after it wait for it.
void gestcomm::Interior::hacerEsperar(const TareaViva& t) {
  if (t.clase->esLectura) lecturas[t.datos.Grupo].insert(t.datos.Id);
  if (t.clase->esBorrado) borrados[t.datos.Grupo].insert(t.datos.Id);
}

// Nothing waits for a task that is done or given up.
void gestcomm::Interior::dejarPaso(const TareaViva& t) {
  const auto antes = lecturas[t.datos.Grupo].erase(t.datos.Id);
  if (antes + borrados[t.datos.Grupo].erase(t.datos.Id) > 0) mirarPronto();
}

void gestcomm::Interior::marcarFallida(TareaViva& t) {
  dejarPaso(t);
  if (!t.clase->esLectura || t.fallida) return;
  t.fallida = true;
  anotarFallido(t.datos.Grupo, t.datos.Clase);
  const auto hay = hayGrupo(t.datos.Grupo);
  if (!t.clase->total || (hay && !*hay)) return;
  if (auto r = entorno.sesion.lecturaFallida(t.datos.Grupo, *t.clase->total); !r)
    decir(t, entorno.textos(kTxFalloSinAnotar, {t.datos.Grupo, r.error().texto}));
}

void gestcomm::Interior::anotarBuena(const TareaViva& t) {
  dejarPaso(t);
  if (!t.clase->esLectura) return;
  const auto it = clasesFallidas.find(t.datos.Grupo);
  if (it == clasesFallidas.end()) return;
  it->second.erase(t.datos.Clase);
  if (!it->second.empty()) return;
  clasesFallidas.erase(it);
  gruposFallidos.erase(t.datos.Grupo);
}

// Failures count for the run in which they happened; the session keeps those that must outlive it.
void gestcomm::Interior::anotarFallido(int grupo, std::optional<TipoTarea> clase) {
  grupoFallido(grupo);
  clasesFallidas[grupo].insert(clase);
  gruposFallidos.insert(grupo);
}

bool gestcomm::Interior::grupoFallido(int grupo) {
  if (const qint64 n = entorno.sesion.ejecucion(); n != ejecucionFallidos) {
    ejecucionFallidos = n;
    gruposFallidos.clear();
    clasesFallidas.clear();
  }
  return gruposFallidos.contains(grupo);
}

}  // namespace tarvo::motor
