#include "articles/FichaArticulo.h"

#include "articles/TextosArticles.h"

namespace tarvo::articles {

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

}  // namespace tarvo::articles
