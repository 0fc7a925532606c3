#include "totals/ventanas/DudasCero.h"

#include "core/dinero/Dinero.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/aspecto/Tema.h"
#include "core/ventanas/marco/MyMsgBox.h"
#include "core/ventanas/parrilla/ModeloVivo.h"
#include "totals/ventanas/TextosTotalesVentanas.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;
using namespace ventanas;

DudasCero::DudasCero(Contexto& contexto, const QString& nombre, Sesion& sesion, Periodos& periodos)
    : Ventana(contexto, nombre), motor_(sesion, periodos) {
  ui_.setupUi(cuerpo());
  enlazar();
  ui_.Lista->preparar(
      contexto, nombre,
      {{.titulo = kTxDudaMaquina, .campo = u"maquina"_s, .ancho = 220, .ordenable = false},
       {.titulo = kTxDudaDesde, .campo = u"desde"_s, .ancho = 156, .ordenable = false},
       {.titulo = kTxDudaSi, .campo = u"si"_s, .ancho = 210, .ordenable = false},
       {.titulo = kTxDudaNo, .campo = u"no"_s, .ancho = 130, .ordenable = false}});
  ui_.Lista->vivas();
  ui_.Lista->ponerUnaSola(true);
  ui_.Lista->ponerBusca(false);
  ui_.Lista->ponerVacia(t(kTxNingunaDuda));
  ui_.Lista->vista()->setAccessibleName(t(kTxDudasCero));
  setWindowIcon(icono(u"esperando"_s));
  connect(ui_.Si, &QPushButton::clicked, this, [this] { responder(true); });
  connect(ui_.No, &QPushButton::clicked, this, [this] { responder(false); });
  connect(ui_.Salida, &QPushButton::clicked, this, [this] { close(); });
}

Resultado<> DudasCero::entrar(const PuertaDudasCero&) {
  return refrescar();
}

Resultado<> DudasCero::refrescar() {
  TARVO_TOMAR(todas_, motor_.dudas());
  std::vector<FilaViva> filas;
  filas.reserve(todas_.size());
  for (size_t i = 0; i < todas_.size(); ++i) {
    const DudaAbierta& d = todas_[i];
    filas.push_back({static_cast<qint64>(i),
                     {nombreDe(d), d.desde.general(), dinero(d.siOlvido), dinero(d.siNo)}});
  }
  ui_.Lista->vivas().poner(std::move(filas));
  ui_.Si->setEnabled(!todas_.empty());
  ui_.No->setEnabled(!todas_.empty());
  return {};
}

void DudasCero::responder(bool olvido) {
  const int fila = todas_.size() == 1 ? 0 : ui_.Lista->filaActual();
  if (fila < 0) return decirDuda(t(kTxElijaDuda));
  const DudaAbierta d = todas_[static_cast<size_t>(ui_.Lista->clave(fila))];
  const Textos& textos = contexto().textos;
  const qint64 vendido = olvido ? d.siOlvido : d.siNo;
  const int numero = olvido        ? kTxDudaPreguntaSi
                     : vendido < 0 ? kTxDudaPreguntaDevuelto
                                   : kTxDudaPreguntaNo;
  const QString pregunta = textos(
      numero, {nombreDe(d), d.desde.general(), dinero(olvido ? vendido : std::abs(vendido))});
  if (!MyMsgBox::Decide(this, textos, pregunta, kAceptoCancelo | kExclamacion | kPrudente)) return;
  std::vector<Aviso> avisos;
  const auto links = motor_.responder(d.grupo, d.addr, olvido, avisos);
  if (!haIdoBien(links) || !haIdoBien(refrescar())) return;
  QStringList dichos;
  for (const Aviso& a : avisos) dichos << a.texto;
  const QString anotada =
      textos(links->empty() ? kTxDudaAnotada : kTxDudaMemorizada, {nombreDe(d)});
  if (dichos.isEmpty()) return decirBien(anotada);
  decirDuda(anotada, dichos.join(u'\n'));
}

QString DudasCero::nombreDe(const DudaAbierta& duda) const {
  const QString grupo = u"%1  %2"_s.arg(Ceros(duda.grupo, 4), duda.nombre);
  return duda.addr == 0 ? grupo : contexto().textos(kTxDudaEnMaquina, {grupo, duda.addr});
}

QString DudasCero::dinero(qint64 importe) const {
  const Ajustes& a = contexto().ajustes;
  return VerImporte(a, importe, a.MonedaNativa ? 1 : 0);
}

}  // namespace tarvo::totals
