#include "labels/ventanas/EdiEtqu.h"

#include <QApplication>
#include <QClipboard>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>

#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/marco/MyMsgBox.h"
#include "core/ventanas/marco/Retenida.h"
#include "core/ventanas/marco/Tira.h"
#include "core/ventanas/marco/Ventanas.h"
#include "core/ventanas/parrilla/Parrilla.h"
#include "labels/ventanas/TextosLabelsVentanas.h"

namespace tarvo::labels {

using namespace Qt::StringLiterals;
using namespace ventanas;

EdiEtqu::EdiEtqu(Contexto& contexto, const QString& nombre, articles::Catalogo& catalogo)
    : Ventana(contexto, nombre),
      catalogo_(catalogo),
      etiquetas_(catalogo),
      juegos_(catalogo, contexto.ajustes) {
  montar();
  const auto hallada =
      buscarFuente(contexto.ajustes.carpeta, QApplication::applicationDirPath(), contexto.textos);
  fuente_ = hallada.fuente;
  lienzo_->ponerFuente(fuente_);
  if (!hallada.aviso.isEmpty()) decirDuda(hallada.aviso);
  // Some commands act on the list that has the keyboard.
  connect(qApp, &QApplication::focusChanged, this, [this] { actualizarOrdenes(); });
}

// The focus still moves while the controls are being destroyed.
EdiEtqu::~EdiEtqu() {
  qApp->disconnect(this);
}

Resultado<> EdiEtqu::entrar(const PuertaEdiEtqu&) {
  if (!actual_.isEmpty()) return {};
  TARVO_INTENTAR(lista_->abrir(listaEtiquetas()));
  mostrar();
  if (lista_->filas() > 0) {
    lista_->irA(0);
    lista_->setFocus();
  } else {
    nuevoNombre_->setFocus();
  }
  actualCambiada();
  return {};
}

bool EdiEtqu::QueryUnload() {
  return borrador_.cambiado() &&
         !MyMsgBox::Decide(this, contexto().textos, t(kTxAlSalir), kAceptoCancelo | kExclamacion);
}

bool EdiEtqu::enEtiquetas() const {
  return lista_->isAncestorOf(focusWidget()) && lista_->filas() > 0;
}

// --- which format

void EdiEtqu::irAEtiqueta(const QString& nombre) {
  if (!haIdoBien(lista_->refrescar())) return;
  for (int fila = 0; fila < lista_->filas(); ++fila)
    if (lista_->texto(fila, u"NUMETQ") == nombre) return lista_->irA(fila);
}

void EdiEtqu::actualCambiada() {
  if (llenando_) return;
  const int fila = lista_->filaActual();
  const QString nombre = fila < 0 ? QString() : lista_->texto(fila, u"NUMETQ");
  if (nombre == actual_) return;
  const QScopedValueRollback en(llenando_, true);
  dejaLosCambios() ? cargar(nombre) : irAEtiqueta(actual_);
}

// Asks what to do with unsaved changes; false if the user stays.
bool EdiEtqu::dejaLosCambios() {
  if (!borrador_.cambiado()) return true;
  QMessageBox caja(QMessageBox::Warning, windowTitle(), t(kTxGuardarCambios), QMessageBox::NoButton,
                   this);
  auto* si = caja.addButton(t(kTxSi), QMessageBox::YesRole);
  auto* no = caja.addButton(t(kTxNo), QMessageBox::NoRole);
  auto* cancelo = caja.addButton(t(kTxCancelar), QMessageBox::RejectRole);
  si->setObjectName(u"Acepto"_s), no->setObjectName(u"No"_s), cancelo->setObjectName(u"Cancelo"_s);
  caja.setDefaultButton(qobject_cast<QPushButton*>(cancelo));
  caja.setEscapeButton(cancelo);
  const Retenida mientras(this);
  caja.exec();
  if (caja.clickedButton() == si) return guardar();
  return caja.clickedButton() == no;
}

// A text that can't be read can only be deleted, or another be pasted in its place.
void EdiEtqu::cargar(const QString& nombre) {
  EstadoFormato nuevo;
  int sobran = 0;
  bool ilegible = false;
  if (!nombre.isEmpty()) {
    const auto etiqueta = etiquetas_.leer(nombre);
    if (!haIdoBien(etiqueta)) return irAEtiqueta(actual_);
    const auto leido = leerFormato(etiqueta->campos.value_or(QString()));
    ilegible = !leido;
    nuevo = {leido ? leido->formato : Formato(), etiqueta->juego};
    sobran = nuevo.formato.recortar();
  }
  ilegible_ = ilegible;
  actual_ = nombre;
  for (const int paso : pasos_) deshacer_->retirar(paso);
  pasos_.clear();
  borrador_.cargar(std::move(nuevo));
  lienzo_->elegir({});
  leerTextos();
  mostrar();
  if (ilegible_) decirFallo(contexto().textos(kTxEtiquetaIlegible, {nombre}));
  if (sobran > 0) decirDuda(t(kTxCamposDeMas, sobran));
}

void EdiEtqu::crear() {
  if (!dejaLosCambios()) return;
  const auto hecho = etiquetas_.crear(nuevoNombre_->text());
  if (!haIdoBien(hecho)) return nuevoNombre_->setFocus();
  nuevoNombre_->clear();
  borrador_.guardado();
  irAEtiqueta(*hecho);
  lienzo_->setFocus();
  decirBien(contexto().textos(kTxEtiquetaCreada, {*hecho}));
}

Resultado<> EdiEtqu::renombrar(const QString& nuevo) {
  const QString viejo = actual_;
  TARVO_TOMAR(const QString hecho, etiquetas_.renombrar(viejo, nuevo));
  if (hecho == viejo) return {};
  actual_ = hecho;
  deshacer_->apuntar(contexto().textos(kTxHizoRenombrar, {viejo, hecho}),
                     [this, viejo, hecho]() -> Resultado<Vuelto> {
                       TARVO_INTENTAR(etiquetas_.renombrar(hecho, viejo));
                       if (actual_ == hecho) actual_ = viejo;
                       irAEtiqueta(actual_);
                       mostrar();
                       return Vuelto();
                     });
  mostrar();
  decirBien(contexto().textos(kTxEtiquetaSeLlama, {viejo, hecho}));
  return {};
}

// --- saving and deleting

bool EdiEtqu::guardar() {
  if (!editable()) return false;
  if (std::ranges::any_of(borrador_.formato().campos, &CampoEtiqueta::fuera)) {
    if (!MyMsgBox::Decide(this, contexto().textos, t(kTxEliminarNegativos),
                          kAceptoCancelo | kExclamacion))
      return false;
    Formato dentro = borrador_.formato();
    std::erase_if(dentro.campos, [](const CampoEtiqueta& c) { return c.fuera(); });
    poner(t(kTxHizoNegativos), dentro);
  }
  const auto texto = borrador_.formato().texto();
  if (!texto || !haIdoBien(etiquetas_.guardar({actual_, *texto, borrador_.estado().juego})))
    return false;
  borrador_.guardado();
  mostrar();
  decirBien(contexto().textos(kTxEtiquetaGuardada, {actual_}));
  return true;
}

void EdiEtqu::borrarEtiqueta() {
  if (actual_.isEmpty()) return decirPista(t(kTxEligeEtiqueta));
  const auto balanzas = etiquetas_.balanzasCon(actual_);
  if (!haIdoBien(balanzas)) return;
  QString pregunta = t(kTxBorrarFormato);
  if (*balanzas > 0) pregunta += u'\n' + t(kTxLaUsan, *balanzas);
  if (!MyMsgBox::Decide(this, contexto().textos, pregunta, kAceptoCancelo | kExclamacion)) return;
  auto ida = etiquetas_.borrar(actual_);
  if (!haIdoBien(ida)) return;
  const QString nombre = actual_, que = contexto().textos(kTxHizoBorrarEtiqueta, {nombre});
  borrador_.guardado();
  if (!haIdoBien(lista_->refrescar())) return;
  actualCambiada();
  deshacer_->apuntar(que, [this, ida = std::move(*ida)]() -> Resultado<Vuelto> {
    TARVO_TOMAR(const int fuera, etiquetas_.reponer(ida));
    irAEtiqueta(ida.etiqueta.nombre);
    return fuera == 0 ? Vuelto() : Vuelto{t(kTxPosicionesOcupadas, fuera), true};
  });
  decirBien(t(kTxSePuedeDeshacer).arg(que));
}

// --- its text set

void EdiEtqu::elegirJuego() {
  const auto elegido = preguntar(PuertaEdiTxtFi{borrador_.estado().juego});
  leerTextos();  // they may have been edited
  mostrar();
  if (!elegido || actual_.isEmpty() || elegido->juego == borrador_.estado().juego) return;
  const auto antes = borrador_.estado().juego;
  if (!haIdoBien(etiquetas_.ponerJuego(actual_, elegido->juego))) return;
  const auto cambiar = [this](const std::optional<QString>& juego) {
    borrador_.ponerJuego(juego);
    leerTextos();
    mostrar();
  };
  cambiar(elegido->juego);
  deshacer_->apuntar(t(kTxHizoJuego), [this, cambiar, antes, de = actual_]() -> Resultado<Vuelto> {
    TARVO_INTENTAR(etiquetas_.ponerJuego(de, antes));
    if (de == actual_) cambiar(antes);
    return Vuelto();
  });
}

void EdiEtqu::leerTextos() {
  lineas_ = {};
  const auto& juego = borrador_.estado().juego;
  if (!juego) return;
  const auto leidas = juegos_.lineas(*juego);
  if (!haIdoBien(leidas)) return;
  lineas_ = *leidas;
  if (!lineas_) decirDuda(contexto().textos(kTxJuegoNoEsta, {*juego}));
}

LectorTextos EdiEtqu::lector() const {
  return [this](int n) { return LeerTexto(n, lineas_, contexto().ajustes); };
}

// --- the whole format by the clipboard

void EdiEtqu::copiarEtiqueta() {
  const auto texto = paraCopiar(borrador_.formato(), borrador_.estado().juego.value_or(QString()));
  if (!texto) return decirFallo(t(kTxNoSeCopio));
  QApplication::clipboard()->setText(*texto);
  decirBien(contexto().textos(kTxEtiquetaCopiada, {actual_}));
}

// Nothing where there is no format: an empty clipboard isn't an empty one.
std::optional<FormatoLeido> EdiEtqu::delPortapapeles() {
  const QString texto = QApplication::clipboard()->text();
  auto leido = leerFormato(texto);
  if (leido && leido->formato.campos.empty() && !texto.startsWith(kCabeceraFormato)) leido.reset();
  if (!leido) decirFallo(t(kTxNoSeCopio));
  return leido;
}

void EdiEtqu::pegarEtiqueta() {
  if (const auto leido = delPortapapeles()) pegarEntera(*leido);
}

void EdiEtqu::pegarEntera(const FormatoLeido& leido) {
  if (borrador_.cambiado() &&
      !MyMsgBox::Decide(this, contexto().textos, t(kTxAlCargar), kAceptoCancelo | kExclamacion))
    return;
  EstadoFormato nuevo{leido.formato, borrador_.estado().juego};
  if (leido.juego) nuevo.juego = leido.juego->isEmpty() ? std::nullopt : leido.juego;
  const int sobran = nuevo.formato.recortar(), dicho = tira().veces();
  lienzo_->elegir({});
  ilegible_ = false;
  ponerEstado(t(kTxHizoPegarEtiqueta), std::move(nuevo));
  if (sobran > 0) decirDuda(t(kTxCamposDeMas, sobran));
  if (tira().veces() == dicho) decirBien(contexto().textos(kTxEtiquetaPegada, {actual_}));
}

void EdiEtqu::verMuestra() {
  abrir(PuertaVistaEtq{actual_, borrador_.formato(), borrador_.estado().juego});
}

}  // namespace tarvo::labels
