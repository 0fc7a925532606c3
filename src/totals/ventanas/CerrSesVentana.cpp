#include "totals/ventanas/CerrSesVentana.h"
#include "totals/ventanas/Puertas.h"

#include <QKeyEvent>
#include <set>

#include "core/textos/Textos.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Medidas.h"
#include "core/ventanas/marco/MyMsgBox.h"
#include "core/ventanas/marco/Tira.h"
#include "totals/libros/SinArticulos.h"
#include "totals/ventanas/ComunTotales.h"
#include "totals/ventanas/FormDetallesVentana.h"
#include "totals/ventanas/TextosTotalesVentanas.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;

namespace {

constexpr int kTicsCierre = 100;
constexpr int kMsTic = 80;
constexpr int kFaltanNombrados = 6;

}  // namespace

CerrSesVentana::CerrSesVentana(ventanas::Contexto& contexto, const QString& nombre, Sesion& sesion,
                               Periodos& periodos)
    : Ventana(contexto, nombre),
      s_(sesion),
      p_(periodos),
      motor_(sesion, periodos),
      reloj_(contexto.reloj.temporizador([this] { tictac(); })) {
  ui_.setupUi(cuerpo());
  enlazar();
  montar();
}

void CerrSesVentana::montar() {
  ui_.Recuperar->setIcon(ventanas::icono(u"deshacer"_s));
  ui_.Recuperar->hide();
  ui_.estado->hide();
  ui_.cierre->hide();
  ui_.cierre->setMaximum(kTicsCierre);
  connect(ui_.Guardar, &QPushButton::clicked, this, &CerrSesVentana::guardar);
  connect(ui_.Olvidar, &QPushButton::clicked, this, &CerrSesVentana::olvidar);
  connect(ui_.detalles, &QPushButton::clicked, this, &CerrSesVentana::detalles);
  connect(ui_.Recuperar, &QPushButton::clicked, this, &CerrSesVentana::recuperar);
  connect(ui_.Cancelar, &QPushButton::clicked, this, [this] { alSalir_ ? aceptar() : rechazar(); });
  connect(ui_.Descrip, &QLineEdit::returnPressed, this, [this] { ui_.Guardar->setFocus(); });
}

void CerrSesVentana::decirEstado(const QString& texto) {
  ui_.estado->setText(texto);
  ui_.estado->setVisible(!texto.isEmpty());
  if (!texto.isEmpty()) ui_.estado->repaint();
}

template <class F>
auto CerrSesVentana::mientras(int texto, F hacer) {
  QApplication::setOverrideCursor(Qt::WaitCursor);
  decirEstado(t(texto));
  auto hecho = hacer();
  decirEstado({});
  QApplication::restoreOverrideCursor();
  return hecho;
}

Resultado<> CerrSesVentana::entrar(const PuertaCerrSes& puerta) {
  alSalir_ = puerta.alSalir;
  motor_.TodoAUno = motor_.OverWr = true;
  TARVO_INTENTAR(analizar());
  if (ui_.Descrip->text().isEmpty()) {
    TARVO_TOMAR(const auto propuesto, s_.nombre());
    ui_.Descrip->setText(propuesto);
    ui_.Descrip->selectAll();
  }
  if (puerta.olvidar)
    QMetaObject::invokeMethod(this, &CerrSesVentana::soloOlvidar, Qt::QueuedConnection);
  return {};
}

// Reads the contents of the inbox. A session that claims to hold data but holds none is closed.
Resultado<> CerrSesVentana::analizar() {
  avisos_.clear();
  if (s_.estado() == 2) {
    TARVO_INTENTAR(mientras(kTxAnalizando, [this] { return motor_.AnalizarScratch(avisos_); }));
    if (motor_.recibidos().empty()) {
      TARVO_INTENTAR(motor_.LaSesion(false, 0, avisos_));
      TARVO_INTENTAR(s_.reflejar());
    }
  }
  pintarCara();
  return {};
}

