#include "devices/ventanas/RegistrarVentanas.h"

#include "devices/TecladosDefault.h"
#include "devices/ventanas/TecladoVentana.h"

namespace tarvo::devices {

void registrarVentanasTeclados(ventanas::Ventanas& ventanas, articles::Catalogo& catalogo) {
  ventanas.registrar<PuertaTeclado, TecladoVentana>(catalogo);
  ventanas.ponerMuestra([] {
    return PuertaTeclado{
        .textos = {TecladoDefecto(kRowan, Idioma::Espanol), HardPluDefecto(), TarasDefecto()}};
  });
}

}  // namespace tarvo::devices
