// The updates of the editor while the user types, its checks, and how it stores the article.
#include <QCheckBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>

#include "articles/CodigoBarras.h"
#include "articles/Limites.h"
#include "articles/TextosArticles.h"
#include "articles/ventanas/ComunArticulos.h"
#include "articles/ventanas/DibujoBarras.h"
#include "articles/ventanas/TextosArticulosVentanas.h"
#include "articles/ventanas/xEditPLU.h"
#include "core/dinero/Dinero.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/edicion/Campo.h"
#include "core/ventanas/marco/MyMsgBox.h"
#include "core/ventanas/marco/Recorrido.h"

namespace tarvo::articles {

using namespace Qt::StringLiterals;
using ventanas::MyMsgBox;

namespace {

constexpr int kAnchoBarras = 300;

QString textoDe(const ventanas::Campo& campo) {
  return qobject_cast<QLineEdit*>(&campo.control())->text();
}

}  // namespace

// --- display ------------------------------------------------------------------------------------

bool XEditPLU::leerMedidas() {
  std::vector<FaltaCampo> malas;
  for (Campo* c : medidas_)
    if (const auto hecho = c->leer(); !hecho) malas.push_back({c, hecho.error().texto});
  if (!malas.empty()) decir(malas);
  return malas.empty();
}

void XEditPLU::pintarMoneda() {
  precios_->ponerMoneda(moneda_);
  listaHistoria_->ponerMoneda(moneda_);
  listaStock_->ponerMoneda(moneda_);
  botonMoneda_->setText(contexto().ajustes.MonedaLogo[static_cast<size_t>(moneda_)].trimmed());
  botonMoneda_->setAccessibleName(botonMoneda_->text());
  for (Campo* c : medidas_) c->mostrar();
  unidadStock_->setText(t(r.articulo.porPeso() ? kTxKgs : kTxUds));
  pintarStock();
}

void XEditPLU::alternarMoneda() {
  if (contexto().ajustes.Euro <= 0 || listaPrecios_->editando() || listaStock_->editando()) return;
  if (!leerMedidas()) return;
  moneda_ = moneda_ == 0 ? 1 : 0;
  pintarMoneda();
}

// Texts typed for the former unit are first read in that unit.
void XEditPLU::unidadCambiada() {
  const int otra = std::exchange(r.articulo.cada, cada_);
  if (!leerMedidas()) return unidad_->mostrar();
  r.articulo.cada = cada_ = otra;
  pintarMoneda();
}

void XEditPLU::pintarStock() {
  const Articulo& a = r.articulo;
  std::vector<ventanas::FilaViva> filas;
  filas.reserve(r.existencias.size());
  for (const Existencia& e : r.existencias)
    filas.push_back(
        {e.almacen,
         {e.nombre.isEmpty() ? Ceros(e.almacen, 2) : e.nombre, e.inicial, e.compra, e.venta,
          e.entrada, e.salida, e.merma, e.actual(), e.valoracion(a.cada, a.coste), a.cada}});
  const bool habia = listaStock_->filas() > 0;
  listaStock_->vivas().poner(std::move(filas));
  if (!habia && listaStock_->filas() > 0)
    listaStock_->vista()->setCurrentIndex(listaStock_->modelo()->index(0, 1));
}

Resultado<> XEditPLU::ponerContador(int titulo, qint64 Existencia::* contador, qint64 almacen,
                                    const QString& texto) {
  TARVO_TOMAR(const auto n, leerCantidad(*this, texto, r.articulo.cada));
  const auto e = std::ranges::find(r.existencias, static_cast<int>(almacen), &Existencia::almacen);
  if (e == r.existencias.end() || (*e).*contador == n) return {};
  const auto poner = [this, contador, almacen](qint64 cuanto) {
    const auto suya =
        std::ranges::find(r.existencias, static_cast<int>(almacen), &Existencia::almacen);
    if (suya != r.existencias.end()) (*suya).*contador = cuanto;
    pintarStock();
  };
  const qint64 era = (*e).*contador;
  poner(n);
  deshacer_->apuntar(
      t(ventanas::kTxCeldaDe)
          .arg(t(titulo).trimmed(), VerCantidad(contexto().ajustes.idioma, era, r.articulo.cada)),
      [poner, era]() -> Resultado<Vuelto> {
        poner(era);
        return Vuelto();
      });
  return {};
}

Articulo XEditPLU::comoSeVe() const {
  Articulo a = r.articulo;
  a.clave.codigo = textoDe(*codigo_).toLongLong();
  a.barras = static_cast<int>(ventanas::elegido(*tipoBarras_));
  a.pfxBar = textoDe(*prefijo_).trimmed();
  const QString externo = textoDe(*predefinido_).trimmed();
  a.codBarExt = externo.isEmpty() ? std::optional<QString>() : externo;
  return a;
}

void XEditPLU::pintarBarras() {
  const Articulo a = comoSeVe();
  const QString duda = dudaDeBarras(a);
  const bool mal = !duda.isEmpty();
  ventanas::marcarFalta(predefinido_->control(), mal && a.codBarExt);
  corregir_->setVisible(a.codBarExt && controlDebido(*a.codBarExt));
  control_->setText(duda);
  control_->setVisible(mal);
  dibujo_->setPixmap(
      mal ? QPixmap()
          : dibujarBarras(codigoImpreso(a), ventanas::escalar(kAnchoBarras), devicePixelRatioF()));
  deque_->setText(mal ? QString() : t(a.codBarExt ? kTxPredefinido : kTxCompuesto));
}

// The reason why its bar code couldn't be printed or read; empty if there is none.
QString XEditPLU::dudaDeBarras(const Articulo& a) const {
  if (a.codBarExt) {
    if (const auto debido = controlDebido(*a.codBarExt)) return t(kTxControlMalo).arg(*debido);
    if (deSuTipo(a)) return {};
    return t(kTxPredefinidoRaro).arg(tipoBarras_->itemText(a.barras)).arg(cifrasDe(a.barras));
  }
  return codigoImpreso(a).isEmpty() ? t(kTxNoCabeBarras) : QString();
}

// The currency is switched by a double click on its icon; a single click could easily be an
// accident.
bool XEditPLU::eventFilter(QObject* objeto, QEvent* evento) {
  if (objeto != botonMoneda_) return Ventana::eventFilter(objeto, evento);
  if (evento->type() == QEvent::MouseButtonDblClick) alternarMoneda();
  return evento->type() == QEvent::MouseButtonPress ||
         evento->type() == QEvent::MouseButtonRelease ||
         evento->type() == QEvent::MouseButtonDblClick;
}

// Return goes on to the next field: it also ends each code that a bar code reader types.
void XEditPLU::keyPressEvent(QKeyEvent* evento) {
  const bool intro = evento->key() == Qt::Key_Return || evento->key() == Qt::Key_Enter;
  const QWidget* foco = focusWidget();
  const bool campo = qobject_cast<const QLineEdit*>(foco) || qobject_cast<const QComboBox*>(foco) ||
                     qobject_cast<const QCheckBox*>(foco);
  if (!intro || !campo) return FichaDe::keyPressEvent(evento);
  evento->accept();
  focusNextChild();
}

// --- validation and storage ---------------------------------------------------------------------

std::vector<XEditPLU::FaltaCampo> XEditPLU::comprobar() {
  const std::map<Falta, Campo*> suyos{{Falta::Codigo, codigo_},      {Falta::Departamento, depto_},
                                      {Falta::Formato, formato_},    {Falta::Minimo, minimo_},
                                      {Falta::Hasta1, hasta1_},      {Falta::Hasta2, hasta2_},
                                      {Falta::Descuento, descuento_}};
  std::vector<FaltaCampo> malas;
  for (const Falta f : articles::faltas(r.articulo))
    malas.push_back({suyos.at(f), t(kTxValorIncorrecto)});
  return malas;
}

// One name per line; those of the article's own rules first, in their order.
void XEditPLU::decir(const std::vector<FaltaCampo>& faltas) {
  const std::array orden{codigo_, depto_, formato_, minimo_, hasta1_, hasta2_, descuento_};
  auto malas = faltas;
  std::ranges::stable_sort(malas, {},
                           [&](const FaltaCampo& f) { return std::ranges::find(orden, f.campo); });
  QStringList nombres;
  for (const FaltaCampo& f : malas) nombres << f.campo->nombre();
  MyMsgBox::Decide(this, contexto().textos, t(kTxValorIncorrecto) + u":\n"_s + nombres.join(u'\n'),
                   ventanas::kSoloAcepto | ventanas::kCritico);
  malas.front().campo->enfocar();
}

bool XEditPLU::cambiada() const {
  return FichaDe::cambiada() || listaPrecios_->editando() || listaStock_->editando();
}

// Asks before it overwrites changes made meanwhile by another window.
bool XEditPLU::conforme() {
  const auto otro = fichas_.cambiada(antes());
  return haIdoBien(otro) &&
         (!*otro || MyMsgBox::Decide(
                        this, contexto().textos, t(kTxCambiadoPorOtro),
                        ventanas::kAceptoCancelo | ventanas::kExclamacion | ventanas::kPrudente));
}

Resultado<> XEditPLU::aplicar() {
  r.articulo.tara = 1;
  const auto hecho = fichas_.guardar(antes(), r, u"xEditPLU"_s);
  if (hecho) return {};
  codigo_->enfocar();
  return std::unexpected(informe(*this, hecho.error()));
}

void XEditPLU::aplicada() {
  if (auto* lista = contexto().ventanas.recorrido(puerta_.padre))
    lista->refrescarEn({r.articulo.clave.seccion, r.articulo.clave.codigo});
  dejarDeshacer();
  decirDudas();
  aceptar();
}

// The list from which it was opened can take back what was saved, as it is stored.
void XEditPLU::dejarDeshacer() {
  if (!puerta_.alGuardar || antes() == r) return;
  if (const auto guardada = fichas_.leer(r.articulo.clave); haIdoBien(guardada))
    puerta_.alGuardar(antes(), *guardada);
}

// What was saved but should be checked: a new article without a price, a price that became 0 or
// jumped, a bar code entered here that no scale can print. The list reports it, since this window
// is being closed.
void XEditPLU::decirDudas() {
  const auto barras = [](const Articulo& a) {
    return std::tuple(a.codBarExt, a.pfxBar, a.barras, a.clave.codigo);
  };
  const Articulo& a = r.articulo;
  const QString duda = dudaDeBarras(a);
  auto* lista = contexto().ventanas.cargada(puerta_.padre);
  if (!lista) return;
  QStringList dudas;
  if (antes().nueva() && a.precios == Precios{})
    dudas << contexto().textos(kTxSinNingunPrecio, {verCodigo(a.clave.codigo)});
  if (const auto aviso = avisoCambio(a.nombre, antes().articulo.precios, a.precios,
                                     contexto().ajustes, contexto().textos))
    dudas << *aviso;
  if (!duda.isEmpty() && barras(a) != barras(antes().articulo))
    dudas << t(kTxGuardadoConDuda).arg(verCodigo(a.clave.codigo), duda);
  if (!dudas.isEmpty()) lista->decirDuda(dudas.join(u' '));
}

}  // namespace tarvo::articles
