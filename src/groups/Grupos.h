// The shop's groups of machines: listing, loading, storing, copying and deleting them, with all
// that other rooms keep by their codes.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "articles/Catalogo.h"
#include "core/ajustes/Ajustes.h"
#include "core/dao/Apartado.h"
#include "devices/Grupo.h"

namespace tarvo::groups {

inline constexpr int kUltimoCodigo = 9999;  // four digits in an export of totals

struct Resumen {
  int codigo = 0;
  QString nombre = {};
  int seccion = 0;
  std::optional<TipoGrupo> tipo = {};
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

  // What keeps the group from being stored under that code and name, in words; empty for nothing.
  Resultado<QStringList> faltas(const devices::Grupo& grupo, int codigo, const QString& nombre);
  // In one transaction. Under another code the group takes along all that is kept by its old one,
  // in the periods as well. With machines of another kind what the books and the queue know of the
  // old ones is forgotten, and so is what is known of a register that leaves; one whose address
  // changes takes it along. Restriccion while the inbox has sales that no period has of machines
  // that leave. Ocupado when a machine is being talked to and the code, the kind or the registers
  // change.
  Resultado<> guardar(devices::Grupo& grupo, int codigo, const QString& nombre);
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
  Idioma idioma_;
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
