// The actions on the selected periods: questions, steps, results, and how to undo them.
#include <QMenu>
#include <QToolButton>
#include <algorithm>
#include <ranges>

#include "core/textos/Textos.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/edicion/Ordenes.h"
#include "core/ventanas/marco/Alcance.h"
#include "core/ventanas/marco/MyMsgBox.h"
#include "core/ventanas/marco/Tira.h"
#include "totals/periodos/Sumas.h"
#include "totals/ventanas/Puertas.h"
#include "totals/ventanas/TextosTotalesVentanas.h"
#include "totals/ventanas/VerTotVentana.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;
using ventanas::kAceptoCancelo;
using ventanas::kExclamacion;
using ventanas::kPrudente;
using ventanas::kSoloAcepto;
using ventanas::MyMsgBox;

namespace {

constexpr qsizetype kDebidosALaVista = 6;
constexpr size_t kParesNombrados = 8;  // in a question

// Each larger period once.
QString textoMayores(const std::vector<Acumulacion>& hechas) {
  std::vector<Periodo> mayores;
  for (const Acumulacion& a : hechas)
    if (std::ranges::find(mayores, a.mayor) == mayores.end()) mayores.push_back(a.mayor);
  return TextoPeriodos(mayores);
}

std::vector<qint64> linksDe(const std::vector<Acumulacion>& hechas) {
  std::vector<qint64> links;
  links.reserve(hechas.size());
  for (const Acumulacion& a : hechas) links.push_back(a.link);
  return links;
}

}  // namespace

void VerTotVentana::montarMenus() {
  mnuAcu_ = new QMenu(this);
  mnuAcu_->setObjectName(u"MnuAcu"_s);
  mnDesAcu_ = new QMenu(this);
  mnDesAcu_->setObjectName(u"MnDesAcu"_s);
  mnuVer_ = new QMenu(this);
  mnuVer_->setObjectName(u"MnuVer"_s);
  for (const auto& [tipo, texto] :
       {std::pair{kSemanal, kTxMenuSemanal}, {kMensual, kTxMenuMensual}, {kAnual, kTxMenuAnual}}) {
    QAction* a = mnuAcu_->addAction(t(texto), this, [this, tipo] { acumular(tipo); });
    a->setData(tipo);
    mnDesAcu_->addAction(t(texto), this, [this, tipo] { desacumular(tipo); });
  }
  for (const TipoTotal clase :
       {TipoTotal::GranTotal, TipoTotal::PLUs, TipoTotal::Operadores, TipoTotal::Departamentos,
        TipoTotal::Horario, TipoTotal::OperHora}) {
    QAction* a = mnuVer_->addAction(nombreClase(contexto().textos, clase), this,
                                    [this, clase] { VerIntervalo(clase); });
    a->setVisible(clase != TipoTotal::OperHora || contexto().ajustes.EsEspanol());
  }
  for (QMenu* m : {mnuAcu_, mnDesAcu_, mnuVer_}) ventanas::ponerLetras(*m);
  ui_.acumule->setMenu(mnuAcu_);
  ui_.DesAcum->setMenu(mnDesAcu_);
  ui_.VerCosa->setMenu(mnuVer_);
  for (QAction* a : {ui_.acumule, ui_.DesAcum, ui_.VerCosa}) {
    QToolBar* barra = a == ui_.VerCosa ? ui_.barra : ui_.barra2;
    auto* b = qobject_cast<QToolButton*>(barra->widgetForAction(a));
    if (b) b->setPopupMode(QToolButton::InstantPopup);
    // The shortcut opens the menu below its button.
    connect(a, &QAction::triggered, this,
            [a, barra] { ventanas::desplegar(*a->menu(), ventanas::bajo(*barra, *a)); });
  }
}

