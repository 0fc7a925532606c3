#include "app/Explorar.h"

#include <QCoreApplication>
#include <random>

#include "app/Consola.h"
#include "app/Datos.h"
#include "app/Principal.h"
#include "app/Senales.h"
#include "app/TextosApp.h"
#include "comm/cables/FabricaReal.h"
#include "comm/exploracion/Accesos.h"
#include "comm/exploracion/Aplicar.h"
#include "comm/exploracion/Exploracion.h"
#include "comm/exploracion/Resumen.h"
#include "groups/Grupos.h"

namespace tarvo::app {

namespace {

using exploracion::Hallazgo;

// Everything found; nothing when a signal stopped it.
std::optional<std::vector<Hallazgo>> recorrer(const Ordenes& o, const Fondo& fondo, Reloj& reloj) {
  const Ajustes& ajustes = fondo.ajustes;
  enlace::FabricaReal fabrica(reloj, ajustes);
  Azar azar(std::random_device{}());
  exploracion::Exploracion e(reloj, azar, fabrica, ajustes.WhoAmI);
  bool interrumpida = false;
  const Senales senales([&] {
    interrumpida = true;
    e.parar();
  });
  e.alHallar = [&](const Hallazgo& h) { decir(exploracion::frase(h, fondo.textos)); };
  e.alAcabar = [] { QCoreApplication::exit(); };
  e.empezar(o.accesos.empty() ? exploracion::accesosDe(ajustes)
                              : exploracion::conSusCanales(o.accesos, ajustes));
  QCoreApplication::exec();
  return interrumpida ? std::nullopt : std::optional(e.hallazgos());
}

int aplicar(const std::vector<Hallazgo>& hallazgos, Fondo& fondo, Reloj& reloj) {
  const Textos& t = fondo.textos;
  Datos datos({}, t);
  return conAplicacion(fondo, reloj, datos, avisar, [&](Aplicacion& aplicacion) -> int {
    groups::Grupos grupos(aplicacion.catalogo(), fondo.ajustes);
    exploracion::Aplicador aplicador(grupos, aplicacion.catalogo(), fondo.ajustes);
    const auto hecho = aplicador.aplicar(hallazgos);
    if (!hecho) {
      avisar(t(kTxNoAplicado, {hecho.error().texto}));
      return kProblemas;
    }
    for (const auto& c : hecho->creados)
      decir(t(kTxGrupoHecho, {c.codigo, c.nombre, exploracion::nombre(c.acceso, t)}));
    for (const QString& aviso : hecho->avisos) decir(aviso);
    return kBien;
  });
}

}  // namespace

int explorar(const Ordenes& o, const Textos& textos) {
  return conFondo(o, textos, avisar, [&](Fondo& fondo, Reloj& reloj) -> int {
    const auto hallazgos = recorrer(o, fondo, reloj);
    if (!hallazgos) {
      avisar(textos(kTxExploracionInterrumpida));
      return kAbortado;
    }
    if (!exploracion::contar(*hallazgos).algo()) return kProblemas;
    return o.aplicar ? aplicar(*hallazgos, fondo, reloj) : kBien;
  });
}

}  // namespace tarvo::app
