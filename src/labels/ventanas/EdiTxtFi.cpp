#include "labels/ventanas/EdiTxtFi.h"

#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>

#include "core/ventanas/parrilla/Parrilla.h"
#include "labels/ventanas/RejaTextos.h"
#include "labels/ventanas/TextosLabelsVentanas.h"

namespace tarvo::labels {

using namespace Qt::StringLiterals;
using namespace ventanas;

EdiTxtFi::EdiTxtFi(Contexto& contexto, const QString& nombre, articles::Catalogo& catalogo)
    : FichaDe(contexto, nombre), motor_(catalogo, contexto.ajustes) {
  auto f = formulario(kTxEdiTxtFi);
  auto partes = f.columnas({2, 3});
  nuevo_ = partes[0].ancho(new QLineEdit, u"NombreNuevo"_s, kTxNombreJuego);
  auto* boton = partes[0].boton(kTxCrearJuego, u"Crear"_s, [this] { crear(); });
  partes[0].enLinea({boton});
  lista_ = partes[0].parrilla(kTxJuegos, u"Lista"_s);
  borrar_ = partes[0].boton(kTxEliminarJuego, u"Eliminar"_s, [this] { borrar(); });
  partes[0].enLinea({borrar_});
  textos_ = partes[1].parrilla(kTxTextos, u"Textos"_s);
  acabar({820, 560});
  deshacer_ = new Deshacer(*this);
  lista_->preparar(contexto, nombre,
                   {{.titulo = kTxColumnaJuego, .campo = u"juego"_s, .ancho = 220}});
  lista_->ponerUnaSola(true);
  lista_->ponerBusca(false);
  lista_->ponerPie(false);
  lista_->vivas();
  prepararTextos(*textos_, contexto, nombre, [this](int n, const QString& s) { escribir(n, s); });
  connect(lista_, &Parrilla::actualCambiada, this, [this] {
    if (!pintando_) pintar(elegido());
  });
  connect(lista_, &Parrilla::activada, this, [this] { confirmar(); });
  connect(nuevo_, &QLineEdit::returnPressed, this, [this] { crear(); });
}

Resultado<> EdiTxtFi::entrar(const PuertaEdiTxtFi& puerta) {
  TARVO_TOMAR(auto todos, motor_.leer());
  TARVO_INTENTAR(editar(std::move(todos)));
  pintar(puerta.juego);
  lista_->setFocus();
  return {};
}

std::optional<QString> EdiTxtFi::elegido() const {
  const int fila = lista_->filaActual();
  return fila < 0 ? std::nullopt : orden_[static_cast<size_t>(lista_->clave(fila))];
}

void EdiTxtFi::pintar(const std::optional<QString>& cual) {
  const QScopedValueRollback en(pintando_, true);
  orden_ = {std::nullopt};
  std::vector<FilaViva> filas{{0, {t(kTxTextosTienda)}}};
  qint64 suya = 0;
  for (const auto& [nombre, lineas] : r.juegos) {
    const auto clave = static_cast<qint64>(orden_.size());
    if (cual == nombre) suya = clave;
    filas.push_back({clave, {nombre}});
    orden_.push_back(nombre);
  }
  lista_->vivas().poner(std::move(filas));
  lista_->irA(lista_->filaDe(suya));
  mostrarTextos(*textos_, motor_, r, orden_[static_cast<size_t>(suya)]);
  borrar_->setEnabled(suya > 0);
}

// The way back from a change of the copy.
void EdiTxtFi::apuntar(const QString& que, const Juegos& antes,
                       const std::optional<QString>& cual) {
  deshacer_->apuntar(que, [this, antes, cual]() -> Resultado<Deshacer::Vuelto> {
    r = antes;
    pintar(cual);
    return Deshacer::Vuelto();
  });
}

void EdiTxtFi::crear() {
  const Juegos antes = r;
  const auto cual = elegido();
  const QString nombre = nuevo_->text().trimmed();
  if (!haIdoBien(motor_.crear(r, nombre))) return nuevo_->setFocus();
  nuevo_->clear();
  apuntar(contexto().textos(kTxHizoCrearJuego, {nombre}), antes, cual);
  pintar(nombre);
  textos_->vista()->setCurrentIndex(textos_->modelo()->index(kPrimerTextoLibre - 1, 1));
  textos_->setFocus();
}

void EdiTxtFi::borrar() {
  const auto cual = elegido();
  if (!cual) return;
  const Juegos antes = r;
  r.juegos.erase(*cual);
  const QString que = contexto().textos(kTxHizoBorrarJuego, {*cual});
  apuntar(que, antes, cual);
  pintar({});
  lista_->setFocus();
  decirBien(t(kTxSePuedeDeshacer).arg(que));
}

void EdiTxtFi::escribir(int numero, const QString& texto) {
  const Juegos antes = r;
  const auto cual = elegido();
  JuegosTextos::poner(r, cual, numero, texto);
  if (r == antes) return;
  apuntar(contexto().textos(kTxHizoTexto, {numero}), antes, cual);
  pintar(cual);
}

Resultado<> EdiTxtFi::aplicar() {
  return motor_.guardar(antes(), r);
}

void EdiTxtFi::aplicada() {
  entregar(JuegoElegido{elegido()});
}

}  // namespace tarvo::labels
