#include "articles/precios/ventanas/CfgFastA.h"

#include "articles/precios/ventanas/Comun.h"
#include "articles/precios/ventanas/TextosPreciosVentanas.h"
#include "core/ventanas/marco/MyMsgBox.h"

namespace tarvo::precios {

using namespace Qt::StringLiterals;

CfgFastA::CfgFastA(ventanas::Contexto& contexto, const QString& nombre)
    : Ventana(contexto, nombre) {
  ui_.setupUi(cuerpo());
  ui_.politicas->preparar(contexto.textos, kTxCamposFijos, kCamposFijos, kTxPoliticas);
  enlazar();
  for (QLineEdit* caja : {ui_.txPrefijo, ui_.txPrecios, ui_.txTarifas}) {
    estrechar(*caja, caja->maxLength());
    connect(caja, &QLineEdit::textEdited, this, [caja] { marcarFalta(*caja, false); });
  }
  connect(ui_.Acepto, &QPushButton::clicked, this, &CfgFastA::salvar);
  connect(ui_.Cancelo, &QPushButton::clicked, this, &CfgFastA::rechazar);
}

Resultado<> CfgFastA::preparar(const ventanas::Argumentos& argumentos) {
  salida_ = salidaDe<ConfigAlta>(argumentos);
  editar(salida_ ? *salida_ : ConfigAlta{{}, FormaAlta::leer(contexto().ajustes)});
  return {};
}

void CfgFastA::editar(const ConfigAlta& config) {
  for (int i = 0; i < kCamposFijos; ++i)
    ui_.politicas->poner(i, static_cast<int>(config.politicas[static_cast<std::size_t>(i)]));
  ui_.txPrefijo->setText(config.forma.prefijo());
  ui_.txPrecios->setText(QString::number(config.forma.precios()));
  ui_.txTarifas->setText(QString::number(config.forma.tarifas()));
  ui_.txPrefijo->setFocus();
}

void CfgFastA::mal(FormaAlta::Mal que) {
  using enum FormaAlta::Mal;
  const int texto = que == PrefijoNoNumerico ? kTxPrefijoNoNumerico
                    : que == PrefijoLargo    ? kTxPrefijoLargo
                    : que == Precios         ? kTxPreciosIncorrectos
                                             : kTxTarifasIncorrectas;
  QLineEdit* caja = que == Precios ? ui_.txPrecios : que == Tarifas ? ui_.txTarifas : ui_.txPrefijo;
  ventanas::MyMsgBox::Decide(this, contexto().textos, t(texto),
                             ventanas::kSoloAcepto | ventanas::kCritico);
  marcarFalta(*caja, true);
  caja->setFocus();
  caja->selectAll();
}

void CfgFastA::salvar() {
  const auto forma = FormaAlta::de(ui_.txPrefijo->text(), ui_.txPrecios->text().toInt(),
                                   ui_.txTarifas->text().toInt());
  if (!forma) return mal(forma.error());
  if (salida_) {
    salida_->forma = *forma;
    for (int i = 0; i < kCamposFijos; ++i)
      salida_->politicas[static_cast<std::size_t>(i)] =
          static_cast<Politica>(ui_.politicas->valor(i));
  }
  aceptar();
}

}  // namespace tarvo::precios
