#include "articles/precios/AjustesPrecios.h"

#include "articles/Articulo.h"
#include "articles/precios/CalcPre.h"
#include "articles/precios/Limites.h"
#include "articles/precios/ParrillaRapida.h"
#include "core/ajustes/Sala.h"

namespace tarvo::precios {

namespace {

using Calculo = AjustesPrecios::CalculoPrecios;

constexpr Limites kModosIntro{0, 2}, kPreciosAlta{1, articles::kNiveles},
    kTarifasAlta{1, articles::kTarifas}, kRedondeos{0, kRedondeoMayor}, kMargenes = ini::kDe16;

bool leerCalculo(AjustesPrecios& a, int, const QString& v) {
  const auto partes = ini::partes(v, u'|');
  const auto leerDos = [&partes](size_t desde, Limites limites, bool& si, int& cuanto) {
    const auto numero = ini::numeroEntre(partes[desde + 1], limites);
    cuanto = numero.value_or(0);
    return ini::leerLogico(partes[desde], si) && numero.has_value();
  };
  if (partes.size() != 2 && partes.size() != 4) return false;
  Calculo c;
  c.conSegundo = partes.size() == 4;
  if (!leerDos(0, kRedondeos, c.a, c.b)) return false;
  if (c.conSegundo && !leerDos(2, kMargenes, c.c, c.d)) return false;
  a.calculoPrecios = c;
  return true;
}

bool leerParrilla(const QString& v, QString& campo) {
  if (!ParrillaRapida::esAjuste(v)) return false;
  return ini::leerMayusculas(v, campo);
}

// One that isn't of digits could not begin a code.
bool leerPrefijo(const QString& v, QString& campo) {
  const bool cifras = v.size() <= kPrefijoMayor && sonCifras(v);
  if (cifras) campo = v;
  return cifras;
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
            clave<&A::ParrillaRapida, leerParrilla, ini::verTexto>(1001, u"ParrillaRápida"),
            clave<&A::PrefijoCodigos, leerPrefijo, ini::verTexto>(1200, u"PrefijoCódigos"),
            clave<&A::NumPreciosAlta, ini::leerLimitado<kPreciosAlta>>(1201, u"NúmPreciosAlta"),
            clave<&A::NumTarifasAlta, ini::leerLimitado<kTarifasAlta>>(1202, u"NúmTarifasAlta")});
}

void confirmarCalculo(Ajustes& ajustes) {
  ajustes.confirmar(QStringLiteral("CalculoPrecios"));
}
void confirmarModo(Ajustes& ajustes) {
  ajustes.confirmar(QStringLiteral("ModoIntroRápido"));
}
void confirmarParrilla(Ajustes& ajustes) {
  ajustes.confirmar(QStringLiteral("ParrillaRápida"));
}
void confirmarAlta(Ajustes& ajustes) {
  confirmarParrilla(ajustes);
  for (const QStringView clave : {u"PrefijoCódigos", u"NúmPreciosAlta", u"NúmTarifasAlta"})
    ajustes.confirmar(clave.toString());
}

}  // namespace tarvo::precios
