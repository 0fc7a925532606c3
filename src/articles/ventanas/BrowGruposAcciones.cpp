// The operations on sections and departments, and how deleted ones are restored.
#include <QInputDialog>

#include "articles/ventanas/BrowGrupos.h"
#include "articles/ventanas/ComunArticulos.h"
#include "articles/ventanas/TextosArticulosVentanas.h"
#include "core/dinero/Dinero.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/marco/MyMsgBox.h"
#include "core/ventanas/marco/Retenida.h"
#include "core/ventanas/marco/TiraTrabajo.h"

namespace tarvo::articles {

using namespace Qt::StringLiterals;
using ventanas::MyMsgBox;

void BrowGrupos::nuevaSeccion() {
  const auto numero = secciones_.nueva();
  if (!haIdoBien(numero)) return;
  nombrarNuevo({*numero, 0});
}

void BrowGrupos::nuevoDepartamento() {
  const auto en = actual();
  if (!en) return;
  const auto numero = secciones_.nuevoDepartamento(en->seccion);
  if (!haIdoBien(numero)) return;
  nombrarNuevo({en->seccion, *numero});
}

void BrowGrupos::copiar() {
  const auto en = actual();
  if (!en || copia_) return;
  if (en->grupo > 0) return copiarGrupo(*en);
  copia_ = std::make_shared<groups::CopiaConGrupos>(catalogo_, grupos_, en->seccion, deGrupos_);
  actualCambiado();
  const auto paso = [copia = copia_](Trabajo::Avance& a) { return copia->paso(a.hechos, a.total); };
  trabajo().empezar(t(kTxCopiando), paso, [this](const Resultado<Trabajo::Fin>& fin) {
    const auto copia = std::exchange(copia_, nullptr);
    const int numero = copia->numero();
    const bool entera = fin && *fin == Trabajo::Fin::Acabado;
    const bool limpia = entera || haIdoBien(copia->deshacer());
    RefrescoArbol();
    if (entera) {
      irA({numero, 0});
      deshacer_->apuntar(t(kTxSeccionCopia).arg(decirNodo({numero, 0})),
                         [this, copia, cambios = contexto().base.cambios()] {
                           return quitarCopia(*copia, cambios);
                         });
      actualCambiado();
    }
    if (!fin) return decirFallo(fin.error());
    if (!limpia) return;
    if (!entera) return decirDuda(t(kTxCopiaParada));
    const int grupos = copia->gruposCopiados();
    if (grupos == 0) return decirBien(t(kTxSeccionCopiada));
    decirDuda(t(kTxSeccionCopiada) + u". "_s + t(kTxConSusGrupos, grupos));
  });
}

// A copy in which something may have been changed since is removed only after a question; one that
// has got groups since isn't.
Resultado<BrowGrupos::Vuelto> BrowGrupos::quitarCopia(groups::CopiaConGrupos& copia,
                                                      qint64 cambios) {
  if (!contexto().ventanas.descargar<PuertaBrowPLUs>()) return Vuelto{.queda = true};
  const QString cual = decirNodo({copia.numero(), 0});
  TARVO_TOMAR(const auto va, secciones_.loQueSeVa(copia.numero()));
  if (va.cuentas.grupos > copia.gruposCopiados())
    return fallo(Fallo::Restriccion, t(kTxCopiaConGrupos).arg(cual));
  if (contexto().base.cambios() != cambios &&
      !MyMsgBox::Decide(this, contexto().textos, t(kTxQuitaCopia, va.cuentas.plus).arg(cual),
                        ventanas::kAceptoCancelo | ventanas::kExclamacion))
    return Vuelto{.queda = true};
  TARVO_INTENTAR(copia.deshacer());
  RefrescoArbol();
  irA({copia.origen(), 0});
  return Vuelto{t(kTxNuevoQuitado).arg(cual)};
}

void BrowGrupos::borrar() {
  const auto en = actual();
  if (!en) return;
  if (en->grupo > 0) return borrarGrupo(*en);
  en->departamento == 0 ? borrarSeccion(en->seccion) : borrarDepartamento(*en);
}

// The groups of which sales are lost, a line each: none if there are none.
QStringList BrowGrupos::decirVentas(std::span<const Secciones::VentasDeGrupo> ventas) const {
  constexpr size_t kNombrados = 12;
  if (ventas.empty()) return {};
  const Ajustes& a = contexto().ajustes;
  const QString logo = a.MonedaLogo[static_cast<size_t>(a.MonedaPreferente != 0)].trimmed();
  QStringList lineas{t(kTxBorraVentas)};
  for (const auto& v : ventas.first(std::min(ventas.size(), kNombrados)))
    lineas << contexto().textos(
        kTxVentasDeGrupo,
        {Ceros(v.grupo, 4), v.nombre, VerImporte(a, v.importe, a.MonedaPreferente), logo});
  if (ventas.size() > kNombrados) lineas << t(kTxYMas).arg(ventas.size() - kNombrados);
  return lineas;
}

// To delete a section that isn't empty, the user must type its number.
bool BrowGrupos::confirmarSeccion(int seccion, const QString& nombre,
                                  const Secciones::LoQueSeVa& va) {
  const Textos& textos = contexto().textos;
  QStringList lineas{t(kTxBorraSeccion), textos(kTxBorraCual, {Ceros(seccion, 3), nombre}),
                     t(kTxBorraPLUs) + QString::number(va.cuentas.plus),
                     t(kTxBorraDepts) + QString::number(va.cuentas.depts),
                     t(kTxBorraGrupos) + QString::number(va.cuentas.grupos)};
  if (va.vacia())
    return MyMsgBox::Decide(
        this, textos, lineas.join(u'\n'),
        ventanas::kAceptoCancelo | ventanas::kExclamacion | ventanas::kPrudente);
  lineas << textos(kTxBorraDemas, {va.maquinas, va.ofertas, va.existencias, va.historia})
         << (va.tareas > 0 ? QStringList{Plural(t(kTxBorraTareas), va.tareas)} : QStringList())
         << decirVentas(va.ventas) << t(kTxEscribaNumero);
  const ventanas::Retenida mientras(this);
  QInputDialog caja(this);
  caja.setWindowTitle(windowTitle());
  caja.setLabelText(lineas.join(u'\n'));
  caja.setOkButtonText(t(ventanas::kTxAceptar));
  caja.setCancelButtonText(t(ventanas::kTxCancelar));
  if (caja.exec() != QDialog::Accepted) return false;
  const QString escrito = caja.textValue();
  bool numero = false;
  if (escrito.trimmed().toInt(&numero) == seccion && numero) return true;
  decirDuda(textos(kTxNumeroNoCoincide, {escrito.trimmed(), Ceros(seccion, 3)}));
  return false;
}

void BrowGrupos::borrarSeccion(int seccion) {
  const auto va = secciones_.loQueSeVa(seccion);
  if (!haIdoBien(va)) return;
  const QString nombre = buscar({seccion, 0}) ? buscar({seccion, 0})->text(0) : QString();
  if (!confirmarSeccion(seccion, nombre, *va)) return;
  if (!contexto().ventanas.descargar<PuertaBrowPLUs>()) return;
  auto ida = std::make_shared<BorradoSeccion>(catalogo_, seccion);
  const auto copia = ida->borrar(contexto().ajustes.HomeDir, contexto().reloj.ahora());
  if (copia)
    deshacer_->apuntar(t(kTxNodoBorrado).arg(decirNodo({seccion, 0}), nombre),
                       [this, ida] { return reponerSeccion(*ida); });
  RefrescoArbol();
  if (haIdoBien(copia)) decirBien(t(kTxSeccionBorradaConCopia).arg(NombreFichero(*copia)));
}

Resultado<BrowGrupos::Vuelto> BrowGrupos::reponerSeccion(BorradoSeccion& ida) {
  TARVO_INTENTAR(ida.reponer());
  RefrescoArbol();
  irA({ida.seccion(), 0});
  TARVO_TOMAR(const auto va, secciones_.loQueSeVa(ida.seccion()));
  return Vuelto{t(kTxSeccionRepuesta, va.cuentas.plus).arg(Ceros(ida.seccion(), 3))};
}

void BrowGrupos::borrarDepartamento(Nodo nodo) {
  const auto cuantos = secciones_.articulosDe(nodo.seccion, nodo.departamento);
  if (!haIdoBien(cuantos)) return;
  const QString nombre = buscar(nodo) ? buscar(nodo)->text(0) : QString();
  const QString pregunta =
      t(kTxBorraDepartamento) + u'\n' +
      contexto().textos(kTxBorraCualDepto, {Ceros(nodo.departamento, 2), nombre}) + u'\n' +
      t(kTxBorraPLUs) + QString::number(*cuantos);
  if (!MyMsgBox::Decide(this, contexto().textos, pregunta,
                        ventanas::kAceptoCancelo | ventanas::kExclamacion | ventanas::kPrudente))
    return;
  const Nodo vecino = vecinoDe(nodo);
  const auto ido =
      std::make_shared<BorradoDepartamento>(catalogo_, nodo.seccion, nodo.departamento);
  const auto borrado = ido->borrar(this->nombre());
  RefrescoArbol();
  if (!haIdoBien(borrado)) return;
  deshacer_->apuntar(t(kTxNodoBorrado).arg(decirNodo(nodo), ido->nombre()),
                     [=, this] { return reponerDepartamento(*ido, nodo); });
  irA(vecino);
  decirBien(t(kTxDepartamentoBorrado).arg(ido->nombre()));
}

// The next node of its section, or else the previous one, or else the section.
BrowGrupos::Nodo BrowGrupos::vecinoDe(Nodo nodo) const {
  QTreeWidgetItem* item = buscar(nodo);
  if (!item || !item->parent()) return {nodo.seccion, 0};
  const QTreeWidgetItem* seccion = item->parent();
  const int sitio = seccion->indexOfChild(item);
  const QTreeWidgetItem* otro = seccion->child(sitio + 1);
  if (!otro) otro = seccion->child(sitio - 1);
  return otro ? nodoDe(*otro) : Nodo{nodo.seccion, 0};
}

Resultado<BrowGrupos::Vuelto> BrowGrupos::reponerDepartamento(BorradoDepartamento& ido, Nodo nodo) {
  TARVO_TOMAR(const auto aviso, ido.aviso());
  if (aviso &&
      !MyMsgBox::Decide(this, contexto().textos, *aviso,
                        ventanas::kAceptoCancelo | ventanas::kExclamacion | ventanas::kPrudente))
    return Vuelto{.queda = true};
  const auto hecho = ido.reponer(nombre());
  RefrescoArbol();
  irA(nodo);
  if (!hecho) return std::unexpected(hecho.error());
  if (hecho->fuera.empty()) return Vuelto{t(kTxRepuestos, hecho->repuestos)};
  return Vuelto{t(kTxNoRepuestos, static_cast<int>(hecho->fuera.size())), true};
}

void BrowGrupos::verArticulos() {
  const auto en = actual();
  if (en && !copia_) abrir(PuertaBrowPLUs{en->seccion, en->departamento});
}

void BrowGrupos::abrirNodo() {
  deGrupos_ ? editarGrupo() : verArticulos();
}

}  // namespace tarvo::articles
