#include "automation/ventanas/CronosVentana.h"

#include <algorithm>
#include <cmath>

#include "app/ventanas/Puertas.h"
#include "automation/ventanas/ColumnasHorario.h"
#include "automation/ventanas/TextosAutomationVentanas.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/marco/MyMsgBox.h"
#include "core/ventanas/marco/Tira.h"
#include "core/ventanas/marco/Ventanas.h"
#include "core/ventanas/parrilla/Parrilla.h"

namespace tarvo::automation {

using namespace Qt::StringLiterals;
using namespace ventanas;

namespace {

// One above the states of an entry: waiting, and the next to run.
constexpr int kEsSiguiente = 6;

QString palabraEntrada(const Textos& t, int estado) {
  return t(estado == kEsSiguiente ? ventanas::kTxSiguiente : kTxEstadoEntrada + estado);
}

QString imagenEntrada(int estado) {
  static constexpr std::array<const char16_t*, 7> kImagenes{
      u"reloj", u"esperando", u"ejecutar", u"bien", u"mal", u"quitar", u"adelante"};
  return QString::fromUtf16(kImagenes[static_cast<size_t>(estado)]);
}

Estado estadoDeEntrada(int estado) {
  switch (static_cast<EstadoEntrada>(estado)) {
    case EstadoEntrada::Bien:
      return Estado::Bien;
    case EstadoEntrada::Vencida:
      return Estado::Duda;
    case EstadoEntrada::Mal:
    case EstadoEntrada::Inutil:
      return Estado::Mal;
    default:
      return Estado::Ninguno;
  }
}

std::vector<Columna> columnasCron(const Textos& t) {
  std::vector<Columna> c{
      {.titulo = ventanas::kTxEstado,
       .campo = u"estado"_s,
       .ancho = 190,
       .ordenable = false,
       .ver = [&t](const dao::Valor& v) { return palabraEntrada(t, static_cast<int>(v.entero())); },
       .imagen = [](const dao::Valor& v) { return imagenEntrada(static_cast<int>(v.entero())); },
       .estado =
           [](const dao::Valor& v) { return estadoDeEntrada(static_cast<int>(v.entero())); }}};
  anadirColumnasMomento(c);
  c.push_back({.titulo = kTxColProceso, .campo = u"proceso"_s, .ancho = 220, .ordenable = false});
  c.push_back({.titulo = kTxColOK, .campo = u"ok"_s, .clase = Clase::Entero, .ordenable = false});
  c.push_back({.titulo = kTxColKO,
               .campo = u"ko"_s,
               .clase = Clase::Entero,
               .ordenable = false,
               .estado = [](const dao::Valor& v) {
                 return v.entero() > 0 ? Estado::Mal : Estado::Ninguno;
               }});
  return c;
}

FilaViva filaCron(size_t i, const Entrada& e, bool siguiente) {
  const bool espera = e.estado == EstadoEntrada::Espera;
  FilaViva f{static_cast<qint64>(i),
             {siguiente && espera ? kEsSiguiente : static_cast<int>(e.estado)}};
  anadirMomento(f.valores, e.linea);
  f.valores.insert(f.valores.end(), {e.proceso, e.exitos, e.fallos});
  return f;
}

// Hours, minutes and seconds; the hours may exceed a day.
QString duracion(double dias) {
  const auto s = static_cast<qint64>(std::lround(std::max(0.0, dias) * 86400));
  return u"%1:%2:%3"_s.arg(Ceros(s / 3600, 2), Ceros(s / 60 % 60, 2), Ceros(s % 60, 2));
}

}  // namespace

CronosVentana::CronosVentana(Contexto& c, const QString& nombre, Cronos& cronos,
                             ConsienteOlvidos consiente)
    : Ventana(c, nombre), cronos_(cronos), consiente_(std::move(consiente)) {
  ui_.setupUi(cuerpo());
  ponerLetra(*ui_.lblNom, Letra::Titulo);
  ponerLetra(*ui_.reloj, Letra::Cifra);
  ponerLetra(*ui_.lblFaltan, Letra::Titulo);
  enlazar();
  ui_.ListaCron->preparar(c, nombre, columnasCron(c.textos));
  ui_.ListaCron->vivas();
  ui_.ListaCron->ponerUnaSola(true);
  ui_.ListaCron->ponerBusca(false);
  ui_.ListaCron->ponerVacia(t(kTxSinLineas));
  ui_.ListaCron->ponerAcciones({ui_.ejecutar});
  ui_.ListaCron->vista()->setAccessibleName(t(kTxLineasHorario));
  setWindowIcon(icono(u"reloj"_s));
  conectar();
}

CronosVentana::~CronosVentana() {
  soltar();
}

void CronosVentana::conectar() {
  unir(ui_.ejecutar, u"ejecutar"_s, Qt::Key_F9, [this] { ejecutarAhora(); });
  unir(ui_.ver, u"informacion"_s, {}, [this] { verTraza(); });
  unir(ui_.mini, u"bajar"_s, {}, [this] { showMinimized(); });
  unir(ui_.Salida, u"cerrar"_s, {}, [this] { close(); });
  connect(ui_.activo, &QCheckBox::toggled, this, [this](bool activo) {
    cronos_.ponerActivo(activo);
    refrescar();
  });
  connect(this, &Ventana::descargada, this, [this] { soltar(); });
  cronos_.alCambiar = [this] { refrescar(); };
  cronos_.alArrancar = [this](const Entrada&) { arranca(); };
  cronos_.alAvisar = [this](const QString& aviso) { avisos_ += aviso; };
}

Resultado<> CronosVentana::entrar(const PuertaCronos& puerta) {
  if (!puerta.horario.isEmpty()) {
    if (!consienteDejarlo(kTxCambiarHorario)) return {};
    avisos_.clear();
    TARVO_INTENTAR(cronos_.ActivarCron(puerta.horario));
    // Only once this window is open: the program ends when the last window is closed.
    QMetaObject::invokeMethod(this, [this] { relevarPrincipal(); }, Qt::QueuedConnection);
  }
  if (!avisos_.isEmpty()) decirDuda(avisos_.front(), avisos_.join(u'\n'));
  ui_.lblNom->setText(cronos_.nombre());
  ui_.activo->setChecked(cronos_.activo());
  refrescar();
  if (ui_.ListaCron->filaActual() < 0 && ui_.ListaCron->filas() > 0) ui_.ListaCron->irA(0);
  ui_.ListaCron->vista()->setFocus();  // a Space too many doesn't deactivate it
  return {};
}

// --- taking the main window's place -------------------------------------------------------------

void CronosVentana::relevarPrincipal() {
  Ventanas& todas = contexto().ventanas;
  if (todas.cargada<app::PuertaMainTarvo>() &&
      todas.descargar(ventanas::nombreDe(app::PuertaMainTarvo())))
    habiaPrincipal_ = true;
}

// While it has something to run, its end is a night that doesn't run: that is asked.
bool CronosVentana::consienteDejarlo(int pregunta) {
  const auto sigue = [](const Entrada& e) {
    return e.estado == EstadoEntrada::Vencida || e.estado == EstadoEntrada::Iniciada;
  };
  if (!cronos_.activo()) return true;
  if (!cronos_.proximoInicio() && std::ranges::none_of(cronos_.entradas(), sigue)) return true;
  const QString texto =
      ui_.lblProximo->text() + u"\n\n"_s + contexto().textos(pregunta, {cronos_.nombre()});
  return MyMsgBox::Decide(this, contexto().textos, texto, kAceptoCancelo | kExclamacion);
}

bool CronosVentana::QueryUnload() {
  if (!consienteDejarlo(kTxCerrarHorario)) return true;
  if (std::exchange(habiaPrincipal_, false)) contexto().ventanas.abrir(app::PuertaMainTarvo());
  return false;
}

void CronosVentana::soltar() {
  if (std::exchange(soltada_, true)) return;
  cronos_.alCambiar = nullptr;
  cronos_.alArrancar = nullptr;
  cronos_.alAvisar = nullptr;
  cronos_.ponerActivo(false);
  cronos_.parar();
}

// --- display ------------------------------------------------------------------------------------

void CronosVentana::refrescar() {
  ui_.reloj->setText(contexto().reloj.ahora().horaLarga());
  ponerLineas();
  ponerProximo();
  volverSiAcabo();
}

void CronosVentana::ponerLineas() {
  std::vector<FilaViva> filas;
  const auto& entradas = cronos_.entradas();
  filas.reserve(entradas.size());
  for (size_t i = 0; i < entradas.size(); ++i)
    filas.push_back(filaCron(i, entradas[i], static_cast<int>(i) == cronos_.siguiente()));
  ui_.ListaCron->vivas().poner(std::move(filas));
  ui_.ejecutar->setEnabled(!entradas.empty() && cronos_.activo());
  ui_.ejecutar->setProperty(kPorQueNo, t(entradas.empty() ? kTxSinLineas : kTxDesactivado));
}

void CronosVentana::ponerProximo() {
  const Textos& textos = contexto().textos;
  const auto& entradas = cronos_.entradas();
  const auto enMarcha = std::ranges::find(entradas, EstadoEntrada::Iniciada, &Entrada::estado);
  const auto proxima = cronos_.proximoInicio();
  QString que, cuanto;
  if (enMarcha != entradas.end()) {
    que = textos(kTxEnMarcha, {enMarcha->proceso});
  } else if (proxima) {
    const auto& e = entradas[static_cast<size_t>(proxima->entrada)];
    que = textos(kTxProximo, {e.proceso, proxima->cuando.general()});
    cuanto = textos(kTxFaltan, {duracion(proxima->cuando - contexto().reloj.ahora())});
  } else if (!entradas.empty()) {
    que = textos(cronos_.activo() ? kTxNadaProgramado : kTxDesactivado);
  }
  ui_.lblProximo->setText(que);
  ui_.lblFaltan->setText(cuanto);
}

// --- processes ----------------------------------------------------------------------------------

void CronosVentana::arranca() {
  apartada_ = true;
  tira().quitar();
  showMinimized();
  abrir(PuertaAutomat());
}

void CronosVentana::volverSiAcabo() {
  const auto sigue = [](const Entrada& e) {
    return e.estado == EstadoEntrada::Iniciada || e.estado == EstadoEntrada::Bien ||
           e.estado == EstadoEntrada::Mal;
  };
  if (!apartada_ || std::ranges::any_of(cronos_.entradas(), sigue)) return;
  apartada_ = false;
  if (isMinimized()) showNormal();
}

void CronosVentana::ejecutarAhora() {
  const int fila = ui_.ListaCron->filaActual();
  const auto& entradas = cronos_.entradas();
  if (fila < 0 || entradas[static_cast<size_t>(fila)].estado != EstadoEntrada::Espera)
    return decirPista(t(kTxElijaEnEspera));
  const QString proceso = entradas[static_cast<size_t>(fila)].proceso;
  if (!MyMsgBox::Decide(this, contexto().textos, contexto().textos(kTxEjecutarYa, {proceso}),
                        kAceptoCancelo | kPrudente))
    return;
  if (consiente_ && !consiente_(*this, entradas[static_cast<size_t>(fila)].pasos)) return;
  // Its hour may have come while the question was on the screen.
  if (!cronos_.adelantar(fila)) return decirPista(t(kTxElijaEnEspera));
  decirBien(contexto().textos(kTxSeEjecuta, {proceso}));
  refrescar();
}

void CronosVentana::verTraza() {
  const QString ruta = Ajustes::ruta(cronos_.nombre() + u".TZC"_s, contexto().ajustes.HomeDir);
  static_cast<void>(preguntar(PuertaVeoLog{ruta}));
}

}  // namespace tarvo::automation
