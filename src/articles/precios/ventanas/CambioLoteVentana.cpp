// The selection and its preview. Applying the change is in CambioLoteAcciones.cpp.
#include "articles/precios/ventanas/CambioLoteVentana.h"

#include "articles/precios/CambioRapido.h"
#include "articles/precios/Limites.h"
#include "articles/precios/ventanas/TextosPreciosVentanas.h"
#include "core/dinero/Dinero.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/edicion/Campo.h"
#include "core/ventanas/edicion/Opciones.h"
#include "core/ventanas/edicion/Tecleado.h"
#include "core/ventanas/marco/TiraTrabajo.h"
#include "core/ventanas/parrilla/Parrilla.h"

namespace tarvo::precios {

using namespace Qt::StringLiterals;
using ventanas::Clase;
using ventanas::Estado;

namespace {

constexpr int kReposo = 150;  // ms without a change before the list is computed again
constexpr int kMirada = 30;   // ms of computing per slice
constexpr int kTodosLosDeptos = -1;
constexpr int kCifrasFormato = 2;
enum Que { kPrecios, kDepartamento, kFormato };

Estado estadoDe(const dao::Valor& v) {
  switch (static_cast<Desenlace>(v.entero())) {
    case Desenlace::Cambia:
      return Estado::Bien;
    case Desenlace::Igual:
      return Estado::Ninguno;
    default:
      return Estado::Mal;
  }
}

// Nothing for the first entry, which means all.
std::optional<int> unoDe(const QComboBox& lista) {
  return lista.currentIndex() > 0 ? std::optional(lista.currentIndex() - 1) : std::nullopt;
}

}  // namespace

CambioLoteVentana::CambioLoteVentana(ventanas::Contexto& contexto, const QString& nombre,
                                     articles::Catalogo& catalogo)
    : Ventana(contexto, nombre),
      lotes_(catalogo),
      motor_(catalogo, lotes_),
      lista_(contexto),
      luego_(contexto.reloj.temporizador([this] { previa_ ? seguirMirando() : mirar(); })) {
  ui_.setupUi(cuerpo());
  enlazar();
  montar();
}

void CambioLoteVentana::montar() {
  const Textos& textos = contexto().textos;
  ventanas::llenar(*ui_.que, ventanas::deTextos(textos, kTxQue, 3));
  ventanas::llenar(*ui_.redondeo, ventanas::deTextos(textos, kTxRedondeos, 3));
  ventanas::Opciones niveles{{0, t(kTxTodos)}}, tarifas{{0, t(kTxTodas)}};
  for (int i = 1; i <= articles::kNiveles; ++i) niveles.push_back({i, t(kTxNivel + i - 1)});
  for (int i = 1; i <= articles::kTarifas; ++i) tarifas.push_back({i, t(kTxTarifaN).arg(i)});
  ventanas::llenar(*ui_.nivel, niveles);
  ventanas::llenar(*ui_.tarifa, tarifas);
  ui_.txPaso->setText(precioEnTexto(contexto(), 1));
  for (QLineEdit* caja : {ui_.txPc, ui_.txPaso}) estrechar(*caja, 7);
  estrechar(*ui_.txFormato, kCifrasFormato);
  prepararParrilla();
  connect(ui_.dbS, &QComboBox::activated, this, [this] { haIdoBien(seccionCambiada()); });
  connect(ui_.que, &QComboBox::currentIndexChanged, this, &CambioLoteVentana::queCambiado);
  for (QComboBox* c : {ui_.dbD, ui_.redondeo, ui_.depto, ui_.nivel, ui_.tarifa})
    connect(c, &QComboBox::currentIndexChanged, this, &CambioLoteVentana::luegoMirar);
  for (QLineEdit* e : {ui_.txNom, ui_.txPc, ui_.txPaso, ui_.txFormato})
    connect(e, &QLineEdit::textChanged, this, &CambioLoteVentana::luegoMirar);
  connect(ui_.Aplicar, &QPushButton::clicked, this, &CambioLoteVentana::aplicar);
  connect(ui_.Terminar, &QPushButton::clicked, this, &CambioLoteVentana::terminar);
  connect(ui_.Deshacer, &QPushButton::clicked, this, &CambioLoteVentana::deshacer);
  connect(ui_.Salir, &QPushButton::clicked, this, &CambioLoteVentana::descargar);
}

void CambioLoteVentana::prepararParrilla() {
  const auto valor = [this](const dao::Valor& v) { return valorEnTexto(v); };
  const auto desenlace = [this](const dao::Valor& v) {
    return t(kTxDesenlaces + static_cast<int>(v.entero()));
  };
  ui_.Grid->preparar(
      contexto(), nombre(),
      {{.titulo = ventanas::kTxCodigo,
        .campo = u"codigo"_s,
        .clase = Clase::Codigo,
        .cifras = 7,
        .ancho = 90},
       {.titulo = ventanas::kTxNombre, .campo = u"nombre"_s, .ancho = 220},
       {.titulo = ventanas::kTxAntes,
        .campo = u"antes"_s,
        .clase = Clase::Importe,
        .ver = valor,
        .rango = 1},
       {.titulo = kTxDespuesCol, .campo = u"despues"_s, .clase = Clase::Importe, .ver = valor},
       {.titulo = kTxCambianCol,
        .campo = u"cambian"_s,
        .clase = Clase::Entero,
        .ancho = 70,
        .rango = 2},
       {.titulo = ventanas::kTxResultado,
        .campo = u"estado"_s,
        .ancho = 270,
        .ver = desenlace,
        .estado = estadoDe}});
  ui_.Grid->vivas();
  ui_.Grid->filtros()->addWidget(ui_.marcoCuales);
}

Resultado<> CambioLoteVentana::entrar(const PuertaCambioLote& puerta) {
  if (trabajo().enMarcha()) return {};
  lista_.unir(puerta.lista);
  codigos_ = puerta.codigos;
  TARVO_INTENTAR(ventanas::llenar(*ui_.dbS, contexto().nombres.secciones(), 3));
  if (puerta.seccion > 0) elegir(*ui_.dbS, puerta.seccion);
  const bool elegidos = !codigos_.empty();
  ui_.elegidos->setText(t(kTxElegidos, static_cast<int>(codigos_.size())));
  ui_.elegidos->setVisible(elegidos);
  ui_.dbS->setEnabled(!elegidos);
  for (QWidget* w : {static_cast<QWidget*>(ui_.rotuloD), static_cast<QWidget*>(ui_.dbD),
                     static_cast<QWidget*>(ui_.rotuloNom), static_cast<QWidget*>(ui_.txNom)})
    w->setVisible(!elegidos);
  if (!puerta.subida.isEmpty()) ui_.txPc->setText(puerta.subida);
  TARVO_INTENTAR(seccionCambiada());
  queCambiado();
  pintarDeshacer();
  ui_.txPc->setFocus();
  mirar();
  const auto ultimo = lotes_.ultimo(nombre());
  if (ultimo && *ultimo && !(*ultimo)->acabado)
    decirDuda(t(ventanas::kTxAMedias, static_cast<int>((*ultimo)->articulos)));
  return {};
}

Resultado<> CambioLoteVentana::seccionCambiada() {
  const int seccion = ui_.dbS->currentData().toInt();
  TARVO_INTENTAR(ventanas::llenar(*ui_.depto, contexto().nombres.departamentos(seccion), 2));
  TARVO_INTENTAR(ventanas::llenar(*ui_.dbD, contexto().nombres.departamentos(seccion), 2));
  ui_.dbD->insertItem(0, t(kTxTodos), kTodosLosDeptos);
  ui_.dbD->setCurrentIndex(0);
  luegoMirar();
  return {};
}

void CambioLoteVentana::queCambiado() {
  const int que = ui_.que->currentIndex();
  for (QWidget* w : {ui_.marcoPrecios, ui_.marcoCuales}) w->setVisible(que == kPrecios);
  ui_.marcoDepto->setVisible(que == kDepartamento);
  ui_.marcoFormato->setVisible(que == kFormato);
  luegoMirar();
}

// --- the change to be applied

SeleccionLote CambioLoteVentana::seleccion() const {
  SeleccionLote s{ui_.dbS->currentData().toInt(), codigos_, {}, ui_.txNom->text()};
  if (ui_.dbD->currentIndex() > 0) s.departamento = ui_.dbD->currentData().toInt();
  return s;
}

// Validates both figures, marks the invalid ones and returns the reason.
std::expected<OrdenLote, QString> CambioLoteVentana::ordenPrecios() {
  const auto paso = comoPrecio(ui_.txPaso->text(), contexto().ajustes);
  const int centesimas = LeerCentesimas(ui_.txPc->text()).value_or(SubePrecios::kMenor - 1);
  const auto orden = SubePrecios::de(centesimas, paso.value_or(0),
                                     static_cast<Redondeo>(ui_.redondeo->currentIndex()),
                                     unoDe(*ui_.nivel), unoDe(*ui_.tarifa));
  const bool malPc = centesimas < SubePrecios::kMenor || centesimas > SubePrecios::kMayor;
  const bool malPaso = paso.value_or(0) < 1 || *paso > kPrecioDeBalanza;
  const bool sinPc = ui_.txPc->text().trimmed().isEmpty();
  ventanas::marcarFalta(*ui_.txPc, malPc && !sinPc);
  ventanas::marcarFalta(*ui_.txPaso, malPaso);
  if (orden) return *orden;
  if (sinPc) return std::unexpected(t(kTxOrdenMala));
  const Textos& textos = contexto().textos;
  if (malPc)
    if (const auto claro = ventanas::centesimasClaras(contexto(), ui_.txPc->text()); !claro)
      return std::unexpected(claro.error().texto);
  if (malPc)
    return std::unexpected(textos(kTxSubidaMala, {conDosDecimales(SubePrecios::kMenor / 100.0),
                                                  conDosDecimales(SubePrecios::kMayor / 100.0)}));
  return std::unexpected(textos(
      kTxPasoMalo, {precioEnTexto(contexto(), 1), precioEnTexto(contexto(), kPrecioDeBalanza)}));
}

std::expected<OrdenLote, QString> CambioLoteVentana::ordenFormato() {
  const QString dicho = ui_.txFormato->text().trimmed();
  const auto formato = enteroDe(dicho, kCifrasFormato);
  ventanas::marcarFalta(*ui_.txFormato, !formato && !dicho.isEmpty());
  if (formato) return PoneFormato{*formato};
  return std::unexpected(dicho.isEmpty()
                             ? t(kTxSinFormato)
                             : contexto().textos(kTxSoloCifras, {dicho, kCifrasFormato}));
}

std::expected<OrdenLote, QString> CambioLoteVentana::orden() {
  switch (ui_.que->currentIndex()) {
    case kDepartamento:
      if (ui_.depto->currentIndex() < 0) return std::unexpected(t(kTxSinDepartamentos));
      return PoneDepartamento{ui_.depto->currentData().toInt()};
    case kFormato:
      return ordenFormato();
    default:
      return ordenPrecios();
  }
}

void CambioLoteVentana::luegoMirar() {
  ui_.Aplicar->setEnabled(false);
  previa_.reset();
  luego_->unaVez(kReposo);
}

void CambioLoteVentana::mirar() {
  luego_->parar();
  ui_.Aplicar->setEnabled(false);
  lineas_.clear();
  previa_.reset();
  const auto que = orden();
  ui_.Grid->ponerVacia(que ? t(kTxNadaQueCambiar) : que.error());
  if (!que) return pintarLineas();
  previa_ = motor_.mirar(seleccion(), *que);
  seguirMirando();
}

// A short list is computed at once, a long one in slices between the user's keystrokes.
void CambioLoteVentana::seguirMirando() {
  const qint64 hasta = contexto().reloj.monotono() + kMirada;
  for (;;) {
    const auto hayMas = previa_->paso();
    if (haIdoBien(hayMas) && *hayMas) {
      if (contexto().reloj.monotono() < hasta) continue;
      return luego_->unaVez(1);
    }
    if (hayMas) lineas_ = previa_->tomar();
    previa_.reset();
    return pintarLineas();
  }
}

QString CambioLoteVentana::valorEnTexto(const dao::Valor& valor) const {
  return ui_.que->currentIndex() == kPrecios ? precioEnTexto(contexto(), valor.entero())
                                             : QString::number(valor.entero());
}

void CambioLoteVentana::pintarLineas() {
  std::vector<ventanas::FilaViva> filas;
  filas.reserve(lineas_.size());
  int cambian = 0, malas = 0;
  for (const LineaLote& l : lineas_) {
    if (l.desenlace == Desenlace::Cambia)
      ++cambian;
    else if (l.desenlace != Desenlace::Igual)
      ++malas;
    filas.push_back(
        {l.clave.codigo,
         {l.clave.codigo, l.nombre, l.antes, l.despues, l.cambian, static_cast<int>(l.desenlace)}});
  }
  const auto total = static_cast<int>(lineas_.size());
  ui_.Grid->vivas().poner(std::move(filas));
  ui_.resumen->setText(total == 0 ? QString()
                                  : contexto().textos(kTxResumen, {cambian, total, malas}));
  ui_.Aplicar->setEnabled(cambian > 0);
}

}  // namespace tarvo::precios
