// A sheet: one record, edited on a copy that is applied once.
//
//   class EdiParms final : public ventanas::FichaDe<ParamSerie> {
//    public:
//     EdiParms(Contexto& c, const QString& nombre) : FichaDe(c, nombre) {
//       auto f = formulario(kTxEdiParms);
//       f.fila(kTxPuerto, u"Puerto"_s, numero(r.puerto, 1, 16));
//       f.fila(kTxBaudios, u"Baudios"_s, r.baudios, numeros({300, 9600}));
//       acabar();
//     }
//     Resultado<> entrar(const PuertaEdiParms& p) { return editar(p.serie); }
//     void aplicada() override { entregar(r); }
//   };
//
// "Acepto" writes the cells still open in its lists, and reads all fields. Faults are marked beside
// their fields and listed in one box, and the first of them gets the focus; then nothing is
// applied. Otherwise aplicar() is called, once, and the window closes if it succeeds. "Cancelo",
// Escape and the close button ask first if there are changes.
#pragma once

#include <memory>
#include <vector>

#include "core/ventanas/edicion/Campo.h"
#include "core/ventanas/edicion/Formulario.h"
#include "core/ventanas/edicion/Opciones.h"
#include "core/ventanas/edicion/Renglon.h"
#include "core/ventanas/marco/Ventanas.h"

class QCheckBox;
class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;

namespace tarvo::ventanas {

// Asks "Abandon the changes?", with Cancelar as the default button. The one place where it is
// asked.
bool preguntarAbandono(Ventana& ventana);

class Ficha : public Ventana {
  Q_OBJECT
 public:
  bool QueryUnload() override;

 protected:
  void showEvent(QShowEvent* evento) override;
  Ficha(Contexto& contexto, const QString& nombre);
  ~Ficha() override;

  // --- the form
  // Built here, row by row (see Formulario), or a form of the window's own, whose controls are
  // bound by enlazarCampo. `titulo` is a text.
  Formulario formulario(int titulo);
  // To be called once, after everything has been added: adds the two buttons (the form may have
  // them already), texts and size. `tamano` at 100 %; none for the size hint of the form.
  struct Botones {
    QString acepto = QStringLiteral("Acepto"), cancelo = QStringLiteral("Cancelo");
    int textoAcepto = 0, textoCancelo = 0;  // texts; 0 for the standard ones
    bool destruye = false;                  // Return then presses the second one
    QPushButton* otro = nullptr;            // the form's own, at the left of their row
  };
  void acabar(const QSize& tamano, const Botones& botones);
  void acabar(const QSize& tamano = {}) { acabar(tamano, {}); }

  // --- kinds of fields over a member of the copy; limits are inclusive
  Modo texto(QString& donde, int largo = 0, bool obligatorio = false) const;
  Modo cifras(QString& donde, int mayor) const;  // a text of digits, or empty
  template <class T>
  Modo numero(T& donde, qint64 menor, qint64 mayor) const {
    return numeroDe([&donde] { return static_cast<qint64>(donde); },
                    [&donde](qint64 n) { donde = static_cast<T>(n); }, menor, mayor);
  }
  // Digits with leading zeros; an empty field is 0 where 0 is allowed.
  template <class T>
  Modo codigo(T& donde, int cifras, qint64 menor, qint64 mayor) const {
    return codigoDe([&donde] { return static_cast<qint64>(donde); },
                    [&donde](qint64 n) { donde = static_cast<T>(n); }, cifras, menor, mayor);
  }
  Modo centesimas(int& donde, int menor, int mayor) const;  // "12,50", stored as 1250
  // Money in a currency, in stored units, and a quantity of a kind. Currency and kind are queried
  // each time.
  // More decimals than there is room for are refused, and numbers that can be read in two ways.
  Modo dinero(qint64& donde, std::function<int()> moneda, qint64 mayor = kImporteMayor) const;
  Modo cantidad(qint64& donde, std::function<int()> cada) const;
  Modo fecha(std::optional<Fecha>& donde, bool obligatoria = true) const;  // a day
  Modo hora(Fecha& donde) const;  // "HH:MM" or "HH:MM:SS", stored as a fraction of a day
  static constexpr qint64 kImporteMayor = 2'000'000'000;

