#include "automation/TiendaDeProcesos.h"

#include <QDir>
#include <QFile>

#include "comm/cables/AjustesCables.h"
#include "comm/enlace/AjustesEnlace.h"
#include "comm/motor/AjustesMotor.h"
#include "comm/motor/TextosMotor.h"
#include "core/ajustes/Ficheros.h"
#include "enlace/CableMemoria.h"
#include "textos/TextosDePrueba.h"
#include "tienda/TiendaVacia.h"
#include "totals/libros/AjustesSesion.h"
#include "totals/libros/TablasLibros.h"
#include "totals/periodos/AjustesPeriodos.h"
#include "totals/periodos/TablasTotales.h"

namespace tarvo::automation {

using namespace Qt::StringLiterals;

namespace {

// A reading of one kind. The reset of a machine comes between the notice on disk and its
// confirmation.
class TrabajoDePrueba final : public motor::CursoTarea {
 public:
  TrabajoDePrueba(const motor::DatosTarea& datos, const motor::Entorno& entorno)
      : d_(datos), en_(entorno) {}
  Resultado<motor::Siguiente> siguiente() override {
    if (maquinasDePrueba().alPreguntar) maquinasDePrueba().alPreguntar();
    if (d_.Clase == TipoTarea::TxZero) TARVO_INTENTAR(olvidar());
    return motor::Siguiente::fin();
  }
  bool encaja(int, int, const QByteArray&) const override { return false; }
  Resultado<> respuesta(int, int, const QByteArray&) override { return {}; }
  qint64 avance() const override { return 0; }
  Resultado<std::vector<totals::Aviso>> cerrar() override {
    std::vector<totals::Aviso> avisos;
    if (d_.Clase == TipoTarea::TxZero)
      TARVO_INTENTAR(en_.sesion.ceroHecho(d_.Grupo, 0, true, totals::Sesion::Visto::Todo));
    else if (esDeTotales(d_.Clase))
      TARVO_INTENTAR(leer(avisos));
    return avisos;
  }

 private:
  Resultado<> leer(std::vector<totals::Aviso>& avisos) {
    TARVO_INTENTAR(en_.sesion.PrepararRecepcion(d_.Grupo, *totalDe(d_.Clase)));
    totals::Lectura l;
    const qint64 codigo = d_.Clase == TipoTarea::RxGrTot ? d_.Grupo : 7;
    l.maquinas[0][{codigo, 0}] = maquinasDePrueba().porGrupo[d_.Grupo];
    return en_.sesion.guardarLectura(d_.Grupo, *totalDe(d_.Clase), l, avisos);
  }

  Resultado<> olvidar() {
    const auto permiso = en_.sesion.permisoCero(d_.Grupo);
    if (!permiso) return std::unexpected(permiso.error());
    if (!permiso->permitido) return suprimida(permiso->motivo);
    auto& maquina = maquinasDePrueba().porGrupo[d_.Grupo];
    if (permiso->comprobar) {
      const auto c = en_.sesion.compararGranTotal(d_.Grupo, 0, maquina);
      if (!c || *c == totals::Sesion::Comparacion::Mas)
        return suprimida(QStringLiteral("ha vendido"));
      if (*c == totals::Sesion::Comparacion::Cero) return {};
    }
    TARVO_INTENTAR(en_.sesion.anunciarCero(d_.Grupo, 0));
    maquina = {};
    ++maquinasDePrueba().ceros;
    return {};
  }
  static Resultado<> suprimida(const QString& motivo) {
    return tarvo::fallo(Fallo::Restriccion, motivo, motor::kErrorSuprimido);
  }

