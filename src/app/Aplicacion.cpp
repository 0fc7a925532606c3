#include "app/Aplicacion.h"

#include <pwd.h>
#include <unistd.h>

#include <QSysInfo>

#include "comm/configuracion/Aceptado.h"
#include "comm/envios/TablasEnvios.h"
#include "comm/exploracion/Aplicar.h"
#include "comm/tareas/Repertorio.h"
#include "groups/Grupos.h"
#include "totals/libros/Grupos.h"

namespace tarvo::app {

namespace {

// The person at this computer, as user and machine. A service has no USER.
QString personaDeAqui() {
  QString persona = qEnvironmentVariable("USER", qEnvironmentVariable("LOGNAME"));
  if (persona.isEmpty())
    if (const passwd* suyo = ::getpwuid(::getuid()))
      persona = QString::fromLocal8Bit(suyo->pw_name);
  return persona + QLatin1Char('@') + QSysInfo::machineHostName();
}

}  // namespace

// In the order of the start; later members depend on earlier ones, and are destroyed first.
struct Aplicacion::Interior {
  Interior(Fondo& fondo, Reloj& reloj, enlace::FabricaEnlaces& fabrica, quint64 semilla,
           automation::Preguntas& preguntas)
      : db(*fondo.db),
        casa(fondo),
        hora(reloj),
        cables(fabrica),
        catalogo(db, fondo.textos, reloj, personaDeAqui()),
        operadores(db, fondo.textos),
        ofertas(db, fondo.textos, reloj),
        almacenes(db, reloj, fondo.textos),
        sesion(db, fondo.ajustes, reloj, fondo.textos),
        periodos(db, fondo.ajustes, almacenes, fondo.textos),
        cerrSes(sesion, periodos),
        verTot(periodos),
        xporTot(periodos),
        repertorio(tareas::repertorio()),
        azar(semilla),
        enlaces(reloj, fondo.ajustes, fabrica, azar),
        gestcomm({db, fondo.ajustes, reloj, sesion, fondo.textos,
                  [this](int seccion) { return articles::motivoDeEspera(catalogo, seccion); }},
                 enlaces, repertorio),
        grupos(db, fondo.ajustes, fondo.textos, reloj),
        debidos(db),
        lenguaje(repertorio, fondo.ajustes, fondo.textos),
        automat({db, fondo.ajustes, reloj, sesion, gestcomm, repertorio, cerrSes, verTot, xporTot,
                 fondo.textos},
                preguntas),
        cronos(automat, lenguaje, fondo.ajustes, reloj) {
    cronos.alEmpezar = [&fondo] { return dudasDe(fondo.ajustes, fondo.textos); };
    // Before the books forget the group: a reading that leaves the queue is noted in them.
    catalogo.cambios().guardaPorGrupo(
        {.olvidar = [this](int grupo) { return gestcomm.olvidarGrupo(grupo); },
         .tablas = {},
         .puedeIrse = [this](int grupo) { return gestcomm.puedeIrse(grupo); },
         .tareas = [this](int grupo) { return gestcomm.tareasDe(grupo); },
         .cambiado =
             [this](const auto& cambio) { gestcomm.grupoCambiado(cambio.antes, cambio.ahora); }});
    articles::Cambios::DeOtraSala libros{
        [this](int grupo) { return totals::olvidarGrupo(db, grupo); }, {}};
    for (const auto& t : totals::tablasDeGrupo()) libros.tablas.push_back({t.tabla, t.donde});
    libros.ventas = [this](int grupo) { return sesion.sinPeriodo(grupo); };
    libros.cambia = [this](const auto& cambio) { return cambiarEnLosLibros(cambio); };
    catalogo.cambios().guardaPorGrupo(std::move(libros));
    articles::Cambios::DeOtraSala listas{
        [this](int grupo) { return tareas::olvidarGrupo(db, grupo); }, {}};
    for (const QString& tabla : tareas::tablasDeGrupo()) listas.tablas.push_back({tabla, {}});
    catalogo.cambios().guardaPorGrupo(std::move(listas));
    // Its rows go by their foreign key.
    articles::Cambios::DeOtraSala enviado{[](int) { return Resultado<>(); }, {}};
    for (const auto& suyas : {envios::tablasDeGrupo(), configuracion::tablasDeGrupo()})
      for (const QString& tabla : suyas) enviado.tablas.push_back({tabla, {}});
    enviado.conClave = true;
    enviado.cambia = [this](const auto& cambio) {
      return configuracion::olvidarMaquinas(db, cambio.ahora, cambio.otrasMaquinas);
    };
    catalogo.cambios().guardaPorGrupo(std::move(enviado));
  }

