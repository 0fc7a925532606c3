#include "comm/ventanas/DialogoGrupos.h"

#include <QCheckBox>
#include <QListWidget>

#include "comm/ventanas/TextosCommVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"

namespace tarvo::comm {

using namespace Qt::StringLiterals;
using namespace ventanas;

namespace {

constexpr int kCodigoGrupo = Qt::UserRole;
constexpr int kCifrasCodigo = 7;
constexpr qint64 kUltimoCodigo = 9999999;

}  // namespace

DialogoGrupos::DialogoGrupos(Contexto& c, const QString& nombre, const Servicios& s)
    : FichaDe(c, nombre), s_(s) {
  ponerFrase(0, false);
}

Formulario DialogoGrupos::conGrupos() {
  auto f = formulario(kTxElegirGrupos);
  lista_ = f.ancho(new QListWidget, u"lstGpo"_s, kTxGruposConLetra, 1);
  lista_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  lista_->setAlternatingRowColors(true);
  connect(lista_, &QListWidget::itemDoubleClicked, this, [this] { confirmar(); });
  auto* todas = qobject_cast<QCheckBox*>(&f.casilla(kTxTodas, u"Todas"_s, r.todas).control());
  connect(todas, &QCheckBox::toggled, this, [this](bool si) {
    if (si) lista_->selectAll();
    lista_->setEnabled(!si);
  });
  return f;
}

Modo DialogoGrupos::articulo(qint64& donde, qint64 sinNumero) const {
  Modo m = numero(donde, 0, kUltimoCodigo);
  m.ver = [&donde] { return Ceros(donde, kCifrasCodigo); };
  m.poner = [leer = std::move(m.poner), sinNumero](const QString& s) {
    const QString texto = s.trimmed();
    const bool hay = !texto.isEmpty() && texto.front().isDigit();
    return leer(hay ? texto : QString::number(sinNumero));
  };
  return m;
}

void DialogoGrupos::conRango(Formulario f, const QString& desde, const QString& hasta) {
  desde_ = &f.fila(kTxDesdeCodigo, desde, articulo(r.desde, 0));
  Campo* otro = &f.fila(kTxHastaCodigo, hasta, articulo(r.hasta, kUltimoCodigo));
  for (Campo* c : {desde_, otro})
    connect(c, &Campo::dejado, this, [c] {
      if (c->leer()) c->mostrar();
    });
}

Resultado<> DialogoGrupos::pedir(TipoTarea cual) {
  const motor::ClaseTarea* clase = s_.repertorio.de(cual);
  if (!clase) return fallo(Fallo::NoExiste, t(kTxSinGrupos));
  clase_ = cual;
  setWindowTitle(t(clase->titulo));
  TARVO_TOMAR(const auto grupos, s_.grupos.deTipos(clase->tipos));
  if (grupos.empty()) return fallo(Fallo::NoExiste, t(kTxSinGrupos));
  lista_->clear();
  for (const envios::GrupoElegible& g : grupos) {
    auto* fila = new QListWidgetItem(Ceros(g.codigo, 4) + u"  "_s + g.nombre, lista_);
    fila->setData(kCodigoGrupo, g.codigo);
    fila->setSizeHint(QSize(0, escalar(kAltoFila)));
  }
  TARVO_INTENTAR(editar({}));
  lista_->setCurrentRow(0);
  lista_->setFocus();
  return {};
}

// In the order of the list, which is sorted by code.
std::vector<int> DialogoGrupos::elegidos() const {
  std::vector<int> grupos;
  for (int i = 0; i < lista_->count(); ++i)
    if (r.todas || lista_->item(i)->isSelected())
      grupos.push_back(lista_->item(i)->data(kCodigoGrupo).toInt());
  return grupos;
}

std::vector<DialogoGrupos::FaltaCampo> DialogoGrupos::comprobar() {
  if (elegidos().empty()) {
    lista_->setFocus();
    return {{nullptr, t(kTxEligeGrupo)}};
  }
  if (r.desde > r.hasta) return {{desde_, t(kTxRangoMalo)}};
  return {};
}

bool DialogoGrupos::conforme() {
  return consientePerder(*this, s_.grupos, s_.sesion, clase_, elegidos());
}

Resultado<> DialogoGrupos::aplicar() {
  auto* quien = qobject_cast<Ventana*>(dueno());
  encolarGrupos(quien ? *quien : *this, s_.motor, elegidos(), peticion());
  return {};
}

}  // namespace tarvo::comm
