// tarvo-bench-grupos: the tree of a thousand groups in fifty sections, and the editor of a group of
// ten scales, from the call to the first paint. Prints a line for each, as tarvo-bench --razones
// does.
#include <QListWidget>
#include <QTreeWidget>

#include "Pintado.h"
#include "articles/AjustesArticulos.h"
#include "articles/TablasArticulos.h"
#include "articles/ventanas/Puertas.h"
#include "articles/ventanas/RegistrarVentanas.h"
#include "comm/cables/AjustesCables.h"
#include "comm/cables/FabricaReal.h"
#include "comm/configuracion/Aceptado.h"
#include "comm/enlace/AjustesEnlace.h"
#include "comm/motor/AjustesMotor.h"
#include "comm/tareas/Repertorio.h"
#include "core/ventanas/marco/Escritorio.h"
#include "groups/ventanas/Puertas.h"
#include "groups/ventanas/RegistrarVentanas.h"
#include "totals/libros/AjustesSesion.h"

using namespace tarvo;
using namespace tarvo::banco;
using namespace Qt::StringLiterals;

namespace {

constexpr int kGrupos = 1'000, kSecciones = 50, kElMirado = 500, kVueltas = 9;
constexpr double kAbrirMs = 150;

std::unique_ptr<dao::Database> hacerGrupos(const QString& ruta) {
  auto db = hacerTienda(ruta, kGrupos, 100);
  bien(articles::asegurarTablasArticulos(*db));
  bien(dao::darPasos(*db, {configuracion::tablasConfiguracion()}));
  bien(
      db->ejecutar(u"with recursive n(i) as (select 2 union all select i+1 from n where i<?) "
                   u"insert or ignore into SECCS (NMSECC, NOMSEC) select i, 'Sección ' & i from n",
                   kSecciones));
  bien(db->ejecutar(u"update GRUPOS set SECCION=1+CODGPO mod ?", kSecciones));
  bien(
      db->ejecutar(u"with recursive n(i) as (select 1 union all select i+1 from n where i<9) "
                   u"insert into BZAS (SUGPO, NMBZA, ADDR, TIPO) select ?, i, 1, 1 from n",
                   kElMirado));
  return db;
}

class Banco {
 public:
  explicit Banco(QApplication& qt)
      : db_(hacerGrupos(carpeta_.filePath(u"TARVO.MDB"_s))),
        ajustes_(carpeta_.path(), Idioma::Espanol,
                 {articles::ajustesArticulos(), enlace::ajustesCables(), enlace::ajustesEnlace(),
                  motor::ajustesMotor(), totals::ajustesSesion()}),
        textos_(bien(Textos::leer(u":/textos/es.txt"_s))),
        catalogo_(*db_, textos_, reloj_, u"banco"_s),
        operadores_(*db_, textos_),
        sesion_(*db_, ajustes_, reloj_, textos_),
        fabrica_(reloj_, ajustes_),
        enlaces_(reloj_, ajustes_, fabrica_, azar_),
        repertorio_(tareas::repertorio()),
        motor_({*db_, ajustes_, reloj_, sesion_, textos_}, enlaces_, repertorio_),
        escritorio_(qt, *db_, ajustes_, textos_, reloj_, ventanas::Cara::Clara, {}) {
    articles::registrarVentanasArticulos(escritorio_.ventanas(), catalogo_, operadores_, motor_);
    groups::registrarVentanasGrupos(escritorio_.ventanas(), catalogo_, motor_);
  }

  // Until the list of that name is painted, with what it is to show.
  template <class L, class P>
  double abrir(const P& puerta, const QString& lista, int filas) {
    std::vector<double> v;
    for (int i = 0; i <= kVueltas; ++i) {
      QElapsedTimer t;
      t.start();
      auto* ventana = escritorio_.ventanas().abrir(puerta);
      if (!ventana) morir(u"no se abre"_s);
      auto* suya = ventana->template findChild<L*>(lista);
      if (suya->model()->rowCount() != filas) morir(u"faltan filas"_s);
      const Pintor p(suya->viewport());
      esperar("el primer pintado", [&] { return p.pintadas > 0; });
      v.push_back(ms(t));
      ventana->close();
      QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
      QApplication::processEvents();
    }
    v.erase(v.begin());  // done once by every program
    return enElLugar(v, 0.5);
  }

 private:
  QTemporaryDir carpeta_;
  RelojReal reloj_;
  Azar azar_{1};
  std::unique_ptr<dao::Database> db_;
  Ajustes ajustes_;
  Textos textos_;
  articles::Catalogo catalogo_;
  articles::Operadores operadores_;
  totals::Sesion sesion_;
  enlace::FabricaReal fabrica_;
  enlace::Enlaces enlaces_;
  motor::RepertorioTareas repertorio_;
  motor::gestcomm motor_;
  ventanas::Escritorio escritorio_;
};

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication qt(argc, argv);
  qt.setQuitOnLastWindowClosed(false);
  Banco b(qt);
  const double arbol =
      b.abrir<QTreeWidget>(articles::PuertaBrowGrupos{.grupos = true}, u"Arbol"_s, kSecciones);
  const double editor = b.abrir<QListWidget>(groups::PuertaEdiGrupo{{.codigo = kElMirado}},
                                             u"bza"_s, groups::kSitios);
  const bool uno = decir("grupos.arbol_1000", arbol, kAbrirMs);
  return decir("grupos.editor", editor, kAbrirMs) && uno ? 0 : 1;
}
