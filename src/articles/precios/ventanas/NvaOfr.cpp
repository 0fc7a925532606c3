#include "articles/precios/ventanas/NvaOfr.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <algorithm>

#include "articles/precios/CambioRapido.h"
#include "articles/precios/ventanas/BrowOfer.h"
#include "articles/precios/ventanas/Comun.h"
#include "articles/precios/ventanas/TextosPreciosVentanas.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/marco/MyMsgBox.h"

namespace tarvo::precios {

using namespace Qt::StringLiterals;

NvaOfr::NvaOfr(ventanas::Contexto& contexto, const QString& nombre, Ofertas& motor)
    : FichaDe(contexto, nombre), motor_(motor) {
  montar();
  connect(qobject_cast<QLineEdit*>(&entra_->control()), &QLineEdit::textChanged, this,
          &NvaOfr::buscar);
  connect(porCodigo_, &QRadioButton::toggled, this, &NvaOfr::buscar);
  connect(todos_, &QCheckBox::toggled, this, &NvaOfr::pintarGrupo);
}

void NvaOfr::montar() {
  auto f = formulario(kTxNuevasOfertas);
  grupo_ = f.titulo(u"LblGrp"_s);
  entra_ = &f.fila(kTxArticuloDeOferta, u"Entra"_s, texto(r.articulo));
  porCodigo_ = new QRadioButton(t(kTxPorCodigo));
  auto* porNombre = new QRadioButton(t(kTxPorNombre));
  porCodigo_->setObjectName(u"PorCod"_s);
  porNombre->setObjectName(u"PorNom"_s);
  porCodigo_->setChecked(true);
  f.enLinea({porCodigo_, porNombre, nullptr});
  codigo_ = f.titulo(u"Codigox"_s);
  nombre_ = f.titulo(u"Nombrex"_s);
  normal_ = f.nota(u"Normal"_s);
  ponerLetra(*normal_, ventanas::Letra::Secundaria);
  for (std::size_t n = 0; n < precios_.size(); ++n)
    precios_[n] = &f.fila(kTxPrecioNivel + static_cast<int>(n), u"Precio_%1"_s.arg(n), precio(n));
  auto& desde = f.fila(ventanas::kTxDesdeConLetra, u"Fecha_1"_s, dia(r.desde));
  hasta_ = &f.fila(ventanas::kTxHasta, u"Fecha_F"_s, fin());
  for (ventanas::Campo* campo : {&desde, hasta_})
    connect(campo, &ventanas::Campo::dejado, this, [campo] {
      if (campo->tocado() && campo->leer()) campo->mostrar();
    });
  todos_ = f.ancho(new QCheckBox(t(kTxTodosGrupos)), u"Todos"_s);
  todos_->setToolTip(t(kTxTodosTip));
  f.muelle();
  ponerFrase(0, false);
  acabar({600, 480}, {u"SalvBoton"_s, u"Salir"_s, ventanas::kTxGuardar, ventanas::kTxSalir});
}

// A first price without digits counts as missing; an invalid amount is refused with its reason.
ventanas::Modo NvaOfr::precio(std::size_t nivel) {
  const Ajustes& a = contexto().ajustes;
  return {.ver =
              [this, nivel] {
                return r.precios[nivel] ? precioEnTexto(contexto(), *r.precios[nivel]) : QString();
              },
          .poner = [this, &a, nivel](const QString& s) -> Resultado<> {
            r.precios[nivel].reset();
            if (s.trimmed().isEmpty()) return {};  // a missing price is reported by comprobar()
            const auto precio = comoPrecio(s, a);
            const bool conCifras = std::ranges::any_of(s, [](QChar c) { return c.isDigit(); });
            if (precio) {
              r.precios[nivel] = *precio;
              return {};
            }
            if (precio.error() == FaltaPrecio::NoEsImporte && nivel == 0 && !conCifras)
              return fallo(Fallo::Formato, t(kTxSinPrecio));
            return std::unexpected(errorDe(precio.error(), s, a, contexto().textos));
          },
          .letras = 12};
}

// A day without its year is the next one; left, the field shows it whole.
ventanas::Modo NvaOfr::dia(Dia& donde) {
  ventanas::Modo modo = fecha(donde, false);
  modo.poner = [this, &donde](const QString& s) -> Resultado<> {
    const auto f = Fecha::leerProxima(s, contexto().reloj.ahora());
    if (!f && !s.trimmed().isEmpty()) return fallo(Fallo::Formato, t(kTxFechaMala));
    donde = f ? Dia(f->dia()) : Dia();
    return {};
  };
  return modo;
}

ventanas::Modo NvaOfr::fin() {
  ventanas::Modo modo = fecha(r.hasta, false);
  modo.poner = [this](const QString& s) -> Resultado<> {
    const auto leido = leerFin(s, r.desde, contexto().reloj.ahora());
    if (!leido) return std::unexpected(malFin(*this, leido.error()));
    r.hasta = *leido;
    return {};
  };
  return modo;
}

Resultado<> NvaOfr::entrar(const PuertaNvaOfr& puerta) {
  de_ = puerta;
  if (de_.seccion == 0) {
    TARVO_TOMAR(const auto primero, motor_.primerGrupo());
    if (!primero) return fallo(Fallo::NoExiste, t(kTxSinGrupos));
    de_.seccion = primero->seccion;
    de_.grupo = primero->grupo;
  }
  if (!isVisible()) TARVO_INTENTAR(editar({}));
  pintarGrupo();
  buscar();
  entra_->enfocar();
  return {};
}

void NvaOfr::pintarGrupo() {
  const auto nombre = contexto().nombres.grupo(de_.grupo);
  if (!haIdoBien(nombre)) return;
  grupo_->setText(todos_->isChecked() ? QString() : Ceros(de_.grupo, 4) + u"  "_s + *nombre);
}

// --- the article

void NvaOfr::buscar() {
  const QString texto = qobject_cast<QLineEdit*>(&entra_->control())->text().trimmed();
  const auto hallado = motor_.buscar(de_.seccion, texto, porCodigo_->isChecked());
  articulo_ = haIdoBien(hallado) ? *hallado : std::nullopt;
  if (articulo_) entra_->marcar({});
  codigo_->setText(articulo_ ? Ceros(articulo_->codigo, 7) : QString());
  nombre_->setText(articulo_ ? articulo_->nombre : QString());
  normal_->setText(articulo_         ? preciosNormales(articulo_->codigo)
                   : texto.isEmpty() ? QString()
                                     : t(kTxArticuloNoHallado));
}

QString NvaOfr::preciosNormales(qint64 codigo) {
  const auto normales = motor_.normales(de_.grupo, de_.seccion, codigo);
  if (!haIdoBien(normales) || !*normales) return {};
  QStringList precios;
  for (const qint64 precio : **normales) precios << precioEnTexto(contexto(), precio);
  return t(kTxPreciosNormales).arg(precios.join(u"   "_s));
}

// Whether the price may be left with Enter; otherwise its fault is shown beside it.
bool NvaOfr::vale(const QLineEdit& linea) {
  for (ventanas::Campo* precio : precios_)
    if (&linea == &precio->control() && !precio->leer()) return precio->enfocar(), false;
  return true;
}

// Enter moves from field to field; Escape clears the article field before it closes the window.
void NvaOfr::keyPressEvent(QKeyEvent* evento) {
  auto* foco = qobject_cast<QLineEdit*>(focusWidget());
  const bool intro = evento->key() == Qt::Key_Return || evento->key() == Qt::Key_Enter;
  if (intro && foco) {
    evento->accept();
    if (!vale(*foco)) return;
    if (foco == &entra_->control()) {
      if (!articulo_) entra_->marcar(t(kTxSinCodigo));
      return precios_[0]->control().setFocus(Qt::TabFocusReason);
    }
    if (foco == &hasta_->control()) return acepto()->setFocus(Qt::TabFocusReason);
    focusNextChild();
    return;
  }
  if (evento->key() == Qt::Key_Escape && foco == &entra_->control()) {
    evento->accept();
    if (!foco->text().isEmpty()) return foco->clear();
    // Escape in the empty field: the user doesn't want another offer, unless there are prices.
    dejado_ = std::ranges::all_of(precios_, [](const ventanas::Campo* precio) {
      return qobject_cast<QLineEdit*>(&precio->control())->text().isEmpty();
    });
  }
  FichaDe::keyPressEvent(evento);
}

// --- saving

std::vector<NvaOfr::FaltaCampo> NvaOfr::comprobar() {
  if (!articulo_) return {{entra_, t(kTxSinCodigo)}};
  if (!r.precios[0]) return {{precios_[0], t(kTxSinPrecio)}};
  const auto vigencia = Vigencia::de(r.desde, r.hasta);
  if (!vigencia) return {{hasta_, t(kTxAcabaAntes)}};
  oferta_ = {de_.seccion, articulo_->codigo, {}, *vigencia};
  for (std::size_t n = 0; n < precios_.size(); ++n) oferta_.precios[n] = r.precios[n].value_or(0);
  return {};
}

Resultado<std::vector<int>> NvaOfr::preguntarPorLas(std::vector<int> grupos) {
  TARVO_TOMAR(const auto ocupados, motor_.ocupados(oferta_.seccion, oferta_.codigo, grupos));
  for (const int grupo : ocupados) {
    QString texto = t(kTxYaHayOferta) + u'\n' + t(kTxReescribirla);
    CambiaTexto(u"$G"_s, QString::number(grupo), texto);
    if (!ventanas::MyMsgBox::Decide(this, contexto().textos, texto,
                                    ventanas::kAceptoCancelo | ventanas::kExclamacion))
      std::erase(grupos, grupo);
  }
  return grupos;
}

// Given away, if that is meant.
bool NvaOfr::conforme() {
  if (std::ranges::find(r.precios, std::optional<qint64>(0)) == r.precios.end()) return true;
  return ventanas::MyMsgBox::Decide(this, contexto().textos,
                                    t(kTxOfertaACero).arg(articulo_->nombre),
                                    ventanas::kAceptoCancelo | ventanas::kExclamacion);
}

Resultado<> NvaOfr::aplicar() {
  std::vector grupos{de_.grupo};
  if (todos_->isChecked()) {
    TARVO_TOMAR(grupos, motor_.gruposDe(de_.seccion));
  }
  TARVO_TOMAR(const auto escritos, preguntarPorLas(grupos));
  TARVO_TOMAR(aviso_, dudaDePrecios());
  TARVO_TOMAR(alta_, motor_.guardar(oferta_, escritos));
  return {};
}

// The dates are kept for the next one.
void NvaOfr::aplicada() {
  const QString nombre = articulo_->nombre;
  auto* lista = qobject_cast<BrowOfer*>(contexto().ventanas.cargada<PuertaBrowOfer>());
  if (lista && !alta_.grupos.empty()) lista->apuntarAlta(nombre, alta_);
  haIdoBien(editar({.articulo = {}, .precios = {}, .desde = r.desde, .hasta = r.hasta}));
  if (alta_.grupos.empty()) return decirDuda(t(kTxOfertaEnNinguno));
  const QString bien = t(kTxOfertaGuardada, static_cast<int>(alta_.grupos.size())).arg(nombre);
  aviso_.isEmpty() ? decirBien(bien) : decirDuda(bien + u' ' + aviso_);
}

// A price far from the normal one. Without a normal price none is far from it; 0 has been asked
// about.
Resultado<QString> NvaOfr::dudaDePrecios() {
  TARVO_TOMAR(const auto normales, motor_.normales(de_.grupo, de_.seccion, articulo_->codigo));
  for (std::size_t n = 0; n < precios_.size(); ++n) {
    if (r.precios[n].value_or(0) == 0) continue;
    if (const auto aviso = avisoCambio(
            articulo_->nombre, t(kTxNivel + static_cast<int>(n)).trimmed(),
            normales ? (*normales)[n] : 0, *r.precios[n], contexto().ajustes, contexto().textos))
      return *aviso;
  }
  return QString();
}

}  // namespace tarvo::precios
