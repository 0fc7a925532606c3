#include "totals/libros/TablasLibros.h"

namespace tarvo::totals {

namespace {

constexpr QStringView kGuionLibros =
    uR"(
CREATE TABLE IF NOT EXISTS EstadoTarvo (CLAVE TEXT PRIMARY KEY, VALOR);
CREATE TABLE IF NOT EXISTS Lecturas (
  GRUPO INTEGER NOT NULL, CLASE INTEGER NOT NULL, EJECUCION INTEGER DEFAULT 0, ESTADO INTEGER DEFAULT 0,
  SEC INTEGER DEFAULT 0, INICIO REAL, FIN REAL, ENTERA INTEGER DEFAULT 1, MAQUINAS INTEGER DEFAULT 1, ADDR INTEGER DEFAULT 0,
  LINK INTEGER, BASE_DESDE REAL, BASE_HASTA REAL, APARTE INTEGER DEFAULT 0,
  BASE_DUDOSA INTEGER DEFAULT 0,
  PRIMARY KEY (GRUPO, CLASE));
CREATE TABLE IF NOT EXISTS LectFilas (
  GRUPO INTEGER NOT NULL, CLASE INTEGER NOT NULL, ADDR INTEGER NOT NULL, CODI INTEGER NOT NULL,
  HORA INTEGER NOT NULL, CON INTEGER, PES INTEGER, IMP INTEGER, SCO INTEGER,
  PRIMARY KEY (GRUPO, CLASE, ADDR, CODI, HORA));
CREATE TABLE IF NOT EXISTS BaseFilas (
  GRUPO INTEGER NOT NULL, CLASE INTEGER NOT NULL, ADDR INTEGER NOT NULL, CODI INTEGER NOT NULL,
  HORA INTEGER NOT NULL, CON INTEGER, PES INTEGER, IMP INTEGER, SCO INTEGER,
  PRIMARY KEY (GRUPO, CLASE, ADDR, CODI, HORA));
CREATE TABLE IF NOT EXISTS Ceros (
  GRUPO INTEGER NOT NULL, ADDR INTEGER NOT NULL, EJECUCION INTEGER DEFAULT 0,
  INTENCION REAL, SEC_INTENCION INTEGER DEFAULT 0, HECHO REAL, SEC_HECHO INTEGER DEFAULT 0,
  PRIMARY KEY (GRUPO, ADDR));
CREATE TABLE IF NOT EXISTS CerosParte (
  GRUPO INTEGER NOT NULL, ADDR INTEGER NOT NULL, CONJUNTO INTEGER NOT NULL, EJECUCION INTEGER DEFAULT 0,
  INTENCION REAL, SEC_INTENCION INTEGER DEFAULT 0, TOTAL INTEGER,
  HECHO REAL, SEC_HECHO INTEGER DEFAULT 0, QUITADO INTEGER,
  PRIMARY KEY (GRUPO, ADDR, CONJUNTO));
CREATE TABLE IF NOT EXISTS Origenes (
  LINK INTEGER NOT NULL, GRUPO INTEGER NOT NULL, CLASE INTEGER NOT NULL, EJECUCION INTEGER, LEIDO REAL,
  DESDE REAL, HASTA REAL, MODO TEXT, FILAS INTEGER, CON INTEGER, IMP INTEGER);
CREATE INDEX IF NOT EXISTS Origenes_Link ON Origenes (LINK, GRUPO, CLASE);
)";

// Each kind of a half zeroed register separately, and doubtful machines. An earlier version assumed
// that the first frame clears the articles, and the second the grand total and the departments.
constexpr QStringView kGuionDudas =
    uR"(
CREATE TABLE IF NOT EXISTS CerosClase (
  GRUPO INTEGER NOT NULL, ADDR INTEGER NOT NULL, CLASE INTEGER NOT NULL, DUDA INTEGER DEFAULT 0, QUITADO INTEGER DEFAULT 0,
  PRIMARY KEY (GRUPO, ADDR, CLASE));
CREATE TABLE IF NOT EXISTS Dudas (
  GRUPO INTEGER NOT NULL, ADDR INTEGER NOT NULL, CLASES TEXT, RESPUESTA INTEGER,
  DESDE REAL, IMP_SI INTEGER DEFAULT 0, IMP_NO INTEGER DEFAULT 0, PRIMARY KEY (GRUPO, ADDR));
INSERT OR IGNORE INTO CerosClase (GRUPO, ADDR, CLASE, DUDA, QUITADO)
  SELECT p.GRUPO, p.ADDR, l.CLASE, h.CONJUNTO IS NULL, CASE WHEN h.CONJUNTO IS NULL THEN 0 ELSE h.QUITADO END
  FROM CerosParte p JOIN Lecturas l ON l.GRUPO=p.GRUPO LEFT JOIN CerosParte h ON h.GRUPO=p.GRUPO AND h.ADDR=p.ADDR
    AND h.SEC_HECHO>0 AND h.CONJUNTO=CASE l.CLASE WHEN 16 THEN 1 WHEN 17 THEN 2 WHEN 19 THEN 2 ELSE 3 END;
)";

constexpr QStringView kGuionOlvidos =
    uR"(
