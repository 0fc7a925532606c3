#include "automation/historia/Traza.h"

#include <QFile>

#include "automation/historia/TextosHistoria.h"
#include "core/ajustes/Ficheros.h"

namespace tarvo::automation {

using namespace Qt::StringLiterals;

namespace {

QString conExtension(QString fichero, const QString& extension) {
  const auto punto = fichero.lastIndexOf(u'.');
  const auto carpeta = std::max(fichero.lastIndexOf(u'\\'), fichero.lastIndexOf(u'/'));
  if (punto > carpeta) fichero.truncate(punto);
  return fichero + extension;
}

bool anadir(const QString& ruta, const QByteArray& bytes) {
  QFile f(ruta);
  return f.open(QIODevice::WriteOnly | QIODevice::Append) && f.write(bytes) == bytes.size() &&
         f.flush();
}

}  // namespace

void Traza::empezar(const Ajustes& ajustes, const QString& traza, const QString& nombre) {
  const QString fichero = traza.isEmpty() ? nombre + u".TZA"_s : conExtension(traza, u".TZC"_s);
  ruta_ = Ajustes::ruta(fichero, ajustes.HomeDir);
  campo_ = traza.isEmpty() ? QString() : (nombre + u':').leftJustified(8, u' ');
  avisado_ = false;
}

bool Traza::escribir(const QStringList& lineas, const std::function<void(const QString&)>& salida) {
  QString texto;
  for (const auto& l : lineas) texto += campo_ + l + u"\r\n"_s;
  const bool escrito = anadir(ruta_, ficheros::codificar1252(texto));
  if (!salida) return escrito;
  for (const auto& l : lineas) salida(campo_ + l);
  if (!escrito && !std::exchange(avisado_, true)) salida(textos_(kTxTrazaSinEscribir, {ruta_}));
  return escrito;
}

}  // namespace tarvo::automation
