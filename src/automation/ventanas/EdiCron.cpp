#include "automation/ventanas/EdiCron.h"

#include <QApplication>
#include <QFileInfo>
#include <QMenu>
#include <QRegularExpressionValidator>

#include "automation/ventanas/ColumnasHorario.h"
#include "automation/ventanas/TextosAutomationVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/marco/Alcance.h"
#include "core/ventanas/marco/MyMsgBox.h"
#include "core/ventanas/marco/Tira.h"
#include "core/ventanas/marco/Ventanas.h"
#include "core/ventanas/parrilla/Parrilla.h"

namespace tarvo::automation {

using namespace Qt::StringLiterals;
using namespace ventanas;

namespace {

std::vector<Columna> columnasBat() {
  std::vector<Columna> c;
  anadirColumnasMomento(c);
  c.push_back({.titulo = kTxColProceso, .campo = u"proceso"_s, .ancho = 260, .ordenable = false});
  return c;
}

FilaViva filaBat(size_t i, const LineaActivacion& l) {
  FilaViva f{static_cast<qint64>(i), {}};
  anadirMomento(f.valores, l);
  f.valores.emplace_back(l.nombre);
  return f;
}

// The blank row at the end, for a new entry.
FilaViva filaNueva(size_t i, const QString& texto) {
  FilaViva f{static_cast<qint64>(i), std::vector<dao::Valor>(8)};
  f.valores.emplace_back(texto);
  return f;
}

}  // namespace

EdiCron::EdiCron(Contexto& c, const QString& nombre, const Lenguaje& lenguaje)
    : FichaDe(c, nombre), lenguaje_(lenguaje), deshacer_(new Deshacer(*this)) {
  ui_.setupUi(cuerpo());
  dias_ = {ui_.dia_0, ui_.dia_1, ui_.dia_2, ui_.dia_3, ui_.dia_4, ui_.dia_5, ui_.dia_6};
  ponerLetra(*ui_.lblNom, Letra::Titulo);
  ui_.NomCron->setValidator(
      new QRegularExpressionValidator(QRegularExpression(uR"([^:.\\/?"|]*)"_s), this));
  enlazar();
  for (int d = 0; d < 7; ++d) {
    dias_[static_cast<size_t>(d)]->setToolTip(t(kTxDiaSemana + d));
    dias_[static_cast<size_t>(d)]->setAccessibleName(t(kTxDiaSemana + d));
  }
  ui_.ListaBat->preparar(c, nombre, columnasBat());
  ui_.ListaBat->vivas();
  ui_.ListaBat->ponerUnaSola(true);
  ui_.ListaBat->ponerBusca(false);
  ui_.ListaBat->ponerPie(false);
  ui_.ListaBat->ponerAcciones({ui_.insertar, ui_.borrar});
  ui_.ListaBat->vista()->setAccessibleName(t(kTxLineasHorario));
  conectar();
  conectarLinea();
}

void EdiCron::conectar() {
  unir(ui_.guardar, u"guardar"_s, QKeySequence::Save, [this] { guardar(); });
  unir(ui_.activar, u"reloj"_s, Qt::Key_F9, [this] { activar(); });
  unir(ui_.abandonar, u"cerrar"_s, {}, [this] { rechazar(); });
  unir(ui_.insertar, u"anadir"_s, {}, [this] { insertar(); });
  unir(ui_.borrar, u"borrar"_s, {}, [this] { borrar(); });
  unir(ui_.otro, u"abrir"_s, {}, [this] { elegirOtro(); });
  unir(ui_.quitar, u"quitar"_s, {}, [this] { quitarHorario(); });
  // The whole sentence, where the kit would only say that a key was dropped.
  connect(
      ui_.NomCron, &QLineEdit::inputRejected, this, [this] { decirEnNombre(t(kTxSignosDeNombre)); },
      Qt::QueuedConnection);
  connect(ui_.NomCron, &QLineEdit::returnPressed, this, [this] { aceptarNombre(); });
  connect(ui_.AceptoNombre, &QPushButton::clicked, this, [this] { aceptarNombre(); });
  connect(ui_.CanceloNombre, &QPushButton::clicked, this, [this] { rechazar(); });
  connect(ui_.ListaBat, &Parrilla::actualCambiada, this, [this] { ponerLinea(); });
  connect(ui_.ListaBat, &Parrilla::activada, this, [this] { ui_.Hora->setFocus(); });
  ui_.ListaBat->vista()->installEventFilter(this);
}

void EdiCron::conectarLinea() {
  std::vector<Campo*> campos{&enlazarCampo(*ui_.Hora, hora(linea_.hora)),
                             &enlazarTexto(*ui_.NomMacro, linea_.nombre)};
  for (size_t d = 0; d < 7; ++d) campos.push_back(&enlazarCampo(*dias_[d], linea_.dias[d]));
  for (const Campo* c : campos)
    connect(c, &Campo::cambiado, this, [this] {
      tocada_ = true;
      pintarLinea();
    });
  connect(ui_.Aplicar, &QPushButton::clicked, this, [this] { aplicarLinea(); });
  connect(ui_.Cancelar, &QPushButton::clicked, this, [this] { cancelarLinea(); });
  ui_.Hora->setMinimumWidth(ui_.Hora->maximumWidth());  // the buttons of the line leave it whole
}

// --- opening ------------------------------------------------------------------------------------

Resultado<> EdiCron::entrar(const PuertaEdiCron& puerta) {
  const QString& ruta = puerta.fichero;
  if (!ruta_.isEmpty() && (ruta == ruta_ || ruta.isEmpty())) return {};
  if (!ruta_.isEmpty() && cambiada()) return fallo(Fallo::Ocupado, t(kTxGuardeAntes));
  if (ruta.isEmpty()) {
    pedirNombre();
    return {};
  }
  TARVO_TOMAR(const auto texto, lenguaje_.leerTexto(ruta));
  TARVO_TOMAR(auto leido, leerHorario(texto, lenguaje_));
  ruta_ = ruta;
  editarHorario(std::move(leido));
  return {};
}

void EdiCron::pedirNombre() {
  ui_.pnlEdicion->hide();
  ui_.pnlNombre->show();
  if (!tamano_.isValid()) tamano_ = size();
  ajustarNombre();
  ui_.NomCron->clear();
  ui_.NomCron->setFocus();
}

// As low as the question and its notice allow.
void EdiCron::ajustarNombre() {
  layout()->activate();
  const int alto = layout()->hasHeightForWidth() ? layout()->heightForWidth(width())
                                                 : layout()->minimumSize().height();
  resize(width(), std::max(alto, layout()->minimumSize().height()));
}

void EdiCron::decirEnNombre(const QString& texto) {
  decirPista(texto);
  ajustarNombre();
}

void EdiCron::aceptarNombre() {
  const QString nombre = ui_.NomCron->text().trimmed().toUpper();
  if (nombre.isEmpty()) return decirEnNombre(t(kTxEscribaNombre));
  const QString ruta = Ajustes::ruta(nombre + u".CRO"_s, contexto().ajustes.HomeDir);
  if (QFileInfo::exists(ruta))
    return decirEnNombre(contexto().textos(kTxYaHayProgramacion, {nombre}));
  tira().quitar();
  ruta_ = ruta;
  editarHorario({});
}

void EdiCron::editarHorario(Horario horario) {
  const int bajo = height();
  static_cast<void>(editar(std::move(horario)));
  ui_.pnlNombre->hide();
  ui_.pnlEdicion->show();
  if (tamano_.isValid()) {
    move(pos() - QPoint(0, (tamano_.height() - bajo) / 2));  // it grows around its middle
    crecer(std::exchange(tamano_, QSize()));
  }
  deshacer_->olvidar();
  const QString nombre = QFileInfo(ruta_).completeBaseName().toUpper();
  ui_.lblNom->setText(contexto().textos(kTxProgramacion, {nombre}));
  {
    const QSignalBlocker callada(ui_.NomMacro);
    ui_.NomMacro->clear();
    ui_.NomMacro->addItems(procesosDe(contexto().ajustes.HomeDir));
  }
  ponerLista(0);
  ui_.ListaBat->vista()->setFocus();
}

// --- the list and its current line --------------------------------------------------------------

void EdiCron::ponerLista(int actual) {
  std::vector<FilaViva> filas;
  filas.reserve(r.lineas.size() + 1);
  for (size_t i = 0; i < r.lineas.size(); ++i) filas.push_back(filaBat(i, r.lineas[i]));
  filas.push_back(filaNueva(filas.size(), t(kTxLineaNueva)));
  const int ultima = static_cast<int>(filas.size()) - 1;
  ui_.ListaBat->vivas().poner(std::move(filas));
  ui_.ListaBat->irA(std::min(actual, ultima));
  ponerLinea();
}

// Copies the current line to the controls; pending changes in them are dropped.
void EdiCron::ponerLinea() {
  const auto fila = static_cast<size_t>(std::max(0, ui_.ListaBat->filaActual()));
  const bool hay = fila < r.lineas.size();
  linea_ = hay ? r.lineas[fila] : LineaActivacion{};
  mostrar();
  tocada_ = false;
  insertada_.reset();
  pintarLinea();
  ui_.borrar->setEnabled(hay);
}

// A line that was just inserted goes as well.
void EdiCron::cancelarLinea() {
  const int fila = ui_.ListaBat->filaActual();
  if (const auto cambio = std::exchange(insertada_, std::nullopt)) {
    deshacer_->retirar(*cambio);
    r.lineas.erase(r.lineas.begin() + fila);
    ponerLista(fila);
  }
  ponerLinea();
  ui_.ListaBat->vista()->setFocus();
}

// While a line is being changed, it can only be applied or cancelled.
void EdiCron::pintarLinea() {
  const bool si = tocada();
  ui_.ListaBat->setEnabled(!si);
  ui_.insertar->setEnabled(!si);
  if (si) ui_.borrar->setEnabled(false);
  ui_.Aplicar->setVisible(si);
  ui_.Cancelar->setVisible(si);
}

bool EdiCron::aplicarLinea() {
  if (!tocada()) return true;
  if (!leer()) return false;
  const LineaActivacion l = linea_;
  if (l.nombre.isEmpty()) {
    QApplication::beep();
    decirFallo(t(kTxElijaProceso));
    ui_.NomMacro->setFocus();
    return false;
  }
  tira().quitar();
  if (l.dias == decltype(l.dias){}) decirDuda(t(kTxSinNingunDia));
  const auto fila = static_cast<size_t>(std::max(0, ui_.ListaBat->filaActual()));
  apuntar(fila < r.lineas.size() ? kTxQueCambiada : kTxQueInsertada, static_cast<int>(fila));
  if (fila < r.lineas.size())
    r.lineas[fila] = l;
  else
    r.lineas.push_back(l);
  ponerLista(static_cast<int>(fila));
  ui_.ListaBat->vista()->setFocus();
  return true;
}

void EdiCron::insertar() {
  if (tocada()) return;
  const auto fila = std::clamp<qsizetype>(ui_.ListaBat->filaActual(), 0, std::ssize(r.lineas));
  const int cambio = apuntar(kTxQueInsertada, static_cast<int>(fila));
  r.lineas.insert(r.lineas.begin() + fila, LineaActivacion{});
  ponerLista(static_cast<int>(fila));
  insertada_ = cambio;
  ui_.Hora->setFocus();
  ui_.Hora->selectAll();
}

void EdiCron::borrar() {
  const int fila = ui_.ListaBat->filaActual();
  if (tocada() || fila < 0 || fila >= std::ssize(r.lineas)) return;
  apuntar(kTxQueQuitada, fila);
  r.lineas.erase(r.lineas.begin() + fila);
  ponerLista(fila);
  decirBien(t(kTxLineaQuitada));
}

// Before a change of the lines: how they were.
int EdiCron::apuntar(int que, int fila) {
  return deshacer_->apuntar(t(que),
                            [this, fila, antes = r.lineas]() -> Resultado<Deshacer::Vuelto> {
                              if (tocada()) {
                                decirPista(t(kTxAcabeLinea));
                                return Deshacer::Vuelto{.queda = true};
                              }
                              r.lineas = antes;
                              ponerLista(fila);
                              return Deshacer::Vuelto();
                            });
}

// --- other timetables ---------------------------------------------------------------------------

// Opens another timetable of the folder, or begins a new one.
void EdiCron::elegirOtro() {
  if (tocada()) return decirPista(t(kTxAcabeLinea));
  if (cambiada()) return decirPista(t(kTxGuardeAntes));
  auto* menu = new QMenu(this);
  menu->setObjectName(u"MenuHorarios"_s);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->addAction(t(kTxHorarioNuevo), this, [this] { pedirNombre(); });
  menu->addSeparator();
  const QString este = QFileInfo(ruta_).fileName();
  for (const QString& fichero : horariosDe(contexto().ajustes.HomeDir))
    if (fichero.compare(este, Qt::CaseInsensitive) != 0)
      menu->addAction(QFileInfo(fichero).completeBaseName().toUpper(), this,
                      [this, fichero] { abrirOtro(fichero); });
  ponerLetras(*menu);
  desplegar(*menu, bajo(*ui_.barra, *ui_.otro));
}

void EdiCron::abrirOtro(const QString& fichero) {
  const QString ruta = Ajustes::ruta(fichero, contexto().ajustes.HomeDir);
  haIdoBien(entrar(PuertaEdiCron{ruta}));
}

// The file keeps a copy beside it.
void EdiCron::quitarHorario() {
  const QString nombre = QFileInfo(ruta_).completeBaseName().toUpper();
  if (!MyMsgBox::Decide(this, contexto().textos, contexto().textos(kTxBorraHorario, {nombre}),
                        kAceptoCancelo | kExclamacion | kPrudente))
    return;
  const auto copia = retirarHorario(ruta_);
  if (!haIdoBien(copia)) return;
  if (auto* quien = qobject_cast<Ventana*>(dueno()))
    quien->decirBien(contexto().textos(kTxHorarioBorrado, {nombre, *copia}));
  guardada();
  aceptar();
}

// --- closing ------------------------------------------------------------------------------------

bool EdiCron::escribir() {
  if (ruta_.isEmpty() || !aplicarLinea()) return false;
  const auto sin = std::ranges::find(r.lineas, QString(), &LineaActivacion::nombre);
  if (sin != r.lineas.end()) {
    const auto fila = sin - r.lineas.begin();
    ui_.ListaBat->irA(static_cast<int>(fila));
    decirFallo(contexto().textos(kTxLineaSinProceso, {fila + 1}));
    return false;
  }
  if (!haIdoBien(guardarHorario(ruta_, r, lenguaje_))) return false;
  guardada();
  return true;
}

void EdiCron::guardar() {
  if (escribir()) aceptar();
}

// The window of the active timetable takes the place of this one, and of the main window.
void EdiCron::activar() {
  if (!escribir() || !contexto().ventanas.abrir(PuertaCronos{ruta_}, dueno())) return;
  aceptar();
}

bool EdiCron::QueryUnload() {
  if (tamano_.isValid())
    resize(tamano_);  // the size to remember is the editor's, not the question's
  return FichaDe::QueryUnload();
}

void EdiCron::keyPressEvent(QKeyEvent* evento) {
  const bool intro = evento->key() == Qt::Key_Return || evento->key() == Qt::Key_Enter;
  if (tocada() && intro)
    aplicarLinea();
  else if ((tocada() || insertada_) && evento->key() == Qt::Key_Escape)
    cancelarLinea();
  else
    FichaDe::keyPressEvent(evento);
}

// An hour typed on the list is that of its current line.
bool EdiCron::teclearHora(QEvent& cifra) {
  ui_.Hora->setFocus();
  ui_.Hora->selectAll();
  QCoreApplication::sendEvent(ui_.Hora, &cifra);
  return true;
}

bool EdiCron::eventFilter(QObject* objeto, QEvent* evento) {
  if (evento->type() == QEvent::KeyPress) {
    const int tecla = static_cast<QKeyEvent*>(evento)->key();
    if (tecla >= Qt::Key_0 && tecla <= Qt::Key_9) return teclearHora(*evento);
    if (tecla == Qt::Key_Insert) insertar();
    if (tecla == Qt::Key_Delete) borrar();
    if (tecla == Qt::Key_Insert || tecla == Qt::Key_Delete) return true;
  }
  return FichaDe::eventFilter(objeto, evento);
}

}  // namespace tarvo::automation
