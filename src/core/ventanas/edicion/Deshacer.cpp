#include "core/ventanas/edicion/Deshacer.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <ranges>
#include <set>

#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Tema.h"
#include "core/ventanas/marco/MyMsgBox.h"
#include "core/ventanas/marco/TiraTrabajo.h"
#include "core/ventanas/parrilla/Parrilla.h"

namespace tarvo::ventanas {

using namespace Qt::StringLiterals;

Deshacer::Deshacer(Ventana& ventana, QAction* accion)
    : QObject(&ventana), v_(ventana), accion_(accion ? accion : new QAction(&ventana)) {
  if (!accion) {
    accion_->setObjectName(u"Deshacer"_s);
    accion_->setText(v_.t(kTxDeshacer));
    v_.addAction(accion_);
  }
  accion_->setIcon(icono(u"deshacer"_s));
  accion_->setShortcut(QKeySequence(QKeySequence::Undo));
  connect(accion_, &QAction::triggered, this, &Deshacer::deshacer);
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget* antes, QWidget* ahora) {
    if (antes) antes->removeEventFilter(this);
    if (qobject_cast<QLineEdit*>(ahora) && ahora->window() == &v_) ahora->installEventFilter(this);
  });
  pintar();
}

// A field undoes what was typed in it; the key it has nothing to do with is the window's.
bool Deshacer::eventFilter(QObject* objeto, QEvent* evento) {
  const auto* campo = qobject_cast<QLineEdit*>(objeto);
  if (!campo || evento->type() != QEvent::ShortcutOverride || campo->isUndoAvailable() ||
      !static_cast<QKeyEvent*>(evento)->matches(QKeySequence::Undo))
    return false;
  evento->ignore();
  return true;
}

QAction* Deshacer::accionRehacer() {
  if (accionRehacer_) return accionRehacer_;
  accionRehacer_ = new QAction(icono(u"adelante"_s), v_.t(kTxRehacer), &v_);
  accionRehacer_->setObjectName(u"Rehacer"_s);
  accionRehacer_->setShortcut(Qt::CTRL | Qt::Key_Y);
  v_.addAction(accionRehacer_);
  connect(accionRehacer_, &QAction::triggered, this, &Deshacer::rehacer);
  pintar();
  return accionRehacer_;
}

int Deshacer::apuntar(Cambio cambio) {
  cambio.numero = ++ultimo_;
  pila_.push_back(std::move(cambio));
  olvidarIdas();
  return ultimo_;
}

int Deshacer::apuntar(const QString& que, Vuelta vuelta, Despues despues) {
  return apuntar(
      {.numero = 0, .que = que, .vuelta = std::move(vuelta), .despues = std::move(despues)});
}

int Deshacer::apuntarIdaYVuelta(const QString& que, Vuelta vuelta,
                                std::function<Resultado<>()> ida) {
  return apuntar({.numero = 0, .que = que, .vuelta = std::move(vuelta), .ida = std::move(ida)});
}

void Deshacer::olvidarIdas() {
  deshechos_.clear();
  pintar();
}

void Deshacer::retirar(int numero) {
  for (auto* pila : {&pila_, &deshechos_})
    std::erase_if(*pila, [numero](const Cambio& c) { return c.numero == numero; });
  pintar();
}

void Deshacer::seguirCeldas(Parrilla& lista, std::function<bool(int)> cuando) {
  connect(
      &lista, &Parrilla::celdaEscrita, this,
      [this, &lista, cuando = std::move(cuando)](qint64 clave, int columna, const QString& antes) {
        if (cuando && !cuando(columna)) return;
        const Columna& c = lista.modelo()->columnas()[static_cast<size_t>(columna)];
        const QString que = v_.t(kTxCeldaDe).arg(v_.t(c.titulo).trimmed(), antes);
        apuntar(que, [&lista, clave, antes, editar = c.editar, columna]() -> Resultado<Vuelto> {
          TARVO_INTENTAR(editar(clave, antes));
          TARVO_INTENTAR(lista.refrescar());
          if (const int fila = lista.filaDe(clave); fila >= 0)
            lista.vista()->setCurrentIndex(lista.modelo()->index(fila, columna));
          return Vuelto();
        });
      });
}

void Deshacer::seguirTandas(Parrilla& lista) {
  const auto desde = std::make_shared<int>(0);
  connect(&lista, &Parrilla::vanVarias, this, [this, desde] { *desde = ultimo_; });
  connect(&lista, &Parrilla::variasEscritas, this,
          [this, desde](int cuantas) { juntar(*desde, cuantas); });
  connect(&lista, &Parrilla::variasDejadas, this, [this, desde] {
    std::erase_if(pila_, [desde](const Cambio& c) { return c.numero > *desde; });
    pintar();
  });
}

