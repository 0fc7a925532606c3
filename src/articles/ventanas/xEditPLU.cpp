// The form. Its updates while the user types, and its checks, are in xEditPLUVivo.cpp.
#include "articles/ventanas/xEditPLU.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QShortcut>
#include <QTabWidget>
#include <QTableView>
#include <QToolButton>

#include "articles/CodigoBarras.h"
#include "articles/Limites.h"
#include "articles/Listas.h"
#include "articles/TextosArticles.h"
#include "articles/ventanas/ComunArticulos.h"
#include "articles/ventanas/TextosArticulosVentanas.h"
#include "articles/ventanas/VerPrecios.h"
#include "core/dinero/Dinero.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"

namespace tarvo::articles {

using namespace Qt::StringLiterals;
using ventanas::Clase;
using ventanas::Formulario;

namespace {

constexpr int kCifrasCodigo = 7, kLetrasPredefinido = 20, kAltoTexto = 120;
constexpr int kFilasALaVista = 4;  // of prices, with the heading

QLineEdit& linea(const ventanas::Campo& campo) {
  return *qobject_cast<QLineEdit*>(&campo.control());
}

}  // namespace

XEditPLU::XEditPLU(ventanas::Contexto& contexto, const QString& nombre, Catalogo& catalogo)
    : FichaDe(contexto, nombre),
      fichas_(catalogo),
      catalogo_(catalogo),
      moneda_(contexto.ajustes.MonedaPreferente) {
  montar();
}

void XEditPLU::montar() {
  auto f = formulario(ventanas::kTxArticulo);
  montarCabeza(f);
  auto* fichas = f.fichas(u"Fichas"_s);
  montarPrecios(f.ficha(fichas, kTxFichaPrecios, u"pre"_s));
  montarBarras(f.ficha(fichas, kTxFichaBarras, u"otr"_s));
  montarAlmacen(f.ficha(fichas, kTxFichaAlmacen, u"stk"_s));
  montarEtiqueta(f.ficha(fichas, kTxFichaEtiqueta, u"etq"_s));
  acabar({1100, 640}, {.acepto = u"Guardar"_s,
                       .cancelo = u"Salir"_s,
                       .textoAcepto = ventanas::kTxGuardar,
                       .textoCancelo = ventanas::kTxSalir});
  montarDeshacer();
  // On a low screen some tarifas are scrolled to.
  listaPrecios_->setMinimumHeight(ventanas::escalar(kFilasALaVista * ventanas::kAltoFila));
  listaPrecios_->bajarTrasIntro();
  listaHistoria_->preparar(contexto(), nombre(), columnasHistoria(*this, false));
  listaHistoria_->ponerBusca(false);
  listaHistoria_->ponerVacia(t(kTxSinHistoria));
  montarStock();
}

// Cells are written at once, to the copy: Ctrl+Z takes them back until the form is closed.
void XEditPLU::montarDeshacer() {
  deshacer_ = new ventanas::Deshacer(*this);
  const auto alCambiar = [this](const Precios& p) {
    const Precios era = std::exchange(r.articulo.precios, p);
    if (era == p) return Resultado<>();
    deshacer_->apuntar(precios_->queCambia(era, p), [this, era]() -> Resultado<Vuelto> {
      r.articulo.precios = era;
      precios_->poner(era);
      return Vuelto();
    });
    return Resultado<>();
  };
  precios_ = std::make_unique<ParrillaPrecios>(*this, *listaPrecios_, alCambiar,
                                               [this] { return r.articulo.nombre; });
  for (ventanas::Parrilla* p : {listaPrecios_, listaStock_}) deshacer_->seguirTandas(*p);
}

// Its name in messages, if that isn't its caption.
XEditPLU::Campo& XEditPLU::llamar(Campo& campo, int nombre) {
  campo.ponerNombre(t(nombre));
  return campo;
}

ventanas::Modo XEditPLU::importe(qint64& donde) const {
  return dinero(donde, [this] { return moneda_; }).vacioComo(u"0"_s);
}

ventanas::Modo XEditPLU::medida(qint64& donde) const {
  return cantidad(donde, [this] { return cada_; }).vacioComo(u"0"_s);
}

void XEditPLU::montarCabeza(Formulario f) {
  Articulo& a = r.articulo;
  auto c = f.columnas({0, 1, 0, 0});
  codigo_ = &llamar(c[0].fila(ventanas::kTxCodigoConLetra, u"txCod"_s,
                              codigo(a.clave.codigo, kCifrasCodigo, kPrimerCodigo, kUltimoCodigo)),
                    kTxCodigoPLU);
  linea(*codigo_).setMaxLength(kCifrasCodigo);
  ventanas::empujarCifras(linea(*codigo_));
  connect(codigo_, &Campo::dejado, this, [this] {
    QLineEdit& caja = linea(*codigo_);
    if (const qint64 n = caja.text().toLongLong(); n > 0) caja.setText(verCodigo(n));
  });
  nombre_ = &c[1].fila(ventanas::kTxNombreConLetra, u"txNom"_s, texto(a.nombre, kNombreMayor));
  unidad_ = &c[2].fila(
      kTxUnidadFicha, u"LstCada"_s, a.cada,
      {{kPorKilo, t(kTxPorKilo)}, {kPor100g, t(kTxPor100g)}, {kPorUnidad, t(kTxPorUnidad)}});
  connect(unidad_, &Campo::cambiado, this, &XEditPLU::unidadCambiada);
  botonMoneda_ =
      c[3].icono(u"moneda"_s, kTxCambiarMoneda, u"Moneda"_s, [this] { alternarMoneda(); });
  botonMoneda_->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  botonMoneda_->setMinimumWidth(ventanas::escalar(88));
  botonMoneda_->setVisible(contexto().ajustes.Euro > 0);
  botonMoneda_->installEventFilter(this);
  c[3].enLinea({botonMoneda_});
  connect(new QShortcut(Qt::CTRL | Qt::Key_M, this), &QShortcut::activated, this,
          &XEditPLU::alternarMoneda);
}

void XEditPLU::montarPrecios(Formulario f) {
  Articulo& a = r.articulo;
  auto c = f.columnas({4, 5});
  listaPrecios_ = c[0].parrilla(ventanas::kTxPreciosPorTarifa, u"GrdPre"_s);
  hasta1_ = &llamar(c[0].fila(kTxHasta1Ficha, u"txHasta1"_s, medida(a.hasta1)), kTxValorHasta1);
  hasta2_ = &llamar(c[0].fila(kTxHasta2Ficha, u"txHasta2"_s, medida(a.hasta2)), kTxValorHasta2);
  minimo_ = &llamar(c[0].fila(kTxMinimoFicha, u"txMinimo"_s, importe(a.minimo)), kTxPrecioMinimo);
  c[0].casilla(kTxModificable, u"chModificable"_s, a.modificable);
  listaHistoria_ = c[1].parrilla(kTxHistoriaFicha, u"historia"_s);
  medidas_ = {hasta1_, hasta2_, minimo_};
}

void XEditPLU::montarBarras(Formulario f) {
  Articulo& a = r.articulo;
  auto c = f.columnas(2);
  depto_ = &llamar(c[0].fila(ventanas::kTxDepartamentoConLetra, u"LstDep"_s, a.depto, {}),
                   ventanas::kTxDepartamento);
  departamentos_ = qobject_cast<QComboBox*>(&depto_->control());
  descuento_ = &llamar(c[0].fila(kTxDescuentoFicha, u"txDescto"_s,
                                 centesimas(a.descto, 0, kDescuentoMayor).vacioComo(u"0"_s)),
                       kTxDescuento);
  auto& tipo = c[0].fila(kTxTipoBarras, u"LstBarras"_s, a.barras,
                         {{kEAN8, u"EAN8"_s}, {kEAN13, u"EAN13"_s}});
  tipoBarras_ = qobject_cast<QComboBox*>(&tipo.control());
  prefijo_ = &c[0].fila(kTxPrefijoBarras, u"txPfx"_s, cifras(a.pfxBar, kPrefijoBarrasMayor));
  predefinido_ = &c[0].fila(kTxPredefinidoFicha, u"txBarExt"_s,
                            {.ver = [&a] { return a.codBarExt.value_or(QString()); },
                             .poner = [&a](const QString& s) -> Resultado<> {
                               a.codBarExt =
                                   s.trimmed().isEmpty() ? std::optional<QString>() : s.trimmed();
                               return {};
                             },
                             .letras = kLetrasPredefinido});
  linea(*predefinido_).setMaxLength(kLetrasPredefinido);
  control_ = c[0].nota(u"control"_s);
  corregir_ = c[0].boton(kTxCorregir, u"Corregir"_s, [this] {
    QLineEdit& caja = linea(*predefinido_);
    const QString codigo = caja.text().trimmed();
    if (const auto debido = controlDebido(codigo))
      caja.setText(codigo.chopped(1) + QString::number(*debido));
  });
  c[0].enLinea({corregir_, nullptr});
  c[0].muelle();
  dibujo_ = c[1].ancho(new QLabel, u"dibujo"_s, 0, 1);
  deque_ = c[1].nota(u"deque"_s);
  ventanas::ponerLetra(*deque_, ventanas::Letra::Secundaria);
  for (QLabel* l : {dibujo_, deque_}) l->setAlignment(Qt::AlignCenter);
  connect(tipoBarras_, &QComboBox::currentIndexChanged, this, &XEditPLU::pintarBarras);
  for (const Campo* campo : {codigo_, prefijo_, predefinido_})
    connect(&linea(*campo), &QLineEdit::textChanged, this, &XEditPLU::pintarBarras);
}

void XEditPLU::montarAlmacen(Formulario f) {
  Articulo& a = r.articulo;
  auto c = f.columnas({0, 0, 0, 1});
  coste_ = &llamar(c[0].fila(kTxCosteFicha, u"txCoste"_s, importe(a.coste)), kTxCoste);
  auto& mayor =
      llamar(c[1].fila(kTxStockMaximoFicha, u"txStkMax"_s, medida(a.stkMax)), kTxStockMaximo);
  auto& menor =
      llamar(c[2].fila(kTxStockMinimoFicha, u"txStkMin"_s, medida(a.stkMin)), kTxStockMinimo);
  unidadStock_ = c[3].nota(u"lbUni"_s);
  medidas_.insert(medidas_.end(), {coste_, &mayor, &menor});
  listaStock_ = f.parrilla(kTxContadores, u"GrdStk"_s);
  connect(coste_, &Campo::dejado, this, [this] {
    if (coste_->leer()) pintarStock();
  });
}

void XEditPLU::montarEtiqueta(Formulario f) {
  Articulo& a = r.articulo;
  auto c = f.columnas({0, 0, 0, 1});
  formato_ =
      &llamar(c[0].fila(kTxFormatoFicha, u"txFormato"_s, numero(a.formato, 1, kUltimoFormato)),
              kTxFormatoEtiquetas);
  c[1].fila(kTxCaduca1, u"txDias1"_s, numero(a.numdias1, 0, kDiasMayor).vacioComo(u"0"_s));
  c[2].fila(kTxCaduca2, u"txDias2"_s, numero(a.numdias2, 0, kDiasMayor).vacioComo(u"0"_s));
  f.parrafo(kTxTextoFicha, u"txTexto"_s, a.textoEtq, kAltoTexto);
}

void XEditPLU::montarStock() {
  std::vector<ventanas::Columna> columnas{
      {.titulo = ventanas::kTxAlmacen, .campo = u"almacen"_s, .ancho = 140, .ordenable = false}};
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
                        .editar = [this, titulo, contador](qint64 almacen, const QString& texto) {
                          return ponerContador(titulo, contador, almacen, texto);
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
  listaStock_->preparar(contexto(), nombre(), std::move(columnas));
  listaStock_->ponerBusca(false);
  listaStock_->ponerPie(false);
  listaStock_->ponerEscribeAlTeclear(true);
  listaStock_->vivas();
}

Resultado<> XEditPLU::entrar(const PuertaXEditPLU& puerta) {
  ClaveArticulo clave{puerta.seccion, puerta.codigo.value_or(0)};
  if (clave.seccion == 0) {
    TARVO_TOMAR(const auto secciones, contexto().nombres.secciones());
    clave.seccion = secciones.empty() ? 0 : static_cast<int>(secciones.front().codigo);
  }
  if (!puerta.codigo) {
    TARVO_TOMAR(const auto primero, catalogo_.vecino(clave, 1));
    if (primero) clave = *primero;
  }
  // If the same article is opened again, the window keeps its contents.
  if (isVisible() && antes().articulo.clave == clave) return {};
  TARVO_TOMAR(auto ficha, fichas_.leer(clave, puerta.departamento));
  TARVO_INTENTAR(
      ventanas::llenar(*departamentos_, contexto().nombres.departamentos(clave.seccion), 2));
  TARVO_INTENTAR(
      listaHistoria_->abrir(listaHistoria({.seccion = clave.seccion, .codigo = clave.codigo})));
  puerta_ = puerta;
  cada_ = ficha.articulo.cada;
  TARVO_INTENTAR(editar(std::move(ficha)));
  deshacer_->olvidar();
  precios_->poner(r.articulo.precios);
  pintarMoneda();
  pintarBarras();
  setWindowTitle(r.nueva() ? t(kTxArticuloNuevo)
                           : t(kTxArticuloDe).arg(verCodigo(clave.codigo), r.articulo.nombre));
  (r.nueva() ? codigo_ : nombre_)->enfocar();
  return {};
}

}  // namespace tarvo::articles
