// A copy of a section, with its groups of machines besides its departments and articles. Steps for
// Trabajo.
#pragma once

#include <vector>

#include "articles/Secciones.h"
#include "groups/Grupos.h"

namespace tarvo::groups {

class CopiaConGrupos {
 public:
  // `conGrupos` false: departments and articles alone. REQUIRES that catalogue and groups outlive
  // it.
  CopiaConGrupos(articles::Catalogo& catalogo, Grupos& grupos, int origen, bool conGrupos = true)
      : copia_(catalogo, origen), grupos_(grupos), conGrupos_(conGrupos) {}

  // Rows are counted in articles; false when it is done. The section is named as incomplete until
  // it has its groups too.
  Resultado<bool> paso(qint64& hechos, qint64& total);
  // Removes what was copied so far, or the whole copy, with its groups.
  Resultado<> deshacer() { return copia_.deshacer(); }
  int numero() const { return copia_.numero(); }
  int origen() const { return copia_.origen(); }
  int gruposCopiados() const { return copiados_; }

 private:
  articles::CopiaSeccion copia_;
  Grupos& grupos_;
  bool conGrupos_;
  std::vector<int> quedan_;
  int copiados_ = 0;
};

}  // namespace tarvo::groups
