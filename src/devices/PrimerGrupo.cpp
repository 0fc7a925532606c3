#include "devices/PrimerGrupo.h"

#include "devices/Grupo.h"
#include "devices/Modelos.h"

namespace tarvo::devices {

namespace {

const QString kNombre = QStringLiteral("GRUPO");

Balanza primeraBalanza(Idioma idioma) {
  Balanza balanza(idioma);
  balanza.tipo(kCedar);
  balanza.Numero = 0;
  return balanza;
}

}  // namespace

Resultado<> asegurarPrimerGrupo(dao::Database& db, const Ajustes& ajustes,
                                const CodigoLibre& codigoLibre) {
  TARVO_TOMAR(const auto alguno, db.uno(u"SELECT CODGPO FROM GRUPOS"));
  if (!alguno.nulo()) return {};
  TARVO_TOMAR(const int codigo, codigoLibre(db));
  TARVO_TOMAR(const auto almacen, db.uno(u"SELECT CODALM FROM ALMACEN ORDER BY CODALM"));

  Balanza balanza = primeraBalanza(ajustes.idioma);
  Grupo grupo(ajustes.idioma);
  grupo.tipo(balanza.TipoDeGrupo());
  grupo.Almacen = static_cast<int>(almacen.entero());
  grupo.LasBalanzas.emplace(0, std::move(balanza));
  return grupo.SaveAs(db, codigo, kNombre);
}

bool esPrimerGrupo(const Grupo& grupo, const QString& nombre, Idioma idioma) {
  if (nombre != kNombre || grupo.Acceso != TipoAcceso::Ninguno || grupo.LasBalanzas.size() != 1)
    return false;
  const auto* balanza = std::get_if<Balanza>(&grupo.LasBalanzas.begin()->second);
  return balanza && *balanza == primeraBalanza(idioma);
}

}  // namespace tarvo::devices
