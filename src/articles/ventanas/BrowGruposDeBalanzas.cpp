// The tree of groups: the groups of each section, and the operations on them.
#include "articles/ventanas/BrowGrupos.h"
#include "articles/ventanas/ComunArticulos.h"
#include "articles/ventanas/TextosArticulosVentanas.h"
#include "comm/ventanas/Puertas.h"
#include "core/dinero/Dinero.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Tema.h"
#include "core/ventanas/marco/MyMsgBox.h"
#include "groups/ventanas/Puertas.h"

namespace tarvo::articles {

using namespace Qt::StringLiterals;
using ventanas::MyMsgBox;

namespace {

constexpr int kMaquinas = 2;  // the column

QString dibujoDe(std::optional<TipoGrupo> tipo) {
  switch (tipo.value_or(TipoGrupo::Balanzas)) {
    case TipoGrupo::Balanzas:
      return u"balanza"_s;
    case TipoGrupo::Ebony:
      return u"maquina7"_s;
    case TipoGrupo::Registradoras:
      return u"caja"_s;
    case TipoGrupo::Birch:
      return u"maquina8"_s;
  }
  std::unreachable();
}

}  // namespace

void BrowGrupos::montarGrupos() {
  cuerpo()->setWindowTitle(t(kTxEdicionDeGrupos));
  for (QAction* a : {ui_.VerArticulos, ui_.Iva, ui_.VerPrecios, ui_.VerXtrac})
    ui_.barra->removeAction(a);
  for (QAction* a : ui_.barra->actions())
    if (a->isSeparator()) ui_.barra->removeAction(a);
  ui_.barra2->removeAction(ui_.NuevoDep);
  unir(ui_.MnEditarGpo, u"modificar"_s, Qt::Key_F4, [this] { editarGrupo(); });
  unir(ui_.NuevoGrupo, u"balanza"_s, Qt::Key_Insert, [this] { nuevoGrupo(false); });
  unir(ui_.NuevasCajas, u"caja"_s, {}, [this] { nuevoGrupo(true); });
  ui_.barra->insertActions(ui_.Deshacer, {ui_.MnEditarGpo, ui_.NuevoGrupo, ui_.NuevasCajas});
  ui_.Arbol->addActions({ui_.MnEditarGpo, ui_.NuevoGrupo, ui_.NuevasCajas, ui_.NuevaSecc});
  ui_.Arbol->setHeaderLabels({t(ventanas::kTxNombre), t(kTxNumero), t(kTxMaquinas), t(kTxAcceso)});
}

Resultado<> BrowGrupos::llenarGrupos() {
  TARVO_TOMAR(const auto secciones, secciones_.arbol());
  TARVO_TOMAR(const auto grupos, grupos_.todos());
  ui_.Arbol->clear();
  std::map<int, QTreeWidgetItem*> ramas;
  for (const Secciones::Rama& s : secciones)
    ramas[s.numero] = anadir(nullptr, {.seccion = s.numero}, s.nombre, {});
  for (const groups::Resumen& g : grupos) {
    // A group whose section is gone would be out of reach.
    QTreeWidgetItem*& rama = ramas[g.seccion];
    if (!rama) rama = anadir(nullptr, {.seccion = g.seccion}, t(kTxSeccionQueFalta), {});
    auto* item = anadir(rama, {.seccion = g.seccion, .grupo = g.codigo}, g.nombre,
                        g.acceso ? t(kTxAccesos + numeroDe(*g.acceso)).remove(u'&') : QString());
    item->setText(kMaquinas, QString::number(g.maquinas));
    item->setIcon(0, ventanas::icono(dibujoDe(g.tipo)));
  }
  ui_.cuenta->setText(t(kTxCuentaGrupos, static_cast<int>(grupos.size())));
  return {};
}

void BrowGrupos::permitirGrupos(const std::optional<Nodo>& en) {
  const bool grupo = en && en->grupo > 0;
  ui_.MnEditarGpo->setEnabled(grupo && !copia_);
  ui_.MnEditarGpo->setProperty(ventanas::kPorQueNo, copia_ ? QString() : t(kTxElijaGrupo));
  ui_.NuevoGrupo->setEnabled(en && !copia_);
  ui_.NuevasCajas->setEnabled(en && !copia_);
  ui_.Copia->setEnabled(en && !copia_);
}

void BrowGrupos::editarGrupo() {
  const auto en = actual();
  if (!en || en->grupo == 0 || copia_) return;
  const auto grupo = grupos_.cargar(en->grupo);
  if (!haIdoBien(grupo)) return;
  const groups::PuertaGrupo puerta{.codigo = en->grupo,
                                   .alGuardar = [quien = QPointer(this)](int codigo, bool nuevo) {
                                     if (quien) quien->grupoGuardado(codigo, nuevo);
                                   }};
  if (grupo->tipo() == TipoGrupo::Registradoras)
    abrir(groups::PuertaEdiCajas{puerta});
  else
    abrir(groups::PuertaEdiGrupo{puerta});
}

void BrowGrupos::nuevoGrupo(bool cajas) {
  const auto en = actual();
  if (!en || copia_) return;
  const groups::PuertaGrupo puerta{.seccion = en->seccion,
                                   .alGuardar = [quien = QPointer(this)](int codigo, bool nuevo) {
                                     if (quien) quien->grupoGuardado(codigo, nuevo);
                                   }};
  if (cajas)
    abrir(groups::PuertaEdiCajas{puerta});
  else
    abrir(groups::PuertaEdiGrupo{puerta});
}

int BrowGrupos::seccionDe(int grupo) const {
  for (QTreeWidgetItemIterator i(ui_.Arbol); *i; ++i)
    if (const Nodo n = nodoDe(**i); n.grupo == grupo) return n.seccion;
  return 0;
}

void BrowGrupos::grupoGuardado(int codigo, bool nuevo) {
  RefrescoArbol();
  irA({.seccion = seccionDe(codigo), .grupo = codigo});
  if (!nuevo) return;
  deshacer_->apuntar(t(kTxGrupoNuevo).arg(codigo),
                     [this, codigo] { return quitarGrupoNuevo(codigo); });
  actualCambiado();
}

// A new group is taken back as long as nothing else is kept by its code.
Resultado<BrowGrupos::Vuelto> BrowGrupos::quitarGrupoNuevo(int codigo) {
  TARVO_TOMAR(const bool usado, grupos_.conRastro(codigo));
  if (usado) return fallo(Fallo::Restriccion, t(kTxGrupoYaUsado).arg(codigo));
  if (!contexto().ventanas.descargar(groups::PuertaEdiGrupo{{.codigo = codigo}}) ||
      !contexto().ventanas.descargar(groups::PuertaEdiCajas{{.codigo = codigo}}))
    return Vuelto{.queda = true};
  const int seccion = seccionDe(codigo);
  TARVO_INTENTAR(grupos_.borrar(codigo));
  RefrescoArbol();
  irA({.seccion = seccion});
  return Vuelto{t(kTxGrupoQuitado).arg(codigo)};
}

void BrowGrupos::copiarGrupo(Nodo nodo) {
  const auto codigo = grupos_.copiar(nodo.grupo, nodo.seccion);
  if (!haIdoBien(codigo)) return;
  grupoGuardado(*codigo, true);
  const QString copiado = contexto().textos(kTxGrupoCopiado, {nodo.grupo, *codigo});
  const auto mismas = motor_.MismasMaquinas(*codigo);
  if (!haIdoBien(mismas)) return;
  mismas->isEmpty() ? decirBien(copiado) : decirDuda(copiado + u' ' + *mismas);
}

void BrowGrupos::borrarGrupo(Nodo nodo) {
  const auto va = grupos_.loQueSeVa(nodo.grupo);
  if (!haIdoBien(va)) return;
  const Textos& textos = contexto().textos;
  const QString nombre = nombreAntes_;
  QStringList lineas{t(kTxBorraGrupo), textos(kTxBorraCualGrupo, {nodo.grupo, nombre}),
                     textos(kTxBorraDeGrupo, {va->maquinas, va->ofertas})};
  if (va->tareas > 0) lineas << t(kTxBorraTareas, va->tareas);
  if (va->ventas) {
    const Ajustes& a = contexto().ajustes;
    lineas << textos(kTxBorraSusVentas,
                     {VerImporte(a, *va->ventas, a.MonedaPreferente),
                      a.MonedaLogo[static_cast<size_t>(a.MonedaPreferente != 0)].trimmed()});
  }
  if (!MyMsgBox::Decide(this, textos, lineas.join(u'\n'),
                        ventanas::kAceptoCancelo | ventanas::kExclamacion | ventanas::kPrudente))
    return;
  // An editor would store it again.
  if (!contexto().ventanas.descargar(groups::PuertaEdiGrupo{{.codigo = nodo.grupo}}) ||
      !contexto().ventanas.descargar(groups::PuertaEdiCajas{{.codigo = nodo.grupo}}))
    return;
  const Nodo vecino = vecinoDe(nodo);
  const auto ido = std::make_shared<groups::BorradoGrupo>(grupos_, nodo.grupo);
  const auto borrado = ido->borrar();
  RefrescoArbol();
  if (!haIdoBien(borrado)) return;
  deshacer_->apuntar(t(kTxNodoBorrado).arg(decirNodo(nodo), nombre),
                     [this, ido, nodo] { return reponerGrupo(*ido, nodo); });
  irA(vecino);
  actualCambiado();
  decirBien(t(kTxGrupoBorrado).arg(nombre));
}

Resultado<BrowGrupos::Vuelto> BrowGrupos::reponerGrupo(groups::BorradoGrupo& ido, Nodo nodo) {
  TARVO_INTENTAR(ido.reponer());
  RefrescoArbol();
  irA(nodo);
  return Vuelto{t(kTxGrupoRepuesto).arg(nodo.grupo)};
}

}  // namespace tarvo::articles
