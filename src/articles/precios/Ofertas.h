// The offers of the groups: OFERTAS, and what is due to the machines. A deleted offer that a group
// has received (`enviado`) stays, hidden (`borrado`), until the normal prices have been sent.
//
// A change that the two marks can't express (new prices of an offer on the scales, or one there
// that begins after today) makes the article due to that group.
#pragma once

#include <span>
#include <vector>

#include "articles/Articulo.h"
#include "articles/precios/Vigencia.h"
#include "core/dao/Database.h"
#include "core/textos/Textos.h"
#include "core/tiempo/Reloj.h"

namespace tarvo::precios {

using PreciosOferta = std::array<qint64, articles::kNiveles>;

struct ClaveOferta {
  int grupo = 0, seccion = 0;
  qint64 codigo = 0;
  auto operator<=>(const ClaveOferta&) const = default;
};

struct OfertaNueva {
  int seccion = 0;
  qint64 codigo = 0;
  PreciosOferta precios{};
  Vigencia vigencia;
};

// One as stored, whatever its origin.
struct Oferta {
  ClaveOferta clave;
  PreciosOferta precios{};
  Dia desde, hasta;
  bool enviado = false;
};

// An SQL condition and its parameters in order.
struct Condicion {
  QString sql;
  std::vector<dao::Valor> parametros;
};

// The visible offers of a group; with dates, those that begin and end within them.
struct FiltroOfertas {
  int grupo = 0;
  Dia desde = {}, hasta = {};
  // `todosLosGrupos`: of every group.
  Condicion condicion(bool todosLosGrupos = false) const;
};

enum class Extremo { Desde, Hasta };

class Ofertas {
 public:
  // REQUIRES that all references outlive it.
  Ofertas(dao::Database& db, const Textos& textos, Reloj& reloj)
      : db_(db), textos_(textos), reloj_(reloj) {}

  // Several operations as one: all of them, or none when it fails.
  Resultado<> todoONada(const std::function<Resultado<>()>& hacer) {
    return dao::todoONada(db_, hacer);
  }
  Resultado<std::vector<int>> gruposDe(int seccion);
  // The group with the lowest code and its section; nothing when there is none.
  struct GrupoDe {
    int grupo = 0, seccion = 0;
  };
  Resultado<std::optional<GrupoDe>> primerGrupo();
  // An article for an offer: by its code, or the first whose name begins so or sorts after. Nothing
  // when there is none.
  struct Hallado {
    qint64 codigo = 0;
    QString nombre;
  };
  Resultado<std::optional<Hallado>> buscar(int seccion, const QString& texto, bool porCodigo);
  // The prices of an article in a group without its offer.
  Resultado<std::optional<PreciosOferta>> normales(int grupo, int seccion, qint64 codigo);
  // The visible offer; nothing when there is none with that key.
  Resultado<std::optional<Oferta>> leer(const ClaveOferta& clave);

  // Those of the groups that already have an offer of the article: to ask before it is overwritten.
  Resultado<std::vector<int>> ocupados(int seccion, qint64 codigo, std::span<const int> grupos);
  // An offer that was written, and each of its groups as it was before, to undo it.
  struct Alta {
    struct Antes {
      int grupo = 0;
      std::optional<Oferta> fila = {};
      bool oculta = false;  // deleted, and waiting to be removed from the scales
    };
    OfertaNueva oferta;
    std::vector<Antes> grupos;
  };
  // Writes the offer in each of the groups, over existing ones. One transaction.
  Resultado<Alta> guardar(const OfertaNueva& oferta, std::span<const int> grupos);
  // Takes it away again, or restores what it was written over, in the groups where it is as it was
  // written; returns how many others stay as they are. Restriccion, with nothing changed, when all
  // do.
  Resultado<int> deshacer(const Alta& alta);

  // The offers changed by a change of prices, in their former state, to undo it.
  struct CambioPrecios {
    PreciosOferta precios;
    Dia desde, hasta;             // of all of them since the change
    std::vector<Oferta> ofertas;  // the changed one, and those that took its prices
    int otras() const { return static_cast<int>(ofertas.size()) - 1; }
  };
  // New prices for one offer; with `sincro` the article's offers in all other groups take its
  // prices and days. NoExiste when the offer is gone.
  Resultado<CambioPrecios> ponerPrecios(const ClaveOferta& clave, const PreciosOferta& precios,
                                        bool sincro);
  // Restores those that are as the change left them; returns how many others stay as they are.
  // NoExiste when the first one is gone, Restriccion when it has changed since: then nothing
  // changes.
  Resultado<int> deshacer(const CambioPrecios& cambio);

  // The offers changed by a change of dates, to undo it.
  struct Anterior {
    ClaveOferta clave;
    Dia fecha;
  };
  struct CambioFechas {
    Extremo extremo = Extremo::Desde;
    std::vector<Anterior> filas;
  };
  // Number of offers it would change.
  Resultado<int> contar(const FiltroOfertas& filtro, bool todosLosGrupos);
  // Sets one end of all offers of the filter. Restriccion, with nothing changed, when one of them
  // would end before it begins.
  Resultado<CambioFechas> cambiarFechas(const FiltroOfertas& filtro, bool todosLosGrupos,
                                        Extremo extremo, const Dia& dia);
  // In the offers that still exist and where it fits; returns how many.
  Resultado<int> deshacer(const CambioFechas& cambio);

  // Number of offers of the same articles with the same days, including those of `claves`. REQUIRES
  // keys of one group.
  Resultado<int> contarIguales(std::span<const ClaveOferta> claves);
  // Deletes them; with `todosLosGrupos` their equals as well. Returns those that disappeared from
  // view, as they were.
  Resultado<std::vector<Oferta>> borrar(std::span<const ClaveOferta> claves, bool todosLosGrupos);
  // Brings deleted ones back, in one transaction. Returns how many stay away: their group has
  // another offer of the article by now, or is gone.
  Resultado<int> reponer(std::span<const Oferta> borradas);

 private:
  Resultado<Alta::Antes> escribir(const OfertaNueva& nueva, int grupo);
  Resultado<> quitar(const Condicion& condicion);
  Resultado<> volver(const Alta::Antes& antes, const Oferta& hoy);
  Resultado<> cambiar(const Oferta& antes, const PreciosOferta& precios, const Dia& desde,
                      const Dia& hasta);
  Resultado<std::vector<Oferta>> leerVarias(const Condicion& condicion);
  Resultado<> ponerFecha(const Oferta& antes, Extremo extremo, const Dia& dia);
  Resultado<bool> reponerUna(const Oferta& oferta);
  Resultado<Condicion> iguales(const ClaveOferta& clave, bool todosLosGrupos);
  Resultado<> debeOir(const ClaveOferta& clave);

  dao::Database& db_;
  const Textos& textos_;
  Reloj& reloj_;
};

}  // namespace tarvo::precios
