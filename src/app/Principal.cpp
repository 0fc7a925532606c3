#include "app/Principal.h"

#include <signal.h>
#include <unistd.h>

#include <QCoreApplication>
#include <QFile>
#include <algorithm>
#include <random>

#include "app/Consola.h"
#include "app/Datos.h"
#include "app/Ejecucion.h"
#include "app/Explorar.h"
#include "app/TextosApp.h"
#include "comm/cables/FabricaReal.h"
#include "totals/libros/Cuadre.h"

namespace tarvo::app {

namespace {

int decirAyuda(const Textos& t) {
  for (int n = kTxAyuda; t.tiene(n); ++n) decir(t(n));
  return kBien;
}

int hacerCuadre(const Ordenes& o, dao::Database& db, const Ajustes& ajustes, const Textos& t) {
  const auto informe = totals::informeCuadre(db, ajustes, t, o.link);
  informe ? decir(informe->texto) : avisar(t(kTxCuadreFallido).arg(informe.error().texto));
  return informe && informe->cuadra ? kBien : kProblemas;
}

// Records a person's answer about a machine that may have been zeroed.
int responderPuesta(const Ordenes& o, Fondo& fondo, const Textos& t, Reloj& reloj) {
  Datos datos({}, t);
  return conAplicacion(fondo, reloj, datos, avisar, [&](Aplicacion& aplicacion) -> int {
    std::vector<totals::Aviso> avisos;
    const auto links = aplicacion.cerrSes().responder(o.grupo, o.direccion, o.seBorro, avisos);
    for (const auto& a : avisos) decir(a.texto);
    if (!links) {
      avisar(links.error().texto);
      return kProblemas;
    }
    decir(links->empty() ? t(kTxPuestaAnotada) : t(kTxPuestaMemorizada));
    const bool guardado = aplicacion.sesion().reflejar().has_value();
    return guardado && std::ranges::none_of(avisos, &totals::Aviso::grave) ? kBien : kProblemas;
  });
}

// While another program has the database. What a person answers changes the books, so it is the
// other's to record.
int mientrasOtro(const Ordenes& o, const Textos& t, const QString& carpeta, const Error& error,
                 Reloj& reloj) {
  if (o.que != Ordenes::Que::Cuadre) {
    avisar(error.texto);
    avisar(t(kTxContesteEnLaVentana));
    return kSinBase;
  }
  const auto vista = Fondo::mirar(carpeta, o.idioma, t, reloj);
  const auto foto = vista ? dao::Transaccion::empezar(*vista->db)
                          : Resultado<dao::Transaccion>(std::unexpected(vista.error()));
  if (foto) return hacerCuadre(o, *vista->db, vista->ajustes, t);
  avisar(foto.error().texto);
  return kSinBase;
}

int decirSinCarpeta(const Error& e, const Textos& t, const Avisar& avisar) {
  avisar(t(kTxCarpetaNoExiste).arg(e.texto));
  return kSinBase;
}

// Goes on without the database when another program has it: that one may run the process.
int correrProceso(const Ordenes& o, const Textos& t) {
  const auto carpeta = carpetaPrograma(o.carpeta);
  if (!carpeta) return decirSinCarpeta(carpeta.error(), t, avisar);
  RelojReal reloj;
  auto fondo = Fondo::abrir(*carpeta, o.idioma, t, reloj);
  if (!fondo && fondo.error().clase != Fallo::Ocupado) {
    avisar(fondo.error().texto);
    return kSinBase;
  }
  const auto ajustes = Fondo::leerAjustes(*carpeta, o.idioma, t, reloj);
  if (!ajustes) {
    avisar(ajustes.error().texto);
    return kSinBase;
  }
  const Puesto puesto{*carpeta, o.idioma, t, reloj, o.datos, o.espera * 60 * 1000};
  return Ejecucion(puesto, *ajustes, fondo ? std::move(*fondo) : nullptr)
      .ejecutar(rutaProceso(o.proceso, *ajustes));
}

// The program with windows is beside this one and replaces it.
int cederAVentanas(char** argv, const Textos& t) {
  const QByteArray ruta =
      QFile::encodeName(carpetaEjecutable() + QStringLiteral("/tarvo-ventanas"));
  ::execv(ruta.constData(), argv);
  avisar(t(kTxSinVentanas).arg(QFile::decodeName(ruta)));
  return kArgumentosMalos;
}

int sinVentanas(const Ordenes& o, const Textos& t) {
  switch (o.que) {
    case Ordenes::Que::Ayuda:
      return decirAyuda(t);
    case Ordenes::Que::Version:
      decir(t(kTxVersion).arg(QStringLiteral(TARVO_VERSION)));
      return kBien;
    case Ordenes::Que::Explorar:
      return explorar(o, t);
    default:
      if (o.que == Ordenes::Que::Proceso) return correrProceso(o, t);
      return conFondo(
          o, t, avisar,
          [&](Fondo& fondo, Reloj& reloj) {
            return o.que == Ordenes::Que::Cuadre ? hacerCuadre(o, *fondo.db, fondo.ajustes, t)
                                                 : responderPuesta(o, fondo, t, reloj);
          },
          {.ocupada = [&](const QString& carpeta, const Error& error,
                          Reloj& reloj) { return mientrasOtro(o, t, carpeta, error, reloj); },
           .crearla = {}});
  }
}

}  // namespace

int conFondo(const Ordenes& o, const Textos& t, const Avisar& avisar,
             const std::function<int(Fondo& fondo, Reloj& reloj)>& hacer, const SiNoSeAbre& siNo) {
  const auto carpeta = carpetaPrograma(o.carpeta);
  if (!carpeta) return decirSinCarpeta(carpeta.error(), t, avisar);
  RelojReal reloj;
  auto siFalta = SiFaltaLaBase::Negarse;
  while (true) {
    const auto fondo = Fondo::abrir(*carpeta, o.idioma, t, reloj, siFalta);
    if (fondo) return hacer(**fondo, reloj);
    const Error& error = fondo.error();
    if (error.clase == Fallo::Ocupado && siNo.ocupada) {
      const auto estado = siNo.ocupada(*carpeta, error, reloj);
      if (!estado) continue;
      return *estado;
    }
    if (error.clase == Fallo::NoExiste && siNo.crearla && siFalta == SiFaltaLaBase::Negarse) {
      const auto ajustes = Fondo::leerAjustes(*carpeta, o.idioma, t, reloj);
      if (ajustes && faltaLaBase(*ajustes)) {
        if (!siNo.crearla(ajustes->BaseDatos)) return kSinBase;
        siFalta = SiFaltaLaBase::Crearla;
        continue;
      }
    }
    avisar(error.texto);
    return kSinBase;
  }
}

int conAplicacion(Fondo& fondo, Reloj& reloj, automation::Preguntas& preguntas,
                  const Avisar& avisar, const std::function<int(Aplicacion& aplicacion)>& hacer) {
  enlace::FabricaReal fabrica(reloj, fondo.ajustes);
  Aplicacion aplicacion(fondo, reloj, fabrica, std::random_device{}(), preguntas);
  const auto avisos = aplicacion.empezar();
  if (!avisos) {
    avisar(fondo.textos(kTxSinArranque).arg(avisos.error().texto));
    return kSinBase;
  }
  for (const QString& aviso : *avisos) avisar(aviso);
  return hacer(aplicacion);
}

int principal(int argc, char** argv, const ConVentanas& conVentanas) {
  ::signal(SIGPIPE, SIG_IGN);  // a trace reader that goes away doesn't end a night
  ::signal(SIGXFSZ, SIG_IGN);  // a file at its size limit is an error of that file
  const auto textos = Textos::leer(QStringLiteral(":/textos/es.txt"));
  if (!textos) {
    avisar(textos.error().texto);
    return kSinBase;
  }
  QStringList argumentos;
  for (int i = 1; i < argc; ++i) argumentos << QFile::decodeName(argv[i]);
  const auto ordenes = leerOrdenes(argumentos, *textos);
  if (!ordenes) {
    avisar(ordenes.error());
    avisar((*textos)(kTxVerAyuda));
    return kArgumentosMalos;
  }
  if (ordenes->que == Ordenes::Que::Ventanas)
    return conVentanas ? conVentanas(*ordenes, *textos) : cederAVentanas(argv, *textos);
  const QCoreApplication bucle(argc, argv);
  return sinVentanas(*ordenes, *textos);
}

}  // namespace tarvo::app
