// Totals keyed in by hand.
#include "core/dinero/Dinero.h"
#include "core/textos/Textos.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/edicion/Tecleado.h"
#include "core/ventanas/marco/MyMsgBox.h"
#include "core/ventanas/marco/Tira.h"
#include "totals/ventanas/ComunTotales.h"
#include "totals/ventanas/EditIntvVentana.h"
#include "totals/ventanas/TextosTotalesVentanas.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;
using ventanas::Clase;

namespace {

constexpr int kCifrasPLU = 7;
constexpr qint64 kMayorPLU = 9'999'999;
constexpr qint64 kMayorNumero = 999'999'999'999;  // above it, sums of many could overflow

}  // namespace

void EditIntvVentana::montarManuales() {
  const auto importe = [this](const QString& texto) -> Leido {
    const int moneda = contexto().ajustes.MonedaNativa;
    TARVO_INTENTAR(ventanas::importeClaro(contexto(), texto, moneda));
    return LeerImporte(contexto().ajustes, texto, moneda);
  };
  const auto cantidad = [this](int cada) {
    return [this, cada](const QString& texto) -> Leido {
      TARVO_INTENTAR(ventanas::cantidadClara(contexto(), texto, cada));
      return LeerCantidad(contexto().ajustes.idioma, texto, cada);
    };
  };
  apartar(enlazarCampo(*ui_.txPLU, codigo(plu_, kCifrasPLU, 0, kMayorPLU)), renglon_);
  apartar(enlazarCampo(*ui_.txCon, contador(entrada_.c.CON, cantidad(2))), renglon_);
  apartar(enlazarCampo(*ui_.txPes, contador(entrada_.c.PES, cantidad(0))), renglon_);
  apartar(enlazarCampo(*ui_.txImp, contador(entrada_.c.IMP, importe)), renglon_);
  apartar(enlazarCampo(*ui_.txDct, contador(entrada_.c.SCO, importe)), renglon_);
  ventanas::llenar(*ui_.TpoTot, clasesDeTotal(contexto()));
  ventanas::Opciones horas;
  for (int hora = 0; hora < 24; ++hora) horas.push_back({hora, Ceros(hora, 2)});
  ventanas::llenar(*ui_.LstHora, horas);
  ui_.LstHora->setCurrentIndex(-1);
  ui_.AcumTot->setChecked(true);
  ui_.Anadir->setIcon(ventanas::icono(u"anadir"_s));
  ui_.Quitar->setIcon(ventanas::icono(u"quitar"_s));
  ui_.Manual->preparar(contexto(), nombre(),
                       {{.titulo = kTxTipoTotales, .campo = u"CLASE"_s, .ancho = 130},
                        {.titulo = ventanas::kTxGrupo,
                         .campo = u"GRUPO"_s,
                         .clase = Clase::Codigo,
                         .cifras = 4,
                         .ancho = 64},
                        {.titulo = ventanas::kTxCodigo, .campo = u"CODI"_s, .ancho = 80},
                        {.titulo = ventanas::kTxHora, .campo = u"HORA"_s, .ancho = 60},
                        {.titulo = kTxOp, .campo = u"CON"_s, .clase = Clase::Entero, .ancho = 70},
                        {.titulo = kTxPeso, .campo = u"PES"_s, .clase = Clase::Cantidad},
                        {.titulo = kTxImpte, .campo = u"IMP"_s, .clase = Clase::Importe},
                        {.titulo = kTxDesct, .campo = u"SCO"_s, .clase = Clase::Importe}});
  ui_.Manual->ponerMoneda(contexto().ajustes.MonedaNativa);
  ui_.Manual->ponerVacia(t(kTxManualVacio));
  ui_.Manual->ponerBusca(false);
  connect(ui_.TpoTot, &QComboBox::activated, this, &EditIntvVentana::claseCambiada);
  connect(ui_.LstGrupos, &QComboBox::currentIndexChanged, this, &EditIntvVentana::grupoCambiado);
  connect(ui_.Anadir, &QPushButton::clicked, this, &EditIntvVentana::anadir);
  connect(ui_.Quitar, &QPushButton::clicked, this, &EditIntvVentana::quitar);
  deshacer_ = new ventanas::Deshacer(*this);
}

// An empty field is zero.
ventanas::Modo EditIntvVentana::contador(qint64& donde,
                                         std::function<Leido(const QString&)> leer) const {
  return {.ver = [] { return QString(); },
          .poner = [this, &donde, leer = std::move(leer)](const QString& texto) -> Resultado<> {
            TARVO_TOMAR(const auto n, texto.trimmed().isEmpty() ? Leido(0) : leer(texto));
            if (!n || std::abs(*n) > kMayorNumero) return fallo(Fallo::Formato, t(kTxNumeroMalo));
            donde = *n;
            return {};
          }};
}

// Shows only the fields that identify a row of this kind.
void EditIntvVentana::claseCambiada() {
  const auto clase = deNumero<TipoTotal>(ui_.TpoTot->currentData().toInt());
  const bool plu = clase == TipoTotal::PLUs,
             oper = clase == TipoTotal::Operadores || clase == TipoTotal::OperHora,
             dep = clase == TipoTotal::Departamentos,
             hora = clase == TipoTotal::Horario || clase == TipoTotal::OperHora;
  ui_.rotuloPLU->setVisible(plu);
  ui_.txPLU->setVisible(plu);
  ui_.rotuloOper->setVisible(oper);
  ui_.LstOper->setVisible(oper);
  ui_.rotuloDep->setVisible(dep);
  ui_.LstDep->setVisible(dep);
  ui_.rotuloHora->setVisible(hora);
  ui_.LstHora->setVisible(hora);
  grupoCambiado();
}

