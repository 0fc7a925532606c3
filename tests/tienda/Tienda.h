// The one shop of the tests: rows of the real tables, one word each, and what the tables hold
// after.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>

#include "core/dao/Database.h"

namespace tarvo::prueba {

// The value of a result that must be well.
template <class T>
T bien(Resultado<T> r) {
  EXPECT_TRUE(r.has_value()) << (r ? "" : r.error().texto.toStdString());
  if constexpr (!std::is_void_v<T>) return r ? std::move(*r) : T{};
}

// A moment as people write it: "05/06/2018 22:15:00".
inline Fecha momento(const char* texto) {
  return *Fecha::leer(QString::fromUtf8(texto));
}

// Words that make rows can be chained. A field that isn't said is what its table gives by itself.
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

  // Departments, articles, groups... that follow are of this section; of 1 until one is named. A
  // section or a warehouse that is there takes what is said.
  Tienda& seccion(int numero, const V& nombre = u"Carne", const V& ivas = {});
  Tienda& en(int seccion) { return seccion_ = seccion, *this; }
  Tienda& departamento(int numero, const V& nombre = u"Dep", const V& iva = {});
  Tienda& articulo(const UnArticulo& a);
  Tienda& almacen(int codigo, const V& nombre = u"Tienda");
  Tienda& grupo(const UnGrupo& g);
  Tienda& operador(int codigo, const V& nombre = u"Op");
  // The group holds the articles as they are here, or is to delete them.
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
  // All values of a query, rows parted by " | ", columns by a blank; "-" is Null.
  QString leer(const QString& texto);
  // The first value of a query, and the rows of a table.
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
