#include "comm/ventanas/TxPLUdlg.h"

namespace tarvo::comm {

using namespace Qt::StringLiterals;

TxPLUdlg::TxPLUdlg(ventanas::Contexto& c, const QString& nombre, const Servicios& s)
    : DialogoGrupos(c, nombre, s) {
  conRango(conGrupos(), u"desde"_s, u"hasta"_s);
  acabar({420, 440});
}

PeticionTarea TxPLUdlg::peticion() const {
  return {.clase = clase(), .todo = true, .desde = r.desde, .hasta = r.hasta};
}

}  // namespace tarvo::comm
