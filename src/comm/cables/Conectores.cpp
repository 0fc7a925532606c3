#include "comm/cables/Conectores.h"

#include "core/ajustes/Ajustes.h"
#include "core/ajustes/Ficheros.h"

namespace tarvo::enlace {

namespace {

constexpr qint64 kMayorConectores = 1024 * 1024;

}  // namespace

QString conector(const Ajustes& ajustes, const QString& nombre) {
  const QString ruta = Ajustes::ruta(QStringLiteral("CONECTORES.INI"), ajustes.carpeta);
  const auto bytes = ficheros::leerBytes(ruta, kMayorConectores);
  return bytes ? buscarConector(ficheros::descodificar(*bytes), nombre) : QString();
}

QString buscarConector(const QString& texto, const QString& nombre) {
  const QString buscado = nombre.trimmed().toUpper();
  QString hallado;
  if (buscado.isEmpty()) return hallado;
  // A name may contain brackets, so the whole key is compared.
  for (QStringView renglon : QStringView(texto).split(u'\n')) {
    const qsizetype igual = renglon.indexOf(u'=');
    if (igual < 0 || renglon.left(igual).trimmed().toString().toUpper() != buscado) continue;
    hallado = renglon.mid(igual + 1).trimmed().toString();
  }
  return hallado;
}

}  // namespace tarvo::enlace
