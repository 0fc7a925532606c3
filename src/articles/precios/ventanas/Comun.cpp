#include "articles/precios/ventanas/Comun.h"

#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QStyle>
#include <cmath>

#include "articles/precios/ventanas/TextosPreciosVentanas.h"
#include "core/dinero/Dinero.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/aspecto/Tema.h"
#include "core/ventanas/marco/Retenida.h"

namespace tarvo::precios {

using namespace Qt::StringLiterals;

Resultado<> llenar(QComboBox& lista, ventanas::Contexto& c, const QString& sql, int cifras,
                   const std::vector<dao::Valor>& parametros) {
  const QSignalBlocker callada(lista);
  const QVariant antes = lista.currentData();
  lista.clear();
  TARVO_TOMAR(auto rs, c.db.OpenQuery(sql, parametros));
  while (!rs->Eof()) {
    const qint64 codigo = rs->entero(0);
    lista.addItem(Ceros(codigo, cifras) + u"  "_s + rs->texto(1), codigo);
    TARVO_INTENTAR(rs->MoveNext());
  }
  elegir(lista, antes);
  return {};
}

Resultado<> llenarSecciones(QComboBox& lista, ventanas::Contexto& c) {
  return llenar(lista, c, u"SELECT NMSECC, NOMSEC FROM SECCS ORDER BY NMSECC"_s, 3);
}

void elegir(QComboBox& lista, const QVariant& dato) {
  const int i = dato.isValid() ? lista.findData(dato) : -1;
  lista.setCurrentIndex(i >= 0 ? i : lista.count() > 0 ? 0 : -1);
}

QString precioEnTexto(const ventanas::Contexto& c, qint64 precio) {
  return VerImporte(c.ajustes, precio, c.ajustes.MonedaNativa);
}

QString conDosDecimales(double n) {
  return QString::number(n, 'f', 2).replace(u'.', u',');
}

std::optional<double> numeroDe(const QString& texto) {
  bool ok = false;
  const double n = texto.trimmed().replace(u',', u'.').toDouble(&ok);
  return ok && std::isfinite(n) ? std::optional(n) : std::nullopt;
}

void marcarFijo(QLineEdit& campo, bool fijo) {
  QFont letra = campo.font();
  letra.setBold(fijo);
  campo.setFont(letra);
  QPalette colores;
  for (const auto& [papel, tinte] : {std::pair{QPalette::Base, ventanas::Tinte::Seleccion},
                                     {QPalette::Text, ventanas::Tinte::TextoSeleccion}})
    if (fijo) colores.setColor(papel, ventanas::colorDe(tinte));
  campo.setPalette(colores);
}

void marcarFalta(QWidget& campo, bool falta) {
  if (campo.property("falta").toBool() == falta) return;
  campo.setProperty("falta", falta);
  campo.style()->unpolish(&campo);
  campo.style()->polish(&campo);
}

void soloCifras(QLineEdit& campo, int cuantas) {
  static const QRegularExpression kCifras(u"[0-9]*"_s);
  campo.setMaxLength(cuantas);
  campo.setValidator(new QRegularExpressionValidator(kCifras, &campo));
  estrechar(campo, cuantas);
}

void estrechar(QLineEdit& campo, int cifras) {
  const QMargins m = campo.textMargins();
  campo.setMaximumWidth(campo.fontMetrics().horizontalAdvance(QString(cifras + 3, u'0')) +
                        m.left() + m.right() + 2 * ventanas::escalar(ventanas::kHueco));
}

QWidget* antesDe(QWidget& sitio) {
  QWidget* antes = sitio.previousInFocusChain();
  while (antes != &sitio && !(antes->focusPolicy() & Qt::TabFocus))
    antes = antes->previousInFocusChain();
  return antes;
}

bool abandonar(ventanas::Ventana& ventana) {
  const ventanas::Retenida mientras(&ventana);
  QMessageBox caja(QMessageBox::Warning, ventana.windowTitle(), ventana.t(kTxAbandonar),
                   QMessageBox::NoButton, &ventana);
  QPushButton* dejar = caja.addButton(ventana.t(kTxDejar), QMessageBox::DestructiveRole);
  QPushButton* seguir = caja.addButton(ventana.t(kTxSeguir), QMessageBox::RejectRole);
  dejar->setObjectName(u"Acepto"_s);
  seguir->setObjectName(u"Cancelo"_s);
  caja.setDefaultButton(seguir);
  caja.setEscapeButton(seguir);
  caja.exec();
  return caja.clickedButton() == dejar;
}

Error informe(const ventanas::Contexto& c, const Error& error) {
  if (error.clase != Fallo::Duplicado) return error;
  return {error.clase, error.numero, c.textos(kTxDuplicado)};
}

void DeLista::unir(const ventanas::Argumentos& argumentos) {
  if (unida_) return;
  nombre_ = argumentos.value(u"lista"_s, u"BrowPLUs"_s).toString();
  unida_ = static_cast<bool>(*this);
  if (unida_) lista()->hijo(true);
}

void DeLista::soltar() {
  if (std::exchange(unida_, false) && *this) lista()->hijo(false);
}

ventanas::Recorrido* DeLista::lista() const {
  return dynamic_cast<ventanas::Recorrido*>(c_.ventanas.cargada(nombre_));
}

}  // namespace tarvo::precios
