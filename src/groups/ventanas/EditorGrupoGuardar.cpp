// Storing a group, and sending what has changed.
#include <QActionGroup>
#include <QMenu>

#include "articles/AjustesArticulos.h"
#include "articles/ventanas/Puertas.h"
#include "comm/ventanas/Puertas.h"
#include "core/ventanas/marco/MyMsgBox.h"
#include "core/ventanas/marco/Ventanas.h"
#include "groups/ventanas/EditorGrupo.h"
#include "groups/ventanas/TextosGruposVentanas.h"

namespace tarvo::groups {

using namespace Qt::StringLiterals;
using namespace ventanas;

namespace {

constexpr size_t kDeGrupos = 0;  // index of the value for groups
constexpr int kNunca = 0, kPreguntar = 1, kSiempre = 2;
constexpr qint64 kUltimoArticulo = 9999999;

int& ajuste(Ajustes& ajustes) {
  return ajustes.de<articles::AjustesArticulos>().EnviarCambios[kDeGrupos];
}

Resultado<> ponerAjuste(Ajustes& ajustes, int valor) {
  ajuste(ajustes) = valor;
  ajustes.confirmar(u"EnviarCambios"_s);
  return ajustes.GuardarConfig();
}

}  // namespace

std::vector<Ficha::FaltaCampo> EditorGrupo::comprobar() {
  dichas_.clear();
  cajaMala_.reset();
  const auto todas = grupos_.faltas(r.grupo, r.codigo, r.nombre);
  if (!todas) return {{nullptr, todas.error().texto}};
  pintarFaltaSitios(*todas);
  std::vector<FaltaCampo> faltas;
  for (const Grupos::Falta& f : *todas) {
    dichas_ << f.texto;
    const auto suyo = std::ranges::find(vigilados_, std::optional(f.de),
                                        &decltype(vigilados_)::value_type::second);
    Campo* campo = suyo == vigilados_.end() ? nullptr : suyo->first;
    if (campo) tocados_.insert(campo);
    if (!f.sitios.empty() && !cajaMala_)
      cajaMala_ = f.sitios.contains(sitio()) ? sitio() : *f.sitios.begin();
    faltas.push_back({campo, f.sitios.empty() ? f.texto : f.regla});
  }
  return faltas;
}

// One box: what couldn't be read, with the name of its field, and then what the engine refuses.
void EditorGrupo::decir(const std::vector<FaltaCampo>& faltas) {
  QStringList lineas;
  for (const FaltaCampo& f : faltas)
    if (!dichas_.contains(f.texto) && (!f.campo || f.campo != dir_ || dir_->tocado()))
      lineas << (f.campo ? f.campo->nombre() + u": "_s : QString()) + f.texto;
  lineas << dichas_;
  MyMsgBox::Decide(this, contexto().textos, lineas.join(u'\n'), kSoloAcepto | kCritico);
  // To the register that is meant, unless what is typed for another one comes first.
  if (cajaMala_ && *cajaMala_ < kSitios && !dir_->tocado()) sitios_->setCurrentRow(*cajaMala_);
  if (faltas.front().campo)
    faltas.front().campo->enfocar();
  else
    sitios_->setFocus();
}

std::vector<TareaDebida> EditorGrupo::debidos() const {
  const bool comunica = r.grupo.Acceso && *r.grupo.Acceso != TipoAcceso::Ninguno;
  if (!comunica || !r.grupo.tipo()) return {};
  return r.marcas.envios(*r.grupo.tipo());
}

// Going back at the question stores nothing.
bool EditorGrupo::conforme() {
  const int como = ajuste(contexto().ajustes);
  enviar_ = como == kSiempre;
  if (como != kPreguntar || debidos().empty()) return true;
  const auto respuesta = preguntar(articles::PuertaQueHacemos{.que = t(kTxCambiosEnGrupo)});
  if (!respuesta) return false;
  enviar_ = respuesta->si;
  if (respuesta->noMas)
    haIdoBien(ponerAjuste(contexto().ajustes, respuesta->si ? kSiempre : kNunca));
  return true;
}

Resultado<> EditorGrupo::aplicar() {
  if (!nuevo_ && !cambiada()) return {};
  GrupoEditado guardado = r;
  if (!nuevo_) TARVO_INTENTAR(grupos_.ponerAlDia(guardado, abierto_));
  TARVO_INTENTAR(grupos_.guardar(guardado.grupo, guardado.codigo, guardado.nombre));
  r = std::move(guardado);
  return {};
}

void EditorGrupo::aplicada() {
  const bool igual = !nuevo_ && !cambiada();
  guardada();
  auto* quien = qobject_cast<Ventana*>(dueno());
  if (!igual && alGuardar_) alGuardar_(r.codigo, nuevo_);
  if (!igual && quien) {
    const QString guardado = contexto().textos(kTxGuardado, {r.codigo, r.nombre});
    const auto mismas = motor_.MismasMaquinas(r.codigo);
    const bool repetido = mismas && !mismas->isEmpty();
    repetido ? quien->decirDuda(guardado + u' ' + *mismas) : quien->decirBien(guardado);
  }
  if (enviar_) enviar(quien);
  r.marcas = {};
  guardada();
  aceptar();
}

// Through the queue, in order. That window stays open while it has something to say.
void EditorGrupo::enviar(Ventana* quien) {
  const auto envios = debidos();
  if (envios.empty()) return;
  Ventana* comunicaciones = nullptr;
  if (contexto().ventanas.conoce<comm::PuertaGestcomm>())
    comunicaciones = contexto().ventanas.abrir(comm::PuertaGestcomm(), dueno());
  QStringList fuera;
  for (const TareaDebida& e : envios)
    if (motor_.NuevaTarea(r.codigo, e.todo, 0, kUltimoArticulo, e.clase) != motor::Pedida::EnCola)
      fuera << QString::number(tarvo::numeroDe(e.clase));
  Ventana* donde = comunicaciones ? comunicaciones : quien;
  if (fuera.isEmpty()) {
    if (quien) quien->decirBien(t(kTxEnCola, static_cast<int>(envios.size())).arg(r.codigo));
    motor_.TerminaCuandoPuedas();
  } else if (donde) {
    donde->decirDuda(t(kTxSinEncolar, static_cast<int>(fuera.size())).arg(r.codigo));
  }
}

void EditorGrupo::montarMenuEnvio(QMenu& menu) {
  auto* uno = new QActionGroup(&menu);
  int valor = kNunca;
  for (const int texto : {kTxNoEnviar, kTxPreguntarEnvio, kTxEnviarSiempre}) {
    QAction* a = menu.addAction(t(texto));
    a->setCheckable(true);
    a->setData(valor);
    uno->addAction(a);
    connect(a, &QAction::triggered, this,
            [this, valor] { haIdoBien(ponerAjuste(contexto().ajustes, valor)); });
    ++valor;
  }
  connect(&menu, &QMenu::aboutToShow, this, [this, &menu] {
    for (QAction* a : menu.actions())
      a->setChecked(a->data().toInt() == ajuste(contexto().ajustes));
  });
}

}  // namespace tarvo::groups
