// tarvo-bench-teclados: a keyboard of 125 keys whose articles are among a hundred thousand: its
// opening, and a key dragged across it. Prints a line for each, as tarvo-bench --razones does.
#include <QMouseEvent>
#include <QWidget>

#include "Pintado.h"
#include "articles/AjustesArticulos.h"
#include "articles/TablasArticulos.h"
#include "core/ventanas/marco/Escritorio.h"
#include "core/ventanas/parrilla/Parrilla.h"
#include "devices/TecladosDefault.h"
#include "devices/ventanas/LienzoTeclado.h"
#include "devices/ventanas/Puertas.h"
#include "devices/ventanas/RegistrarVentanas.h"

using namespace tarvo;
using namespace tarvo::banco;
using namespace Qt::StringLiterals;

namespace {

constexpr int kArticulos = 100'000, kMovimientos = 600;
constexpr double kAbrirMs = 150, kCuadroMs = 16, kParte = 0.99;

class Banco {
 public:
  explicit Banco(QApplication& qt)
      : db_(hacerTienda(carpeta_.filePath(u"TARVO.MDB"_s), 4, kArticulos)),
        ajustes_(carpeta_.path(), Idioma::Espanol, {articles::ajustesArticulos()}),
        textos_(bien(Textos::leer(u":/textos/es.txt"_s))),
        catalogo_(*db_, textos_, reloj_, u"banco"_s),
        escritorio_(qt, *db_, ajustes_, textos_, reloj_, ventanas::Cara::Clara, {}) {
    bien(articles::asegurarTablasArticulos(*db_));
    devices::registrarVentanasTeclados(escritorio_.ventanas(), catalogo_);
  }

  // From the call to the first paint of the keys and of the list.
  double abrir() {
    return aperturas([this] { mostrar(); }, [this] { ventana_->descargar(); });
  }
  // From a movement of the mouse to the end of the paint that it causes.
  double arrastrar() {
    mostrar();
    ventana_->resize(1920, 1016);
    QApplication::processEvents();
    mover(QEvent::MouseButtonPress, lienzo_->sitio(1).center());
    std::vector<double> v;
    for (int i = 0; i < kMovimientos; ++i) {
      const Pintor p(lienzo_);
      QElapsedTimer t;
      t.start();
      mover(QEvent::MouseMove,
            {20.0 + 31 * i % (lienzo_->width() - 40), 20.0 + 17 * i % (lienzo_->height() - 40)});
      esperar("el cuadro", [&] { return p.pintadas > 0; });
      v.push_back(ms(t));
    }
    mover(QEvent::MouseMove, lienzo_->sitio(1).center());  // nothing has changed
    mover(QEvent::MouseButtonRelease, lienzo_->sitio(1).center());
    quitar();
    return enElLugar(v, kParte);
  }

 private:
  void mostrar() {
    ventana_ = escritorio_.ventanas().abrir(
        devices::PuertaTeclado{.textos = {devices::TecladoDefecto(devices::kRowan, Idioma::Espanol),
                                          devices::HardPluDefecto(), devices::TarasDefecto()}});
    if (!ventana_) morir(u"no se abre"_s);
    lienzo_ = ventana_->findChild<devices::LienzoTeclado*>();
    const Pintor teclas(lienzo_);
    auto* lista = ventana_->findChild<ventanas::Parrilla*>(u"articulos"_s);
    esperar("el primer pintado", [&] { return teclas.pintadas > 0 && lista->filas() > 0; });
  }
  void quitar() {
    ventana_->descargar();
    QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QApplication::processEvents();
  }
  void mover(QEvent::Type que, QPointF aqui) {
    QMouseEvent e(que, aqui, lienzo_->mapToGlobal(aqui), Qt::LeftButton,
                  que == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton,
                  Qt::NoModifier);
    QApplication::sendEvent(lienzo_, &e);
  }

  QTemporaryDir carpeta_;
  RelojReal reloj_;
  std::unique_ptr<dao::Database> db_;
  Ajustes ajustes_;
  Textos textos_;
  articles::Catalogo catalogo_;
  ventanas::Escritorio escritorio_;
  ventanas::Ventana* ventana_ = nullptr;
  devices::LienzoTeclado* lienzo_ = nullptr;
};

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication qt(argc, argv);
  qt.setQuitOnLastWindowClosed(false);
  Banco b(qt);
  bool todas = decir("teclado.abrir_125", b.abrir(), kAbrirMs);
  todas = decir("teclado.arrastrar", b.arrastrar(), kCuadroMs) && todas;
  return todas ? 0 : 1;
}
