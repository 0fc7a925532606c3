// What is written into the cells of the list, and into the prices beside it.
#include "articles/TextosArticles.h"
#include "articles/ventanas/BrowPLUs.h"
#include "articles/ventanas/ComunArticulos.h"
#include "articles/ventanas/TextosArticulosVentanas.h"
#include "core/ventanas/marco/Tira.h"

namespace tarvo::articles {

using namespace Qt::StringLiterals;

Error BrowPLUs::incorrecto(int nombre) const {
  return {Fallo::Formato, 0, t(kTxValorIncorrecto) + u": "_s + t(nombre)};
}

// `callado`: a change of a system article is taken back without a word.
Resultado<> BrowPLUs::escribir(qint64 fila, bool callado, const Cambio& cambio) {
  const ClaveArticulo clave{seccion_, ui_.Grid->valor(ui_.Grid->filaDe(fila), u"CODPLU").entero()};
  if (clave.deSistema()) {
    if (!callado) decirDuda(t(kTxIntocables));
    return {};
  }
  TARVO_TOMAR(auto articulo, catalogo_.leer(clave));
  if (!articulo) return fallo(Fallo::NoExiste, t(kTxArticuloBorrado));
  TARVO_INTENTAR(cambio(*articulo));
  const auto hecho = catalogo_.modificar(clave, *articulo, nombre());
  if (!hecho) return std::unexpected(informe(*this, hecho.error()));
  return {};
}

Resultado<> BrowPLUs::ponerCodigo(qint64 fila, const QString& texto) {
  return escribir(fila, false, [&](Articulo& a) -> Resultado<> {
    a.clave.codigo = texto.toLongLong();
    if (a.clave.deSistema() || a.clave.codigo > kUltimoCodigo)
      return std::unexpected(incorrecto(kTxCodigoPLU));
    return {};
  });
}

Resultado<> BrowPLUs::ponerEntero(qint64 fila, const QString& texto, int Articulo::* campo,
                                  int mayor, int nombre) {
  const bool esDepto = campo == &Articulo::depto;
  const int n = texto.toInt();
  TARVO_INTENTAR(escribir(fila, esDepto, [&](Articulo& a) -> Resultado<> {
    if (n < 1 || n > mayor) return std::unexpected(incorrecto(nombre));
    a.*campo = n;
    return {};
  }));
  if (esDepto && ui_.Grid->valor(ui_.Grid->filaDe(fila), u"CODPLU").entero() >= kPrimerCodigo)
    avisarDepartamento(n);
  return {};
}

// Any number of the range is taken; one that the section lacks deserves a word.
void BrowPLUs::avisarDepartamento(int departamento) {
  const auto hay = contexto().db.uno(u"SELECT NUMDEP FROM DEPTS WHERE SECCION=? AND NUMDEP=?",
                                     seccion_, departamento);
  if (!haIdoBien(hay)) return;
  if (hay->nulo()) return decirDuda(t(kTxSinEseDepartamento).arg(departamento));
  if (tira().estado() == ventanas::Estado::Duda) tira().quitar();
}

// Its row may be elsewhere in the order now; the pointer stays on its article.
void BrowPLUs::celdaEscrita(int columna) {
  const auto* modelo = ui_.Grid->modelo();
  const bool ordena = columna == modelo->columna(ui_.ModoNom->isChecked() ? u"NOMPLU" : u"CODPLU");
  if (ordena) return refrescar();
  cambios_ = contexto().db.cambios();
  actualCambiada();
}

Resultado<> BrowPLUs::CambioPrecios(const Precios& precios) {
  const auto hecho = catalogo_.ponerPrecios(actual(), precios, nombre());
  if (!hecho) return std::unexpected(informe(*this, hecho.error()));
  ui_.Grid->modelo()->releer(ui_.Grid->filaActual());
  cambios_ = contexto().db.cambios();
  return {};
}

}  // namespace tarvo::articles
