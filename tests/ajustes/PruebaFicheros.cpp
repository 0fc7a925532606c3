// Files on disk: their encoding, whole replacement, and names regardless of case.
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "core/ajustes/Ajustes.h"
#include "core/ajustes/Ficheros.h"
#include "tienda/Disco.h"
#include "totals/libros/AjustesSesion.h"

using namespace tarvo;

namespace {

void poner(const QString& ruta, const QByteArray& bytes) {
  QFile f(ruta);
  ASSERT_TRUE(f.open(QIODevice::WriteOnly));
  f.write(bytes);
}

QByteArray ver(const QString& ruta) {
  QFile f(ruta);
  return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray("(no está)");
}

class Disco : public ::testing::Test {
 protected:
  QString en(const char* nombre) const { return dir.filePath(QString::fromUtf8(nombre)); }
  QTemporaryDir dir;
};

}  // namespace

TEST(Codigo, CadaByteVuelveYLoQueNoCabeVaEnUtf8) {
  QByteArray todos;
  for (int b = 0; b < 256; ++b) todos.append(static_cast<char>(b));
  EXPECT_EQ(ficheros::codificar(ficheros::descodificar(todos)), todos);
  EXPECT_EQ(ficheros::descodificar("\x80 Sesi\xF3n"), QStringLiteral("€ Sesión"));
  EXPECT_EQ(ficheros::descodificar("\xEF\xBB\xBFSesi\xC3\xB3n"), QStringLiteral("Sesión"));
  EXPECT_EQ(ficheros::descodificar("Sesi\xC3\xB3n, 5 \xE2\x82\xAC"), QStringLiteral("Sesión, 5 €"));
  EXPECT_EQ(ficheros::descodificar("Sesi\xC3\xB3n, 5 \x80"), QStringLiteral("SesiÃ³n, 5 €"));
  EXPECT_EQ(ficheros::codificar1252(QStringLiteral("Ωmega 🐟")), "?mega ?");
  for (const QString& texto :
       {QStringLiteral("Ωmega 🐟"), QStringLiteral("SÃ\u00AD"), QStringLiteral("Sí")})
    EXPECT_EQ(ficheros::descodificar(ficheros::codificar(texto)), texto) << texto.toStdString();
}

TEST_F(Disco, EscribirCambiaElFicheroEnteroYNoDejaOtro) {
  poner(en("a.txt"), "viejo");
  QFile::setPermissions(en("a.txt"), QFile::ReadOwner | QFile::WriteOwner);
  QFile::link(en("a.txt"), en("enlace.txt"));
  ASSERT_TRUE(ficheros::escribirEntero(en("enlace.txt"), "nuevo"));
  EXPECT_EQ(ver(en("a.txt")), "nuevo");
  EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files), QStringList({"a.txt", "enlace.txt"}));
  EXPECT_FALSE(QFile::permissions(en("a.txt")) & QFile::ReadOther);
}

// A power cut leaves the old file or the new one: its bytes reach the disk before its name, and the
// name before the call returns.
TEST_F(Disco, LoEscritoLlegaAlDiscoAntesQueSuNombre) {
  QStringList pedido;
  prueba::alDisco = &pedido;
  const auto escrito = ficheros::escribirEntero(en("a.txt"), "nuevo");
  prueba::alDisco = nullptr;
  ASSERT_TRUE(escrito);
  EXPECT_EQ(pedido, QStringList({"vuelca a.txt.nuevo", "renombra a.txt",
                                 "vuelca " + QFileInfo(dir.path()).fileName()}));
}

TEST_F(Disco, EscribirDondeNoSePuedeEsUnError) {
  EXPECT_EQ(ficheros::escribirEntero(en("nada/a.txt"), "x").error().clase, Fallo::NoExiste);
  QDir(dir.path()).mkdir(QStringLiteral("a.txt.nuevo"));
  poner(en("a.txt"), "viejo");
  EXPECT_FALSE(ficheros::escribirEntero(en("a.txt"), "nuevo"));
  EXPECT_EQ(ver(en("a.txt")), "viejo");
  QDir(dir.path()).mkdir(QStringLiteral("carpeta"));
  EXPECT_FALSE(ficheros::escribirEntero(en("carpeta"), "x"));
}

TEST_F(Disco, LoQueNoEsFicheroNuncaSeCambia) {
  const QByteArray tuberia = QFile::encodeName(en("tuberia"));
  ASSERT_EQ(::mkfifo(tuberia.constData(), 0600), 0);
  EXPECT_FALSE(ficheros::escribirEntero(en("tuberia"), "x"));
  struct stat datos{};
  ASSERT_EQ(::lstat(tuberia.constData(), &datos), 0);
  EXPECT_TRUE(S_ISFIFO(datos.st_mode));
}

