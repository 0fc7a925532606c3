#include "automation/ventanas/EnParMac.h"

#include <QAbstractItemView>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

#include "automation/ventanas/MesRango.h"
#include "automation/ventanas/TextosAutomationVentanas.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"

namespace tarvo::automation {

using namespace Qt::StringLiterals;
using namespace ventanas;

namespace {

constexpr qint64 kMenor = -32768, kMayor = 32767;

}  // namespace

EnParMac::EnParMac(Contexto& c, const QString& nombre) : FichaDe(c, nombre) {
  auto f = formulario(kTxParametro);
  pregunta_ = f.nota(u"lblPregunta"_s);
  // A number and a text share one field; the parameter's kind decides.
  const Modo deNumero = numero(r.numero, kMenor, kMayor).con(t(kTxNumeroMalo));
  valor_ = &f.fila(0, u"Valor"_s,
                   {.ver = [] { return QString(); },
                    .poner = [this, deNumero](const QString& s) -> Resultado<> {
                      escrito_ = true;
                      if (clase_ == u'%') return deNumero.poner(s);
                      r.texto = s;
                      return {};
                    }});
  fechas_ = f.ancho(new QWidget, u"fechas"_s);
  auto* pila = new QVBoxLayout(fechas_);
  pila->setContentsMargins(0, 0, 0, 0);
  montarRango({*this, *pila});
  f.muelle();
  ponerLetra(*f.nota(u"lblAviso"_s, kTxSiCancela), Letra::Secundaria);
  ponerFrase(0, false);
  acabar({460, 200});
}

void EnParMac::montarRango(Formulario f) {
  todo_ = f.ancho(new QRadioButton(t(kTxTodoElMes)), u"TodoElMes"_s);
  dias_ = f.ancho(new QRadioButton(t(kTxLosDias)), u"LosDias"_s);
  mes_ = f.ancho(new MesRango, u"Mes"_s);
  otras_ = f.ancho(new QRadioButton(t(kTxOtrasFechas)), u"OtrasFechas"_s);
  desde_ = &f.fila(ventanas::kTxDesdeConLetra, u"Desde"_s, fecha(r.desde));
  hasta_ = &f.fila(ventanas::kTxHasta, u"Hasta"_s, fecha(r.hasta));
  mes_->findChild<QAbstractItemView*>()->setAccessibleName(t(kTxElijaDias));
  rango_ = f.nota(u"lblRango"_s);
  for (QWidget* w : {static_cast<QWidget*>(dias_), static_cast<QWidget*>(mes_)})
    w->setToolTip(t(kTxElijaDias));
  todo_->setChecked(true);
  for (QRadioButton* opcion : {todo_, dias_, otras_})
    connect(opcion, &QRadioButton::toggled, this, &EnParMac::ponerRango);
  connect(mes_, &MesRango::rangoCambiado, this, [this] {
    rango_->setText(contexto().textos(
        kTxDelAl, {Fecha::de(mes_->desde()).corta(), Fecha::de(mes_->hasta()).corta()}));
  });
  connect(mes_, &MesRango::diaElegido, this, [this] { dias_->setChecked(true); });
}

Resultado<> EnParMac::entrar(const PuertaEnParMac& p) {
  escrito_ = false;
  clase_ = p.nombre.isEmpty() ? QChar(u'%') : p.nombre[0];
  const Fecha hoy = contexto().reloj.ahora().dia();
  TARVO_INTENTAR(editar({.numero = 0, .texto = {}, .desde = hoy, .hasta = hoy}));
  pregunta_->setText(p.pregunta.isEmpty() ? t(kTxMuestraPregunta) : p.pregunta);
  const bool deFechas = clase_ == u'#';
  valor_->control().setVisible(!deFechas);
  valor_->control().setAccessibleName(pregunta_->text());
  fechas_->setVisible(deFechas);
  if (!deFechas) {
    valor_->enfocar();
    return {};
  }
  mes_->irAlMes(hoy.qdate());
  ponerRango();
  todo_->setFocus();
  return {};
}

void EnParMac::ponerRango() {
  const bool otras = otras_->isChecked();
  mes_->setEnabled(!otras);
  for (const Campo* c : {desde_, hasta_}) c->control().setEnabled(otras);
  rango_->setVisible(!otras);
  mes_->ponerTodo(todo_->isChecked());
}

std::vector<EnParMac::FaltaCampo> EnParMac::comprobar() {
  if (clase_ == u'%' && !escrito_) return {{valor_, t(kTxNumeroMalo)}};
  if (clase_ != u'#') return {};
  if (!otras_->isChecked()) {
    r.desde = Fecha::de(mes_->desde());
    r.hasta = Fecha::de(mes_->hasta());
  }
  if (*r.desde > *r.hasta) return {{hasta_, t(kTxFechasAlReves)}};
  return {};
}

void EnParMac::aplicada() {
  if (clase_ == u'%') return entregar(Contestacion(r.numero));
  if (clase_ == u'#') return entregar(Contestacion(std::pair(*r.desde, *r.hasta)));
  entregar(Contestacion(r.texto));
}

}  // namespace tarvo::automation
