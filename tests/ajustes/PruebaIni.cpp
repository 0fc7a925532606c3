// TARVO.INI: reading and writing of each key, and odd files.
#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include "app/AjustesPersonal.h"
#include "app/AjustesSalas.h"
#include "comm/cables/AjustesCables.h"
#include "core/ajustes/Ficheros.h"
#include "core/ajustes/Sala.h"
#include "totals/libros/AjustesSesion.h"

using namespace tarvo;
using namespace Qt::StringLiterals;

namespace {

const QString kCarpeta = QStringLiteral("/tienda");

Ajustes leidos(const QString& texto, Idioma idioma = Idioma::Espanol) {
  Ajustes a(kCarpeta, idioma, app::ajustesDeLasSalas());
  a.leer(texto);
  return a;
}

QString linea(const Ajustes& a, const QString& clave) {
  for (const QString& l : a.escribir().split(QStringLiteral("\r\n")))
    if (l.startsWith(clave + u'=')) return l.mid(clave.size() + 2);
  return QStringLiteral("(no está)");
}

// The value of a key after a line is read and the file written again.
struct Vuelta {
  const char* entra;
  const char* clave;
  const char* sale;
};

const Vuelta kVueltas[] = {
    {"  tImEoUt  =  500  ", "TimeOut", "500"},
    {"FactorEsperaNDL= 0", "FactorEsperaNDL", "0"},
    {"PrefijoCódigos= 001", "PrefijoCódigos", "001"},
    {"WhoAmI= 255", "WhoAmI", "255"},
    {"NúMEROPEDIDO=7", "NúmeroPedido", "7"},
    {"NumeroPedido=7", "NúmeroPedido", "0"},
    {"últimosperiodos=3|4| 5", "ÚltimosPeriodos", "3|4|5"},
    {"ÚltimosPeriodos=", "ÚltimosPeriodos", ""},
    {"Puerto(2)=9", "Puerto(2)", "9"},
    {"puerto( 2 )=9", "Puerto(2)", "9"},
    {"Puerto(0)=9", "Puerto(1)", "1"},
    {"Puerto(5)=9", "Puerto(4)", "4"},
    {"Puerto(x)=9", "Puerto(1)", "1"},
    {"RS232(1)=4800,e,7,1", "RS232(1)", "4800,E,7,1"},
    {"IniMdmX(1)=", "IniMdmX(1)", ""},
    {"IniMdmX(1)=at1;at2;3;4;5;6;7;8", "IniMdmX(1)", "AT1;AT2;3;4;5;6;7;8"},
    {"CalculoPrecios=sí|5", "CalculoPrecios", "Sí|5"},
    {"CalculoPrecios=True|5|No|9", "CalculoPrecios", "Sí|5|No|9"},
    {"SesiónHasta=05/03/2005 21:30:00", "SesiónHasta", "05/03/2005 21:30:00"},
    {"SesiónHasta=05/03/2005", "SesiónHasta", "05/03/2005 00:00:00"},
    {"InicioHorario=9:30", "InicioHorario", "09:30"},
    {"ToleranciaHora=0,4", "ToleranciaHora", "0.40"},
    {"Euro=166.386", "Euro", "166.386000"},
    {"MonedaLogo=Pts", "MonedaLogo", "Pts,   "},
    {"MonedaLogo=€,Eur", "MonedaLogo", "€  ,Eur"},
    {"FestivoSemanal=0,0,0,0,0,0,-1", "FestivoSemanal", "0,0,0,0,0,0,1"},
    {"EnviarCambios=2|0", "EnviarCambios", "2|0"},
    {"TextoEtiquetas(21)=Hecho en Casa", "TextoEtiquetas(21)", "Hecho en Casa"},
    {"TextoEtiquetas(40)=Último", "TextoEtiquetas(40)", "Último"},
    {"TextoEtiquetas(41)=x", "TextoEtiquetas(40)", ""},
    {"Personal(1)=La noche|NOCHE|2", "Personal(1)", "La noche|NOCHE|2"},
    {"Personal(3)=Uno|UNO", "Personal(1)", "Uno|UNO"},
    {"Personal(2000000000)=Uno|UNO", "Personal(1)", "(no está)"},
    {"RutaPuerto(2)=/dev/ttyUSB0", "RutaPuerto(2)", "/dev/ttyUSB0"},
    {"RutaPuerto(17)=/dev/ttyUSB0", "RutaPuerto(17)", "(no está)"},
    {"HomeDir=", "HomeDir", "."},
    {"HomeDir=Datos\\Noche", "HomeDir", "Datos/Noche"},
    {"HomeDir=/tienda", "HomeDir", "."},
    {"BaseDatos=/tienda/sub/../x.mdb", "BaseDatos", "x.mdb"},
    {"BaseDatos=/tienda2/x.mdb", "BaseDatos", "/tienda2/x.mdb"},
    {"AceptaOtroCodigo=1", "AceptaOtroCodigo", "1"},
    {"BaseDatos=/otra/Base.mdb", "BaseDatos", "/otra/Base.mdb"},
};

}  // namespace