  Resultado<> cambiarEnLosLibros(const articles::Cambios::CambioDeGrupo& c) {
    if (c.antes != c.ahora) TARVO_INTENTAR(totals::cambiarCodigo(db, c.antes, c.ahora));
    if (!c.direcciones.empty())
      TARVO_INTENTAR(totals::cambiarDirecciones(db, c.ahora, c.direcciones));
    for (const int addr : c.cajasQueSeVan)
      TARVO_INTENTAR(totals::olvidarCaja(db, casa.ajustes, c.ahora, addr));
    return {};
  }

  dao::Database& db;
  Fondo& casa;
  Reloj& hora;
  enlace::FabricaEnlaces& cables;
  articles::Catalogo catalogo;
  articles::Operadores operadores;
  precios::Ofertas ofertas;
  stock::Almacenes almacenes;
  totals::Sesion sesion;
  totals::Periodos periodos;
  totals::CerrSes cerrSes;
  totals::VerTot verTot;
  totals::XporTot xporTot;
  motor::RepertorioTareas repertorio;
  Azar azar;
  enlace::Enlaces enlaces;
  motor::gestcomm gestcomm;
  envios::Grupos grupos;
  automation::Pendientes debidos;
  automation::Lenguaje lenguaje;
  automation::Automat automat;
  automation::Cronos cronos;
};

Aplicacion::Aplicacion(Fondo& fondo, Reloj& reloj, enlace::FabricaEnlaces& fabrica, quint64 semilla,
                       automation::Preguntas& preguntas)
    : d(std::make_unique<Interior>(fondo, reloj, fabrica, semilla, preguntas)) {}

Aplicacion::~Aplicacion() = default;

Resultado<QStringList> Aplicacion::empezar() {
  TARVO_INTENTAR(d->almacenes.asegurar());
  TARVO_TOMAR(auto avisos, d->xporTot.recuperar());
  TARVO_INTENTAR(d->sesion.cargar());
  TARVO_INTENTAR(totals::seguirCajas(d->db, d->casa.ajustes, d->sesion));
  return avisos;
}

automation::Automat& Aplicacion::automat() {
  return d->automat;
}
automation::Cronos& Aplicacion::cronos() {
  return d->cronos;
}
const automation::Lenguaje& Aplicacion::lenguaje() const {
  return d->lenguaje;
}
motor::gestcomm& Aplicacion::gestcomm() {
  return d->gestcomm;
}
conexion::Servicios Aplicacion::conexion() {
  return {d->gestcomm, d->enlaces, d->db};
}
enlace::Enlaces& Aplicacion::enlaces() {
  return d->enlaces;
}
articles::Catalogo& Aplicacion::catalogo() {
  return d->catalogo;
}
articles::Operadores& Aplicacion::operadores() {
  return d->operadores;
}
precios::Ofertas& Aplicacion::ofertas() {
  return d->ofertas;
}
stock::Almacenes& Aplicacion::almacenes() {
  return d->almacenes;
}
totals::Sesion& Aplicacion::sesion() {
  return d->sesion;
}
totals::Periodos& Aplicacion::periodos() {
  return d->periodos;
}
totals::CerrSes& Aplicacion::cerrSes() {
  return d->cerrSes;
}
totals::VerTot& Aplicacion::verTot() {
  return d->verTot;
}
totals::XporTot& Aplicacion::xporTot() {
  return d->xporTot;
}
enlace::FabricaEnlaces& Aplicacion::fabrica() {
  return d->cables;
}
Resultado<bool> Aplicacion::porEstrenar() {
  groups::Grupos grupos(d->catalogo, d->casa.ajustes);
  return exploracion::Aplicador(grupos, d->catalogo, d->casa.ajustes).porEstrenar();
}
envios::Grupos& Aplicacion::grupos() {
  return d->grupos;
}
automation::Pendientes& Aplicacion::debidos() {
  return d->debidos;
}
std::shared_ptr<automation::LectorResumen> Aplicacion::resumen() {
  std::set<int> enCola;
  for (const auto& t : d->gestcomm.pendientes()) enCola.insert(t.datos.Grupo);
  return std::make_shared<automation::LectorResumen>(
      automation::FuentesResumen{.db = d->db,
                                 .ajustes = d->casa.ajustes,
                                 .textos = d->casa.textos,
                                 .lenguaje = d->lenguaje,
                                 .ahora = d->hora.ahora(),
                                 .cronos = &d->cronos,
                                 .curso = d->automat.curso(),
                                 .enCola = std::move(enCola)});
}
Resultado<std::vector<articles::LoteAMedias>> Aplicacion::lotesAMedias() const {
  return articles::lotesAMedias(d->catalogo);
}
Resultado<> Aplicacion::olvidarTiquesViejos() {
  if (!d->db.existeTabla(u"TikAbier")) return {};
  TARVO_INTENTAR(d->db.ejecutar(u"DELETE FROM TikAbier WHERE fecha<?", d->hora.ahora().dia()));
  return {};
}
const motor::RepertorioTareas& Aplicacion::repertorio() const {
  return d->repertorio;
}

}  // namespace tarvo::app
