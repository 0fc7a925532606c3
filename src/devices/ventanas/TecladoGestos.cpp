// The keyboard of a scale: what a person does to it.
#include <QClipboard>
#include <QFileDialog>
#include <QTabWidget>
#include <QTableView>

#include "articles/Listas.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/marco/MyMsgBox.h"
#include "core/ventanas/marco/Retenida.h"
#include "devices/FicheroTeclado.h"
#include "devices/TextosDevices.h"
#include "devices/ventanas/TecladoVentana.h"
#include "devices/ventanas/TextosDevicesVentanas.h"

namespace tarvo::devices {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kUltimoArticulo = 9'999'999;
constexpr int kTaraMayor = 9'999;

// Digits alone; nothing for any other text.
std::optional<qint64> soloCifras(const QString& texto) {
  const QString limpio = texto.trimmed();
  bool bien = false;
  const qint64 n = limpio.toLongLong(&bien);
  return bien && n >= 0 && limpio[0].isDigit() ? std::optional(n) : std::nullopt;
}

}  // namespace

// --- changes and the way back

Resultado<> TecladoVentana::intentar(const QString& que, const Cambio& cambio) {
  TecladoEditado nuevo = r;
  TARVO_INTENTAR(cambio(nuevo));
  if (nuevo == r) return {};
  const TecladoEditado antes = r;
  r = std::move(nuevo);
  if (!antesDeTanda_) apuntar(que, antes);
  acierto();
  pintar();
  return {};
}

void TecladoVentana::apuntar(const QString& que, const TecladoEditado& antes) {
  deshacer_->apuntarIdaYVuelta(
      que,
      [this, antes]() -> Resultado<ventanas::Deshacer::Vuelto> {
        poner(antes);
        return ventanas::Deshacer::Vuelto();
      },
      [this, despues = r]() -> Resultado<> {
        poner(despues);
        return {};
      });
}

void TecladoVentana::poner(const TecladoEditado& teclado) {
  r = teclado;
  pintar();
}

// --- articles on keys

void TecladoVentana::vender(int tecla, qint64 articulo) {
  if (!cambiar(t(kTxTecla).arg(cual(tecla)),
               [&](TecladoEditado& k) { return k.vender(tecla, articulo, contexto().textos); }))
    return;
  Busca_->clear();
  lienzo_->setFocus();
  lienzo_->irA(tecla % lienzo_->teclas() + 1);
}

// The article typed as a number, else the current one of the list.
void TecladoVentana::venderElegido() {
  const QString texto = Busca_->text().trimmed();
  if (const auto codigo = soloCifras(texto)) {
    const auto esta = catalogo_.leer({seccion_, *codigo});
    if (!haIdoBien(esta)) return;
    if (*esta) return vender(lienzo_->actual(), *codigo);
  }
  const int fila = articulos_->filaActual();
  if (fila < 0) return decirPista(t(kTxSinEseArticulo).arg(texto));
  vender(lienzo_->actual(), articulos_->valor(fila, u"CODPLU").entero());
}

// On a key, or on a direct PLU of the list.
void TecladoVentana::soltarArticulo(qint64 articulo, const QPoint& global) {
  if (const int tecla = lienzo_->teclaEnGlobal(global); tecla > 0) {
    vender(tecla, articulo);
    return lienzo_->irA(tecla);
  }
  const QWidget* hueco = LisHplu_->vista()->viewport();
  const QPoint aqui = hueco->mapFromGlobal(global);
  const int fila = LisHplu_->vista()->rowAt(aqui.y());
  if (!hueco->isVisible() || !hueco->rect().contains(aqui) || fila < 0) return;
  const int directo = static_cast<int>(LisHplu_->clave(fila));
  haIdoBien(ponerPlu(directo, QString::number(articulo)));
}

void TecladoVentana::mover(int de, int a) {
  if (cambiar(contexto().textos(kTxCambioMover, {cual(de), cual(a)}),
              [=](TecladoEditado& k) -> Resultado<> {
                k.mover(de, a);
                return {};
              }))
    lienzo_->irA(a);
}

void TecladoVentana::levantar() {
  lienzo_->setFocus();
  lienzo_->levantar();
  if (lienzo_->levantada())
    decirPista(t(kTxEligeSitio).arg(cual(lienzo_->actual())));
  else
    decirPista(t(kTxNadaQueMover));
}

void TecladoVentana::borrar(int tecla) {
  cambiar(t(kTxCambioBorrar).arg(cual(tecla)), [=](TecladoEditado& k) -> Resultado<> {
    k.anular(tecla);
    return {};
  });
}

