#include "comm/ventanas/GrpDlg.h"

#include <QLineEdit>

#include "comm/ventanas/TextosCommVentanas.h"

namespace tarvo::comm {

using namespace Qt::StringLiterals;
using namespace ventanas;

namespace {

constexpr int kBalanzaMayor = 99;

}  // namespace

GrpDlg::GrpDlg(Contexto& c, const QString& nombre, const Servicios& s)
    : DialogoGrupos(c, nombre, s) {
  auto f = conGrupos();
  deBalanza_ = f.ancho(new QWidget, u"deBalanza"_s);
  auto* pila = new QVBoxLayout(deBalanza_);
  pila->setContentsMargins(0, 0, 0, 0);
  deNumero_ = &Formulario(*this, *pila).fila(kTxBalanzaConLetra, u"NmBz"_s, balanza());
  deNumero_->ponerPista(t(kTxBalanzaVacia));
  qobject_cast<QLineEdit*>(&deNumero_->control())->setPlaceholderText(t(kTxBalanzaVacia));
  informe_ = &f.casilla(kTxInforme, u"ConPrt"_s, r.informe);
  acabar({420, 440});
}

// As wide as the form, since its placeholder explains an empty field.
Modo GrpDlg::balanza() {
  Modo m = numero(r.balanza, 1, kBalanzaMayor).con(t(kTxBalanzaMala));
  m.letras = 0;
  m.ver = [this] { return r.balanza == 0 ? QString() : QString::number(r.balanza); };
  m.poner = [this, leer = std::move(m.poner)](const QString& s) -> Resultado<> {
    if (!s.trimmed().isEmpty()) return leer(s);
    r.balanza = 0;
    return {};
  };
  return m;
}

Resultado<> GrpDlg::entrar(const PuertaGrpDlg& puerta) {
  TARVO_INTENTAR(pedir(puerta.clase));
  deBalanza_->setVisible(puerta.modo == kModoBalanza);
  informe_->control().setVisible(puerta.modo == kModoCero && contexto().ajustes.EsEspanol());
  return {};
}

// The scale is one of each group chosen: for another the task would have nothing to send.
std::vector<Ficha::FaltaCampo> GrpDlg::comprobar() {
  auto faltas = DialogoGrupos::comprobar();
  if (!faltas.empty() || r.balanza == 0) return faltas;
  for (const int grupo : elegidos()) {
    const auto tiene = servicios().grupos.tieneBalanza(grupo, r.balanza - 1);
    if (!tiene) return {{nullptr, tiene.error().texto}};
    if (!*tiene) return {{deNumero_, contexto().textos(kTxGrupoSinEsaBalanza, {grupo, r.balanza})}};
  }
  return {};
}

PeticionTarea GrpDlg::peticion() const {
  PeticionTarea p{.clase = clase(), .todo = r.informe};
  if (r.balanza > 0) p.todo = false, p.desde = r.balanza - 1;
  return p;
}

}  // namespace tarvo::comm
