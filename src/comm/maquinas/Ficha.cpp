#include <algorithm>
#include <utility>

#include "comm/maquinas/Articulo.h"
#include "core/valores/Resultado.h"

namespace tarvo::maquinas {

namespace {

constexpr char kFinFicha = 19;
constexpr int kAnchoFijo = 89;

struct Sitio {
  CampoPLU campo;
  int inicio, ancho;  // from 1
  bool numero;
};

// Kinds 1 and 4; TEXTO_ETQ comes after, up to the end mark.
constexpr Sitio kSitios[] = {
    {CampoPLU::NomPLU, 1, 20, false},   {CampoPLU::CodPLU, 21, 7, true},
    {CampoPLU::Precio0, 28, 6, true},   {CampoPLU::cada, 34, 1, true},
    {CampoPLU::Formato, 35, 2, true},   {CampoPLU::BARRAS, 37, 1, false},
    {CampoPLU::PFX_BAR, 38, 7, true},   {CampoPLU::Depto, 45, 2, true},
    {CampoPLU::Tara, 47, 2, true},      {CampoPLU::NUMDIAS_1, 49, 5, true},
    {CampoPLU::NUMDIAS_2, 54, 5, true}, {CampoPLU::MDF_PRE, 59, 1, true},
    {CampoPLU::minimo, 60, 6, true},    {CampoPLU::DESCTO, 66, 2, true},
    {CampoPLU::HASTA_1, 68, 5, true},   {CampoPLU::Precio1, 73, 6, true},
    {CampoPLU::HASTA_2, 79, 5, true},   {CampoPLU::Precio2, 84, 6, true},
};

// Positions and widths of the prices in the record of each kind.
constexpr std::pair<int, int> kPreciosBalanza[] = {{28, 6}, {73, 6}, {84, 6}};
constexpr std::pair<int, int> kPreciosEbony[] = {{23, 8}};
constexpr std::pair<int, int> kPreciosCaja[] = {{34, 9}, {43, 9}};

constexpr std::span<const std::pair<int, int>> sitiosDePrecio(TipoGrupo tipo) {
  switch (tipo) {
    case TipoGrupo::Ebony:
      return kPreciosEbony;
    case TipoGrupo::Registradoras:
      return kPreciosCaja;
    case TipoGrupo::Balanzas:
    case TipoGrupo::Birch:
      return kPreciosBalanza;
  }
  std::unreachable();
}

size_t indice(CampoPLU campo) {
  return static_cast<size_t>(campo);
}

QByteArrayView sinBlancosDetras(QByteArrayView t) {
  while (!t.isEmpty() && t.back() == ' ') t.chop(1);
  return t;
}

// The number of a field, with blanks as 0; nothing if it is no number.
std::optional<qint64> numeroDe(QByteArrayView campo) {
  qint64 n = 0;
  for (const char c : campo.trimmed()) {
    if (c < '0' || c > '9') return {};
    n = n * 10 + (c - '0');
  }
  return n;
}

bool igualCampo(const Sitio& s, const QByteArray& una, const QByteArray& otra) {
  if (s.numero) {
    const auto a = numeroDe(una), b = numeroDe(otra);
    if (a && b) return *a == *b;
  }
  return sinBlancosDetras(una) == sinBlancosDetras(otra);
}

}  // namespace

QByteArray preciosDe(TipoGrupo tipo, const QByteArray& registro) {
  QByteArray precios;
  for (const auto& [inicio, ancho] : sitiosDePrecio(tipo))
    precios += registro.mid(inicio - 1, ancho);
  return precios;
}

QByteArray sinPrecios(TipoGrupo tipo, QByteArray registro) {
  for (const auto& [inicio, ancho] : sitiosDePrecio(tipo))
    std::fill_n(registro.begin() + inicio - 1, ancho, ' ');
  return registro;
}

Leido<qint64> codigoDeFicha(QByteArrayView registro) {
  Lector l(registro);
  return l.comprobado(l.numero(21, 7));
}

Leido<Ficha> leerFicha(QByteArrayView registro) {
  TARVO_TOMAR(const auto codigo, codigoDeFicha(registro));
  const qsizetype fin = registro.size() > kAnchoFijo ? registro.indexOf(kFinFicha, kAnchoFijo) : -1;
  if (fin < 0) return std::unexpected(RegistroMalo{RegistroMalo::Corto, registro.size(), {}});
  Ficha f;
  f.codigo = codigo;
  for (const Sitio& s : kSitios)
    f.campos[indice(s.campo)] = registro.sliced(s.inicio - 1, s.ancho).toByteArray();
  f.campos[indice(CampoPLU::TEXTO_ETQ)] =
      registro.sliced(kAnchoFijo, fin - kAnchoFijo).toByteArray();
  return f;
}

std::vector<CampoPLU> diferencias(const Ficha& una, const Ficha& otra) {
  std::vector<CampoPLU> salida;
  const auto mirar = [&](const Sitio& s) {
    if (!igualCampo(s, una.campo(s.campo), otra.campo(s.campo))) salida.push_back(s.campo);
  };
  for (const Sitio& s : kSitios) mirar(s);
  mirar({CampoPLU::TEXTO_ETQ, 0, 0, false});
  return salida;
}

bool mismaFicha(QByteArrayView una, QByteArrayView otra) {
  const auto a = leerFicha(una), b = leerFicha(otra);
  return a && b && diferencias(*a, *b).empty();
}

bool mismosPrecios(QByteArrayView registro, QByteArrayView soloPrecios) {
  const auto f = leerFicha(registro);
  if (!f || soloPrecios.size() != 25) return false;
  const CampoPLU campos[] = {CampoPLU::Precio0, CampoPLU::Precio1, CampoPLU::Precio2};
  for (qsizetype i = 0; i < 3; ++i)
    if (numeroDe(f->campo(campos[i])) != numeroDe(soloPrecios.sliced(7 + 6 * i, 6))) return false;
  return true;
}

}  // namespace tarvo::maquinas