TEST(Ini, CadaClaveVuelveComoDebe) {
  for (const Vuelta& v : kVueltas)
    EXPECT_EQ(linea(leidos(QString::fromUtf8(v.entra)), QString::fromUtf8(v.clave)),
              QString::fromUtf8(v.sale))
        << v.entra;
}

// A line that isn't understood is named, with the value that counts; valid lines are not.
TEST(Ini, LoQueNoSeEntiendeSeNombra) {
  const std::pair<const char*, const char*> dudosas[] = {
      {"TimeOut= 12abc", "12"},
      {"TimeOut= -5", "10000"},
      {"TimeOut= 99999999999", "10000"},
      {"TimeCero= 950400000", "150000"},
      {"IntentosManual= 9999999", "0"},
      {"Intentos(1)= 9999999", "4"},
      {"ATHang(1)= -1", "10000"},
      {"WhoAmI= nada", "0"},
      {"SesiónHasta=99/99/2005", "30/12/1899 00:00:00"},
      {"FestivoSemanal= 1", "0,0,0,0,0,0,0"},
      {"ÚltimosPeriodos= 3|y", ""},
      {"AceptaOtroCodigo=x", "0"},
      {"TimeACK= 0", "2000"},
      {"MonedaNativa= pepe", "1"},
      {"MonedaNativa= 300", "1"},
      {"WhoAmI= 256", "0"},
      {"InicioHorario= 25:00", "08:00"},
      {"Espera(1)= mucho", "40"},
      {"Euro= caro", "166.386000"},
      {"CalculoPrecios= quizá|5", "No|0"},
      {"CalculoPrecios= Sí|40000", "No|0"},
      {"EnviarCambios= 1", "1|1"},
      {"Monedero= 3", ""},
      {"TimeOut 500", ""},
      {"Device(2)= 4", "0"},
      {"Device(2)= 7", "0"},
      {"Device(2)= -1", "0"},
      {"Puerto(x)= 3", ""},
      {"Puerto(9)= 3", ""},
      {"; una nota", ""},
      {"TextoEtiquetas(2)= x", ""},
      {"Euro= 0", "166.386000"},
      {"Euro= -1", "166.386000"},
      {"ToleranciaHora= 99", "0.25"},
      {"ToleranciaHora= 0,5", "0.25"},
      {"MonedaLogo= Libras", "Pts,Eur"},
      {"MonedaLogo= Pts,Eur,Usd", "Pts,Eur"},
      {"RS232(1)= abc", "9600,O,7,1"},
      {"RS232(1)= 4800,X,7,1", "9600,O,7,1"},
      {"RS232(1)= 4800,E,9,1", "9600,O,7,1"},
      {"RS232(1)= 4800,E,7", "9600,O,7,1"},
      {"RS232(1)= 0,E,7,1", "9600,O,7,1"},
      {"RS232(1)= 123,O,7,1", "9600,O,7,1"},
      {"Personal(1)= x", ""},
      {"Puerto(1)= 17", "1"},
      {"ControlLinea(1)= 9", "1"},
      {"IniMdmX(1)= AT1;AT2;AT3;AT4;AT5;AT6;AT7;AT8;AT9", "AT&C1;AT&D2;AT&A0"},
      {"SesiónAbier= 7", "0"},
      {"NúmPreciosAlta= 4", "3"},
      {"NúmTarifasAlta= 0", "8"},
      {"ModoIntroRápido= 3", "2"},
      {"EnviarCambios= 1|3", "1|1"},
      {"NúmeroPedido= -4", "0"},
  };
  for (const auto& [entra, vale] : dudosas) {
    const Ajustes a = leidos(QString::fromUtf8(entra));
    ASSERT_EQ(a.dudas.size(), 1U) << entra;
    EXPECT_EQ(a.dudas[0].linea, QString::fromUtf8(entra));
    EXPECT_EQ(a.dudas[0].vale, QString::fromUtf8(vale)) << entra;
  }
  for (const Idioma idioma : {Idioma::Espanol, Idioma::F, Idioma::P}) {
    Ajustes propio(kCarpeta, idioma, app::ajustesDeLasSalas(*Fecha::leer(u"05/03/2005 21:30:00")));
    propio.de<app::AjustesPersonal>().personal = {
        {QStringLiteral("La noche"), QStringLiteral("NOCHE")}};
    propio.de<enlace::AjustesCables>().RutaPuerto[2] = QStringLiteral("/dev/ttyUSB0");
    const Ajustes otra = leidos(propio.escribir(), idioma);
    for (const auto& d : otra.dudas) ADD_FAILURE() << d.linea.toStdString();
    EXPECT_TRUE(otra.monedaLeida);
  }
}