  motor::DatosTarea d_;
  motor::Entorno en_;
};

std::unique_ptr<motor::CursoTarea> hacerTrabajo(const motor::DatosTarea& d,
                                                const motor::Entorno& e) {
  return std::make_unique<TrabajoDePrueba>(d, e);
}

motor::ClaseTarea claseDePrueba(TipoTarea tarea, const char16_t* clave) {
  motor::ClaseTarea c;
  c.tarea = tarea;
  c.clave = clave;
  c.nombre = motor::kTxNombreClase + numeroDe(tarea);
  c.tipos = todosLos<TipoGrupo>();
  c.total = totalDe(tarea);
  c.esLectura = c.total.has_value();
  c.esOlvido = tarea == TipoTarea::TxZero;
  c.crear = hacerTrabajo;
  return c;
}

std::unique_ptr<dao::Database> abrirBase(const QString& carpeta) {
  return prueba::bien(dao::Database::OpenDatabase(carpeta + u"/TARVO.MDB"_s, {.crear = true}));
}

// Two groups on connectors, last reset this morning, one article.
void llenar(prueba::Tienda& tienda) {
  tienda.seccion(1).almacen(1, u"UNO").articulo({.codigo = 7, .cada = 0});
  for (const int g : {1, 2})
    tienda
        .grupo({.codigo = g,
                .nombre = u"Tienda",
                .almacen = 1,
                .remoto = 4,
                .acceso = u"grupo%1"_s.arg(g)})
        .fila(u"Sesiones", {{u"CODGPO", g}, {u"PZERO", Fecha::de(QDate(2026, 3, 4), QTime(7, 0))}});
}

}  // namespace

Maquinas& maquinasDePrueba() {
  static Maquinas maquinas;
  return maquinas;
}

motor::RepertorioTareas registroDePrueba() {
  motor::RepertorioTareas r;
  r.anadir(claseDePrueba(TipoTarea::TxPlus, u"TXPLUS"));
  auto sinNadie = claseDePrueba(TipoTarea::TxTecla, u"TXTECLA");
  sinNadie.crear = nullptr;
  r.anadir(sinNadie);
  r.anadir(claseDePrueba(TipoTarea::TxZero, u"TX_ZERO"));
  r.anadir(claseDePrueba(TipoTarea::TxHora, u"TX_HORA"));
  r.anadir(claseDePrueba(TipoTarea::RxPlus, u"RXPLUS"));
  r.anadir(claseDePrueba(TipoTarea::RxGrTot, u"RXGRTOT"));
  return r;
}

struct Programa::Piezas {
  Piezas(const QString& carpeta, RelojVirtual& base)
      : reloj(base),
        ajustes(carpeta, Idioma::Espanol,
                {enlace::ajustesCables(), enlace::ajustesEnlace(), motor::ajustesMotor(),
                 totals::ajustesSesion(), totals::ajustesPeriodos()}),
        db(abrirBase(carpeta)) {
    EXPECT_TRUE(ajustes.LeerConfig());
    EXPECT_TRUE(totals::asegurarTablasLibros(*db));
    EXPECT_TRUE(totals::asegurarTablasTotales(*db));
    EXPECT_TRUE(sesion.cargar());
    for (const int g : maquinasDePrueba().mudas)
      cables.razones[u"grupo%1"_s.arg(g)] = enlace::kSinHost;
  }
  RelojConCorte reloj;
  Ajustes ajustes;
  std::unique_ptr<dao::Database> db;
  motor::RepertorioTareas repertorio = registroDePrueba();
  totals::Sesion sesion{*db, ajustes, reloj, textosDePrueba()};
  stock::Almacenes almacenes{*db, reloj, textosDePrueba()};
  totals::Periodos periodos{*db, ajustes, almacenes, textosDePrueba()};
  totals::CerrSes cerrSes{sesion, periodos};
  totals::VerTot verTot{periodos};
  totals::XporTot xporTot{periodos};
  pruebas::FabricaMemoria cables{reloj};
  Azar azar{1};
  enlace::Enlaces enlaces{reloj, ajustes, cables, azar};
  motor::gestcomm motor{{*db, ajustes, reloj, sesion, textosDePrueba()}, enlaces, repertorio};
  Lenguaje lenguaje{repertorio, ajustes, textosDePrueba()};
  std::unique_ptr<Automat> automat;
};

Programa::Programa(const QString& carpeta, RelojVirtual& reloj, Preguntas& respuestas, int corteEn)
    : p(std::make_unique<Piezas>(carpeta, reloj)), virtual_(reloj) {
  p->automat = std::make_unique<Automat>(
      Taller{*p->db, p->ajustes, p->reloj, p->sesion, p->motor, p->repertorio, p->cerrSes,
             p->verTot, p->xporTot, textosDePrueba()},
      respuestas);
  p->automat->desatendido = true;
  p->automat->alEscribir = [this](const QString& l) { lineas += l; };
  p->automat->alTerminar = [this](ResultadoProceso r) { fin = r; };
  p->reloj.corteEn = corteEn;
}

Programa::~Programa() {
  p->reloj.corteEn = 0;
}

void Programa::correr(const QString& proceso, const QString& traza, const QString& nombre) {
  const auto f = p->lenguaje.leer(proceso);
  ASSERT_TRUE(f) << f.error().texto.toStdString();
  fin.reset();
  p->automat->PROCESO(f->pasos, traza, nombre, f->omitidas);
}

bool Programa::hastaElFin(double horas) {
  const qint64 limite = virtual_.monotono() + static_cast<qint64>(horas * 3600000);
  while (!fin && virtual_.monotono() < limite && virtual_.siguiente()) {
  }
  return fin.has_value();
}

Automat& Programa::automat() {
  return *p->automat;
}
dao::Database& Programa::db() {
  return *p->db;
}
motor::gestcomm& Programa::motor() {
  return p->motor;
}
totals::Sesion& Programa::sesion() {
  return p->sesion;
}
totals::VerTot& Programa::verTot() {
  return p->verTot;
}
const Lenguaje& Programa::lenguaje() {
  return p->lenguaje;
}
Ajustes& Programa::ajustes() {
  return p->ajustes;
}
Reloj& Programa::reloj() {
  return p->reloj;
}

namespace {

// The database of a shop, created once.
const QByteArray& baseDeTienda() {
  static const QByteArray bytes = [] {
    prueba::TiendaVacia tienda;
    llenar(tienda);
    tienda.db.reset();
    return *ficheros::leerBytes(tienda.ruta(u"TARVO.MDB"_s));
  }();
  return bytes;
}

}  // namespace

TiendaDeProcesos::TiendaDeProcesos() {
  EXPECT_TRUE(ficheros::escribirEntero(dir.filePath(u"TARVO.MDB"_s), baseDeTienda()));
  maquinasDePrueba() = {};
  maquinasDePrueba().porGrupo[1] = {10, 1000, 2500, 0};
  maquinasDePrueba().porGrupo[2] = {5, 500, 1100, 0};
}

QStringList TiendaDeProcesos::libros() {
  QStringList filas;
  const auto db = abrirBase(dir.path());
  const auto volcar = [&](const QString& tabla, const QString& sql) {
    auto rs = db->consultar(sql);
    ASSERT_TRUE(rs) << rs.error().texto.toStdString();
    while (!(*rs)->Eof()) {
      QStringList campos;
      for (int i = 0; i < (*rs)->numColumnas(); ++i) campos += (*rs)->texto(i);
      filas += tabla + u": "_s + campos.join(u'|');
      ASSERT_TRUE((*rs)->MoveNext());
    }
  };
  volcar(
      u"COLUMNA"_s,
      u"SELECT TIPO,FECHA1,FECHAF,DESCR,ACUM2,ACUM3,ACUM4,stkADO FROM COLUMNA ORDER BY TIPO, FECHA1"_s);
  for (const auto& c : totals::todasLasClases())
    volcar(
        QString::fromUtf16(c.tabla),
        u"SELECT TIPO,GRUPO,CODI,CON,PES,IMP,SCO FROM %1, COLUMNA WHERE %1.LINK=COLUMNA.LINK ORDER BY TIPO, GRUPO, CODI"_s
            .arg(QString::fromUtf16(c.tabla)));
  volcar(u"MovsAlm"_s, u"SELECT CODALM, CODIGO, Venta FROM MovsAlm ORDER BY CODIGO"_s);
  volcar(u"Estado"_s, u"SELECT VALOR FROM EstadoTarvo WHERE CLAVE='SesionAbier'"_s);
  volcar(u"Proceso"_s, u"SELECT NOMBRE FROM Proceso"_s);
  return filas;
}

QString TiendaDeProcesos::texto(const QString& fichero) const {
  const auto bytes = ficheros::leerBytes(dir.filePath(fichero));
  return bytes ? ficheros::descodificar(*bytes) : QString();
}

}  // namespace tarvo::automation