void VerTotVentana::montarAcciones() {
  const std::pair<QAction*, QString> iconos[] = {
      {ui_.NuevoIV, u"anadir"_s},    {ui_.Modifo, u"modificar"_s}, {ui_.Borro, u"borrar"_s},
      {ui_.Vacio, u"quitar"_s},      {ui_.acumule, u"acumular"_s}, {ui_.DesAcum, u"bajar"_s},
      {ui_.SumaCol, u"sumar"_s},     {ui_.StockAR, u"almacen"_s},  {ui_.DesStock, u"subir"_s},
      {ui_.VerCosa, u"totales"_s},   {ui_.Import, u"importar"_s},  {ui_.Exportar, u"exportar"_s},
      {ui_.VerGrafica, u"grafica"_s}};
  for (const auto& [accion, dibujo] : iconos) accion->setIcon(ventanas::icono(dibujo));
  const std::pair<QAction*, QKeySequence> teclas[] = {{ui_.VerCosa, Qt::Key_F4},
                                                      {ui_.NuevoIV, Qt::Key_Insert},
                                                      {ui_.Modifo, Qt::Key_F2},
                                                      {ui_.Borro, Qt::Key_Delete},
                                                      {ui_.Vacio, Qt::CTRL | Qt::Key_Delete},
                                                      {ui_.acumule, Qt::Key_F6},
                                                      {ui_.DesAcum, Qt::SHIFT | Qt::Key_F6},
                                                      {ui_.SumaCol, Qt::Key_F7},
                                                      {ui_.StockAR, Qt::Key_F8},
                                                      {ui_.DesStock, Qt::SHIFT | Qt::Key_F8},
                                                      {ui_.Import, Qt::CTRL | Qt::Key_O},
                                                      {ui_.Exportar, Qt::CTRL | Qt::Key_S},
                                                      {ui_.VerGrafica, Qt::CTRL | Qt::Key_G}};
  for (const auto& [accion, tecla] : teclas) accion->setShortcut(tecla);
  connect(ui_.NuevoIV, &QAction::triggered, this, [this] { editar(true); });
  connect(ui_.Modifo, &QAction::triggered, this, [this] { editar(false); });
  connect(ui_.Borro, &QAction::triggered, this, [this] { borrar(false); });
  connect(ui_.Vacio, &QAction::triggered, this, [this] { borrar(true); });
  connect(ui_.SumaCol, &QAction::triggered, this, &VerTotVentana::sumar);
  connect(ui_.StockAR, &QAction::triggered, this, [this] { descontar(false); });
  connect(ui_.DesStock, &QAction::triggered, this, [this] { descontar(true); });
  connect(ui_.Import, &QAction::triggered, this, &VerTotVentana::importar);
  connect(ui_.Exportar, &QAction::triggered, this, &VerTotVentana::exportar);
  ui_.Grid->ponerAcciones({ui_.VerCosa, ui_.NuevoIV, ui_.Modifo, ui_.Borro, ui_.Vacio, ui_.acumule,
                           ui_.DesAcum, ui_.SumaCol, ui_.StockAR, ui_.DesStock, ui_.Exportar,
                           ui_.Deshacer});
}

// The strip has an undo button while there is anything to undo.
void VerTotVentana::montarDeshacer() {
  deshacer_ = new ventanas::Deshacer(*this, ui_.Deshacer);
  auto* boton = new QToolButton(this);
  boton->setObjectName(u"deshacer"_s);
  ventanas::seguirAccion(*boton, *ui_.Deshacer);
  boton->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  const auto seguir = [this, boton] { boton->setVisible(ui_.Deshacer->isEnabled()); };
  tira().ponerBoton(boton);
  connect(ui_.Deshacer, &QAction::changed, boton, seguir);
  seguir();
}

// The selected rows; if there are none, the current row, which gets selected.
std::vector<qint64> VerTotVentana::elegidos() {
  std::vector<qint64> links;
  for (const int fila : ui_.Grid->filasParaActuar()) links.push_back(ui_.Grid->clave(fila));
  return links;
}

std::optional<Resumen> VerTotVentana::resumenDe(const std::vector<qint64>& links) {
  const auto r = resumir(p_, links);
  if (!haIdoBien(r)) return std::nullopt;
  return *r;
}