// What a person wrote and was refused stays in the file, and is named at each start, until the
// setting gets another value or is saved as it is. Each row: the file, what is done, the line then.
TEST(Ini, LoRechazadoSigueEscritoHastaQueSeGuardaOtraCosa) {
  const auto nada = [](Ajustes&) {};
  const struct {
    const char* entra;
    std::function<void(Ajustes&)> hacer;
    const char* clave;
    const char* sale;
    bool seDice;
  } casos[] = {
      {"TimeOut= cinco", nada, "TimeOut", "cinco", true},
      {"TimeOut= 500\r\nTimeOut= cinco", nada, "TimeOut", "500", false},
      {"TimeOut= cinco\r\nTimeOut= 500", nada, "TimeOut", "500", false},
      {"TimeOut= 12abc", nada, "TimeOut", "12abc", true},
      {"TimeOut= 500\r\nTimeOut= 12abc", nada, "TimeOut", "500", false},
      {"TimeOut= cinco", [](Ajustes& a) { a.confirmar(u"timeout"_s); }, "TimeOut", "10000", false},
      {"Espera(3)= mucho", [](Ajustes& a) { a.confirmar(u"TimeOut"_s); }, "Espera(3)", "mucho",
       true},
      {"WhoAmI= 256", [](Ajustes& a) { a.WhoAmI = 7; }, "WhoAmI", "7", false},
      {"MonedaNativa= pepe", [](Ajustes& a) { a.ponerMonedaNativa(0); }, "MonedaNativa", "pepe",
       true},
      {"AceptaOtroCodigo= quizá", nada, "AceptaOtroCodigo", "quizá", true},
  };
  for (const auto& c : casos) {
    Ajustes a = leidos(QString::fromUtf8(c.entra));
    c.hacer(a);
    const Ajustes otraVez = leidos(a.escribir());
    EXPECT_EQ(linea(otraVez, QString::fromUtf8(c.clave)), QString::fromUtf8(c.sale)) << c.entra;
    EXPECT_EQ(otraVez.dudas.size(), c.seDice ? 1U : 0U) << c.entra;
  }
}

