#include "articles/precios/ventanas/FastModf.h"

#include <QTableView>

#include "articles/Listas.h"
#include "articles/TextosArticles.h"
#include "articles/precios/AjustesPrecios.h"
#include "articles/precios/CambioRapido.h"
#include "articles/precios/Listas.h"
#include "articles/precios/ventanas/CfgFastPlu.h"
#include "articles/precios/ventanas/TextosPreciosVentanas.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/marco/Tira.h"
#include "core/ventanas/parrilla/Parrilla.h"

namespace tarvo::precios {

using namespace Qt::StringLiterals;
using ventanas::Clase;

namespace {

const QString kCodigo = u"CODPLU"_s;

struct Como {
  const char16_t* campo;
  Clase clase;
  int cifras = 0, ancho = 0, largo = 0;
};
constexpr std::array<Como, kColumnasRapidas> kColumnasPLU{
    {{u"CODPLU", Clase::Codigo, 7, 76},
     {u"NOMPLU", Clase::Texto, 0, 140},
     {u"PRECIO_00", Clase::Importe, 0, 80},
     {u"PRECIO_10", Clase::Importe, 0, 80},
     {u"PRECIO_20", Clase::Importe, 0, 80},
     {u"DEPTO", Clase::Codigo, 2, 60},
     {u"PFX_BAR", Clase::Texto, 0, 80, articles::kPrefijoBarrasMayor},
     {u"FORMATO", Clase::Codigo, 2, 60},
     {u"NUMDIAS_1", Clase::Entero, 0, 60, 4},
     {u"NUMDIAS_2", Clase::Entero, 0, 60, 4}}};

}  // namespace

FastModf::FastModf(ventanas::Contexto& contexto, const QString& nombre,
                   articles::Catalogo& catalogo)
    : Ventana(contexto, nombre),
      catalogo_(catalogo),
      lista_(contexto),
      modo_(leerModoIntro(contexto.ajustes.de<AjustesPrecios>().ModoIntroRapido)) {
  ui_.setupUi(cuerpo());
  enlazar();
  montar();
}

void FastModf::montar() {
  unir(ui_.Siguiente, u"bajar"_s, {}, [this] { saltar(1); });
  unir(ui_.Anterior, u"subir"_s, {}, [this] { saltar(-1); });
  unir(ui_.Modo, u"adelante"_s, Qt::Key_F8, [this] { ponerModo(siguiente(modo_)); });
  unir(ui_.Configurar, u"ajustes"_s, Qt::Key_F9, [this] { configurar(); });
  deshacer_ = new ventanas::Deshacer(*this, ui_.Deshacer);
  deshacer_->seguirTandas(*ui_.Grd);
  seguirTandas();
  ui_.Grd->ponerTodoONada([this](const auto& hacer) { return catalogo_.todoONada(hacer); });
  ui_.Grd->filtros()->addWidget(ui_.filtros);
  ui_.GrdP->preparar(contexto());
  ui_.GrdP->alEscribir(
      [this](Celda celda, qint64 precio) { return escribirPrecio(celda, precio); });
  setTabOrder(ui_.GrdP->ultimo(), ui_.Grd->campoBusca());
  ui_.lbModo->installEventFilter(this);
  connect(ui_.dbS, &QComboBox::activated, this, [this] { haIdoBien(seccionCambiada()); });
  connect(ui_.Grd, &ventanas::Parrilla::actualCambiada, this, &FastModf::articuloCambiado);
  connect(ui_.Grd, &ventanas::Parrilla::editada, this, &FastModf::articuloCambiado);
  connect(ui_.Grd, &ventanas::Parrilla::variasEscritas, this, &FastModf::articuloCambiado);
  connect(ui_.Grd, &ventanas::Parrilla::variasDejadas, this, &FastModf::articuloCambiado);
  connect(ui_.Grd, &ventanas::Parrilla::escrita, this, [this] { saltar(1); });
  connect(ui_.Grd, &ventanas::Parrilla::activada, this,
          [this] { ui_.GrdP->irA(ui_.GrdP->actual()); });
  decirLoDe(*ui_.GrdP, *this);
  connect(ui_.GrdP, &MatrizPrecios::fallo, this, &FastModf::volverAlPendiente,
          Qt::QueuedConnection);
  connect(ui_.GrdP, &MatrizPrecios::intro, this, &FastModf::intro);
  pintarModo();
}

Resultado<> FastModf::entrar(const PuertaFastModf& puerta) {
  if (!ui_.GrdP->terminar()) return {};
  lista_.unir(puerta.lista);
  alCerrar_ = puerta.alCerrar;
  TARVO_INTENTAR(ventanas::llenar(*ui_.dbS, contexto().nombres.secciones(), 3));
  if (puerta.seccion > 0) elegir(*ui_.dbS, puerta.seccion);
  TARVO_INTENTAR(abrirLista());
  irAlDeLaLista();
  ui_.Grd->irALoEditable();
  ui_.Grd->setFocus();
  return {};
}

// Moves to the current article of the list of articles.
void FastModf::irAlDeLaLista() {
  if (!lista_ || lista_->clave().seccion != ui_.dbS->currentData().toInt()) return;
  const auto fila = articles::filaDe(catalogo_, {lista_->clave().seccion, lista_->clave().codigo});
  const int i = haIdoBien(fila) && *fila ? ui_.Grd->filaDe(**fila) : -1;
  if (i >= 0) ui_.Grd->irA(i);
}

Resultado<> FastModf::seccionCambiada() {
  if (ui_.GrdP->terminar()) return abrirLista();
  elegir(*ui_.dbS, articulo_.clave.seccion);
  return {};
}

ventanas::Columna FastModf::columna(ColumnaRapida cual) {
  const Vista vista =
      ParrillaRapida::leer(contexto().ajustes.de<AjustesPrecios>().ParrillaRapida).vista(cual);
  const Como& como = kColumnasPLU[static_cast<std::size_t>(cual)];
  ventanas::Columna c{.titulo = kTxColumnas + static_cast<int>(cual),
                      .campo = QString::fromUtf16(como.campo),
                      .clase = como.clase,
                      .cifras = como.cifras,
                      .ancho = como.ancho,
                      .soloDato = vista == Vista::Invisible};
  c.largo = como.largo;
  if (vista == Vista::Modificar)
    c.editar = [this, cual](qint64 fila, const QString& texto) {
      return escribir(fila, cual, texto);
    };
  return c;
}

// Also called after the columns have been configured.
Resultado<> FastModf::abrirLista() {
  std::vector<ventanas::Columna> columnas;
  columnas.reserve(kColumnasRapidas);
  for (int i = 0; i < kColumnasRapidas; ++i)
    columnas.push_back(columna(static_cast<ColumnaRapida>(i)));
  ui_.Grd->preparar(contexto(), nombre(), std::move(columnas));
  ui_.Grd->ponerMoneda(contexto().ajustes.MonedaNativa);
  ui_.Grd->ponerEscribeAlTeclear(true);
  ui_.Grd->ponerVacia(t(kTxSinArticulosQueCambiar));
  ui_.Grd->vista()->removeEventFilter(this);
  ui_.Grd->vista()->installEventFilter(this);
  TARVO_INTENTAR(ui_.Grd->abrir(listaRapida(ui_.dbS->currentData().toInt())));
  if (ui_.Grd->filas() > 0 && ui_.Grd->filaActual() < 0) ui_.Grd->irA(0);
  articuloCambiado();
  return {};
}

articles::ClaveArticulo FastModf::claveDe(int fila) const {
  return {ui_.dbS->currentData().toInt(), ui_.Grd->valor(fila, kCodigo).entero()};
}

// While a price is pending, its article remains current.
void FastModf::articuloCambiado() {
  const int fila = ui_.Grd->filaActual();
  if (!ui_.GrdP->pendiente()) return leerArticulo(fila);
  if (fila < 0 || ui_.Grd->clave(fila) != fila_)
    QMetaObject::invokeMethod(this, &FastModf::volverAlPendiente, Qt::QueuedConnection);
}

void FastModf::volverAlPendiente() {
  const auto celda = ui_.GrdP->pendiente();
  if (!celda) return;
  if (const int fila = ui_.Grd->filaDe(fila_); fila >= 0) ui_.Grd->irA(fila);
  ui_.GrdP->irA(*celda);
}

void FastModf::leerArticulo(int fila) {
  const auto articulo = fila < 0 ? Resultado<std::optional<articles::Articulo>>(std::nullopt)
                                 : catalogo_.leer(claveDe(fila));
  const bool hay = haIdoBien(articulo) && articulo->has_value();
  articulo_ = hay ? **articulo : articles::Articulo();
  fila_ = hay ? ui_.Grd->clave(fila) : 0;
  ui_.GrdP->setEnabled(hay);
  ui_.GrdP->poner(articulo_.precios);
  ui_.lbArticulo->setText(
      hay ? t(kTxPreciosDe).arg(Ceros(articulo_.clave.codigo, 7), articulo_.nombre) : QString());
}

Resultado<> FastModf::escribir(qint64 fila, ColumnaRapida columna, const QString& texto) {
  const int i = ui_.Grd->filaDe(fila);
  if (i < 0) return fallo(Fallo::NoExiste, t(kTxSinArticulo));
  const auto clave = claveDe(i);
  TARVO_TOMAR(const auto antes, catalogo_.leer(clave));
  if (!antes) return fallo(Fallo::NoExiste, t(kTxSinArticulo));
  TARVO_TOMAR(const auto nuevo,
              conColumna(*antes, columna, texto, contexto().ajustes, contexto().textos));
  if (nuevo == *antes) return {};
  const auto hecho = catalogo_.modificar(clave, nuevo, nombre());
  if (!hecho) return std::unexpected(informe(contexto(), hecho.error()));
  const QString campo = QString::fromUtf16(kColumnasPLU[static_cast<std::size_t>(columna)].campo);
  apuntar(t(ventanas::kTxCeldaDe)
              .arg(t(kTxColumnas + static_cast<int>(columna)), ui_.Grd->texto(i, campo)),
          *antes, nuevo);
  for (std::size_t nivel = 0; nivel < articles::kNiveles; ++nivel)
    avisar(nuevo.nombre, {static_cast<int>(nivel), 0}, antes->precios[nivel][0],
           nuevo.precios[nivel][0]);
  if (nuevo.depto != antes->depto) avisarDepartamento(clave.seccion, nuevo.depto);
  return {};
}

// As in the list: any within the limits is taken.
void FastModf::avisarDepartamento(int seccion, int departamento) {
  const auto hay = contexto().nombres.departamento(seccion, departamento);
  if (!haIdoBien(hay)) return;
  if (!*hay) return decirDuda(contexto().textos(articles::kTxSinEseDepartamento).arg(departamento));
  if (tira().estado() == ventanas::Estado::Duda) tira().quitar();
}

Resultado<> FastModf::escribirPrecio(Celda celda, qint64 precio) {
  articles::Articulo ahora = articulo_;
  const qint64 antes = std::exchange(
      ahora.precios[static_cast<std::size_t>(celda.nivel)][static_cast<std::size_t>(celda.tarifa)],
      precio);
  TARVO_INTENTAR(catalogo_.ponerPrecios(articulo_.clave, ahora.precios, nombre()));
  const QString cual =
      t(kTxNivel + celda.nivel).trimmed() + u", "_s + t(kTxTarifaN).arg(celda.tarifa + 1);
  apuntar(t(ventanas::kTxCeldaDe).arg(cual, precioEnTexto(contexto(), antes)), articulo_, ahora);
  articulo_.precios = ahora.precios;
  avisar(articulo_.nombre, celda, antes, precio);
  haIdoBien(ui_.Grd->refrescar());
  return {};
}

// Identified by the article, not by its row: the list may show other articles by then.
void FastModf::apuntar(const QString& que, const articles::Articulo& antes,
                       const articles::Articulo& ahora) {
  const auto cambio = std::make_shared<const CambioHecho>(que, antes, ahora);
  hechos_.push_back({cambio, enTanda_ ? tanda_ : ++tanda_});
  const auto volver = [this, cambio]() -> Resultado<ventanas::Deshacer::Vuelto> {
    const auto hecho = catalogo_.volver(cambio->antes, cambio->ahora, nombre());
    if (!hecho) return std::unexpected(informe(contexto(), hecho.error()));
    TARVO_INTENTAR(ui_.Grd->refrescar());
    TARVO_TOMAR(const auto fila, articles::filaDe(catalogo_, cambio->antes.clave));
    const int i = fila ? ui_.Grd->filaDe(*fila) : -1;
    if (i >= 0) ui_.Grd->irA(i);
    articuloCambiado();
    return ventanas::Deshacer::Vuelto();
  };
  deshacer_->apuntar(que, volver, {.de = QString::number(ahora.clave.codigo), .hay = [=, this] {
                                     return catalogo_.cambiadoDespues(antes, ahora);
                                   }});
}

void FastModf::seguirTandas() {
  connect(ui_.Grd, &ventanas::Parrilla::vanVarias, this, [this] {
    enTanda_ = true;
    ++tanda_;
  });
  const auto acabada = [this] { enTanda_ = false; };
  connect(ui_.Grd, &ventanas::Parrilla::variasEscritas, this, acabada);
  connect(ui_.Grd, &ventanas::Parrilla::variasDejadas, this, acabada);
}

// The list from which it was opened goes on undoing.
void FastModf::entregarHechos() {
  std::vector<CambioHecho> juntos;
  int tanda = 0;
  const auto entregar = [&] {
    if (!juntos.empty() && alCerrar_) alCerrar_(juntos);
    juntos.clear();
  };
  for (const Hecho& h : std::exchange(hechos_, {})) {
    const auto cambio = h.cambio.lock();
    if (!cambio) continue;
    if (h.tanda != std::exchange(tanda, h.tanda)) entregar();
    juntos.push_back(*cambio);
  }
  entregar();
}

void FastModf::avisar(const QString& articulo, Celda celda, qint64 antes, qint64 ahora) {
  if (antes == ahora) return;
  const Textos& textos = contexto().textos;
  const QString cual = articles::nombrePrecio(celda.nivel, celda.tarifa, textos);
  if (const auto aviso = avisoCambio(articulo, cual, antes, ahora, contexto().ajustes, textos))
    decirDuda(*aviso);
}

// --- keys

bool FastModf::saltar(int pasos) {
  // The price being typed counts too.
  if (!ui_.GrdP->terminar()) return false;
  const int fila = ui_.Grd->filaActual() + pasos;
  if (fila < 0 || fila >= ui_.Grd->filas()) return false;
  const bool enPrecios = ui_.GrdP->tieneFoco();
  ui_.Grd->irA(fila);
  if (enPrecios) ui_.GrdP->irA(ui_.GrdP->actual());
  return true;
}

void FastModf::intro(Celda celda) {
  if (const auto otra = trasIntro(modo_, celda)) return ui_.GrdP->irA(*otra);
  if (!saltar(1)) ui_.GrdP->irA(celda);
}

void FastModf::keyPressEvent(QKeyEvent* evento) {
  const int pasos = evento->key() == Qt::Key_PageUp     ? -1
                    : evento->key() == Qt::Key_PageDown ? 1
                                                        : 0;
  if (pasos == 0) return Ventana::keyPressEvent(evento);
  evento->accept();
  saltar(pasos);
}

// In the list too, the page keys move by one article. A double click on the mode selects the next
// one.
bool FastModf::eventFilter(QObject* objeto, QEvent* evento) {
  if (objeto == ui_.lbModo && evento->type() == QEvent::MouseButtonDblClick) {
    ponerModo(siguiente(modo_));
    return true;
  }
  if (objeto == ui_.Grd->vista() && evento->type() == QEvent::KeyPress) {
    auto* tecla = static_cast<QKeyEvent*>(evento);
    if (tecla->key() == Qt::Key_PageUp || tecla->key() == Qt::Key_PageDown) {
      keyPressEvent(tecla);
      return true;
    }
  }
  return Ventana::eventFilter(objeto, evento);
}

// --- options

void FastModf::pintarModo() {
  ui_.lbModo->setText(t(kTxModo + static_cast<int>(modo_)));
}

void FastModf::ponerModo(ModoIntro modo) {
  modo_ = modo;
  contexto().ajustes.de<AjustesPrecios>().ModoIntroRapido = static_cast<int>(modo);
  confirmarModo(contexto().ajustes);
  haIdoBien(contexto().ajustes.GuardarConfig());
  pintarModo();
}

void FastModf::configurar() {
  if (!ui_.GrdP->terminar()) return;
  const auto config =
      preguntar(PuertaCfgFastPlu{ConfigCambio::de(contexto().ajustes.de<AjustesPrecios>())});
  if (!config) return;
  ParrillaRapida todas =
      ParrillaRapida::leer(contexto().ajustes.de<AjustesPrecios>().ParrillaRapida);
  for (std::size_t i = 0; i < kColumnasRapidas; ++i)
    todas.poner(static_cast<ColumnaRapida>(i), config->vistas[i]);
  contexto().ajustes.de<AjustesPrecios>().ParrillaRapida = todas.escribir();
  confirmarParrilla(contexto().ajustes);
  ponerModo(config->modo);
  haIdoBien(abrirLista());
  ui_.Grd->setFocus();
}

bool FastModf::QueryUnload() {
  if (!ui_.GrdP->terminar()) return true;
  if (lista_) lista_->refrescar();
  lista_.soltar();
  entregarHechos();
  return false;
}

}  // namespace tarvo::precios
