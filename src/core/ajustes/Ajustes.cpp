#include "core/ajustes/Ajustes.h"

#include "core/ajustes/Ficheros.h"
#include "core/ajustes/Ini.h"

namespace tarvo {

namespace {

constexpr qint64 kMayorIni = 1024 * 1024;

struct MonedaLocal {
  const char16_t* logo;
  float euro;
  int decimales;
};

MonedaLocal monedaLocal(Idioma idioma) {
  switch (idioma) {
    case Idioma::Espanol:
      return {u"Pts", 166.386F, 0};
    case Idioma::I:
      return {u"Lir", 1936.27F, 0};
    case Idioma::F:
      return {u"  F", 6.55957F, 2};
    case Idioma::UK:
      return {u"Pnd", 1.0F, 2};
    case Idioma::PL:
      return {u"Zl", 1.0F, 2};
    case Idioma::P:
      break;
  }
  return {u"   ", 0, 0};
}

}  // namespace

LimitesClases LimitesClases::de(Idioma idioma) {
  if (idioma == Idioma::Espanol) return {};
  return {.ClaseTxMax = 8, .ClaseRxMax = 20, .ClaseDocMax = 21};
}

Ajustes::Ajustes(QString laCarpeta, Idioma elIdioma, Fecha ahora)
    : carpeta(std::move(laCarpeta)),
      idioma(elIdioma),
      clases(LimitesClases::de(elIdioma)),
      HomeDir(carpeta),
      BaseDatos(ruta(QStringLiteral("TARVO.MDB"), carpeta)),
      SesionHasta(ahora),
      SesionACero(ahora),
      InicioHorario(Fecha::deDias(8 / 24.0)),
      FinalHorario(Fecha::deDias(20 / 24.0)) {
  for (size_t i = 0; i < canales.size(); ++i) canales[i].Puerto = static_cast<int>(i) + 1;
  const MonedaLocal local = monedaLocal(idioma);
  MonedaLogo = {QString::fromUtf16(local.logo), QStringLiteral("Eur")};
  Euro = local.euro;
  decimalesLocal = local.decimales;
}

QString Ajustes::rutaConfig() const {
  return ruta(QStringLiteral("TARVO.INI"), carpeta);
}

Resultado<> Ajustes::LeerConfig() {
  const auto bytes = ficheros::leerBytes(rutaConfig(), kMayorIni);
  if (!bytes && bytes.error().clase == Fallo::NoExiste) return {};
  if (!bytes) return std::unexpected(bytes.error());
  leer(ficheros::descodificar(*bytes));
  return {};
}

Resultado<> Ajustes::GuardarConfig() const {
  const QByteArray nuevo = ficheros::codificar(escribir());
  if (const auto viejo = ficheros::leerBytes(rutaConfig(), kMayorIni); viejo && *viejo == nuevo)
    return {};
  return ficheros::escribirEntero(rutaConfig(), nuevo);
}

QString Ajustes::conector(const QString& nombre) const {
  const auto bytes =
      ficheros::leerBytes(ruta(QStringLiteral("CONECTORES.INI"), carpeta), kMayorIni);
  return bytes ? buscarConector(ficheros::descodificar(*bytes), nombre) : QString();
}

QString buscarConector(const QString& texto, const QString& nombre) {
  const QString buscado = nombre.trimmed().toUpper();
  QString hallado;
  if (buscado.isEmpty()) return hallado;
  // A name may contain brackets, so the whole key is compared.
  for (QStringView renglon : QStringView(texto).split(u'\n')) {
    const qsizetype igual = renglon.indexOf(u'=');
    if (igual < 0 || renglon.left(igual).trimmed().toString().toUpper() != buscado) continue;
    hallado = renglon.mid(igual + 1).trimmed().toString();
  }
  return hallado;
}

}  // namespace tarvo
