// Checks the books of a night from the machines' sales and wipes and plain queries to the database
// file. It shares no code with the program.
#pragma once

#include <array>
#include <optional>

#include "noches/Base.h"
#include "noches/Plan.h"

namespace tarvo::noches {

// con, pes, imp, sco
using Suma = std::array<qint64, 4>;
// group, code, hour
using Sumas = std::map<std::array<qint64, 3>, Suma>;

struct MaquinaViva {
  PlanGrupo* grupo = nullptr;
  std::unique_ptr<simulador::Maquina> maquina;
  std::size_t puestas = 0;    // zeroings seen so far
  std::size_t alEmpezar = 0;  // number of sales and zeroings when the night began
  std::size_t puestasAlEmpezar = 0;
  bool incumple = false;  // this night it confirms without obeying
  struct Linea {
    simulador::Lista lista;
    qint64 peso = 0;  // unique among the lines of a shop
    bool olvidada = false;
  };
  std::vector<Linea> lineas;
  std::map<int, std::size_t> balanzas = {};  // new scales by number: since which question
  bool fuera = false;                        // it has left the shop
  // Then, by kind and key: what the books may have of it, as far as can be told.
  std::map<int, std::map<std::array<qint64, 3>, std::vector<Suma>>> contado = {};
};

class Oraculo {
 public:
  Oraculo(const Plan& plan, std::vector<MaquinaViva>& maquinas, const QString& carpeta);

  // A machine has just been zeroed: none of its contents may be missing.
  void puestaACero(std::size_t maquina);
  // A machine has just forgotten its list.
  void listaOlvidada(std::size_t maquina);
  // The program has ended. `resultado` is its exit status, or nothing if it was cut off for good.
  void finDeNoche(std::optional<int> resultado, bool calma, int arranques);
  // Machines of a group are about to leave it: the books have what they have of them, or would have
  // it with the readings that wait (`conBandeja`), and never anything else. REQUIRES that they are
  // of one group.
  void seVan(const std::vector<std::size_t>& cuales, bool conBandeja);
  // The group has another code, and what was known by the former one is its own.
  void otroCodigo(int antes, int ahora);
  // Which of a group's doubtful machines have forgotten their memorised sales.
  std::set<int> borradas(int grupo, const std::vector<int>& dudosas);
  Lector& base() { return base_; }
  QStringList diferencias;

 private:
  struct Bandeja {
    Sumas filas;
    std::map<qint64, Sumas> base;  // by address
    std::set<qint64> grupos;       // whose rows are of the open session
  };
  Sumas enPeriodos(int clase, const char* cuales = "1");
  // `conDudas`: also the readings that wait for a person's answer.
  Bandeja enBandeja(int clase, bool conDudas = false);
  qint64 familia(qint64 codigo) const;
  std::array<qint64, 3> clave(int clase, qint64 grupo, qint64 codigo, qint64 hora) const;
  using Prefijos = std::vector<std::vector<Suma>>;  // by machine of the group
  std::map<std::array<qint64, 3>, Prefijos> prefijos(int grupo, int clase,
                                                     const std::vector<std::size_t>& minimos) const;
  void contado(int grupo, int clase, const std::vector<std::size_t>& minimos, bool conBandeja,
               const QString& cuando);
  std::vector<Sumas> conLaBandeja(int grupo, int clase, bool conDudas = false);
  std::optional<QString> encaja(int grupo, int clase, const std::vector<std::size_t>& minimos,
                                const Sumas& hay) const;
  std::vector<std::size_t> minimos(int clase, bool todo) const;
  void grupos(bool todo, const QString& cuando);
  void semanas();
  void stock();
  void documentos(const QString& cuando);
  void exportados(int arranques, bool debe);
  void bloque(const QStringList& lineas, const QString& fichero);
  void anotar(const QString& texto) { diferencias += texto; }

  const Plan& plan_;
  std::vector<MaquinaViva>& maquinas_;
  const QString carpeta_;
  Lector base_;
  std::map<qint64, qint64> familias_;   // of codes that a group once had: its first one
  std::map<qint64, qint64> almacenes_;  // of all groups that ever were
  std::set<qint64> descuadrados_;       // groups with a reading that doesn't foot in some period
  std::map<QString, qint64> ficheros_;  // sizes at the end of the night before
};

}  // namespace tarvo::noches
