// The common part of all readings of totals: data stay in memory and are stored once, whole, at the
// end. Below it are three shapes of dialogue, one for each family of machines.
#pragma once

#include <array>
#include <map>

#include "comm/maquinas/Campos.h"
#include "comm/motor/Tarea.h"
#include "comm/tareas/Duda.h"
#include "comm/tareas/Malos.h"

namespace tarvo::tareas {

// A failure as a sentence that says where it happened: "Grupo 12, artículo 0000123: el registro es
// demasiado corto".
std::unexpected<Error> falloEn(const Error& e, int grupo, const QString& lugar,
                               const Textos& textos);
// The fault of a record, in words that fit such a sentence.
std::unexpected<Error> malRegistro(const maquinas::RegistroMalo& malo, const Textos& textos);

// The operator of each position of the group, from 1; 0 for a position without one.
Resultado<std::array<qint64, 21>> leerOperadores(const motor::Entorno& e, int grupo);

class Totales : public motor::CursoTarea {
 public:
  // REQUIRES a task that reads totals.
  Totales(const motor::DatosTarea& t, const motor::Entorno& e);
  Resultado<motor::Siguiente> siguiente() final;
  Resultado<std::vector<totals::Aviso>> cerrar() override;
  QString trajo() const override;
  void fallo() override { malos_.otraPregunta(); }
  const totals::Lectura& lectura() const { return lectura_; }
  // A reading made by another task for itself, as a proof: the session isn't notified, and an
  // unreadable record never counts.
  void paraOtra() {
    anunciada_ = true;
    malos_.sinTolerancia();
  }

 protected:
  // Opens the data, once.
  virtual Resultado<> preparar() { return {}; }
  virtual Resultado<motor::Siguiente> paso() = 0;

  totals::Lectura::Filas& filas(int addr) { return lectura_.maquinas[addr]; }
  static totals::Contadores contadores(const maquinas::Total& t) {
    return {t.con, t.pes, t.imp, t.sco};
  }

  motor::DatosTarea t_;
  const TipoTotal total_;
  const motor::Entorno e_;
  totals::Lectura lectura_;
  maquinas::Rigor rigor_ = maquinas::Rigor::Estricto;  // for the present record
  Malos malos_;

 private:
  bool preparada_ = false, anunciada_ = false;
};

// Kinds 1 and 4: one question, one record, until no question is left. The group answers as one
// machine.
class PreguntasVek : public Totales {
 public:
  using Totales::Totales;
  bool encaja(int addr, int codigo, const QByteArray& datos) const final;
  Resultado<> respuesta(int addr, int codigo, const QByteArray& datos) final;
  qint64 avance() const override { return hechas_; }

 protected:
  virtual bool acabada() const = 0;
  virtual maquinas::Peticion pregunta() const = 0;
  virtual int timeOut() const { return 0; }
  // Is this record about the item asked for?
  virtual bool responde(const QByteArray& datos) const = 0;
  virtual Resultado<> registro(const QByteArray& datos) = 0;  // takes it and advances
  virtual QString lugar() const = 0;                          // the item being read, for messages
  totals::Lectura::Filas& filasGrupo() { return filas(0); }

 private:
  Resultado<motor::Siguiente> paso() final;
  qint64 hechas_ = 0;
};

// Kind 2: one request, then frames until the end of the list. After a break it starts again from
// nothing. A repeated record replaces the earlier; rows are made at the end. A list with unreadable
// records fails at its end, so that the next reading knows them all.
class ListaNodal : public Totales {
 public:
  ListaNodal(const motor::DatosTarea& t, const motor::Entorno& e);
  bool encaja(int addr, int codigo, const QByteArray& datos) const final;
  Resultado<> respuesta(int addr, int codigo, const QByteArray& datos) final;
  void salto() final { duda_.dudar(); }
  void reanudar() final;
  qint64 avance() const override { return fase_ == 0 ? 1 : 0; }

 protected:
  virtual maquinas::Peticion pregunta() const = 0;
  virtual Resultado<> registros(const QByteArray& datos) = 0;
  // It is requested again after a break, or from its start.
  virtual void otraVez() { deNuevo(); }
  virtual void deNuevo() { recibidos_.clear(); }
  // A record for a row, identified by its own number and hour.
  void anotar(const maquinas::Total& t, const totals::Lectura::Clave& fila) {
    recibidos_[{t.numero, t.hora}] = {fila, contadores(t)};
  }
  virtual QString lugar() const = 0;
  // May the list end without any records?
  virtual bool puedeVenirVacia() const { return true; }

 private:
  Resultado<motor::Siguiente> paso() final;
  void tomar(const QByteArray& datos);
  using Recibidos =
      std::map<totals::Lectura::Clave, std::pair<totals::Lectura::Clave, totals::Contadores>>;
  Recibidos recibidos_;
  DudaDeLista<Recibidos> duda_;
  std::optional<Error> malo_;  // the first unreadable record of the list
  int fase_ = 1;               // 1 ask, 2 wait for frames, 0 done
};

// Kind 3: a list from each register in turn; the registers stay apart. A list has each of its
// records once: a repeated one, sent twice or by a register that began anew, replaces the earlier.
// The rows are made when the list has ended.
class ListasCaja : public Totales {
 public:
  ListasCaja(const motor::DatosTarea& t, const motor::Entorno& e);
  bool encaja(int addr, int codigo, const QByteArray& datos) const final;
  Resultado<> respuesta(int addr, int codigo, const QByteArray& datos) final;
  void salto() final { duda_.dudar(); }
  void reanudar() final;
  qint64 avance() const override { return static_cast<qint64>(indice_); }
  QString MostrarTraza() const override;

 protected:
  virtual maquinas::Peticion pregunta() const = 0;
  virtual Resultado<> registro(const QByteArray& datos, totals::Lectura::Filas& filas) = 0;
  virtual QString lugar() const = 0;

 private:
  Resultado<motor::Siguiente> paso() final;
  int direccion() const { return t_.Direcciones[indice_]; }
  size_t indice_ = 0;
  int fase_ = 1;  // 1 ask the register, 2 wait for the next record
  using Registros = std::map<QByteArray, QByteArray>;
  Registros lista_;  // records of the present list by subject
  DudaDeLista<Registros> duda_;
  std::optional<Error> malo_;  // the first unreadable record of the list
};

// A reading by position, whose rows have the operator of the position.
template <class Lista>
class ConOperadores : public Lista {
 public:
  using Lista::Lista;

 protected:
  Resultado<> preparar() override {
    TARVO_TOMAR(const auto r, leerOperadores(this->e_, this->t_.Grupo));
    operadores_ = r;
    return {};
  }
  bool esPosicion(qint64 n) const { return n >= 1 && n < static_cast<qint64>(operadores_.size()); }
  // REQUIRES esPosicion(n).
  qint64 operador(qint64 n) const { return operadores_[static_cast<size_t>(n)]; }

 private:
  std::array<qint64, 21> operadores_{};
};

}  // namespace tarvo::tareas
