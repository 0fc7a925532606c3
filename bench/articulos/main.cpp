// tarvo-bench-articulos: the list of articles with a hundred thousand rows: its opening, a change
// of order, the slowest column to sort by, Ctrl+End, letters typed on it that no row has, and a
// search while typing compared with the bare query. Prints a line for each, as tarvo-bench
// --razones does.
#include <QAbstractButton>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTableView>

#include "Tienda.h"
#include "articles/Listas.h"
#include "core/ventanas/parrilla/Parrilla.h"

using namespace tarvo;
using namespace tarvo::banco;
using namespace Qt::StringLiterals;

namespace {

constexpr int kArticulos = 100'000, kVueltas = 9;
constexpr double kAbrirMs = 150, kOrdenMs = 150, kBuscarMs = 50;
constexpr double kColumnaMs = 150, kFinalMs = 150, kTecleoMs = 3'000;
// They find most, some, a few, a number and nothing.
const QStringList kBusquedas{u"j"_s, u"jamon"_s, u"jamon 777"_s, u"4242"_s, u"xyz"_s};

std::unique_ptr<dao::Database> hacerCatalogo(const QString& ruta) {
  auto db = hacerTienda(ruta, 4, kArticulos);
  bien(articles::asegurarTablasArticulos(*db));
  constexpr const char16_t* kNombres[] = {u"TOMATE", u"PERA",  u"MELÓN",
                                          u"JAMÓN",  u"QUESO", u"LIMÓN"};
  for (int i = 0; i < std::ssize(kNombres); ++i)
    bien(
        db->ejecutar(u"UPDATE PLUSES SET DEPTO=1+CODPLU mod 9, NOMPLU=? & ' ' & (CODPLU*7919 mod "
                     u"100003) WHERE CODPLU>2 AND CODPLU mod 6=?",
                     QString::fromUtf16(kNombres[i]), i));
  return db;
}

class Banco : Tienda {
 public:
  explicit Banco(QApplication& qt) : Tienda(qt, hacerCatalogo) {}

  // From the call to the first paint of the grid with its rows.
  double abrir() {
    return aperturas([this] { mostrar(); }, [this] { ventana_->close(); });
  }
  double orden() {
    mostrar();
    std::vector<double> v;
    for (int i = 0; i < kVueltas; ++i)
      v.push_back(hastaPintar([&] {
        ventana_->findChild<QAbstractButton*>(i % 2 ? u"ModoCod"_s : u"ModoNom"_s)->click();
      }));
    quitar();
    return enElLugar(v, 0.5);
  }
  // Each heading is clicked; the slowest counts.
  double columnas() {
    mostrar();
    auto* cabecera = lista().vista()->horizontalHeader();
    double peor = 0;
    for (int c = 0; c < cabecera->count(); ++c) {
      if (cabecera->isSectionHidden(c)) continue;
      std::vector<double> v;
      for (int i = 0; i < kVueltas; ++i)
        v.push_back(hastaPintar([&] {
          cabecera->setSortIndicator(c, i % 2 ? Qt::DescendingOrder : Qt::AscendingOrder);
        }));
      peor = std::max(peor, enElLugar(v, 0.5));
    }
    quitar();
    return peor;
  }
  // Ctrl+End while the rows are still being counted.
  double alFinal() {
    std::vector<double> v;
    for (int i = 0; i < kVueltas; ++i) {
      mostrar();
      v.push_back(hastaPintar([&] { pulsar(Qt::Key_End, Qt::ControlModifier); }, false));
      if (lista().filaActual() != lista().filas() - 1 || lista().contando()) morir(u"no va"_s);
      quitar();
    }
    return enElLugar(v, 0.5);
  }
  // All rows are examined; the window answers meanwhile.
  double teclear() {
    mostrar();
    QElapsedTimer t;
    t.start();
    lista().vista()->setCurrentIndex(lista().modelo()->index(0, 0));
    pulsar(Qt::Key_Z, {}, u"~"_s);
    esperar("la búsqueda", [&] { return !lista().trabajando(); });
    const double suyo = ms(t);
    quitar();
    return suyo;
  }
  // The worst of the searches: how much longer it takes than its bare query.
  double buscar() {
    mostrar();
    auto* filtro = ventana_->findChild<QLineEdit*>(u"Filtro"_s);
    double peor = 0;
    for (const QString& texto : kBusquedas) {
      std::vector<double> v;
      for (int i = 0; i < kVueltas; ++i) {
        const double cruda = consulta(texto);
        v.push_back(hastaPintar([&] { filtro->setText(texto); }) - cruda);
        hastaPintar([&] { filtro->clear(); });
      }
      peor = std::max(peor, enElLugar(v, 0.5));
    }
    quitar();
    return peor;
  }

 private:
  ventanas::Parrilla& lista() { return *ventana_->findChild<ventanas::Parrilla*>(u"Grid"_s); }
  void mostrar() {
    ventana_ = escritorio_.ventanas().abrir(u"BrowPLUs"_s);
    if (!ventana_) morir(u"no se abre"_s);
    ventana_->resize(1366, 720);
    const Pintor p(lista().vista()->viewport());
    esperar("el primer pintado", [&] { return p.pintadas > 0 && lista().filas() > 0; });
  }
  void quitar() {
    ventana_->close();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QApplication::processEvents();
  }
  void pulsar(Qt::Key cual, Qt::KeyboardModifiers mandos, const QString& texto = {}) {
    QKeyEvent tecla(QEvent::KeyPress, cual, mandos, texto);
    QApplication::sendEvent(lista().vista(), &tecla);
  }
  double hastaPintar(const std::function<void()>& hacer, bool contada = true) {
    esperar("la cuenta", [&] { return !contada || !lista().contando(); });
    Pintor p(lista().vista()->viewport());
    QElapsedTimer t;
    t.start();
    hacer();
    p.pintadas = 0;
    lista().vista()->viewport()->update();
    esperar("las filas", [&] { return p.pintadas > 0; });
    return ms(t);
  }
  double consulta(const QString& texto) {
    const auto condicion = articles::condicionBusqueda(texto);
    QElapsedTimer t;
    t.start();
    auto rs = bien(db_->OpenQuery(
        u"select rowid from PLUSES where SECCION=1 and "_s + condicion.sql + u" order by CODPLU"_s,
        condicion.valores));
    while (!rs->Eof()) bien(rs->MoveNext());
    return ms(t);
  }

  ventanas::Ventana* ventana_ = nullptr;
};

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication qt(argc, argv);
  qt.setQuitOnLastWindowClosed(false);
  Banco b(qt);
  bool todas = decir("articulos.abrir_100000", b.abrir(), kAbrirMs);
  todas = decir("articulos.orden", b.orden(), kOrdenMs) && todas;
  todas = decir("articulos.peor_columna", b.columnas(), kColumnaMs) && todas;
  todas = decir("articulos.al_final", b.alFinal(), kFinalMs) && todas;
  todas = decir("articulos.teclear_sin_hallar", b.teclear(), kTecleoMs) && todas;
  todas = decir("articulos.buscar_de_mas", b.buscar(), kBuscarMs) && todas;
  return todas ? 0 : 1;
}
