#include "groups/ventanas/EdOpsGpo.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QTableView>

#include "articles/ventanas/Puertas.h"
#include "core/ventanas/parrilla/Parrilla.h"
#include "devices/Modelos.h"

namespace tarvo::groups {

using namespace Qt::StringLiterals;
using namespace ventanas;

EdOpsGpo::EdOpsGpo(Contexto& contexto, const QString& nombre) : FichaDe(contexto, nombre) {
  auto f = formulario(kTxTituloOps);
  GrdOps_ = f.parrilla(kTxPuestos, u"GrdOps"_s, 1);
  LstOpe_ = new QComboBox(cuerpo());
  f.fila(kTxOperadorDelPuesto, LstOpe_, u"LstOpe"_s);
  aprende_ = f.ancho(new QCheckBox(t(kTxAprende)), u"imgSI"_s);
  auto* buscar = f.boton(kTxBuscarOperador, u"Buscar"_s, [this] { elegirOtro(); });
  auto* todos = f.boton(kTxVerOperadores, u"CmdOpera"_s, [this] { verOperadores(); });
  f.enLinea({buscar, todos, nullptr});
  acabar({520, 560}, {.textoAcepto = ventanas::kTxGuardar});
  GrdOps_->preparar(
      contexto, nombre,
      {{.titulo = kTxPuesto, .campo = u"puesto"_s, .clase = Clase::Entero, .ancho = 70},
       {.titulo = ventanas::kTxCodigo,
        .campo = u"codigo"_s,
        .clase = Clase::Codigo,
        .cifras = 4,
        .editar = [this](qint64 n, const QString& s) { return poner(static_cast<int>(n), s); }},
       {.titulo = ventanas::kTxNombre, .campo = u"nombre"_s, .ancho = 200},
       {.titulo = kTxAprendeTitulo, .campo = u"aprende"_s, .clase = Clase::SiNo, .ancho = 90}});
  GrdOps_->ponerBusca(false);
  GrdOps_->ponerPie(false);
  GrdOps_->ponerUnaSola(true);
  GrdOps_->ponerEscribeAlTeclear(true);
  GrdOps_->bajarTrasIntro();
  GrdOps_->vivas();
  connect(GrdOps_, &Parrilla::actualCambiada, this, [this] { mostrarPuesto(); });
  connect(GrdOps_, &Parrilla::fallo, this, &Ventana::decirPendiente);
  connect(GrdOps_, &Parrilla::resuelto, this, &Ventana::resuelto);
  connect(LstOpe_, &QComboBox::activated, this,
          [this] { haIdoBien(poner(puesto(), QString::number(elegido(*LstOpe_)))); });
  connect(aprende_, &QCheckBox::clicked, this, [this](bool si) {
    r.Training(puesto(), si);
    pintar();
  });
}

Resultado<> EdOpsGpo::entrar(const PuertaEdOpsGpo& puerta) {
  setWindowTitle(tituloDe(*this, kTxTituloOps, puerta.nombre, 0));
  alDia_ = puerta.alDia;
  TARVO_INTENTAR(leerOperadores());
  TARVO_INTENTAR(editar(puerta.grupo));
  GrdOps_->vista()->setColumnHidden(3, r.SonCes());
  aprende_->setVisible(!r.SonCes());
  pintar();
  GrdOps_->vista()->setCurrentIndex(GrdOps_->modelo()->index(0, 1));
  mostrarPuesto();
  GrdOps_->vista()->setFocus();
  return {};
}

int EdOpsGpo::puesto() const {
  const int fila = GrdOps_->filaActual();
  return fila < 0 ? 0 : static_cast<int>(GrdOps_->clave(fila));
}

Resultado<> EdOpsGpo::leerOperadores() {
  TARVO_TOMAR(const auto todos, contexto().nombres.operadores());
  nombres_.clear();
  Opciones opciones{{0, t(kTxNinguno)}};
  for (const CodigoNombre& o : todos) {
    nombres_[static_cast<int>(o.codigo)] = o.nombre;
    opciones.push_back({o.codigo, Ceros(o.codigo, 4) + u"  "_s + o.nombre});
  }
  llenar(*LstOpe_, opciones);
  return {};
}

// An empty code, or 0, empties the place.
Resultado<> EdOpsGpo::poner(int puesto, const QString& texto) {
  bool numero = false;
  const int codigo = texto.trimmed().toInt(&numero);
  if (!texto.trimmed().isEmpty() && (!numero || (codigo > 0 && !nombres_.contains(codigo))))
    return fallo(Fallo::Formato, t(kTxSinEseOperador).arg(texto.trimmed()));
  TARVO_INTENTAR(r.CodOperador(puesto, codigo));
  pintar();
  mostrarPuesto();
  return {};
}

void EdOpsGpo::pintar() {
  std::vector<FilaViva> filas;
  for (int n = 1; n <= devices::MaxOperadores(r.tipo()); ++n) {
    const int codigo = r.CodOperador(n);
    const auto suyo = nombres_.find(codigo);
    const QString nombre = codigo == 0              ? QString()
                           : suyo == nombres_.end() ? t(kTxOperadorQueFalta)
                                                    : suyo->second;
    filas.push_back({n,
                     {n, codigo == 0 ? dao::Valor() : dao::Valor(codigo), nombre,
                      codigo == 0 ? dao::Valor() : dao::Valor(r.Training(n))}});
  }
  GrdOps_->vivas().poner(std::move(filas));
}

void EdOpsGpo::mostrarPuesto() {
  const int n = puesto();
  LstOpe_->setEnabled(n > 0);
  aprende_->setEnabled(n > 0 && r.CodOperador(n) > 0);
  if (n == 0) return;
  elegir(*LstOpe_, r.CodOperador(n));
  aprende_->setChecked(r.Training(n));
}

void EdOpsGpo::elegirOtro() {
  const int n = puesto();
  if (const auto codigo = preguntar(articles::PuertaSelOpe{}); codigo && n > 0)
    haIdoBien(poner(n, QString::number(*codigo)));
}

// In front of this sheet, which shows afterwards what was changed there: a place of an operator who
// was deleted is empty, one with a new code has it.
void EdOpsGpo::verOperadores() {
  preguntar(articles::PuertaBrowOper{});
  if (!haIdoBien(leerOperadores()) || (alDia_ && !haIdoBien(alDia_(r)))) return;
  pintar();
  mostrarPuesto();
}

}  // namespace tarvo::groups
