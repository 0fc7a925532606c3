#include "capturas/programa/Relleno.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>

#include "articles/importar/ventanas/Puertas.h"
#include "automation/ventanas/Puertas.h"
#include "core/ventanas/marco/Ventanas.h"
#include "labels/Etiquetas.h"
#include "labels/ventanas/Puertas.h"
#include "totals/ventanas/Puertas.h"

namespace tarvo::capturas {

using namespace Qt::StringLiterals;
using namespace totals;

namespace {

constexpr int kPaciencia = 5000;  // ms
constexpr double kApertura = 9.0 / 24, kCierre = 21.5 / 24;

const QByteArray kProceso =
    "N:El periodo de anoche, a su semana, al stock y a un fichero\r\nP:SEL. ULTIMO\r\n"
    "P:ACUMULAR,2\r\nP:SEL. ULTIMO\r\nP:STOCK\r\nE:TOTALIZA, No, No,MUESTRA\r\n";
const QByteArray kHorario =
    "06:30:00;S\xED,S\xED,S\xED,S\xED,S\xED,S\xED,No;PRECIOS\r\n"
    "22:00:00;S\xED,S\xED,S\xED,S\xED,S\xED,S\xED,No;NOCHE\r\n"
    "22:00:00;No,No,No,No,No,S\xED,No;SEMANA\r\n";

const QByteArray kTarifa =
    "Lista de precios\r\n\r\nC\xF3"
    "digo;Descripci\xF3n;P.V.P. (\x80);Coste;EAN;Secci\xF3n de venta;Notas\r\n"
    "10;MANZANA EXTRA;1,95;1,20;8400000000109;FRUTAS;oferta\r\n"
    "11;PERA EXTRA;2,05;1.250,00;8400000000116;FRUTAS;\r\n900;PI\xD1"
    "A MINI;x;1,10;;TROPICALES;\r\n";

// A label of a fruit shop, the upper third of the paper.
const QString kEtiqueta =
    u"001910000000000\r\n150020021891482\r\n070080280160000\r\n080080380140000\r\n"
    u"120080430011750\r\n130080540140050\r\n130700540140060\r\n131280540140070\r\n"
    u"010080740160000\r\n020700740160000\r\n031200790180000\r\n060081180360000\r\n"
    u"131150930140170\r\n091151020140000\r\n131151130140110\r\n101151220140000\r\n"
    u"160081400140010\r\n"_s;

Resultado<labels::Formato> hacerEtiqueta(articles::Catalogo& catalogo) {
  labels::Etiquetas etiquetas(catalogo);
  const auto leida = labels::leerFormato(kEtiqueta);
  if (!leida) return fallo(Fallo::Formato, kEtiqueta);
  const QString nombre = u"FRUTERIA"_s;
  if (const auto hecha = etiquetas.crear(nombre); !hecha && hecha.error().clase != Fallo::Duplicado)
    return std::unexpected(hecha.error());
  TARVO_INTENTAR(etiquetas.guardar({nombre, kEtiqueta}));
  return leida->formato;
}

Resultado<> escribir(const QString& ruta, const QByteArray& bytes) {
  QFile f(ruta);
  if (f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size()) return {};
  return fallo(Fallo::SinPermiso, ruta + u": "_s + f.errorString());
}

// Runs the event loop until it holds.
template <class F>
bool esperar(F hecho) {
  QElapsedTimer t;
  for (t.start(); !hecho() && t.elapsed() < kPaciencia;)
    QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
  return hecho();
}

Resultado<> recibir(app::Fondo& fondo, Sesion& sesion, int grupo, Fecha dia) {
  std::vector<Aviso> avisos;
  Lectura l;
  l.maquinas[0][{grupo, 0}] = {120 + grupo, 45000, 98765 * grupo, 0};
  TARVO_INTENTAR(sesion.PrepararRecepcion(grupo, TipoTotal::GranTotal));
  TARVO_INTENTAR(sesion.guardarLectura(grupo, TipoTotal::GranTotal, l, avisos));
  TARVO_INTENTAR(
      fondo.db->ejecutar(u"UPDATE Sesiones SET DD_GRT=?, HT_GRT=?, PZERO=? WHERE CODGPO=?",
                         dia + kApertura, dia + kCierre, dia + kApertura, grupo));
  return {};
}

}  // namespace

Resultado<> llenarBandeja(app::Fondo& fondo, app::Aplicacion& aplicacion, Fecha hoy) {
  TARVO_TOMAR(const auto periodos, fondo.db->uno(u"SELECT count(*) FROM COLUMNA"));
  if (periodos.entero() == 0) {
    for (const int grupo : {1, 2, 3})
      TARVO_INTENTAR(recibir(fondo, aplicacion.sesion(), grupo, hoy.dia()));
    std::vector<Aviso> avisos;
    TARVO_INTENTAR(aplicacion.cerrSes().AnalizarScratch(avisos));
    TARVO_INTENTAR(aplicacion.cerrSes().LaSesion(true, 0, avisos));
  }
  const Fecha dia = hoy.dia() + 1;  // after everything zeroed so far
  for (const int grupo : {1, 2, 3, 4, 5, 6})
    TARVO_INTENTAR(recibir(fondo, aplicacion.sesion(), grupo, dia + (grupo > 4 ? 1 : 0)));
  return {};
}

Resultado<> dejarProceso(app::Aplicacion& aplicacion, const QString& carpeta) {
  const QString ruta = carpeta + u"/MUESTRA.AUT"_s;
  TARVO_INTENTAR(escribir(ruta, kProceso));
  TARVO_TOMAR(auto fichero, aplicacion.lenguaje().LeerProceso(ruta));
  automation::Automat& a = aplicacion.automat();
  const auto detenido = [&a] { return a.fase() == automation::kDetenidoEnPaso; };
  a.PROCESO(std::move(fichero.pasos), {}, u"MUESTRA"_s);
  a.retener();
  for (int i = 0; i < 4 && esperar(detenido); ++i) a.paso();
  if (!esperar(detenido)) return fallo(Fallo::Ocupado, ruta);
  a.abortar();
  esperar([&a] { return !a.enMarcha(); });
  return {};
}

Resultado<> ponerMuestrasLlenas(ventanas::Ventanas& ventanas, app::Aplicacion& aplicacion,
                                const QString& carpeta) {
  const QString horario = carpeta + u"/NOCHES.CRO"_s;
  const QString tarifa = carpeta + u"/TARIFA.csv"_s;
  TARVO_INTENTAR(escribir(horario, kHorario));
  TARVO_INTENTAR(escribir(tarifa, kTarifa));
  TARVO_INTENTAR(escribir(carpeta + u"/CATALOGO.PLU"_s, {}));
  std::vector<Aviso> avisos;
  CerrSes& c = aplicacion.cerrSes();
  TARVO_INTENTAR(c.AnalizarScratch(avisos));
  ventanas.ponerMuestra(PuertaFormDetalles{{c.recibidos(), c.propuestos(), c.OverWr, c.elegido()}});
  ventanas.ponerMuestra(automation::PuertaEdiCron{horario});
  TARVO_TOMAR(const auto etiqueta, hacerEtiqueta(aplicacion.catalogo()));
  ventanas.ponerMuestra(labels::PuertaVistaEtq{.nombre = u"FRUTERIA"_s, .formato = etiqueta});
  ventanas.ponerMuestra(importar::PuertaImpTabla{.fichero = tarifa});
  return {};
}

}  // namespace tarvo::capturas
