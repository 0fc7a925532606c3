#include "app/ventanas/PortalCnf.h"

#include "app/ventanas/Entrada.h"
#include "app/ventanas/Lleva.h"
#include "app/ventanas/TextosPrincipal.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/marco/Alcance.h"
#include "core/ventanas/marco/Escritorio.h"

namespace tarvo::app {

using namespace Qt::StringLiterals;

namespace {
// In the order of the list: the desktop's, light, dark.
const QString kCaras[] = {{}, u"claro"_s, u"oscuro"_s};
}  // namespace

PortalCnf::PortalCnf(ventanas::Contexto& contexto, const QString& nombre)
    : Ventana(contexto, nombre) {
  ui_.setupUi(cuerpo());
  enlazar();
  const struct {
    Entrada* boton;
    QString icono;
    Lleva lleva;
  } entradas[] = {{ui_.Comunicaciones, u"modem"_s, comm::PuertaCfgComm()},
                  {ui_.Explorar, u"buscar"_s, exploracion::PuertaWizInicio()},
                  {ui_.CopiarBases, u"copiar"_s, PorNombre{u"CopiaMDB"_s}},
                  {ui_.Euros, u"sumar"_s, PorNombre{u"Pts2Eur"_s}},
                  {ui_.CopiaSeguridad, u"guardar"_s, PorNombre{u"gesBackup"_s}},
                  {ui_.Conversion, u"importar"_s, importar::PuertaMainTvc()}};
  QSet<QChar> usadas = ventanas::letrasUsadas(*cuerpo());
  for (const auto& e : entradas) {
    const int lado = ventanas::escalar(ventanas::kIconoGrande);
    e.boton->setIcon(ventanas::icono(e.icono));
    e.boton->setIconSize({lado, lado});
    e.boton->setText(ventanas::conLetra(e.boton->text(), usadas));
    connect(e.boton, &QToolButton::clicked, this, [this, lleva = e.lleva] {
      if (!this->contexto().ventanas.conoce(ventanaDe(lleva)))
        return decirPista(t(kTxSinEstaVentana));
      abrirLo(this->contexto().ventanas, lleva, this);
    });
    if (!contexto.ventanas.conoce(ventanaDe(e.lleva)))
      e.boton->ponerSinVentana(t(kTxSinEstaVentana));
  }
  ponerAspecto();
  connect(ui_.Salir, &QPushButton::clicked, this, &QWidget::close);
}

Resultado<> PortalCnf::entrar(const PuertaPortalCnf&) {
  decirCambiadosFuera();
  ui_.Comunicaciones->setFocus();
  return {};
}

void PortalCnf::ponerAspecto() {
  const QString cara = contexto().recuerdos.leer(u"Tema"_s, u"cara"_s);
  const auto cual = std::ranges::find(kCaras, cara);
  ui_.Aspecto->setCurrentIndex(
      cual == std::end(kCaras) ? 0 : static_cast<int>(cual - std::begin(kCaras)));
  connect(ui_.Aspecto, &QComboBox::activated, this, [this](int i) {
    contexto().recuerdos.poner(u"Tema"_s, u"cara"_s, kCaras[i]);
    contexto().tema.ponerCara(ventanas::leerCara(kCaras[i]));
  });
}

}  // namespace tarvo::app
