#include "Banco.h"

#include <QDir>
#include <QFile>

#include "core/ajustes/Ficheros.h"
#include "totals/TablasLibros.h"
#include "totals/TablasTotales.h"

namespace tarvo::automation {

using namespace Qt::StringLiterals;

namespace {

// A reading of one kind. The reset of a machine lies between the notice on disk and its confirmation.
class TrabajoDePrueba final : public motor::TrabajoTarea {
 public:
  TrabajoDePrueba(const motor::DatosTarea& datos, const motor::Entorno& entorno) : d_(datos), en_(entorno) {}
  Resultado<motor::Siguiente> siguiente() override { return motor::Siguiente::fin(); }
  bool encaja(int, int, const QByteArray&) const override { return false; }
  Resultado<> respuesta(int, int, const QByteArray&) override { return {}; }
  qint64 avance() const override { return 0; }
  void abandonar() override {
    if (d_.Clase >= totals::kPLUs) static_cast<void>(en_.sesion.lecturaFallida(d_.Grupo, d_.Clase));
  }
  Resultado<std::vector<totals::Aviso>> cerrar() override {
    std::vector<totals::Aviso> avisos;
    if (d_.Clase == totals::kPuestaACero) TARVO_INTENTAR(ponerACero());
    else if (d_.Clase >= totals::kPLUs) TARVO_INTENTAR(leer(avisos));
    return avisos;
  }

 private:
  Resultado<> leer(std::vector<totals::Aviso>& avisos) {
    TARVO_INTENTAR(en_.sesion.PrepararRecepcion(d_.Grupo, d_.Clase));
    totals::Lectura l;
    const qint64 codigo = d_.Clase == totals::kGranTotal ? 0 : 7;
    l.maquinas[0][{codigo, 0}] = maquinasDePrueba().porGrupo[d_.Grupo];
    return en_.sesion.guardarLectura(d_.Grupo, d_.Clase, l, avisos);
  }

  Resultado<> ponerACero() {
    const auto permiso = en_.sesion.permisoCero(d_.Grupo);
    if (!permiso) return std::unexpected(permiso.error());
    auto& maquina = maquinasDePrueba().porGrupo[d_.Grupo];
    const bool permitido = permiso->permitido && (!permiso->comprobar || igual(maquina));
    if (!permitido) return tarvo::fallo(Fallo::Comunicacion, permiso->motivo, 22);
    TARVO_INTENTAR(en_.sesion.anunciarCero(d_.Grupo, 0));
    maquina = {};
    ++maquinasDePrueba().ceros;
    return en_.sesion.ceroHecho(d_.Grupo, 0, true);
  }
  bool igual(const totals::Contadores& leido) {
    const auto c = en_.sesion.compararGranTotal(d_.Grupo, 0, leido);
    return c && *c != totals::Sesion::Comparacion::Mas;
  }