void VerTotVentana::porPasos(const QString& que, std::vector<qint64> links, Pasos paso,
                             std::function<void(Cuentas)> alFinal) {
  const auto cuentas = std::make_shared<Cuentas>();
  const auto total = static_cast<qint64>(links.size());
  const auto uno = [=, links = std::move(links)](qint64 i) -> Resultado<> {
    TARVO_TOMAR(const auto hecho, paso(links[static_cast<size_t>(i)]));
    ++(hecho ? cuentas->bien : cuentas->mal);
    return {};
  };
  ventanas::trabajar(*this, nullptr,
                     {.que = que,
                      .total = total,
                      .paso = uno,
                      .acabar =
                          [=, this](const ventanas::Faena::Fin&) {
                            ui_.Grid->limpiarSeleccion();
                            refrescar();
                            ui_.Grid->setFocus();
                            alFinal(*cuentas);
                          },
                      .parado = [=, this] { return t(kTxParadoEn, cuentas->bien).arg(total); },
                      .quietos = {ui_.barra, ui_.barra2, ui_.Grid}});
}

void VerTotVentana::decirCuentas(const QString& bien, int textoMal, Cuentas cuentas) {
  if (cuentas.mal > 0)
    return decirDuda((cuentas.bien > 0 ? bien + u". "_s : QString()) + t(textoMal, cuentas.mal));
  if (cuentas.bien > 0) decirBien(bien);
}

// --- undo

// A step whose place is taken stays, and can be undone once that is free; any other failed one is
// dropped.
void VerTotVentana::apuntar(const Vuelta& v) {
  using Vuelto = ventanas::Deshacer::Vuelto;
  deshacer_->apuntar(v.que, [this, v]() -> Resultado<Vuelto> {
    const auto hecho = v.hacer();
    if (!hecho && hecho.error().clase == Fallo::Duplicado) {
      decirFallo(hecho.error());
      return Vuelto{.queda = true};
    }
    TARVO_INTENTAR(hecho);
    refrescar();
    if (!v.vuelven.empty()) {
      elegirPeriodo(v.vuelven.front());
      ui_.Grid->elegir(v.vuelven, true);
    }
    return Vuelto{v.duda, !v.duda.isEmpty()};
  });
}

// --- deletion

// What nights still owe of the periods and will not be done without them; empty if nothing.
std::optional<QString> VerTotVentana::loQueSeDebe(const std::vector<qint64>& links) {
  QStringList lineas;
  for (const qint64 link : links) {
    const auto suyas = p_.debidosDe(link);
    if (!haIdoBien(suyas)) return std::nullopt;
    lineas += *suyas;
  }
  if (lineas.isEmpty()) return QString();
  const auto demas = lineas.size() - kDebidosALaVista;
  lineas = lineas.mid(0, kDebidosALaVista);
  if (demas > 0) lineas += u"... +%1"_s.arg(demas);
  return u"\n\n"_s + t(kTxSePerderaLoDebido) + u'\n' + lineas.join(u'\n');
}

// The periods by name, if they are few.
QString VerTotVentana::nombresDe(const std::vector<qint64>& links) {
  if (links.size() > kParesNombrados) return {};
  std::vector<Periodo> suyos;
  for (const qint64 link : links)
    if (const auto c = p_.columna(link); c && *c) suyos.push_back((*c)->periodo);
  return suyos.empty() ? QString() : TextoPeriodos(suyos) + u": "_s;
}

