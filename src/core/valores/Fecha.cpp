#include "core/valores/Fecha.h"

#include <cmath>

namespace tarvo {

namespace {

constexpr qint64 kOrigenJuliano = 2415019;  // 30 December 1899

double fraccion(QTime hora) {
  return (hora.hour() * 3600 + hora.minute() * 60 + hora.second()) / 86400.0;
}

// "h:nn" or "h:nn:ss" with one or two digits in each place.
QTime horaDe(QStringView texto) {
  const auto partes = texto.split(u':');
  if (partes.size() < 2 || partes.size() > 3) return {};
  int valores[3] = {0, 0, 0};
  for (qsizetype i = 0; i < partes.size(); ++i) {
    bool ok = false;
    if (partes[i].isEmpty() || partes[i].size() > 2) return {};
    valores[i] = partes[i].toInt(&ok);
    if (!ok) return {};
  }
  return QTime(valores[0], valores[1], valores[2]);
}

}  // namespace

Fecha Fecha::de(QDate dia, QTime hora) {
  return Fecha(static_cast<double>(dia.toJulianDay() - kOrigenJuliano) + fraccion(hora));
}

Fecha Fecha::de(const QDateTime& momento) {
  return de(momento.date(), momento.time());
}

std::optional<Fecha> Fecha::leer(QStringView texto) {
  texto = texto.trimmed();
  const qsizetype blanco = texto.indexOf(u' ');
  const QStringView parteDia = blanco < 0 ? texto : texto.left(blanco);
  const auto partes = parteDia.split(u'/');
  if (partes.size() != 3) return std::nullopt;
  int v[3];
  for (int i = 0; i < 3; ++i) {
    bool ok = false;
    if (partes[i].isEmpty() || partes[i].size() > 4) return std::nullopt;
    v[i] = partes[i].toInt(&ok);
    if (!ok) return std::nullopt;
  }
  if (partes[2].size() <= 2) v[2] += v[2] < 30 ? 2000 : 1900;
  const QDate dia(v[2], v[1], v[0]);
  if (!dia.isValid() || dia.year() < 100) return std::nullopt;
  if (blanco < 0) return de(dia);
  const QTime hora = horaDe(texto.mid(blanco + 1).trimmed());
  if (!hora.isValid()) return std::nullopt;
  return de(dia, hora);
}

std::optional<Fecha> Fecha::leerConGuiones(QStringView texto) {
  if (const auto f = leer(texto)) return f;
  texto = texto.trimmed();
  const qsizetype blanco = texto.indexOf(u' ');
  auto partes = texto.left(blanco < 0 ? texto.size() : blanco).split(u'-');
  if (partes.size() != 3) return std::nullopt;
  if (partes[0].size() == 4) std::swap(partes[0], partes[2]);
  const QString hora = blanco < 0 ? QString() : texto.mid(blanco).toString();
  return leer(QStringLiteral("%1/%2/%3").arg(partes[0], partes[1], partes[2]) + hora);
}

std::optional<Fecha> Fecha::leerProxima(QStringView texto, Fecha hoy) {
  texto = texto.trimmed();
  if (texto.count(u'/') != 1) return leer(texto);
  constexpr int kHastaBisiesto = 8;  // years within which 29 February comes
  for (int i = 0; i <= kHastaBisiesto; ++i)
    if (const auto f =
            leer(QString(texto.toString() + u'/' + QString::number(hoy.qdate().year() + i)));
        f && *f >= hoy.dia())
      return f;
  return std::nullopt;
}

std::optional<Fecha> Fecha::leerHora(QStringView texto) {
  const QTime hora = horaDe(texto.trimmed());
  if (!hora.isValid()) return std::nullopt;
  return Fecha(fraccion(hora));
}

Fecha Fecha::dia() const {
  return Fecha(std::floor(dias_));
}

double Fecha::hora() const {
  return dias_ - std::floor(dias_);
}

QDate Fecha::qdate() const {
  return qdatetime().date();
}

QTime Fecha::qtime() const {
  return qdatetime().time();
}

QDateTime Fecha::qdatetime() const {
  qint64 dias = static_cast<qint64>(std::floor(dias_));
  qint64 segundos = std::llround((dias_ - std::floor(dias_)) * 86400.0);
  if (segundos >= 86400) {
    segundos -= 86400;
    ++dias;
  }
  return QDateTime(QDate::fromJulianDay(kOrigenJuliano + dias),
                   QTime(0, 0).addSecs(static_cast<int>(segundos)), Qt::UTC);
}

int Fecha::diaSemana() const {
  return qdate().dayOfWeek();
}

QString Fecha::corta() const {
  return qdate().toString(u"dd/MM/yyyy");
}

QString Fecha::horaLarga() const {
  return qtime().toString(u"HH:mm:ss");
}

QString Fecha::general() const {
  return corta() + u' ' + horaLarga();
}

QString Fecha::literalSql() const {
  return qdatetime().toString(u"'#'M/d/yyyy H:mm:ss'#'");
}

}  // namespace tarvo
