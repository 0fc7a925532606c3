#include <sqlite3.h>

#include "core/dao/sqlite/Base.h"

namespace tarvo::dao {

using namespace Qt::StringLiterals;

namespace {

struct Columna {
  QString nombre, tipo, defecto;
};

// The type that CREATE TABLE ... AS SELECT gives a column of this kind, so that a copy looks the
// same however its columns were added.
Resultado<Columna> columnaPara(Conexion& con, QStringView tabla, QStringView columna) {
  TARVO_TOMAR(auto p, con.preparar(uR"(
SELECT name, CASE
    WHEN instr(clase, 'INT') THEN 'INT'
    WHEN instr(clase, 'CHAR') OR instr(clase, 'CLOB') OR instr(clase, 'TEXT') THEN 'TEXT'
    WHEN instr(clase, 'BLOB') OR clase='' THEN ''
    WHEN instr(clase, 'REAL') OR instr(clase, 'FLOA') OR instr(clase, 'DOUB') THEN 'REAL'
    ELSE 'NUM' END, ifnull(dflt_value, 'NULL')
FROM (SELECT name, upper(type) AS clase, dflt_value FROM pragma_table_info(?) WHERE name=? COLLATE NOCASE))"_s));
  p.ligar(0, tabla.toString());
  p.ligar(1, columna.toString());
  TARVO_TOMAR(const bool hay, p.paso());
  const auto texto = [&p](int n) {
    return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(p.cruda(), n)));
  };
  const Columna c = hay ? Columna{texto(0), texto(1), texto(2)} : Columna{};
  p.reponer();
  if (hay) return c;
  return fallo(
      Fallo::NoExiste,
      QStringLiteral("La base de datos no tiene la columna «%1.%2».").arg(tabla).arg(columna));
}

}  // namespace

QStringList Base::columnas(QStringView tabla) {
  const auto info = catalogo_->tabla(tabla);
  return info ? QStringList((*info)->columnas.begin(), (*info)->columnas.end()) : QStringList();
}

Resultado<> Base::copiarColumna(QStringView origen, QStringView columna, QStringView copia) {
  TARVO_TOMAR(auto t, Transaccion::empezar(*this));
  TARVO_TOMAR(const auto c, columnaPara(*con_, origen, columna));
  const QString tabla = entreComillasSql(copia.toString()), nombre = entreComillasSql(c.nombre);
  TARVO_INTENTAR(con_->ejecutar(u"ALTER TABLE %1 ADD COLUMN %2 %3"_s.arg(tabla, nombre, c.tipo)));
  TARVO_INTENTAR(con_->ejecutar(u"UPDATE %1 SET %2=(%3)"_s.arg(tabla, nombre, c.defecto)));
  catalogo_->olvidar();
  con_->contarCambio();
  return t.confirmar();
}

}  // namespace tarvo::dao
