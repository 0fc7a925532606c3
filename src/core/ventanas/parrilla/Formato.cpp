#include "core/ventanas/parrilla/Columna.h"

#include <algorithm>
#include <cmath>

#include "core/dinero/Dinero.h"
#include "core/textos/Textos.h"
#include "core/ventanas/TextosVentanas.h"

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

bool empiezaCelda(const Columna& columna, QChar tecla) {
  const bool cifras = esNumerica(columna.clase) || columna.clase == Clase::Codigo;
  return !cifras || !(tecla.isLetter() || tecla.isSpace());
}

std::optional<QString> malEscrito(const Columna& columna, const QString& texto,
                                  const Textos& textos) {
  const auto soloDe = [&texto](QStringView signos) {
    return std::ranges::all_of(
        texto, [signos](QChar c) { return (c >= u'0' && c <= u'9') || signos.contains(c); });
  };
  if (columna.clase == Clase::Codigo && !soloDe({})) return textos(kTxNoSonCifras, {texto});
  if (columna.clase == Clase::Entero && !soloDe(u".")) return textos(kTxNoSonCifras, {texto});
  if (columna.clase == Clase::Porcentaje && !soloDe(u".,% ")) return textos(kTxNoEsTanto, {texto});
  if (columna.largo > 0 && texto.size() > columna.largo)
    return textos(kTxSobranLetras, {columna.largo, static_cast<int>(texto.size())});
  return std::nullopt;
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
      return VerCantidad(ajustes_->idioma, valor.entero(), 2);
    case Clase::Importe:
      return VerImporte(*ajustes_, valor.entero(), moneda_);
    case Clase::Cantidad:
      return VerCantidad(ajustes_->idioma, valor.entero(), cada);
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
