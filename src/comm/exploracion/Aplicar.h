// Writes what was found: the groups with their scales, and the uses of the channels.
#pragma once

#include <span>

#include "articles/Catalogo.h"
#include "comm/exploracion/Canales.h"
#include "comm/exploracion/Hallazgo.h"
#include "core/ajustes/Ajustes.h"
#include "groups/Grupos.h"

namespace tarvo::exploracion {

struct Aplicado {
  struct Creado {
    int codigo = 0;
    QString nombre;
    Acceso acceso;
  };
  std::vector<Creado> creados;
  std::vector<groups::Resumen> quedan, borrados;  // of the groups that made place
  QStringList avisos;  // what was found and isn't written, and why, in words
};

class Aplicador {
 public:
  // REQUIRES that all references outlive it.
  Aplicador(groups::Grupos& grupos, articles::Catalogo& catalogo, Ajustes& ajustes);

  // The shop has no group, or only the one that it began with, of which nothing is kept.
  Resultado<bool> porEstrenar();

  // The groups of the shop that have these machines already. None in a shop to be begun.
  Resultado<YaEstan> quienesLasTienen(std::span<const Hallazgo> hallazgos);

  // What `reemplazar` would do: the groups that stay as they are, and those that it would delete,
  // with what they hold and which of their machines are out of reach.
  struct Sustitucion {
    YaEstan mismos;
    std::vector<groups::Resumen> quedan;
    struct SeVa {
      groups::Resumen grupo;
      groups::Grupos::LoQueSeVa contiene;
      Silencio silencio;
    };
    std::vector<SeVa> seVan;
  };
  Resultado<Sustitucion> siSustituye(std::span<const Hallazgo> hallazgos);

  // The section that new groups get; nothing while the shop has none, which gets one then.
  struct Seccion {
    int numero = 1;
    QString nombre;
  };
  Resultado<std::optional<Seccion>> seccionDeNuevos();

  // In one transaction, with the settings file. In a shop to be begun, or with `reemplazar`, the
  // groups make place for what was found, if that is any scale, and each channel that was explored
  // is used as it was found. New groups count from 1; a group that is what was found stays as it
  // is, with everything it holds. Otherwise groups and uses of channels are only
  // added: machines that a group has already stay with it. Where neither a group nor a modem was
  // found nothing changes. Ocupado when a machine of a group to be deleted is being talked to.
  Resultado<Aplicado> aplicar(std::span<const Hallazgo> hallazgos, bool reemplazar = false);

 private:
  struct Obra;
  Resultado<Aplicado> escribir(std::span<const Hallazgo> hallazgos, bool reemplazar);
  Resultado<Obra> preparar(std::span<const Hallazgo> hallazgos, bool reemplazar);
  Resultado<> hacerSitio(Obra& obra);
  Resultado<> crearTodos(std::span<const Hallazgo> hallazgos, Obra& obra);
  Resultado<> crear(const Hallazgo& h, std::span<const std::optional<int>> ya, Obra& obra);
  Resultado<> crearGrupo(const Hallazgo& h, const GrupoHallado& hallado, std::optional<int> ya,
                         Obra& obra);
  Resultado<int> codigo(const Obra& obra);

  groups::Grupos& grupos_;
  articles::Catalogo& catalogo_;
  Ajustes& ajustes_;
  const Textos& t_;
};

}  // namespace tarvo::exploracion
