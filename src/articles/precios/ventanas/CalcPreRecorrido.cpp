// The calculator from article to article: saving, and moving the current row of the list.
#include <algorithm>

#include "articles/precios/CambioRapido.h"
#include "articles/precios/Limites.h"
#include "articles/precios/ventanas/CalcPreVentana.h"
#include "articles/precios/ventanas/Comun.h"
#include "articles/precios/ventanas/TextosPreciosVentanas.h"
#include "core/ventanas/edicion/Ficha.h"
#include "core/ventanas/marco/MyMsgBox.h"

namespace tarvo::precios {

using namespace Qt::StringLiterals;
using articles::Articulo;
using articles::ClaveArticulo;

Resultado<> CalcPreVentana::entrar(const PuertaCalcPre& puerta) {
  lista_.unir(puerta.lista);
  alGuardar_ = puerta.alGuardar;
  ClaveArticulo clave{puerta.seccion, puerta.codigo};
  if (lista_) clave = {lista_->clave().seccion, lista_->clave().codigo};
  if (clave.codigo == 0) {
    TARVO_TOMAR(const auto primero, catalogo_.vecino(clave, 1));
    if (!primero) return vaciar(), Resultado<>();
    clave = *primero;
  }
  // A second opening finds it as it was left; what was typed for another article waits for an
  // answer.
  if (isVisible() && cambiado() && (clave == articulo_.clave || !preguntarAbandono(*this)))
    return {};
  ponerAjustes();
  TARVO_INTENTAR(cargar(clave));
  if (lista_ && !std::exchange(seguida_, true)) lista_->alMover(this, [this] { reposicionado(); });
  ui_.grdpre->ponerActual(puerta.celda);
  entrarEn(ui_.grdpre->actual());
  ui_.costeN->setFocus();
  ui_.costeN->selectAll();
  tocado_ = false;
  return {};
}

// For a section without articles: shows a hint and disables the calculation.
void CalcPreVentana::vaciar() {
  ui_.lbPLU->setText(t(kTxSinArticulosQueCambiar));
  for (QWidget* w : {static_cast<QWidget*>(ui_.marcos), static_cast<QWidget*>(ui_.grdpre),
                     static_cast<QWidget*>(ui_.Salvar), static_cast<QWidget*>(ui_.Arriba),
                     static_cast<QWidget*>(ui_.Abajo), static_cast<QWidget*>(ui_.togg)})
    w->setEnabled(false);
}

Resultado<> CalcPreVentana::cargar(ClaveArticulo clave) {
  TARVO_TOMAR(const auto articulo, catalogo_.leer(clave));
  if (!articulo) return fallo(Fallo::NoExiste, t(kTxSinArticulo));
  TARVO_TOMAR(const auto iva, ivaDeDepartamento(catalogo_, clave.seccion, articulo->depto));
  articulo_ = *articulo;
  precios_ = articulo_.precios;
  tocado_ = false;
  ui_.lbPLU->setText(Ceros(clave.codigo, 7) + u"  "_s + articulo_.nombre);
  ui_.Salvar->setEnabled(!clave.deSistema());
  ui_.grdpre->poner(precios_);
  calc_.ponerIva(iva);
  calc_.entrar(articulo_.coste, precio(ui_.grdpre->actual()));
  pintar();
  return {};
}

// Called when the user has moved the current row of the list. Figures typed here are saved first.
void CalcPreVentana::reposicionado() {
  if (moviendo_ || !lista_ || lista_->clave().codigo == 0) return;
  const auto [seccion, codigo] = lista_->clave();
  if (ClaveArticulo{seccion, codigo} == articulo_.clave) return;
  if (!terminarCajas() || (tocado_ && !guardar())) return;
  haIdoBien(cargar({seccion, codigo}));
  avisarDelGuardado();
}

std::optional<QString> CalcPreVentana::impedimento() const {
  const auto ver = [this](qint64 n) { return precioEnTexto(contexto(), n); };
  const Textos& textos = contexto().textos;
  const qint64 coste = calc_.cifras().costeN;
  if (coste < 0 && coste != articulo_.coste) return textos(kTxCosteNegativo, {ver(coste)});
  for (std::size_t nivel = 0; nivel < articles::kNiveles; ++nivel)
    for (std::size_t tarifa = 0; tarifa < articles::kTarifas; ++tarifa) {
      const qint64 n = precios_[nivel][tarifa];
      if (n == articulo_.precios[nivel][tarifa] || (n >= 0 && n <= kPrecioMayor)) continue;
      return textos(n < 0 ? kTxPrecioNegativo : kTxPrecioSinSitio, {ver(n), ver(kPrecioMayor)});
    }
  return std::nullopt;
}

// A price that becomes 0 or jumps is stored only if that is meant: Return saves what is on view.
bool CalcPreVentana::conforme() {
  if (articulo_.clave.deSistema() || impedimento()) return true;
  const auto aviso = avisoCambio(articulo_.nombre, articulo_.precios, precios_, contexto().ajustes,
                                 contexto().textos);
  return !aviso ||
         ventanas::MyMsgBox::Decide(this, contexto().textos, *aviso + u"\n\n"_s + t(kTxGuardarAsi),
                                    ventanas::kAceptoCancelo | ventanas::kExclamacion);
}

// Told after the next article is shown, which clears the strip.
void CalcPreVentana::avisarDelGuardado() {
  const QString duda = std::exchange(dudaGuardada_, {});
  if (!duda.isEmpty()) decirDuda(duda);
}

// Changes made to the article by another window meanwhile are kept.
bool CalcPreVentana::guardar() {
  dudaGuardada_.clear();
  if (articulo_.clave.deSistema()) {
    if (tocado_) dudaGuardada_ = t(kTxCalculoDeSistema).arg(articulo_.nombre);
    return true;
  }
  if (const auto impide = impedimento()) {
    decirFallo(*impide);
    return false;
  }
  const auto ahora = catalogo_.leer(articulo_.clave);
  if (!haIdoBien(ahora)) return false;
  if (!*ahora) {
    decirFallo(t(kTxSinArticulo));
    return false;
  }
  Articulo nuevo = **ahora;
  for (std::size_t nivel = 0; nivel < articles::kNiveles; ++nivel)
    for (std::size_t tarifa = 0; tarifa < articles::kTarifas; ++tarifa)
      if (precios_[nivel][tarifa] != articulo_.precios[nivel][tarifa])
        nuevo.precios[nivel][tarifa] = precios_[nivel][tarifa];
  if (calc_.cifras().costeN != articulo_.coste) nuevo.coste = calc_.cifras().costeN;
  if (nuevo != **ahora && !haIdoBien(catalogo_.modificar(articulo_.clave, nuevo, nombre())))
    return false;
  tocado_ = false;
  if (nuevo == **ahora) return true;
  dudaGuardada_ = avisoCambio(nuevo.nombre, (*ahora)->precios, nuevo.precios, contexto().ajustes,
                              contexto().textos)
                      .value_or(QString());
  if (alGuardar_) alGuardar_(**ahora, nuevo);
  articulo_ = nuevo;
  precios_ = nuevo.precios;
  const bool ajeno = std::exchange(moviendo_, true);
  if (lista_) lista_->refrescar();
  moviendo_ = ajeno;
  return true;
}

void CalcPreVentana::salvar() {
  if (!terminar() || !conforme() || !guardar()) return;
  decirBien(t(kTxPrecioGuardado).arg(articulo_.nombre));
  avisarDelGuardado();
}

void CalcPreVentana::dejarUltimo() {
  decirDuda(t(kTxNoHayMas));
  avisarDelGuardado();
}

void CalcPreVentana::mover(int pasos) {
  if (!terminar() || !guardar()) return;
  if (lista_) {
    moviendo_ = true;
    const bool hay = lista_->saltar(pasos);
    moviendo_ = false;
    if (!hay) return dejarUltimo();
    haIdoBien(cargar({lista_->clave().seccion, lista_->clave().codigo}));
  } else {
    const auto otro = catalogo_.vecino(articulo_.clave, pasos);
    if (!haIdoBien(otro)) return;
    if (!*otro) return dejarUltimo();
    haIdoBien(cargar(**otro));
  }
  avisarDelGuardado();
  if (auto* caja = qobject_cast<QLineEdit*>(focusWidget())) caja->selectAll();
}

void CalcPreVentana::keyPressEvent(QKeyEvent* evento) {
  if (evento->key() == Qt::Key_Escape && renunciar()) return evento->accept();
  const int pasos = evento->key() == Qt::Key_PageUp     ? -1
                    : evento->key() == Qt::Key_PageDown ? 1
                                                        : 0;
  if (pasos == 0) return Ventana::keyPressEvent(evento);
  evento->accept();
  mover(pasos);
}

// A figure that would be written, or one that is being typed.
bool CalcPreVentana::cambiado() const {
  const bool otro = precios_ != articulo_.precios || calc_.cifras().costeN != articulo_.coste;
  const bool tecleado =
      std::ranges::any_of(cajas_, [](const auto& caja) { return caja.first->isModified(); });
  return (tocado_ && otro && !articulo_.clave.deSistema()) || tecleado || ui_.grdpre->pendiente();
}

bool CalcPreVentana::QueryUnload() {
  if (cambiado() && !preguntarAbandono(*this)) return true;
  guardarAjustes();
  lista_.soltar();
  return false;
}

}  // namespace tarvo::precios
