#include "comm/ventanas/DialogoGrupos.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>

#include "comm/ventanas/TextosCommVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"

namespace tarvo::comm {

using namespace Qt::StringLiterals;
using namespace ventanas;

namespace {

constexpr int kCodigoGrupo = Qt::UserRole;
constexpr int kCifrasCodigo = 7;
constexpr qint64 kUltimoCodigo = 9999999;

qint64 numeroDe(const QLineEdit& campo) {
  return std::clamp<qint64>(dao::Valor(campo.text()).entero(), 0, kUltimoCodigo);
}

}  // namespace

DialogoGrupos::DialogoGrupos(Contexto& c, const QString& nombre, const Servicios& s)
    : Ventana(c, nombre), s_(s) {}

void DialogoGrupos::usar(QListWidget* lista, QCheckBox* todas, QPushButton* acepto,
                         QPushButton* cancelo) {
  lista_ = lista;
  todas_ = todas;
  connect(todas, &QCheckBox::toggled, this, [this](bool si) {
    if (si) lista_->selectAll();
    lista_->setEnabled(!si);
  });
  connect(lista, &QListWidget::itemDoubleClicked, this, [this] { encolar(); });
  connect(acepto, &QPushButton::clicked, this, [this] { encolar(); });
  connect(cancelo, &QPushButton::clicked, this, [this] { rechazar(); });
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
  todas_->setChecked(false);
  lista_->setCurrentRow(0);
  lista_->setFocus();
  return {};
}

void DialogoGrupos::falta(QLineEdit& campo, const QString& texto) {
  campo.setProperty("falta", true);
  campo.update();
  campo.setFocus();
  campo.selectAll();
  connect(&campo, &QLineEdit::textEdited, this, [&campo] {
    campo.setProperty("falta", false);
    campo.update();
  });
  decirDuda(texto);
}

bool DialogoGrupos::vale(const RangoCodigos& rango) {
  if (rango.desde() <= rango.hasta()) return true;
  falta(rango.campoDesde(), t(kTxRangoMalo));
  return false;
}

// In the order of the list, which is sorted by code.
std::vector<int> DialogoGrupos::elegidos() const {
  std::vector<int> grupos;
  for (int i = 0; i < lista_->count(); ++i)
    if (todas_->isChecked() || lista_->item(i)->isSelected())
      grupos.push_back(lista_->item(i)->data(kCodigoGrupo).toInt());
  return grupos;
}

void DialogoGrupos::encolar() {
  const auto grupos = elegidos();
  if (grupos.empty()) {
    lista_->setFocus();
    return decirDuda(t(kTxEligeGrupo));
  }
  const auto que = leerCampos();
  if (!que || !consientePerder(*this, s_.grupos, clase_, grupos)) return;
  auto* quien = qobject_cast<Ventana*>(dueno());
  encolarGrupos(quien ? *quien : *this, s_.motor, grupos, *que);
  aceptar();
}

RangoCodigos::RangoCodigos(QLineEdit* desde, QLineEdit* hasta) : desde_(desde), hasta_(hasta) {
  desde->setText(Ceros(0, kCifrasCodigo));
  hasta->setText(Ceros(kUltimoCodigo, kCifrasCodigo));
  QObject::connect(desde, &QLineEdit::editingFinished, desde,
                   [desde] { desde->setText(Ceros(numeroDe(*desde), kCifrasCodigo)); });
  QObject::connect(hasta, &QLineEdit::editingFinished, hasta,
                   [this_ = *this, hasta] { hasta->setText(Ceros(this_.hasta(), kCifrasCodigo)); });
}

qint64 RangoCodigos::desde() const {
  return numeroDe(*desde_);
}

// A text without a leading number means the last code.
qint64 RangoCodigos::hasta() const {
  const QString texto = hasta_->text().trimmed();
  return texto.isEmpty() || !texto.front().isDigit() ? kUltimoCodigo : numeroDe(*hasta_);
}

}  // namespace tarvo::comm
