// The user's own entries: processes with titles of their own.
#include <QFile>
#include <QMenu>
#include <QScopedValueRollback>
#include <QToolButton>

#include "app/AjustesPersonal.h"
#include "app/ventanas/Entrada.h"
#include "app/ventanas/MainTarvo.h"
#include "app/ventanas/Olvidos.h"
#include "app/ventanas/Puertas.h"
#include "app/ventanas/TextosPrincipal.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/marco/MyMsgBox.h"
#include "core/ventanas/marco/Retenida.h"
#include "core/ventanas/marco/Ventanas.h"

namespace tarvo::app {

using namespace Qt::StringLiterals;

namespace {

// "&" in a title is no mnemonic.
QString sinMarca(QString titulo) {
  return titulo.replace(u'&', u"&&"_s);
}

QString enBoton(const QToolButton& boton, const QString& titulo) {
  const int ancho = ventanas::escalar(40 * ventanas::kPaso);
  return sinMarca(boton.fontMetrics().elidedText(titulo, Qt::ElideRight, ancho));
}

}  // namespace

// Creates the buttons again from the list: the last main entry, and the panel for two or more.
void MainTarvo::refrescarPersonal() {
  const auto& lista = contexto().ajustes.de<AjustesPersonal>().personal;
  const QString unico = lista.size() == 1 ? lista.front().titulo : t(kTxPersonalizado);
  ui_.Personalizado->setText(enBoton(*ui_.Personalizado, unico));
  ui_.Personalizado->setAccessibleName(unico);
  ui_.Personalizado->setToolTip(ui_.Personalizado->text() == sinMarca(unico) ? QString() : unico);
  // Deleted later: this may have been called by the click of one of them.
  for (auto* viejo : ui_.PanelPersonal->findChildren<QToolButton*>()) {
    ui_.cajaPropias->removeWidget(viejo);
    viejo->setObjectName({});
    viejo->hide();
    viejo->deleteLater();
  }
  QWidgetList seguidas;
  for (size_t i = 0; i < lista.size(); ++i) {
    auto* b = new Entrada(ui_.Propias);
    b->setObjectName(u"Personal%1"_s.arg(i));
    b->setIcon(ui_.Personalizado->icon());
    b->setIconSize(ui_.Personalizado->iconSize());
    b->setText(enBoton(*b, lista[i].titulo));
    b->setAccessibleName(lista[i].titulo);
    if (b->text() != sinMarca(lista[i].titulo)) b->setToolTip(lista[i].titulo);
    connect(b, &QToolButton::clicked, this,
            [this, titulo = lista[i].titulo] { ejecutarPersonal(titulo); });
    atenderMenu(*b, i);
    ui_.cajaPropias->insertWidget(static_cast<int>(i), b);
    seguidas << b;
  }
  for (qsizetype i = 1; i < seguidas.size(); ++i) setTabOrder(seguidas[i - 1], seguidas[i]);
  ponerLetras();
  // The entries scroll if they don't fit the height of the screen.
  const int barra = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  ui_.SitioPropias->setMinimumWidth(ui_.Propias->minimumSizeHint().width() + barra);
  ui_.SitioPropias->viewport()->setAutoFillBackground(false);
  ui_.Propias->setAutoFillBackground(false);
}

void MainTarvo::pulsarPersonal() {
  const auto& lista = contexto().ajustes.de<AjustesPersonal>().personal;
  if (lista.empty())
    menuPersonal(ui_.Personalizado, ui_.Personalizado->rect().bottomLeft(), std::nullopt);
  else if (lista.size() == 1)
    ejecutarPersonal(lista.front().titulo);
  else
    mostrarPanel(kPersonal);
}

// --- running ------------------------------------------------------------------------------------

void MainTarvo::ejecutarPersonal(const QString& titulo) {
  const Ajustes& a = contexto().ajustes;
  const auto& lista = a.de<AjustesPersonal>().personal;
  const auto cual = std::ranges::find(lista, titulo, &Personal::titulo);
  if (cual == lista.end()) return;
  const QString aut = Ajustes::ruta(cual->proceso + u".AUT"_s, a.HomeDir);
  const auto fichero = app_.lenguaje().LeerProceso(aut);
  if (fichero && fichero->activaciones.empty()) {
    if (ventanas::MyMsgBox::Decide(this, contexto().textos,
                                   contexto().textos(kTxEjecutarAhora, {titulo, cual->proceso}),
                                   ventanas::kAceptoCancelo | ventanas::kPrudente) &&
        consienteOlvidos(*this, app_, fichero->pasos))
      ir(automation::PuertaAutomat{aut});
    return;
  }
  const QString cro = Ajustes::ruta(cual->proceso + u".CRO"_s, a.HomeDir);
  // If the process can't be read and there is no timetable, the fault is in the process.
  if (!fichero && QFile::exists(aut) && !QFile::exists(cro)) return decirFallo(fichero.error());
  activar(fichero ? aut : cro);
}

// The window of an activated timetable replaces this one.
void MainTarvo::activar(const QString& ruta) {
  ir(automation::PuertaCronos{ruta});
}

// --- editing the list ---------------------------------------------------------------------------

void MainTarvo::atenderMenu(QToolButton& boton, std::optional<size_t> cual) {
  boton.setContextMenuPolicy(Qt::CustomContextMenu);
  connect(&boton, &QWidget::customContextMenuRequested, this,
          [this, &boton, cual](const QPoint& donde) { menuPersonal(&boton, donde, cual); });
}

void MainTarvo::menuPersonal(QWidget* sobre, const QPoint& donde, std::optional<size_t> cual) {
  const auto cuantos = contexto().ajustes.de<AjustesPersonal>().personal.size();
  if (!cual && cuantos == 1) cual = 0;
  const ventanas::Retenida mientras(this);
  const QScopedValueRollback dentro(enPersonal_, true);
  QMenu menu(this);
  menu.setObjectName(u"MenuPersonal"_s);
  connect(menu.addAction(t(kTxAnadirElemento)), &QAction::triggered, this,
          [this] { editarPersonal(std::nullopt); });
  anadirAccion(menu, kTxModificarElemento, [this](size_t i) { editarPersonal(i); }, cual);
  anadirAccion(menu, kTxEliminarElemento, [this](size_t i) { eliminarPersonal(i); }, cual);
  menu.exec(sobre->mapToGlobal(donde));
}

// Adds an action on the entry under the pointer; if there is none and the list has several, a
// submenu asks which one.
void MainTarvo::anadirAccion(QMenu& menu, int texto, const std::function<void(size_t)>& hacer,
                             std::optional<size_t> cual) {
  const auto& lista = contexto().ajustes.de<AjustesPersonal>().personal;
  if (cual || lista.empty()) {
    QAction* accion = menu.addAction(t(texto));
    accion->setEnabled(!lista.empty());
    if (cual) connect(accion, &QAction::triggered, this, [hacer, i = *cual] { hacer(i); });
    return;
  }
  QMenu* cuales = menu.addMenu(t(texto));
  for (size_t i = 0; i < lista.size(); ++i)
    connect(cuales->addAction(sinMarca(lista[i].titulo)), &QAction::triggered, this,
            [hacer, i] { hacer(i); });
}

void MainTarvo::editarPersonal(std::optional<size_t> cual) {
  const bool aceptado = [&] {
    const QScopedValueRollback dentro(enPersonal_, true);
    return preguntar(PuertaElemPerso{cual});
  }();
  if (aceptado) refrescarPersonal();
}

void MainTarvo::eliminarPersonal(size_t cual) {
  auto& lista = contexto().ajustes.de<AjustesPersonal>().personal;
  if (cual >= lista.size()) return;
  const Personal ida = lista[cual];
  lista.erase(lista.begin() + static_cast<std::ptrdiff_t>(cual));
  refrescarPersonal();
  if (lista.size() < 2 && ui_.Paneles->currentIndex() == kPersonal) mostrarPanel(kPrincipal);
  deshacer_->apuntar(t(kTxQueEntrada).arg(ida.titulo),
                     [this, ida, cual] { return reponerPersonal(ida, cual); });
  decirBien(t(kTxEntradaQuitada).arg(ida.titulo));
}

Resultado<ventanas::Deshacer::Vuelto> MainTarvo::reponerPersonal(const Personal& ida, size_t cual) {
  auto& lista = contexto().ajustes.de<AjustesPersonal>().personal;
  if (std::ranges::find(lista, ida.titulo, &Personal::titulo) != lista.end())
    return fallo(Fallo::Duplicado, t(kTxTituloRepetido));
  lista.insert(lista.begin() + static_cast<std::ptrdiff_t>(std::min(cual, lista.size())), ida);
  refrescarPersonal();
  return ventanas::Deshacer::Vuelto();
}

}  // namespace tarvo::app
