#include "core/ajustes/ValorIni.h"

#include <algorithm>

namespace tarvo::ini {

bool leerSiCabe(QStringView v, Limites limites, int& campo) {
  const bool hayNumero = !v.isEmpty() && (v.front().isDigit() || esEntero(v));
  if (hayNumero && limites.admite(real(v))) campo = entero(v, limites.menor, limites.mayor);
  return numeroEntre(v, limites).has_value();
}

bool leer16(QStringView v, int& campo) {
  return leerSiCabe(v, kDe16, campo);
}

std::optional<int> numeroEntre(QStringView parte, Limites limites) {
  if (!esEntero(parte) || !limites.admite(real(parte))) return std::nullopt;
  return entero(parte, limites.menor, limites.mayor);
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
  if (!cierta && !es({u"NO", u"FALSE", u"FALSO"}) && !esReal(v)) return false;
  campo = cierta || real(v) != 0;
  return true;
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

std::vector<QStringView> partes(QStringView lista, QChar separador) {
  std::vector<QStringView> todas;
  for (const QStringView p : lista.split(separador)) todas.push_back(p.trimmed());
  return todas;
}

bool leerParEntre(QStringView v, Limites limites, std::array<int, 2>& campo) {
  const auto dos = partes(v, u'|');
  if (dos.size() != 2) return false;
  const auto primero = numeroEntre(dos[0], limites), segundo = numeroEntre(dos[1], limites);
  if (!primero || !segundo) return false;
  campo = {*primero, *segundo};
  return true;
}

QString verPar(const std::array<int, 2>& campo) {
  return QStringLiteral("%1|%2").arg(campo[0]).arg(campo[1]);
}

}  // namespace tarvo::ini
