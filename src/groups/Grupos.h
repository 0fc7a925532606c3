// The shop's groups of machines: listing, loading, storing, copying and deleting them, with all
// that other rooms keep by their codes.
#pragma once

#include <memory>
#include <optional>
#include <set>
#include <vector>

#include "articles/Catalogo.h"
#include "comm/configuracion/Aceptado.h"
#include "core/ajustes/Ajustes.h"
#include "core/dao/Apartado.h"
#include "groups/Edicion.h"

namespace tarvo::groups {

inline constexpr int kUltimoCodigo = 9999;  // four digits in an export of totals
inline constexpr int kLargoDeNombre = 30;

struct Resumen {
  int codigo = 0;
  QString nombre = {};
  int seccion = 0;
  std::optional<TipoGrupo> tipo = {};
  std::optional<TipoAcceso> acceso = {};
  int maquinas = 0;
};

class Grupos {
 public:
  // REQUIRES that catalogue and settings outlive it.
  Grupos(articles::Catalogo& catalogo, const Ajustes& ajustes);

  // By section and code.
  Resultado<std::vector<Resumen>> todos();
  // One after the last; if that is beyond kUltimoCodigo, the first free one. Restriccion when all
  // are taken.
  Resultado<int> codigoNuevo();
  // NoExiste when there is none with that code.
  Resultado<devices::Grupo> cargar(int codigo);

  // The group with its name, to be edited: one that is stored, or a new one of a section, of which
  // everything is to be sent. Nothing is stored.
  Resultado<GrupoEditado> abrir(int codigo);
  Resultado<GrupoEditado> nuevo(int seccion, bool cajas);
  // What its machines have accepted of their configuration as it is stored, for each kind that they
  // take.
  Resultado<std::vector<configuracion::Estado>> estados(int codigo);
  // By name.
  Resultado<std::vector<FormatoEtiqueta>> formatos();

  // What keeps the group from being stored under that code and name, each thing once; empty for
  // nothing.
  enum class FaltaDe { Codigo, Nombre, Maquinas, Seccion, Telefono, Direccion };
  struct Falta {
    FaltaDe de = FaltaDe::Codigo;
    QString texto;              // in words
    QString regla = {};         // of an address: what it must be, where its register is shown
    std::set<int> sitios = {};  // the registers whose addresses are wrong
    bool operator==(const Falta&) const = default;
  };
  Resultado<std::vector<Falta>> faltas(const devices::Grupo& grupo, int codigo,
                                       const QString& nombre);
  // In one transaction. Under another code the group takes along all that is kept by its old one,
  // in the periods as well. With machines of another kind what the books and the queue know of the
  // old ones is forgotten, and so is what is known of a register that leaves; one whose address
  // changes takes it along. Restriccion while the inbox has sales that no period has of machines
  // that leave. Ocupado when a machine is being talked to and the code, the kind or the registers
  // change.
  Resultado<> guardar(devices::Grupo& grupo, int codigo, const QString& nombre);
  // Takes over what has been stored of the group since it was opened as `abierto` (its name, its
  // section, its operators, the names of its label formats), where `editado` is still as it was
  // then. NoExiste when the group has been deleted.
  Resultado<> ponerAlDia(GrupoEditado& editado, const GrupoEditado& abierto);
  Resultado<> renombrar(int codigo, const QString& nombre);
  // The new group's code. Nothing that other rooms keep of the old one goes with it.
  Resultado<int> copiar(int codigo, int seccion);

  struct LoQueSeVa {
    int maquinas = 0, ofertas = 0;
    int tareas = 0;  // queued
    std::optional<qint64> ventas =
        {};  // read, and in no period yet; minor units of the stored money
  };
  Resultado<LoQueSeVa> loQueSeVa(int codigo);
  // Whether anything but its row and its machines is kept by that code, in any room, whether there
  // is such a group or not.
  Resultado<bool> conRastro(int codigo);
  // Nothing that a later group with its code could inherit stays. Ocupado when a machine is being
  // talked to.
  Resultado<> borrar(int codigo);

 private:
  friend class BorradoGrupo;
  Resultado<articles::Cambios::CambioDeGrupo> cambioDe(const devices::Grupo& grupo, int codigo);
  Resultado<> puedeCambiar(int codigo);
  Resultado<> sinVentasQueSeVayan(int codigo, int texto);
  Resultado<> mudar(int de, int a);

  dao::Database& db_;
  const Textos& textos_;
  const articles::Cambios& cambios_;
  const Ajustes& ajustes_;
};

// A deleted group, which can be restored as long as this object lives.
class BorradoGrupo {
 public:
  // REQUIRES that `grupos` outlives it.
  BorradoGrupo(Grupos& grupos, int codigo);
  Resultado<> borrar();
  // Duplicado when its code has been taken.
  Resultado<> reponer();
  int codigo() const { return codigo_; }

 private:
  Grupos& grupos_;
  int codigo_;
  dao::Apartado apartado_;
};

}  // namespace tarvo::groups
