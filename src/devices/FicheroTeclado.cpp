#include "devices/FicheroTeclado.h"

#include <QRegularExpression>
#include <set>

#include "core/ajustes/Ficheros.h"
#include "devices/TextosDevices.h"

namespace tarvo::devices {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kLimite = 64 * 1024;  // many times the largest keyboard

// What each part of the text is made of, the first one excepted.
const QRegularExpression& formaDe(qsizetype parte) {
  static const QRegularExpression formas[] = {QRegularExpression(u"\\A([0-9]{3}):[0-9]{3}:?\\z"_s),
                                              QRegularExpression(u"\\A([0-9]{3}):[0-9]{0,7}\\z"_s),
                                              QRegularExpression(u"\\A([0-9]{2}):[0-9]{0,4}\\z"_s),
                                              QRegularExpression(u"\\A(?!)\\z"_s)};
  return formas[std::clamp<qsizetype>(parte, 1, 4) - 1];
}

// Each line of the form, with a number that its part has, and a line for each key.
Resultado<> completo(const QString& texto, const QString& ruta, const Textos& textos) {
  const QStringList partes = texto.split(u'|');
  const int mayores[] = {partes[0].trimmed().toInt(), kPlusDirectos, kTarasDirectas, 0};
  int linea = 1;
  std::set<int> teclas;
  for (qsizetype parte = 1; parte < partes.size(); ++parte) {
    const QStringList suyas = partes[parte].split(u'\n');
    for (qsizetype i = 0; i < suyas.size(); ++i, ++linea) {
      const QString una = suyas[i].trimmed();
      if (una.isEmpty()) continue;
      const auto casa = formaDe(parte).match(una);
      const int n = casa.captured(1).toInt();
      const bool suya = n >= 1 && n <= mayores[std::min<qsizetype>(parte, 4) - 1];
      if (!casa.hasMatch() || !suya || (parte == 1 && !teclas.insert(n).second))
        return fallo(Fallo::Formato, textos(kTxLineaDeTecladoMala, {ruta, linea, una}));
    }
    --linea;  // the next part begins in the line where this one ends
  }
  for (int n = 1; n <= mayores[0]; ++n)
    if (!teclas.contains(n)) return fallo(Fallo::Formato, textos(kTxFaltaUnaTecla, {ruta, n}));
  return {};
}

}  // namespace

Resultado<> guardarTeclado(const QString& ruta, const Teclado& teclado) {
  return ficheros::escribirEntero(ruta, ficheros::codificar(teclado.portapapeles()));
}

Resultado<QString> leerTeclado(const QString& ruta, const Textos& textos) {
  const auto bytes = ficheros::leerBytes(ruta, kLimite);
  if (!bytes && bytes.error().clase != Fallo::Formato) return std::unexpected(bytes.error());
  const QString texto = bytes ? ficheros::descodificar(*bytes) : QString();
  if (Teclado(0).quePega(texto) == Teclado::Pegado::NoEsTeclado)
    return fallo(Fallo::Formato, textos(kTxNoEsFicheroTeclado, {ruta}));
  TARVO_INTENTAR(completo(texto, ruta, textos));
  return texto;
}

}  // namespace tarvo::devices
