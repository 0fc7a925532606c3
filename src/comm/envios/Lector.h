// Articles of the catalogue as a group would get them now: their record, with today's prices for
// the group.
#pragma once

#include <span>
#include <vector>

#include "comm/maquinas/Articulo.h"
#include "core/dao/Database.h"

namespace tarvo::envios {

// The receiver of a sending.
struct Destino {
  int grupo = 0, seccion = 1;
  TipoGrupo tipo = TipoGrupo::Balanzas;
  int tarifa = 0;  // 0 to 7
  bool conCross() const { return tipo == TipoGrupo::Balanzas || tipo == TipoGrupo::Birch; }
};

// -1 not begun, 0 in force, 1 over. The last day is included; a missing date is an open end.
int EstadoOferta(std::optional<Fecha> inicio, std::optional<Fecha> fin, Fecha ahora);

// The state of an article's offer in the group.
struct Oferta {
  bool hay = false, enviado = false, borrado = false;
  bool rige = false;  // its prices are in force
};

struct Preparado {
  qint64 codigo = 0;
  QString nombre;
  maquinas::Cabe<QByteArray> registro;  // the whole article
  QString letrasQueFaltan;              // characters that the machine lacks, sent as others
  Oferta oferta;
  std::array<qint64, 3> precios{};
  std::optional<maquinas::NoCabe> ilegible;  // the first unreadable price
};

class Lector {
 public:
  // REQUIRES that the database outlives it, and a tarifa of 0 to 7.
  Lector(dao::Database& db, const Destino& destino);

  // The articles of the section with these codes, in the order of their numbers. At most kLote
  // codes. If two articles would give registers the same bar code, only the one with it as its
  // predefined code has a record.
  static constexpr size_t kLote = 250;
  Resultado<std::vector<Preparado>> leer(std::span<const qint64> codigos, Fecha ahora);
  // One article as it is, whether or not it has a valid record; nothing if it is gone.
  Resultado<std::optional<maquinas::Articulo>> articulo(qint64 codigo, Fecha ahora);

 private:
  Preparado preparar(const dao::Recordset& rs, Fecha ahora) const;
  Resultado<> apartarRepetidos(std::vector<Preparado>& lote);

  dao::Database& db_;
  const Destino destino_;
  QString uno_, muchos_, barras_;  // statements
};

// The comparable part of a record: a hash of it without its prices, and one of the prices.
struct Huella {
  qint64 resto = 0, precios = 0;
  bool operator==(const Huella&) const = default;
};
Huella huellaDe(TipoGrupo tipo, const QByteArray& registro);
// The hash of the record of prices alone.
qint64 huellaDePrecios(const QByteArray& registro);
// That record.
maquinas::Cabe<QByteArray> soloPreciosDe(const Preparado& p);

}  // namespace tarvo::envios
