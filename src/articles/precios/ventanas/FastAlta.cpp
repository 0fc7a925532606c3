// The fields: what they take, how the keys walk them. The addition is in FastAltaAcciones.cpp.
#include "articles/precios/ventanas/FastAlta.h"

#include "articles/precios/AjustesPrecios.h"
#include "articles/precios/ventanas/TextosPreciosVentanas.h"
#include "core/ventanas/edicion/Ficha.h"

namespace tarvo::precios {

using namespace Qt::StringLiterals;

FastAlta::FastAlta(ventanas::Contexto& contexto, const QString& nombre,
                   articles::Catalogo& catalogo)
    : Ventana(contexto, nombre),
      motor_(contexto.db, catalogo, FormaAlta::leer(contexto.ajustes.de<AjustesPrecios>())),
      politicas_(ParrillaRapida::leer(contexto.ajustes.de<AjustesPrecios>().ParrillaRapida)),
      lista_(contexto) {
  ui_.setupUi(cuerpo());
  enlazar();
  montar();
}

void FastAlta::montar() {
  for (int i = 0; i < 3; ++i) ui_.LstCada->addItem(t(kTxUnidades + i));
  montarCampos();
  ui_.Grd->preparar(contexto(), motor_.forma().precios(), motor_.forma().tarifas());
  connect(ui_.Grd, &MatrizPrecios::intro, this, [this] { avanzar(); });
  decirLoDe(*ui_.Grd, *this);
  connect(ui_.Alta, &QPushButton::clicked, this, &FastAlta::anadir);
  connect(ui_.Salir, &QPushButton::clicked, this, &FastAlta::descargar);
  connect(ui_.Configurar, &QPushButton::clicked, this, &FastAlta::configurar);
  connect(ui_.dbS, &QComboBox::activated, this, &FastAlta::pintarDepartamento);
}

void FastAlta::montarCampos() {
  const std::pair<QLineEdit*, int> campos[] = {{ui_.txCod, 7}, {ui_.txdep, 2}, {ui_.txetq, 2},
                                               {ui_.txbar, 7}, {ui_.txdi1, 4}, {ui_.txdi2, 4}};
  for (const auto& [campo, cifras] : campos) soloCifras(*campo, cifras);
  ui_.txCod->installEventFilter(this);
  for (int i = 0; i < kCamposAlta; ++i)
    if (auto* campo = qobject_cast<QLineEdit*>(control(static_cast<CampoAlta>(i))))
      connect(campo, &QLineEdit::textChanged, this, [campo] { marcarFalta(*campo, false); });
  connect(ui_.txdep, &QLineEdit::textChanged, this, &FastAlta::pintarDepartamento);
}

Resultado<> FastAlta::preparar(const ventanas::Argumentos& argumentos) {
  lista_.unir(argumentos);
  TARVO_INTENTAR(ventanas::llenar(*ui_.dbS, contexto().nombres.seccionesPorNombre(), 3));
  if (ui_.dbS->count() == 0) return fallo(Fallo::NoExiste, t(kTxSinSecciones));
  if (argumentos.contains(u"seccion"_s)) elegir(*ui_.dbS, argumentos.value(u"seccion"_s));
  ponerValores();
  ui_.txCod->setFocus();
  return {};
}

void FastAlta::ponerValores() {
  for (int i = 0; i < kCamposFijos; ++i) {
    const auto fijo = static_cast<CampoFijo>(i);
    QWidget* c = control(comoCampoAlta(fijo));
    if (auto* lista = qobject_cast<QComboBox*>(c))
      lista->setCurrentIndex(politicas_.valor(fijo).toInt());
    if (auto* campo = qobject_cast<QLineEdit*>(c)) campo->setText(politicas_.valor(fijo));
    c->setEnabled(politicas_.politica(fijo) != Politica::Fijar);
  }
}

QWidget* FastAlta::control(CampoAlta campo) const {
  const std::array<QWidget*, kCamposAlta> todos{ui_.txCod,   ui_.txNom, ui_.Grd,
                                                ui_.LstCada, ui_.txdep, ui_.txetq,
                                                ui_.txbar,   ui_.txdi1, ui_.txdi2};
  return todos[static_cast<std::size_t>(campo)];
}

std::optional<CampoAlta> FastAlta::campoDe(const QWidget* w) const {
  for (int i = 0; i < kCamposAlta; ++i) {
    const auto campo = static_cast<CampoAlta>(i);
    if (control(campo) == w || control(campo)->isAncestorOf(w)) return campo;
  }
  return std::nullopt;
}

EntradaAlta FastAlta::entrada() const {
  EntradaAlta e;
  e.seccion = ui_.dbS->currentData().toInt();
  e.codigo = ui_.txCod->text();
  e.nombre = ui_.txNom->text();
  e.precios = ui_.Grd->precios();
  e.cada = ui_.LstCada->currentIndex();
  e.departamento = ui_.txdep->text();
  e.formato = ui_.txetq->text();
  e.codBarras = ui_.txbar->text();
  e.dias1 = ui_.txdi1->text();
  e.dias2 = ui_.txdi2->text();
  return e;
}

// --- keys
// ----------------------------------------------------------------------------------------

bool FastAlta::vale(CampoAlta campo) {
  const auto bien = motor_.vale(campo, entrada());
  if (!haIdoBien(bien)) return false;
  const bool conPrecios = campo != CampoAlta::Precios || ui_.Grd->vale();
  if (campo != CampoAlta::Precios) marcarFalta(*control(campo), !*bien);
  return *bien && conPrecios;
}

bool FastAlta::puedeSalir() {
  const auto campo = campoDe(focusWidget());
  return !campo || vale(*campo);
}

void FastAlta::avanzar() {
  if (puedeSalir()) Ventana::focusNextPrevChild(true);
}

// Enter goes on as Tab does, and neither leaves a field that isn't valid. One may go back.
bool FastAlta::focusNextPrevChild(bool siguiente) {
  if (siguiente && !puedeSalir()) return true;
  return Ventana::focusNextPrevChild(siguiente);
}

void FastAlta::keyPressEvent(QKeyEvent* evento) {
  const bool intro = evento->key() == Qt::Key_Return || evento->key() == Qt::Key_Enter;
  if (!intro || !campoDe(focusWidget())) return Ventana::keyPressEvent(evento);
  evento->accept();
  avanzar();
}

bool FastAlta::eventFilter(QObject* objeto, QEvent* evento) {
  if (objeto != ui_.txCod) return Ventana::eventFilter(objeto, evento);
  if (evento->type() == QEvent::FocusIn) codigoConFoco();
  if (evento->type() == QEvent::FocusOut) codigoSinFoco();
  return evento->type() == QEvent::KeyPress && codigoLleno(static_cast<QKeyEvent&>(*evento));
}

// In the box stand the digits that are typed; once it is left, the whole code.
void FastAlta::codigoConFoco() {
  const QString texto = ui_.txCod->text();
  const qsizetype prefijo = motor_.forma().prefijo().size();
  if (texto.size() > motor_.forma().cifras()) ui_.txCod->setText(texto.mid(prefijo));
  ui_.txCod->setMaxLength(motor_.forma().cifras());
  ui_.txCod->selectAll();
}

void FastAlta::codigoSinFoco() {
  const auto codigo = motor_.forma().codigo(ui_.txCod->text());
  ui_.txCod->setMaxLength(7);
  if (codigo) ui_.txCod->setText(*codigo);
}

// A further digit at the end of a full box pushes the first one out.
bool FastAlta::codigoLleno(const QKeyEvent& evento) {
  QLineEdit& caja = *ui_.txCod;
  const QString tecla = evento.text();
  const bool cabe = caja.text().size() < caja.maxLength() || caja.hasSelectedText() ||
                    caja.cursorPosition() < caja.text().size();
  if (cabe || tecla.size() != 1 || tecla[0] < u'0' || tecla[0] > u'9') return false;
  caja.setText(caja.text().mid(1) + tecla);
  return true;
}

void FastAlta::pintarDepartamento() {
  const auto nombre = contexto().db.uno(u"SELECT NomDep FROM DEPTS WHERE SECCION=? AND NUMDEP=?",
                                        ui_.dbS->currentData().toInt(), ui_.txdep->text().toInt());
  ui_.lbDep->setText(haIdoBien(nombre) ? nombre->texto() : QString());
}

// The other fields may stay from the article before.
bool FastAlta::hayAlgoEscrito() const {
  return !ui_.txCod->text().isEmpty() || !ui_.txNom->text().trimmed().isEmpty() ||
         !ui_.Grd->vacia();
}

bool FastAlta::QueryUnload() {
  if (hayAlgoEscrito() && !ventanas::preguntarAbandono(*this)) return true;
  if (lista_) lista_->refrescar();
  lista_.soltar();
  return false;
}

}  // namespace tarvo::precios
