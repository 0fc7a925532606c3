// The reader of export files: any bytes give periods or an error, and nothing of a refused
// block stays. Every input starts on the same empty database.
#include <QTemporaryDir>
#include <cstdint>
#include <cstdlib>

#include "core/esquema/Esquema.h"
#include "core/tiempo/Reloj.h"
#include "textos/TextosDePrueba.h"
#include "totals/intercambio/XporTot.h"
#include "totals/periodos/AjustesPeriodos.h"
#include "totals/periodos/TablasTotales.h"

using namespace tarvo;

namespace {

std::unique_ptr<dao::Database> baseVacia(const QTemporaryDir& carpeta) {
  dao::Apertura como;
  como.crear = true;
  auto db = dao::Database::OpenDatabase(carpeta.filePath(QStringLiteral("TARVO.MDB")), como);
  if (!db || !esquema::crearEsquema(**db) || !totals::asegurarTablasTotales(**db)) std::abort();
  return std::move(*db);
}

void exigir(bool verdad) {
  if (!verdad) std::abort();
}

qint64 contar(dao::Database& db, QStringView sql) {
  const auto n = db.uno(sql);
  exigir(n.has_value());
  return n->entero();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* datos, size_t tamano) {
  static const QTemporaryDir carpeta;
  static const auto db = baseVacia(carpeta);
  const Ajustes ajustes(carpeta.path(), Idioma::Espanol, {totals::ajustesPeriodos()});
  RelojVirtual reloj{Fecha{}};
  stock::Almacenes almacenes(*db, reloj, textosDePrueba());
  totals::Periodos periodos(*db, ajustes, almacenes, textosDePrueba());

  auto t = dao::Transaccion::empezar(*db);  // undone at the end
  exigir(t.has_value());
  const QByteArray bytes(reinterpret_cast<const char*>(datos), static_cast<qsizetype>(tamano));
  std::vector<totals::ImpTot::Hecho> hechos;
  const auto como = tamano % 2 ? totals::SiExiste::Borrarlo : totals::SiExiste::Acumularlo;
  const auto r =
      totals::ImpTot(periodos).importarBytes(bytes, QStringLiteral("X.EXP"), como, hechos);
  exigir(r.has_value() || !r.error().texto.isEmpty());
  exigir(contar(*db, u"SELECT count(*) FROM COLUMNA") <= static_cast<qint64>(hechos.size()));
  exigir(contar(*db, u"SELECT count(*) FROM TOTPLU WHERE LINK NOT IN (SELECT LINK FROM COLUMNA)") ==
         0);
  return 0;
}
