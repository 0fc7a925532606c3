#include "core/dao/sqlite/Errores.h"

#include <sqlite3.h>

#include <cerrno>

namespace tarvo::dao {

namespace {

constexpr int kJetNoExiste = 3024, kJetDuplicado = 3022, kJetBloqueado = 3260, kJetSinMemoria = 7;

Error sinEspacio() {
  return {Fallo::DiscoLleno, SQLITE_FULL,
          QStringLiteral("El disco está lleno: libere espacio y repita la operación.")};
}

Error deEntradaSalida(int extendido, int sistema) {
  if (sistema == ENOSPC || sistema == EDQUOT || sistema == EFBIG ||
      extendido == SQLITE_IOERR_SHMSIZE)
    return sinEspacio();
  if (sistema == EROFS)
    return {Fallo::SoloLectura, extendido,
            QStringLiteral("El disco de la base de datos está protegido contra escritura.")};
  return {Fallo::Interno, extendido,
          QStringLiteral("El disco no responde al leer o escribir la base de datos: compruebe el "
                         "disco o la red.")};
}

Error deApertura(int extendido, int sistema, const QString& que) {
  if (sistema == ENOENT || sistema == ENOTDIR)
    return {Fallo::NoExiste, kJetNoExiste,
            QStringLiteral("No se encuentra la base de datos: %1").arg(que)};
  if (sistema == EROFS)
    return {Fallo::SoloLectura, extendido,
            QStringLiteral("El disco de la base de datos está protegido contra escritura.")};
  if (sistema == ENOSPC || sistema == EDQUOT) return sinEspacio();
  return {Fallo::SinPermiso, extendido,
          QStringLiteral("No hay permiso para abrir la base de datos: compruebe los permisos de %1")
              .arg(que)};
}

// An error without a message of its own: its number, the engine's text, and what it means here.
Error delMotor(Fallo clase, int numero, const QString& motor, const QString& aqui) {
  return {clase, numero, QStringLiteral("(%1)-%2. %3").arg(QString::number(numero), motor, aqui)};
}

Error deRegla(int extendido, const QString& motor) {
  switch (extendido) {
    case SQLITE_CONSTRAINT_UNIQUE:
    case SQLITE_CONSTRAINT_PRIMARYKEY:
    case SQLITE_CONSTRAINT_ROWID:
      return {Fallo::Duplicado, kJetDuplicado,
              QStringLiteral("El código de registro ya existe: No debe duplicarse")};
    case SQLITE_CONSTRAINT_FOREIGNKEY:
      return {Fallo::Restriccion, extendido,
              QStringLiteral(
                  "El registro depende de otro que no existe, o hay otros que dependen de él: "
                  "revise los códigos.")};
    default:
      return delMotor(Fallo::Restriccion, extendido, motor,
                      QStringLiteral("Un valor no es válido para la base de datos: corríjalo."));
  }
}

}  // namespace

Error errorDe(sqlite3* db, int codigo, const QString& que) {
  const int extendido =
      db && sqlite3_extended_errcode(db) != SQLITE_OK ? sqlite3_extended_errcode(db) : codigo;
  const QString motor = QString::fromUtf8(db ? sqlite3_errmsg(db) : sqlite3_errstr(codigo));
  const int sistema = db ? sqlite3_system_errno(db) : 0;
  switch (codigo & 0xFF) {
    case SQLITE_NOTADB:
      return {
          Fallo::NoEsBaseDatos, codigo,
          QStringLiteral(
              "El fichero no es una base de datos de TARVO: elija otro o restaure una copia (%1)")
              .arg(que)};
    case SQLITE_CORRUPT:
      return {Fallo::NoEsBaseDatos, codigo,
              QStringLiteral("La base de datos está dañada: restaure una copia de seguridad (%1)")
                  .arg(que)};
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return {Fallo::Ocupado, kJetBloqueado,
              QStringLiteral("La página de datos está bloqueada por otra máquina. Cierre el otro "
                             "programa o repita más tarde.")};
    case SQLITE_READONLY:
      return {Fallo::SoloLectura, extendido,
              QStringLiteral("La base de datos es de solo lectura: quite la protección del fichero "
                             "y de su carpeta.")};
    case SQLITE_FULL:
      return sinEspacio();
    case SQLITE_IOERR:
      return deEntradaSalida(extendido, sistema);
    case SQLITE_CANTOPEN:
      return deApertura(extendido, sistema, que);
    case SQLITE_PERM:
    case SQLITE_AUTH:
      return deApertura(extendido, EACCES, que);
    case SQLITE_CONSTRAINT:
      return deRegla(extendido, motor);
    case SQLITE_MISMATCH:
      return {Fallo::Restriccion, extendido,
              QStringLiteral("Un valor no es del tipo de su columna: corríjalo.")};
    case SQLITE_NOMEM:
      return {Fallo::Interno, kJetSinMemoria,
              QStringLiteral("Memoria insuficiente: Debe cerrar ventanas")};
    case SQLITE_ERROR:
      return delMotor(
          Fallo::Formato, extendido, motor,
          QStringLiteral("La base de datos no entiende la consulta: %1").arg(que).trimmed());
    default:
      return delMotor(Fallo::Interno, extendido, motor,
                      QStringLiteral("La base de datos ha fallado."));
  }
}

}  // namespace tarvo::dao
