// Periods to .EXP files and back. Layouts: docs/formatos.md. A block is in the file whole or not at
// all: it counts once it is on disk, and the remains of one left by a dead program are cut off.
#pragma once

#include <QIODevice>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "totals/intercambio/Entregados.h"
#include "totals/periodos/Periodos.h"

namespace tarvo::totals {

struct OpcionesExport {
  bool corto = false;   // the 42-character layout
  bool borrar = false;  // delete each period once its block is on disk
};

class XporTot {
 public:
  explicit XporTot(Periodos& periodos);

  // Exports the periods in order into HomeDir/nombre (".EXP" added to a name without a dot), after
  // what the file holds; a file that is not an export of periods (the database, a process), or
  // whose end was cut off, is an Error and stays as it is. False when the first period is missing.
  // A value that doesn't fit its column stops the whole export with an Error naming the period and
  // the row, and nothing is written. An export interrupted between the file and the database is
  // recognised (table Exportes, by `marca`) and not written twice; `marca` empty: no such check.
  // REQUIRES that no transaction is open: the note must be on disk before the file changes.
  // A period of which anything else is still owed is not deleted: that is noted (Entregados), and
  // without a mark it is an Error, Restriccion, with everything exported. Without a mark it is a
  // person's, and pays what is owed of the periods to that file, in one transaction with the
  // blocks. With a mark the caller does that.
  Resultado<bool> XportRemoto(const std::vector<qint64>& periodos, const OpcionesExport& como,
                              const QString& nombre, const QString& marca);
  // The bytes of one block, piece by piece: two header lines and the rows. An Error from `recibe`
  // ends it.
  using Recibe = std::function<Resultado<>(const QByteArray&)>;
  Resultado<> bloque(const Columna& periodo, bool corto, const Recibe& recibe);
  // Cuts off what a dead program left half written, in any file. For the start; an export does so
  // for its own file. Returns sentences about files that may have been left so and are not touched,
  // because they may be another database's.
  Resultado<QStringList> recuperar();
  // Empty for a name that can't be a file's.
  QString rutaDestino(const QString& nombre) const;
  // The file as it is kept in the database, and back.
  QString anotada(const QString& ruta) const;
  QString fichero(const QString& anotada) const;
  // An export of this mark is in its file and in the database.
  Resultado<bool> terminado(const QString& marca);
  // A sentence where the file has a block of a deleted period with the dates of this one, else
  // empty.
  Resultado<QString> otroBloque(qint64 link, const QString& ruta);
  // A sentence naming the groups whose sales in these periods this shop couldn't read back from the
  // short layout; empty if there are none.
  Resultado<QString> noVolverian(const std::vector<qint64>& periodos);
  Entregados entregados() { return Entregados(p_); }

 private:
  struct Avance {
    bool escrito = false, terminado = false;
  };
  Resultado<Avance> avanceDe(const QString& marca);
  Resultado<> lineasDe(const ClaseTotal& c, const Columna& periodo, bool corto,
                       const Recibe& recibe);
  Resultado<qint64> largoDe(const Columna& periodo, bool corto);
  Resultado<std::optional<std::vector<Columna>>> columnas(const std::vector<qint64>& links);
  Resultado<> escribir(const QString& ruta, const std::vector<Columna>& periodos, bool corto,
                       const QString& marca, const std::function<Resultado<>()>& alContar = {});
  Resultado<> exportarAMano(const std::vector<Columna>& periodos, const OpcionesExport& como,
                            const QString& ruta);
  Resultado<> pagar(qint64 link, const QStringList& rutas);
  Resultado<QStringList> borrarEntregado(qint64 link, const QStringList& salvo);
  Resultado<> terminar(const std::vector<qint64>& links, bool borrar, const QString& marca,
                       const QString& ruta);

  dao::Database& db_;
  Periodos& p_;
  const Ajustes& a_;
};

enum class SiExiste { Borrarlo, Acumularlo };

// A file of blocks, read one block at a time, so that a person can look at each before it is
// imported.
class Importacion;

// Reads a file block by block. Each block is one transaction: a bad line undoes its block and is
// reported by number. An existing period is emptied first (it loses its marks, as a replaced one
// does) or added to, along with larger periods and stock.
class ImpTot {
 public:
  explicit ImpTot(Periodos& periodos);
  struct Hecho {
    qint64 link;
    Periodo periodo;
    int lineas;
    // Short lines of operators and departments taken for another system's, though columns 3-4 may
    // be a group that this shop had: then their sales are under another group.
    int supuestas = 0;
  };
  // The number of blocks imported. On an Error those before the bad one stay imported (in
  // `hechos`).
  Resultado<> importar(const QString& ruta, SiExiste siExiste, std::vector<Hecho>& hechos);
  // The same for bytes in memory; `nombre` appears in errors.
  Resultado<> importarBytes(const QByteArray& bytes, const QString& nombre, SiExiste siExiste,
                            std::vector<Hecho>& hechos);

 private:
  friend class Importacion;
  Resultado<> importarTodo(Importacion& fichero, SiExiste siExiste, std::vector<Hecho>& hechos);
  Periodo periodoDe(Fecha desde, Fecha hasta) const;
  Resultado<qint64> destino(const Periodo& p, const QString& descr, SiExiste siExiste);

  dao::Database& db_;
  Periodos& p_;
  const Ajustes& a_;
};

class Importacion {
 public:
  // `nombre` appears in errors. REQUIRES that `motor` outlives it and that the device is open.
  Importacion(ImpTot& motor, std::unique_ptr<QIODevice> fichero, const QString& nombre);
  static std::unique_ptr<Importacion> deBytes(ImpTot& motor, const QByteArray& bytes,
                                              const QString& nombre);
  // From a file; an error when it can't be read.
  static Resultado<std::unique_ptr<Importacion>> abrir(ImpTot& motor, const QString& ruta);
  ~Importacion();

  struct Bloque {
    Periodo periodo;
    QString comentario;
    std::optional<Columna> existente;  // the period with those dates, if there is one
  };
  // Reads the header of the next block; nothing at the end of the file.
  Resultado<std::optional<Bloque>> siguiente();
  // What a block is at: emptying the period that exists, reading its lines.
  enum class Fase { Borrando, Leyendo };
  using AlCambiarFase = std::function<void(Fase)>;
  // Imports the block whose header was read, in one transaction.
  Resultado<ImpTot::Hecho> incorporar(SiExiste siExiste, const AlCambiarFase& fase = {});
  qint64 leidos() const;  // bytes
  qint64 tamano() const;

 private:
  struct Interior;
  std::unique_ptr<Interior> d;
};

}  // namespace tarvo::totals