void VerTotVentana::borrar(bool soloFilas) {
  const auto links = elegidos();
  const auto que = links.empty() ? std::nullopt : resumenDe(links);
  if (!que) return;
  const int cuantos = static_cast<int>(links.size());
  const QString pregunta =
      t(soloFilas ? kTxVaciara : kTxBorrara, cuantos) + u'\n' + t(kTxSonValiosos);
  const auto debidos = loQueSeDebe(links);
  const auto sinCero = p_.gruposSinCero(links);
  if (!debidos || !haIdoBien(sinCero)) return;
  const QString noVuelve =
      sinCero->isEmpty() ? QString() : u"\n\n"_s + t(kTxNoVuelveARecogerse).arg(*sinCero);
  const QString cuales = nombresDe(links);
  if (!MyMsgBox::Decide(this, contexto().textos,
                        pregunta + u"\n\n"_s + cuales + textoResumen(*this, *que) + u". "_s +
                            t(kTxSePuedeDeshacer) + noVuelve + *debidos,
                        kAceptoCancelo | kExclamacion |
                            (debidos->isEmpty() && noVuelve.isEmpty() ? 0 : kPrudente)))
    return;
  const auto lote = papelera_.nuevoLote();
  if (!haIdoBien(lote)) return;
  const qint64 n = *lote;
  porPasos(
      t(soloFilas ? kTxVaciando : kTxBorrando), links,
      [=, this](qint64 link) {
        if (!soloFilas) cerrarVisores(link);
        return soloFilas ? papelera_.vaciar(n, link) : papelera_.tirar(n, link);
      },
      [=, this](Cuentas cuentas) {
        if (cuentas.bien > 0)
          apuntar({t(soloFilas ? kTxQueVaciar : kTxQueBorrar, cuentas.bien),
                   [this, n]() -> Resultado<> {
                     TARVO_INTENTAR(papelera_.restaurar(n));
                     return {};
                   },
                   links});
        decirCuentas(t(soloFilas ? kTxVaciados : kTxBorrados, cuentas.bien), kTxNoBorrados,
                     cuentas);
      });
}

// --- sums

// All is asked before anything is done; false to leave everything as it was.
bool VerTotVentana::acumularConformes(const std::vector<qint64>& links, int tipo) {
  const auto prevision = motor_.preverAcumular(links, tipo);
  if (!haIdoBien(prevision)) return false;
  if (!prevision->ya.empty()) {
    const bool todos = prevision->ya.size() == links.size();
    MyMsgBox::Decide(this, contexto().textos,
                     t(kTxYaSeAcumulo) +
                         (links.size() > 1 ? u"\n\n"_s + TextoPeriodos(prevision->ya) : QString()),
                     kSoloAcepto | kExclamacion);
    if (todos) return false;
  }
  if (prevision->relacionados.empty()) return true;
  QStringList pares;
  for (const VerTot::Solape& s : prevision->relacionados | std::views::take(kParesNombrados))
    pares << t(kTxRepiteVentas)
                 .arg(TextoPeriodo(s.uno).simplified(), TextoPeriodo(s.otro).simplified());
  if (const size_t n = prevision->relacionados.size(); n > kParesNombrados)
    pares << t(kTxYMas).arg(static_cast<int>(n - kParesNombrados));
  const bool sigue = MyMsgBox::Decide(this, contexto().textos,
                                      t(kTxExisteRelacionado) + u"\n\n"_s + pares.join(u'\n'),
                                      kAceptoCancelo | kExclamacion);
  if (!sigue) decirPista(t(kTxNadaAcumulado));
  return sigue;
}

Resultado<bool> VerTotVentana::acumularUno(qint64 link, int tipo,
                                           std::vector<Acumulacion>& hechas) {
  TARVO_TOMAR(const auto c, p_.columna(link));
  if (!c) return false;
  TARVO_TOMAR(const auto hecha, Acumulaciones(p_).acumular(tipo, *c));
  if (hecha) hechas.push_back(*hecha);
  return hecha.has_value();
}

void VerTotVentana::acumular(int tipo) {
  const auto links = elegidos();
  if (links.empty() || !acumularConformes(links, tipo)) return;
  const auto hechas = std::make_shared<std::vector<Acumulacion>>();
  porPasos(
      t(kTxAcumulando), links, [=, this](qint64 link) { return acumularUno(link, tipo, *hechas); },
      [=, this](Cuentas c) { acumulados(*hechas, c); });
}

