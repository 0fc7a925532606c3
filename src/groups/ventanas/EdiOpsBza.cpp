#include "groups/ventanas/EdiOpsBza.h"

#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QRegularExpressionValidator>

#include "core/ventanas/aspecto/Medidas.h"

namespace tarvo::groups {

using namespace Qt::StringLiterals;
using namespace ventanas;

namespace {

constexpr int kSinBarras = 0, kEan8 = 1, kEan13 = 2;
constexpr int kCifrasTodas = 7;
constexpr qint64 kPrefijoMayor = 9'999'999, kFijaMayor = 99'999;
const QString kFormatoDeEjemplo = u"CCCCCIIIKKKKK"_s;

int largoDe(int modo) {
  return modo == kEan8 ? kLargoEan8 : kLargoEan13;
}

}  // namespace

EdiOpsBza::EdiOpsBza(Contexto& contexto, const QString& nombre) : HojaDeMaquina(contexto, nombre) {
  auto f = formulario(kTxTituloOpsBza);
  auto columnas = f.columnas(2);
  auto permisos = columnas[0].grupo(kTxPermisos, u"cajaPermisos"_s);
  struct Permiso {
    int texto;
    QString nombre;
    bool& donde;
  };
  for (const Permiso& p : {Permiso{kTxPrecioLibre, u"F_PrLib"_s, r.FG_PrLib},
                           {kTxPrecioEspecial, u"F_PrEsp"_s, r.FG_PrEsp},
                           {kTxDevoluciones, u"F_Devo"_s, r.FG_Devol},
                           {kTxAbonos, u"F_reso"_s, r.FG_Abono},
                           {kTxDescuentoSubtotal, u"F_DcSbt"_s, r.FG_DcSbt},
                           {kTxDepartamentos, u"F_HabilDep"_s, r.FG_HabDp}})
    permisos.casilla(p.texto, p.nombre, p.donde);
  permisos.muelle();
  montarBarras(columnas[1].grupo(kTxBarrasTicket, u"cajaBarras"_s));
  montarCodigo(columnas[1].grupo(kTxCodigoTecleado, u"cajaCodigo"_s));
  f.muelle();
  acabarHoja(f, {620, 400});
}

void EdiOpsBza::montarBarras(Formulario f) {
  auto* caja = f.ancho(new QWidget(cuerpo()), u"tiposBarras"_s);
  auto* linea = new QHBoxLayout(caja);
  linea->setContentsMargins(0, 0, 0, 0);
  std::vector<std::pair<QRadioButton*, int>> radios;
  for (const auto& [suyo, modo] :
       {std::pair{u"OpDisaBC"_s, kSinBarras}, {u"e08"_s, kEan8}, {u"e13"_s, kEan13}}) {
    auto* boton = new QRadioButton(t(kTxTiposBarras + modo), caja);
    boton->setObjectName(suyo);
    linea->addWidget(boton);
    radios.emplace_back(boton, modo);
  }
  Campo& tipo = anadir(&enlazarRadios(
      *caja, radios, [this] { return modoBarras(); }, [this](int n) { ponerBarras(n); }));
  connect(&tipo, &Campo::cambiado, this, &EdiOpsBza::ver);
  filasBarras_ = f.ancho(new QWidget(cuerpo()), u"filasBarras"_s);
  Formulario filas(*this, *new QVBoxLayout(filasBarras_));
  filasBarras_->layout()->setContentsMargins(0, 0, 0, 0);
  filas.fila(kTxParteFija, u"pfija"_s, numero(r.CB_pFija, 0, kPrefijoMayor));
  auto modo = texto(r.CB_Fmato);
  modo.letras = kLargoEan13;
  formato_ = &filas.fila(kTxFormatoCodigo, u"fmato"_s, std::move(modo));
  fmato_ = cuerpo()->findChild<QLineEdit*>(u"fmato"_s);
  fmato_->setPlaceholderText(kFormatoDeEjemplo);
  fmato_->setToolTip(t(kTxLetrasFormato).arg(kLetrasFormato));
  fmato_->setValidator(new QRegularExpressionValidator(
      QRegularExpression(u"[%1%2]*"_s.arg(kLetrasFormato, kLetrasFormato.toLower())), fmato_));
  connect(fmato_, &QLineEdit::textEdited, this, [this](const QString& s) {
    const int donde = fmato_->cursorPosition();
    fmato_->setText(s.toUpper());
    fmato_->setCursorPosition(donde);
  });
  // The whole sentence, where the kit would only say that a key was dropped.
  connect(
      fmato_, &QLineEdit::inputRejected, this,
      [this] { decirPista(t(kTxLetrasFormato).arg(kLetrasFormato)); }, Qt::QueuedConnection);
}

void EdiOpsBza::montarCodigo(Formulario f) {
  digitos_ = &f.fila(kTxCifrasTecleadas, u"Digt_plu"_s, numero(r.PL_digEn, 1, kCifrasTodas));
  parteFija_ = &f.fila(kTxParteFijaCodigo, u"fjo_plu"_s, numero(fija_, 0, kFijaMayor));
  fijo_ = cuerpo()->findChild<QLineEdit*>(u"fjo_plu"_s);
  connect(digitos_, &Campo::cambiado, this, &EdiOpsBza::ver);
  connect(parteFija_, &Campo::cambiado, this, [this] {
    if (parteFija_->leer()) r.PL_pFija = fija_ > 0 ? std::optional(fija_) : std::nullopt;
  });
}

Resultado<> EdiOpsBza::entrar(const PuertaEdiOpsBza& puerta) {
  devices::Balanza copia(contexto().ajustes.idioma);
  static_cast<devices::Maquina&>(copia) = maquinaDe(puerta.maquina);
  fija_ = copia.PL_pFija.value_or(0);
  TARVO_INTENTAR(abrirHoja(puerta, kTxTituloOpsBza, std::move(copia), kTxOpciones));
  ver();
  return {};
}

void EdiOpsBza::ponerBarras(int modo) {
  r.CB_Habil = modo != kSinBarras;
  r.CB_tpEAN = std::max(modo, 0);
}

// A format that is too long for the kind of code is cut.
void EdiOpsBza::ver() {
  const int modo = modoBarras();
  filasBarras_->setVisible(modo != kSinBarras);
  if (modo != kSinBarras && fmato_->text().size() > largoDe(modo)) {
    fmato_->setText(fmato_->text().left(largoDe(modo)));
    formato_->leer();
  }
  fmato_->setMaxLength(modo == kEan8 ? kLargoEan8 : kLargoEan13);
  if (!digitos_->leer()) return;
  fijo_->setEnabled(r.PL_digEn < kCifrasTodas);
  if (r.PL_digEn == kCifrasTodas) r.PL_pFija.reset();
  if (r.PL_digEn < kCifrasTodas && fija_ > 0) r.PL_pFija = fija_;
}

std::vector<Ficha::FaltaCampo> EdiOpsBza::comprobar() {
  if (r.PL_digEn < kCifrasTodas) r.PL_pFija = fija_ > 0 ? std::optional(fija_) : std::nullopt;
  if (modoBarras() != kSinBarras && r.CB_Fmato.isEmpty())
    return {{formato_, t(ventanas::kTxNoVacio)}};
  return {};
}

void EdiOpsBza::volcar(devices::Miembro& maquina) {
  copiarOpciones(devices::Miembro(r), maquina);
}

}  // namespace tarvo::groups