void Deshacer::comoUno(const std::function<void()>& apuntarVarios) {
  const int desde = ultimo_;
  apuntarVarios();
  juntar(desde, ultimo_ - desde);
}

// Merges the changes noted after that number into one. Those that can't be undone are left as they
// are, and counted.
void Deshacer::juntar(int desde, int cuantas) {
  const auto primero =
      std::ranges::find_if(pila_, [desde](const Cambio& c) { return c.numero > desde; });
  std::vector<Cambio> suyos(primero, pila_.end());
  if (suyos.size() < 2) return;
  pila_.erase(primero, pila_.end());
  const auto volver = [this, suyos]() -> Resultado<Vuelto> {
    int fuera = 0;
    for (const Cambio& c : suyos | std::views::reverse) fuera += c.vuelta() ? 0 : 1;
    return fuera == 0 ? Vuelto() : Vuelto{Plural(v_.t(kTxCeldasSinVolver), fuera), true};
  };
  apuntar(Plural(v_.t(kTxCeldasEscritas), cuantas), volver,
          {.hay = [suyos] { return hayDespues(suyos); }});
}

// Of the changes of one record only the last can tell: it came after the others.
Resultado<bool> Deshacer::hayDespues(const std::vector<Cambio>& cambios) {
  std::set<QString> vistos;
  for (const Cambio& c : cambios | std::views::reverse) {
    if (!c.despues.hay || !vistos.insert(c.despues.de).second) continue;
    TARVO_TOMAR(const bool hay, c.despues.hay());
    if (hay) return true;
  }
  return false;
}

// False if the user leaves an older change as it is, or if that can't be told.
bool Deshacer::conforme(const Cambio& cambio) {
  if (!cambio.despues.hay) return true;
  const auto hay = cambio.despues.hay();
  if (!v_.haIdoBien(hay)) return false;
  return !*hay || MyMsgBox::Decide(&v_, v_.contexto().textos, v_.t(kTxNoEsLoUltimo).arg(cambio.que),
                                   kAceptoCancelo | kExclamacion | kPrudente);
}

void Deshacer::deshacer() {
  if (pila_.empty() || v_.trabajo().enMarcha()) return;
  const Cambio cambio = pila_.back();
  if (!conforme(cambio)) return;
  const auto hecho = cambio.vuelta();
  const bool puedePasar = !hecho && (hecho.error().clase == Fallo::Ocupado ||
                                     hecho.error().clase == Fallo::SoloLectura ||
                                     hecho.error().clase == Fallo::DiscoLleno);
  if (hecho && hecho->queda) return;
  if (!puedePasar) retirar(cambio.numero);
  if (!v_.haIdoBien(hecho)) return;
  if (!cambio.ida) deshechos_.clear();  // what came after it was built on it
  if (cambio.ida) deshechos_.push_back(cambio);
  pintar();
  const QString texto = hecho->texto.isEmpty() ? v_.t(kTxDeshecho).arg(cambio.que) : hecho->texto;
  hecho->duda ? v_.decirDuda(texto) : v_.decirBien(texto);
  Q_EMIT deshecho();
}

void Deshacer::rehacer() {
  if (deshechos_.empty() || v_.trabajo().enMarcha()) return;
  const Cambio cambio = deshechos_.back();
  const auto hecho = cambio.ida();
  if (!v_.haIdoBien(hecho)) return olvidarIdas();
  deshechos_.pop_back();
  pila_.push_back(cambio);
  pintar();
  v_.decirBien(v_.t(kTxRehecho).arg(cambio.que));
}

void Deshacer::olvidar() {
  pila_.clear();
  olvidarIdas();
}

void Deshacer::pintar() {
  accion_->setEnabled(!pila_.empty());
  accion_->setProperty(kPorQueNo, v_.t(kTxNadaQueDeshacer));
  accion_->setToolTip(pila_.empty() ? v_.t(kTxNadaQueDeshacer)
                                    : v_.t(kTxDeshacerQue).arg(pila_.back().que));
  if (!accionRehacer_) return;
  accionRehacer_->setEnabled(!deshechos_.empty());
  accionRehacer_->setProperty(kPorQueNo, v_.t(kTxNadaQueRehacer));
  accionRehacer_->setToolTip(deshechos_.empty() ? v_.t(kTxNadaQueRehacer)
                                                : v_.t(kTxRehacerQue).arg(deshechos_.back().que));
}

}  // namespace tarvo::ventanas
