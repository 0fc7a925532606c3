// An export's addition to the end of its file: whole and on disk, or not there. The file's earlier
// length is noted first (table ExportesAbiertos), so that after a crash the next program cuts the
// file back to it. Internal to the room.
#pragma once

#include <QCryptographicHash>
#include <memory>
#include <optional>

#include "core/ajustes/Ajustes.h"
#include "core/ajustes/Creciente.h"
#include "core/dao/Database.h"
#include "core/textos/Textos.h"

namespace tarvo::totals {

class Anadidura {
 public:
  // `largo` bytes are to come, the first of them `cabeza`. An Error when the file exists and is not
  // an export of periods, or doesn't end as one does, or can't be written; it stays as it is.
  // REQUIRES that no transaction is open.
  static Resultado<std::unique_ptr<Anadidura>> empezar(dao::Database& db, const QString& ruta,
                                                       qint64 largo, QByteArray cabeza,
                                                       const Ajustes& ajustes,
                                                       const Textos& textos);
  // Removes what was added, unless it was counted.
  ~Anadidura();
  Anadidura(const Anadidura&) = delete;

  Resultado<> escribir(QByteArrayView bytes);
  // What the file holds now, for `estaEn` to recognise.
  struct Sitio {
    qint64 desde = 0, hasta = 0;
    QString huella;
  };
  // Puts everything on disk. It counts once `contada` has been called, in the transaction that
  // records it, and that has been committed.
  Resultado<Sitio> asegurar();
  Resultado<> contada();  // REQUIRES a transaction
  void confirmada() { cuenta_ = true; }

  // Whether a file holds it; false for a missing file.
  static Resultado<bool> estaEn(const QString& ruta, const Sitio& sitio);
  // Cuts back what a dead program left half done in any file, or in one. A file that can't be
  // reached or is being written stays noted; one that has been replaced since is left alone.
  static Resultado<> recuperar(dao::Database& db, const std::optional<QString>& ruta = {});

 private:
  Anadidura(dao::Database& db, const QString& ruta, ficheros::Creciente fichero, qint64 antes,
            qint64 tope, QByteArray cabeza);
  Resultado<> volcar();
  void deshacer();

  dao::Database& db_;
  QString ruta_;
  ficheros::Creciente fichero_;
  qint64 antes_;  // -1: there was no file
  qint64 tope_, escrito_ = 0;
  QByteArray cabeza_, espera_;
  QCryptographicHash huella_{QCryptographicHash::Sha256};
  bool cuenta_ = false;
};

}  // namespace tarvo::totals
