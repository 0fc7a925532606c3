// The gestures on the places of the editor of a group, by mouse and by keys.
#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>

#include "core/ventanas/aspecto/Tema.h"
#include "core/ventanas/marco/Alcance.h"
#include "devices/Modelos.h"
#include "groups/ventanas/EditorGrupo.h"
#include "groups/ventanas/TextosGruposVentanas.h"

namespace tarvo::groups {

using namespace Qt::StringLiterals;
using namespace ventanas;

// A machine dropped on another place is copied; with Shift it goes there.
void EditorGrupo::soltar(const Arrastre& que, int en, bool mueve) {
  if (en < 0 || en >= kSitios) return;
  switch (que.de) {
    case Arrastre::Modelo:
      return poner(en,
                   maquinaNueva(r.grupo, cajas_ ? std::nullopt : std::optional(que.cual),
                                contexto().ajustes.idioma),
                   kTxQuePuesta);
    case Arrastre::Portapapeles:
      return pegar(en);
    case Arrastre::Sitio:
      break;
  }
  if (que.cual == en) return;
  if (mueve) return empujar(que.cual, en);
  const auto* origen = enSitio(r.grupo, que.cual);
  if (!origen) return;
  auto copia = leerMaquina(textoDe(*origen), cajas_, contexto().ajustes.idioma);
  if (copia) poner(en, std::move(*copia), kTxQuePuesta);
}

void EditorGrupo::poner(int donde, devices::Miembro maquina, int que) {
  quitarPista();
  anotarLoTecleado();
  const auto hecho = groups::colocar(r.grupo, donde, std::move(maquina), contexto().textos);
  if (!hecho) return decirDuda(hecho.error().texto);
  acierto();
  faltaSitios_->hide();
  sitios_->setCurrentRow(donde);
  anotar(t(que).arg(donde + 1));
  if (dir_) dir_->mostrar();
  pintar();
}

// The model is chosen in a menu; there is only one kind of register.
void EditorGrupo::insertar() {
  const int donde = sitio();
  if (donde < 0) return;
  if (cajas_) return soltar({Arrastre::Modelo, devices::kSinModelo}, donde, false);
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  for (int m = devices::kRowan; m <= devices::kBirch; ++m)
    connect(menu->addAction(icono(u"maquina%1"_s.arg(m)), devices::NombreModelo(m)),
            &QAction::triggered, this,
            [this, m, donde] { soltar({Arrastre::Modelo, m}, donde, false); });
  ponerLetras(*menu);
  desplegar(*menu, sitios_->viewport()->mapToGlobal(
                       sitios_->visualItemRect(sitios_->item(donde)).center()));
}

void EditorGrupo::copiar() {
  const auto* m = actual();
  if (!m) return;
  QGuiApplication::clipboard()->setText(textoDe(*m));
  decirBien(t(kTxCopiada));
}

void EditorGrupo::cortar() {
  copiar();
  borrar(sitio());
}

void EditorGrupo::pegar(int en) {
  if (en < 0) return;
  auto maquina =
      leerMaquina(QGuiApplication::clipboard()->text(), cajas_, contexto().ajustes.idioma);
  if (!maquina) return decirPista(t(cajas_ ? kTxNoEsCaja : kTxNoEsBalanza));
  poner(en, std::move(*maquina), kTxQuePuesta);
}

void EditorGrupo::borrar(int de) {
  if (!enSitio(r.grupo, de)) return decirPista(t(kTxSitioSinMaquina));
  anotarLoTecleado();
  groups::vaciar(r.grupo, de);
  anotar(t(kTxQueQuitada).arg(de + 1));
  if (dir_) dir_->mostrar();
  pintar();
}

void EditorGrupo::empujar(int de, int a) {
  if (!enSitio(r.grupo, de) || de == a) return;
  anotarLoTecleado();
  permutar(r.grupo, de, a);
  sitios_->setCurrentRow(a);
  anotar(t(kTxQueMovida).arg(de + 1));
  if (dir_) dir_->mostrar();
  pintar();
}

void EditorGrupo::menuDeMaquina(const QPoint& donde) {
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  menu->setObjectName(u"MnBalanza"_s);
  menu->addActions(sitios_->actions());
  desplegar(*menu, donde);
}

}  // namespace tarvo::groups
