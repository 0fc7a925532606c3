#include "articles/ventanas/ComunArticulos.h"

#include <QAction>

#include "articles/Limites.h"
#include "articles/ventanas/TextosArticulosVentanas.h"
#include "core/dinero/Dinero.h"
#include "core/ventanas/edicion/Tecleado.h"

namespace tarvo::articles {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kCantidadMayor = 2'000'000'000;

}  // namespace

QString verCodigo(qint64 codigo) {
  return Ceros(codigo, 7);
}

Error informe(const ventanas::Ventana& v, const Error& error) {
  return error.clase == Fallo::Duplicado ? Error{error.clase, error.numero, v.t(kTxDuplicado)}
                                         : error;
}

Resultado<qint64> leerPrecio(const ventanas::Ventana& v, const QString& texto, int moneda) {
  const auto& c = v.contexto();
  const auto precio = comoPrecio(texto, c.ajustes, moneda);
  if (!precio) return std::unexpected(errorDe(precio.error(), texto, c.ajustes, c.textos, moneda));
  return *precio;
}

Resultado<qint64> leerCantidad(const ventanas::Ventana& v, const QString& texto, int cada) {
  if (texto.trimmed().isEmpty()) return 0;
  const auto cantidad = LeerCantidad(v.contexto().ajustes.idioma, texto, cada);
  if (!cantidad || *cantidad < -kCantidadMayor || *cantidad > kCantidadMayor)
    return fallo(Fallo::Formato, v.t(kTxCantidadMala).arg(texto));
  TARVO_INTENTAR(ventanas::cantidadClara(v.contexto(), texto, cada));
  return *cantidad;
}

void permitir(QAction& accion, bool hay, const QString& siFalta) {
  accion.setEnabled(hay);
  if (!hay) accion.setToolTip(siFalta);
}

}  // namespace tarvo::articles