namespace {

// For each key a value that it takes, and one that it doesn't; null where every text is one.
struct DeClave {
  const char16_t* nombre;
  const char16_t* buena;
  const char16_t* mala;
};
constexpr DeClave kClaves[] = {
    {u"HomeDir", u"Datos", nullptr},
    {u"BaseDatos", u"Otra.mdb", nullptr},
    {u"CopiaSeguridad", u"Copias", nullptr},
    {u"WhoAmI", u"3", u"300"},
    {u"TimeOut", u"500", u"0"},
    {u"TimeCero", u"500", u"mucho"},
    {u"IntentosManual", u"5", u"-1"},
    {u"TimeACK", u"500", u"-1"},
    {u"FactorEsperaNDL", u"500", u"-1"},
    {u"CalculoPrecios", u"Sí|5|No|9", u"Sí"},
    {u"CalculoPrecios", u"No|7", u"Sí|5|Sí"},
    {u"CalculoPrecios", u"No|7", u"Sí|5|Sí|999999"},
    {u"CalculoPrecios", u"Sí|32767|Sí|-7", u"Sí|-5"},
    {u"Puerto", u"7", u"17"},
    {u"Device", u"2", u"4"},
    {u"RS232", u"19200,N,8,2", u"12345,O,7,1"},
    {u"RS232", u"19200,N,8,2", u"9600,O,7,1,1"},
    {u"IniMdm0", u"ATZ", nullptr},
    {u"IniMdmX", u"AT1;AT2", u"1;2;3;4;5;6;7;8;9"},
    {u"PfxDial", u"ATDP", nullptr},
    {u"Intentos", u"7", u"1000"},
    {u"Espera", u"7", u"-1"},
    {u"ATHang", u"7", u"mucho"},
    {u"ControlLinea", u"2", u"4"},
    {u"SesiónAbier", u"2", u"3"},
    {u"SesiónHasta", u"05/03/2005 21:30:00", u"ayer"},
    {u"SesiónACero", u"05/03/2005 21:30:00", u"32/03/2005"},
    {u"ÚltimosPeriodos", u"3|4", u"x|y"},
    {u"ÚltimosPeriodos", u"3|4", u"-1"},
    {u"ÚltimosPeriodos", u"3|4", u"3|0"},
    {u"InicioHorario", u"09:30", u"25:00"},
    {u"FinalHorario", u"21:30", u"24:00"},
    {u"ToleranciaHora", u"0.40", u"0.5"},
    {u"MonedaNativa", u"0", u"pepe"},
    {u"MonedaPreferente", u"0", u"pepe"},
    {u"MonedaLogo", u"Fra,Eur", u"EUROS"},
    {u"MonedaLogo", u"Fra,Eur", u"Fra,Eur,Usd"},
    {u"Euro", u"6.559570", u"0"},
    {u"Euro", u"1936.270000", u"12345678901234567890"},
    {u"Euro", u"1936.270000", u"0.000001"},
    {u"Euro", u"1936.270000", u"1e39"},
    {u"FestivoSemanal", u"0,0,0,0,0,0,1", u"1"},
    {u"FestivoSemanal", u"0,0,0,0,0,0,1", u"0,0,0,0,0,0,0,0"},
    {u"NúmeroPedido", u"7", u"-1"},
    {u"NúmeroPedido", u"999999999", u"2147483647"},
    {u"NúmeroInventario", u"7", u"99999999999"},
    {u"EnviarCambios", u"2|0", u"-1|0"},
    {u"EnviarCambios", u"2|0", u"0|1|2"},
    {u"OpcionesStockCompras", u"1|2", u"1|2|3"},
    {u"OpcionesStockCompras", u"1|2", u"1|x"},
    {u"ModoIntroRápido", u"0", u"3"},
    {u"ParrillaRápida", u"2,2,2,1,1,0,0,0,0,0,0,1,2,0,0,0,K,3,,,,", u"x"},
    {u"ParrillaRápida", u"2,2,2,1,1,0,0,0,0,0,0,1,2,0,0,0,K,3,,,,",
     u"3,1,2,1,1,0,0,0,0,0,0,0,0,0,0,0,-1,,,,,"},
    {u"TextoEtiquetas", u"Hecho en casa", nullptr},
    {u"PrefijoCódigos", u"001", u"x"},
    {u"NúmPreciosAlta", u"2", u"4"},
    {u"NúmTarifasAlta", u"2", u"0"},
    {u"Personal", u"La noche|NOCHE", nullptr},
    {u"RutaPuerto", u"/dev/ttyUSB0", nullptr},
    {u"AceptaOtroCodigo", u"1", u"2"},
};

}  // namespace

