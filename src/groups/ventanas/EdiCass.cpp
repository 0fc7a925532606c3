#include "groups/ventanas/EdiCass.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QTableView>

#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/parrilla/Parrilla.h"

namespace tarvo::groups {

using namespace Qt::StringLiterals;
using namespace ventanas;

namespace {

constexpr int kPrimeraTecla = 11, kUltimaTecla = 20, kModos = 5, kUltimoOperador = 20,
              kLetrasModo = 12;

}  // namespace

EdiCass::EdiCass(Contexto& contexto, const QString& nombre, articles::Catalogo& catalogo)
    : HojaDeMaquina(contexto, nombre), grupos_(catalogo, contexto.ajustes) {
  auto f = formulario(kTxTituloCass);
  auto casetes = f.columnas(3);
  for (int n = 1; n <= 3; ++n) montarCasete(casetes[static_cast<size_t>(n - 1)], n);
  GridEtq_ = f.parrilla(kTxFormatosDeTeclas, u"GridEtq"_s, 1);
  ListaEtq_ = new QComboBox(cuerpo());
  f.fila(kTxFormatoDeTecla, ListaEtq_, u"ListaEtq"_s);
  lbJue_ = f.nota(u"lbJue"_s);
  acabarHoja(f, {640, 560});
  GridEtq_->preparar(
      contexto, nombre,
      {{.titulo = kTxTecla, .campo = u"tecla"_s, .clase = Clase::Entero, .ancho = 70},
       {.titulo = ventanas::kTxFormato,
        .campo = u"formato"_s,
        .ancho = 220,
        .editar = [this](qint64 k, const QString& s) { return poner(static_cast<int>(k), s); }},
       {.titulo = kTxJuego, .campo = u"juego"_s, .ancho = 160}});
  GridEtq_->ponerBusca(false);
  GridEtq_->ponerPie(false);
  GridEtq_->ponerUnaSola(true);
  GridEtq_->vivas();
  connect(GridEtq_, &Parrilla::actualCambiada, this, [this] { ofrecer(); });
  connect(GridEtq_, &Parrilla::fallo, this, &Ventana::decirPendiente);
  connect(GridEtq_, &Parrilla::resuelto, this, &Ventana::resuelto);
  connect(ListaEtq_, &QComboBox::activated, this, [this] {
    const int cual = static_cast<int>(elegido(*ListaEtq_));
    haIdoBien(poner(tecla(), cual > 0 ? ListaEtq_->currentText() : QString()));
  });
}

void EdiCass::montarCasete(Formulario& f, int n) {
  const auto i = static_cast<size_t>(n - 1);
  auto g = f.grupo(kTxCaseteUno + n - 1, u"casete%1"_s.arg(n));
  Campo& modo = g.fila(kTxModo, u"modo%1"_s.arg(n), modos_[i],
                       deTextos(contexto().textos, kTxModosCasete, kModos));
  auto modoOper = numero(opers_[i], 0, kUltimoOperador);
  modoOper.faltaDebajo = true;
  Campo& oper = g.fila(kTxOperador, u"oper%1"_s.arg(n), std::move(modoOper));
  auto* lista = cuerpo()->findChild<QComboBox*>(u"modo%1"_s.arg(n));
  lista->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  lista->setMinimumContentsLength(kLetrasModo);
  connect(&modo, &Campo::cambiado, this, [this, n, i] { r.CassModo(n, modos_[i]); });
  connect(&oper, &Campo::cambiado, this, [this, n, i, &oper] {
    if (oper.leer()) r.CassOper(n, opers_[i]);
  });
  if (n > 1) deVarios_.push_back(cuerpo()->findChild<QGroupBox*>(u"casete%1"_s.arg(n)));
}

Resultado<> EdiCass::entrar(const PuertaEdiCass& puerta) {
  TARVO_TOMAR(formatos_, grupos_.formatos());
  const auto* balanza = std::get_if<devices::Balanza>(&puerta.maquina);
  if (!balanza) return {};
  for (int n = 1; n <= 3; ++n) {
    modos_[static_cast<size_t>(n - 1)] = balanza->CassModo(n);
    opers_[static_cast<size_t>(n - 1)] = balanza->CassOper(n);
  }
  for (QWidget* w : deVarios_) w->setVisible(conTresCasetes(balanza->tipo()));
  TARVO_INTENTAR(abrirHoja(puerta, kTxTituloCass, *balanza));
  pintar();
  GridEtq_->irA(0);
  ofrecer();
  return {};
}

int EdiCass::tecla() const {
  const int fila = GridEtq_->filaActual();
  return fila < 0 ? 0 : static_cast<int>(GridEtq_->clave(fila));
}

// A typed name is one of those that are offered; none takes the key's format away.
Resultado<> EdiCass::poner(int tecla, const QString& formato) {
  if (tecla < kPrimeraTecla) return {};
  const QString dicho = formato.trimmed();
  const auto quedan = ofrecidos(r, formatos_);
  if (!dicho.isEmpty() && dicho != r.Formato(tecla) &&
      std::ranges::find(quedan, dicho, &FormatoEtiqueta::nombre) == quedan.end()) {
    const bool existe =
        std::ranges::find(formatos_, dicho, &FormatoEtiqueta::nombre) != formatos_.end();
    return fallo(Fallo::Formato, t(existe ? kTxDeOtroJuego : kTxSinEseFormato).arg(dicho));
  }
  r.Formato(tecla, dicho);
  pintar();
  ofrecer();
  return {};
}

void EdiCass::pintar() {
  std::vector<FilaViva> filas;
  for (int k = kPrimeraTecla; k <= kUltimaTecla; ++k) {
    const auto suyo = std::ranges::find(formatos_, r.Formato(k), &FormatoEtiqueta::nombre);
    const QString juego = suyo == formatos_.end() ? QString() : suyo->juego.value_or(QString());
    filas.push_back({k, {k, r.Formato(k), juego}});
  }
  GridEtq_->vivas().poner(std::move(filas));
  const auto juego = juegoDe(r, formatos_);
  lbJue_->setText(!juego    ? t(kTxCualquierJuego)
                  : !*juego ? t(kTxSinJuego)
                            : t(kTxJuegoDe).arg(**juego));
}

void EdiCass::ofrecer() {
  const QString suyo = tecla() > 0 ? r.Formato(tecla()) : QString();
  Opciones opciones{{0, t(kTxNinguno)}};
  const auto quedan = ofrecidos(r, formatos_);
  for (const FormatoEtiqueta& f : quedan)
    opciones.push_back({static_cast<qint64>(opciones.size()), f.nombre});
  // One that is no longer there stays until another is chosen.
  if (!suyo.isEmpty() && std::ranges::find(quedan, suyo, &FormatoEtiqueta::nombre) == quedan.end())
    opciones.push_back({static_cast<qint64>(opciones.size()), suyo});
  llenar(*ListaEtq_, opciones);
  ListaEtq_->setCurrentIndex(suyo.isEmpty() ? 0 : ListaEtq_->findText(suyo));
  ListaEtq_->setEnabled(tecla() > 0);
}

}  // namespace tarvo::groups
