#include "comm/ventanas/Grupos.h"

#include "comm/ventanas/TextosCommVentanas.h"
#include "core/ventanas/marco/MyMsgBox.h"

namespace tarvo::comm {

using namespace Qt::StringLiterals;

Resultado<std::vector<GrupoElegible>> gruposPara(dao::Database& db,
                                                 const motor::ClaseTarea& clase) {
  QStringList terminos;
  for (const int tipo : clase.tipos) terminos << u"(TIPO=%1)"_s.arg(tipo);
  TARVO_TOMAR(auto rs,
              db.consultar(u"select codgpo, Format(codgpo,'0000') & '  ' & NOMGPO as nom "
                           "from GRUPOS where %1 order by codgpo"_s.arg(terminos.join(u" or "))));
  std::vector<GrupoElegible> grupos;
  while (!rs->Eof()) {
    grupos.push_back({static_cast<int>(rs->entero(0)), rs->texto(1)});
    TARVO_INTENTAR(rs->MoveNext());
  }
  return grupos;
}

Resultado<std::set<int>> tiposDeGrupos(dao::Database& db) {
  TARVO_TOMAR(auto rs, db.consultar(u"select distinct TIPO from GRUPOS"));
  std::set<int> tipos;
  while (!rs->Eof()) {
    tipos.insert(static_cast<int>(rs->entero(0)));
    TARVO_INTENTAR(rs->MoveNext());
  }
  return tipos;
}

void encolarGrupos(ventanas::Ventana& quien, motor::gestcomm& motor, const std::vector<int>& grupos,
                   const PeticionTarea& que) {
  bool usada = false;
  QStringList sinComunicar;
  for (const int grupo : grupos) {
    const int r = motor.NuevaTarea(grupo, que.todo, que.desde, que.hasta, que.clase);
    usada = usada || r == 1;
    if (r == 2) sinComunicar << Ceros(grupo, 4);
  }
  if (!sinComunicar.isEmpty())
    quien.decirDuda(quien.t(kTxNoEncolada).arg(sinComunicar.join(u", "_s)));
  if (usada)
    ventanas::MyMsgBox::Decide(
        &quien, quien.contexto().textos,
        QStringList{quien.t(kTxYaUsada1), quien.t(kTxYaUsada2), quien.t(kTxYaUsada3)}.join(u'\n'),
        ventanas::kCritico);
}

}  // namespace tarvo::comm