// Whatever the key: a good value is kept; a bad one leaves the default, is named at each start and
// stays written, also when another setting is saved, until a person saves it.
TEST(Ini, DeCadaClaveLoMaloSeNombraYSigueEscrito) {
  const QString deFabrica =
      leidos(u"Personal(1)=a|b\r\nRutaPuerto(1)=x\r\nAceptaOtroCodigo=1"_s).escribir();
  QStringList sinFila;
  for (const QString& l : deFabrica.split(u"\r\n"_s, Qt::SkipEmptyParts))
    sinFila << l.section(u'=', 0, 0).section(u'(', 0, 0);
  sinFila.removeDuplicates();
  for (const DeClave& c : kClaves) {
    const QString nombre = QString::fromUtf16(c.nombre);
    sinFila.removeAll(nombre);
    const bool deEtiquetas = nombre == u"TextoEtiquetas";
    const bool conIndice = deFabrica.contains(nombre + u'(');
    const QString clave = !conIndice ? nombre : nombre + (deEtiquetas ? u"(21)"_s : u"(1)"_s);
    const Ajustes bien = leidos(clave + u"= "_s + QString::fromUtf16(c.buena));
    EXPECT_TRUE(bien.dudas.empty()) << clave.toStdString();
    EXPECT_EQ(linea(bien, clave), QString::fromUtf16(c.buena)) << clave.toStdString();
    if (!c.mala) continue;
    const QString mala = clave + u"= "_s + QString::fromUtf16(c.mala);
    const QString normal = linea(leidos({}), clave);
    QString texto = mala;
    for (int arranque = 1; arranque <= 3; ++arranque) {
      Ajustes a = leidos(texto);
      ASSERT_EQ(a.dudas.size(), 1U) << mala.toStdString();
      EXPECT_EQ(a.dudas[0].linea, mala);
      EXPECT_TRUE(normal == u"(no está)" || a.dudas[0].vale == normal) << mala.toStdString();
      EXPECT_TRUE(a.escribir().contains(mala + u"\r\n"_s)) << mala.toStdString();
      a.TextoEtiquetas[40] = QString::number(arranque);  // another setting is saved
      texto = a.escribir();
    }
    Ajustes a = leidos(texto);
    a.confirmar(nombre);
    EXPECT_EQ(linea(a, clave), normal);
    EXPECT_TRUE(leidos(a.escribir()).dudas.empty()) << mala.toStdString();
  }
  EXPECT_EQ(sinFila.join(u' '), QString());
}

// Another editor writes in the file meanwhile: what this program hasn't changed stays as it is
// there.
TEST(Ini, AlGuardarQuedaLoCambiadoDesdeFuera) {
  const QTemporaryDir carpeta;
  const QString ruta = carpeta.filePath(u"TARVO.INI"_s);
  const auto escribir = [&](const QByteArray& texto) {
    QFile f(ruta);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(texto);
  };
  Ajustes a(carpeta.path(), Idioma::Espanol, app::ajustesDeLasSalas());
  escribir("WhoAmI= 1\r\nTimeOut= 500\r\nEuro= 2\r\nRutaPuerto(2)= /dev/x\r\n");
  ASSERT_TRUE(a.LeerConfig());
  ASSERT_TRUE(a.GuardarConfig());
  EXPECT_EQ(a.cambiadosFuera(), QStringList());
  escribir("WhoAmI= 9\r\nTimeOut= 700\r\nEuro= 3\r\nTimeACK= cinco\r\n");
  a.MonedaPreferente = 0;
  a.Euro = 4;
  for (int vez = 0; vez < 2; ++vez) {
    ASSERT_TRUE(a.GuardarConfig());
    QFile f(ruta);
    ASSERT_TRUE(f.open(QIODevice::ReadOnly));
    const QByteArray queda = f.readAll();
    for (const char* linea : {"WhoAmI= 9\r", "TimeOut= 700\r", "TimeACK= cinco\r",
                              "MonedaPreferente= 0\r", "Euro= 4.000000\r"})
      EXPECT_TRUE(queda.contains(linea)) << linea << '\n' << queda.toStdString();
    EXPECT_TRUE(queda.contains("RutaPuerto(2)= /dev/x\r")) << "the file may be half written";
  }
  EXPECT_EQ(a.WhoAmI, 1) << "in use until the next start";
  EXPECT_EQ(a.cambiadosFuera(), (QStringList{u"TimeACK"_s, u"TimeOut"_s, u"WhoAmI"_s}));
  ASSERT_EQ(a.pisadas.size(), 1U);
  EXPECT_EQ(a.pisadas[0].clave, u"Euro");
  EXPECT_EQ(a.pisadas[0].perdido, u"3.000000");
}

