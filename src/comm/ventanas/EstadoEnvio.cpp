#include "comm/ventanas/EstadoEnvio.h"

#include <QHBoxLayout>
#include <algorithm>

#include "comm/ventanas/TextosCommVentanas.h"
#include "comm/ventanas/gestcomm/ModeloTareas.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/edicion/Opciones.h"
#include "core/ventanas/marco/Tira.h"
#include "core/ventanas/marco/TiraTrabajo.h"
#include "core/ventanas/parrilla/Parrilla.h"

namespace tarvo::comm {

using namespace Qt::StringLiterals;
using namespace ventanas;
using envios::Situacion;

namespace {

constexpr int kTodos = -1, kPorArreglar = -2;  // entries of the list of states besides the states
constexpr int kReposoEstado = 100, kReintentoMs = 30000;

bool fallada(const motor::VistaTarea& t) {
  return (t.Estado == motor::kAperturaFallida && t.Error != motor::kErrorDetenido) ||
         t.Estado == motor::kInterrumpido;
}

Estado formaDe(Situacion s) {
  switch (s) {
    case Situacion::AlDia:
      return Estado::Bien;
    case Situacion::SinPrueba:
    case Situacion::Pendiente:
    case Situacion::Sobra:
      return Estado::Duda;
    default:
      return Estado::Mal;
  }
}

std::vector<Columna> columnasEstado(const Textos& textos) {
  return {
      {.titulo = ventanas::kTxCodigo, .campo = u"CODPLU"_s, .clase = Clase::Codigo, .cifras = 7},
      {.titulo = ventanas::kTxArticulo, .campo = u"NOMPLU"_s, .ancho = 175},
      {.titulo = ventanas::kTxEstado,
       .campo = u"SITUACION"_s,
       .ancho = 140,
       .ver =
           [&textos](const dao::Valor& v) {
             return textos(kTxSituaciones + static_cast<int>(v.entero()));
           },
       .estado = [](const dao::Valor& v) { return formaDe(Situacion(v.entero())); }},
      {.titulo = ventanas::kTxDesde, .campo = u"DESDE"_s, .clase = Clase::Momento},
      {.titulo = ventanas::kTxMotivo, .campo = u"MOTIVO"_s, .ancho = 132}};
}

std::vector<Columna> columnasFicha(const Textos& textos) {
  const QString igual = textos(kTxIgual), distinto = textos(kTxDistinto);
  return {{.titulo = kTxCampo, .campo = u"campo"_s, .ancho = 150},
          {.titulo = kTxAqui, .campo = u"aqui"_s, .ancho = 144},
          {.titulo = kTxEnBalanza, .campo = u"alli"_s, .ancho = 140},
          {.titulo = ventanas::kTxEstado,
           .campo = u"distinto"_s,
           .ancho = 108,
           .ver =
               [=](const dao::Valor& v) {
                 return v.nulo() ? QString() : v.logico() ? distinto : igual;
               },
           .estado =
               [](const dao::Valor& v) {
                 return v.nulo() ? Estado::Ninguno : v.logico() ? Estado::Mal : Estado::Bien;
               }}};
}

}  // namespace

EstadoEnvio::EstadoEnvio(Contexto& c, const QString& nombre, const Servicios& s)
    : Ventana(c, nombre),
      s_(s),
      despues_(c.reloj.temporizador([this] { calcular(); })),
      mirada_(c.reloj.temporizador([this] { mirarTareas(); })),
      reintento_(c.reloj.temporizador([this] { probarDeNuevo(); })),
      pregunta_(c, *this) {
  ui_.setupUi(cuerpo());
  enlazar();
  montar();
  s_.motor.observar(this);
}

EstadoEnvio::~EstadoEnvio() {
  s_.motor.dejarDeObservar(this);
}

void EstadoEnvio::montar() {
  ui_.division->setStretchFactor(0, 1);
  ui_.division->setSizes({escalar(766), escalar(574)});
  ponerLetra(*ui_.LblCuenta, Letra::Secundaria);
  ponerLetra(*ui_.LblFicha, Letra::Secundaria);
  unir(ui_.Enviar, u"enviar"_s, Qt::Key_F6, [this] { enviar(); });
  unir(ui_.Pedir, u"recibir"_s, Qt::Key_F7, [this] { pedir(); });
  unir(ui_.Parar, u"parar"_s, Qt::Key_F8, [this] { parar(); });
  unir(ui_.Recalcular, u"refrescar"_s, Qt::CTRL | Qt::Key_R, [this] { calcular(); });
  Opciones vistas{{kPorArreglar, t(kTxPorArreglar)}, {kTodos, t(kTxTodosLosArticulos)}};
  for (int i = 0; i < envios::kSituaciones; ++i) vistas.push_back({i, t(kTxSituaciones + i)});
  ventanas::llenar(*ui_.Ver, vistas);
  ui_.lista->preparar(contexto(), nombre(), columnasEstado(contexto().textos));
  ui_.lista->filtros()->addWidget(ui_.filtros);
  setTabOrder(ui_.Ver, ui_.lista->campoBusca());  // as one reads
  ui_.lista->ponerAcciones({ui_.Enviar, ui_.Pedir, ui_.Parar, ui_.Recalcular});
  ui_.ficha->preparar(contexto(), nombre(), columnasFicha(contexto().textos));
  ui_.ficha->vivas();
  ui_.ficha->ponerBusca(false);
  ui_.ficha->ponerPie(false);
  ui_.ficha->vista()->setAccessibleName(t(kTxFichaComparada));
  connect(ui_.Grupo, &QComboBox::activated, this, [this] { calcular(); });
  connect(ui_.Ver, &QComboBox::activated, this, [this] { filtrar(); });
  connect(ui_.lista, &Parrilla::actualCambiada, this, [this] { mostrarFicha(); });
  connect(ui_.lista, &Parrilla::activada, this, [this] { pedir(); });
  for (Parrilla* p : {ui_.lista, ui_.ficha})
    connect(p, &Parrilla::fallo, this, [this](const Error& e) { decirFallo(e); });
}

Resultado<> EstadoEnvio::entrar(const PuertaEstadoEnvio& puerta) {
  TARVO_INTENTAR(llenarGrupos(puerta.grupo > 0 ? puerta.grupo : grupo()));
  calcular();
  ui_.lista->setFocus();
  return {};
}

Resultado<> EstadoEnvio::llenarGrupos(int cual) {
  TARVO_INTENTAR(ventanas::llenar(*ui_.Grupo, contexto().nombres.grupos(), 4));
  if (!elegir(*ui_.Grupo, cual)) ui_.Grupo->setCurrentIndex(ui_.Grupo->count() > 0 ? 0 : -1);
  if (ui_.Grupo->count() == 0) decirDuda(t(kTxSinGruposQueVer));
  return {};
}

int EstadoEnvio::grupo() const {
  return static_cast<int>(elegido(*ui_.Grupo));
}

// --- display

void EstadoEnvio::calcular() {
  destino_.reset();
  const auto d = s_.grupos.destino(grupo());
  if (!haIdoBien(d) || !*d) return;
  destino_ = **d;
  mirarTareas();
  ui_.Pedir->setEnabled(destino_->conCross());
  ui_.Pedir->setProperty(kPorQueNo, t(kTxNoSePuedePedir));
  ui_.ficha->ponerVacia(t(destino_->conCross() ? kTxEligeArticulo : kTxNoSePuedePedir));
  ui_.LblCuenta->setText(t(kTxCalculando));
  pregunta_.preguntar<Estados>(s_.grupos.estado(*destino_), [this](Resultado<Estados> r) {
    if (haIdoBien(r)) llenar(std::move(*r));
  });
}

void EstadoEnvio::llenar(Estados estados) {
  contar(estados);
  if (trabajo().enMarcha()) trabajo().parar();
  auto tabla = s_.grupos.tabla(std::move(estados));
  llena_ = false;
  trabajo().empezar(
      t(kTxCalculando), [tabla](Trabajo::Avance& a) { return tabla->paso(a); },
      [this](const Resultado<Trabajo::Fin>& fin) {
        if (!haIdoBien(fin) || *fin != Trabajo::Fin::Acabado) return;
        llena_ = true;
        filtrar();
      });
}

void EstadoEnvio::contar(const Estados& estados) {
  std::array<int, envios::kSituaciones> n{};
  for (const auto& e : estados) ++n[static_cast<size_t>(e.situacion)];
  QString texto = t(kTxCuentas);
  for (size_t i = 0; i < n.size(); ++i)
    texto.replace(u'%' + QString::number(i + 1), QString::number(n[i]));
  ui_.LblCuenta->setText(texto);
}

void EstadoEnvio::filtrar() {
  if (!llena_) return;
  const auto que = static_cast<int>(elegido(*ui_.Ver));
  ui_.lista->ponerVacia(que == kPorArreglar ? t(kTxTodoAlDia).arg(ui_.Grupo->currentText())
                                            : t(kTxNingunoAsi));
  haIdoBien(ui_.lista->abrir(que == kPorArreglar ? envios::listaEstadosSalvo(Situacion::AlDia)
                             : que == kTodos     ? envios::listaEstados()
                                             : envios::listaEstados(static_cast<Situacion>(que))));
  mostrarFicha();
}

void EstadoEnvio::mostrarFicha() {
  const int fila = ui_.lista->filaActual();
  ui_.LblFicha->clear();
  if (!destino_ || !destino_->conCross() || fila < 0)
    return ui_.ficha->vivas().poner(std::vector<FilaViva>());
  const auto f = s_.grupos.ficha(*destino_, ui_.lista->valor(fila, u"CODPLU").entero());
  if (!haIdoBien(f)) return;
  ui_.LblFicha->setText(
      !f->cuando ? t(kTxSinPedir)
                 : t(f->laTiene ? kTxComoLaTenia : kTxNoLaTiene).arg(f->cuando->general()));
  std::vector<FilaViva> filas;
  for (const auto& c : f->campos)
    filas.push_back({static_cast<qint64>(filas.size()),
                     {dao::Valor(c.campo), dao::Valor(c.aqui), dao::Valor(c.alli),
                      f->laTiene ? dao::Valor(c.distinto) : dao::Valor()}});
  ui_.ficha->vivas().poner(std::move(filas));
}

// --- operations

std::vector<qint64> EstadoEnvio::elegidos() {
  std::vector<qint64> codigos;
  for (const int fila : ui_.lista->filasParaActuar())
    codigos.push_back(ui_.lista->valor(fila, u"CODPLU").entero());
  std::ranges::sort(codigos);
  if (codigos.empty()) decirPista(t(kTxEligeArticulo));
  return codigos;
}

void EstadoEnvio::enviar() {
  const std::vector<qint64> codigos = elegidos();
  if (codigos.empty() || !destino_) return;
  const auto e = s_.grupos.encargar(*destino_, codigos);
  if (!haIdoBien(e)) return;
  int encoladas = 0;
  for (const envios::Encargo& tarea : e->tareas)
    if (s_.motor.NuevaTarea(destino_->grupo, tarea.todo, tarea.rango.desde, tarea.rango.hasta,
                            TipoTarea::TxPlus) == motor::Pedida::EnCola)
      ++encoladas;
  if (encoladas < static_cast<int>(e->tareas.size())) return decirFallo(t(kTxGrupoNoComunica));
  fuera_ = e->imposibles > 0 ? t(kTxSobrantesSinBorrar, e->imposibles) : QString();
  decirEnvio(encoladas > 0 ? t(kTxEnvioEncolado) : QString());
}

// How the sending is, with what it leaves out.
void EstadoEnvio::decirEnvio(const QString& como) {
  QStringList todo{como, fuera_};
  todo.removeAll(QString());
  fuera_.isEmpty() ? decirBien(todo.join(u' ')) : decirDuda(todo.join(u' '));
  enviado_ = como.isEmpty() ? QString() : tira().texto();
}

void EstadoEnvio::pedir() {
  const int fila = ui_.lista->filaActual();
  if (!destino_ || !destino_->conCross()) return;
  if (fila < 0) return decirPista(t(kTxEligeArticulo));
  const qint64 codigo = ui_.lista->valor(fila, u"CODPLU").entero();
  if (s_.motor.NuevaTarea(destino_->grupo, true, codigo, codigo, TipoTarea::RxDatPlu) !=
      motor::Pedida::EnCola)
    return decirFallo(t(kTxGrupoNoComunica));
  ui_.LblFicha->setText(t(kTxPidiendo));
}

// Whether it is one of the group's tasks about articles.
bool EstadoEnvio::esSuya(const motor::VistaTarea& t) const {
  constexpr TipoTarea kDeArticulos[] = {TipoTarea::TxPlus, TipoTarea::BorrPlu, TipoTarea::TPreci,
                                        TipoTarea::RxDatPlu};
  return t.datos.Grupo == grupo() &&
         std::ranges::find(kDeArticulos, t.datos.Clase) != std::end(kDeArticulos);
}

std::vector<motor::VistaTarea> EstadoEnvio::suyas() const {
  auto tareas = s_.motor.tareas();
  std::erase_if(tareas, [&](const motor::VistaTarea& t) {
    return t.Estado == motor::kTerminado || !esSuya(t);
  });
  return tareas;
}

void EstadoEnvio::parar() {
  const auto tareas = suyas();
  for (const motor::VistaTarea& t : tareas) {
    parando_.insert(t.datos.Id);
    s_.motor.DetenerTarea(t.datos.Id);
    s_.motor.EliminarTarea(t.datos.Id);
  }
  if (!tareas.empty()) decirBien(Plural(t(kTxTareasParadas), static_cast<int>(tareas.size())));
}

// Shows the state of the first of its tasks. A failed one is retried for as long as the window is
// open, since the engine gives up and the machine may come back.
void EstadoEnvio::mirarTareas() {
  for (const int id : std::exchange(parando_, {})) {
    const auto t = s_.motor.tarea(id);
    if (!t || t->Estado == motor::kTerminado || t->Estado == motor::kDetenido) continue;
    if (t->Estado == motor::kAbriendo) parando_.insert(id);
    s_.motor.EliminarTarea(id);
  }
  const auto tareas = suyas();
  const bool algo = std::exchange(huboTarea_, false);  // may have ended already
  const bool antes = std::exchange(enMarcha_, !tareas.empty()) || algo;
  if (antes && !enMarcha_) {
    despues_->unaVez(kReposoEstado);
    if (!enviado_.isEmpty() && tira().texto() == enviado_) decirEnvio(t(kTxEnvioHecho));
    enviado_.clear();
  }
  ui_.Parar->setEnabled(enMarcha_);
  ui_.Parar->setProperty(kPorQueNo, t(kTxNadaQueParar));
  ui_.LblTarea->setHidden(!enMarcha_);
  if (!enMarcha_) return reintento_->parar();
  const auto mala = std::ranges::find_if(tareas, fallada);
  const motor::VistaTarea& vista = mala == tareas.end() ? tareas.front() : *mala;
  const auto* clase = s_.repertorio.de(vista.datos.Clase);
  const QString nombre = clase ? t(clase->nombre) : QString();
  const Textos& textos = contexto().textos;
  const QString problema = textoProblema(vista, textos);
  const QString como = problema.isEmpty() ? motor::TextoEstado(vista.Estado, textos) : problema;
  if (mala == tareas.end() || !s_.motor.ModoAutomatico() || s_.motor.Vigilando()) {
    ui_.LblTarea->setText(t(kTxTareaEsta).arg(nombre, como));
    return;
  }
  if (!reintento_->activo()) {
    otraVez_ = contexto().reloj.ahora() + kReintentoMs / 86'400'000.0;
    reintento_->unaVez(kReintentoMs);
    mostrarFicha();
  }
  ui_.LblTarea->setText(t(kTxSeVuelveAProbar).arg(nombre, como, otraVez_.horaLarga()));
}

void EstadoEnvio::probarDeNuevo() {
  if (!s_.motor.ModoAutomatico() || s_.motor.Vigilando()) return;
  for (const motor::VistaTarea& t : suyas())
    if (fallada(t)) s_.motor.AvanzarTarea(t.datos.Id);
  mirada_->unaVez(kReposoEstado);
}

// The state of the group is computed again once its tasks have ended.
void EstadoEnvio::colaCambiada() {
  if (!mirada_->activo()) mirada_->unaVez(kReposoEstado);
}

void EstadoEnvio::tareaCambiada(int id) {
  if (const auto t = s_.motor.tarea(id); t && esSuya(*t)) huboTarea_ = true;
  colaCambiada();
}

}  // namespace tarvo::comm