// Reports where they were added, and notes how to undo it.
void VerTotVentana::acumulados(const std::vector<Acumulacion>& hechas, Cuentas cuentas) {
  const QString que = t(kTxQueAcumular, cuentas.bien).arg(textoMayores(hechas));
  const bool anterior = std::ranges::any_of(hechas, &Acumulacion::anterior);
  if (!hechas.empty())
    apuntar({que, [=, this] { return Acumulaciones(p_).deshacerAcumular(hechas); }, linksDe(hechas),
             anterior ? t(kTxAnteriorNoVuelve).arg(que) : QString()});
  decirCuentas(t(kTxAcumulados, cuentas.bien).arg(textoMayores(hechas)), kTxNoAcumulados, cuentas);
}

void VerTotVentana::desacumular(int tipo) {
  const auto links = elegidos();
  if (links.empty()) return;
  const auto hechas = std::make_shared<std::vector<Acumulacion>>();
  porPasos(
      t(kTxDesacumulando), links,
      [=, this](qint64 link) -> Resultado<bool> {
        TARVO_TOMAR(const auto c, p_.columna(link));
        if (!c) return false;
        TARVO_TOMAR(const auto hecha, Acumulaciones(p_).desacumular(tipo, *c));
        if (hecha) hechas->push_back(*hecha);
        return hecha.has_value();
      },
      [=, this](Cuentas c) {
        const QString mayores = textoMayores(*hechas);
        if (!hechas->empty())
          apuntar({t(kTxQueDesacumular, c.bien).arg(mayores),
                   [=, this] { return Acumulaciones(p_).deshacerDesacumular(*hechas); },
                   linksDe(*hechas)});
        decirCuentas(t(kTxDesacumulados, c.bien).arg(mayores), kTxNoDesacumulados, c);
      });
}

void VerTotVentana::sumar() {
  const auto links = elegidos();
  if (links.empty()) {
    MyMsgBox::Decide(this, contexto().textos, t(kTxSinSeleccion), kSoloAcepto);
    return;
  }
  motor_.ponerSeleccion(links);
  const auto suma = motor_.destinoDeSuma();
  motor_.ClrSelec();
  if (!haIdoBien(suma)) return;
  if (*suma && (*suma)->sumandos == 0) return decirDuda(t(kTxNadaQueSumar));
  if (!preguntar(PuertaConfirSum{links})) return;
  sumarEn(links, !*suma || !(*suma)->existente);
}

void VerTotVentana::sumarEn(const std::vector<qint64>& links, bool nuevo) {
  const auto lote = papelera_.nuevoLote();
  if (!haIdoBien(lote)) return;
  QApplication::setOverrideCursor(Qt::WaitCursor);
  motor_.ponerSeleccion(links);
  const auto suma = motor_.destinoDeSuma();
  const auto hecho = motor_.SumarIntv(*lote);
  motor_.ClrSelec();
  QApplication::restoreOverrideCursor();
  refrescar();
  if (!haIdoBien(suma) || !haIdoBien(hecho)) return;
  if (!*hecho || !*suma || !(*suma)->existente) return decirDuda(t(kTxNoSumados));
  const qint64 total = (*suma)->existente->LINK;
  apuntar({t(kTxQueSumar, (*suma)->sumandos),
           [this, total, nuevo, n = *lote] { return Sumas(p_).deshacer(total, n, nuevo); }});
  elegirPeriodo(total);
  decirBien(t(kTxSumados, (*suma)->sumandos));
}

// --- stock