TEST(Ini, CualquierFinDeLineaVale) {
  for (const QString& fin : {u"\r\n"_s, u"\n"_s, u"\r"_s}) {
    const Ajustes a = leidos(QStringList{u"HomeDir= Datos"_s, u"TimeOut= 500"_s, {}}.join(fin));
    EXPECT_EQ(linea(a, u"HomeDir"_s), u"Datos");
    EXPECT_EQ(linea(a, u"TimeOut"_s), u"500");
    EXPECT_TRUE(a.dudas.empty());
  }
}

TEST(Ini, LasClavesVanEnSuOrdenConSusLineasEnBlanco) {
  QStringList claves;
  for (const QString& l : leidos({}).escribir().split(QStringLiteral("\r\n")))
    if (!l.startsWith(u"TextoEtiquetas(3") || l.startsWith(u"TextoEtiquetas(3)"))
      claves << l.section(u'=', 0, 0);
  QString canales;
  for (int n = 1; n <= 4; ++n)
    canales +=
        QStringLiteral(
            " Puerto(%1) Device(%1) RS232(%1) IniMdm0(%1) IniMdmX(%1) PfxDial(%1) Intentos(%1)"
            " Espera(%1) ATHang(%1) ControlLinea(%1) ")
            .arg(n);
  QString etiquetas;
  for (const int n : {21, 22, 23, 24, 25, 26, 27, 28, 29, 40})
    etiquetas += QStringLiteral(" TextoEtiquetas(%1)").arg(n);
  const QString esperadas =
      QStringLiteral(
          "HomeDir BaseDatos CopiaSeguridad  WhoAmI TimeOut TimeCero IntentosManual TimeACK "
          "FactorEsperaNDL  CalculoPrecios ") +
      canales +
      QStringLiteral(
          " SesiónAbier SesiónHasta SesiónACero ÚltimosPeriodos InicioHorario FinalHorario "
          "ToleranciaHora  MonedaNativa MonedaPreferente MonedaLogo Euro FestivoSemanal "
          "NúmeroPedido "
          "NúmeroInventario EnviarCambios OpcionesStockCompras  ModoIntroRápido ParrillaRápida ") +
      etiquetas + QStringLiteral("  PrefijoCódigos NúmPreciosAlta NúmTarifasAlta  ");
  EXPECT_EQ(claves.join(u' '), esperadas);
}

TEST(Ini, LoEscritoSeLeeIgual) {
  Ajustes a =
      leidos(QStringLiteral("SesiónAbier=2\r\nPersonal(1)=a|b\r\nRutaPuerto(3)=/dev/x\r\n"
                            "Device(4)=3\r\nMonedaNativa=0\r\nCalculoPrecios=No|1|Sí|2"));
  a.de<app::AjustesPersonal>().personal.push_back(
      {QStringLiteral("con\r\nsalto"), QStringLiteral("P")});
  const QString escrito = a.escribir();
  EXPECT_EQ(leidos(escrito).escribir(), escrito);
  EXPECT_TRUE(escrito.contains(u"Personal(2)= con  salto|P\r\n"));
  EXPECT_EQ(a.de<totals::AjustesSesion>().SesionAbier, 2);
}

TEST(Ini, MonedaYClasesPorIdioma) {
  const struct {
    Idioma idioma;
    const char16_t* logo;
    float euro;
    int decimales, txMax, docMax;
  } casos[] = {{Idioma::Espanol, u"Pts", 166.386F, 0, 11, 23},
               {Idioma::I, u"Lir", 1936.27F, 0, 8, 21},
               {Idioma::F, u"  F", 6.55957F, 2, 8, 21},
               {Idioma::UK, u"Pnd", 1, 2, 8, 21},
               {Idioma::PL, u"Zl", 1, 2, 8, 21},
               {Idioma::P, u"   ", 0, 0, 8, 21}};
  for (const auto& c : casos) {
    const Ajustes a(kCarpeta, c.idioma);
    EXPECT_EQ(a.MonedaLogo[0], QStringView(c.logo));
    EXPECT_EQ(a.Euro, c.euro);
    EXPECT_EQ(a.decimalesLocal, c.decimales);
    EXPECT_EQ(a.clases.ClaseTxMax, c.txMax);
    EXPECT_EQ(a.clases.ClaseDocMax, c.docMax);
  }
}

