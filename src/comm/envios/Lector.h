// Articles of the catalogue as a group would get them now: their record, with the prices that the
// group has today.
#pragma once

#include <span>
#include <vector>

#include "comm/maquinas/Articulo.h"
#include "core/dao/Database.h"

namespace tarvo::envios {

// Whom a sending is for.
struct Destino {
  int grupo = 0, seccion = 1;
  TipoGrupo tipo = TipoGrupo::Balanzas;
  int tarifa = 0;  // 0 to 7
  bool conCross() const { return tipo == TipoGrupo::Balanzas || tipo == TipoGrupo::Birch; }
};

// -1 not begun, 0 in force, 1 over. The last day counts whole; no date is an open end.
int EstadoOferta(std::optional<Fecha> inicio, std::optional<Fecha> fin, Fecha ahora);

// How the offer of an article stands with the group.
struct Oferta {
  bool hay = false, enviado = false, borrado = false;
  bool rige = false;  // its prices are the ones that hold now
};

struct Preparado {
  qint64 codigo = 0;
  QString nombre;
  maquinas::Cabe<QByteArray> registro;  // the whole article
  QString letrasQueFaltan;              // characters that the machine lacks: others go for them
  Oferta oferta;
  std::array<qint64, 3> precios{};
  std::optional<maquinas::NoCabe> ilegible;  // the first price that can't be read
};

class Lector {
 public:
  // REQUIRES that the database outlives it, and a tarifa of 0 to 7.
  Lector(dao::Database& db, const Destino& destino);

  // Those of the codes that the section has, in the order of their numbers. At most kLote codes.
  // Where two articles give registers one bar code, only the one of which it is the predefined code
  // has a record.
  static constexpr size_t kLote = 250;
  Resultado<std::vector<Preparado>> leer(std::span<const qint64> codigos, Fecha ahora);
  // One of them as it stands, whether or not a record can be made of it; nothing when it is gone.
  Resultado<std::optional<maquinas::Articulo>> articulo(qint64 codigo, Fecha ahora);

 private:
  Preparado preparar(const dao::Recordset& rs, Fecha ahora) const;
  Resultado<> apartarRepetidos(std::vector<Preparado>& lote);

  dao::Database& db_;
  const Destino destino_;
  QString uno_, muchos_, barras_;  // statements
};

// What can be compared of a record: a hash of it without its prices, and one of the prices.
struct Huella {
  qint64 resto = 0, precios = 0;
  bool operator==(const Huella&) const = default;
};
Huella huellaDe(TipoGrupo tipo, const QByteArray& registro);
// Of the record that holds the prices alone.
qint64 huellaDePrecios(const QByteArray& registro);
// That record.
maquinas::Cabe<QByteArray> soloPreciosDe(const Preparado& p);

}  // namespace tarvo::envios