void VerTotVentana::descontar(bool deshacer) {
  const auto links = elegidos();
  if (links.empty()) {
    MyMsgBox::Decide(this, contexto().textos, t(kTxSinSeleccion), kSoloAcepto | kExclamacion);
    return;
  }
  const auto que = resumenDe(links);
  if (!que) return;
  std::vector<Periodo> dobles;
  if (!deshacer) {
    const auto ya = motor_.yaEnStock(links);
    if (!haIdoBien(ya)) return;
    for (const VerTot::Solape& s : *ya) dobles.push_back(s.uno);
  }
  QString pregunta = t(deshacer ? kTxVanAIncorporar : kTxVanADescontar) + u'\n' + t(kTxEsoDesea) +
                     u"\n\n"_s + t(kTxNPeriodos, que->periodos) + u": "_s +
                     textoResumen(*this, *que) + u'.';
  if (!dobles.empty())
    pregunta += u"\n\n"_s + t(kTxSeDescontaranDosVeces).arg(TextoPeriodos(dobles));
  if (!MyMsgBox::Decide(
          this, contexto().textos, pregunta,
          dobles.empty() ? kAceptoCancelo : kAceptoCancelo | kExclamacion | kPrudente))
    return;
  const auto hechos = std::make_shared<std::vector<qint64>>();
  porPasos(
      t(deshacer ? kTxIncorporando : kTxDescontando), links,
      [=, this](qint64 link) { return descontarUno(link, deshacer, *hechos); },
      [=, this](Cuentas c) {
        if (c.bien > 0)
          apuntar({t(deshacer ? kTxQueIncorporar : kTxQueDescontar, c.bien),
                   [=, this] { return desdescontar(*hechos, !deshacer); }, *hechos});
        decirCuentas(t(deshacer ? kTxIncorporados : kTxDescontados, c.bien),
                     deshacer ? kTxNoIncorporados : kTxNoDescontados, c);
      });
}

// Skips periods deleted, replaced or moved meanwhile; NoExiste if all were.
Resultado<> VerTotVentana::desdescontar(const std::vector<qint64>& links, bool deshacer) {
  TARVO_TOMAR(const auto cuantos, p_.DescontarVarios(links, deshacer));
  if (cuantos == 0) return fallo(Fallo::NoExiste, t(kTxYaNoEstan));
  return {};
}

Resultado<bool> VerTotVentana::descontarUno(qint64 link, bool deshacer,
                                            std::vector<qint64>& hechos) {
  TARVO_TOMAR(const auto c, p_.columna(link));
  if (!c) return false;
  if (!c->stkABLE && !preguntar(PuertaNoStkBle())) return false;
  TARVO_TOMAR(const auto hecho, p_.DescontarPeriodo(*c, deshacer));
  if (hecho == Descuento::Hecho) hechos.push_back(link);
  return hecho == Descuento::Hecho;
}

// --- other windows

void VerTotVentana::editar(bool nuevo) {
  const int fila = ui_.Grid->filaActual();
  if (!nuevo && fila < 0) return;
  PuertaEditIntv puerta;
  if (!nuevo) puerta.link = ui_.Grid->clave(fila);
  if (nuevo && tipo_ > 0) puerta.tipo = tipo_;
  if (const auto salida = preguntar(puerta)) guardado(*salida);
}

void VerTotVentana::guardado(const Guardado& g) {
  refrescar();
  elegirPeriodo(g.link);
  const QString nombre = TextoPeriodo(g.ahora).simplified();
  if (g.cambia())
    apuntar({t(g.antes ? kTxQueModificar : kTxQueCrear).arg(nombre),
             [this, g]() -> Resultado<> {
               TARVO_INTENTAR(deshacerGuardado(p_, g));
               if (!g.antes) cerrarVisores(g.link);
               return {};
             },
             g.antes ? std::vector{g.link} : std::vector<qint64>{}});
  decirBien(t(g.antes ? kTxPeriodoCambiado : kTxPeriodoCreado));
}

void VerTotVentana::exportar() {
  const auto links = elegidos();
  if (links.empty()) return;
  static_cast<void>(preguntar(PuertaXporTot{links}));
  refrescar();  // those that were deleted leave the selection, the others stay in it
}

void VerTotVentana::importar() {
  if (Ventana* v = abrir(PuertaImpTot()))
    connect(v, &Ventana::descargada, this, &VerTotVentana::refrescar, Qt::UniqueConnection);
}

}  // namespace tarvo::totals
