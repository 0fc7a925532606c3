// What the board says besides the night: changes left half done, an empty shop, what the machines
// lack.
#include "app/ventanas/VistaManana.h"

#include "app/Aplicacion.h"
#include "app/ventanas/TextosPrincipal.h"
#include "comm/motor/TextosMotor.h"
#include "core/dinero/Dinero.h"
#include "core/ventanas/TextosVentanas.h"

namespace tarvo::app {

using namespace Qt::StringLiterals;
using ventanas::Estado;

namespace {

constexpr qsizetype kNombradosDebe = 3;

// One that can be finished is finished in its own window; any can be undone from the list of its
// section.
Lleva adondeSeResuelve(const articles::LoteAMedias& lote) {
  const int seccion = lote.secciones.empty() ? 0 : lote.secciones.front();
  if (lote.porHacer > 0) return precios::PuertaCambioLote{.seccion = seccion};
  return articles::PuertaBrowPLUs{.seccion = seccion};
}

}  // namespace

void anteponerLotes(VistaManana& vista, std::span<const articles::LoteAMedias> lotes,
                    const Textos& textos) {
  if (lotes.empty()) return;
  if (vista.noche.estado != Estado::Mal) vista.noche.estado = Estado::Duda;
  vista.noche.titulo = textos(kTxCambioAMedias);
  std::vector<Renglon> lineas;
  for (const auto& l : lotes)
    lineas.push_back({.estado = Estado::Mal,
                      .palabra = textos(kTxVerAviso),
                      .titulo = {},
                      .texto = articles::decirAMedias(l, textos),
                      .valor = {},
                      .lleva = adondeSeResuelve(l)});
  vista.avisos.insert(vista.avisos.begin(), lineas.begin(), lineas.end());
}

void ofrecerAsistente(VistaManana& vista, const Textos& textos) {
  vista.avisos.insert(vista.avisos.begin(), {.estado = Estado::Duda,
                                             .palabra = textos(kTxVerAviso),
                                             .titulo = {},
                                             .texto = textos(kTxOfrecerAsistente),
                                             .valor = {},
                                             .lleva = exploracion::PuertaWizInicio()});
}

void anadirDebe(VistaManana& vista, std::span<const envios::Debe> debe, const Textos& textos) {
  QStringList vacios, pendientes;
  int vacio = 0, pendiente = 0;
  for (const envios::Debe& d : debe) {
    const QString nombre = Ceros(d.grupo, 4) + u' ' + d.nombre;
    if (d.vacio)
      vacios << nombre;
    else
      pendientes << nombre + u": "_s +
                        Plural(textos(kTxArticulosDebidos), static_cast<int>(d.articulos));
    int& primero = d.vacio ? vacio : pendiente;
    if (primero == 0) primero = d.grupo;
  }
  const auto linea = [&](Estado estado, int texto, const QStringList& cuales, int grupo) {
    if (cuales.isEmpty()) return;
    QStringList vistos = cuales.mid(0, kNombradosDebe);
    if (const auto mas = cuales.size() - vistos.size(); mas > 0)
      vistos << Plural(textos(kTxYMas), static_cast<int>(mas));
    vista.avisos.push_back({.estado = estado,
                            .palabra = textos(kTxVerEnvio),
                            .titulo = {},
                            .texto = textos(texto, {vistos.join(u", ")}),
                            .valor = {},
                            .lleva = comm::PuertaEstadoEnvio{grupo},
                            .detalle = cuales.join(u'\n')});
  };
  linea(Estado::Duda, kTxBalanzasVacias, vacios, vacio);
  linea(Estado::Ninguno, kTxPorEnviar, pendientes, pendiente);
}

}  // namespace tarvo::app
