#include "core/ventanas/parrilla/Columna.h"

#include <algorithm>
#include <cmath>

#include "core/dinero/Dinero.h"
#include "core/textos/Textos.h"

namespace tarvo::ventanas {

using namespace Qt::StringLiterals;

namespace {

// Two decimals with a comma, as for money.
QString porcentaje(double x) {
  QString texto = QString::number(std::round(x * 100) / 100, 'f', 2);
  texto.replace(u'.', u',');
  return texto + u" %"_s;
}

}  // namespace

bool esNumerica(Clase clase) {
  return clase == Clase::Entero || clase == Clase::Importe || clase == Clase::Cantidad ||
         clase == Clase::Porcentaje;
}

bool seTeclea(const Columna& columna, const QString& texto) {
  if (columna.largo > 0 && texto.size() > columna.largo) return false;
  const auto de = [&](QStringView letras) {
    return std::ranges::all_of(texto, [&](QChar c) { return c.isDigit() || letras.contains(c); });
  };
  switch (columna.clase) {
    case Clase::Codigo:
      return de({}) && (columna.largo > 0 || columna.cifras == 0 || texto.size() <= columna.cifras);
    case Clase::Entero:
      return de(u".");
    case Clase::Importe:
    case Clase::Cantidad:
      return de(u".,-");
    case Clase::Porcentaje:
      return de(u".,% ");
    default:
      return true;
  }
}

QString Formato::ver(const Columna& columna, const dao::Valor& valor, int cada) const {
  if (columna.ver) return columna.ver(valor);
  if (valor.nulo()) return {};
  switch (columna.clase) {
    case Clase::Texto:
      return valor.texto();
    case Clase::Codigo:
      return columna.cifras > 0 ? Ceros(valor.entero(), columna.cifras) : valor.texto();
    case Clase::Entero:
      return VerCantidad(valor.entero(), 2);
    case Clase::Importe:
      return VerImporte(*ajustes_, valor.entero(), moneda_);
    case Clase::Cantidad:
      return VerCantidad(valor.entero(), cada);
    case Clase::Fecha:
      return valor.fecha().corta();
    case Clase::Hora:
      return valor.fecha().horaLarga();
    case Clase::Momento:
      return valor.fecha().general();
    case Clase::Porcentaje:
      return porcentaje(valor.esEntero() ? static_cast<double>(valor.entero()) / 100
                                         : valor.real());
    case Clase::SiNo:
      return siNo(valor.logico(), ajustes_->EsEspanol());
  }
  return {};
}

}  // namespace tarvo::ventanas
