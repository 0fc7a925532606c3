// A sheet: one record, edited on a copy that is applied once.
//
//   class EdiParms final : public ventanas::FichaDe<ParamSerie> {
//    public:
//     EdiParms(Contexto& c, const QString& nombre) : FichaDe(c, nombre, kTxEdiParms) {
//       formulario().fila(kTxPuerto, u"Puerto"_s, numero(r.puerto, 1, 16));
//       formulario().fila(kTxBaudios, u"Baudios"_s, r.baudios, numeros({300, 9600}));
//       acabar();
//     }
//     Resultado<> entrar(const PuertaEdiParms& p) { return editar(p.serie); }
//     void aplicada() override { entregar(r); }
//   };
//
// "Acepto" reads all fields. What is wrong is marked beside its field and named in one box, and the
// first of it gets the focus; nothing is applied then. Else aplicar() is called, once, and when it
// went well the window closes. "Cancelo", Escape and the closing button ask first when something
// was changed.
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

// "Abandon what was changed?", with Cancelar first: the one way in which it is asked.
bool preguntarAbandono(Ventana& ventana);

class Ficha : public Ventana {
  Q_OBJECT
 public:
  bool QueryUnload() override;

 protected:
  Ficha(Contexto& contexto, const QString& nombre);
  ~Ficha() override;

  // --- the form: made here, row by row (see Formulario), or a form of the window's own, whose
  // controls are bound by enlazarCampo. `titulo` is a text.
  Formulario formulario(int titulo);
  // Once, when all is there: its two buttons, which the form may have already, texts, size.
  // `tamano` at 100 %; none for what the form asks.
  struct Botones {
    QString acepto = QStringLiteral("Acepto"), cancelo = QStringLiteral("Cancelo");
    int textoAcepto = 0, textoCancelo = 0;  // texts; 0 for those of all windows
    bool destruye = false;                  // Return is the second one then
    QPushButton* otro = nullptr;            // of the form's own, at the left of their row
  };
  void acabar(const QSize& tamano, const Botones& botones);
  void acabar(const QSize& tamano = {}) { acabar(tamano, {}); }

  // --- kinds of fields over a member of the copy; limits are inclusive
  Modo texto(QString& donde, int largo = 0, bool obligatorio = false) const;
  Modo cifras(QString& donde, int mayor) const;  // a text of digits, or none
  template <class T>
  Modo numero(T& donde, qint64 menor, qint64 mayor) const {
    return numeroDe([&donde] { return static_cast<qint64>(donde); },
                    [&donde](qint64 n) { donde = static_cast<T>(n); }, menor, mayor);
  }
  // Digits with zeros in front; an empty one is 0 where 0 is allowed.
  template <class T>
  Modo codigo(T& donde, int cifras, qint64 menor, qint64 mayor) const {
    return codigoDe([&donde] { return static_cast<qint64>(donde); },
                    [&donde](qint64 n) { donde = static_cast<T>(n); }, cifras, menor, mayor);
  }
  Modo centesimas(int& donde, int menor, int mayor) const;  // "12,50", held as 1250
  // Money of a currency, held in stored units; a quantity, by its kind. Both are asked for anew.
  Modo dinero(qint64& donde, std::function<int()> moneda, qint64 mayor = kImporteMayor) const;
  Modo cantidad(qint64& donde, std::function<int()> cada) const;
  Modo fecha(std::optional<Fecha>& donde, bool obligatoria = true) const;  // a day
  Modo hora(Fecha& donde) const;  // "HH:MM" or "HH:MM:SS", held as a fraction of a day
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
  Campo& enlazarCampo(QListWidget& lista, int& fila);     // its current row, -1 for none
  Campo& enlazarTexto(QComboBox& lista, QString& donde);  // by its words; "" for none chosen
  Campo& anadir(Campo* campo);
  // Takes a field out of those of the sheet: it is one of what is added to a list of it, line by
  // line.
  void apartar(Campo& campo, Renglon& renglon);

  // --- what a sheet is asked
  // Faults that no field sees by itself: a name that is taken, an end before its beginning. Also
  // asked when a field couldn't be read: its member has its former value then.
  struct FaltaCampo {
    Campo* campo = nullptr;
    QString texto;
  };
  virtual std::vector<FaltaCampo> comprobar() { return {}; }
  // The words of the box: the sentence, and a line for each fault. Another sentence where the
  // domain has one; without lines where it stands alone. 0 without lines: the words of the first
  // fault are the box.
  void ponerFrase(int texto, bool conLineas = true);
  // The box; the first of them gets the focus.
  virtual void decir(const std::vector<FaltaCampo>& faltas);
  // Asks what has to be asked of a copy without a fault; false: it isn't applied.
  virtual bool conforme() { return true; }
  // Applies the copy: one operation of an engine. On a failure nothing is applied, and it is said.
  virtual Resultado<> aplicar() { return {}; }
  // After a good aplicar(): closes, or hands back.
  virtual void aplicada() { aceptar(); }

  // --- what it does
  void mostrar();  // the copy in all fields; none is touched then
  void enfocarPrimero();
  bool leer();  // the fields into the copy; false, and it has been said, when something is wrong
  bool leerCallada();  // the same without the box
  virtual bool cambiada() const;
  virtual void confirmar();  // what "Acepto" does

  QPushButton* acepto() const { return acepto_; }
  QPushButton* cancelo() const { return cancelo_; }

 private:
  friend class Formulario;
  Modo numeroDe(std::function<qint64()> ver, std::function<void(qint64)> poner, qint64 menor,
                qint64 mayor) const;
  Modo codigoDe(std::function<qint64()> ver, std::function<void(qint64)> poner, int cifras,
                qint64 menor, qint64 mayor) const;
  std::vector<FaltaCampo> faltas();
  bool consiente();  // days far away are meant

  std::vector<Campo*> campos_;
  std::vector<QLineEdit*> fechas_;
  QPushButton *acepto_ = nullptr, *cancelo_ = nullptr;
  int frase_ = 0;
  bool conLineas_ = true;
};

// A sheet over a record of a type that can be compared.
template <class R>
class FichaDe : public Ficha {
 protected:
  using Ficha::Ficha;
  // Begins to edit: the copy, and what it is compared with. The first field gets the focus.
  Resultado<> editar(R registro) {
    r = std::move(registro);
    antes_ = r;
    mostrar();
    enfocarPrimero();
    return {};
  }
  bool cambiada() const override { return Ficha::cambiada() || !(r == antes_); }
  const R& antes() const { return antes_; }
  void guardada() { antes_ = r; }  // what it is compared with from now on

  R r{};  // the copy; fields are bound to its members

 private:
  R antes_{};
};

}  // namespace tarvo::ventanas
