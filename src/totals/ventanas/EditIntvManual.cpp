// Totals keyed in by hand, and the form's own set-up.
#include <QLocale>

#include "core/dinero/Dinero.h"
#include "core/textos/Textos.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/marco/MyMsgBox.h"
#include "totals/ventanas/ComunTotales.h"
#include "totals/ventanas/EditIntvVentana.h"
#include "totals/ventanas/TextosTotalesVentanas.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;
using ventanas::Clase;

namespace {

constexpr qint64 kMayorNumero = 999'999'999'999;  // above it sums of many could overflow

}  // namespace

void EditIntvVentana::montar() {
  ventanas::llenar(*ui_.LstTipo, tiposDePeriodo());
  enlazarCampo(*ui_.LstTipo, r.tipo);
  enlazarCampo(*ui_.Fecha1, momento(r.desde, false));
  hasta_ = &enlazarCampo(*ui_.FechaF, momento(r.hasta, true));
  for (int mes = 1; mes <= 12; ++mes)
    ui_.LstMes->addItem(QLocale(QLocale::Spanish).standaloneMonthName(mes));
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
  connect(ui_.LstTipo, &QComboBox::activated, this, &EditIntvVentana::tipoCambiado);
  connect(ui_.LstMes, &QComboBox::activated, this, &EditIntvVentana::mesCambiado);
  connect(ui_.spAno, &QSpinBox::valueChanged, this, &EditIntvVentana::mesCambiado);
  for (QLineEdit* campo : {ui_.Fecha1, ui_.FechaF})
    connect(campo, &QLineEdit::textEdited, this, &EditIntvVentana::pintarLimites);
  connect(ui_.TpoTot, &QComboBox::activated, this, &EditIntvVentana::claseCambiada);
  connect(ui_.LstGrupos, &QComboBox::currentIndexChanged, this, &EditIntvVentana::grupoCambiado);
  connect(ui_.Anadir, &QPushButton::clicked, this, &EditIntvVentana::anadir);
  connect(ui_.Quitar, &QPushButton::clicked, this, &EditIntvVentana::quitar);
}

// Only what names a row of this kind is asked for.
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

std::optional<EntradaManual> EditIntvVentana::faltaEntrada(int texto, QWidget& control) {
  ventanas::MyMsgBox::Decide(this, contexto().textos, t(texto),
                             ventanas::kSoloAcepto | ventanas::kExclamacion);
  control.setFocus();
  return std::nullopt;
}

// The code, and the hour where the kind has one; nothing after the sentence that says what is
// missing.
std::optional<qint64> EditIntvVentana::leerCodigo(EntradaManual& e) {
  const auto falta = [this](int texto, QWidget& control) -> std::optional<qint64> {
    faltaEntrada(texto, control);
    return std::nullopt;
  };
  const QVariant oper = ui_.LstOper->currentData(), hora = ui_.LstHora->currentData();
  switch (e.clase) {
    case TipoTotal::GranTotal:
      return 0;
    case TipoTotal::PLUs: {
      const qint64 plu = ui_.txPLU->text().trimmed().toLongLong();
      const auto hay = contexto().nombres.articulo(seccionDelGrupo(), plu);
      if (!haIdoBien(hay)) return std::nullopt;
      return plu > 0 && hay->has_value() ? std::optional(plu) : falta(kTxFaltaPLU, *ui_.txPLU);
    }
    case TipoTotal::Operadores:
      return oper.isValid() ? std::optional(oper.toLongLong())
                            : falta(kTxFaltaOperador, *ui_.LstOper);
    case TipoTotal::Departamentos:
      return ui_.LstDep->currentData().isValid()
                 ? std::optional(ui_.LstDep->currentData().toLongLong())
                 : falta(kTxFaltaDepartamento, *ui_.LstDep);
    case TipoTotal::Horario:
      return hora.isValid() ? std::optional(hora.toLongLong()) : falta(kTxFaltaHora, *ui_.LstHora);
    case TipoTotal::OperHora:
      e.hora = hora.toInt();
      return oper.isValid() && hora.isValid() ? std::optional(oper.toLongLong())
                                              : falta(kTxFaltaOperHora, *ui_.LstOper);
  }
  std::unreachable();
}

std::optional<EntradaManual> EditIntvVentana::leerEntrada() {
  EntradaManual e;
  const auto clase = deNumero<TipoTotal>(ui_.TpoTot->currentData().toInt());
  if (!clase) return faltaEntrada(kTxFaltaClase, *ui_.TpoTot);
  e.clase = *clase;
  if (!ui_.LstGrupos->currentData().isValid()) return faltaEntrada(kTxFaltaGrupo, *ui_.LstGrupos);
  e.grupo = ui_.LstGrupos->currentData().toInt();
  const auto codigo = leerCodigo(e);
  if (!codigo) return std::nullopt;
  e.codi = *codigo;
  const auto numeros = leerNumeros();
  if (!numeros) return std::nullopt;
  e.c = *numeros;
  return e;
}

// The four numbers with their sign, an empty field as zero; nothing, and the field marked, for one
// that is none.
std::optional<Contadores> EditIntvVentana::leerNumeros() {
  const int signo = ui_.AcumTot->isChecked() ? 1 : -1, moneda = contexto().ajustes.MonedaNativa;
  const auto importe = [&](const QString& texto) {
    return LeerImporte(contexto().ajustes, texto, moneda);
  };
  const auto cantidad = [](int cada) {
    return [cada](const QString& texto) { return LeerCantidad(texto, cada); };
  };
  QLineEdit* malo = nullptr;
  const auto leer = [&](QLineEdit& campo, const auto& lector) {
    const QString texto = campo.text().trimmed();
    auto n = texto.isEmpty() ? std::optional<qint64>(0) : lector(texto);
    if (n && std::abs(*n) > kMayorNumero) n.reset();
    campo.setProperty("falta", !n);
    campo.update();
    if (!n && !malo) malo = &campo;
    return signo * n.value_or(0);
  };
  const Contadores c{leer(*ui_.txCon, cantidad(2)), leer(*ui_.txPes, cantidad(0)),
                     leer(*ui_.txImp, importe), leer(*ui_.txDct, importe)};
  if (!malo) return c;
  malo->setFocus();
  decirDuda(t(kTxNumeroMalo));
  return std::nullopt;
}

bool EditIntvVentana::hayEscrito() const {
  return std::ranges::any_of(std::array{ui_.txPLU, ui_.txCon, ui_.txPes, ui_.txImp, ui_.txDct},
                             [](const QLineEdit* c) { return !c->text().trimmed().isEmpty(); });
}

bool EditIntvVentana::anadir() {
  const auto e = leerEntrada();
  if (!e) return false;
  if (e->c.cero()) {
    decirDuda(t(kTxTodoCeros));
    return false;
  }
  r.entradas.push_back(*e);
  for (QLineEdit* campo : {ui_.txPLU, ui_.txCon, ui_.txPes, ui_.txImp, ui_.txDct}) campo->clear();
  pintarEntradas();
  (ui_.txPLU->isVisible() ? ui_.txPLU : ui_.txCon)->setFocus();
  return true;
}

void EditIntvVentana::quitar() {
  const int fila = ui_.Manual->filaActual();
  if (fila < 0) return;
  r.entradas.erase(r.entradas.begin() + (ui_.Manual->clave(fila) - 1));
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
