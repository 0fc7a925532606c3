// The gestures on the places of the editor of a group, by mouse and by keys.
#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>

#include "core/ventanas/aspecto/Tema.h"
#include "core/ventanas/marco/Alcance.h"
#include "core/ventanas/marco/MyMsgBox.h"
#include "devices/Modelos.h"
#include "groups/ventanas/EditorGrupo.h"
#include "groups/ventanas/TextosGruposVentanas.h"

namespace tarvo::groups {

using namespace Qt::StringLiterals;
using namespace ventanas;

// A machine dropped on another place is copied; with Shift it goes there, and the one that is there
// comes back in exchange.
void EditorGrupo::soltar(const Arrastre& que, int en, bool mueve) {
  if (en < 0 || en >= kSitios) return;
  switch (que.de) {
    case Arrastre::Modelo:
      return ponerModelo(en, que.cual);
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
  if (copia) poner(en, std::move(*copia));
}

// Whoever puts a machine on another one loses that one's settings.
bool EditorGrupo::sustituye(int donde) {
  return !enSitio(r.grupo, donde) ||
         MyMsgBox::Decide(this, contexto().textos, t(kTxSitioOcupado).arg(decirSitio(donde)),
                          kAceptoCancelo | kExclamacion | kPrudente);
}

void EditorGrupo::ponerModelo(int donde, int modelo) {
  poner(donde, maquinaNueva(r.grupo, cajas_ ? std::nullopt : std::optional(modelo),
                            contexto().ajustes.idioma));
}

void EditorGrupo::poner(int donde, devices::Miembro maquina) {
  empezarOrden();
  groups::darDireccion(r.grupo, donde, maquina);
  devices::Grupo con = r.grupo;
  const auto hecho = groups::colocar(con, donde, std::move(maquina), contexto().textos);
  if (!hecho) return decirPista(hecho.error().texto);
  if (con == r.grupo || !sustituye(donde)) return;
  r.grupo = std::move(con);
  acierto();
  faltaSitios_->hide();
  sitios_->setCurrentRow(donde);
  anotar(t(kTxQuePuesta).arg(donde + 1));
  mostrarDireccion();
  pintar();
}

// A command adds a machine, and never takes one away.
std::optional<int> EditorGrupo::sitioParaOtra() {
  const auto libre = sitioLibre(r.grupo, sitio());
  if (!libre) decirPista(t(kTxSinSitioLibre));
  return libre;
}

// The model is chosen in a menu; there is only one kind of register.
void EditorGrupo::insertar() {
  const auto libre = sitioParaOtra();
  if (!libre) return;
  const int donde = *libre;
  if (cajas_) return ponerModelo(donde, devices::kSinModelo);
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  for (int m = devices::kRowan; m <= devices::kBirch; ++m)
    connect(menu->addAction(icono(u"maquina%1"_s.arg(m)), devices::NombreModelo(m)),
            &QAction::triggered, this, [this, m, donde] { ponerModelo(donde, m); });
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
  const auto* m = actual();
  if (!m) return;
  QGuiApplication::clipboard()->setText(textoDe(*m));
  borrar(sitio());
  decirBien(t(kTxCopiada));
}

void EditorGrupo::pegar(int en) {
  if (en < 0) return;
  auto maquina =
      leerMaquina(QGuiApplication::clipboard()->text(), cajas_, contexto().ajustes.idioma);
  if (!maquina) return decirPista(t(cajas_ ? kTxNoEsCaja : kTxNoEsBalanza));
  poner(en, std::move(*maquina));
}

void EditorGrupo::borrar(int de) {
  if (!enSitio(r.grupo, de)) return decirPista(t(kTxSitioSinMaquina));
  empezarOrden();
  groups::vaciar(r.grupo, de);
  anotar(t(kTxQueQuitada).arg(de + 1));
  mostrarDireccion();
  pintar();
}

void EditorGrupo::empujar(int de, int a) {
  if (!enSitio(r.grupo, de) || de == a) return;
  empezarOrden();
  permutar(r.grupo, de, a);
  sitios_->setCurrentRow(a);
  anotar(t(kTxQueMovida).arg(de + 1));
  mostrarDireccion();
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