  // --- fields of a form of the window's own; `nombre` is a text
  Campo& enlazarCampo(QLineEdit& linea, Modo modo, int nombre = 0, QLabel* falta = nullptr);
  Campo& enlazarCampo(QComboBox& lista, std::function<qint64()> ver,
                      std::function<void(qint64)> poner);
  Campo& enlazarCampo(QCheckBox& casilla, bool& donde);
  template <class T>
  Campo& enlazarCampo(QComboBox& lista, T& donde) {
    return enlazarCampo(
        lista, [&donde] { return static_cast<qint64>(donde); },
        [&donde](qint64 n) { donde = static_cast<T>(n); });
  }
  Campo& enlazarCampo(QRadioButton& si, QRadioButton& no, bool& donde);
  Campo& enlazarCampo(QListWidget& lista, int& fila);     // its current row, -1 if none
  Campo& enlazarTexto(QComboBox& lista, QString& donde);  // by its text; "" if none is selected
  Campo& anadir(Campo* campo);
  // Moves a field from the sheet to a line of one of its lists.
  void apartar(Campo& campo, Renglon& renglon);

  // --- validation
  // Returns the faults that no field detects by itself: a name already in use, an end before its
  // beginning. Also called if a field couldn't be read: its member then has its former value.
  struct FaltaCampo {
    Campo* campo = nullptr;
    QString texto;
  };
  virtual std::vector<FaltaCampo> comprobar() { return {}; }
  // Sets the text of the message box: a sentence, with a line for each fault. `texto` replaces the
  // standard sentence; `conLineas` false leaves the lines out. 0 without lines: the box shows the
  // first fault alone.
  void ponerFrase(int texto, bool conLineas = true);
  // Shows the message box, then moves the focus to the first fault.
  virtual void decir(const std::vector<FaltaCampo>& faltas);
  // Asks the questions that a valid copy may raise; false if it isn't to be applied.
  virtual bool conforme() { return true; }
  // Applies the copy: one operation of an engine. A failure applies nothing, and is reported.
  virtual Resultado<> aplicar() { return {}; }
  // Called after a successful aplicar(): closes, or delivers the result.
  virtual void aplicada() { aceptar(); }

  // --- operations
  void mostrar();  // the copy into all fields, which then count as untouched
  void enfocarPrimero();
  bool leer();         // the fields into the copy; false, after reporting it, if there is a fault
  bool leerCallada();  // the same without the message box
  virtual bool cambiada() const;
  virtual void confirmar();  // the action of "Acepto"

  QPushButton* acepto() const { return acepto_; }
  QPushButton* cancelo() const { return cancelo_; }

 private:
  friend class Formulario;
  Modo numeroDe(std::function<qint64()> ver, std::function<void(qint64)> poner, qint64 menor,
                qint64 mayor) const;
  Modo codigoDe(std::function<qint64()> ver, std::function<void(qint64)> poner, int cifras,
                qint64 menor, qint64 mayor) const;
  std::vector<FaltaCampo> faltas();
  void hacerSitio();
  bool acabarCeldas();
  bool consiente();  // asks about days far away; true to go on

  std::vector<Campo*> campos_;
  std::vector<QLineEdit*> fechas_;
  QPushButton *acepto_ = nullptr, *cancelo_ = nullptr;
  int frase_ = 0;
  bool conLineas_ = true;
};

// A sheet over a record of a comparable type.
template <class R>
class FichaDe : public Ficha {
 protected:
  using Ficha::Ficha;
  // Begins to edit a copy of `registro` and keeps another to compare it with. The first field gets
  // the focus.
  Resultado<> editar(R registro) {
    r = std::move(registro);
    antes_ = r;
    mostrar();
    enfocarPrimero();
    return {};
  }
  bool cambiada() const override { return Ficha::cambiada() || !(r == antes_); }
  const R& antes() const { return antes_; }
  void guardada() { antes_ = r; }  // the copy becomes the one compared with

  R r{};  // the copy; fields are bound to its members

 private:
  R antes_{};
};

}  // namespace tarvo::ventanas
