#include "comm/cables/Hayes.h"

#include <QStringList>

namespace tarvo::enlace {

std::vector<PasoGuion> partirGuion(const QString& guion) {
  std::vector<PasoGuion> pasos;
  const QStringList piezas = guion.split(u'|');
  for (qsizetype i = 0; i < piezas.size(); i += 2) {
    QString orden = piezas[i];
    orden.remove(QStringLiteral("[Cr]"), Qt::CaseInsensitive);
    if (orden.isEmpty()) continue;
    pasos.push_back({orden.toLatin1(), !piezas.value(i + 1).isEmpty()});
  }
  return pasos;
}

RespuestaModem interpretar(const QByteArray& linea) {
  using enum RespuestaModem;
  struct Palabra {
    const char* texto;
    RespuestaModem respuesta;
  };
  constexpr Palabra kPalabras[] = {
      {"OK", Bien},       {"CONNECT", Conectado},   {"NO CARRIER", SinPortadora},
      {"ERROR", Error},   {"NO DIALTONE", SinTono}, {"NO DIAL TONE", SinTono},
      {"BUSY", Comunica}, {"NO ANSWER", NoContesta}};
  // By number: 5 and those from 9 up are connections at some speed.
  constexpr RespuestaModem kNumeros[] = {Bien,      Conectado, Ninguna,  SinPortadora, Error,
                                         Conectado, SinTono,   Comunica, NoContesta};
  bool esNumero = false;
  const int numero = linea.toInt(&esNumero);
  if (esNumero && linea.size() <= 2 && numero >= 0)
    return numero < static_cast<int>(std::size(kNumeros)) ? kNumeros[numero] : Conectado;
  for (const auto& palabra : kPalabras)
    if (linea.startsWith(palabra.texto)) return palabra.respuesta;
  return Ninguna;
}

std::optional<QByteArray> cortarLinea(QByteArray& buffer) {
  const qsizetype fin = buffer.indexOf('\r');
  if (fin < 0) return std::nullopt;
  const QByteArray linea = buffer.left(fin).trimmed();
  buffer.remove(0, fin + 1);
  if (buffer.startsWith('\n')) buffer.remove(0, 1);
  return linea;
}

}  // namespace tarvo::enlace