TEST_F(Disco, SinSitioQuedaElViejoEntero) {
  poner(en("a.txt"), "viejo");
  ::signal(SIGXFSZ, SIG_IGN);
  struct rlimit antes{};
  ::getrlimit(RLIMIT_FSIZE, &antes);
  const struct rlimit poco{1000, antes.rlim_max};
  ::setrlimit(RLIMIT_FSIZE, &poco);
  const auto hecho = ficheros::escribirEntero(en("a.txt"), QByteArray(5000, 'x'));
  ::setrlimit(RLIMIT_FSIZE, &antes);
  ASSERT_FALSE(hecho);
  EXPECT_EQ(hecho.error().clase, Fallo::DiscoLleno);
  EXPECT_EQ(ver(en("a.txt")), "viejo");
  EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files).size(), 1);
}

TEST_F(Disco, LeerTieneLimites) {
  poner(en("grande"), QByteArray(2000, 'x'));
  EXPECT_EQ(ficheros::leerBytes(en("grande"), 1000).error().clase, Fallo::Formato);
  EXPECT_EQ(ficheros::leerBytes(dir.path()).error().clase, Fallo::Formato);
  EXPECT_EQ(ficheros::leerBytes(en("nada")).error().clase, Fallo::NoExiste);
  EXPECT_EQ(ficheros::leerBytes(QStringLiteral("/dev/zero")).error().clase, Fallo::Formato);
}

TEST_F(Disco, LosNombresNoMiranMayusculasYElExactoVaPrimero) {
  QDir(dir.path()).mkpath(QStringLiteral("Tienda/Ñoño"));
  poner(en("Tienda/Ñoño/Noche.aut"), "1");
  poner(en("TARVO.ini"), "1");
  poner(en("tarvo.INI"), "2");
  const std::pair<const char*, const char*> casos[] = {
      {"tienda\\ñOÑO\\NOCHE.AUT", "Tienda/Ñoño/Noche.aut"},
      {"TIENDA/./x/../Ñoño", "Tienda/Ñoño"},
      {"tienda/Nueva/De.txt", "Tienda/Nueva/De.txt"},
      {"tarvo.INI", "tarvo.INI"},
      {"  TARVO.ini ", "TARVO.ini"}};
  for (const auto& [pide, da] : casos)
    EXPECT_EQ(Ajustes::ruta(QString::fromUtf8(pide), dir.path()), en(da)) << pide;
  EXPECT_EQ(Ajustes::ruta(en("TIENDA"), QStringLiteral("/otra")), en("Tienda"));
}

TEST_F(Disco, LosAjustesSeGuardanDondeEstabanYVuelven) {
  poner(en("tarvo.ini"), "Ses\x69\xF3nAbier=2\r\nHomeDir=PROCESOS\r\n");
  QDir(dir.path()).mkdir(QStringLiteral("Procesos"));
  Ajustes a(dir.path(), Idioma::Espanol, {totals::ajustesSesion(Fecha::deDias(45000))});
  auto& sesion = a.de<totals::AjustesSesion>();
  ASSERT_TRUE(a.LeerConfig());
  EXPECT_EQ(sesion.SesionAbier, 2);
  EXPECT_EQ(a.HomeDir, en("Procesos"));
  EXPECT_EQ(a.BaseDatos, en("TARVO.MDB"));
  EXPECT_EQ(sesion.SesionHasta.dias(), 45000);
  sesion.SesionAbier = 1;
  ASSERT_TRUE(a.GuardarConfig());
  EXPECT_TRUE(ver(en("tarvo.ini")).contains("Sesi\xF3nAbier= 1\r\n"));
  EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files).size(), 1);
}

TEST_F(Disco, UnaCarpetaConLetrasDeFueraNoSePierde) {
  Ajustes a(en("Καφές"), Idioma::Espanol);
  QDir().mkpath(a.carpeta);
  ASSERT_TRUE(a.GuardarConfig());
  Ajustes b(a.carpeta, Idioma::Espanol);
  ASSERT_TRUE(b.LeerConfig());
  EXPECT_EQ(b.HomeDir, a.carpeta);
}

TEST_F(Disco, AjustesIlegiblesSonUnErrorYDejanLosDefectos) {
  Ajustes a(dir.path(), Idioma::Espanol);
  EXPECT_TRUE(a.LeerConfig());
  QDir(dir.path()).mkdir(QStringLiteral("TARVO.INI"));
  EXPECT_FALSE(a.LeerConfig());
  QDir(dir.path()).rmdir(QStringLiteral("TARVO.INI"));
  poner(en("TARVO.INI"), "MonedaNativa=0\n" + QByteArray(3 << 20, '='));
  EXPECT_FALSE(a.LeerConfig());
  EXPECT_EQ(a.MonedaNativa, 1);
}
