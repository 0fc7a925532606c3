#include "articles/importar/Lineas.h"

#include <QFileInfo>

#include "articles/importar/TextosImportar.h"
#include "core/ajustes/Ficheros.h"

namespace tarvo::importar {

namespace {

constexpr QByteArrayView kMarca("\xEF\xBB\xBF");
constexpr char kCtrlZ = '\x1A';

}  // namespace

Lineas::Lineas(QByteArray bytes) : bytes_(std::move(bytes)), utf8_(bytes_.startsWith(kMarca)) {
  if (utf8_) leidos_ = kMarca.size();
}

bool Lineas::siguiente() {
  if (leidos_ >= bytes_.size()) return false;
  const qint64 fin = bytes_.indexOf('\n', leidos_);
  QByteArrayView cruda(bytes_);
  cruda = cruda.sliced(leidos_, (fin < 0 ? bytes_.size() : fin) - leidos_);
  leidos_ = fin < 0 ? bytes_.size() : fin + 1;
  if (fin < 0 && cruda.endsWith(kCtrlZ)) cruda.chop(1);
  if (cruda.endsWith('\r')) cruda.chop(1);
  linea_ = utf8_ ? QString::fromUtf8(cruda) : ficheros::descodificar1252(cruda.toByteArray());
  ++numero_;
  return true;
}

Resultado<QByteArray> leerFichero(const QString& ruta, const Textos& textos) {
  constexpr qint64 kMega = 1024 * 1024;
  if (const qint64 n = QFileInfo(ruta).size(); n > kFicheroMayor)
    return fallo(Fallo::Formato, textos(kTxDemasiadoGrande,
                                        {NombreFichero(ruta), n / kMega, kFicheroMayor / kMega}));
  return ficheros::leerBytes(ruta, kFicheroMayor);
}

}  // namespace tarvo::importar
