// Article records as the machines take them, one layout for each family, from a plain record of the
// article. Money and quantities are whole numbers as the database keeps them. A number that doesn't
// fit its field is reported, and there is no record then. A text is always sent: letters that the
// machine lacks are replaced by similar ones.
#pragma once

#include <QString>
#include <array>
#include <span>

#include "comm/maquinas/Campos.h"

namespace tarvo::maquinas {

inline constexpr qint64 kPrimerArticulo = 3, kUltimoArticuloVek = 9'999'999;

// The data of an article for a group: the columns of PLUSES, with the article's three prices for
// that group.
struct Articulo {
  qint64 codigo = 0;
  QString nombre;
  qint64 cada = 0;  // 0 per kilogram, 1 per 100 g, 2 per unit
  std::array<qint64, 3> precios{};
  qint64 formato = 1, barras = 1;
  QString pfxBar;
  std::optional<QString> codBarExt;  // predefined bar code
  qint64 depto = 0;
  std::optional<qint64> tara;
  qint64 numdias1 = 0, numdias2 = 0;
  bool modificable = false;
  qint64 minimo = 0;
  qint64 descto = 0;  // hundredths of a per cent
  qint64 hasta1 = 0, hasta2 = 0;
  QString textoEtq;
  bool operator==(const Articulo&) const = default;
};

// The fields of the records, in the order of the longest one.
enum class CampoPLU {
  NomPLU,
  CodPLU,
  Precio0,
  cada,
  Formato,
  BARRAS,
  PFX_BAR,
  Depto,
  Tara,
  NUMDIAS_1,
  NUMDIAS_2,
  MDF_PRE,
  minimo,
  DESCTO,
  HASTA_1,
  Precio1,
  HASTA_2,
  Precio2,
  TEXTO_ETQ,
  CodBarExt
};
inline constexpr int kCamposPLU = 20;

// Why an article can't be sent to a kind of machine.
struct NoCabe {
  enum Motivo {
    Grande,    // above `limite`
    Pequeno,   // below `limite`
    Cifras,    // it must be digits
    Largo,     // a text of more than `limite` characters
    Vacio,     // empty where a number is required
    Ilegible,  // no whole number
    DeOtro     // a bar code of another article: `limite` is its number
  };
  CampoPLU campo = CampoPLU::CodPLU;
  Motivo motivo = Grande;
  qint64 limite = 0;
  QString valor;  // the number or text that doesn't fit
  bool operator==(const NoCabe&) const = default;
};
template <class T>
using Cabe = std::expected<T, NoCabe>;

// A text in the characters of a kind of machine. Characters that it lacks stay as they are.
QString CaracteresBalanza(TipoGrupo tipo, const QString& texto);
// The reverse, as far as possible, for a person to read.
QString textoDeBalanza(TipoGrupo tipo, QByteArrayView bytes);

// The full article record of a kind of group.
Cabe<QByteArray> TramaPLU(TipoGrupo tipo, const Articulo& articulo);
// The characters of the article that the machine lacks, each once, for a message.
QString letrasQueFaltan(TipoGrupo tipo, const Articulo& articulo);
// Code and prices only (kinds 1 and 4).
Cabe<QByteArray> TramaPrecios(const Articulo& articulo);

// The price fields of a full record, joined, and the record with blanks in their place. REQUIRES a
// whole record of that kind.
QByteArray preciosDe(TipoGrupo tipo, const QByteArray& registro);
QByteArray sinPrecios(TipoGrupo tipo, QByteArray registro);

// The requests. REQUIRES a code that fits the width of its field.
Peticion enviarArticulo(TipoGrupo tipo, const QByteArray& registro);
Peticion enviarPrecios(const QByteArray& registro);
Peticion borrarArticulo(qint64 codigo);    // kinds 1 and 4
Peticion pedirArticulo(qint64 desde);      // kinds 1 and 4: the first at or after that number
Peticion borrarArticulos(TipoGrupo tipo);  // kinds 2 and 3: all of them

// A record of kinds 1 and 4 as a machine returns it.
struct Ficha {
  qint64 codigo = 0;
  std::array<QByteArray, kCamposPLU> campos;  // as received; without CodBarExt
  QByteArray campo(CampoPLU cual) const { return campos[static_cast<size_t>(cual)]; }
};
// The number only.
Leido<qint64> codigoDeFicha(QByteArrayView registro);
// All of it. Bytes after the end mark are ignored.
Leido<Ficha> leerFicha(QByteArrayView registro);
// The fields in which two records differ; numbers compare by value, with blanks as 0, texts without
// trailing blanks.
std::vector<CampoPLU> diferencias(const Ficha& una, const Ficha& otra);
// Are two records, or their prices, equal? False if one can't be read.
bool mismaFicha(QByteArrayView una, QByteArrayView otra);
bool mismosPrecios(QByteArrayView registro, QByteArrayView soloPrecios);

}  // namespace tarvo::maquinas
