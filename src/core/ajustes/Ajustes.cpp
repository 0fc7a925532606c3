#include "core/ajustes/Ajustes.h"

#include "core/ajustes/ClavesComunes.h"
#include "core/ajustes/Ficheros.h"

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

Ajustes::Ajustes(QString laCarpeta, Idioma elIdioma, const std::vector<SalaDeAjustes>& salas)
    : carpeta(std::move(laCarpeta)),
      idioma(elIdioma),
      clases(LimitesClases::de(elIdioma)),
      HomeDir(carpeta),
      BaseDatos(ruta(QStringLiteral("TARVO.MDB"), carpeta)),
      claves_(clavesComunes()) {
  for (const SalaDeAjustes& sala : salas) ponerSala(sala);
  ordenarClaves();
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
  if (!bytes && bytes.error().clase != Fallo::NoExiste) return std::unexpected(bytes.error());
  const QString texto = bytes ? ficheros::descodificar(*bytes) : QString();
  if (bytes) leer(texto);
  Renglones nuestros = renglones();
  ultimo_ = {.bytes = bytes.value_or(QByteArray()),
             .delFichero = losDelTexto(nuestros, texto),
             .nuestros = std::move(nuestros)};
  return {};
}

Resultado<> Ajustes::GuardarConfig() {
  const auto viejo = ficheros::leerBytes(rutaConfig(), kMayorIni);
  std::vector<Pisada> perdidas;
  Renglones ahora = renglones();
  Renglones todos = viejo && ultimo_ ? juntar(ahora, delFichero(*viejo), perdidas) : ahora;
  QByteArray nuevo = ficheros::codificar(componer(todos));
  if (!viejo || *viejo != nuevo) TARVO_INTENTAR(ficheros::escribirEntero(rutaConfig(), nuevo));
  pisadas.insert(pisadas.end(), perdidas.begin(), perdidas.end());
  ultimo_ = {
      .bytes = std::move(nuevo), .delFichero = std::move(todos), .nuestros = std::move(ahora)};
  return {};
}

QStringList Ajustes::cambiadosFuera() const {
  const auto bytes = ficheros::leerBytes(rutaConfig(), kMayorIni);
  return bytes && ultimo_ ? ajenos(delFichero(*bytes)) : QStringList();
}

bool Ajustes::sigueIgual() const {
  const auto bytes = ficheros::leerBytes(rutaConfig(), kMayorIni);
  return bytes && ultimo_ && *bytes == ultimo_->bytes;
}

}  // namespace tarvo