int EditIntvVentana::seccionDelGrupo() {
  const auto s = contexto().nombres.seccionDe(ui_.LstGrupos->currentData().toInt());
  return haIdoBien(s) ? *s : 0;
}

void EditIntvVentana::grupoCambiado() {
  if (ui_.LstDep->isHidden()) return;
  haIdoBien(ventanas::llenar(*ui_.LstDep, contexto().nombres.departamentos(seccionDelGrupo()), 2));
  ui_.LstDep->setCurrentIndex(-1);
}

std::unexpected<Error> EditIntvVentana::faltaEntrada(int texto, QWidget& control) {
  control.setFocus();
  return fallo(Fallo::Restriccion, t(texto));
}

// The code; also sets the hour if the kind has one.
Resultado<qint64> EditIntvVentana::leerCodigo() {
  const QVariant oper = ui_.LstOper->currentData(), hora = ui_.LstHora->currentData(),
                 dep = ui_.LstDep->currentData();
  entrada_.hora = 0;
  switch (entrada_.clase) {
    case TipoTotal::GranTotal:
      return 0;
    case TipoTotal::PLUs: {
      TARVO_TOMAR(const auto hay, contexto().nombres.articulo(seccionDelGrupo(), plu_));
      if (plu_ <= 0 || !hay) return faltaEntrada(kTxFaltaPLU, *ui_.txPLU);
      return plu_;
    }
    case TipoTotal::Operadores:
      if (!oper.isValid()) return faltaEntrada(kTxFaltaOperador, *ui_.LstOper);
      return oper.toLongLong();
    case TipoTotal::Departamentos:
      if (!dep.isValid()) return faltaEntrada(kTxFaltaDepartamento, *ui_.LstDep);
      return dep.toLongLong();
    case TipoTotal::Horario:
      if (!hora.isValid()) return faltaEntrada(kTxFaltaHora, *ui_.LstHora);
      return hora.toLongLong();
    case TipoTotal::OperHora:
      if (!oper.isValid() || !hora.isValid())
        return faltaEntrada(kTxFaltaOperHora, oper.isValid() ? *ui_.LstHora : *ui_.LstOper);
      entrada_.hora = hora.toInt();
      return oper.toLongLong();
  }
  std::unreachable();
}

Resultado<> EditIntvVentana::leerEntrada() {
  const auto clase = deNumero<TipoTotal>(ui_.TpoTot->currentData().toInt());
  if (!clase) return faltaEntrada(kTxFaltaClase, *ui_.TpoTot);
  entrada_.clase = *clase;
  if (!ui_.LstGrupos->currentData().isValid()) return faltaEntrada(kTxFaltaGrupo, *ui_.LstGrupos);
  entrada_.grupo = ui_.LstGrupos->currentData().toInt();
  if (const auto leido = renglon_.leer(); !leido) return fallo(Fallo::Formato, leido.error().texto);
  TARVO_TOMAR(entrada_.codi, leerCodigo());
  if (!entrada_.c.cero()) return {};
  ui_.txCon->setFocus();
  return fallo(Fallo::Formato, t(kTxTodoCeros));
}

// A missing choice is reported in a box; an invalid number in the strip, and beside its field.
bool EditIntvVentana::anadir() {
  if (const auto leida = leerEntrada(); !leida) {
    if (leida.error().clase == Fallo::Restriccion)
      ventanas::MyMsgBox::Decide(this, contexto().textos, leida.error().texto,
                                 ventanas::kSoloAcepto | ventanas::kExclamacion);
    else
      decirDuda(leida.error().texto);
    aviso_ = tira().veces();
    return false;
  }
  if (aviso_ == tira().veces()) tira().quitar();  // it referred to what has been corrected
  if (ui_.SubsTot->isChecked()) entrada_.c = -entrada_.c;
  r.entradas.push_back(entrada_);
  vaciarEntrada();
  pintarEntradas();
  (ui_.txPLU->isVisible() ? ui_.txPLU : ui_.txCon)->setFocus();
  return true;
}

void EditIntvVentana::vaciarEntrada() {
  entrada_ = {};
  plu_ = 0;
  renglon_.mostrar();
}

void EditIntvVentana::quitar() {
  const int fila = ui_.Manual->filaActual();
  if (fila < 0) return;
  const auto cual = r.entradas.begin() + (ui_.Manual->clave(fila) - 1);
  deshacer_->apuntar(t(kTxQueQuitar), [this, e = *cual]() -> Resultado<ventanas::Deshacer::Vuelto> {
    r.entradas.push_back(e);
    pintarEntradas();
    return ventanas::Deshacer::Vuelto();
  });
  r.entradas.erase(cual);
  pintarEntradas();
}

void EditIntvVentana::pintarEntradas() {
  std::vector<ventanas::FilaViva> filas;
  filas.reserve(r.entradas.size());
  for (const EntradaManual& e : r.entradas)
    filas.push_back(
        {static_cast<qint64>(filas.size()) + 1,
         {nombreClase(contexto().textos, e.clase), e.grupo, Ceros(e.codi, cifrasCodigo(e.clase)),
          e.clase == TipoTotal::OperHora ? Ceros(e.hora, 2) : QString(), e.c.CON, e.c.PES, e.c.IMP,
          e.c.SCO}});
  ui_.Manual->vivas().poner(std::move(filas));
}

}  // namespace tarvo::totals
