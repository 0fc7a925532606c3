#include "labels/ventanas/EdiCampo.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>

#include "labels/FuenteImpresora.h"
#include "labels/TextosEtiqueta.h"
#include "labels/ventanas/TextosLabelsVentanas.h"

namespace tarvo::labels {

using namespace Qt::StringLiterals;
using namespace ventanas;

namespace {

constexpr int kTipos = 18, kPrimerTipo = 1, kVueltas = 4, kGrados = 90;
constexpr int kXMayor = kAnchoCabezal - 1, kYMayor = kLargoEtiqueta - 1;
constexpr int kUltimoFijo = kPrimerTextoLibre - 1;
constexpr int kLonMayor = 500, kEspLinea = 50, kEspRectangulo = 9, kLineasCabecera = 6;

// Shows or hides a field with its caption and its fault.
void ver(Campo& campo, bool si) {
  QWidget& control = campo.control();
  control.setVisible(si);
  for (QLabel* l : control.parentWidget()->findChildren<QLabel*>())
    if (l->buddy() == &control || l->objectName() == u"falta"_s + control.objectName())
      l->setVisible(si);
}

}  // namespace

EdiCampo::EdiCampo(Contexto& contexto, const QString& nombre) : FichaDe(contexto, nombre) {
  auto f = formulario(kTxEdiCampo);
  Opciones tipos, fuentes, vueltas;
  for (int i = 0; i < kTipos; ++i) tipos.push_back({i + kPrimerTipo, t(kTxTipoCampo + i)});
  for (int i = 0; i < kFuentes; ++i) fuentes.push_back({i, nombreDeFuente(i)});
  for (int i = 0; i < kVueltas; ++i) vueltas.push_back({i, QString::number(i * kGrados) + u'°'});
  tipo_ = &f.fila(kTxTipoDeCampo, u"Tipo"_s, r.tipo, tipos);
  f.fila(kTxPosX, u"px"_s, numero(r.X, 0, kXMayor));
  f.fila(kTxPosY, u"py"_s, numero(r.Y, 0, kYMayor));
  fuente_ = &f.fila(kTxFormatoLetra, u"LsFnt"_s, r.fuente, fuentes);
  rotacion_ = &f.fila(kTxRotacion, u"OpRota"_s, r.rotacion, vueltas);
  Ntxt_ =
      &f.fila(kTxNumTexto, u"Ntxt"_s, numero(r.Ntxt, 1, kUltimoTexto).con(t(kTxTextoIncorrecto)));
  texto_ = f.nota(u"textoNtxt"_s);
  Altu_ = &f.fila(kTxAltura, u"Altu"_s, numero(r.Altu, 0, kYMayor));
  Lon_ = &f.fila(kTxLongitud, u"Lon"_s, numero(r.Lon, 1, kLonMayor));
  Esp_ = &f.fila(kTxEspesor, u"Esp"_s, numero(r.Esp, 1, kEspLinea));
  X2_ = &f.fila(kTxPosX2, u"px2"_s, numero(r.X2, 0, kXMayor));
  Y2_ = &f.fila(kTxPosY2, u"py2"_s, numero(r.Y2, 0, kYMayor));
  NmL_ = &f.fila(kTxNumLinea, u"txNmL"_s,
                 numero(r.NmL, 1, kLineasCabecera).con(t(kTxLineaIncorrecta)));
  f.muelle();
  acabar({460, 420});
  ponerFrase(0, false);
  connect(tipo_, &Campo::cambiado, this, [this] { tipoCambiado(); });
  connect(qobject_cast<QLineEdit*>(&Ntxt_->control()), &QLineEdit::textChanged, this,
          [this] { pintarTexto(); });
}

Resultado<> EdiCampo::entrar(const PuertaEdiCampo& puerta) {
  puerta_ = puerta;
  TARVO_INTENTAR(editar(puerta.campo));
  pintar();
  return {};
}

void EdiCampo::tipoCambiado() {
  if (r.tipo == TipoCampo::LineaTexto && (r.Ntxt < 1 || r.Ntxt > kUltimoFijo)) {
    r.Ntxt = 1;
    Ntxt_->mostrar();
  }
  pintar();
}

// Only what the type has. A field that isn't seen isn't read either.
void EdiCampo::pintar() {
  const auto es = [this](TipoCampo tipo) { return r.tipo == tipo; };
  const bool conTexto = es(TipoCampo::LineaTexto), rectangulo = es(TipoCampo::Rectangulo);
  const std::pair<Campo*, bool> suyos[] = {
      {fuente_, esTexto(r.tipo)},
      {rotacion_, !rectangulo && !es(TipoCampo::CodigoDeBarras)},
      {Ntxt_, conTexto},
      {Altu_, es(TipoCampo::CodigoDeBarras)},
      {Lon_, es(TipoCampo::LineaGrafica)},
      {Esp_, es(TipoCampo::LineaGrafica) || rectangulo},
      {X2_, rectangulo},
      {Y2_, rectangulo},
      {NmL_, es(TipoCampo::RazonSocial)}};
  for (const auto& [campo, si] : suyos) {
    ver(*campo, si);
    campo->control().setEnabled(si);
  }
  texto_->setVisible(conTexto);
  pintarTexto();
}

void EdiCampo::pintarTexto() {
  const int n = qobject_cast<QLineEdit*>(&Ntxt_->control())->text().toInt();
  texto_->setText(n >= 1 && n <= kUltimoTexto ? puerta_.textos[static_cast<size_t>(n)] : QString());
}

std::vector<EdiCampo::FaltaCampo> EdiCampo::comprobar() {
  if (!puerta_.resto.cabeOtro(r.tipo))
    return {
        {tipo_, contexto().textos(kTxNoCabenDeEsos, {t(kTxTipoCampo + static_cast<int>(r.tipo) - 1),
                                                     reservaDe(r.tipo)})}};
  if (r.tipo == TipoCampo::Rectangulo && r.Esp > kEspRectangulo)
    return {{Esp_, contexto().textos(kTxEspesorRectangulo, {kEspRectangulo})}};
  if (r.tipo == TipoCampo::LineaTexto && (r.Ntxt < 1 || r.Ntxt > kUltimoTexto))
    return {{Ntxt_, t(kTxTextoIncorrecto)}};
  if (r.tipo == TipoCampo::RazonSocial && (r.NmL < 1 || r.NmL > kLineasCabecera))
    return {{NmL_, t(kTxLineaIncorrecta)}};
  return {};
}

void EdiCampo::aplicada() {
  entregar(r);
}

}  // namespace tarvo::labels
