#include "core/ajustes/ClavesComunes.h"

#include <QFileInfo>
#include <algorithm>

#include "core/ajustes/Sala.h"

namespace tarvo {

namespace {

constexpr Limites kUnByte{0, 255};
constexpr Limites kEtiquetasLibres{21, 40};
constexpr int kLetrasLogo = 3;                             // always, in the file
constexpr double kMenorEuro = 0.01, kMayorEuro = 100'000;  // no currency is further from it

// Relative if it is inside the program's folder, under whatever name: a copied or moved folder
// takes all its files along.
QString rutaGuardada(const Ajustes& a, const QString& ruta) {
  const auto real = [](const QString& carpeta) {
    const QString canonica = QFileInfo(carpeta).canonicalFilePath();
    return canonica.isEmpty() ? carpeta : canonica;
  };
  const QString carpeta = real(a.carpeta);
  if (ruta.isEmpty()) return ruta;
  if (real(ruta) == carpeta) return QStringLiteral(".");
  const QFileInfo info(ruta);
  const QString dentro = real(info.path()) + u'/' + info.fileName();
  return dentro.startsWith(carpeta + u'/') ? dentro.mid(carpeta.size() + 1) : ruta;
}

template <QString Ajustes::* kCampo>
QString escribirRuta(const Ajustes& a, int, Idioma) {
  return rutaGuardada(a, a.*kCampo);
}

template <QString Ajustes::* kCampo>
bool leerRuta(Ajustes& a, int, const QString& v) {
  if (!v.isEmpty()) a.*kCampo = Ajustes::ruta(v, a.carpeta);
  return true;
}

// A shop that names its database has one: when it is missing, it has been lost or misspelt.
bool leerBase(Ajustes& a, int indice, const QString& v) {
  a.baseNombrada = a.baseNombrada || !v.isEmpty();
  return leerRuta<&Ajustes::BaseDatos>(a, indice, v);
}

// The only path that may be empty.
bool leerCopia(Ajustes& a, int, const QString& v) {
  a.CopiaSeguridad = v.isEmpty() ? v : Ajustes::ruta(v, a.carpeta);
  return true;
}

// The books are in the currency last used with the database, not in a guessed one.
bool leerNativa(Ajustes& a, int, const QString& v) {
  int leida = a.MonedaNativa;
  a.monedaLeida = ini::leerSiCabe(v, kUnByte, leida);
  if (a.monedaLeida) a.MonedaNativa = leida;
  return a.monedaLeida;
}

// The second may be missing.
bool leerLogos(QStringView v, std::array<QString, 2>& logos) {
  const auto leidos = ini::partes(v, u',');
  const auto largo = [](QStringView logo) { return logo.size() > kLetrasLogo; };
  if (leidos.size() > logos.size() || std::ranges::any_of(leidos, largo)) return false;
  logos = {leidos[0].toString(), leidos.size() > 1 ? leidos[1].toString() : QString()};
  return true;
}

// Prices are divided by it.
bool leerEuro(QStringView v, float& euro) {
  return ini::leerRealSi(v, [](double x) { return x >= kMenorEuro && x <= kMayorEuro; }, euro);
}

QString verLogos(const std::array<QString, 2>& logos) {
  return logos[0].leftJustified(kLetrasLogo) + u',' + logos[1].leftJustified(kLetrasLogo);
}

// A single has seven good digits; the rest is noise from its binary form.
QString verEuro(float euro) {
  return QString::number(QString::number(euro, 'g', 7).toDouble(), 'f', 6);
}

}  // namespace

std::vector<ClaveIni> clavesComunes() {
  const ClaveDe<Ajustes> claves[] = {
      {100, u"HomeDir", leerRuta<&Ajustes::HomeDir>, escribirRuta<&Ajustes::HomeDir>},
      {101, u"BaseDatos", leerBase, escribirRuta<&Ajustes::BaseDatos>},
      {102, u"CopiaSeguridad", leerCopia, escribirRuta<&Ajustes::CopiaSeguridad>},
      clave<&Ajustes::WhoAmI, ini::leerLimitado<kUnByte>>(200, u"WhoAmI"),
      {900, u"MonedaNativa", leerNativa,
       [](const Ajustes& a, int, Idioma) { return ini::verEntero(a.MonedaNativa); }},
      clave<&Ajustes::MonedaPreferente, ini::leerLimitado<kUnByte>>(901, u"MonedaPreferente"),
      clave<&Ajustes::MonedaLogo, leerLogos, verLogos>(902, u"MonedaLogo"),
      clave<&Ajustes::Euro, leerEuro, verEuro>(903, u"Euro"),
      clave<&Ajustes::OpcionesStockCompras, ini::leerPar<ini::kDe16>, ini::verPar>(
          908, u"OpcionesStockCompras"),
      {1100, u"TextoEtiquetas",
       [](Ajustes& a, int n, const QString& v) {
         return ini::leerTexto(v, a.TextoEtiquetas[static_cast<size_t>(n)]);
       },
       [](const Ajustes& a, int n, Idioma) { return a.TextoEtiquetas[static_cast<size_t>(n)]; },
       kEtiquetasLibres}};
  std::vector<ClaveIni> hechas;
  hechas.reserve(std::size(claves));
  for (const ClaveDe<Ajustes>& c : claves) hechas.push_back(claveIni(c));
  return hechas;
}

}  // namespace tarvo
