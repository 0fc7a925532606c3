// Applies one row of a table to an article.
#pragma once

#include <QHash>
#include <expected>
#include <map>

#include "articles/importar/Campos.h"
#include "articles/importar/Numeros.h"
#include "core/ajustes/Ajustes.h"
#include "core/dao/Database.h"

namespace tarvo::importar {

// The person's choices before the rows are read.
struct Plan {
  Emparejado columnas;
  int primeraFila = 0;
  Signo signo = Signo::Coma;
  int seccion = 1;          // of rows without their own
  bool crearNuevos = true;  // otherwise unknown codes are left out
};

// The existing sections and departments.
class Departamentos {
 public:
  static Resultado<Departamentos> leer(dao::Database& db);
  bool haySeccion(int seccion) const { return deptos_.contains(seccion); }
  bool hay(int seccion, int depto) const;
  std::optional<int> porNombre(int seccion, const QString& nombre) const;
  std::optional<int> primero(int seccion) const;

 private:
  std::map<int, std::map<int, QString>> deptos_;  // names as sort keys
};

class Filas {
 public:
  // REQUIRES that all outlive it.
  Filas(const Tabla& tabla, const Plan& plan, const Departamentos& deptos, const Ajustes& ajustes,
        const Textos& textos);

  using Motivo = QString;
  // The key of a row's article.
  std::expected<articles::ClaveArticulo, Motivo> clave(int fila) const;
  // The article with the values of the row; an empty cell changes nothing. `nuevo`: it doesn't
  // exist yet.
  std::expected<articles::Articulo, Motivo> aplicar(int fila, articles::Articulo articulo,
                                                    bool nuevo) const;
  // Number of the row's amounts of money that have more decimals than the currency.
  int redondeados(int fila) const;

 private:
  const QString* celda(int fila, Campo campo) const;           // null when missing or empty
  std::optional<QString> importe(const QString& texto) const;  // with this language's decimal sign
  std::optional<Motivo> poner(articles::Articulo& a, Campo campo, const QString& texto) const;
  std::optional<Motivo> ponerEntero(int& donde, Campo campo, const QString& texto, int menor,
                                    int mayor) const;
  std::optional<Motivo> ponerImporte(qint64& donde, Campo campo, const QString& texto) const;
  std::optional<Motivo> ponerCantidad(qint64& donde, Campo campo, const QString& texto,
                                      int cada) const;
  std::optional<Motivo> ponerFormato(int& donde, const QString& texto) const;
  std::optional<Motivo> ponerDescuento(int& donde, const QString& texto) const;
  std::optional<Motivo> ponerDepto(articles::Articulo& a, const QString& texto) const;
  std::optional<Motivo> ponerPalabra(int& donde, Campo campo, const QString& texto, int palabras,
                                     int cuantas) const;
  std::optional<Motivo> ponerCifras(QString& donde, Campo campo, const QString& texto,
                                    qsizetype mayor) const;
  Motivo noVale(Campo campo, const QString& texto) const;
  std::optional<Motivo> faltaNueva(const articles::Articulo& antes,
                                   const articles::Articulo& ahora) const;

  const Tabla& tabla_;
  const Plan& plan_;
  const Departamentos& deptos_;
  const Ajustes& ajustes_;
  const Textos& t_;
  std::map<Campo, int> donde_;
};

// A field of an article as displayed.
QString verCampo(Campo campo, const articles::Articulo& articulo, const Ajustes& ajustes,
                 const Textos& textos);

}  // namespace tarvo::importar
