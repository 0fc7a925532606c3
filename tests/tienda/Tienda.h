// The shop used by all tests: inserts rows of the real tables, one function per kind, and reads the
// contents of tables.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>

#include "core/dao/Database.h"

namespace tarvo::prueba {

// Returns the value of a result that must be a success.
template <class T>
T bien(Resultado<T> r) {
  EXPECT_TRUE(r.has_value()) << (r ? "" : r.error().texto.toStdString());
  if constexpr (!std::is_void_v<T>) return r ? std::move(*r) : T{};
}

// A moment in its written form: "05/06/2018 22:15:00".
inline Fecha momento(const char* texto) {
  return *Fecha::leer(QString::fromUtf8(texto));
}

// Functions that insert rows can be chained. An omitted field gets its table's default.
class Tienda {
 public:
  using V = dao::Valor;
  using Campos = std::vector<std::pair<const char16_t*, V>>;
  struct UnArticulo {
    V codigo = {}, nombre = u"A", depto = {}, precio = {}, coste = {}, cada = {}, barras = {};
    Campos mas = {};
  };
  struct UnGrupo {
    V codigo = {}, nombre = u"G", tipo = 1, almacen = {}, remoto = {}, acceso = {}, addr = {};
    Campos mas = {};
  };
  struct UnaOferta {
    V grupo = {}, codigo = {}, precio = {}, desde = {}, hasta = {}, enviado = {};
  };
  struct UnasExistencias {
    V almacen = 0, codigo = {}, inicial = {}, venta = {};
  };
  struct UnPeriodo {
    V link = {}, tipo = 1, desde = {}, hasta = {}, descr = {}, stkABLE = {};
  };
  struct UnTotal {
    V link = 0, grupo = 1, codi = {}, con = {}, pes = {}, imp = {}, sco = {}, hora = {};
  };

  virtual ~Tienda() = default;

  // Departments, articles, groups... inserted later belong to this section; to section 1 by
  // default. An existing section or warehouse is updated.
  Tienda& seccion(int numero, const V& nombre = u"Carne", const V& ivas = {});
  Tienda& en(int seccion) { return seccion_ = seccion, *this; }
  Tienda& departamento(int numero, const V& nombre = u"Dep", const V& iva = {});
  Tienda& articulo(const UnArticulo& a);
  Tienda& almacen(int codigo, const V& nombre = u"Tienda");
  Tienda& grupo(const UnGrupo& g);
  Tienda& operador(int codigo, const V& nombre = u"Op");
  // The group has these articles with their current data, or is to delete them.
  Tienda& cruce(int grupo, std::initializer_list<int> codigos, bool borra = false);
  Tienda& oferta(const UnaOferta& o);
  Tienda& existencias(const UnasExistencias& e);
  Tienda& periodo(const UnPeriodo& p);
  Tienda& total(const char16_t* tabla, const UnTotal& t);
  // Any other row; here a value may be Null.
  Tienda& fila(const char16_t* tabla, const Campos& campos);

  template <class... P>
  void sql(const QString& texto, const P&... p) {
    const auto r = base().ejecutar(texto, p...);
    EXPECT_TRUE(r) << texto.toStdString() << ": " << (r ? "" : r.error().texto.toStdString());
  }
  // All values of a query, rows separated by " | ", columns by a blank; "-" is Null.
  QString leer(const QString& texto);
  // The first value of a query; below, the number of rows of a table.
  template <class... P>
  dao::Valor uno(const QString& texto, const P&... p) {
    return bien(base().uno(texto, p...));
  }
  qint64 cuenta(const QString& tabla);

 protected:
  virtual dao::Database& base() = 0;

 private:
  void insertar(const char16_t* tabla, const Campos& campos);
  void insertarLoDicho(const char16_t* tabla, const Campos& campos, const Campos& mas = {});
  int seccion_ = 1;
};

}  // namespace tarvo::prueba