void TecladoVentana::rellenar() {
  const auto lista =
      articles::codigosDe(catalogo_,
                          {.seccion = seccion_,
                           .departamento = static_cast<int>(ventanas::elegido(*departamento_)),
                           .deVenta = true},
                          ventanas::elegido(*orden_) == 1);
  if (!haIdoBien(lista) || !haIdoBien(mirarArticulos())) return;
  std::set<qint64> estan;
  for (const auto& [codigo, articulo] : existen_) estan.insert(codigo);
  TecladoEditado::Relleno hecho;
  cambiar(t(kTxCambioRelleno), [&](TecladoEditado& k) -> Resultado<> {
    hecho = k.rellenar(*lista, estan, contexto().textos);
    return {};
  });
  const QString puestos = t(kTxPuestos, hecho.puestos);
  if (hecho.puestos + hecho.noCaben == 0) return decirPista(t(kTxNadaQueRellenar));
  if (hecho.noCaben == 0) return decirBien(puestos);
  decirDuda((hecho.puestos > 0 ? puestos + u' ' : QString()) + t(kTxNoCaben, hecho.noCaben));
}

// --- the lists

Resultado<> TecladoVentana::ponerPlu(int directo, const QString& texto) {
  const auto codigo = soloCifras(texto);
  const bool vacio = texto.trimmed().isEmpty() || codigo == 0;
  if (!vacio && (!codigo || *codigo > kUltimoArticulo))
    return fallo(Fallo::Formato, t(kTxPluMalo).arg(texto));
  if (!vacio && *codigo < kPrimerArticuloDeTecla)
    return fallo(Fallo::Restriccion, t(kTxNoVaEnTecla));
  return intentar(t(kTxCambioPlu).arg(directo), [=](TecladoEditado& k) -> Resultado<> {
    k.comun().articulo(directo, vacio ? std::nullopt : codigo);
    return {};
  });
}

Resultado<> TecladoVentana::ponerTara(int directa, const QString& texto) {
  const auto gramos = soloCifras(texto);
  const bool vacio = texto.trimmed().isEmpty();
  if (!vacio && (!gramos || *gramos > kTaraMayor))
    return fallo(Fallo::Formato, t(kTxTaraMala).arg(texto));
  return intentar(t(kTxCambioTara).arg(directa), [=](TecladoEditado& k) -> Resultado<> {
    k.comun().tara(directa, vacio ? std::nullopt : std::optional(static_cast<int>(*gramos)));
    return {};
  });
}

// --- the clipboard and files

void TecladoVentana::copiar() {
  QApplication::clipboard()->setText(r.comun().portapapeles());
  decirBien(t(kTxCopiado).arg(r.teclas()));
}

void TecladoVentana::pegar() {
  pegarTexto(t(kTxCambioPegado), QApplication::clipboard()->text());
}

bool TecladoVentana::pegarTexto(const QString& que, const QString& texto) {
  switch (r.comun().quePega(texto)) {
    case Teclado::Pegado::NoEsTeclado:
      decirFallo(t(kTxSinTeclado));
      return false;
    case Teclado::Pegado::OtrasTeclas:
      if (!ventanas::MyMsgBox::Decide(this, contexto().textos, t(kTxOtroTeclado),
                                      ventanas::kAceptoCancelo))
        return false;
      break;
    case Teclado::Pegado::Igual:
      break;
  }
  if (!cambiar(que, [&](TecladoEditado& k) -> Resultado<> {
        k.comun().pegar(texto);
        return {};
      }))
    return false;
  decirBien(que);
  return true;
}

void TecladoVentana::guardar() {
  const ventanas::Retenida mientras(this);
  QFileDialog caja(this, t(kTxGuardarTip), contexto().ajustes.carpeta, t(kTxFicherosTeclado));
  caja.setAcceptMode(QFileDialog::AcceptSave);
  caja.setDefaultSuffix(u"txt"_s);
  caja.selectFile(NombreModelo(r.modelo()) + u".txt"_s);
  if (caja.exec() == QDialog::Accepted) guardarEn(caja.selectedFiles().value(0));
}

void TecladoVentana::guardarEn(const QString& ruta) {
  if (haIdoBien(guardarTeclado(ruta, r.comun()))) decirBien(t(kTxTecladoGuardado).arg(ruta));
}

void TecladoVentana::leerFichero() {
  const ventanas::Retenida mientras(this);
  QFileDialog caja(this, t(kTxLeerTip), contexto().ajustes.carpeta, t(kTxFicherosTeclado));
  caja.setFileMode(QFileDialog::ExistingFile);
  if (caja.exec() == QDialog::Accepted) leerDe(caja.selectedFiles().value(0));
}

void TecladoVentana::leerDe(const QString& ruta) {
  const auto texto = leerTeclado(ruta, contexto().textos);
  if (haIdoBien(texto)) pegarTexto(t(kTxCambioLeido).arg(ruta), *texto);
}

}  // namespace tarvo::devices
