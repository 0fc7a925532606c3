#include "articles/precios/ventanas/Comun.h"

#include <QRegularExpression>
#include <QStyle>
#include <algorithm>

#include "articles/precios/ventanas/TextosPreciosVentanas.h"
#include "core/dinero/Dinero.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/aspecto/Tema.h"

namespace tarvo::precios {

using namespace Qt::StringLiterals;

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
  static const QRegularExpression kNumero(uR"(^[+-]?([0-9]+[.,]?[0-9]*|[.,][0-9]+)$)"_s);
  constexpr qsizetype kLargo = 30;  // more digits than any figure has
  const QString t = texto.trimmed();
  if (t.size() > kLargo || !kNumero.match(t).hasMatch()) return std::nullopt;
  return QString(t).replace(u',', u'.').toDouble();
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

std::optional<int> enteroDe(const QString& texto, int cifras) {
  const QString t = texto.trimmed();
  const bool todas = std::ranges::all_of(t, [](QChar c) { return c >= u'0' && c <= u'9'; });
  return todas && !t.isEmpty() && t.size() <= cifras ? std::optional(t.toInt()) : std::nullopt;
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

Error malFin(const ventanas::Ventana& v, const FaltaFin& falta) {
  return {Fallo::Formato, 0,
          falta.proximo ? v.t(kTxFinSinAno).arg(falta.proximo->corta()) : v.t(kTxFechaMala)};
}

Error informe(const ventanas::Contexto& c, const Error& error) {
  if (error.clase != Fallo::Duplicado) return error;
  return {error.clase, error.numero, c.textos(kTxDuplicado)};
}

void DeLista::unir(const QString& nombre) {
  if (unida_) return;
  nombre_ = nombre;
  unida_ = static_cast<bool>(*this);
  if (unida_) lista()->hijo(true);
}

void DeLista::soltar() {
  if (std::exchange(unida_, false) && *this) lista()->hijo(false);
}

ventanas::Recorrido* DeLista::lista() const {
  return c_.ventanas.recorrido(nombre_);
}

}  // namespace tarvo::precios
