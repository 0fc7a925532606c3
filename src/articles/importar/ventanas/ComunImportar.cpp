#include "articles/importar/ventanas/ComunImportar.h"

#include <QGuiApplication>

#include "articles/importar/ventanas/TextosImportarVentanas.h"
#include "core/ventanas/MyMsgBox.h"

namespace tarvo::importar {

using namespace Qt::StringLiterals;
using ventanas::Clase;

void prepararMalas(ventanas::Parrilla& lista, ventanas::Contexto& contexto,
                   const QString& ventana) {
  lista.preparar(contexto, ventana,
                 {{.titulo = kTxLinea, .campo = u"linea"_s, .clase = Clase::Entero, .ancho = 72},
                  {.titulo = kTxMotivo, .campo = u"motivo"_s, .ancho = 420},
                  {.titulo = kTxDiceLaLinea, .campo = u"texto"_s, .ancho = 260}});
  lista.setVacia(contexto.textos(kTxSinMalas));
  lista.vivas();
}

void ponerMalas(ventanas::Parrilla& lista, const std::vector<LineaMala>& malas) {
  std::vector<ventanas::FilaViva> filas;
  filas.reserve(malas.size());
  qint64 clave = 0;
  for (const LineaMala& m : malas) filas.push_back({++clave, {m.numero, m.motivo, m.texto}});
  lista.vivas().poner(std::move(filas));
}

bool hayQueDeshacer(const ventanas::Ventana& ventana, articles::Lotes& lotes) {
  const auto ultimo = lotes.ultimo(ventana.nombre());
  return ultimo && *ultimo;
}

bool deshacerUltimo(ventanas::Ventana& v, articles::Lotes& lotes) {
  const auto ultimo = lotes.ultimo(v.nombre());
  if (!v.haIdoBien(ultimo) || !*ultimo) return false;
  const auto& t = v.contexto().textos;
  const QString pregunta =
      t(kTxConfirmarDeshacer, {(*ultimo)->cuando.general(), (*ultimo)->articulos});
  if (!ventanas::MyMsgBox::Decide(&v, t, pregunta, ventanas::kAceptoCancelo)) return false;
  QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  const auto hecho = lotes.deshacer((*ultimo)->numero, v.nombre());
  QGuiApplication::restoreOverrideCursor();
  if (!v.haIdoBien(hecho)) return false;
  const QString dicho = t(kTxDeshecho, {hecho->repuestos, hecho->quitados});
  if (hecho->fuera.empty()) return v.decirBien(dicho), true;
  QStringList fuera;
  for (const auto& c : hecho->fuera) fuera << Ceros(c.seccion, 3) + u"  "_s + Ceros(c.codigo, 7);
  v.decirDuda(dicho + u' ' + t(kTxDeshechoFuera, {hecho->fuera.size()}), fuera.join(u'\n'));
  return true;
}

}  // namespace tarvo::importar