  motor::DatosTarea d_;
  motor::Entorno en_;
};

std::unique_ptr<motor::TrabajoTarea> hacerTrabajo(const motor::DatosTarea& d, const motor::Entorno& e) {
  return std::make_unique<TrabajoDePrueba>(d, e);
}

motor::ClaseTarea claseDePrueba(int numero, const char16_t* clave, const char16_t* nombre) {
  motor::ClaseTarea c;
  c.numero = numero;
  c.clave = clave;
  c.nombre = nombre;
  c.tipos = {1, 2, 3, 4};
  c.esTotal = c.esLectura = numero >= 16;
  c.esOlvido = numero == 6;
  c.crear = hacerTrabajo;
  return c;
}

constexpr auto kEsquema = uR"(
CREATE TABLE GRUPOS (CODGPO INTEGER PRIMARY KEY, NOMGPO TEXT, SECCION INTEGER DEFAULT 1, tipo INTEGER DEFAULT 1,
  remoto INTEGER DEFAULT 3, telef TEXT DEFAULT 'host', canal INTEGER DEFAULT 1, Baudios INTEGER DEFAULT 0, Addr INTEGER DEFAULT 0,
  Tarifa INTEGER DEFAULT 0, HORARIO TEXT, Almacen INTEGER DEFAULT 1);
CREATE TABLE BZAS (SUGPO INTEGER, CODBZA INTEGER, Addr INTEGER, PRIMARY KEY (SUGPO, CODBZA));
CREATE TABLE PLUSES (SECCION INTEGER, CODPLU INTEGER, NOMPLU TEXT, CADA INTEGER DEFAULT 0, PRIMARY KEY (SECCION, CODPLU));
CREATE TABLE ALMACEN (CODALM INTEGER PRIMARY KEY, NOMALM TEXT, FCHINI REAL, FCHREG REAL);
CREATE TABLE MovsAlm (CODALM INTEGER, SECCION INTEGER, CODIGO INTEGER, Inicial INTEGER DEFAULT 0, Entrada INTEGER DEFAULT 0,
  Compra INTEGER DEFAULT 0, Salida INTEGER DEFAULT 0, Venta INTEGER DEFAULT 0, Merma INTEGER DEFAULT 0, tag INTEGER,
  PRIMARY KEY (CODALM, SECCION, CODIGO));
CREATE TABLE Sesiones (CODGPO INTEGER PRIMARY KEY, PZERO REAL,
  DD_PLU REAL, HT_PLU REAL, SS_PLU INTEGER DEFAULT 0, DD_GRT REAL, HT_GRT REAL, SS_GRT INTEGER DEFAULT 0,
  DD_OPE REAL, HT_OPE REAL, SS_OPE INTEGER DEFAULT 0, DD_DEP REAL, HT_DEP REAL, SS_DEP INTEGER DEFAULT 0,
  DD_HOR REAL, HT_HOR REAL, SS_HOR INTEGER DEFAULT 0, DD_OPH REAL, HT_OPH REAL, SS_OPH INTEGER DEFAULT 0);
CREATE TABLE COLUMNA (LINK INTEGER PRIMARY KEY, TIPO INTEGER, FECHA1 REAL, FECHAF REAL, DESCR TEXT, ACUM2 INTEGER DEFAULT 0,
  ACUM3 INTEGER DEFAULT 0, ACUM4 INTEGER DEFAULT 0, stkABLE INTEGER DEFAULT 0, stkADO INTEGER DEFAULT 0);
INSERT INTO PLUSES VALUES (1, 7, 'Siete', 0);
INSERT INTO ALMACEN VALUES (1, 'UNO', NULL, NULL);
INSERT INTO GRUPOS (CODGPO, NOMGPO) VALUES (1, 'Centro');
INSERT INTO GRUPOS (CODGPO, NOMGPO) VALUES (2, 'Sur');
)";

QString esquemaDeTotales() {
  QString s;
  for (const auto& c : totals::todasLasClases()) {
    const QString hora = c.conHora ? u" HORA INTEGER DEFAULT 0,"_s : QString(), clave = c.conHora ? u", HORA"_s : QString();
    s += u"CREATE TABLE %1 (LINK INTEGER, GRUPO INTEGER, CODI INTEGER,%2 CON INTEGER, PES INTEGER, IMP INTEGER, SCO INTEGER, "
         u"PRIMARY KEY (LINK, GRUPO, CODI%3));\n"_s.arg(QString::fromUtf16(c.tabla), hora, clave);
  }
  return s;
}

class SinCables final : public enlace::FabricaEnlaces {
 public:
  std::unique_ptr<enlace::LinkSocket> crear(int) override { return nullptr; }
  std::unique_ptr<enlace::LinkSocket> crearConector(const QString&, int&) override { return nullptr; }
};

std::unique_ptr<dao::Database> abrirBase(const QString& carpeta) {
  dao::Apertura como;
  como.crear = true;
  auto db = dao::Database::OpenDatabase(carpeta + u"/TARVO.MDB"_s, como);
  EXPECT_TRUE(db) << (db ? "" : db.error().texto.toStdString());
  return std::move(*db);
}

}  // namespace

Maquinas& maquinasDePrueba() {
  static Maquinas maquinas;
  return maquinas;
}

motor::RegistroTareas registroDePrueba() {
  motor::RegistroTareas r;
  r.anadir(claseDePrueba(1, u"TXPLUS", u"Tx Artículos"));
  r.anadir(claseDePrueba(6, u"TX_ZERO", u"!PUESTA A CERO!"));
  r.anadir(claseDePrueba(7, u"TX_HORA", u"Tx Fecha y Hora"));
  r.anadir(claseDePrueba(16, u"RXPLUS", u"Rx Tot. Artículos"));
  r.anadir(claseDePrueba(17, u"RXGRTOT", u"Gran Total"));
  return r;
}

struct Programa::Piezas {
  Piezas(const QString& carpeta, RelojVirtual& base, Preguntas& preguntas)
      : reloj(base), ajustes(carpeta, Idioma::Espanol), db(abrirBase(carpeta)) {
    EXPECT_TRUE(ajustes.LeerConfig());
    EXPECT_TRUE(totals::asegurarTablasLibros(*db));
    EXPECT_TRUE(totals::asegurarTablasTotales(*db));
    EXPECT_TRUE(sesion.cargar());
    static_cast<void>(preguntas);
  }
  RelojConCorte reloj;
  Ajustes ajustes;
  std::unique_ptr<dao::Database> db;
  motor::RegistroTareas registro = registroDePrueba();
  totals::Sesion sesion{*db, ajustes, reloj};
  stock::Almacenes almacenes{*db, reloj};
  totals::Periodos periodos{*db, ajustes, almacenes};
  totals::CerrSes cerrSes{sesion, periodos};
  totals::VerTot verTot{periodos, *db, ajustes};
  totals::XporTot xporTot{*db, periodos, ajustes};
  SinCables cables;
  Azar azar{1};
  enlace::Enlaces enlaces{reloj, ajustes, cables, azar};
  motor::gestcomm motor{{*db, ajustes, reloj, sesion}, enlaces, registro};
  Lenguaje lenguaje{registro, ajustes};
  std::unique_ptr<Automat> automat;
};

