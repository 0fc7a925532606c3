// One article passes through every kind of change. After each change the four kinds of machine get
// a sending: the frames received are checked, and that they then hold the article as in the
// catalogue.
#include <QFile>

#include "articles/Secciones.h"
#include "articles/TablasArticulos.h"
#include "articles/importar/ImpPLU.h"
#include "articles/precios/CalcPre.h"
#include "articles/precios/CambioLote.h"
#include "articles/precios/CambioRapido.h"
#include "articles/precios/Ofertas.h"
#include "comm/envios/Lector.h"
#include "envios/Envios.h"
#include "textos/TextosDePrueba.h"

namespace tarvo::prueba {

using namespace articles;

namespace {

const QString kVentana = QStringLiteral("BrowPLUs");

struct Caminante : Envios {
  static constexpr int kGrupos = 4;  // group n is of kind n
  using TiendaDeMotor::ajustes, TiendaDeMotor::db, TiendaDeMotor::reloj;

  void SetUp() override {
    bien(asegurarTablasArticulos(*db));
    for (int n = 1; n <= kGrupos; ++n) grupo(n, n, u"cable %1"_s.arg(n));
    seccion(2, u"Fruta").en(1).departamento(1).departamento(2);
    catalogo = std::make_unique<Catalogo>(*db, textosDePrueba(), reloj, u"ana@caja"_s);
    lotes = std::make_unique<Lotes>(*catalogo);
    ofertas = std::make_unique<precios::Ofertas>(*db, textosDePrueba(), reloj);
  }
  void modificar(qint64 codigo, const std::function<void(Articulo&)>& como) {
    Articulo a = *bien(catalogo->leer({1, codigo}));
    como(a);
    bien(catalogo->modificar({1, codigo}, a, kVentana));
  }
  void poner(qint64 precio) {
    Precios p = bien(catalogo->leer({1, 10}))->precios;
    for (auto& nivel : p) nivel[0] = precio;
    bien(catalogo->ponerPrecios({1, 10}, p, kVentana));
  }
  void lote(const precios::OrdenLote& orden) {
    precios::CambioLote cambio(*catalogo, *lotes);
    const auto marcha = cambio.empezar({{1, 10}}, orden, kVentana);
    while (bien(marcha->paso())) continue;
    bien(marcha->acabar());
    ultimo = marcha->hecho().lote;
  }
  void ofrecer(qint64 precio, int desde, int hasta) {
    const Fecha hoy = reloj.ahora().dia();
    const int todos[] = {1, 2, 3, 4};
    bien(ofertas->guardar({.seccion = 1,
                           .codigo = 10,
                           .precios = {precio, precio, precio},
                           .vigencia = *precios::Vigencia::de(hoy + desde, hoy + hasta)},
                          todos));
  }
  void importar(const QByteArray& linea) {
    const QString ruta = carpeta_.filePath(u"a.PLU"_s);
    QFile f(ruta);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly) && f.write(linea) == linea.size());
    f.close();
    auto imp = bien(importar::ImpPLU::abrir(*catalogo, ruta));
    while (bien(imp->paso(importar::SiExiste::Sobreescribirlo))) {
    }
    bien(imp->acabar());
    ASSERT_EQ(imp->cuenta().sobreescritos, 1);
    ultimo = imp->lote();
  }
  // The frames received by scales of kinds 1 and 4, which are the same. The other kinds get their
  // whole range each time, and can't be told to delete.
  QString optimizado() {
    const QString oyo = enviar(1);
    EXPECT_EQ(enviar(4), oyo);
    for (const int n : {2, 3}) {
      enviar(n);
      const qint64 codigo = 10;
      const auto p = bien(envios::Lector(*db, {n, 1, *deNumero<TipoGrupo>(n), 0})
                              .leer({&codigo, 1}, reloj.ahora()));
      if (!p.empty()) {
        EXPECT_EQ(maquina(n).memoria().catalogo.at(10).ficha, *p.front().registro) << n;
      }
    }
    return oyo;
  }

  std::unique_ptr<Catalogo> catalogo;
  std::unique_ptr<Lotes> lotes;
  std::unique_ptr<precios::Ofertas> ofertas;
  qint64 ultimo = 0;
};

struct Tramo {
  const char* que;
  void (*andar)(Caminante& c);
  const char* oye;    // the scale of kind 1 at the next optimised sending
  const char* tiene;  // the same scale afterwards
};

