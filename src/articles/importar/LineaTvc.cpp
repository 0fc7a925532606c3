#include "articles/importar/LineaTvc.h"

#include "articles/importar/LineaPLU.h"

namespace tarvo::importar {

namespace {

qint64 numero(QStringView linea, int columna, int ancho) {
  return cifras(linea.mid(columna - 1, ancho)).value_or(0);
}
int corto(QStringView linea, int columna, int ancho) {
  return static_cast<int>(numero(linea, columna, ancho));
}

}  // namespace

RegistroTvc leerLineaTvc(QStringView linea) {
  RegistroTvc r;
  r.seccion = corto(linea, 1, 2);
  r.codigo = numero(linea, 3, 4);
  r.codigoLargo = numero(linea, 1, 6);
  r.nombre = linea.mid(6, 30).trimmed().toString();
  const QStringView clase = linea.mid(36, 1);
  r.porPeso = !clase.isEmpty() && QStringView(u"1356").contains(clase);
  r.coste = numero(linea, 38, 6);
  r.precio = numero(linea, 44, 6);
  r.depto = corto(linea, 54, 2);
  r.inicial = numero(linea, 69, 8);
  return r;
}

std::optional<SitioTvc> sitioDe(const RegistroTvc& r, const DestinoTvc& destino) {
  if (!destino.unaSeccion) return SitioTvc{{r.seccion, r.codigo}, 0};
  if (!destino.seccionPorTarifa) return SitioTvc{{*destino.unaSeccion, r.codigoLargo}, 0};
  for (int t = 0; t < articles::kTarifas; ++t) {
    const QString& vieja = destino.secciones[static_cast<size_t>(t)];
    if (vieja.trimmed().isEmpty() || cifras(vieja) != r.seccion) continue;
    return SitioTvc{{*destino.unaSeccion, r.codigo}, t};
  }
  return std::nullopt;
}

QString prefijoDe(int depto, const DestinoTvc& destino) {
  const bool propio = depto >= 0 && depto < static_cast<int>(destino.prefijos.size());
  return destino.prefijos[static_cast<size_t>(propio ? depto : 0)];
}

}  // namespace tarvo::importar
