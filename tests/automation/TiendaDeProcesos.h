// A shop for the runner: the real rooms of the books on a database in a folder, machines made of a
// map of counters, and kinds of task that read and reset them. The folder and the machines survive
// a cut; everything else is thrown away.
#pragma once

#include <QTemporaryDir>
#include <functional>
#include <map>
#include <set>

#include "automation/Automat.h"
#include "tienda/Tienda.h"

namespace tarvo::automation {

// Thrown where the program is killed.
struct Corte {};

// A clock on top of the virtual one that kills the program when it asks for the time for the n-th
// time.
class RelojConCorte final : public Reloj {
 public:
  explicit RelojConCorte(RelojVirtual& base) : base_(base) {}
  Fecha ahora() const override {
    if (corteEn > 0 && ++preguntas_ == corteEn) throw Corte{};
    return base_.ahora();
  }
  qint64 monotono() const override { return base_.monotono(); }
  std::unique_ptr<Temporizador> temporizador(std::function<void()> f) override {
    return base_.temporizador(std::move(f));
  }
  int corteEn = 0;

 private:
  RelojVirtual& base_;
  mutable int preguntas_ = 0;
};

struct Maquinas {
  std::map<int, totals::Contadores> porGrupo;
  std::set<int> mudas;                // groups with a silent machine
  int ceros = 0;                      // resets obeyed by a machine
  std::function<void()> alPreguntar;  // called while a task's frames are passing
};

// The machines read by the kinds of task of `registroDePrueba`.
Maquinas& maquinasDePrueba();
motor::RepertorioTareas registroDePrueba();

class SinRespuestas final : public Preguntas {
 public:
  std::optional<qint64> PromptNum(const QString& n, const QString&) override {
    return de(numeros, n);
  }
  std::optional<QString> PromptStr(const QString& n, const QString&) override {
    return de(textos, n);
  }
  std::optional<std::pair<Fecha, Fecha>> PromptFch(const QString& n, const QString&) override {
    return de(fechas, n);
  }
  std::map<QString, qint64> numeros;
  std::map<QString, QString> textos;
  std::map<QString, std::pair<Fecha, Fecha>> fechas;
  int preguntas = 0;
  std::function<void()> mientras;  // what happens while a question is on the screen

 private:
  template <class T>
  std::optional<T> de(const std::map<QString, T>& valores, const QString& nombre) {
    ++preguntas;
    if (mientras) mientras();
    const auto it = valores.find(nombre);
    return it == valores.end() ? std::nullopt : std::optional(it->second);
  }
};

// One life of the program on the shop's folder.
class Programa : public prueba::Tienda {
 public:
  Programa(const QString& carpeta, RelojVirtual& reloj, Preguntas& respuestas, int corteEn = 0);
  ~Programa() override;

  void correr(const QString& proceso, const QString& traza = {},
              const QString& nombre = QStringLiteral("NOCHE"));
  // Until the run ends; false when it hasn't after `horas`.
  bool hastaElFin(double horas = 12);

  struct Piezas;
  std::unique_ptr<Piezas> p;
  QStringList lineas;
  std::optional<ResultadoProceso> fin;
  Automat& automat();
  dao::Database& db();
  motor::gestcomm& motor();
  totals::Sesion& sesion();
  totals::VerTot& verTot();
  const Lenguaje& lenguaje();
  Ajustes& ajustes();
  Reloj& reloj();

 private:
  dao::Database& base() override { return db(); }
  RelojVirtual& virtual_;
};

// The shop: a folder with its database, two answering groups and the clock.
struct TiendaDeProcesos {
  TiendaDeProcesos();
  QTemporaryDir dir;
  RelojVirtual reloj{Fecha::de(QDate(2026, 3, 4), QTime(22, 0))};
  SinRespuestas respuestas;
  std::unique_ptr<Programa> programa(int corteEn = 0) {
    return std::make_unique<Programa>(dir.path(), reloj, respuestas, corteEn);
  }
  // The whole contents of the books, one line per row, without run numbers and times.
  QStringList libros();
  QString texto(const QString& fichero) const;
};

}  // namespace tarvo::automation
