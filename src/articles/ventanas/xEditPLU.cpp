// The form: what it shows, and what a key does in it. What is checked and written stands in
// xEditPLUGuardar.cpp.
#include "articles/ventanas/xEditPLU.h"

#include <QIntValidator>
#include <QKeyEvent>
#include <QRegularExpressionValidator>
#include <QShortcut>

#include "articles/CodigoBarras.h"
#include "articles/Limites.h"
#include "articles/TextosArticles.h"
#include "articles/ventanas/ComunArticulos.h"
#include "articles/ventanas/DibujoBarras.h"
#include "articles/ventanas/TextosArticulosVentanas.h"
#include "articles/ventanas/VerPrecios.h"
#include "core/dinero/Dinero.h"
#include "core/ventanas/aspecto/Medidas.h"

namespace tarvo::articles {

using namespace Qt::StringLiterals;
using ventanas::Clase;
using ventanas::escalar;

namespace {

constexpr int kCifrasCodigo = 7, kAnchoBarras = 300;

}  // namespace

XEditPLU::XEditPLU(ventanas::Contexto& contexto, const QString& nombre, Catalogo& catalogo)
    : Ventana(contexto, nombre), catalogo_(catalogo), moneda_(contexto.ajustes.MonedaPreferente) {
  ui_.setupUi(cuerpo());
  enlazar();
  montar();
}

QString XEditPLU::nombreDe(ClaveArticulo clave) {
  return u"xEditPLU#%1.%2"_s.arg(clave.seccion).arg(clave.codigo);
}

void XEditPLU::montar() {
  cajas_ = {{ui_.txMinimo, &Articulo::minimo, true, kTxPrecioMinimo},
            {ui_.txHasta1, &Articulo::hasta1, false, kTxValorHasta1},
            {ui_.txHasta2, &Articulo::hasta2, false, kTxValorHasta2},
            {ui_.txCoste, &Articulo::coste, true, kTxCoste},
            {ui_.txStkMax, &Articulo::stkMax, false, kTxStockMaximo},
            {ui_.txStkMin, &Articulo::stkMin, false, kTxStockMinimo}};
  precios_ = std::make_unique<RejillaPrecios>(*this, *ui_.GrdPre, [this](const Precios& p) {
    articulo_.precios = p;
    return Resultado<>();
  });
  ui_.historia->preparar(contexto(), nombre(), columnasHistoria(*this, false));
  ui_.historia->setBusca(false);
  ui_.historia->setVacia(t(kTxSinHistoria));
  montarListas();
  montarStock();
  connect(ui_.Guardar, &QPushButton::clicked, this, &XEditPLU::guardar);
  connect(ui_.Salir, &QPushButton::clicked, this, [this] { close(); });
  ui_.Moneda->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  ui_.Moneda->setIcon(ventanas::icono(u"moneda"_s));
  ui_.Moneda->setMinimumWidth(escalar(80));
  ui_.Moneda->setVisible(contexto().ajustes.Euro > 0);
  ui_.Moneda->installEventFilter(this);
  ui_.txCod->installEventFilter(this);
  connect(ui_.Moneda, &QToolButton::clicked, this, &XEditPLU::alternarMoneda);
  connect(new QShortcut(Qt::CTRL | Qt::Key_M, this), &QShortcut::activated, this,
          &XEditPLU::alternarMoneda);
  connect(ui_.txCod, &QLineEdit::editingFinished, this, [this] {
    if (!ui_.txCod->text().isEmpty()) ui_.txCod->setText(verCodigo(ui_.txCod->text().toLongLong()));
  });
  connect(ui_.Corregir, &QPushButton::clicked, this, [this] {
    const QString codigo = ui_.txBarExt->text().trimmed();
    if (const auto debido = controlDebido(codigo))
      ui_.txBarExt->setText(codigo.chopped(1) + QString::number(*debido));
  });
}

void XEditPLU::montarListas() {
  for (const int texto : {kTxPorKilo, kTxPor100g, kTxPorUnidad}) ui_.LstCada->addItem(t(texto));
  ui_.LstBarras->addItems({u"EAN8"_s, u"EAN13"_s});
  ui_.txCod->setMaxLength(kCifrasCodigo);
  ui_.txCod->setMaximumWidth(escalar(100));
  ui_.txNom->setMaxLength(kNombreMayor);
  auto* cifras = new QRegularExpressionValidator(QRegularExpression(u"\\d*"_s), this);
  for (const auto& [campo, largo] : {std::pair{ui_.txCod, kCifrasCodigo},
                                     {ui_.txPfx, 6},
                                     {ui_.txFormato, 4},
                                     {ui_.txDias1, 4},
                                     {ui_.txDias2, 4}}) {
    campo->setValidator(cifras);
    campo->setMaxLength(largo);
  }
  for (QLineEdit* campo :
       {ui_.txFormato, ui_.txDias1, ui_.txDias2, ui_.txCoste, ui_.txStkMax, ui_.txStkMin})
    campo->setMaximumWidth(escalar(110));
  ui_.txBarExt->setMaxLength(20);
  ui_.txTexto->setTabChangesFocus(true);
  connect(ui_.LstCada, &QComboBox::currentIndexChanged, this, &XEditPLU::unidadCambiada);
  connect(ui_.LstBarras, &QComboBox::currentIndexChanged, this, &XEditPLU::pintarBarras);
  for (QLineEdit* campo : {ui_.txCod, ui_.txPfx, ui_.txBarExt})
    connect(campo, &QLineEdit::textChanged, this, &XEditPLU::pintarBarras);
}

void XEditPLU::montarStock() {
  std::vector<ventanas::Columna> columnas{
      {.titulo = kTxAlmacen, .campo = u"almacen"_s, .ancho = 140, .ordenable = false}};
  const std::pair<int, qint64 Existencia::*> contadores[] = {
      {kTxInicial, &Existencia::inicial}, {kTxCompra, &Existencia::compra},
      {kTxVenta, &Existencia::venta},     {kTxEntrada, &Existencia::entrada},
      {kTxSalida, &Existencia::salida},   {kTxMerma, &Existencia::merma}};
  for (const auto& [titulo, contador] : contadores)
    columnas.push_back({.titulo = titulo,
                        .campo = t(titulo),
                        .clase = Clase::Cantidad,
                        .campoCada = u"cada"_s,
                        .ancho = 88,
                        .ordenable = false,
                        .editar = [this, contador](qint64 almacen, const QString& texto) {
                          return ponerContador(contador, almacen, texto);
                        }});
  columnas.push_back({.titulo = kTxActual,
                      .campo = u"actual"_s,
                      .clase = Clase::Cantidad,
                      .campoCada = u"cada"_s,
                      .ancho = 88,
                      .ordenable = false});
  columnas.push_back({.titulo = kTxValoracion,
                      .campo = u"valor"_s,
                      .clase = Clase::Importe,
                      .ancho = 96,
                      .ordenable = false});
  columnas.push_back({.titulo = kTxUnidad, .campo = u"cada"_s, .soloDato = true});
  ui_.GrdStk->preparar(contexto(), nombre(), std::move(columnas));
  ui_.GrdStk->setBusca(false);
  ui_.GrdStk->setPie(false);
  ui_.GrdStk->setEscribeAlTeclear(true);
  ui_.GrdStk->vivas();
  for (ventanas::Parrilla* p : {ui_.GrdStk, ui_.GrdPre, ui_.historia})
    connect(p, &ventanas::Parrilla::fallo, this, [this](const Error& e) { decirFallo(e); });
  connect(ui_.txCoste, &QLineEdit::editingFinished, this, [this] {
    leerCajas();
    pintarStock();
  });
}

Resultado<> XEditPLU::preparar(const ventanas::Argumentos& argumentos) {
  int seccion = argumentos.value(u"seccion"_s, 0).toInt();
  if (seccion == 0) {
    TARVO_TOMAR(const auto primera, contexto().db.uno(u"SELECT min(NMSECC) FROM SECCS"));
    seccion = static_cast<int>(primera.entero());
  }
  qint64 codigo = argumentos.value(u"codigo"_s, 0).toLongLong();
  if (!argumentos.contains(u"codigo"_s)) {
    TARVO_TOMAR(const auto hay, primero(seccion));
    codigo = hay;
  }
  // A second opening of the same article finds it as it was left.
  if (isVisible() && (codigo == 0 || vieja_ == ClaveArticulo{seccion, codigo})) return {};
  return editar(argumentos.value(u"padre"_s).toString(), seccion,
                argumentos.value(u"departamento"_s, 0).toInt(), codigo);
}

Resultado<qint64> XEditPLU::primero(int seccion) {
  TARVO_TOMAR(
      const auto codigo,
      contexto().db.uno(u"SELECT min(CODPLU) FROM PLUSES WHERE SECCION=? AND CODPLU>2", seccion));
  return codigo.entero();
}

Resultado<> XEditPLU::editar(const QString& padre, int seccion, int departamento, qint64 codigo) {
  padre_ = padre;
  vieja_.reset();
  articulo_ = {};
  articulo_.clave = {seccion, codigo};
  if (codigo > 0) {
    TARVO_TOMAR(const auto hay, catalogo_.leer(articulo_.clave));
    if (!hay) return fallo(Fallo::NoExiste, t(kTxArticuloBorrado));
    articulo_ = *hay;
    vieja_ = articulo_.clave;
  }
  TARVO_INTENTAR(ventanas::llenar(*ui_.LstDep, contexto().nombres.departamentos(seccion), 2));
  if (codigo == 0) {
    const int primero = ui_.LstDep->count() > 0 ? ui_.LstDep->itemData(0).toInt() : 0;
    articulo_.depto = departamento > 0 ? departamento : primero;
  }
  TARVO_TOMAR(const auto existencias, leerExistencias(contexto().db, articulo_.clave));
  existencias_ = existenciasAntes_ = existencias;
  TARVO_INTENTAR(ui_.historia->abrir({.desde = u"HistoriaPrecios"_s,
                                      .filtro = u"SECCION=? AND CODPLU=?"_s,
                                      .parametros = {seccion, codigo},
                                      .clave = u"HistoriaPrecios.ID"_s,
                                      .orden = u"HistoriaPrecios.ID DESC"_s}));
  mostrar();
  antes_ = articulo_;
  setWindowTitle(codigo == 0 ? t(kTxArticuloNuevo)
                             : t(kTxArticuloDe).arg(verCodigo(codigo), articulo_.nombre));
  ui_.Fichas->setCurrentIndex(0);
  (codigo == 0 ? ui_.txCod : ui_.txNom)->setFocus();
  return {};
}

// --- showing ------------------------------------------------------------------------------------

void XEditPLU::mostrar() {
  const Articulo& a = articulo_;
  ui_.txCod->setText(a.clave.codigo > 0 ? verCodigo(a.clave.codigo) : QString());
  ui_.txNom->setText(a.nombre);
  {
    const QSignalBlocker callada(ui_.LstCada);
    ui_.LstCada->setCurrentIndex(a.cada);
  }
  ui_.chModificable->setChecked(a.modificable);
  if (!elegirEn(*ui_.LstDep, a.depto)) ui_.LstDep->setCurrentIndex(-1);
  ui_.LstBarras->setCurrentIndex(a.barras);
  ui_.txPfx->setText(a.pfxBar);
  ui_.txBarExt->setText(a.codBarExt.value_or(QString()));
  ui_.txDescto->setText(QString::number(a.descto / 100.0, 'f', 2).replace(u'.', u','));
  ui_.txFormato->setText(QString::number(a.formato));
  ui_.txTexto->setPlainText(a.textoEtq);
  ui_.txDias1->setText(QString::number(a.numdias1));
  ui_.txDias2->setText(QString::number(a.numdias2));
  precios_->poner(a.precios);
  pintarMoneda();
  pintarBarras();
}

void XEditPLU::mostrarCajas() {
  for (Caja& c : cajas_) {
    c.visto = c.dinero ? VerImporte(contexto().ajustes, articulo_.*c.valor, moneda_)
                       : VerCantidad(articulo_.*c.valor, articulo_.cada);
    c.campo->setText(c.visto);
  }
  ui_.lbUni->setText(t(articulo_.porPeso() ? kTxKgs : kTxUds));
}

void XEditPLU::pintarMoneda() {
  precios_->setMoneda(moneda_);
  ui_.historia->setMoneda(moneda_);
  ui_.GrdStk->setMoneda(moneda_);
  ui_.Moneda->setText(contexto().ajustes.MonedaLogo[static_cast<size_t>(moneda_)].trimmed());
  mostrarCajas();
  pintarStock();
}

void XEditPLU::alternarMoneda() {
  if (contexto().ajustes.Euro <= 0 || ui_.GrdPre->editando() || ui_.GrdStk->editando()) return;
  if (const auto malas = leerCajas(); !malas.empty()) return decirMalas(malas);
  moneda_ = moneda_ == 0 ? 1 : 0;
  pintarMoneda();
}

// What was typed for the former unit is read by it first.
void XEditPLU::unidadCambiada() {
  if (const auto malas = leerCajas(); !malas.empty()) {
    const QSignalBlocker callada(ui_.LstCada);
    ui_.LstCada->setCurrentIndex(articulo_.cada);
    return decirMalas(malas);
  }
  articulo_.cada = ui_.LstCada->currentIndex();
  mostrarCajas();
  pintarStock();
}

void XEditPLU::pintarStock() {
  std::vector<ventanas::FilaViva> filas;
  filas.reserve(existencias_.size());
  for (const Existencia& e : existencias_)
    filas.push_back({e.almacen,
                     {e.nombre.isEmpty() ? Ceros(e.almacen, 2) : e.nombre, e.inicial, e.compra,
                      e.venta, e.entrada, e.salida, e.merma, e.actual(),
                      e.valoracion(articulo_.cada, articulo_.coste), articulo_.cada}});
  const bool habia = ui_.GrdStk->filas() > 0;
  ui_.GrdStk->vivas().poner(std::move(filas));
  if (!habia && ui_.GrdStk->filas() > 0)
    ui_.GrdStk->vista()->setCurrentIndex(ui_.GrdStk->modelo()->index(0, 1));
}

void XEditPLU::pintarBarras() {
  Articulo a = articulo_;
  a.clave.codigo = ui_.txCod->text().toLongLong();
  a.barras = ui_.LstBarras->currentIndex();
  a.pfxBar = ui_.txPfx->text();
  const QString externo = ui_.txBarExt->text().trimmed();
  a.codBarExt = externo.isEmpty() ? std::optional<QString>() : externo;
  const bool control = controlDebido(externo).has_value();
  const QString codigo = codigoImpreso(a), duda = dudaDeBarras(a);
  const bool mal = !duda.isEmpty();
  marcar(*ui_.txBarExt, mal && a.codBarExt);
  ui_.Corregir->setVisible(control);
  ui_.control->setText(duda);
  ui_.control->setVisible(mal);
  ui_.dibujo->setPixmap(mal ? QPixmap()
                            : dibujarBarras(codigo, escalar(kAnchoBarras), devicePixelRatioF()));
  ui_.deque->setText(mal ? QString() : t(a.codBarExt ? kTxPredefinido : kTxCompuesto));
}

// What keeps its bar code from being printed, and read; empty when nothing does.
QString XEditPLU::dudaDeBarras(const Articulo& a) const {
  if (a.codBarExt) {
    if (const auto debido = controlDebido(*a.codBarExt)) return t(kTxControlMalo).arg(*debido);
    if (deSuTipo(a)) return {};
    return t(kTxPredefinidoRaro).arg(ui_.LstBarras->itemText(a.barras)).arg(cifrasDe(a.barras));
  }
  return codigoImpreso(a).isEmpty() ? t(kTxNoCabeBarras) : QString();
}

QWidget* XEditPLU::fichaDe(const QWidget* campo) const {
  for (int i = 0; i < ui_.Fichas->count(); ++i)
    if (ui_.Fichas->widget(i)->isAncestorOf(campo)) return ui_.Fichas->widget(i);
  return nullptr;
}

bool XEditPLU::eventFilter(QObject* objeto, QEvent* evento) {
  if (objeto == ui_.Moneda) {
    if (evento->type() == QEvent::MouseButtonDblClick) alternarMoneda();
    return evento->type() == QEvent::MouseButtonPress ||
           evento->type() == QEvent::MouseButtonRelease ||
           evento->type() == QEvent::MouseButtonDblClick;
  }
  // A full box takes a further digit by pushing the first one out.
  if (objeto == ui_.txCod && evento->type() == QEvent::KeyPress) {
    const QString tecla = static_cast<QKeyEvent*>(evento)->text();
    const bool llena = ui_.txCod->text().size() == kCifrasCodigo && !ui_.txCod->hasSelectedText() &&
                       ui_.txCod->cursorPosition() == kCifrasCodigo;
    if (llena && tecla.size() == 1 && tecla[0].isDigit()) {
      ui_.txCod->setText(ui_.txCod->text().mid(1) + tecla);
      return true;
    }
  }
  return Ventana::eventFilter(objeto, evento);
}

}  // namespace tarvo::articles