TEST(Ini, BasuraNoHaceDano) {
  QString basura = QString(200000, u'=') + u'\n';
  for (int i = 0; i < 3000; ++i) basura += QChar(i % 0xD800) + QStringLiteral("(((=)|,;\n");
  basura += QStringLiteral("IniMdmX(1)=") + QString(100000, u';') + QStringLiteral("\nTimeOut=7");
  EXPECT_EQ(linea(leidos(basura), QStringLiteral("TimeOut")), u"7");
}

TEST(Idiomas, UnaVersionExtranjeraTieneMenosClasesDeTarea) {
  const auto clases = [](Idioma idioma) {
    QList<int> lista;
    for (const TipoTarea t : todosLos<TipoTarea>())
      if (LimitesClases::de(idioma).tiene(t)) lista << numeroDe(t);
    return lista;
  };
  EXPECT_EQ(clases(Idioma::Espanol),
            (QList<int>{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 16, 17, 18, 19, 20, 21, 22, 23}));
  EXPECT_EQ(clases(Idioma::UK), (QList<int>{1, 2, 3, 4, 5, 6, 7, 8, 16, 17, 18, 19, 20}));
}

namespace {

struct Muestra {
  int Cuantos = 3;
  bool Callado = false;
};
bool leerCallado(const QString& v, bool& campo) {
  campo = v == u"1";
  return campo;
}
QString verCallado(bool b) {
  return ini::verEntero(b ? 1 : 0);
}
SalaDeAjustes muestra(int sitio = 150, const char16_t* nombre = u"Cuántos") {
  return salaDeAjustes(Muestra(),
                       {clave<&Muestra::Cuantos, ini::leer16>(sitio, nombre),
                        clavePropia<&Muestra::Callado, leerCallado, verCallado>(1399, u"Callado")});
}

struct Otra {
  int Cuantos = 0;
};
SalaDeAjustes otra(int sitio, const char16_t* nombre) {
  return salaDeAjustes(Otra(), {clave<&Otra::Cuantos, ini::leer16>(sitio, nombre)});
}

}  // namespace

TEST(Salas, CadaUnaTraeLasSuyasYNadieConoceLasDeLaQueFalta) {
  Ajustes a(kCarpeta, Idioma::Espanol, {muestra()});
  EXPECT_TRUE(a.escribir().contains(u"CopiaSeguridad= \r\nCuántos= 3\r\n\r\nWhoAmI= 0\r\n"));
  EXPECT_EQ(linea(a, QStringLiteral("Callado")), u"(no está)");
  a.leer(QStringLiteral("cuÁntos=5x\nCallado=1\nTimeOut=7"));
  ASSERT_EQ(a.dudas.size(), 2U);
  EXPECT_EQ(a.dudas[0].vale, u"5");
  EXPECT_EQ(a.dudas[1].linea, u"TimeOut=7");
  EXPECT_EQ(a.dudas[1].vale, QString());
  Ajustes copia(a);
  copia.de<Muestra>().Cuantos = 8;
  EXPECT_EQ(a.de<Muestra>().Cuantos, 5);
  EXPECT_TRUE(copia.escribir().contains(u"Cuántos= 8\r\n"));
  EXPECT_TRUE(copia.escribir().endsWith(u"\r\n\r\nCallado= 1\r\n"));
}

TEST(Salas, LoMalNombradoAcabaElProgramaAlEmpezar) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  const auto con = [](std::vector<SalaDeAjustes> salas) {
    return Ajustes(kCarpeta, Idioma::Espanol, salas).de<Muestra>().Cuantos;
  };
  EXPECT_EQ(con({muestra(), otra(151, u"Otra")}), 3);
  EXPECT_DEATH(con({otra(151, u"Otra")}), "no se ha nombrado");
  EXPECT_DEATH(con({muestra(), muestra(152, u"Otra")}), "dos veces");
  EXPECT_DEATH(con({muestra(), otra(150, u"Otra")}), "en el sitio 150");
  EXPECT_DEATH(con({muestra(), otra(200, u"Otra")}), "en el sitio 200");
  EXPECT_DEATH(con({muestra(), otra(151, u"CUÁNTOS")}), "de un nombre");
}
