// tarvo-bench-grupos: the tree of a thousand groups in fifty sections, and the editor of a group of
// ten scales, from the call to the first paint. Prints a line for each, as tarvo-bench --razones
// does.
#include <QListWidget>
#include <QTreeWidget>

#include "Tienda.h"
#include "articles/ventanas/Puertas.h"
#include "comm/configuracion/Aceptado.h"
#include "groups/ventanas/Puertas.h"
#include "groups/ventanas/RegistrarVentanas.h"

using namespace tarvo;
using namespace tarvo::banco;
using namespace Qt::StringLiterals;

namespace {

constexpr int kGrupos = 1'000, kSecciones = 50, kElMirado = 500;
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

class Banco : Tienda {
 public:
  explicit Banco(QApplication& qt) : Tienda(qt, hacerGrupos) {
    groups::registrarVentanasGrupos(escritorio_.ventanas(), catalogo_, motor_);
  }

  // Until the list of that name is painted, with what it is to show.
  template <class L, class P>
  double abrir(const P& puerta, const QString& lista, int filas) {
    ventanas::Ventana* ventana = nullptr;
    return aperturas(
        [&] {
          ventana = escritorio_.ventanas().abrir(puerta);
          if (!ventana) morir(u"no se abre"_s);
          auto* suya = ventana->template findChild<L*>(lista);
          if (suya->model()->rowCount() != filas) morir(u"faltan filas"_s);
          const Pintor p(suya->viewport());
          esperar("el primer pintado", [&] { return p.pintadas > 0; });
        },
        [&] { ventana->close(); });
  }
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