Programa::Programa(const QString& carpeta, RelojVirtual& reloj, SinRespuestas& respuestas, int corteEn)
    : p(std::make_unique<Piezas>(carpeta, reloj, respuestas)), virtual_(reloj) {
  p->automat = std::make_unique<Automat>(
      Taller{*p->db, p->ajustes, p->reloj, p->sesion, p->motor, p->registro, p->cerrSes, p->verTot, p->xporTot}, respuestas);
  p->automat->desatendido = true;
  p->automat->alEscribir = [this](const QString& l) { lineas += l; };
  p->automat->alTerminar = [this](ResultadoProceso r) { fin = r; };
  p->reloj.corteEn = corteEn;
}

Programa::~Programa() { p->reloj.corteEn = 0; }

void Programa::correr(const QString& proceso, const QString& traza, const QString& nombre) {
  const auto f = p->lenguaje.leer(proceso);
  ASSERT_TRUE(f) << f.error().texto.toStdString();
  fin.reset();
  p->automat->PROCESO(f->pasos, traza, nombre);
}

bool Programa::hastaElFin(double horas) {
  const qint64 limite = virtual_.monotono() + static_cast<qint64>(horas * 3600000);
  while (!fin && virtual_.monotono() < limite && virtual_.siguiente()) {
  }
  return fin.has_value();
}

Automat& Programa::automat() { return *p->automat; }
dao::Database& Programa::db() { return *p->db; }
motor::gestcomm& Programa::motor() { return p->motor; }
totals::Sesion& Programa::sesion() { return p->sesion; }
totals::VerTot& Programa::verTot() { return p->verTot; }
const Lenguaje& Programa::lenguaje() { return p->lenguaje; }
Ajustes& Programa::ajustes() { return p->ajustes; }
Reloj& Programa::reloj() { return p->reloj; }

Tienda::Tienda() {
  const auto db = abrirBase(dir.path());
  EXPECT_TRUE(db->ejecutarGuion(kEsquema));
  EXPECT_TRUE(db->ejecutarGuion(esquemaDeTotales()));
  maquinasDePrueba() = {};
  maquinasDePrueba().porGrupo[1] = {10, 1000, 2500, 0};
  maquinasDePrueba().porGrupo[2] = {5, 500, 1100, 0};
}

QStringList Tienda::libros() {
  QStringList filas;
  const auto db = abrirBase(dir.path());
  const auto volcar = [&](const QString& sql) {
    auto rs = db->consultar(sql);
    ASSERT_TRUE(rs) << rs.error().texto.toStdString();
    while (!(*rs)->Eof()) {
      QStringList campos;
      for (int i = 0; i < (*rs)->numColumnas(); ++i) campos += (*rs)->texto(i);
      filas += sql.section(u' ', 3, 3) + u": "_s + campos.join(u'|');
      ASSERT_TRUE((*rs)->MoveNext());
    }
  };
  volcar(u"SELECT TIPO,FECHA1,FECHAF,DESCR,ACUM2,ACUM3,ACUM4,stkADO FROM COLUMNA ORDER BY TIPO, FECHA1"_s);
  for (const auto& c : totals::todasLasClases())
    volcar(u"SELECT TIPO,GRUPO,CODI,CON,PES,IMP,SCO FROM %1, COLUMNA WHERE %1.LINK=COLUMNA.LINK ORDER BY TIPO, GRUPO, CODI"_s.arg(
        QString::fromUtf16(c.tabla)));
  volcar(u"SELECT CODALM, CODIGO, Venta FROM MovsAlm ORDER BY CODIGO"_s);
  volcar(u"SELECT VALOR FROM EstadoTarvo WHERE CLAVE='SesionAbier'"_s);
  volcar(u"SELECT NOMBRE FROM Proceso"_s);
  return filas;
}

QString Tienda::texto(const QString& fichero) const {
  const auto bytes = ficheros::leerBytes(dir.filePath(fichero));
  return bytes ? ficheros::descodificar(*bytes) : QString();
}

}  // namespace tarvo::automation
