// A shop without wires: machines that only count, and the books over a real database. A ledger of
// all sales is kept beside them, so that a test can check that every sale is in the periods once.
#pragma once

#include <QTemporaryDir>
#include <map>
#include <memory>
#include <set>

#include "core/tiempo/Reloj.h"
#include "tienda/Tienda.h"
#include "totals/libros/CerrSes.h"
#include "totals/periodos/VerTot.h"

namespace tarvo::prueba {

// Counters by article, once for each kind of total, which a register clears separately; a group may
// have several registers.
struct MaquinaContable {
  using Cuentas = std::map<qint64, totals::Contadores>;
  Cuentas articulos, granTotal, departamentos;
  totals::Contadores libro;  // all sales ever, zeroed or not
  bool olvido = false;       // cleared; a test takes it back once the books have its sales
  // For a return the count may go down with the amount.
  void vender(qint64 articulo, qint64 importe, qint64 gramos, qint64 cuenta = 1) {
    const totals::Contadores v{cuenta, gramos, importe, 0};
    for (auto* c : {&articulos, &granTotal, &departamentos}) (*c)[articulo] += v;
    libro += v;
  }
  Cuentas& de(TipoTotal clase) {
    return clase == TipoTotal::PLUs        ? articulos
           : clase == TipoTotal::GranTotal ? granTotal
                                           : departamentos;
  }
  void ponerACero() {
    articulos.clear(), granTotal.clear(), departamentos.clear();
    olvido = true;
  }
};

// What a machine's grand total shows after its confirmation: no answer, zero, the same as before.
enum class Tras { SinVer, Cero, Igual };

class TiendaDeLibros : public Tienda {
 public:
  explicit TiendaDeLibros(Fecha inicio);

  // Throws the process's state away and reopens the database, as after a power cut.
  void cortar();
  using Tienda::grupo, Tienda::leer;
  void grupo(int numero, std::vector<int> direcciones = {0}, int tipo = 1);
  // Reads articles, grand total and departments of a group, as three tasks do.
  void leer(int numero);
  void leerSolo(int numero, TipoTotal clase);
  // A reading with the records of these codes lost.
  void leerSin(int numero, TipoTotal clase, const std::set<qint64>& perdidos);
  std::vector<qint64> memorizar(bool sustituir = true, bool aUno = true);
  // Asks for permission, announces, empties the machines and confirms. False when the group may not
  // be zeroed.
  bool ponerACero(int numero, bool llega = true, bool confirma = true, Tras tras = Tras::Cero);

  // The counters of a kind over all periods of a group, except those that only sum others.
  totals::Contadores enPeriodos(int numero, TipoTotal clase) const;
  qint64 enPeriodo(qint64 link, TipoTotal clase) const;
  totals::Contadores vendido(int numero) const;
  std::vector<qint64> responder(int numero, int addr, bool olvido);
  QString textoAvisos() const;
  // The next day, or later the same day, with a new run.
  void amanecer(int dias = 1);
  void masTarde(int minutos);
  // From here on the periods hold all sales: the machines are empty.
  void desdeCero();
  // While the disk is full, by a trigger (the text after its name), nothing is memorised and group
  // 1 is not zeroed; afterwards nothing is missing.
  void nadaSeMemoriza(const QString& disparador);
  // The periods hold the group's sales, in all kinds.
  void cuadra(int numero) const;

  dao::Database& db() { return *p_->db; }
  const Ajustes& ajustes() const { return p_->ajustes; }
  totals::Periodos& periodos() { return p_->periodos; }
  totals::VerTot& verTot() { return p_->verTot; }
  totals::Sesion& sesion() { return p_->sesion; }
  totals::CerrSes& cierre() { return p_->cierre; }

  RelojVirtual reloj;
  std::map<int, std::map<int, MaquinaContable>> grupos;
  std::vector<totals::Aviso> avisos;
  qint64 ejecucion = 0;
  bool reanuda = false;

 private:
  dao::Database& base() override { return db(); }
  struct Proceso {
    Proceso(const QString& carpeta, Reloj& reloj);
    std::unique_ptr<dao::Database> db;
    Ajustes ajustes;
    stock::Almacenes almacenes;
    totals::Periodos periodos;
    totals::Sesion sesion;
    totals::CerrSes cierre;
    totals::VerTot verTot;
  };
  QTemporaryDir carpeta_;
  std::unique_ptr<Proceso> p_;
};

}  // namespace tarvo::prueba
