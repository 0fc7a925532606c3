#include "comm/ventanas/ATModf.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "comm/ventanas/TextosCommVentanas.h"
#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/aspecto/Tema.h"

namespace tarvo::comm {

using namespace Qt::StringLiterals;
using namespace ventanas;

namespace {

constexpr int kOrdenesMax = 8;

}  // namespace

// Commands are stored in capitals in the settings file, separated by ";".
QString conAT(const QString& orden) {
  QString o = orden.trimmed().toUpper().remove(u';');
  return o.isEmpty() || o.startsWith(u"AT") ? o : u"AT"_s + o;
}

ATModf::ATModf(Contexto& c, const QString& nombre) : FichaDe(c, nombre) {
  auto f = formulario(kTxATModf);
  f.fila(kTxPrimeraOrden, u"IniMdm0"_s, texto(r.IniMdm0));
  montarOrdenes(f);
  f.fila(kTxPrefijoMarcar, u"PfxDial"_s, texto(r.PfxDial));
  f.fila(kTxIntentosMarcado, u"Intentos"_s,
         numero(r.Intentos, kLimitesIntentos.menor, kLimitesIntentos.mayor));
  f.fila(kTxEsperaMarcado, u"Espera"_s,
         numero(r.Espera, kLimitesEspera.menor, kLimitesEspera.mayor))
      .ponerPista(t(kTxSegundosHasta));
  f.fila(kTxRespuestaATH, u"ATHang"_s,
         numero(r.ATHang, kLimitesEspera.menor, kLimitesEspera.mayor));
  acabar({560, 480});
}

void ATModf::montarOrdenes(Formulario f) {
  lista_ = f.ancho(new QListWidget, u"IniMdmX"_s, kTxMasOrdenes, 1);
  sube_ = f.icono(u"subir"_s, kTxSubirOrden, u"Sube"_s, [this] { mover(-1); });
  baja_ = f.icono(u"bajar"_s, kTxBajarOrden, u"Baja"_s, [this] { mover(1); });
  quita_ = f.boton(ventanas::kTxQuitar, u"Quita"_s, [this] {
    r.IniMdmX.removeAt(lista_->currentRow());
    ponerOrdenes(lista_->currentRow());
  });
  f.enLinea({sube_, baja_, quita_, nullptr});
  nueva_ = new QLineEdit;
  nueva_->setObjectName(u"Nueva"_s);
  auto* rotulo = new QLabel(t(kTxOrdenNueva));
  rotulo->setBuddy(nueva_);
  pon_ = f.boton(kTxAnadirOrden, u"Pon"_s, [this] {
    r.IniMdmX << conAT(nueva_->text());
    nueva_->clear();
    nueva_->setFocus();
    ponerOrdenes(static_cast<int>(r.IniMdmX.size()) - 1);
  });
  f.enLinea({rotulo, nueva_, pon_});
  aviso_ = f.nota(u"faltaLista"_s, kTxOchoOrdenes);
  connect(lista_, &QListWidget::currentRowChanged, this, [this] { habilitar(); });
  connect(nueva_, &QLineEdit::textChanged, this, [this] { habilitar(); });
}

Resultado<> ATModf::entrar(const PuertaATModf& p) {
  setWindowTitle(u"%1. %2"_s.arg(t(kTxATModf), t(kTxCanal).arg(p.numero)));
  TARVO_INTENTAR(editar(p.canal));
  ponerOrdenes(0);
  return {};
}

void ATModf::ponerOrdenes(int fila) {
  lista_->clear();
  lista_->addItems(r.IniMdmX);
  lista_->setCurrentRow(std::min(fila, lista_->count() - 1));
  habilitar();
}

void ATModf::habilitar() {
  const int fila = lista_->currentRow(), cuantas = lista_->count();
  const bool caben = cuantas < kOrdenesMax;
  pon_->setEnabled(caben && !conAT(nueva_->text()).isEmpty());
  aviso_->setVisible(!caben);
  quita_->setEnabled(fila >= 0);
  sube_->setEnabled(fila > 0);
  baja_->setEnabled(fila >= 0 && fila < cuantas - 1);
}

void ATModf::mover(int pasos) {
  const int fila = lista_->currentRow();
  r.IniMdmX.move(fila, fila + pasos);
  ponerOrdenes(fila + pasos);
}

void ATModf::aplicada() {
  r.IniMdm0 = conAT(r.IniMdm0);
  r.PfxDial = r.PfxDial.trimmed().toUpper();
  entregar(r);
}

}  // namespace tarvo::comm
