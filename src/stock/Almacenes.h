// Warehouses and their six counters for each article. The stock is not stored: Inicial + Entrada +
// Compra
// - Salida - Venta
// - Merma, in grams or units by the article's CADA. Every operation is one transaction, or a
// savepoint of the caller's.
#pragma once

#include <array>
#include <optional>
#include <vector>

#include "core/dao/Database.h"
#include "core/textos/Textos.h"
#include "core/tiempo/Reloj.h"

namespace tarvo::stock {

class Almacen;

class ItmAlm {
 public:
  Resultado<> Init(dao::Database& db, int almacen, int seccion, qint64 codigo);
  int cada() const { return cada_; }
  qint64 Stock() const;
  enum Contador { Inicial, Entrada, Compra, Salida, Venta, Merma };
  qint64 contador(Contador c) const { return c_[c]; }
  // Written to the database first; the value in memory changes only if a row was affected.
  Resultado<> poner(Contador c, qint64 valor);
  // Sets Merma so that the stock becomes x.
  Resultado<> ponerStock(qint64 x);

 private:
  dao::Database* db_ = nullptr;
  int almacen_ = 0, seccion_ = 0, cada_ = 0;
  qint64 codigo_ = 0;
  std::array<qint64, 6> c_{};
};

class Almacenes {
 public:
  Almacenes(dao::Database& db, Reloj& reloj, const Textos& textos);

  // Called first: ensures that every group has a warehouse.
  Resultado<> asegurar();
  Resultado<std::optional<class Almacen>> almacen(int codigo);
  Resultado<int> Siguiente();
  // Nothing if the code or the name exists.
  Resultado<std::optional<class Almacen>> Nuevo(int codigo, const QString& nombre);
  Resultado<bool> Eliminar(int codigo);
  struct Fila {
    int CODALM;
    QString NOMALM;
    std::optional<Fecha> FCHINI, FCHREG;
  };
  Resultado<std::vector<Fila>> Lista();
  struct FilaStock {
    int seccion;
    qint64 codigo;
    QString nombre;
    int cada;
    qint64 stock;
    std::array<qint64, 6> contadores;
  };
  Resultado<std::vector<FilaStock>> ListaStock(int seccion, int vista, int orden);
  // Restriccion, naming the groups, if any with sales in a period lack a section or an existing
  // warehouse, without which their stock can't be moved.
  Resultado<> puedeDescontar(qint64 link);
  // Takes the article totals of a period off stock `veces` times (negative: puts them back) and
  // adds `veces` to its stkADO. False if the period is not stockable or doesn't exist.
  Resultado<bool> DescontarVenta(qint64 link, int veces);
  // The same for totals rows that no longer belong to a period: a query giving GRUPO, CODI, CON,
  // PES. No mark is touched. Totals of a group without a warehouse, or of deleted articles, have no
  // stock to move.
  Resultado<> descontarFilas(const QString& consulta, int veces);
  Resultado<std::optional<int>> CodigoAlmacen(const QString& nombre);

 private:
  friend class Almacen;
  dao::Database& db_;
  Reloj& reloj_;
  const Textos& textos_;
};

class Almacen {
 public:
  Almacen(dao::Database& db, Reloj& reloj, const Textos& textos, Almacenes::Fila fila);
  int Codigo() const;
  QString Nombre() const;
  std::optional<Fecha> FechaInicio() const, FechaRegulacion() const;
  Resultado<bool> ponerCodigo(int c);
  Resultado<bool> ponerNombre(const QString& nombre);
  Resultado<bool> ponerFechaInicio(std::optional<Fecha> f);
  Resultado<bool> ponerFechaRegulacion(std::optional<Fecha> f);
  Resultado<std::vector<int>> GruposInvolucrados(), PedidosInvolucrados(), AlbaranesInvolucrados();
  Resultado<bool> Inicializar(int modo);
  Resultado<bool> IncorporarAlbaran(qint64 numero, int modoCoste, bool quitar);
  Resultado<ItmAlm> Item(int seccion, qint64 codigo);
  Resultado<std::vector<Almacenes::FilaStock>> Lista(int seccion, int vista, int orden);

 private:
  dao::Database* db_;
  Reloj* reloj_;
  const Textos* textos_;
  Almacenes::Fila fila_;
};

}  // namespace tarvo::stock
