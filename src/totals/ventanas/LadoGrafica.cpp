#include "totals/ventanas/LadoGrafica.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;

namespace {

constexpr int kMucho = 10000;
constexpr int kParteLista = 3, kParteLado = 1;

}  // namespace

void unirLado(QAction& interruptor, QWidget& lado, ventanas::Recuerdos& recuerdos,
              const QString& ventana) {
  interruptor.setCheckable(true);
  interruptor.setChecked(recuerdos.leer(ventana, u"lado"_s) != u"no");
  lado.setVisible(interruptor.isChecked());
  QObject::connect(&interruptor, &QAction::toggled, &lado, [&lado, &recuerdos, ventana](bool si) {
    lado.setVisible(si);
    recuerdos.poner(ventana, u"lado"_s, si ? u"si"_s : u"no"_s);
  });
}

void repartirLado(QSplitter& divisor, const ventanas::Recuerdos& recuerdos,
                  const QString& ventana) {
  divisor.setStretchFactor(0, kParteLista);
  divisor.setStretchFactor(1, kParteLado);
  divisor.setChildrenCollapsible(false);
  if (recuerdos.leer(ventana, divisor.objectName()).isEmpty())
    divisor.setSizes({kParteLista * kMucho, kParteLado * kMucho});  // scaled to the available width
}

}  // namespace tarvo::totals
