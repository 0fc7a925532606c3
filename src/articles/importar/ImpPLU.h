// Imports a .PLU file into the catalogue, in slices. The changes are not due to the machines:
// imported articles reach them by a complete transmission. The whole run is one undoable batch.
#pragma once

#include <map>
#include <set>

#include "articles/Tanda.h"
#include "articles/importar/LineaPLU.h"
#include "articles/importar/Lineas.h"

namespace tarvo::importar {

enum class SiExiste { Sobreescribirlo, Conservarlo };

class ImpPLU {
 public:
  static constexpr int kLineasPorPaso = 250;

  // REQUIRES that the catalogue outlives it. Errors: those of leerFichero.
  static Resultado<std::unique_ptr<ImpPLU>> abrir(articles::Catalogo& catalogo,
                                                  const QString& ruta);
  ~ImpPLU();

  // The next lines, as one transaction: true while there is more to do. A store error not due to a
  // single line ends the run; what earlier steps imported stays.
  Resultado<bool> paso(SiExiste siExiste);
  // Closes the batch, however the run ended.
  Resultado<> acabar();

  struct Cuenta {
    int lineas = 0;  // read, including those in `malas`; empty ones don't count
    int nuevos = 0, sobreescritos = 0, conservados = 0;
    bool parado = false;  // the last of `malas` has the wrong length and stopped the run
    std::vector<LineaMala> malas;
  };
  const Cuenta& cuenta() const { return cuenta_; }
  const QString& ultimo() const { return ultimo_; }  // name of the last article written
  // The batch to undo; 0 when nothing was written.
  qint64 lote() const;
  qint64 leidos() const { return lineas_.leidos(); }
  qint64 tamano() const { return lineas_.tamano(); }

 private:
  ImpPLU(articles::Catalogo& catalogo, QByteArray bytes);
  using Registros = std::map<articles::ClaveArticulo, RegistroPLU>;
  Resultado<bool> linea(SiExiste siExiste, Registros& registros);
  Resultado<> escribir(const Registros& registros, SiExiste siExiste);
  Resultado<> leerSecciones();
  // Why a record is refused, in words; empty for a good one.
  QString falta(const RegistroPLU& r) const;
  QString motivo(const FaltaPLU& falta) const;

  dao::Database& db_;
  articles::Catalogo& catalogo_;
  articles::Lotes lotes_;
  articles::Tanda tanda_;
  Lineas lineas_;
  std::set<int> secciones_;
  Cuenta cuenta_;
  QString ultimo_;
  qint64 lote_ = 0;
};

}  // namespace tarvo::importar
