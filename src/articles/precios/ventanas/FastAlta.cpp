// The fields: their input and keyboard navigation. Adding an article is in FastAltaAcciones.cpp.
#include "articles/precios/ventanas/FastAlta.h"

#include <QLabel>
#include <QPushButton>

#include "articles/precios/AjustesPrecios.h"
#include "articles/precios/ventanas/TextosPreciosVentanas.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/marco/Tira.h"

namespace tarvo::precios {

using namespace Qt::StringLiterals;
using ventanas::Campo;
using ventanas::CampoVivo;
using ventanas::Formulario;

namespace {

constexpr int kCifras = 7;

}  // namespace

FastAlta::FastAlta(ventanas::Contexto& contexto, const QString& nombre,
                   articles::Catalogo& catalogo)
    : FichaDe(contexto, nombre),
      motor_(catalogo, FormaAlta::leer(contexto.ajustes.de<AjustesPrecios>())),
      politicas_(ParrillaRapida::leer(contexto.ajustes.de<AjustesPrecios>().ParrillaRapida)),
      lista_(contexto) {
  montar();
}

void FastAlta::montar() {
  auto f = formulario(kTxAltaRapida);
  auto cabeza = f.columnas({1, 0});
  auto& seccion = cabeza[0].fila(ventanas::kTxSeccionConLetra, u"dbS"_s, r.seccion, {});
  seccion_ = qobject_cast<QComboBox*>(&seccion.control());
  connect(&seccion, &Campo::cambiado, this, &FastAlta::pintarDepartamento);
  ultimo_ = new QLabel(cuerpo());
  ultimo_->setObjectName(u"lbUltimo"_s);
  ventanas::ponerLetra(*ultimo_, ventanas::Letra::Secundaria);
  cabeza[1].enLinea({ultimo_, cabeza[1].boton(ventanas::kTxConfigurar, u"Configurar"_s,
                                              [this] { configurar(); })});
  auto lados = f.columnas(2);
  montarIzquierda(lados[0]);
  montarDerecha(lados[1]);
  ponerFrase(kTxValorIncorrecto, false);
  acabar({760, 520}, {.acepto = u"Alta"_s,
                      .cancelo = u"Salir"_s,
                      .textoAcepto = kTxAlta,
                      .textoCancelo = ventanas::kTxSalirConL});
  acepto()->setDefault(false);  // Return moves from field to field
  precios_->preparar(contexto(), motor_.forma().precios(), motor_.forma().tarifas());
  connect(precios_, &MatrizPrecios::intro, this, [this] { avanzar(); });
  decirLoDe(*precios_, *this);
}

void FastAlta::montarIzquierda(Formulario f) {
  const auto poner = [this](CampoAlta cual, Campo& campo) {
    campos_[static_cast<std::size_t>(cual)] = &campo;
  };
  ventanas::Modo codigo = texto(r.codigo);
  codigo.letras = kCifras;
  poner(CampoAlta::Codigo, f.fila(ventanas::kTxCodigoConLetra, u"txCod"_s, codigo));
  poner(CampoAlta::Nombre, f.fila(ventanas::kTxNombreConLetra, u"txNom"_s, texto(r.nombre)));
  codigo_ = qobject_cast<QLineEdit*>(&campo(CampoAlta::Codigo).control());
  codigo_->setMaxLength(kCifras);
  codigo_->installEventFilter(this);
  ventanas::empujarCifras(*codigo_);
  precios_ = f.ancho(new MatrizPrecios, u"Grd"_s);
  auto* suyos = new CampoVivo(*precios_, nullptr,
                              {.estado = [this] { return precios_->vacia() ? u""_s : u"1"_s; },
                               .aControl =
                                   [this] {
                                     if (r.precios == articles::Precios{})
                                       precios_->limpiar();
                                     else
                                       precios_->poner(r.precios);
                                   },
                               .aMiembro = [this] { r.precios = precios_->precios(); }});
  poner(CampoAlta::Precios, anadir(suyos));
  f.muelle();
}

void FastAlta::montarDerecha(Formulario f) {
  const auto poner = [this](CampoAlta cual, Campo& campo) {
    campos_[static_cast<std::size_t>(cual)] = &campo;
  };
  const auto corto = [this](QString& donde, int letras) {
    ventanas::Modo modo = texto(donde);
    modo.letras = letras;
    modo.faltaDebajo = true;
    return modo;
  };
  auto* cada = new QComboBox;
  ventanas::llenar(*cada, ventanas::deTextos(contexto().textos, kTxUnidades, 3));
  f.fila(kTxUnidadFicha, cada, u"LstCada"_s);
  auto* suyo = new CampoVivo(*cada, nullptr,
                             {.estado = [cada] { return QString::number(cada->currentIndex()); },
                              .aControl = [this, cada] { cada->setCurrentIndex(r.cada); },
                              .aMiembro = [this, cada] { r.cada = cada->currentIndex(); }});
  connect(cada, &QComboBox::currentIndexChanged, suyo, &CampoVivo::haCambiado);
  poner(CampoAlta::Unidad, anadir(suyo));
  poner(CampoAlta::Departamento,
        f.fila(ventanas::kTxDepartamentoConLetra, u"txdep"_s, corto(r.departamento, 2)));
  departamento_ = new QLabel;
  f.fila(0, departamento_, u"lbDep"_s);
  ventanas::ponerLetra(*departamento_, ventanas::Letra::Secundaria);
  poner(CampoAlta::Formato, f.fila(kTxFormatoFicha, u"txetq"_s, corto(r.formato, 2)));
  poner(CampoAlta::CodBarras, f.fila(kTxBarrasFicha, u"txbar"_s, corto(r.codBarras, kCifras)));
  poner(CampoAlta::Dias1, f.fila(kTxDias1Ficha, u"txdi1"_s, corto(r.dias1, 4)));
  poner(CampoAlta::Dias2, f.fila(kTxDias2Ficha, u"txdi2"_s, corto(r.dias2, 4)));
  for (const CampoAlta cual : {CampoAlta::Dias1, CampoAlta::Dias2})  // empty, they are none
    qobject_cast<QLineEdit*>(&campo(cual).control())->setPlaceholderText(u"0"_s);
  f.muelle();
  connect(qobject_cast<QLineEdit*>(&campo(CampoAlta::Departamento).control()),
          &QLineEdit::textChanged, this, &FastAlta::pintarDepartamento);
}

Resultado<> FastAlta::entrar(const PuertaFastAlta& puerta) {
  lista_.unir(puerta.lista);
  TARVO_INTENTAR(ventanas::llenar(*seccion_, contexto().nombres.seccionesPorNombre(), 3));
  if (seccion_->count() == 0) return fallo(Fallo::NoExiste, t(kTxSinSecciones));
  tomar();
  const auto antes = static_cast<int>(ventanas::elegido(*seccion_));
  r.seccion = puerta.seccion > 0 ? puerta.seccion : antes;
  ponerValores();
  codigo_->setFocus();
  return {};
}

QString& FastAlta::donde(CampoFijo fijo) {
  switch (fijo) {
    case CampoFijo::Departamento:
      return r.departamento;
    case CampoFijo::Formato:
      return r.formato;
    case CampoFijo::CodBarras:
      return r.codBarras;
    case CampoFijo::Dias1:
      return r.dias1;
    default:
      return r.dias2;
  }
}

// Reads all fields; any text is accepted.
void FastAlta::tomar() {
  for (Campo* c : campos_) static_cast<void>(c->leer());
}

void FastAlta::ponerValores() {
  for (int i = 0; i < kCamposFijos; ++i) {
    const auto fijo = static_cast<CampoFijo>(i);
    if (fijo == CampoFijo::Unidad)
      r.cada = politicas_.valor(fijo).toInt();
    else
      donde(fijo) = politicas_.valor(fijo);
    campo(comoCampoAlta(fijo)).control().setEnabled(politicas_.politica(fijo) != Politica::Fijar);
  }
  mostrar();
  pintarDepartamento();
}

// --- keys

std::optional<CampoAlta> FastAlta::campoConFoco() const {
  const QWidget* w = focusWidget();
  for (int i = 0; w && i < kCamposAlta; ++i) {
    const QWidget& control = campo(static_cast<CampoAlta>(i)).control();
    if (&control == w || control.isAncestorOf(w)) return static_cast<CampoAlta>(i);
  }
  return std::nullopt;
}

// An untouched field is validated too.
bool FastAlta::vale(CampoAlta cual) {
  if (cual == CampoAlta::Precios) {
    r.precios = precios_->precios();
    return precios_->vale();
  }
  static_cast<void>(campo(cual).leer());  // any text is accepted: faults are reported below
  const auto falta = motor_.falta(cual, r);
  if (!haIdoBien(falta)) return false;
  campo(cual).marcar(falta->value_or(QString()));
  if (*falta)
    decirDuda(**falta);
  else if (tira().estado() == ventanas::Estado::Duda)
    tira().quitar();
  return !*falta;
}

bool FastAlta::puedeSalir() {
  const auto cual = campoConFoco();
  return !cual || vale(*cual);
}

void FastAlta::avanzar() {
  if (puedeSalir()) Ventana::focusNextPrevChild(true);
}

// Enter moves on as Tab does; neither leaves an invalid field. Moving back is allowed.
bool FastAlta::focusNextPrevChild(bool siguiente) {
  if (siguiente && !puedeSalir()) return true;
  return Ventana::focusNextPrevChild(siguiente);
}

void FastAlta::keyPressEvent(QKeyEvent* evento) {
  const bool intro = evento->key() == Qt::Key_Return || evento->key() == Qt::Key_Enter;
  if (!intro || !campoConFoco()) return Ventana::keyPressEvent(evento);
  evento->accept();
  avanzar();
}

bool FastAlta::eventFilter(QObject* objeto, QEvent* evento) {
  if (objeto == codigo_ && evento->type() == QEvent::FocusIn) codigoConFoco();
  if (objeto == codigo_ && evento->type() == QEvent::FocusOut) codigoSinFoco();
  return Ventana::eventFilter(objeto, evento);
}

// While the field has the focus it shows only the digits to be typed; after that, the whole code.
void FastAlta::codigoConFoco() {
  const QString texto = codigo_->text();
  const qsizetype prefijo = motor_.forma().prefijo().size();
  if (texto.size() > motor_.forma().cifras()) codigo_->setText(texto.mid(prefijo));
  codigo_->setMaxLength(motor_.forma().cifras());
  codigo_->selectAll();
}

void FastAlta::codigoSinFoco() {
  const auto codigo = motor_.forma().codigo(codigo_->text());
  codigo_->setMaxLength(kCifras);
  if (codigo) codigo_->setText(*codigo);
}

void FastAlta::pintarDepartamento() {
  const auto* caja = qobject_cast<QLineEdit*>(&campo(CampoAlta::Departamento).control());
  const auto nombre = contexto().nombres.departamento(
      static_cast<int>(ventanas::elegido(*seccion_)), caja->text().toInt());
  departamento_->setText(haIdoBien(nombre) ? nombre->value_or(QString()) : QString());
}

// The other fields may still hold the values of the previous article.
bool FastAlta::cambiada() const {
  const auto* nombre = qobject_cast<QLineEdit*>(&campo(CampoAlta::Nombre).control());
  return !codigo_->text().isEmpty() || !nombre->text().trimmed().isEmpty() || !precios_->vacia();
}

bool FastAlta::QueryUnload() {
  if (Ficha::QueryUnload()) return true;
  if (lista_) lista_->refrescar();
  lista_.soltar();
  return false;
}

}  // namespace tarvo::precios