const Tramo kTramos[] = {
    {"new in the editor",
     [](Caminante& c) {
       Articulo a;
       a.clave = {1, 10};
       a.nombre = u"Tomate"_s;
       a.depto = 1;
       for (auto& nivel : a.precios) nivel[0] = 250;
       bien(c.catalogo->crear(a, kVentana));
     },
     "100 10", "10:Tomate/250"},
    {"its name in the editor",
     [](Caminante& c) { c.modificar(10, [](Articulo& a) { a.nombre = u"Pera"_s; }); }, "100 10",
     "10:Pera/250"},
    {"the price grid", [](Caminante& c) { c.poner(300); }, "100 10", "10:Pera/300"},
    {"fast change",
     [](Caminante& c) {
       const auto a = bien(precios::conColumna(*bien(c.catalogo->leer({1, 10})),
                                               precios::ColumnaRapida::Precio1, u"3,20"_s,
                                               *c.ajustes, textosDePrueba()));
       bien(c.catalogo->modificar({1, 10}, a, u"FastModf"_s));
     },
     "100 10", "10:Pera/320"},
    {"the calculator",
     [](Caminante& c) {
       precios::CalcPre calc(precios::ModoIva::Incluido, 5);
       calc.entrar(200, 320);
       calc.ponerPcMargen(71);
       c.poner(calc.cifras().PVP);
     },
     "100 10", "10:Pera/345"},
    {"ten per cent more at once",
     [](Caminante& c) {
       c.lote(*precios::SubePrecios::de(1000, 5, precios::Redondeo::HaciaArriba, {}, {}));
     },
     "100 10", "10:Pera/380"},
    {"taken back", [](Caminante& c) { bien(c.lotes->deshacer(c.ultimo, kVentana)); }, "100 10",
     "10:Pera/345"},
    {"another label format at once", [](Caminante& c) { c.lote(precios::PoneFormato{7}); },
     "100 10", "10:Pera/345"},
    {"what isn't on the wire",
     [](Caminante& c) { c.modificar(10, [](Articulo& a) { a.coste = 99; }); }, "100 10",
     "10:Pera/345"},
    {"an offer from tomorrow", [](Caminante& c) { c.ofrecer(199, 1, 2); }, "", "10:Pera/345"},
    {"tomorrow", [](Caminante& c) { c.reloj.avanzar(24LL * 3600 * 1000); }, "100 10",
     "10:Pera/199"},
    {"other prices of the offer", [](Caminante& c) { c.ofrecer(189, 0, 1); }, "100 10",
     "10:Pera/189"},
    {"the offer put off",
     [](Caminante& c) {
       bien(c.ofertas->cambiarFechas({.grupo = 1}, true, precios::Extremo::Hasta,
                                     c.reloj.ahora().dia() + 9));
       bien(c.ofertas->cambiarFechas({.grupo = 1}, true, precios::Extremo::Desde,
                                     c.reloj.ahora().dia() + 5));
     },
     "100 10", "10:Pera/345"},
    {"the offer taken back",
     [](Caminante& c) {
       const precios::ClaveOferta claves[] = {{1, 1, 10}};
       bien(c.ofertas->borrar(claves, true));
     },
     "", "10:Pera/345"},
    {"a file over it",
     [](Caminante& c) {
       c.importar(
           "010010UVA                           0000010000444    01                     \r\n");
       // An import reaches the machines by a complete sending.
       for (const int n : {1, 4}) EXPECT_EQ(c.enviar(n), u""_s);
       EXPECT_EQ(c.enviar(1, Caminante::kTxPlus, true), u"100 10"_s);
       // This asks for the machine's articles, to delete surplus ones.
       EXPECT_EQ(c.enviar(4, Caminante::kTxPlus, true), u"101 3,100 10,101 11"_s);
     },
     "", "10:UVA/444"},
    {"the file taken back", [](Caminante& c) { bien(c.lotes->deshacer(c.ultimo, kVentana)); },
     "100 10", "10:Pera/345"},
    {"another code",
     [](Caminante& c) { c.modificar(10, [](Articulo& a) { a.clave.codigo = 12; }); },
     "100 12,120 10", "12:Pera/345"},
    {"and back", [](Caminante& c) { c.modificar(12, [](Articulo& a) { a.clave.codigo = 10; }); },
     "100 10,120 12", "10:Pera/345"},
    {"moved away",
     [](Caminante& c) { bien(c.catalogo->mover(std::vector<ClaveArticulo>{{1, 10}}, 2)); },
     "120 10", ""},
    {"copied back",
     [](Caminante& c) {
       bien(c.catalogo->copiar(std::vector<ClaveArticulo>{{2, 10}}, 1, kVentana));
     },
     "100 10", "10:Pera/345"},
    {"another department at once", [](Caminante& c) { c.lote(precios::PoneDepartamento{2}); },
     "100 10", "10:Pera/345"},
    {"its department deleted",
     [](Caminante& c) { bien(Secciones(*c.catalogo).borrarDepartamento(1, 2)); }, "120 10", ""},
};

}  // namespace

TEST_F(Caminante, UnArticuloPorTodosLosCaminos) {
  for (const Tramo& tramo : kTramos) {
    SCOPED_TRACE(tramo.que);
    tramo.andar(*this);
    EXPECT_EQ(optimizado().toStdString(), tramo.oye);
    EXPECT_EQ(tiene(1).toStdString(), tramo.tiene);
    for (const int n : {1, 4}) esCierto(n);
    EXPECT_TRUE(optimizado().isEmpty()) << "sent twice";
  }
  EXPECT_TRUE(problemas.isEmpty() && reintentos.isEmpty());
}

}  // namespace tarvo::prueba
