// Adding an article, and the values kept for the next one.
#include <QMessageBox>
#include <QPushButton>

#include <algorithm>

#include "articles/TextosArticles.h"
#include "articles/precios/AjustesPrecios.h"
#include "articles/precios/CambioRapido.h"
#include "articles/precios/ventanas/CfgFastA.h"
#include "articles/precios/ventanas/FastAlta.h"
#include "articles/precios/ventanas/TextosPreciosVentanas.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/marco/Retenida.h"
#include "core/ventanas/marco/Tira.h"

namespace tarvo::precios {

using namespace Qt::StringLiterals;

// A message box with three answers: that of the kit has only two.
FastAlta::Respuesta FastAlta::preguntar() {
  const ventanas::Retenida mientras(this);
  QMessageBox caja(QMessageBox::Question, windowTitle(), t(kTxAnadir), QMessageBox::NoButton, this);
  QPushButton* si = caja.addButton(t(ventanas::kTxSi), QMessageBox::YesRole);
  QPushButton* no = caja.addButton(t(ventanas::kTxNo), QMessageBox::NoRole);
  QPushButton* cancelar = caja.addButton(t(ventanas::kTxCancelar), QMessageBox::RejectRole);
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

// Called once all checks have passed.
void FastAlta::confirmar() {
  if (!leer()) return;
  switch (preguntar()) {
    case Respuesta::Si:
      return Ficha::confirmar();
    case Respuesta::Cancelar:
      vaciar();
      break;
    case Respuesta::No:
      break;
  }
  codigo_->setFocus();
}

std::vector<FastAlta::FaltaCampo> FastAlta::comprobar() {
  r.precios = precios_->precios();
  std::vector<FaltaCampo> malas;
  for (int i = 0; i < kCamposAlta; ++i) {
    const auto cual = static_cast<CampoAlta>(i);
    const auto falta = motor_.falta(cual, r);
    if (!falta) malas.push_back({nullptr, falta.error().texto});
    if (falta && *falta) malas.push_back({&campo(cual), **falta});
  }
  if (!precios_->vale()) malas.push_back({&campo(CampoAlta::Precios), t(kTxValorIncorrecto)});
  return malas;
}

void FastAlta::decir(const std::vector<FaltaCampo>& faltas) {
  Ficha::decir(faltas);
  codigo_->setFocus();
}

Resultado<> FastAlta::aplicar() {
  const auto articulo = motor_.anadir(r, nombre());
  codigo_->setFocus();
  if (!articulo) return std::unexpected(informe(contexto(), articulo.error()));
  anadido_ = *articulo;
  return {};
}

void FastAlta::aplicada() {
  const articles::Articulo& a = anadido_;
  ultimo_->setText(t(kTxUltimo).arg(Ceros(a.clave.codigo, 7) + u"   "_s + a.nombre));
  if (lista_) lista_->refrescarEn({a.clave.seccion, a.clave.codigo});
  tira().quitar();
  qint64 mayor = 0;
  for (const auto& nivel : a.precios) mayor = std::max(mayor, std::ranges::max(nivel));
  if (mayor == 0) decirDuda(contexto().textos(articles::kTxSinNingunPrecio, {a.nombre}));
  if (const auto aviso = avisoPrecio(mayor, contexto().ajustes, contexto().textos))
    decirDuda(*aviso);
  vaciar();
}

void FastAlta::vaciar() {
  tomar();
  codigo_->setMaxLength(motor_.forma().cifras());
  r.codigo.clear();
  r.nombre.clear();
  r.precios = {};
  for (int i = 0; i < kCamposFijos; ++i) {
    const auto fijo = static_cast<CampoFijo>(i);
    const bool limpiar = politicas_.politica(fijo) == Politica::Limpiar;
    const bool unidad = fijo == CampoFijo::Unidad;
    if (limpiar && unidad) r.cada = -1;
    if (limpiar && !unidad) donde(fijo).clear();
    politicas_.ponerValor(fijo, unidad ? QString::number(r.cada) : donde(fijo));
  }
  mostrar();
  guardarAjustes();
}

void FastAlta::configurar() {
  PuertaCfgFastA puerta{.config = {.prefijo = motor_.forma().prefijo(),
                                   .precios = motor_.forma().precios(),
                                   .tarifas = motor_.forma().tarifas()}};
  for (std::size_t i = 0; i < kCamposFijos; ++i)
    puerta.config.politicas[i] = politicas_.politica(static_cast<CampoFijo>(i));
  const auto config = Ventana::preguntar(puerta);
  if (!config) return;
  const auto forma = FormaAlta::de(config->prefijo, config->precios, config->tarifas);
  if (!forma) return;
  for (std::size_t i = 0; i < kCamposFijos; ++i)
    politicas_.poner(static_cast<CampoFijo>(i), config->politicas[i]);
  motor_.ponerForma(*forma);
  precios_->preparar(contexto(), forma->precios(), forma->tarifas());
  confirmarAlta(contexto().ajustes);
  vaciar();
  ponerValores();
  codigo_->setFocus();
}

// The same settings also hold the options of the fast change, which are kept.
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
