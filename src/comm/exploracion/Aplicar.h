// Writes what was found: the groups with their scales, and the uses of the channels.
#pragma once

#include <span>

#include "articles/Catalogo.h"
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
  QStringList avisos;  // what was found and isn't written, and why, in words
};

class Aplicador {
 public:
  // REQUIRES that all references outlive it.
  Aplicador(groups::Grupos& grupos, articles::Catalogo& catalogo, Ajustes& ajustes);

  // The shop has no group, or only the one that it began with, of which nothing is kept.
  Resultado<bool> porEstrenar();

  // By finding and group of it: the group of the shop that has these machines already. None in a
  // shop to be begun.
  using YaEstan = std::vector<std::vector<std::optional<int>>>;
  Resultado<YaEstan> quienesLasTienen(std::span<const Hallazgo> hallazgos);

  // The groups that `reemplazar` would delete, with what they hold.
  struct SeVa {
    groups::Resumen grupo;
    groups::Grupos::LoQueSeVa contiene;
  };
  Resultado<std::vector<SeVa>> loQueSeVa();

  // In one transaction, with the settings file. In a shop to be begun, or with `reemplazar`, the
  // groups make place for new ones, if there are any to make, which count from 1, and each channel
  // that was explored is used as it was found. Otherwise groups and uses of channels are only
  // added: machines that a group has already stay with it. Where neither a group nor a modem was
  // found nothing changes. Ocupado when a machine of a group to be deleted is being talked to.
  Resultado<Aplicado> aplicar(std::span<const Hallazgo> hallazgos, bool reemplazar = false);

 private:
  struct Obra;
  Resultado<Aplicado> escribir(std::span<const Hallazgo> hallazgos, bool reemplazar);
  Resultado<> borrarTodos();
  Resultado<> crearTodos(std::span<const Hallazgo> hallazgos, Obra& obra);
  Resultado<> crear(const Hallazgo& h, Obra& obra);
  Resultado<> crearGrupo(const Hallazgo& h, const GrupoHallado& hallado, Obra& obra);
  Resultado<int> codigo(const Obra& obra);

  groups::Grupos& grupos_;
  articles::Catalogo& catalogo_;
  Ajustes& ajustes_;
  const Textos& t_;
};

}  // namespace tarvo::exploracion