void CerrSesVentana::pintarCara() {
  const bool llena = s_.estado() == 2;
  ui_.caras->setCurrentWidget(llena ? ui_.llena : ui_.vacia);
  for (QPushButton* b : {ui_.Guardar, ui_.Olvidar, ui_.detalles}) b->setEnabled(llena);
  const int lado = ventanas::escalar(4 * ventanas::kIcono);
  for (const auto& [etiqueta, dibujo] :
       {std::pair{ui_.imagenLlena, u"bandejaLlena"_s}, {ui_.imagenVacia, u"bandejaVacia"_s}})
    etiqueta->setPixmap(ventanas::icono(dibujo).pixmap(lado, lado));
  if (!llena) return ui_.Cancelar->setFocus();
  pintarPeriodo();
  // What is memorised isn't undone: no Return too many does it.
  ui_.Guardar->setDefault(false);
  ui_.Cancelar->setDefault(alSalir_);
  alSalir_ ? ui_.Cancelar->setFocus() : ui_.Descrip->setFocus();
}

void CerrSesVentana::pintarPeriodo() {
  const int i = motor_.elegido();
  ui_.lbPerio->setText(!motor_.TodoAUno ? t(kTxVariosPeriodos)
                       : i < 0          ? QString()
                               : TextoPeriodo(motor_.propuestos()[static_cast<size_t>(i)].periodo));
  std::set<int> grupos;
  for (const Recibido& r : motor_.recibidos()) grupos.insert(r.CODGPO);
  QString texto = t(kTxRecibidosDe, static_cast<int>(grupos.size()));
  const auto bandeja = motor_.enBandeja();
  if (haIdoBien(bandeja))
    texto += u' ' + t(kTxEnBandeja).arg(conMoneda(contexto(), bandeja->importe));
  if (motor_.propuestos().size() > 1)
    texto += u' ' + t(kTxPeriodosPosibles).arg(motor_.propuestos().size());
  ui_.resumen->setText(texto);
  const auto sinArticulos = decirSinArticulos(s_, std::vector(grupos.begin(), grupos.end()));
  QStringList faltas{bandeja ? textoFaltan(bandeja->faltan) : QString()};
  if (haIdoBien(sinArticulos)) faltas << *sinArticulos;
  faltas << avisos();  // why a group was left out
  faltas.removeAll(QString());
  ui_.faltan->setText(faltas.join(u'\n'));
  ui_.faltan->setHidden(ui_.faltan->text().isEmpty());
}

// Names the groups whose sales won't be in the period.
QString CerrSesVentana::textoFaltan(const std::vector<int>& grupos) {
  QStringList nombres;
  for (const int g : grupos) {
    if (nombres.size() == kFaltanNombrados) {
      nombres << t(kTxYGruposMas, static_cast<int>(grupos.size()) - kFaltanNombrados);
      break;
    }
    const auto nombre = contexto().nombres.grupo(g);
    nombres << Ceros(g, 4) + u' ' + (nombre ? nombre->trimmed() : QString());
  }
  return nombres.isEmpty() ? QString() : contexto().textos(kTxFaltanGrupos, {nombres.join(u", ")});
}

// Also those that don't make a night end with problems: where sales went, and what they were not
// taken off, is nowhere else for whoever memorises here.
QStringList CerrSesVentana::avisos() const {
  QStringList textos;
  for (const bool grave : {true, false})
    for (const Aviso& a : avisos_)
      if (a.grave == grave) textos << a.texto;
  textos.removeDuplicates();  // the inbox is analysed twice
  return textos;
}

// If readings have arrived since the window was last painted, shows them and returns false: nothing
// is memorised unseen.
bool CerrSesVentana::siguenSiendoLosMismos() {
  const auto claves = [this] {
    std::set<std::pair<int, TipoTotal>> c;
    for (const Recibido& r : motor_.recibidos()) c.emplace(r.CODGPO, r.clase);
    return c;
  };
  const auto antes = claves();
  if (!haIdoBien(mientras(kTxAnalizando, [this] { return motor_.AnalizarScratch(avisos_); })))
    return false;
  if (claves() == antes) return true;
  pintarPeriodo();
  decirDuda(t(kTxHanLlegadoMas), ui_.resumen->text());
  return false;
}

