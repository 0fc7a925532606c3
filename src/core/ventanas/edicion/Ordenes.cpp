#include "core/ventanas/edicion/Ordenes.h"

#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Tema.h"
#include "core/ventanas/marco/TiraTrabajo.h"
#include "core/ventanas/parrilla/Parrilla.h"

namespace tarvo::ventanas {

using namespace Qt::StringLiterals;

Ordenes::Ordenes(Ventana& ventana, QToolBar* barra, Parrilla* lista)
    : QObject(&ventana), v_(ventana), barra_(barra), lista_(lista) {
  if (barra_) barra_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  if (!lista_) return;
  connect(lista_, &Parrilla::actualCambiada, this, &Ordenes::actualizar);
  connect(lista_, &Parrilla::seleccionCambiada, this, &Ordenes::actualizar);
}

QAction* Ordenes::anadir(Orden o) {
  auto* a = new QAction(v_.t(o.texto), &v_);
  a->setObjectName(o.nombre);
  if (!o.dibujo.isEmpty()) a->setIcon(icono(o.dibujo));
  a->setShortcut(o.tecla);
  QString pista = v_.t(o.pista > 0 ? o.pista : o.texto).remove(u'&');
  if (o.pista == 0 && !o.tecla.isEmpty())
    pista += u" ("_s + o.tecla.toString(QKeySequence::NativeText) + u')';
  a->setToolTip(pista);
  v_.alDar(a, o.hacer);
  todas_.push_back({a, std::move(o.puede)});
  if (barra_ && o.enBarra)
    barra_->addAction(a);
  else
    v_.addAction(a);
  if (lista_) lista_->ponerAcciones(menu_ << a);
  return a;
}

void Ordenes::anadir(QAction* a) {
  if (barra_) barra_->addAction(a);
  if (lista_) lista_->ponerAcciones(menu_ << a);
}

void Ordenes::separar() {
  if (barra_) barra_->addSeparator();
}

void Ordenes::actualizar() {
  for (const Una& u : todas_) u.accion->setEnabled(!ocupada_ && (!u.puede || u.puede()));
}

void Ordenes::ocupar(bool ocupada) {
  ocupada_ = ocupada;
  actualizar();
}

bool trabajar(Ventana& v, Ordenes* ordenes, Faena f) {
  const auto ocupar = [ordenes, quietos = f.quietos](bool si) {
    if (ordenes) ordenes->ocupar(si);
    for (QWidget* w : quietos) w->setEnabled(!si);
  };
  auto hechos = std::make_shared<qint64>(0);
  const auto paso = [f, hechos](Trabajo::Avance& a) -> Resultado<bool> {
    a.total = f.total;
    if (!f.sigue && *hechos >= f.total) return false;
    TARVO_INTENTAR(f.paso(*hechos));
    ++*hechos;
    a.hechos = f.hasta ? f.hasta() : *hechos;
    return f.sigue ? f.sigue() : *hechos < f.total;
  };
  const auto fin = [&v, ocupar, f, hechos](const Resultado<Trabajo::Fin>& como) {
    ocupar(false);
    const bool parado = como && *como == Trabajo::Fin::Parado;
    if (f.acabar) f.acabar({*hechos, parado, como ? std::nullopt : std::optional(como.error())});
    if (!v.haIdoBien(como) || !parado) return;
    v.decirDuda(f.parado ? f.parado() : v.contexto().textos(kTxParadoEn, {*hechos, f.total}));
  };
  if (!v.trabajo().empezar(f.que, paso, fin)) return false;
  ocupar(true);
  return true;
}

}  // namespace tarvo::ventanas
