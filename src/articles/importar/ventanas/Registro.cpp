#include "articles/importar/ventanas/Registro.h"

#include "articles/importar/ventanas/ImpPLUVentana.h"
#include "articles/importar/ventanas/ImpTablaVentana.h"
#include "articles/importar/ventanas/MainTvcVentana.h"

namespace tarvo::importar {

using namespace Qt::StringLiterals;
using ventanas::Contexto;

void registrarVentanasImportar(ventanas::Ventanas& v, articles::Catalogo& catalogo) {
  v.registrar(u"ImpPLU"_s, [&catalogo](Contexto& c, const QString& n) {
    return new ImpPLUVentana(c, n, catalogo);
  });
  v.registrar(u"ImpTabla"_s, [&catalogo](Contexto& c, const QString& n) {
    return new ImpTablaVentana(c, n, catalogo);
  });
  v.registrar(u"MainTvc"_s, [&catalogo](Contexto& c, const QString& n) {
    return new MainTvcVentana(c, n, catalogo);
  });
}

}  // namespace tarvo::importar
