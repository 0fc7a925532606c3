// tarvo-bench-visor: the viewer of totals on half a million rows: its opening compared with an
// empty one, Page Down held, and a change of filter compared with the bare query. Prints a line for
// each, as tarvo-bench --razones does.
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QTableView>

#include "Pintado.h"
#include "core/ventanas/marco/Escritorio.h"
#include "core/ventanas/parrilla/Parrilla.h"
#include "stock/Almacenes.h"
#include "totals/libros/AjustesSesion.h"
#include "totals/libros/CerrSes.h"
#include "totals/periodos/AjustesPeriodos.h"
#include "totals/ventanas/RegistroTotales.h"

using namespace tarvo;
using namespace tarvo::banco;
using namespace Qt::StringLiterals;

namespace {

constexpr int kFilas = 500'000, kGrupos = 50, kVacio = 1, kLleno = 2;
constexpr int kVueltas = 9, kPaginas = 3'000, kGiros = 20;
constexpr double kAbrirMs = 150, kPaginaMs = 32, kFiltroMs = 300, kVecesConsulta = 2;
class Banco {
 public:
  explicit Banco(QApplication& qt)
      : db_(banco::hacerTienda(carpeta_.filePath(u"TARVO.MDB"_s), kGrupos, kFilas / kGrupos)),
        ajustes_(carpeta_.path(), Idioma::Espanol,
                 {totals::ajustesSesion(), totals::ajustesPeriodos()}),
        textos_(banco::bien(Textos::leer(u":/textos/es.txt"_s))),
        sesion_(*db_, ajustes_, reloj_, textos_),
        almacenes_(*db_, reloj_, textos_),
        periodos_(*db_, ajustes_, almacenes_, textos_),
        escritorio_(qt, *db_, ajustes_, textos_, reloj_, ventanas::Cara::Clara, {}) {
    banco::bien(db_->BeginTrans());
    for (const int link : {kVacio, kLleno})
      banco::bien(
          db_->ejecutar(u"insert into COLUMNA (LINK, TIPO, FECHA1, FECHAF) values (?, 1, ?, ?)",
                        link, 45000 + link, 45000.9 + link));
    banco::bien(db_->ejecutar(
        u"with recursive n(i) as (select 0 union all select i+1 from n where i<?) insert into "
        u"TOTPLU (LINK, GRUPO, CODI, CON, PES, [IMP], SCO) select c.LINK, g.CODGPO, 101+i, 1, 100, "
        u"i, 0 from n, GRUPOS g, COLUMNA c where c.LINK=?",
        kFilas / kGrupos - 1, kLleno));
    banco::bien(db_->CommitTrans());
    totals::registrarVentanasTotales(escritorio_.ventanas(), sesion_, periodos_);
  }

  ventanas::Ventana* abrir(int link) {
    auto* v =
        escritorio_.ventanas().abrir(totals::PuertaVerCols{.link = link, .clase = TipoTotal::PLUs});
    v->resize(1366, 720);
    return v;
  }
  static ventanas::Parrilla& lista(QWidget* v) {
    return *v->findChild<ventanas::Parrilla*>(u"Grid"_s);
  }
  void cerrar(ventanas::Ventana* v) {
    v->close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QApplication::processEvents();
  }

  // From the call to the first paint of the grid.
  double apertura(int link) {
    QElapsedTimer t;
    t.start();
    auto* v = abrir(link);
    Pintor p(lista(v).vista()->viewport());
    esperar("el primer pintado", [&] { return p.pintadas > 0; });
    const double tardo = ms(t);
    if (lista(v).filas() == 0 && link == kLleno) banco::morir(u"pintado sin filas"_s);
    cerrar(v);
    return tardo;
  }

  double abrirMas() {
    std::vector<double> mas;
    apertura(kVacio), apertura(kLleno);
    for (int i = 0; i < kVueltas; ++i) {
      const double vacia = apertura(kVacio);
      mas.push_back(apertura(kLleno) - vacia);
    }
    return enElLugar(mas, 0.5);
  }

