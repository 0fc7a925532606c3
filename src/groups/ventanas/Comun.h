// Shared by the sheets of a group and of a machine.
#pragma once

#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/edicion/Ficha.h"
#include "core/ventanas/marco/Ventanas.h"
#include "groups/ventanas/Puertas.h"
#include "groups/ventanas/TextosGruposVentanas.h"

class QPushButton;
class QRadioButton;

namespace tarvo::groups {

// The letters of the format of a bar code, and how many the code of each kind takes.
inline const QString kLetrasFormato = QStringLiteral("CKIBSOQ");
inline constexpr int kLargoEan8 = 7, kLargoEan13 = 12;

// The title of a sheet: its text has marks for the group's name and the number of the machine. A
// group without a name has no brackets either.
QString tituloDe(QString texto, const QString& grupo, int balanza);
inline QString tituloDe(const ventanas::Ventana& v, int texto, const QString& grupo, int balanza) {
  return tituloDe(v.t(texto), grupo, balanza);
}

// Choices as radio buttons, each with its value, bound to a member.
ventanas::Campo& enlazarRadios(QWidget& caja,
                               const std::vector<std::pair<QRadioButton*, int>>& radios,
                               std::function<int()> ver, std::function<void(int)> poner);

// A sheet of a machine over a record of it, which "Guardar" gives to that machine and "Guardar en
// todas" to all of its group.
template <class R>
class HojaDeMaquina : public ventanas::FichaDe<R> {
 public:
  using ventanas::FichaDe<R>::FichaDe;

 protected:
  void acabarHoja(ventanas::Formulario& f, const QSize& tamano) {
    todas_ = f.boton(kTxATodas, QStringLiteral("ATodas"), [this] {
      aTodas_ = true;
      this->confirmar();
      aTodas_ = false;
    });
    this->acabar(
        tamano,
        {.acepto = QStringLiteral("Guardar"), .textoAcepto = ventanas::kTxGuardar, .otro = todas_});
  }
  // `hoja`: what it is called in the title of a register, where there is one for those.
  Resultado<> abrirHoja(const PuertaDeMaquina& puerta, int titulo, R registro, int hoja = 0) {
    maquina_ = puerta.maquina;
    const bool deCaja = hoja > 0 && std::holds_alternative<devices::Registradora>(maquina_);
    this->setWindowTitle(tituloDe(
        deCaja ? this->t(kTxEnCaja).arg(this->t(hoja).remove(QChar(u'&'))) : this->t(titulo),
        puerta.nombre, puerta.balanza));
    todas_->setVisible(puerta.varias);
    return this->editar(std::move(registro));
  }
  // The record into the machine.
  virtual void volcar(devices::Miembro& maquina) = 0;
  const devices::Miembro& maquina() const { return maquina_; }

 private:
  void aplicada() override {
    volcar(maquina_);
    this->entregar(MaquinaEditada{maquina_, aTodas_});
  }

  devices::Miembro maquina_;
  QPushButton* todas_ = nullptr;
  bool aTodas_ = false;
};

}  // namespace tarvo::groups
