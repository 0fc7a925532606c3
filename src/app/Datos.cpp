#include "app/Datos.h"

#include "app/Consola.h"
#include "app/TextosApp.h"

namespace tarvo::app {

Datos::Datos(std::map<QString, QString> valores, const Textos& textos,
             std::function<void(const QString&)> decir)
    : valores_(std::move(valores)), t_(textos), decir_(decir ? std::move(decir) : avisar) {}

std::optional<QString> Datos::PromptStr(const QString& nombre, const QString& pregunta) {
  const auto hallado = valores_.find(nombre);
  if (hallado != valores_.end()) return hallado->second;
  decir_(t_(kTxFaltaDato).arg(nombre, pregunta));
  return std::nullopt;
}

std::optional<qint64> Datos::PromptNum(const QString& nombre, const QString& pregunta) {
  const auto texto = PromptStr(nombre, pregunta);
  if (!texto) return std::nullopt;
  bool bien = false;
  const int numero = texto->trimmed().toInt(&bien);
  if (bien) return numero;
  decir_(t_(kTxDatoMaloParaPregunta).arg(nombre, *texto, pregunta));
  return std::nullopt;
}

std::optional<std::pair<Fecha, Fecha>> Datos::PromptFch(const QString& nombre,
                                                        const QString& pregunta) {
  const auto texto = PromptStr(nombre, pregunta);
  if (!texto) return std::nullopt;
  const auto rango = leerRango(*texto);
  if (!rango) decir_(t_(kTxDatoMaloParaPregunta).arg(nombre, *texto, pregunta));
  return rango;
}

std::optional<std::pair<Fecha, Fecha>> leerRango(QStringView texto) {
  if (const auto dia = Fecha::leerConGuiones(texto)) return std::pair(*dia, *dia);
  // A dash may be in a day as well as between two.
  for (qsizetype g = texto.indexOf(u'-'); g >= 0; g = texto.indexOf(u'-', g + 1)) {
    const auto desde = Fecha::leerConGuiones(texto.left(g));
    const auto hasta = Fecha::leerConGuiones(texto.mid(g + 1));
    if (desde && hasta)
      return *desde <= *hasta ? std::optional(std::pair(*desde, *hasta)) : std::nullopt;
  }
  const auto primero = Fecha::leer(QString(QStringLiteral("01/") + texto.trimmed().toString()));
  if (!primero) return std::nullopt;
  const QDate mes = primero->qdate();
  return std::pair(*primero, Fecha::de(QDate(mes.year(), mes.month(), mes.daysInMonth())));
}

}  // namespace tarvo::app
