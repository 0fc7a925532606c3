// How the editor of a group opens a sheet and takes its result; for its own files.
#pragma once

#include "core/ventanas/marco/Ventanas.h"
#include "groups/ventanas/EditorGrupo.h"

namespace tarvo::groups {

template <class P>
void EditorGrupo::hojaDeGrupo(int que, P hoja) {
  empezarOrden();
  hoja.nombre = r.nombre;
  hoja.grupo = r.grupo;
  auto hecho = preguntar(hoja);
  if (!hecho || *hecho == r.grupo) return;
  r.grupo = std::move(*hecho);
  r.marcas.poner(Cambio::Config);
  anotar(t(que).remove(u'&'));
  pintar();
}

template <class P>
void EditorGrupo::hojaDeMaquina(int que, Parte parte, std::initializer_list<Cambio> cambios) {
  empezarOrden();
  const int cual = sitio();
  const auto* de = actual();
  if (!de) return;
  const auto hecho = preguntar(P{{.nombre = r.nombre,
                                  .balanza = cual,
                                  .varias = r.grupo.LasBalanzas.size() > 1,
                                  .maquina = *de}});
  if (!hecho) return;
  const auto antes = r.grupo.LasBalanzas;
  for (auto& [numero, maquina] : r.grupo.LasBalanzas)
    if (numero == cual || hecho->aTodas) parte(hecho->maquina, maquina);
  if (r.grupo.LasBalanzas == antes) return;
  for (const Cambio c : cambios) r.marcas.poner(c);
  anotar(deMaquina(que));
  pintar();
}

}  // namespace tarvo::groups
