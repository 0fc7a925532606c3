#include <QDir>
#include <QFileInfo>

#include "core/ajustes/Ajustes.h"

namespace tarvo {

namespace {

// The entry of a folder with this name, regardless of case; the name itself if there is none.
QString nombreEnDisco(const QString& carpeta, const QString& nombre) {
  const QDir dir(carpeta.isEmpty() ? QStringLiteral("/") : carpeta);
  const auto filtro = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
  for (const QString& entrada : dir.entryList(filtro, QDir::Name))
    if (entrada.compare(nombre, Qt::CaseInsensitive) == 0) return entrada;
  return nombre;
}

}  // namespace

QString Ajustes::ruta(const QString& nombre, const QString& base) {
  QString pedida = nombre.trimmed();
  pedida.removeIf([](QChar c) { return c.unicode() < u' '; });  // no file name has them
  pedida.replace(u'\\', u'/');
  while (pedida.size() > 1 && (pedida.back() == u'/' || pedida.back().isSpace())) pedida.chop(1);
  if (!pedida.startsWith(u'/')) pedida = base + u'/' + pedida;
  pedida = QDir::cleanPath(pedida);
  if (QFileInfo::exists(pedida)) return pedida;
  QString hecha;
  for (const QString& parte : pedida.split(u'/', Qt::SkipEmptyParts)) {
    const QString exacta = hecha + u'/' + parte;
    hecha = QFileInfo::exists(exacta) ? exacta : hecha + u'/' + nombreEnDisco(hecha, parte);
  }
  return hecha.isEmpty() ? QStringLiteral("/") : hecha;
}

QString Ajustes::relativa(const QString& ruta, const QString& base) {
  const QString limpia = QDir::cleanPath(ruta), carpeta = QDir::cleanPath(base) + u'/';
  return limpia.startsWith(carpeta) ? limpia.mid(carpeta.size()) : limpia;
}

}  // namespace tarvo
