#include "core/ajustes/ValorIni.h"

#include <algorithm>
#include <limits>

namespace tarvo::ini {

bool leerEntre(QStringView v, Limites limites, int& campo) {
  campo = entero(v, limites.menor, limites.mayor);
  return esEntero(v) && limites.admite(real(v));
}

bool leer16(QStringView v, int& campo) {
  using Limite = std::numeric_limits<qint16>;
  return leerEntre(v, {Limite::min(), Limite::max()}, campo);
}

bool leer32(QStringView v, int& campo) {
  using Limite = std::numeric_limits<qint32>;
  return leerEntre(v, {Limite::min(), Limite::max()}, campo);
}

bool leerSiCabe(QStringView v, Limites limites, int& campo) {
  int leido = 0;
  const bool bien = leerEntre(v, limites, leido);
  const bool hayNumero = !v.isEmpty() && v.front().isDigit();
  if (hayNumero && limites.admite(real(v))) campo = leido;
  return bien;
}

QString verEntero(int numero) {
  return QString::number(numero);
}

bool leerRealSi(QStringView v, bool (*vale)(double), float& campo) {
  const auto leido = static_cast<float>(real(v));
  if (!esReal(v) || (!vale(leido) && leido != campo)) return false;
  campo = leido;
  return true;
}

bool leerLogico(QStringView v, bool& campo) {
  const QString palabra = v.trimmed().toString().toUpper();
  const auto es = [&](std::initializer_list<const char16_t*> palabras) {
    return std::ranges::any_of(palabras, [&](const auto* p) { return palabra == QStringView(p); });
  };
  const bool cierta = es({u"SÍ", u"SI", u"YES", u"TRUE", u"VERDADERO"});
  campo = cierta || real(v) != 0;
  return cierta || es({u"NO", u"FALSE", u"FALSO"}) || esReal(v);
}

QString verLogico(bool b, Idioma idioma) {
  if (idioma == Idioma::Espanol) return b ? QStringLiteral("Sí") : QStringLiteral("No");
  return b ? QStringLiteral("Yes") : QStringLiteral("No");
}

bool leerFecha(QStringView v, Fecha& campo) {
  const auto leida = Fecha::leer(v);
  campo = leida.value_or(campo);
  return leida.has_value();
}

QString verFecha(Fecha fecha) {
  return fecha.general();
}

bool leerHora(QStringView v, Fecha& campo) {
  const auto leida = Fecha::leerHora(v);
  campo = leida.value_or(campo);
  return leida.has_value();
}

QString verHora(Fecha hora) {
  return hora.horaLarga().left(5);
}

bool leerTexto(const QString& v, QString& campo) {
  campo = v;
  return true;
}

bool leerMayusculas(const QString& v, QString& campo) {
  campo = v.toUpper();
  return true;
}

QString verTexto(const QString& texto) {
  return texto;
}

bool leerPar(QStringView v, std::array<int, 2>& campo) {
  const bool primero = leer16(parte(v, u'|', 0), campo[0]);
  return leer16(parte(v, u'|', 1), campo[1]) && primero;
}

QString verPar(const std::array<int, 2>& campo) {
  return QStringLiteral("%1|%2").arg(campo[0]).arg(campo[1]);
}

QStringView parte(QStringView lista, QChar separador, qsizetype n) {
  const auto partes = lista.split(separador);
  return n < partes.size() ? partes[n].trimmed() : QStringView();
}

}  // namespace tarvo::ini
