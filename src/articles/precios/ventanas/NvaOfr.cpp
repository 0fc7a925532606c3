#include "articles/precios/ventanas/NvaOfr.h"

#include <algorithm>

#include "articles/precios/ventanas/BrowOfer.h"
#include "articles/precios/ventanas/Comun.h"
#include "articles/precios/ventanas/TextosPreciosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/marco/EscogeFecha.h"
#include "core/ventanas/marco/MyMsgBox.h"

namespace tarvo::precios {

using namespace Qt::StringLiterals;
using ventanas::MyMsgBox;

NvaOfr::NvaOfr(ventanas::Contexto& contexto, const QString& nombre)
    : Ventana(contexto, nombre), motor_(contexto.db, contexto.textos, contexto.reloj) {
  ui_.setupUi(cuerpo());
  precios_ = {ui_.Precio_0, ui_.Precio_1, ui_.Precio_2};
  enlazar();
  montar();
}

void NvaOfr::montar() {
  for (QLineEdit* fecha : {ui_.Fecha_1, ui_.Fecha_F}) new ventanas::EscogeFecha(*fecha, contexto());
  for (QLineEdit* campo :
       {ui_.Entra, ui_.Precio_0, ui_.Precio_1, ui_.Precio_2, ui_.Fecha_1, ui_.Fecha_F}) {
    if (campo != ui_.Entra) campo->setMaximumWidth(ventanas::escalar(160));
    connect(campo, &QLineEdit::textEdited, this, [campo] { marcarFalta(*campo, false); });
  }
  connect(ui_.Entra, &QLineEdit::textChanged, this, &NvaOfr::buscar);
  connect(ui_.PorCod, &QRadioButton::toggled, this, &NvaOfr::buscar);
  connect(ui_.Todos, &QCheckBox::toggled, this, &NvaOfr::pintarGrupo);
  connect(ui_.SalvBoton, &QPushButton::clicked, this, &NvaOfr::salvar);
  connect(ui_.Salir, &QPushButton::clicked, this, &NvaOfr::descargar);
}

Resultado<> NvaOfr::preparar(const ventanas::Argumentos& argumentos) {
  int seccion = argumentos.value(u"seccion"_s).toInt();
  int grupo = argumentos.value(u"grupo"_s).toInt();
  if (seccion == 0) {
    TARVO_TOMAR(auto rs,
                contexto().db.consultar(u"SELECT SECCION, CODGPO FROM GRUPOS ORDER BY CODGPO"));
    if (rs->Eof()) return fallo(Fallo::NoExiste, t(kTxSinGrupos));
    seccion = static_cast<int>(rs->entero(0));
    grupo = static_cast<int>(rs->entero(1));
  }
  WhoAmI(seccion, argumentos.value(u"nombre"_s).toString(), grupo);
  return {};
}

void NvaOfr::WhoAmI(int seccion, const QString& nombre, int grupo) {
  seccion_ = seccion;
  grupo_ = grupo;
  nombreSeccion_ = nombre;
  pintarGrupo();
  buscar();
  ui_.Entra->setFocus();
}

void NvaOfr::pintarGrupo() {
  QString texto = nombreSeccion_;
  if (!ui_.Todos->isChecked()) {
    const auto n = contexto().db.uno(u"SELECT NOMGPO FROM GRUPOS WHERE CODGPO=?", grupo_);
    if (!haIdoBien(n)) return;
    texto = Ceros(grupo_, 4) + u"  "_s + n->texto();
  }
  ui_.LblGrp->setText(ui_.Todos->isChecked() ? QString() : texto);
}

// --- the article
// ---------------------------------------------------------------------------------

Resultado<std::optional<NvaOfr::Hallado>> NvaOfr::buscarArticulo(const QString& texto) const {
  const bool porCodigo = ui_.PorCod->isChecked();
  bool esNumero = false;
  const qint64 codigo = texto.toLongLong(&esNumero);
  if (texto.isEmpty() || (porCodigo && !esNumero)) return std::nullopt;
  TARVO_TOMAR(auto rs, contexto().db.OpenTable(u"PLUSES", porCodigo ? u"PrimaryKey" : u"NOMBRE"));
  TARVO_INTENTAR(porCodigo ? rs->Seek(dao::Busca::Igual, seccion_, codigo)
                           : rs->Seek(dao::Busca::MayorIgual, seccion_, texto));
  const int deSeccion = rs->columna(u"SECCION"), deCodigo = rs->columna(u"CODPLU");
  const auto sirve = [&] { return rs->entero(deCodigo) >= articles::kPrimerCodigo; };
  while (!porCodigo && !rs->Eof() && !sirve()) TARVO_INTENTAR(rs->MoveNext());
  if (rs->Eof() || rs->entero(deSeccion) != seccion_ || !sirve()) return std::nullopt;
  return Hallado{rs->entero(deCodigo), rs->texto(rs->columna(u"NOMPLU"))};
}

void NvaOfr::buscar() {
  ui_.Entra->setMaxLength(ui_.PorCod->isChecked() ? 7 : 30);
  const auto hallado = buscarArticulo(ui_.Entra->text().trimmed());
  articulo_ = haIdoBien(hallado) ? *hallado : std::nullopt;
  ui_.Codigox->setText(articulo_ ? Ceros(articulo_->codigo, 7) : QString());
  ui_.Nombrex->setText(articulo_ ? articulo_->nombre : QString());
  ui_.Normal->setText(articulo_                               ? preciosNormales(articulo_->codigo)
                      : ui_.Entra->text().trimmed().isEmpty() ? QString()
                                                              : t(kTxArticuloNoHallado));
}

// What the group sells it for without the offer.
QString NvaOfr::preciosNormales(qint64 codigo) {
  const auto tarifa = contexto().db.uno(u"SELECT tarifa FROM GRUPOS WHERE CODGPO=?", grupo_);
  if (!haIdoBien(tarifa)) return {};
  const int cual = std::clamp(static_cast<int>(tarifa->entero()), 0, articles::kTarifas - 1);
  auto rs = contexto().db.OpenTable(u"PLUSES", u"PrimaryKey");
  if (!haIdoBien(rs)) return {};
  const auto hay = (*rs)->Seek(dao::Busca::Igual, seccion_, codigo);
  if (!haIdoBien(hay) || !*hay) return {};
  QStringList precios;
  for (int nivel = 0; nivel < articles::kNiveles; ++nivel)
    precios << precioEnTexto(contexto(),
                             (*rs)->entero((*rs)->columna(articles::columnaPrecio(nivel, cual))));
  return t(kTxPreciosNormales).arg(precios.join(u"   "_s));
}

// Enter goes on from field to field, Escape empties the box of the article before it closes.
void NvaOfr::keyPressEvent(QKeyEvent* evento) {
  const QWidget* foco = focusWidget();
  const bool intro = evento->key() == Qt::Key_Return || evento->key() == Qt::Key_Enter;
  if (intro && qobject_cast<const QLineEdit*>(foco)) {
    evento->accept();
    if (foco == ui_.Entra) return ui_.Precio_0->setFocus(Qt::TabFocusReason);
    if (foco == ui_.Fecha_F) return ui_.SalvBoton->setFocus(Qt::TabFocusReason);
    focusNextChild();
    return;
  }
  if (evento->key() == Qt::Key_Escape && foco == ui_.Entra) {
    evento->accept();
    if (!ui_.Entra->text().isEmpty()) return ui_.Entra->clear();
    dejado_ = true;  // who stands there wants none of it
  }
  Ventana::keyPressEvent(evento);
}

// --- saving
// --------------------------------------------------------------------------------------

void NvaOfr::mal(const QString& texto, QLineEdit& campo) {
  MyMsgBox::Decide(this, contexto().textos, texto, ventanas::kSoloAcepto | ventanas::kExclamacion);
  marcarFalta(campo, true);
  campo.setFocus();
  campo.selectAll();
}

std::optional<Vigencia> NvaOfr::leerVigencia() {
  std::array<Dia, 2> dias;
  const std::array cajas{ui_.Fecha_1, ui_.Fecha_F};
  for (std::size_t i = 0; i < cajas.size(); ++i) {
    const QString texto = cajas[i]->text().trimmed();
    if (const auto f = Fecha::leer(texto)) dias[i] = f->dia();
    if (dias[i]) cajas[i]->setText(dias[i]->corta());
    if (dias[i] || texto.isEmpty()) continue;
    mal(t(kTxFechaMala), *cajas[i]);
    return std::nullopt;
  }
  const auto vigencia = Vigencia::de(dias[0], dias[1]);
  if (!vigencia) mal(t(kTxAcabaAntes), *ui_.Fecha_F);
  return vigencia;
}

// For who wrote words in the first price none was entered; an amount that won't do is told why.
QString NvaOfr::porQueNo(FaltaPrecio falta, std::size_t nivel, const QString& texto) const {
  const bool conCifras = std::ranges::any_of(texto, [](QChar c) { return c.isDigit(); });
  if (falta == FaltaPrecio::NoEsImporte && nivel == 0 && !conCifras) return t(kTxSinPrecio);
  return errorDe(falta, texto, contexto().ajustes, contexto().textos).texto;
}

std::optional<OfertaNueva> NvaOfr::leerOferta() {
  if (!articulo_) return mal(t(kTxSinCodigo), *ui_.Entra), std::nullopt;
  OfertaNueva oferta{seccion_, articulo_->codigo, {}, {}};
  for (std::size_t nivel = 0; nivel < precios_.size(); ++nivel) {
    const QString texto = precios_[nivel]->text();
    if (nivel == 0 && texto.trimmed().isEmpty())
      return mal(t(kTxSinPrecio), *precios_[0]), std::nullopt;
    if (texto.trimmed().isEmpty()) continue;  // none at this level
    const auto precio = comoPrecio(texto, contexto().ajustes);
    if (!precio) return mal(porQueNo(precio.error(), nivel, texto), *precios_[nivel]), std::nullopt;
    oferta.precios[nivel] = *precio;
  }
  const auto vigencia = leerVigencia();
  if (!vigencia) return std::nullopt;
  oferta.vigencia = *vigencia;
  return oferta;
}

Resultado<std::vector<int>> NvaOfr::destino() {
  if (ui_.Todos->isChecked()) return motor_.gruposDe(seccion_);
  return std::vector{grupo_};
}

bool NvaOfr::preguntarPorLas(const OfertaNueva& oferta, std::vector<int>& grupos) {
  const auto ocupados = motor_.ocupados(oferta.seccion, oferta.codigo, grupos);
  if (!haIdoBien(ocupados)) return false;
  for (const int grupo : *ocupados) {
    QString texto = t(kTxYaHayOferta) + u'\n' + t(kTxReescribirla);
    CambiaTexto(u"$G"_s, QString::number(grupo), texto);
    if (!MyMsgBox::Decide(this, contexto().textos, texto,
                          ventanas::kAceptoCancelo | ventanas::kExclamacion))
      std::erase(grupos, grupo);
  }
  return true;
}

void NvaOfr::salvar() {
  const auto oferta = leerOferta();
  if (!oferta) return;
  auto grupos = destino();
  if (!haIdoBien(grupos) || !preguntarPorLas(*oferta, *grupos)) return;
  if (!haIdoBien(motor_.guardar(*oferta, *grupos))) return;
  if (auto* lista = qobject_cast<BrowOfer*>(contexto().ventanas.cargada(u"BrowOfer"_s)))
    lista->RefrescoRemoto();
  const QString nombre = articulo_->nombre;
  fechas_ = {ui_.Fecha_1->text(), ui_.Fecha_F->text()};
  vaciar();
  if (grupos->empty()) return decirDuda(t(kTxOfertaEnNinguno));
  const QString bien = t(kTxOfertaGuardada, static_cast<int>(grupos->size())).arg(nombre);
  const auto aviso =
      avisoPrecio(std::ranges::max(oferta->precios), contexto().ajustes, contexto().textos);
  if (aviso) return decirDuda(bien + u' ' + *aviso);
  decirBien(bien);
}

// The dates of the last offer stay, and are nobody's loss.
bool NvaOfr::hayAlgoEscrito() const {
  const std::array fechas{ui_.Fecha_1->text(), ui_.Fecha_F->text()};
  return !ui_.Entra->text().trimmed().isEmpty() || fechas != fechas_ ||
         std::ranges::any_of(precios_,
                             [](const QLineEdit* p) { return !p->text().trimmed().isEmpty(); });
}

bool NvaOfr::QueryUnload() {
  return !dejado_ && hayAlgoEscrito() && !abandonar(*this);
}

// The dates stay for the next one.
void NvaOfr::vaciar() {
  ui_.Entra->clear();
  for (QLineEdit* precio : precios_) precio->clear();
  ui_.Entra->setFocus();
}

}  // namespace tarvo::precios
