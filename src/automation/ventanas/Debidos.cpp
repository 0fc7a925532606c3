#include "automation/ventanas/Debidos.h"

#include "automation/ventanas/TextosAutomationVentanas.h"
#include "core/ajustes/Ajustes.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/marco/MyMsgBox.h"
#include "totals/periodos/Calendario.h"

namespace tarvo::automation {

using namespace Qt::StringLiterals;
using namespace ventanas;

Debidos::Debidos(Contexto& c, const QString& nombre, Pendientes& libro)
    : Ventana(c, nombre), libro_(libro) {
  ui_.setupUi(cuerpo());
  enlazar();
  ui_.Lista->preparar(
      c, nombre,
      {{.titulo = ventanas::kTxPeriodo, .campo = u"periodo"_s, .ancho = 460, .ordenable = false},
       {.titulo = kTxColQueFalta, .campo = u"que"_s, .ancho = 480, .ordenable = false}});
  ui_.Lista->vivas();
  ui_.Lista->ponerUnaSola(true);
  ui_.Lista->ponerBusca(false);
  ui_.Lista->ponerVacia(t(kTxNadaDebido));
  ui_.Lista->vista()->setAccessibleName(t(kTxDebidos));
  setWindowIcon(icono(u"esperando"_s));
  connect(ui_.Olvidar, &QPushButton::clicked, this, [this] { olvidar(); });
  connect(ui_.Salida, &QPushButton::clicked, this, [this] { close(); });
}

Resultado<> Debidos::entrar(const PuertaDebidos&) {
  return refrescar();
}

Resultado<> Debidos::refrescar() {
  TARVO_TOMAR(auto todos, libro_.todos());
  todos_ = std::move(todos);
  std::vector<FilaViva> filas;
  filas.reserve(todos_.size());
  for (size_t i = 0; i < todos_.size(); ++i)
    filas.push_back({static_cast<qint64>(i), {periodoDe(todos_[i]), queFalta(todos_[i])}});
  ui_.Lista->vivas().poner(std::move(filas));
  ui_.Olvidar->setEnabled(!todos_.empty());
  return {};
}

QString Debidos::periodoDe(const Pendientes::Debido& d) const {
  const QString dias = totals::TextoPeriodo({d.clase, d.desde, d.hasta}).simplified();
  return d.descripcion.isEmpty() ? dias : d.descripcion + u", "_s + dias;
}

QString Debidos::queFalta(const Pendientes::Debido& d) const {
  const QString falta = loDebido(d);
  return d.motivo.isEmpty() ? falta : contexto().textos(kTxFaltaPorque, {falta, d.motivo});
}

QString Debidos::loDebido(const Pendientes::Debido& d) const {
  const Textos& textos = contexto().textos;
  switch (d.que) {
    case Pendientes::Debido::Que::Exportar:
      if (d.fichero.isEmpty()) return textos(kTxFaltaExportarSinFichero, {d.proceso});
      return textos(d.luegoSeBorra ? kTxFaltaExportarYBorrar : kTxFaltaExportar,
                    {NombreFichero(d.fichero), d.proceso});
    case Pendientes::Debido::Que::Acumular:
      return textos(kTxFaltaAcumular, {totals::NombreTipoPeriodo(d.mayor)});
    case Pendientes::Debido::Que::Descontar:
      return textos(kTxFaltaDescontar);
    case Pendientes::Debido::Que::Sumar:
      return textos(kTxFaltaSumar);
    case Pendientes::Debido::Que::Borrar:
      return textos(kTxFaltaBorrar);
  }
  return {};
}

void Debidos::olvidar() {
  const int fila = ui_.Lista->filaActual();
  if (fila < 0) return decirDuda(t(kTxElijaDebido));
  const Pendientes::Debido d = todos_[static_cast<size_t>(ui_.Lista->clave(fila))];
  const Textos& textos = contexto().textos;
  if (!MyMsgBox::Decide(
          this, textos,
          textos(kTxOlvidarDe, {periodoDe(d)}) + u'\n' + textos(kTxNoSeIntentara, {queFalta(d)}),
          kAceptoCancelo | kExclamacion | kPrudente))
    return;
  const auto hecho = libro_.olvidar(d);
  if (!haIdoBien(hecho) || !haIdoBien(refrescar())) return;
  decirBien(textos(kTxOlvidado, {periodoDe(d)}));
}

}  // namespace tarvo::automation
