// tarvo-capturas CARPETA SALIDA MARCA [VENTANA...]: pictures of the windows of a shop's folder.
// Ends with 1 if anything is cut, with a line for each fault.
#include <QApplication>

#include "app/Consola.h"
#include "app/Datos.h"
#include "app/ventanas/RegistrarVentanas.h"
#include "capturas/Capturas.h"
#include "capturas/programa/Relleno.h"
#include "comm/cables/FabricaReal.h"

using namespace tarvo;

namespace {

constexpr quint64 kSemilla = 1;
const QString kAutomat = QStringLiteral("Automat");

int morir(const QString& porque) {
  app::avisar(porque);
  return 2;
}

int capturarCarpeta(QApplication& qt, const QStringList& a) {
  const auto textos = Textos::leer(QStringLiteral(":/textos/es.txt"));
  if (!textos) return morir(textos.error().texto);
  RelojReal reloj;
  const auto fondo = app::Fondo::abrir(a[1], Idioma::Espanol, *textos, reloj);
  if (!fondo) return morir(fondo.error().texto);
  app::Datos datos({}, *textos);
  enlace::FabricaReal fabrica(reloj, (*fondo)->ajustes);
  app::Aplicacion aplicacion(**fondo, reloj, fabrica, kSemilla, datos);
  if (const auto hecho = aplicacion.empezar(); !hecho) return morir(hecho.error().texto);
  ventanas::Escritorio escritorio(qt, *(*fondo)->db, (*fondo)->ajustes, *textos, reloj,
                                  ventanas::Cara::Clara, {});
  app::registrarVentanas(escritorio.ventanas(), aplicacion);
  capturas::Encargo encargo{.carpeta = a[2], .marca = a[3], .solo = a.mid(4)};
  if (encargo.solo.isEmpty()) encargo.solo = escritorio.ventanas().nombres();
  const bool llena = encargo.marca == u"llena",
             conProceso = llena && encargo.solo.removeOne(kAutomat);
  if (llena) {
    if (const auto hecho = capturas::llenarBandeja(**fondo, aplicacion, reloj.ahora()); !hecho)
      return morir(hecho.error().texto);
    const auto hecho = capturas::ponerMuestrasLlenas(escritorio.ventanas(), aplicacion, a[1]);
    if (!hecho) return morir(hecho.error().texto);
  }
  if (!llena) encargo.solo.removeOne(QStringLiteral("ConfirSum"));  // refuses to sum nothing
  QStringList faltas;
  if (!encargo.solo.isEmpty()) faltas = capturas::capturar(escritorio, encargo);
  // After all others: the board of the main window shows the last run.
  if (conProceso) {
    if (const auto hecho = capturas::dejarProceso(aplicacion, a[1]); !hecho)
      return morir(hecho.error().texto);
    encargo.solo = {kAutomat};
    faltas << capturas::capturar(escritorio, encargo);
  }
  for (const QString& f : faltas) app::decir(f);
  return faltas.isEmpty() ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication qt(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  const QStringList a = QApplication::arguments();
  if (a.size() < 4)
    return morir(QStringLiteral("tarvo-capturas CARPETA SALIDA MARCA [VENTANA...]"));
  return capturarCarpeta(qt, a);
}
