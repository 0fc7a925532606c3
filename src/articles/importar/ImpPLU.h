// A .PLU file into the catalogue, in slices. The machines don't hear of it: imported articles reach
// them by a complete transmission. The whole run is one batch, which can be undone.
#pragma once

#include "articles/Lotes.h"
#include "articles/importar/LineaPLU.h"
#include "articles/importar/Lineas.h"

namespace tarvo::importar {

enum class SiExiste { Sobreescribirlo, Conservarlo };

class ImpPLU {
 public:
  static constexpr int kLineasPorPaso = 800;

  // REQUIRES that the references outlive it. Errors: those of leerFichero.
  static Resultado<std::unique_ptr<ImpPLU>> abrir(dao::Database& db, articles::Catalogo& catalogo,
                                                  Reloj& reloj, const QString& ruta);
  ~ImpPLU();

  // The next lines, as one transaction: true while there is more to do. An error of the store that
  // is no matter of one line ends the run; what earlier steps brought stays.
  Resultado<bool> paso(SiExiste siExiste);
  // Closes the batch, when the run is over in whichever way.
  Resultado<> acabar();

  struct Cuenta {
    int lineas = 0;  // read, those in `malas` too; empty ones don't count
    int nuevos = 0, sobreescritos = 0, conservados = 0;
    bool parado = false;  // the last of `malas` has a wrong length and stopped the run
    std::vector<LineaMala> malas;
  };
  const Cuenta& cuenta() const { return cuenta_; }
  const QString& ultimo() const { return ultimo_; }  // name of the last article written
  // The batch to be undone; 0 when nothing was written.
  qint64 lote() const;
  qint64 leidos() const { return lineas_.leidos(); }
  qint64 tamano() const { return lineas_.tamano(); }

 private:
  struct Escritura;
  ImpPLU(dao::Database& db, articles::Catalogo& catalogo, Reloj& reloj, QByteArray bytes);
  Resultado<> empezar();
  Resultado<bool> linea(SiExiste siExiste);
  Resultado<> escribir(const RegistroPLU& r, SiExiste siExiste);
  Resultado<> anotarLlegada(const RegistroPLU& r);
  Resultado<> sobreescribir(const RegistroPLU& r);
  QString motivo(const FaltaPLU& falta) const;

  dao::Database& db_;
  articles::Catalogo& catalogo_;
  Reloj& reloj_;
  articles::Lotes lotes_;
  Lineas lineas_;
  Cuenta cuenta_;
  QString ultimo_;
  std::unique_ptr<Escritura> e_;
};

}  // namespace tarvo::importar