CREATE TABLE IF NOT EXISTS Olvidos (
  GRUPO INTEGER PRIMARY KEY, EJECUCION INTEGER DEFAULT 0, SEC INTEGER DEFAULT 0);
)";

constexpr QStringView kGuionConfirmados =
    uR"(
CREATE TABLE IF NOT EXISTS CeroFilas (
  GRUPO INTEGER NOT NULL, CLASE INTEGER NOT NULL, ADDR INTEGER NOT NULL, CODI INTEGER NOT NULL,
  HORA INTEGER NOT NULL, CON INTEGER, PES INTEGER, IMP INTEGER, SCO INTEGER,
  PRIMARY KEY (GRUPO, CLASE, ADDR, CODI, HORA));
)";

constexpr QStringView kGuionBajas =
    uR"(
CREATE TABLE IF NOT EXISTS Bajas (
  GRUPO INTEGER NOT NULL, ADDR INTEGER NOT NULL, CLASE INTEGER NOT NULL, SEC INTEGER DEFAULT 0,
  PRIMARY KEY (GRUPO, ADDR, CLASE));
)";

// A group that comes back has its memorised counters again: they are no deleted group's any more.
constexpr QStringView kGuionVuelta =
    uR"(
CREATE TRIGGER IF NOT EXISTS [Lecturas.Vuelve] AFTER INSERT ON Lecturas WHEN NEW.GRUPO>=0 AND NEW.LINK IS NOT NULL AND EXISTS (SELECT 1 FROM Lecturas WHERE GRUPO<0 AND CLASE=NEW.CLASE AND BASE_ACCESO=NEW.BASE_ACCESO AND BASE_HASTA IS NEW.BASE_HASTA) BEGIN DELETE FROM BaseFilas WHERE CLASE=NEW.CLASE AND GRUPO IN (SELECT GRUPO FROM Lecturas WHERE GRUPO<0 AND CLASE=NEW.CLASE AND BASE_ACCESO=NEW.BASE_ACCESO AND BASE_HASTA IS NEW.BASE_HASTA); DELETE FROM Lecturas WHERE GRUPO<0 AND CLASE=NEW.CLASE AND BASE_ACCESO=NEW.BASE_ACCESO AND BASE_HASTA IS NEW.BASE_HASTA; END;
)";

}  // namespace

dao::TablasDeSala tablasLibros() {
  return {.sala = QStringLiteral("libros"),
          .pasos = {{1, kGuionLibros.toString()},
                    dao::columna(2, QStringLiteral("Lecturas"), QStringLiteral("AJUSTE"),
                                 QStringLiteral("INTEGER DEFAULT 0")),
                    {3, kGuionDudas.toString()},
                    {4, kGuionOlvidos.toString()},
                    dao::columna(5, QStringLiteral("Lecturas"), QStringLiteral("ANTES"),
                                 QStringLiteral("INTEGER DEFAULT 0")),
                    {6, kGuionConfirmados.toString()},
                    dao::columna(7, QStringLiteral("Ceros"), QStringLiteral("VISTO"),
                                 QStringLiteral("INTEGER DEFAULT 0")),
                    {8, kGuionBajas.toString()},
                    dao::columna(9, QStringLiteral("Lecturas"), QStringLiteral("BASE_SEC"),
                                 QStringLiteral("INTEGER DEFAULT 0")),
                    dao::columna(10, QStringLiteral("Lecturas"), QStringLiteral("BASE_ANTIGUA"),
                                 QStringLiteral("REAL")),
                    dao::columna(11, QStringLiteral("Lecturas"), QStringLiteral("ACCESO"),
                                 QStringLiteral("TEXT")),
                    dao::columna(12, QStringLiteral("Lecturas"), QStringLiteral("BASE_ACCESO"),
                                 QStringLiteral("TEXT")),
                    dao::columna(13, QStringLiteral("Dudas"), QStringLiteral("DE"),
                                 QStringLiteral("INTEGER")),
                    {14, kGuionVuelta.toString()}},
          .copias = {{QStringLiteral("BaseFilas"), QStringLiteral("LectFilas")},
                     {QStringLiteral("CeroFilas"), QStringLiteral("LectFilas")}},
          .insustituible = true};
}

Resultado<> asegurarTablasLibros(dao::Database& db) {
  return dao::darPasos(db, {tablasLibros()});
}

Resultado<dao::Valor> EstadoBase::leer(const QString& clave) {
  return db_.uno(u"SELECT VALOR FROM EstadoTarvo WHERE CLAVE=?", clave);
}

Resultado<> EstadoBase::poner(const QString& clave, const dao::Valor& valor) {
  TARVO_INTENTAR(
      db_.ejecutar(u"INSERT INTO EstadoTarvo (CLAVE, VALOR) VALUES (?, ?) "
                   u"ON CONFLICT (CLAVE) DO UPDATE SET VALOR=excluded.VALOR",
                   clave, valor));
  return {};
}

Resultado<qint64> EstadoBase::siguienteSecuencia() {
  TARVO_TOMAR(const auto actual, leer(QStringLiteral("Secuencia")));
  const qint64 n = actual.entero() + 1;
  TARVO_INTENTAR(poner(QStringLiteral("Secuencia"), n));
  return n;
}

}  // namespace tarvo::totals
