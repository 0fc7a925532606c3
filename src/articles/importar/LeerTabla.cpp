#include "articles/importar/LeerTabla.h"

#include "articles/importar/Hoja.h"
#include "articles/importar/Lineas.h"
#include "articles/importar/TextosImportar.h"

namespace tarvo::importar {

using namespace Qt::StringLiterals;

namespace {

bool acaba(const QString& ruta, QStringView en) {
  return ruta.endsWith(en, Qt::CaseInsensitive);
}

// By its extension; a zipped file counts as a spreadsheet whatever its name.
bool esHoja(const QString& ruta, const QByteArray& bytes) {
  return bytes.startsWith("PK\x03\x04") || acaba(ruta, u".ods") || acaba(ruta, u".xlsx");
}

TablaLeida leerTexto(const QByteArray& bytes) {
  TablaLeida t;
  t.codificacion = averiguarCodificacion(bytes);
  const QString texto = descodificarComo(bytes, t.codificacion);
  t.separador = averiguarSeparador(texto);
  t.tabla = partirCsv(texto, t.separador);
  return t;
}

}  // namespace

Resultado<TablaLeida> leerTabla(const QString& ruta, const Textos& textos) {
  TARVO_TOMAR(const auto bytes, leerFichero(ruta, textos));
  const QString nombre = NombreFichero(ruta);
  TablaLeida t;
  if (esHoja(ruta, bytes)) {
    auto hoja = acaba(ruta, u".ods") ? leerOds(bytes) : leerXlsx(bytes);
    if (!hoja) return fallo(Fallo::Formato, textos(kTxHojaMala, {nombre}));
    t.tabla = std::move(hoja->tabla);
    t.hoja = std::move(hoja->nombre);
  } else {
    t = leerTexto(bytes);
  }
  if (t.tabla.llena())
    return fallo(Fallo::Formato, textos(kTxDemasiadasCeldas, {nombre, Tabla::kCeldasMayor}));
  if (t.tabla.filas() == 0) return fallo(Fallo::Formato, textos(kTxFicheroVacio, {nombre}));
  return t;
}

}  // namespace tarvo::importar
