// Edits of cells in the list and in the prices beside it.
#include "articles/Limites.h"
#include "articles/TextosArticles.h"
#include "articles/ventanas/BrowPLUs.h"
#include "articles/ventanas/ComunArticulos.h"
#include "articles/ventanas/TextosArticulosVentanas.h"
#include "core/dinero/Dinero.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/marco/Tira.h"

namespace tarvo::articles {

using namespace Qt::StringLiterals;

Error BrowPLUs::incorrecto(int nombre, const QString& porQue) const {
  const QString frase = t(kTxValorIncorrecto) + u": "_s + t(nombre);
  return {Fallo::Formato, 0, porQue.isEmpty() ? frase : frase + u". "_s + porQue};
}

Resultado<> BrowPLUs::escribir(qint64 fila, const QString& campo, const Cambio& cambio,
                               bool callado) {
  const int sitio = ui_.Grid->filaDe(fila);
  const ClaveArticulo clave{seccion_, ui_.Grid->valor(sitio, u"CODPLU").entero()};
  if (clave.deSistema()) {
    if (!callado) decirDuda(t(kTxIntocables));
    return {};
  }
  TARVO_TOMAR(const auto antes, catalogo_.leer(clave));
  if (!antes) return fallo(Fallo::NoExiste, t(kTxArticuloBorrado));
  Articulo ahora = *antes;
  TARVO_INTENTAR(cambio(ahora));
  const auto hecho = catalogo_.modificar(clave, ahora, nombre());
  if (!hecho) return std::unexpected(informe(*this, hecho.error()));
  const auto* modelo = ui_.Grid->modelo();
  const int columna = modelo->columna(campo);
  const int titulo = modelo->columnas()[static_cast<size_t>(columna)].titulo;
  apuntar(t(ventanas::kTxCeldaDe).arg(t(titulo).trimmed(), modelo->texto(sitio, columna)), *antes,
          ahora);
  return {};
}

// Identified by the article, not by its row: the list may show other articles by then.
void BrowPLUs::apuntar(const QString& que, const Articulo& antes, const Articulo& ahora) {
  if (antes == ahora) return;
  const auto volver = [this, antes, ahora]() -> Resultado<Vuelto> {
    const auto hecho = catalogo_.volver(antes, ahora, nombre());
    if (!hecho) return std::unexpected(informe(*this, hecho.error()));
    refrescarEn({antes.clave.seccion, antes.clave.codigo});
    return Vuelto();
  };
  deshacer_->apuntar(que, volver, {.de = verCodigo(ahora.clave.codigo), .hay = [=, this] {
                                     return catalogo_.cambiadoDespues(antes, ahora);
                                   }});
  habilitar();
}

// What the complete editor saved can be taken back here.
void BrowPLUs::fichaGuardada(const FichaArticulo& antes, const FichaArticulo& ahora) {
  const auto volver = [this, antes, ahora]() -> Resultado<Vuelto> {
    const auto hecho = FichasArticulo(catalogo_).volver(antes, ahora, nombre());
    if (!hecho) return std::unexpected(informe(*this, hecho.error()));
    refrescarEn({antes.articulo.clave.seccion, antes.articulo.clave.codigo});
    return Vuelto();
  };
  const QString cual = verCodigo(ahora.articulo.clave.codigo);
  if (antes.nueva())
    deshacer_->apuntar(t(kTxAltaDe).arg(cual), volver);
  else
    deshacer_->apuntar(t(kTxFichaDe).arg(cual), volver, {.de = cual, .hay = [=, this] {
                                                           return catalogo_.cambiadoDespues(
                                                               antes.articulo, ahora.articulo);
                                                         }});
  habilitar();
}

Resultado<> BrowPLUs::ponerNombre(qint64 fila, const QString& texto) {
  return escribir(fila, u"NOMPLU"_s, [&](Articulo& a) -> Resultado<> {
    if (const auto mal = malNombre(texto.trimmed(), contexto().textos))
      return fallo(Fallo::Formato, *mal);
    a.nombre = texto.trimmed();
    return {};
  });
}

Resultado<> BrowPLUs::ponerCodigo(qint64 fila, const QString& texto) {
  return escribir(fila, u"CODPLU"_s, [&](Articulo& a) -> Resultado<> {
    a.clave.codigo = texto.toLongLong();
    if (a.clave.deSistema() || a.clave.codigo > kUltimoCodigo)
      return std::unexpected(incorrecto(kTxCodigoPLU));
    return {};
  });
}

Resultado<> BrowPLUs::ponerEntero(qint64 fila, const QString& texto, const QString& columna,
                                  int Articulo::* campo) {
  const bool esDepto = campo == &Articulo::depto;
  const qint64 n = texto.toLongLong();
  const auto poner = [&](Articulo& a) -> Resultado<> {
    const Textos& textos = contexto().textos;
    const int nombre = esDepto ? int{ventanas::kTxDepartamento} : int{kTxFormatoEtiquetas};
    if (const auto mal = esDepto ? malDepartamento(n, textos) : malFormato(n, textos))
      return std::unexpected(incorrecto(nombre, *mal));
    a.*campo = static_cast<int>(n);
    return {};
  };
  TARVO_INTENTAR(escribir(fila, columna, poner, esDepto));
  if (esDepto && ui_.Grid->valor(ui_.Grid->filaDe(fila), u"CODPLU").entero() >= kPrimerCodigo)
    avisarDepartamento(static_cast<int>(n));
  return {};
}

// Any number within the limits is accepted; one that isn't a department of the section causes a
// warning.
void BrowPLUs::avisarDepartamento(int departamento) {
  const auto hay = contexto().nombres.departamento(seccion_, departamento);
  if (!haIdoBien(hay)) return;
  if (!*hay) return decirDuda(t(kTxSinEseDepartamento).arg(departamento));
  if (tira().estado() == ventanas::Estado::Duda) tira().quitar();
}

bool BrowPLUs::ordena(int columna) const {
  return columna == ui_.Grid->modelo()->columna(ui_.ModoNom->isChecked() ? u"NOMPLU" : u"CODPLU");
}

// The position of the row may have changed; the article remains current.
void BrowPLUs::celdaEscrita(int columna) {
  if (ordena(columna)) return refrescar();
  cambios_ = contexto().base.cambios();
  actualCambiada();
}

Resultado<> BrowPLUs::CambioPrecios(const Precios& precios) {
  TARVO_TOMAR(const auto antes, catalogo_.leer(actual()));
  if (!antes) return fallo(Fallo::NoExiste, t(kTxArticuloBorrado));
  const auto hecho = catalogo_.ponerPrecios(actual(), precios, nombre());
  if (!hecho) return std::unexpected(informe(*this, hecho.error()));
  Articulo ahora = *antes;
  ahora.precios = precios;
  apuntar(precios_->queCambia(antes->precios, precios), *antes, ahora);
  ui_.Grid->modelo()->releer(ui_.Grid->filaActual());
  cambios_ = contexto().base.cambios();
  return {};
}

}  // namespace tarvo::articles
