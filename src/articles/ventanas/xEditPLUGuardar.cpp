// Reading the form, checking it, and writing the article with its stock, once.
#include "articles/ventanas/ComunArticulos.h"
#include "articles/ventanas/TextosArticulosVentanas.h"
#include "articles/ventanas/xEditPLU.h"
#include "core/ventanas/edicion/Ficha.h"
#include "core/ventanas/marco/MyMsgBox.h"
#include "core/ventanas/marco/Recorrido.h"

namespace tarvo::articles {

using namespace Qt::StringLiterals;
using ventanas::MyMsgBox;

// Amounts and quantities; what can't be read is given, and its number stays.
std::vector<XEditPLU::Mala> XEditPLU::leerCajas() {
  std::vector<Mala> malas;
  for (Caja& c : cajas_) {
    if (c.campo->text() == c.visto) continue;
    const auto n = c.dinero ? leerImporte(*this, c.campo->text(), moneda_)
                            : leerCantidad(*this, c.campo->text(), articulo_.cada);
    if (n) {
      articulo_.*c.valor = *n;
      c.visto = c.campo->text();
    } else {
      malas.push_back({c.nombre, fichaDe(c.campo), c.campo});
    }
  }
  return malas;
}

void XEditPLU::leerOtros() {
  Articulo& a = articulo_;
  a.clave.codigo = ui_.txCod->text().toLongLong();
  a.nombre = ui_.txNom->text();
  a.cada = ui_.LstCada->currentIndex();
  a.modificable = ui_.chModificable->isChecked();
  // A department that the section has no more stays until another one is chosen.
  if (ui_.LstDep->currentIndex() >= 0) a.depto = ui_.LstDep->currentData().toInt();
  a.barras = ui_.LstBarras->currentIndex();
  a.pfxBar = ui_.txPfx->text();
  const QString externo = ui_.txBarExt->text().trimmed();
  a.codBarExt = externo.isEmpty() ? std::optional<QString>() : externo;
  a.descto = leerDescuento(ui_.txDescto->text());
  a.formato = ui_.txFormato->text().toInt();
  a.textoEtq = ui_.txTexto->toPlainText();
  a.tara = 1;
  a.numdias1 = ui_.txDias1->text().toInt();
  a.numdias2 = ui_.txDias2->text().toInt();
}

XEditPLU::Mala XEditPLU::mala(Falta falta) const {
  switch (falta) {
    case Falta::Codigo:
      return {kTxCodigoPLU, nullptr, ui_.txCod};
    case Falta::Departamento:
      return {kTxDepartamento, ui_.otr, ui_.LstDep};
    case Falta::Formato:
      return {kTxFormatoEtiquetas, ui_.etq, ui_.txFormato};
    case Falta::Minimo:
      return {kTxPrecioMinimo, ui_.pre, ui_.txMinimo};
    case Falta::Hasta1:
      return {kTxValorHasta1, ui_.pre, ui_.txHasta1};
    case Falta::Descuento:
      return {kTxDescuento, ui_.otr, ui_.txDescto};
    case Falta::Hasta2:
      break;
  }
  return {kTxValorHasta2, ui_.pre, ui_.txHasta2};
}

std::vector<XEditPLU::Mala> XEditPLU::leer() {
  const auto ilegibles = leerCajas();
  leerOtros();
  std::vector<Mala> malas;
  for (const Falta f : faltas(articulo_)) malas.push_back(mala(f));
  for (const Mala& m : ilegibles)
    if (std::ranges::find(malas, m.campo, &Mala::campo) == malas.end()) malas.push_back(m);
  return malas;
}

// These fields are wrong, and no other. The bar code has a mark of its own.
void XEditPLU::marcarMalas(const std::vector<Mala>& malas) {
  for (QWidget* campo : cuerpo()->findChildren<QWidget*>())
    if (campo != ui_.txBarExt)
      marcar(*campo, std::ranges::find(malas, campo, &Mala::campo) != malas.end());
}

// One name a line; the tab and the field of the first come up.
void XEditPLU::decirMalas(const std::vector<Mala>& malas) {
  marcarMalas(malas);
  QStringList nombres;
  for (const Mala& m : malas) nombres << t(m.nombre);
  MyMsgBox::Decide(this, contexto().textos, t(kTxValorIncorrecto) + u":\n"_s + nombres.join(u'\n'),
                   ventanas::kSoloAcepto | ventanas::kCritico);
  if (malas.front().ficha) ui_.Fichas->setCurrentWidget(malas.front().ficha);
  malas.front().campo->setFocus();
}

Resultado<> XEditPLU::ponerContador(qint64 Existencia::* contador, qint64 almacen,
                                    const QString& texto) {
  TARVO_TOMAR(const auto n, leerCantidad(*this, texto, articulo_.cada));
  const auto e = std::ranges::find(existencias_, static_cast<int>(almacen), &Existencia::almacen);
  if (e != existencias_.end()) (*e).*contador = n;
  pintarStock();
  return {};
}

// Asks before it writes over what another window did meanwhile.
bool XEditPLU::loCambioOtro() {
  if (!vieja_) return false;
  const auto ahora = catalogo_.leer(*vieja_);
  if (!haIdoBien(ahora)) return true;
  if (!*ahora || **ahora == antes_) return false;
  return !MyMsgBox::Decide(this, contexto().textos, t(kTxCambiadoPorOtro),
                           ventanas::kAceptoCancelo | ventanas::kExclamacion | ventanas::kPrudente);
}

Resultado<> XEditPLU::escribir() {
  const QString ventana = u"xEditPLU"_s;
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(contexto().db));
  TARVO_INTENTAR(vieja_ ? catalogo_.modificar(*vieja_, articulo_, ventana)
                        : catalogo_.crear(articulo_, ventana));
  TARVO_INTENTAR(ponerExistencias(contexto().db, articulo_.clave, existenciasAntes_, existencias_));
  return t.confirmar();
}

void XEditPLU::guardar() {
  if (ui_.GrdPre->editando() || ui_.GrdStk->editando()) return;
  const auto malas = leer();
  if (!malas.empty()) return decirMalas(malas);
  marcarMalas({});
  if (loCambioOtro()) return;
  if (const auto hecho = escribir(); !hecho) {
    MyMsgBox::Decide(this, contexto().textos, informe(*this, hecho.error()).texto,
                     ventanas::kSoloAcepto | ventanas::kCritico);
    return ui_.txCod->setFocus();
  }
  if (auto* lista = contexto().ventanas.recorrido(padre_))
    lista->refrescarEn({articulo_.clave.seccion, articulo_.clave.codigo});
  decirDudaBarras();
  aceptar();
}

// Any bar code is kept; of one that was written here and no scale can print the list says it, for
// this window goes.
void XEditPLU::decirDudaBarras() {
  const auto barras = [](const Articulo& a) {
    return std::tuple(a.codBarExt, a.pfxBar, a.barras, a.clave.codigo);
  };
  const QString duda = dudaDeBarras(articulo_);
  auto* lista = contexto().ventanas.cargada(padre_);
  if (lista && !duda.isEmpty() && barras(articulo_) != barras(antes_))
    lista->decirDuda(t(kTxGuardadoConDuda).arg(verCodigo(articulo_.clave.codigo), duda));
}

bool XEditPLU::QueryUnload() {
  const bool igual = leerCajas().empty() && (leerOtros(), articulo_ == antes_) &&
                     existencias_ == existenciasAntes_ && !ui_.GrdPre->editando() &&
                     !ui_.GrdStk->editando();
  return !igual && !ventanas::preguntarAbandono(*this);
}

}  // namespace tarvo::articles
