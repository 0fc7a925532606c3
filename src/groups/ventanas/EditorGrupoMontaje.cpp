// The form of the editor of a group.
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QRegularExpressionValidator>

#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/aspecto/Tema.h"
#include "core/ventanas/marco/Alcance.h"
#include "devices/Modelos.h"
#include "groups/ventanas/HojasDe.h"
#include "groups/ventanas/TextosGruposVentanas.h"

namespace tarvo::groups {

using namespace Qt::StringLiterals;
using namespace ventanas;

namespace {

constexpr int kColumnasPaleta = 4, kColumnasSitios = 5, kAnchoModelo = 64, kAltoSitios = 122;
constexpr int kLetrasSeccion = 14, kTarifas = 8, kCanales = 4, kUltimoAddr = 15;

}  // namespace

void EditorGrupo::montar() {
  auto f = formulario(cajas_ ? kTxCajasNuevas : kTxGrupoNuevoTitulo);
  cuerpo()->layout()->setSpacing(escalar(kPaso));
  auto* barra = f.ancho(new QToolBar, u"barra"_s);
  auto* barraMaquina = f.ancho(new QToolBar, u"barraMaquina"_s);
  auto medio = f.columnas({0, 1, 0});
  montarPaleta(medio[0]);
  montarSitios(medio[1]);
  montarCajones(medio[2]);
  auto abajo = f.columnas({5, 5, 6});
  montarIdentidad(abajo[0]);
  montarAcceso(abajo[1]);
  montarEstado(abajo[2]);
  qobject_cast<QBoxLayout*>(cuerpo()->layout())->setStretch(2, 1);  // the places
  montarOrdenes(*barra);
  montarOrdenesMaquina(*barraMaquina);
  acabar({1010, 640}, {.acepto = u"Guardar"_s,
                       .cancelo = u"Abandonar"_s,
                       .textoAcepto = ventanas::kTxGuardar,
                       .textoCancelo = kTxAbandonar});
}

void EditorGrupo::montarOrdenes(QToolBar& delGrupo) {
  ordenes_ = new Ordenes(*this, &delGrupo);
  const auto conTipo = [this] { return r.grupo.tipo().has_value(); };
  ordenes_->anadir({u"guardar"_s,
                    ventanas::kTxGuardar,
                    u"guardar"_s,
                    Qt::CTRL | Qt::Key_S,
                    [this] { confirmar(); },
                    {},
                    0,
                    false});
  deshacer_ = new Deshacer(*this);
  delGrupo.addAction(deshacer_->accion());
  deshacer_->accionRehacer();  // by its key alone: the bar is full
  ordenes_->separar();
  ordenes_->anadir(
      {u"MnOps"_s, kTxOperadoresDelGrupo, u"operador"_s, {}, [this] { operadores(); }, conTipo});
  ordenes_->anadir({u"MnIva"_s,
                    kTxIvaDelGrupo,
                    u"sumar"_s,
                    {},
                    [this] { hojaDeGrupo<PuertaEdIvaDept>(kTxIvaDelGrupo); },
                    conTipo});
  ordenes_->anadir({u"MnAvan"_s,
                    kTxAvanzadas,
                    u"ajustes"_s,
                    {},
                    [this] { hojaDeGrupo<PuertaAvanGpo>(kTxAvanzadas); },
                    conTipo});
  // Its button is beside the access.
  ordenes_->anadir(
      {u"Probar"_s, kTxProbar, u"conectado"_s, Qt::Key_F9, [this] { probar(); }, {}, 0, false});
  ordenes_->separar();
  auto* menu = new QMenu(this);
  montarMenuEnvio(*menu);
  auto* envio = ordenes_->anadir(
      {u"MnEnvio"_s, kTxEnvioAlSalir, u"enviar"_s, Qt::CTRL | Qt::Key_E, [this, menu, &delGrupo] {
         desplegar(*menu, bajo(delGrupo, *findChild<QAction*>(u"MnEnvio"_s)));
       }});
  envio->setMenu(menu);
  qobject_cast<QToolButton*>(delGrupo.widgetForAction(envio))
      ->setPopupMode(QToolButton::InstantPopup);
}

// Of the machine in the current place: in its bar, its menu and, where it has a key, on the places.
void EditorGrupo::montarOrdenesMaquina(QToolBar& deMaquina) {
  ordenesMaquina_ = new Ordenes(*this, &deMaquina);
  const auto hay = [this] { return actual() != nullptr; };
  const auto balanza = [this] { return actual() && !r.grupo.SonCes(); };
  const auto orden = [this](Orden o, bool enBarra = true) {
    o.enBarra = enBarra;
    QAction* a = ordenesMaquina_->anadir(std::move(o));
    a->setShortcutContext(Qt::WidgetShortcut);
    sitios_->addAction(a);
    return a;
  };
  orden({u"insertar"_s, kTxPonerMaquina, u"anadir"_s, Qt::Key_Insert, [this] { insertar(); }});
  // Those of every clipboard have their keys, the menu and the boxes beside the places.
  orden({u"copiar"_s, ventanas::kTxCopiar, u"copiar"_s, Qt::CTRL | Qt::Key_C, [this] { copiar(); },
         hay},
        false);
  orden(
      {u"cortar"_s, kTxCortarMaquina, u"quitar"_s, Qt::CTRL | Qt::Key_X, [this] { cortar(); }, hay},
      false);
  orden({u"pegar"_s, kTxPegarMaquina, u"portapapeles"_s, Qt::CTRL | Qt::Key_V,
         [this] { pegar(sitio()); }},
        false);
  orden({u"borrar"_s, kTxBorrarMaquina, u"borrar"_s, Qt::Key_Delete, [this] { borrar(sitio()); },
         hay},
        false);
  ordenesMaquina_->separar();
  if (!cajas_) orden({u"MnTec"_s, kTxTeclado, u"columnas"_s, {}, [this] { teclado(); }, hay});
  orden({u"MnPub"_s,
         kTxMensaje,
         u"informacion"_s,
         {},
         [this] { hojaDeMaquina<PuertaEdiPubli>(kTxMensaje, &copiarMensaje, {Cambio::Opciones}); },
         balanza});
  orden(
      {u"MnOpc"_s,
       kTxOpciones,
       u"ajustes"_s,
       {},
       [this] { hojaDeMaquina<PuertaEdiOpsBza>(kTxOpciones, &copiarOpciones, {Cambio::Opciones}); },
       balanza});
  if (cajas_) return;
  orden({u"MnCas"_s,
         kTxCasetes,
         u"etiqueta"_s,
         {},
         [this] {
           hojaDeMaquina<PuertaEdiCass>(kTxCasetes, &copiarCasetes,
                                        {Cambio::Opciones, Cambio::Etiquetas});
         },
         balanza});
  orden({u"MnRzs"_s, kTxCabecera, u"imprimir"_s, {}, [this] { cabecera(); }, hay});
}

void EditorGrupo::montarPaleta(Formulario f) {
  const int columnas = cajas_ ? 1 : kColumnasPaleta;
  ico_ = f.ancho(new ListaDibujos(cuerpo(), nombre(), Arrastre::Modelo, columnas), u"ico"_s,
                 kTxModelos, 1);
  ico_->setFixedWidth(escalar(cajas_ ? 2 * kAnchoModelo : columnas * kAnchoModelo));
  ico_->setToolTip(t(kTxPaletaTip));
  const auto anadir = [this](const QString& dibujo, const QString& texto, int modelo) {
    auto* item = new QListWidgetItem(icono(dibujo), texto, ico_);
    item->setData(Qt::UserRole, modelo);
  };
  if (cajas_) anadir(u"caja"_s, t(kTxCaja), devices::kSinModelo);
  for (int m = devices::kRowan; !cajas_ && m <= devices::kBirch; ++m)
    anadir(u"maquina%1"_s.arg(m), devices::NombreModelo(m), m);
  ico_->setCurrentRow(0);
  connect(ico_, &QListWidget::itemActivated, this, [this](const QListWidgetItem* item) {
    if (const auto libre = sitioParaOtra()) ponerModelo(*libre, item->data(Qt::UserRole).toInt());
  });
}

void EditorGrupo::montarSitios(Formulario f) {
  auto* rotulo = new QLabel(t(kTxSitios), cuerpo());
  enlace_ = new DibujoEnlace(cuerpo());
  f.enLinea({rotulo, enlace_});
  sitios_ = f.ancho(new ListaDibujos(cuerpo(), nombre(), Arrastre::Sitio, kColumnasSitios),
                    cajas_ ? u"cja"_s : u"bza"_s, 0, 1);
  rotulo->setBuddy(sitios_);
  sitios_->setMinimumHeight(escalar(kAltoSitios));
  sitios_->setContextMenuPolicy(Qt::CustomContextMenu);
  sitios_->setToolTip(t(kTxSitiosTip));
  for (int n = 0; n < kSitios; ++n) new QListWidgetItem(sitios_);
  // After the drag has ended: a question may follow, and the mouse is needed to answer it.
  connect(sitios_, &ListaDibujos::soltado, this, &EditorGrupo::soltar, Qt::QueuedConnection);
  connect(sitios_, &ListaDibujos::empujado, this, &EditorGrupo::empujar);
  connect(sitios_, &QWidget::customContextMenuRequested, this,
          [this](const QPoint& p) { menuDeMaquina(sitios_->viewport()->mapToGlobal(p)); });
  connect(sitios_, &QListWidget::itemActivated, this, [this] {
    actual() ? menuDeMaquina(sitios_->viewport()->mapToGlobal(
                   sitios_->visualItemRect(sitios_->currentItem()).center()))
             : insertar();
  });
  connect(sitios_, &QListWidget::currentRowChanged, this, [this] {
    mostrarDireccion();
    permitir();
  });
  faltaSitios_ = f.nota(u"faltaSitios"_s);
  ponerLetra(*faltaSitios_, Letra::Secundaria);
  faltaSitios_->hide();
}

void EditorGrupo::montarCajones(Formulario f) {
  clipbrd_ = f.ancho(new Caja(cuerpo(), nombre(), Arrastre{Arrastre::Portapapeles}), u"clipbrd"_s);
  clipbrd_->setIcon(icono(u"portapapeles"_s));
  clipbrd_->setText(t(kTxPortapapeles));
  clipbrd_->setToolTip(t(kTxPortapapelesTip));
  connect(clipbrd_, &Caja::soltado, this, [this](const Arrastre& que) {
    if (que.de != Arrastre::Sitio) return;
    sitios_->setCurrentRow(que.cual);
    copiar();
  });
  connect(clipbrd_, &QToolButton::clicked, this, [this] { pegar(sitio()); });
  basura_ = f.ancho(new Caja(cuerpo(), nombre()), u"basura"_s);
  basura_->setIcon(icono(u"papelera"_s));
  basura_->setText(t(kTxPapelera));
  basura_->setToolTip(t(kTxPapeleraTip));
  connect(basura_, &Caja::soltado, this, [this](const Arrastre& que) {
    if (que.de == Arrastre::Sitio) borrar(que.cual);
  });
  connect(basura_, &QToolButton::clicked, this, [this] { borrar(sitio()); });
  f.muelle();
}

void EditorGrupo::montarIdentidad(Formulario f) {
  auto g = f.grupo(ventanas::kTxGrupo, u"frmPLUs"_s);
  // 0 can be read, and is the engine's to refuse.
  auto modo =
      codigo(r.codigo, 4, 0, kUltimoCodigo).con(t(ventanas::kTxNumeroDe).arg(1).arg(kUltimoCodigo));
  modo.limites = t(ventanas::kTxDeA).arg(1).arg(kUltimoCodigo);
  modo.faltaDebajo = true;
  cod_ = &g.fila(ventanas::kTxCodigoConLetra, u"txCodigo"_s, std::move(modo));
  nom_ = &g.fila(ventanas::kTxNombreConLetra, u"txNombre"_s, texto(r.nombre, kLargoDeNombre));
  auto* lista = new QComboBox(cuerpo());
  llenar(*lista, contexto().nombres.secciones(), 3);
  lista->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  lista->setMinimumContentsLength(kLetrasSeccion);
  g.fila(ventanas::kTxSeccionConLetra, lista, u"LstSec"_s);
  seccion_ = &enlazarCampo(*lista, r.grupo.seccion);
  Opciones tarifas;
  for (int n = 0; n < kTarifas; ++n) tarifas.push_back({n, QString::number(n + 1)});
  Campo& tarifa = g.fila(kTxTarifa, u"txTfa"_s, r.grupo.tarifa, tarifas);
  connect(&tarifa, &Campo::cambiado, this, [this] { r.marcas.poner(Cambio::Tarifa); });
  for (const auto& [campo, de] : {std::pair{cod_, Grupos::FaltaDe::Codigo},
                                  {nom_, Grupos::FaltaDe::Nombre},
                                  {seccion_, Grupos::FaltaDe::Seccion}})
    vigilar(*campo, de);
  vigilar(tarifa);
  g.muelle();
}

void EditorGrupo::montarAcceso(Formulario f) {
  auto g = f.grupo(kTxComunicacion, u"cajaAcceso"_s);
  acceso_ = new QComboBox(cuerpo());
  Opciones accesos;
  for (int n = 0; n < 5; ++n) accesos.push_back({n, t(kTxAccesos + n).remove(u'&')});
  llenar(*acceso_, accesos);
  g.fila(kTxAccesoConLetra, acceso_, u"lstAcceso"_s);
  vigilar(enlazarCampo(
      *acceso_, [this] { return qint64{tarvo::numeroDe(r.grupo.Acceso, 0)}; },
      [this](qint64 n) { r.grupo.Acceso = deNumero<TipoAcceso>(n); }));
  telf_ = &g.fila(kTxTelefono, u"txTelf"_s, texto(r.grupo.Telefono));
  vigilar(*telf_, Grupos::FaltaDe::Telefono);
  Opciones canales, velocidades{{0, t(kTxVelocidadDelCanal)}};
  for (int n = 1; n <= kCanales; ++n) canales.push_back({n, QString::number(n)});
  vigilar(g.fila(kTxCanal, u"lstCOM"_s, r.grupo.Canal, canales));
  for (const int n : {300, 600, 1200, 2400, 4800, 9600, 19200})
    velocidades.push_back({n, QString::number(n)});
  vigilar(g.fila(kTxVelocidad, u"lstBaud"_s, r.grupo.Baudios, velocidades));
  com_ = cuerpo()->findChild<QComboBox*>(u"lstCOM"_s);
  baudios_ = cuerpo()->findChild<QComboBox*>(u"lstBaud"_s);
  montarBus(g);
  if (cajas_) {
    dir_ = &g.fila(kTxDireccionDeCaja, u"txDir"_s,
                   {.ver =
                        [this] {
                          const auto* m = actual();
                          const auto d = m ? maquinaDe(*m).Direccion : std::nullopt;
                          return d ? QString::number(*d) : QString();
                        },
                    .poner = [this](const QString& s) { return ponerDireccion(s); },
                    .limites = t(ventanas::kTxDeA).arg(0).arg(kUltimaDireccion),
                    .letras = 2,
                    .faltaDebajo = true});
    vigilar(*dir_, Grupos::FaltaDe::Direccion);
  }
  auto* boton = g.boton(kTxProbar, u"BotonProbar"_s, [this] { probar(); });
  boton->setToolTip(u"F9"_s);
  g.enLinea({boton, nullptr});
  g.muelle();
}

// The number of the group on an RS-485 bus.
void EditorGrupo::montarBus(Formulario& g) {
  rs485_ = new QCheckBox(t(kTxRs485), cuerpo());
  rs485_->setObjectName(u"MnRs485"_s);
  auto* linea = new QLineEdit(cuerpo());
  linea->setObjectName(u"txAddr"_s);
  rotuloAddr_ = new QLabel(t(kTxRs485), cuerpo());
  rotuloAddr_->setBuddy(linea);
  g.enLinea({rs485_, rotuloAddr_, linea, nullptr});
  connect(rs485_, &QCheckBox::clicked, this, [this](bool si) {
    quitarLoDicho();
    rs485_->setFocus();
    r.grupo.NumGpo = si ? std::max(1, r.grupo.NumGpo) : 0;
    addr_->mostrar();
    anotar(t(kTxRs485));
    pintarAcceso();
  });
  // A key that would make it exceed its limit is dropped, and that is told.
  auto modo = numero(r.grupo.NumGpo, 0, kUltimoAddr).vacioComo(u"0"_s);
  modo.ver = [this] { return r.grupo.NumGpo > 0 ? QString::number(r.grupo.NumGpo) : QString(); };
  addr_ = &enlazarCampo(*linea, std::move(modo), kTxRs485);
  linea->setValidator(
      new QRegularExpressionValidator(QRegularExpression(u"1[0-5]|[0-9]"_s), linea));
  // The whole sentence, where the kit would only say that a key was dropped.
  connect(
      linea, &QLineEdit::inputRejected, this,
      [this] { decirPista(t(kTxSoloHasta).arg(kUltimoAddr)); }, Qt::QueuedConnection);
  vigilar(*addr_);
  connect(addr_, &Campo::dejado, this, [this] { pintarAcceso(); }, Qt::QueuedConnection);
}

void EditorGrupo::montarEstado(Formulario f) {
  auto g = f.grupo(kTxLoQueTienen, u"cajaEstado"_s);
  cajaEstado_ = g.ancho(new QWidget(cuerpo()), u"estados"_s);
  estado_ = new QGridLayout(cajaEstado_);
  estado_->setContentsMargins(0, 0, 0, 0);
  estado_->setColumnStretch(1, 1);
  notaEstado_ = g.nota(u"notaEstado"_s);
  ponerLetra(*notaEstado_, Letra::Secundaria);
  g.muelle();
}

void EditorGrupo::vigilar(Campo& campo, std::optional<Grupos::FaltaDe> de) {
  vigilados_.emplace_back(&campo, de);
  connect(&campo, &Campo::cambiado, this, [this, &campo] { haCambiado(campo); });
  connect(&campo, &Campo::dejado, this, [this, &campo] { anotar(campo.nombre()); });
}

}  // namespace tarvo::groups
