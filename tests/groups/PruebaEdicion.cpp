// A group as it is edited: what is sent of it, which machines it takes, what keeps it from being
// stored.
#include "articles/TablasArticulos.h"
#include "devices/Modelos.h"
#include "groups/Grupos.h"
#include "textos/TextosDePrueba.h"
#include "tienda/TiendaVacia.h"

namespace tarvo::prueba {

using namespace Qt::StringLiterals;
using namespace groups;
using devices::Balanza, devices::Registradora;

namespace {

constexpr TipoGrupo kTipos[] = {TipoGrupo::Balanzas, TipoGrupo::Ebony, TipoGrupo::Registradoras,
                                TipoGrupo::Birch};

QString decir(const std::vector<TareaDebida>& envios) {
  QStringList s;
  for (const TareaDebida& e : envios)
    s << QString::number(numeroDe(e.clase)) + (e.todo ? u""_s : u"-"_s);
  return s.join(u' ');
}

devices::Miembro balanza(int modelo) {
  Balanza b;
  b.tipo(modelo);
  return b;
}

devices::Miembro caja(std::optional<int> direccion) {
  Registradora r;
  r.Direccion = direccion;
  return r;
}

}  // namespace

// Everything, in order, and only what the machines of each kind take; alone, each has its task.
TEST(Edicion, LoQueSeEnvia) {
  const QString todos[] = {u"5 8 4 2 3 1-"_s, u"2 3 1-"_s, u"1-"_s, u"5 8 4 2 3 1-"_s};
  for (size_t i = 0; i < std::size(kTipos); ++i)
    EXPECT_EQ(decir(Marcas::todas().envios(kTipos[i])), todos[i]) << i;
  const std::pair<Cambio, QString> solos[] = {
      {Cambio::Opciones, u"5"_s}, {Cambio::Etiquetas, u"8"_s}, {Cambio::Config, u"4"_s},
      {Cambio::Teclado, u"2"_s},  {Cambio::Ticket, u"3"_s},    {Cambio::Tarifa, u"1-"_s}};
  for (const auto& [cambio, envio] : solos) {
    Marcas m;
    EXPECT_TRUE(m.envios(TipoGrupo::Balanzas).empty());
    m.poner(cambio);
    EXPECT_EQ(decir(m.envios(TipoGrupo::Balanzas)), envio);
  }
}

TEST(Edicion, LaPrimeraMaquinaDecideLaClase) {
  const std::pair<int, TipoGrupo> modelos[] = {{devices::kRowan, TipoGrupo::Balanzas},
                                               {devices::kLarch, TipoGrupo::Balanzas},
                                               {devices::kEbony, TipoGrupo::Ebony},
                                               {devices::kBirch, TipoGrupo::Birch}};
  devices::Grupo g;
  for (const auto& [modelo, tipo] : modelos) {
    bien(colocar(g, 4, balanza(modelo), textosDePrueba()));
    EXPECT_EQ(g.tipo(), tipo);
    for (const auto& [otro, suyo] : modelos) {
      const devices::Grupo antes = g;
      const auto hecho = colocar(g, 7, balanza(otro), textosDePrueba());
      EXPECT_EQ(hecho.has_value(), suyo == tipo) << modelo << " " << otro;
      if (hecho) {
        EXPECT_EQ(maquinaDe(*enSitio(g, 7)).Numero, 7);
        vaciar(g, 7);
      } else {
        EXPECT_EQ(hecho.error().texto, u"Los tipos de balanzas son incompatibles");
      }
      EXPECT_EQ(g, antes);
    }
    vaciar(g, 4);
  }
}

TEST(Edicion, DosSitiosSePermutan) {
  devices::Grupo g;
  bien(colocar(g, 0, balanza(devices::kRowan), textosDePrueba()));
  bien(colocar(g, 3, balanza(devices::kMaple), textosDePrueba()));
  permutar(g, 0, 3);
  EXPECT_EQ(maquinaDe(*enSitio(g, 0)).tipo(), devices::kMaple);
  EXPECT_EQ(maquinaDe(*enSitio(g, 0)).Numero, 0);
  EXPECT_EQ(maquinaDe(*enSitio(g, 3)).tipo(), devices::kRowan);
  permutar(g, 3, 9);
  EXPECT_EQ(enSitio(g, 3), nullptr);
  EXPECT_EQ(maquinaDe(*enSitio(g, 9)).Numero, 9);
}

// All the formats of a scale have one set of texts, or none.
TEST(Edicion, LosFormatosDeUnJuego) {
  const std::vector<FormatoEtiqueta> todos{
      {u"uno"_s, u"A"_s}, {u"dos"_s, u"A"_s}, {u"tres"_s, u"B"_s}, {u"cuatro"_s}};
  const std::pair<QString, QString> quedan[] = {{u""_s, u"uno dos tres cuatro"_s},
                                                {u"dos"_s, u"uno dos"_s},
                                                {u"tres"_s, u"tres"_s},
                                                {u"cuatro"_s, u"cuatro"_s},
                                                {u"borrado"_s, u"uno dos tres cuatro"_s}};
  for (const auto& [puesto, ofrece] : quedan) {
    Balanza b;
    b.Formato(17, puesto);
    QStringList nombres;
    for (const FormatoEtiqueta& f : ofrecidos(b, todos)) nombres << f.nombre;
    EXPECT_EQ(nombres.join(u' '), ofrece) << puesto.toStdString();
  }
}

TEST(Edicion, LoQueImpideGuardar) {
  TiendaVacia t({articles::tablasArticulos(), configuracion::tablasConfiguracion()});
  t.seccion(1).grupo({.codigo = 4});
  Ajustes ajustes(t.carpeta.path(), Idioma::Espanol, {});
  RelojReal reloj;
  articles::Catalogo catalogo(*t.db, textosDePrueba(), reloj, u"ana"_s);
  Grupos grupos(catalogo, ajustes);
  struct Caso {
    int codigo;
    QString nombre;
    std::vector<devices::Miembro> maquinas;
    int seccion;
    TipoAcceso acceso;
    QString telefono, faltas;
  };
  const QString alguna = u"Alguna de las direcciones de las cajas "_s,
                regla = u" Las direcciones van del 1 al 16; la 0 sólo vale si hay una sola caja."_s,
                direccion = alguna + u"es incorrecta: sitio %1."_s + regla,
                repetida = alguna + u"está repetida: sitios 1, 2, 3."_s,
                sinPuerto =
                    u"La dirección ha de llevar dos puntos y el número del puerto, como "_s +
                    u"en 192.168.1.50:4000."_s,
                sinTelefono = u"El número de teléfono no puede quedar vacío"_s;
  const auto una = std::vector{balanza(devices::kRowan)};
  const auto ninguno = TipoAcceso::Ninguno;
  const Caso casos[] = {
      {1, u"Uno"_s, una, 1, ninguno, {}, {}},
      {0,
       u" "_s,
       una,
       1,
       ninguno,
       {},
       u"El número de Grupo no es adecuado|El nombre de grupo no puede quedar vacío"_s},
      {4, u"Uno"_s, una, 1, ninguno, {}, u"El código de registro ya existe: No debe duplicarse"_s},
      {1,
       u"Uno"_s,
       {},
       9,
       ninguno,
       {},
       u"No se ha incluido ninguna balanza en el Grupo|La sección escogida no es válida"_s},
      {1, u"Uno"_s, una, 1, TipoAcceso::Modem, {}, sinTelefono},
      {1, u"Uno"_s, una, 1, TipoAcceso::Conector, u" "_s, sinTelefono},
      {1, u"Uno"_s, una, 1, TipoAcceso::TcpIp, u"balanza:4101"_s, {}},
      {1, u"Uno"_s, una, 1, TipoAcceso::TcpIp, u" balanza : 4101 , 2"_s, {}},
      {1, u"Uno"_s, una, 1, TipoAcceso::TcpIp, {}, sinPuerto},
      {1, u"Uno"_s, una, 1, TipoAcceso::TcpIp, u"hola,"_s, sinPuerto},
      {1, u"Uno"_s, una, 1, TipoAcceso::TcpIp, u":4101"_s, sinPuerto},
      {1, u"Uno"_s, una, 1, TipoAcceso::TcpIp, u"balanza:65536"_s, sinPuerto},
      {1, u"Uno"_s, una, 1, TipoAcceso::Directo, {}, {}},
      {1, u"Uno"_s, {caja(0)}, 1, ninguno, {}, {}},
      {1, u"Uno"_s, {caja({})}, 1, ninguno, {}, direccion.arg(1)},
      {1, u"Uno"_s, {caja(0), caja(1)}, 1, ninguno, {}, direccion.arg(1)},
      {1, u"Uno"_s, {caja(16), caja(17)}, 1, ninguno, {}, direccion.arg(2)},
      {1, u"Uno"_s, {caja(1), caja(1), caja(1)}, 1, ninguno, {}, repetida}};
  for (const Caso& c : casos) {
    devices::Grupo g;
    g.seccion = c.seccion, g.Acceso = c.acceso, g.Telefono = c.telefono;
    for (size_t n = 0; n < c.maquinas.size(); ++n)
      bien(colocar(g, static_cast<int>(n), c.maquinas[n], textosDePrueba()));
    QStringList faltas;
    for (const auto& f : bien(grupos.faltas(g, c.codigo, c.nombre))) faltas << f.texto;
    EXPECT_EQ(faltas.join(u'|'), c.faltas) << (&c - casos);
  }
}

}  // namespace tarvo::prueba