void CerrSesVentana::guardar() {
  if (!siguenSiendoLosMismos()) return;
  motor_.describir(ui_.Descrip->text(), contexto().reloj.ahora());
  const auto links =
      mientras(kTxIncorporandoTotales, [this] { return motor_.LaSesion(true, 0, avisos_); });
  if (!haIdoBien(links) || !haIdoBien(s_.reflejar())) return pintarCara();
  memorizado_ = true;
  pintarCara();
  ui_.Descrip->clear();
  std::set<qint64> distintos(links->begin(), links->end());
  QStringList dichos = avisos();
  avisos_.clear();
  if (!dichos.isEmpty()) {
    const QString primero = t(kTxConAvisos) + u": "_s + dichos.takeFirst();
    return decirDuda(primero, dichos.join(u'\n'));
  }
  decirBien(t(kTxIncorporados2, static_cast<int>(distintos.size())));
  empezarCuenta();
}

void CerrSesVentana::olvidar() {
  const int cuantos = static_cast<int>(motor_.recibidos().size());
  const auto bandeja = motor_.enBandeja();
  if (!haIdoBien(bandeja)) return;
  const QString que = t(kTxSeOlvidan, cuantos) + u": "_s + ui_.lbPerio->text().simplified() +
                      u'\n' + t(kTxEnBandeja).arg(conMoneda(contexto(), bandeja->importe));
  const QString pregunta = t(kTxSeranOlvidados) + u"\n\n"_s + que + u"\n\n"_s + t(kTxOlvidoVuelve);
  if (!ventanas::MyMsgBox::Decide(this, contexto().textos, pregunta,
                                  ventanas::kAceptoCancelo | ventanas::kExclamacion))
    return;
  avisos_.clear();
  if (!haIdoBien(motor_.LaSesion(false, 0, avisos_)) || !haIdoBien(s_.reflejar())) return;
  pintarCara();
  decirBien(t(kTxOlvidados));
  ui_.Recuperar->show();
  ui_.Recuperar->setFocus();
  empezarCuenta();
}

// Asked for elsewhere: unless it is done, the window isn't wanted either.
void CerrSesVentana::soloOlvidar() {
  if (s_.estado() == 2) olvidar();
  if (s_.estado() == 2 && tira().estado() == ventanas::Estado::Ninguno) rechazar();
}

void CerrSesVentana::recuperar() {
  const auto hecho = motor_.recuperar();
  if (!haIdoBien(hecho)) return;
  reloj_->parar();
  cuenta_ = 0;
  ui_.cierre->hide();
  ui_.Recuperar->hide();
  if (!*hecho) return decirDuda(t(kTxYaNoSePuede));
  if (!haIdoBien(s_.reflejar())) return;
  pintarCara();
  decirBien(t(kTxRecuperados));
}

void CerrSesVentana::detalles() {
  const auto d =
      preguntar(PuertaFormDetalles{{.recibidos = motor_.recibidos(),
                                    .propuestos = motor_.propuestos(),
                                    .sustituir = motor_.OverWr,
                                    .elegido = motor_.TodoAUno ? motor_.elegido() : -1}});
  if (!d) return;
  motor_.OverWr = d->sustituir;
  motor_.TodoAUno = d->elegido >= 0;
  motor_.elegir(d->elegido);
  pintarPeriodo();
  guardar();
}

void CerrSesVentana::keyPressEvent(QKeyEvent* evento) {
  if (!evento->matches(QKeySequence::Undo)) return Ventana::keyPressEvent(evento);
  evento->accept();
  if (ui_.Recuperar->isVisible()) return recuperar();
  decirPista(memorizado_ ? t(kTxMemorizadoQueda) : t(ventanas::kTxNadaQueDeshacer));
}

void CerrSesVentana::empezarCuenta() {
  cuenta_ = kTicsCierre;
  ui_.cierre->setValue(kTicsCierre);
  ui_.cierre->show();
  reloj_->cada(kMsTic);
}

void CerrSesVentana::tictac() {
  ui_.cierre->setValue(--cuenta_);
  if (cuenta_ > 1) return;
  reloj_->parar();
  cerrarSola();
}

}  // namespace tarvo::totals