  // From the key to the paint, 99th percentile: as fast as a held key can be served, begun while
  // the rows are still being counted.
  double pagina() {
    auto* v = abrir(kLleno);
    QTableView* vista = lista(v).vista();
    Pintor p(vista->viewport());
    esperar("la lista", [&] { return p.pintadas > 0 && lista(v).filas() > 0; });
    lista(v).irA(0);
    vista->setFocus();
    std::vector<double> huecos;
    for (int i = 0; i < kPaginas; ++i) {
      const int fila = lista(v).filaActual();
      p.pintadas = 0;
      QElapsedTimer t;
      t.start();
      QKeyEvent tecla(QEvent::KeyPress, Qt::Key_PageDown, Qt::NoModifier, {}, i > 0);
      QApplication::sendEvent(vista, &tecla);
      const bool alFinal = lista(v).filaActual() == fila;
      if (alFinal && !lista(v).contando()) break;
      if (alFinal) esperar("la cuenta", [&] { return !lista(v).contando(); });
      esperar("la página", [&] { return p.pintadas > 0; });
      huecos.push_back(ms(t));
    }
    if (huecos.size() < kPaginas / 2) banco::morir(u"no pasó las páginas"_s);
    cerrar(v);
    return enElLugar(huecos, 0.99);
  }

  // The first rows of one group, straight from the engine.
  double consulta(int grupo) {
    const banco::Crudo c(carpeta_.filePath(u"TARVO.MDB"_s));
    sqlite3_stmt* s = const_cast<banco::Crudo&>(c).preparar(
        "SELECT t.*, g.SECCION, p.NOMPLU FROM TOTPLU t LEFT JOIN GRUPOS g ON g.CODGPO=t.GRUPO LEFT "
        "JOIN PLUSES p ON p.SECCION=g.SECCION AND p.CODPLU=t.CODI WHERE t.LINK=? AND t.GRUPO=? "
        "ORDER BY t.GRUPO, t.CODI LIMIT 50");
    QElapsedTimer t;
    t.start();
    banco::bien(sqlite3_bind_int(s, 1, kLleno));
    banco::bien(sqlite3_bind_int(s, 2, grupo));
    while (sqlite3_step(s) == SQLITE_ROW) {
    }
    const double tardo = ms(t);
    sqlite3_finalize(s);
    return tardo;
  }

  // From a choice in the list of groups to the paint of its first rows; and that compared with its
  // limit.
  std::pair<double, double> filtro() {
    auto* v = abrir(kLleno);
    auto* grupos = v->findChild<QComboBox*>(u"AllGrp"_s);
    Pintor p(lista(v).vista()->viewport());
    std::vector<double> ventana, cruda;
    for (int i = 0; i < kGiros; ++i) {
      const int cual = i % 2 == 0 ? 0 : 1 + i % kGrupos;
      esperar("la cuenta", [&] { return !lista(v).contando(); });
      QElapsedTimer t;
      t.start();
      grupos->setCurrentIndex(cual);
      p.pintadas = 0;
      Q_EMIT grupos->activated(cual);
      esperar("el filtro", [&] { return p.pintadas > 0 && lista(v).filas() > 0; });
      ventana.push_back(ms(t));
      if (cual > 0) cruda.push_back(consulta(cual));
    }
    cerrar(v);
    const double limite = std::max(kFiltroMs, kVecesConsulta * enElLugar(cruda, 0.5));
    return {enElLugar(ventana, 1), limite};
  }

 private:
  QTemporaryDir carpeta_;
  RelojReal reloj_;
  std::unique_ptr<dao::Database> db_;
  Ajustes ajustes_;
  Textos textos_;
  totals::Sesion sesion_;
  stock::Almacenes almacenes_;
  totals::Periodos periodos_;
  ventanas::Escritorio escritorio_;
};

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication qt(argc, argv);
  qt.setQuitOnLastWindowClosed(false);
  Banco b(qt);
  bool todas = decir("visor.abrir_500000", b.abrirMas(), kAbrirMs);
  todas = decir("visor.pagina", b.pagina(), kPaginaMs) && todas;
  const auto [tardo, limite] = b.filtro();
  todas = decir("visor.filtro", tardo, limite) && todas;
  return todas ? 0 : 1;
}
