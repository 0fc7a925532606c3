// The addition of an article, and what is kept for the next one.
#include <QMessageBox>
#include <QPushButton>

#include <algorithm>

#include "articles/precios/AjustesPrecios.h"
#include "articles/precios/CambioRapido.h"
#include "articles/precios/ventanas/CfgFastA.h"
#include "articles/precios/ventanas/FastAlta.h"
#include "articles/precios/ventanas/TextosPreciosVentanas.h"
#include "core/ventanas/marco/MyMsgBox.h"
#include "core/ventanas/marco/Retenida.h"
#include "core/ventanas/marco/Tira.h"

namespace tarvo::precios {

using namespace Qt::StringLiterals;

// Three answers: the box of the kit has two.
FastAlta::Respuesta FastAlta::preguntar() {
  const ventanas::Retenida mientras(this);
  QMessageBox caja(QMessageBox::Question, windowTitle(), t(kTxAnadir), QMessageBox::NoButton, this);
  QPushButton* si = caja.addButton(t(kTxSi), QMessageBox::YesRole);
  QPushButton* no = caja.addButton(t(kTxNo), QMessageBox::NoRole);
  QPushButton* cancelar = caja.addButton(t(kTxCancelar), QMessageBox::RejectRole);
  si->setObjectName(u"Si"_s);
  no->setObjectName(u"No"_s);
  cancelar->setObjectName(u"Cancelar"_s);
  caja.setDefaultButton(si);
  caja.setEscapeButton(no);
  caja.exec();
  return caja.clickedButton() == si   ? Respuesta::Si
         : caja.clickedButton() == no ? Respuesta::No
                                      : Respuesta::Cancelar;
}

void FastAlta::anadir() {
  switch (preguntar()) {
    case Respuesta::Si:
      return anadirYa();
    case Respuesta::Cancelar:
      vaciar();
      break;
    case Respuesta::No:
      break;
  }
  ui_.txCod->setFocus();
}

void FastAlta::anadirYa() {
  bool todo = true;
  for (int i = 0; i < kCamposAlta; ++i) todo = vale(static_cast<CampoAlta>(i)) && todo;
  if (!todo) {
    ventanas::MyMsgBox::Decide(this, contexto().textos, t(kTxValorIncorrecto),
                               ventanas::kSoloAcepto | ventanas::kCritico);
    return ui_.txCod->setFocus();
  }
  const auto articulo = motor_.anadir(entrada(), nombre());
  ui_.txCod->setFocus();
  if (!articulo) return decirFallo(informe(contexto(), articulo.error()));
  const QString quien = Ceros(articulo->clave.codigo, 7) + u"   "_s + articulo->nombre;
  ui_.lbUltimo->setText(t(kTxUltimo).arg(quien));
  if (lista_) lista_->refrescarEn({articulo->clave.seccion, articulo->clave.codigo});
  tira().quitar();
  qint64 mayor = 0;
  for (const auto& nivel : articulo->precios) mayor = std::max(mayor, std::ranges::max(nivel));
  const auto aviso = avisoPrecio(mayor, contexto().ajustes, contexto().textos);
  if (aviso) decirDuda(*aviso);
  vaciar();
}

QString FastAlta::textoFijo(CampoFijo campo) const {
  const QWidget* c = control(comoCampoAlta(campo));
  if (const auto* lista = qobject_cast<const QComboBox*>(c))
    return QString::number(lista->currentIndex());
  return qobject_cast<const QLineEdit*>(c)->text();
}

void FastAlta::vaciar() {
  ui_.txCod->clear();
  ui_.txCod->setMaxLength(motor_.forma().cifras());
  ui_.txNom->clear();
  ui_.Grd->limpiar();
  for (int i = 0; i < kCamposFijos; ++i) {
    const auto fijo = static_cast<CampoFijo>(i);
    QWidget* c = control(comoCampoAlta(fijo));
    if (politicas_.politica(fijo) == Politica::Limpiar) {
      if (auto* lista = qobject_cast<QComboBox*>(c)) lista->setCurrentIndex(-1);
      if (auto* campo = qobject_cast<QLineEdit*>(c)) campo->clear();
    }
    politicas_.ponerValor(fijo, textoFijo(fijo));
  }
  for (int i = 0; i < kCamposAlta; ++i) marcarFalta(*control(static_cast<CampoAlta>(i)), false);
  guardarAjustes();
}

void FastAlta::configurar() {
  PuertaCfgFastA puerta{.config = {.prefijo = motor_.forma().prefijo(),
                                   .precios = motor_.forma().precios(),
                                   .tarifas = motor_.forma().tarifas()}};
  for (std::size_t i = 0; i < kCamposFijos; ++i)
    puerta.config.politicas[i] = politicas_.politica(static_cast<CampoFijo>(i));
  const auto config = this->ventanas::Ventana::preguntar(puerta);
  if (!config) return;
  const auto forma = FormaAlta::de(config->prefijo, config->precios, config->tarifas);
  if (!forma) return;
  for (std::size_t i = 0; i < kCamposFijos; ++i)
    politicas_.poner(static_cast<CampoFijo>(i), config->politicas[i]);
  motor_.ponerForma(*forma);
  ui_.Grd->preparar(contexto(), forma->precios(), forma->tarifas());
  vaciar();
  ponerValores();
  ui_.txCod->setFocus();
}

// Other choices of the same settings are the fast change's.
void FastAlta::guardarAjustes() {
  auto& a = contexto().ajustes.de<AjustesPrecios>();
  ParrillaRapida todas = ParrillaRapida::leer(a.ParrillaRapida);
  for (int i = 0; i < kCamposFijos; ++i) {
    const auto fijo = static_cast<CampoFijo>(i);
    todas.poner(fijo, politicas_.politica(fijo));
    todas.ponerValor(fijo, politicas_.valor(fijo));
  }
  a.ParrillaRapida = todas.escribir();
  a.PrefijoCodigos = motor_.forma().prefijo();
  a.NumPreciosAlta = motor_.forma().precios();
  a.NumTarifasAlta = motor_.forma().tarifas();
  haIdoBien(contexto().ajustes.GuardarConfig());
}

}  // namespace tarvo::precios
