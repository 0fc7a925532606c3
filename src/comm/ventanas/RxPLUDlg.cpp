#include "comm/ventanas/RxPLUDlg.h"

#include <QLabel>
#include <QRadioButton>

#include "comm/ventanas/TextosCommVentanas.h"

namespace tarvo::comm {

using namespace Qt::StringLiterals;

RxPLUDlg::RxPLUDlg(ventanas::Contexto& c, const QString& nombre, const Servicios& s)
    : DialogoGrupos(c, nombre, s) {
  auto f = conGrupos();
  conRango(f, u"Desde"_s, u"Hasta"_s);
  auto* completa = new QRadioButton(t(kTxCompleta));
  auto* optimizada = new QRadioButton(t(kTxOptimizada));
  completa->setObjectName(u"opCompleta"_s);
  optimizada->setObjectName(u"opOptimizada"_s);
  f.enLinea({new QLabel(t(kTxRecogida)), completa, optimizada, nullptr});
  enlazarCampo(*completa, *optimizada, r.completa);
  acabar({420, 480});
}

PeticionTarea RxPLUDlg::peticion() const {
  return {.clase = clase(), .todo = r.completa, .desde = r.desde, .hasta = r.hasta};
}

}  // namespace tarvo::comm
