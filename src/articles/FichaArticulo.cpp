#include "articles/FichaArticulo.h"

#include <algorithm>
#include <array>

#include "articles/TextosArticles.h"

namespace tarvo::articles {

namespace {

// Whether the counters that the change wrote are still as it left them.
bool existenciasComo(std::span<const Existencia> hoy, std::span<const Existencia> antes,
                     std::span<const Existencia> ahora) {
  constexpr std::array kSuyos{&Existencia::inicial, &Existencia::compra, &Existencia::venta,
                              &Existencia::entrada, &Existencia::salida, &Existencia::merma};
  return std::ranges::all_of(ahora, [&](const Existencia& e) {
    const auto era = std::ranges::find(antes, e.almacen, &Existencia::almacen);
    const auto es = std::ranges::find(hoy, e.almacen, &Existencia::almacen);
    if (era == antes.end() || es == hoy.end()) return era == antes.end();
    return std::ranges::all_of(kSuyos, [&](const auto contador) {
      return (*era).*contador == e.*contador || (*es).*contador == e.*contador;
    });
  });
}

}  // namespace

Resultado<FichaArticulo> FichasArticulo::leer(ClaveArticulo clave, int departamento) {
  FichaArticulo f;
  f.articulo.clave = clave;
  f.articulo.depto = departamento;
  if (clave.codigo > 0) {
    TARVO_TOMAR(const auto hay, catalogo_.leer(clave));
    if (!hay) return fallo(Fallo::NoExiste, catalogo_.textos()(kTxArticuloBorrado));
    f.articulo = *hay;
  } else if (departamento == 0) {
    TARVO_TOMAR(const auto primero,
                db_.uno(u"SELECT min(NUMDEP) FROM DEPTS WHERE SECCION=?", clave.seccion));
    f.articulo.depto = static_cast<int>(primero.entero());
  }
  TARVO_TOMAR(f.existencias, leerExistencias(db_, clave));
  return f;
}

Resultado<bool> FichasArticulo::cambiada(const FichaArticulo& leida) {
  if (leida.nueva()) return false;
  TARVO_TOMAR(const auto ahora, catalogo_.leer(leida.articulo.clave));
  return ahora && *ahora != leida.articulo;
}

Resultado<> FichasArticulo::guardar(const FichaArticulo& leida, const FichaArticulo& ficha,
                                    const QString& ventana) {
  const Articulo& a = ficha.articulo;
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(db_));
  TARVO_INTENTAR(leida.nueva() ? catalogo_.crear(a, ventana)
                               : catalogo_.modificar(leida.articulo.clave, a, ventana));
  TARVO_INTENTAR(ponerExistencias(db_, a.clave, leida.existencias, ficha.existencias));
  return t.confirmar();
}

Resultado<> FichasArticulo::volver(const FichaArticulo& antes, const FichaArticulo& ahora,
                                   const QString& ventana) {
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(db_));
  TARVO_TOMAR(const auto hoy, leer(ahora.articulo.clave));
  const auto cambiado = [this] {
    return fallo(Fallo::Restriccion, catalogo_.textos()(kTxCambiadoDespues));
  };
  if (antes.nueva()) {
    if (hoy != ahora) return cambiado();
    TARVO_INTENTAR(catalogo_.borrar(std::array{ahora.articulo.clave}));
    return t.confirmar();
  }
  if (!existenciasComo(hoy.existencias, antes.existencias, ahora.existencias)) return cambiado();
  if (antes.articulo != ahora.articulo)
    TARVO_INTENTAR(catalogo_.volver(antes.articulo, ahora.articulo, ventana));
  TARVO_INTENTAR(ponerExistencias(db_, antes.articulo.clave, ahora.existencias, antes.existencias));
  return t.confirmar();
}

}  // namespace tarvo::articles
