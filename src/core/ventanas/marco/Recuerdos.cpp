#include "core/ventanas/marco/Recuerdos.h"

#include "core/ajustes/Ficheros.h"

namespace tarvo::ventanas {

namespace {

QString claveDe(const QString& ventana, const QString& clave) {
  return ventana + u'.' + clave;
}

}  // namespace

Recuerdos::Recuerdos(QString ruta) : ruta_(std::move(ruta)) {
  if (ruta_.isEmpty()) return;
  const auto bytes = ficheros::leerBytes(ruta_);
  if (!bytes) return;
  const QString texto = ficheros::descodificar(*bytes);
  for (const QStringView linea : QStringView(texto).split(u'\n')) {
    const qsizetype igual = linea.indexOf(u'=');
    if (igual > 0)
      valores_[linea.left(igual).toString()] = linea.mid(igual + 1).trimmed().toString();
  }
}

QString Recuerdos::leer(const QString& ventana, const QString& clave) const {
  const auto hallado = valores_.find(claveDe(ventana, clave));
  return hallado == valores_.end() ? QString() : hallado->second;
}

void Recuerdos::poner(const QString& ventana, const QString& clave, const QString& valor) {
  QString& actual = valores_[claveDe(ventana, clave)];
  if (actual == valor) return;
  actual = valor;
  cambiado_ = true;
}

Resultado<> Recuerdos::guardar() {
  if (!cambiado_ || ruta_.isEmpty()) return {};
  QString texto;
  for (const auto& [clave, valor] : valores_)
    texto += clave + u'=' + valor + QStringLiteral("\r\n");
  TARVO_INTENTAR(ficheros::escribirEntero(ruta_, ficheros::codificar(texto)));
  cambiado_ = false;
  return {};
}

}  // namespace tarvo::ventanas
