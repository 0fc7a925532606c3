// A group: the machines that share one access, one section, one tariff, one list of operators and
// one set of ticket options. A plain data holder with load and store; the communications engine
// reads the tables by itself.
#pragma once

#include <array>
#include <map>
#include <memory>
#include <variant>
#include <vector>

#include "core/dao/Database.h"
#include "core/valores/Tipos.h"
#include "devices/Maquina.h"

namespace tarvo::devices {

using Miembro = std::variant<Balanza, Registradora>;

class Grupo {
 public:
  explicit Grupo(Idioma idioma = Idioma::Espanol) : idioma_(idioma) {}

  bool SonCes() const { return tipo_ == TipoGrupo::Ebony; }
  // Nothing while it has none: a new group, or one with an unknown number in its row, which the row
  // then keeps.
  std::optional<TipoGrupo> tipo() const { return tipo_; }
  void tipo(std::optional<TipoGrupo> nuevo);  // also sizes the tables of operators and departments

  // Positions count from 1 to MaxOperadores. Outside this range reading gives "", 0 or False, and
  // writing does nothing.
  QString Operador(int n) const;
  int CodOperador(int n) const;
  // A code above 0 is stored, with its name while the operators are open; 0 or below clears the
  // position.
  Resultado<> CodOperador(int n, int codigo);
  bool Training(int n) const;
  void Training(int n, bool si);
  // Rates 1 to 5, percent; a rate of 100 or more is ignored.
  float TipoIVA(int n) const;
  void TipoIVA(int n, float tasa);
  // Departments 1 to MaxDepartamentos have the number of their rate, 1 to 5.
  int IVADepartam(int n) const;
  void IVADepartam(int n, int indice);
  QString NombreDepartamento(int n) const;

  // Loads the group of the row under the cursor of GRUPOS, with its machines.
  Resultado<> LetValues(dao::Database& db, const dao::Recordset& fila);
  // Stores group, machines and, for a new code, its row of Sesiones: one transaction. A loaded
  // group updates its own row, even under another code.
  Resultado<> SaveAs(dao::Database& db, int codigo, const QString& nombre);
  Resultado<> AbreOperadores(dao::Database& db);
  void CierraOperadores() { operadores_.reset(); }
  // The code under which the group is stored; nothing until it is loaded or saved.
  std::optional<int> codigo() const { return codigo_; }

  int seccion = 1, tarifa = 0, Almacen = 0;
  // Nothing if the row has an unknown number, which it then keeps.
  std::optional<TipoAcceso> Acceso = TipoAcceso::Ninguno;
  QString Telefono;  // Dirección of the accesses 1, 3 and 4
  int Canal = 1;     // Dirección of the direct cable
  int Baudios = 0, NumGpo = 0;
  bool EnLinea = false;
  // Date, time, PLU description, change, VAT, euro, ingredients, logo.
  std::array<bool, 8> TicketFlags{true, true, true, true, true, false, false, false};
  bool Copia = false, CopiaBarras = false;
  int CopiaPausa = 0;
  QString E13_PE = QStringLiteral("CCCCCCKIIIII"), E08_PE = QStringLiteral("CCIIIII");
  QString E13_CU = QStringLiteral("CCCCCCKIIIII"), E08_CU = QStringLiteral("CCIIIII");
  int TOTE = 0, TOCO = 0;
  bool PITO = true, SALT = true, PRLI = true;
  QString Horario;  // as stored, see totals/periodos/Calendario.h; empty for none
  std::map<int, Miembro> LasBalanzas;  // by number

  // REQUIRES the operators of both closed.
  bool operator==(const Grupo&) const = default;

 private:
  struct OperadorGrupo {
    int codigo = 0;
    QString nombre;
    bool training = false;
    bool operator==(const OperadorGrupo&) const = default;
  };
  Resultado<QString> nombreOperador(int codigo) const;
  void leerFila(const dao::Recordset& fila);
  void leerAcceso(const dao::Recordset& fila);
  void leerTicket(const dao::Recordset& fila);
  Resultado<> leerOperadores(const dao::Recordset& fila);
  Resultado<> leerDepartamentos(dao::Database& db, const dao::Recordset& fila);
  Resultado<> leerMiembros(dao::Database& db);
  Resultado<> guardarFila(dao::Database& db, int codigo, const QString& nombre) const;
  void ponerFila(dao::Recordset& fila) const;
  void ponerAcceso(dao::Recordset& fila) const;
  void ponerListas(dao::Recordset& fila) const;
  Resultado<> guardarMiembros(dao::Database& db, int codigo) const;

  Idioma idioma_;
  std::optional<int> codigo_;
  std::optional<TipoGrupo> tipo_;
  std::vector<OperadorGrupo> operadoresGrupo_;
  std::array<float, 5> ivas_{};
  std::vector<int> ivaDepartamentos_;
  std::vector<QString> nombresDepartamentos_;
  std::shared_ptr<dao::Recordset> operadores_;
};

}  // namespace tarvo::devices
