#include "devices/PrimerGrupo.h"

#include "devices/Grupo.h"
#include "devices/Modelos.h"

namespace tarvo::devices {

Resultado<> asegurarPrimerGrupo(dao::Database& db, const Ajustes& ajustes,
                                const CodigoLibre& codigoLibre) {
  TARVO_TOMAR(const auto alguno, db.uno(u"SELECT CODGPO FROM GRUPOS"));
  if (!alguno.nulo()) return {};
  TARVO_TOMAR(const int codigo, codigoLibre(db));
  TARVO_TOMAR(const auto almacen, db.uno(u"SELECT CODALM FROM ALMACEN ORDER BY CODALM"));

  Balanza balanza(ajustes.idioma);
  balanza.tipo(kCedar);
  Grupo grupo(ajustes.idioma);
  grupo.tipo(balanza.TipoDeGrupo());
  grupo.Almacen = static_cast<int>(almacen.entero());
  balanza.Numero = 0;
  grupo.LasBalanzas.emplace(0, std::move(balanza));
  return grupo.SaveAs(db, codigo, QStringLiteral("GRUPO"));
}

}  // namespace tarvo::devices
