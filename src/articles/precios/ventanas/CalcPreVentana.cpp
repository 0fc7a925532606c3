// The figures. Moving and saving are in CalcPreRecorrido.cpp.
#include "articles/precios/ventanas/CalcPreVentana.h"

#include <algorithm>
#include <cmath>

#include "articles/precios/AjustesPrecios.h"
#include "articles/precios/Limites.h"
#include "articles/precios/ventanas/Comun.h"
#include "articles/precios/ventanas/TextosPreciosVentanas.h"
#include "core/dinero/Dinero.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/edicion/Campo.h"
#include "core/ventanas/edicion/Tecleado.h"
#include "core/ventanas/marco/Recuerdos.h"
#include "core/ventanas/marco/Tira.h"

namespace tarvo::precios {

using namespace Qt::StringLiterals;

namespace {

// Key of the exact locked margin; the settings store whole percentages.
const QString kMargenFijo = u"margenFijo"_s;
constexpr int kMargenMayor = 32'767;
constexpr int kCifrasRedondeo = 6;
constexpr double kMenosDeUnaCifra = 0.006;  // tolerance for rounded display

}  // namespace

CalcPreVentana::CalcPreVentana(ventanas::Contexto& contexto, const QString& nombre,
                               articles::Catalogo& catalogo)
    : Ventana(contexto, nombre), catalogo_(catalogo), lista_(contexto) {
  ui_.setupUi(cuerpo());
  enlazar();
  montar();
}

void CalcPreVentana::montar() {
  ui_.grdpre->preparar(contexto());
  ui_.grdpre->ponerMarcada(true);
  alinear();
  unirCaja(*ui_.costeN, [this] { calc_.ponerCoste(importe(*ui_.costeN)); });
  unirCaja(*ui_.pciva, [this] { calc_.ponerIva(numeroDe(ui_.pciva->text())); });
  unirCaja(*ui_.pcMarg, [this] { calc_.ponerPcMargen(numeroDe(ui_.pcMarg->text()).value_or(0)); });
  unirCaja(*ui_.Margen, [this] { calc_.ponerMargen(importe(*ui_.Margen)); });
  unirCaja(*ui_.VentaN, [this] { calc_.ponerVenta(importe(*ui_.VentaN)); });
  unirCaja(*ui_.Calcu, [this] { calc_.ponerCalculado(importe(*ui_.Calcu)); });
  unirCaja(*ui_.redon, [this] {
    calc_.ponerRedondeo(enteroDe(ui_.redon->text(), kCifrasRedondeo).value_or(0));
    ajustado_ = true;
  });
  estrechar(*ui_.redon, kCifrasRedondeo);
  connect(ui_.opIvaIn, &QRadioButton::toggled, this, [this](bool incluido) {
    calc_.ponerModo(incluido ? ModoIva::Incluido : ModoIva::Detallado);
    ajustado_ = true;
    pintarModo();
    pintar();
  });
  connect(ui_.togg, &QPushButton::clicked, this, &CalcPreVentana::bloquear);
  connect(ui_.grdpre, &MatrizPrecios::entrada, this, &CalcPreVentana::entrarEn);
  decirLoDe(*ui_.grdpre, *this);
  ui_.grdpre->alEscribir([this](Celda celda, qint64 nuevo) -> Resultado<> {
    precio(celda) = nuevo;
    tocar();
    if (celda == ui_.grdpre->actual()) entrarEn(celda);
    return {};
  });
  connect(ui_.Arriba, &QPushButton::clicked, this, [this] { mover(-1); });
  connect(ui_.Abajo, &QPushButton::clicked, this, [this] { mover(1); });
  connect(ui_.Salvar, &QPushButton::clicked, this, &CalcPreVentana::salvar);
  connect(ui_.Salir, &QPushButton::clicked, this, &CalcPreVentana::descargar);
}

// Aligns the labels of all frames in one column; those of read-only figures have no mnemonic.
void CalcPreVentana::alinear() {
  const std::pair<QLabel*, QLineEdit*> fijos[] = {
      {ui_.rotuloIvaS, ui_.IvaS}, {ui_.rotuloCosteB, ui_.CosteB}, {ui_.rotuloIvaR, ui_.IvaR}};
  for (const auto& [rotulo, caja] : fijos) {
    rotulo->setText(rotulo->text().remove(u'&'));
    caja->setAccessibleName(rotulo->text());
  }
  const auto rotulos = ui_.marcos->findChildren<QLabel*>(QRegularExpression(u"^rotulo"_s));
  int ancho = 0;
  for (const QLabel* r : rotulos) ancho = std::max(ancho, r->sizeHint().width());
  for (QLabel* r : rotulos) r->setMinimumWidth(ancho);
  estrechar(*ui_.pciva, 6);
  // Aligned with the rows of prices, which begin below their headings.
  const int hueco = ventanas::escalar(ventanas::kPaso);
  for (QFormLayout* campos : ui_.marcos->findChildren<QFormLayout*>())
    campos->setVerticalSpacing(hueco);
  ui_.lado->setSpacing(hueco);
  const auto* titulo = ui_.grdpre->findChild<QLabel*>();
  ui_.lado->setContentsMargins(0, titulo ? titulo->sizeHint().height() + hueco : 0, 0, 0);
}

// What is typed for a system article is calculated, and stored nowhere.
void CalcPreVentana::tocar() {
  tocado_ = true;
  if (articulo_.clave.deSistema()) decirDuda(t(kTxCalculoDeSistema).arg(articulo_.nombre));
}

// Only a typed value counts: leaving the field doesn't replace an exact value by its rounded
// display.
void CalcPreVentana::unirCaja(QLineEdit& caja, const Hacer& hacer) {
  cajas_[&caja] = hacer;
  connect(&caja, &QLineEdit::editingFinished, this, [this, &caja, hacer] { tomar(caja, hacer); });
}

bool CalcPreVentana::tomar(QLineEdit& caja, const Hacer& hacer) {
  if (!caja.isModified()) return true;
  const QString dicho = caja.text().trimmed();
  if (const auto mal = malTexto(caja, dicho)) return retener(caja, *mal);
  ventanas::marcarFalta(caja, false);
  hacer();
  tocar();
  pintar();
  const auto escrito = numero(caja, dicho), queda = numero(caja, caja.text());
  const bool igual =
      dicho.isEmpty() || (escrito && queda && std::abs(*escrito - *queda) < kMenosDeUnaCifra);
  const QString hay = caja.text().isEmpty() ? t(ventanas::kTxNada) : caja.text();
  if (!igual) decirDuda(contexto().textos(kTxQuedaOtro, {dicho, hay}));
  return igual;
}

// Why the text is no value of the box. An empty one is none, or 0, where it isn't what is stored.
std::optional<QString> CalcPreVentana::malTexto(const QLineEdit& caja, const QString& texto) const {
  const Ajustes& a = contexto().ajustes;
  const bool seGuarda = &caja == ui_.costeN || &caja == ui_.VentaN || &caja == ui_.Calcu;
  if (texto.isEmpty() && seGuarda)
    return errorDe(FaltaPrecio::Vacio, texto, a, contexto().textos).texto;
  if (texto.isEmpty()) return std::nullopt;
  if (&caja == ui_.redon && !enteroDe(texto, kCifrasRedondeo))
    return contexto().textos(kTxSoloCifras, {texto, kCifrasRedondeo});
  if (!numero(caja, texto)) return t(kTxNoEsNumero).arg(texto);
  const auto claro = esTanto(caja) ? ventanas::tantoClaro(contexto(), texto)
                                   : ventanas::importeClaro(contexto(), texto, a.MonedaNativa);
  return claro ? std::nullopt : std::optional(claro.error().texto);
}

// The box keeps what was typed and the focus, until it is mended or given up with Escape.
bool CalcPreVentana::retener(QLineEdit& caja, const QString& motivo) {
  ventanas::marcarFalta(caja, true);
  decirFallo(motivo);
  QMetaObject::invokeMethod(
      this,
      [this, &caja] {
        if (isActiveWindow() && caja.isModified()) caja.setFocus();
      },
      Qt::QueuedConnection);
  return false;
}

// The box being written, back to the figure that counts. False when nothing is typed in it.
bool CalcPreVentana::renunciar() {
  auto* caja = qobject_cast<QLineEdit*>(focusWidget());
  if (!cajas_.contains(caja) || !caja->isModified()) return false;
  ventanas::marcarFalta(*caja, false);
  pintar();
  caja->selectAll();
  if (tira().estado() == ventanas::Estado::Mal) tira().quitar();
  return true;
}

bool CalcPreVentana::esTanto(const QLineEdit& caja) const {
  return &caja == ui_.pciva || &caja == ui_.pcMarg || &caja == ui_.redon;
}

// Parses a text as the field does: an amount in whole units, or a plain number.
std::optional<double> CalcPreVentana::numero(const QLineEdit& caja, const QString& texto) const {
  if (esTanto(caja)) return numeroDe(texto);
  const auto n = LeerImporte(contexto().ajustes, texto, contexto().ajustes.MonedaNativa);
  return n ? std::optional(static_cast<double>(*n)) : std::nullopt;
}

bool CalcPreVentana::terminar() {
  return terminarCajas() && ui_.grdpre->terminar();
}

bool CalcPreVentana::terminarCajas() {
  return std::ranges::all_of(cajas_, [this](const auto& c) { return tomar(*c.first, c.second); });
}

void CalcPreVentana::ponerAjustes() {
  const auto& a = contexto().ajustes.de<AjustesPrecios>().calculoPrecios;
  calc_ = CalcPre(a.a ? ModoIva::Incluido : ModoIva::Detallado, a.b);
  if (a.conSegundo && a.c) {
    const auto exacto = numeroDe(contexto().recuerdos.leer(nombre(), kMargenFijo));
    calc_.bloquear(exacto && std::lround(*exacto) == a.d ? *exacto : a.d);
  }
  const QSignalBlocker callado(ui_.opIvaIn);
  (a.a ? ui_.opIvaIn : ui_.opIvaDe)->setChecked(true);
  ui_.redon->setText(QString::number(calc_.redondeo()));
  ui_.togg->setChecked(calc_.bloqueado().has_value());
  pintarModo();
}

void CalcPreVentana::guardarAjustes() {
  auto& a = contexto().ajustes.de<AjustesPrecios>().calculoPrecios;
  a.a = calc_.modo() == ModoIva::Incluido;
  a.b = static_cast<int>(calc_.redondeo());
  a.conSegundo = a.c = calc_.bloqueado().has_value();
  a.d = 0;
  if (calc_.bloqueado()) {
    const double margen = *calc_.bloqueado();
    a.d = static_cast<int>(std::clamp<long>(std::lround(margen), -kMargenMayor, kMargenMayor));
    contexto().recuerdos.poner(nombre(), kMargenFijo, QString::number(margen, 'f', 2));
  }
  if (ajustado_) confirmarCalculo(contexto().ajustes);
  haIdoBien(contexto().ajustes.GuardarConfig());
}

qint64& CalcPreVentana::precio(Celda c) {
  return precios_[static_cast<std::size_t>(c.nivel)][static_cast<std::size_t>(c.tarifa)];
}

void CalcPreVentana::entrarEn(Celda celda) {
  calc_.entrar(calc_.cifras().costeN, precio(celda));
  pintar();
}

qint64 CalcPreVentana::importe(const QLineEdit& caja) const {
  return AImporte(contexto().ajustes, caja.text(), contexto().ajustes.MonedaNativa);
}

void CalcPreVentana::pintar() {
  const CalcPre::Cifras& c = calc_.cifras();
  const std::pair<QLineEdit*, qint64> importes[] = {
      {ui_.costeN, c.costeN}, {ui_.IvaS, c.IvaS}, {ui_.CosteB, c.CosteB}, {ui_.Margen, c.Margen},
      {ui_.VentaN, c.VentaN}, {ui_.IvaR, c.IvaR}, {ui_.Calcu, c.Calcu}};
  for (const auto& [caja, cuanto] : importes) caja->setText(precioEnTexto(contexto(), cuanto));
  ui_.pciva->setText(calc_.pciva() ? conDosDecimales(*calc_.pciva()) : QString());
  ui_.pcMarg->setText(conDosDecimales(c.pcMarg));
  ui_.redon->setText(QString::number(calc_.redondeo()));
  ui_.avisoRedondeo->setText(calc_.redondeo() > 0 ? t(kTxRedondeoActivo).arg(calc_.redondeo())
                                                  : QString());
  ui_.PVP->setText(precioEnTexto(contexto(), c.PVP));
  if (articulo_.clave.deSistema()) return;
  const Celda celda = ui_.grdpre->actual();
  if (precio(celda) == c.PVP) return;
  precio(celda) = c.PVP;
  ui_.grdpre->poner(celda, c.PVP);
}

void CalcPreVentana::pintarModo() {
  const bool detallado = calc_.modo() == ModoIva::Detallado;
  for (QWidget* w : {static_cast<QWidget*>(ui_.marcoIvaS), static_cast<QWidget*>(ui_.marcoIvaR),
                     static_cast<QWidget*>(ui_.pciva), static_cast<QWidget*>(ui_.rotuloIva)})
    w->setVisible(detallado);
  const bool fijo = calc_.bloqueado().has_value();
  ui_.marcoMargen->setEnabled(!fijo);
  ui_.grdpre->setEnabled(!fijo);
  marcarFijo(*ui_.pcMarg, fijo);
}

void CalcPreVentana::bloquear(bool si) {
  if (si)
    calc_.bloquear(calc_.cifras().pcMarg);
  else
    calc_.desbloquear();
  tocado_ = tocado_ || si;
  ajustado_ = true;
  pintarModo();
  pintar();
}

}  // namespace tarvo::precios
