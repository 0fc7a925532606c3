#include "articles/precios/AjustesPrecios.h"

#include "articles/Articulo.h"
#include "core/ajustes/Sala.h"

namespace tarvo::precios {

namespace {

using Calculo = AjustesPrecios::CalculoPrecios;

constexpr Limites kModosIntro{0, 2}, kPreciosAlta{1, articles::kNiveles},
    kTarifasAlta{1, articles::kTarifas};

bool leerCalculo(AjustesPrecios& a, int, const QString& v) {
  Calculo& c = a.calculoPrecios;
  bool bien = ini::leerLogico(ini::parte(v, u'|', 0), c.a);
  bien &= ini::leer16(ini::parte(v, u'|', 1), c.b);
  c.conSegundo = v.count(u'|') >= 3;
  c.c = false;
  c.d = 0;
  if (!c.conSegundo) return bien;
  bien &= ini::leerLogico(ini::parte(v, u'|', 2), c.c);
  return ini::leer16(ini::parte(v, u'|', 3), c.d) && bien;
}

QString escribirCalculo(const AjustesPrecios& a, int, Idioma idioma) {
  const Calculo& c = a.calculoPrecios;
  const QString primero = QStringLiteral("%1|%2").arg(ini::verLogico(c.a, idioma)).arg(c.b);
  if (!c.conSegundo) return primero;
  return QStringLiteral("%1|%2|%3").arg(primero, ini::verLogico(c.c, idioma)).arg(c.d);
}

}  // namespace

SalaDeAjustes ajustesPrecios() {
  using A = AjustesPrecios;
  return salaDeAjustes(
      A(), {{300, u"CalculoPrecios", leerCalculo, escribirCalculo},
            clave<&A::ModoIntroRapido, ini::leerLimitado<kModosIntro>>(1000, u"ModoIntroRápido"),
            clave<&A::ParrillaRapida, ini::leerMayusculas, ini::verTexto>(1001, u"ParrillaRápida"),
            clave<&A::PrefijoCodigos, ini::leerMayusculas, ini::verTexto>(1200, u"PrefijoCódigos"),
            clave<&A::NumPreciosAlta, ini::leerLimitado<kPreciosAlta>>(1201, u"NúmPreciosAlta"),
            clave<&A::NumTarifasAlta, ini::leerLimitado<kTarifasAlta>>(1202, u"NúmTarifasAlta")});
}

}  // namespace tarvo::precios
