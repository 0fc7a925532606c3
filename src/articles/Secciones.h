// Sections (whole catalogues) and their departments.
#pragma once

#include <array>
#include <functional>
#include <map>

#include "articles/Catalogo.h"
#include "articles/Limites.h"

namespace tarvo::articles {

inline constexpr int kUltimaSeccion = 255;

// The VAT rates of a section in hundredths of a per cent; a department refers to one by position,
// from 1.
inline constexpr int kTiposIva = 5;
using Ivas = std::array<int, kTiposIva>;
// As in SECCS.IVAs: percentages separated by "@". A missing or invalid one is 0.
Ivas leerIvas(const QString& texto);
QString escribirIvas(const Ivas& ivas);

// A section's VAT: its rates, and the one of each department.
struct IvasSeccion {
  struct Departamento {
    int numero = 0, tipo = 1;
    QString nombre;
    bool operator==(const Departamento&) const = default;
  };
  Ivas tasas{};
  std::vector<Departamento> departamentos;
  bool operator==(const IvasSeccion&) const = default;
};

class Secciones {
 public:
  // REQUIRES that the catalogue outlives it.
  explicit Secciones(Catalogo& catalogo)
      : db_(catalogo.base()), textos_(catalogo.textos()), cambios_(catalogo.cambios()) {}

  // All sections with their departments, by number.
  struct Rama {
    int numero = 0;
    QString nombre;
    IvasSeccion ivas;
  };
  Resultado<std::vector<Rama>> arbol();
  // Number of articles in each department, by section and number, and in each section under
  // department 0; system articles are not counted.
  using CuentaArticulos = std::map<std::pair<int, int>, qint64>;
  static Resultado<CuentaArticulos> contarArticulos(dao::Database& db);

  // Returns its number. Restriccion when all are taken.
  Resultado<int> nueva();
  // An empty name is refused.
  Resultado<> renombrar(int seccion, const QString& nombre);
  struct Cuentas {
    int plus = 0, depts = 0, grupos = 0;
  };
  Resultado<Cuentas> cuentas(int seccion);
  // Everything deleted with it.
  struct VentasDeGrupo {
    int grupo = 0;
    QString nombre = {};
    qint64 importe = 0;  // minor units of the stored money
  };
  struct LoQueSeVa {
    Cuentas cuentas;
    std::vector<VentasDeGrupo> ventas = {};  // read from its groups, and in no period yet
    int maquinas = 0, ofertas = 0, existencias = 0, historia = 0;
    int tareas = 0;  // queued for its groups
    bool vacia() const { return cuentas.plus + cuentas.depts + cuentas.grupos == 0; }
  };
  // System articles are not counted.
  Resultado<LoQueSeVa> loQueSeVa(int seccion);
  // With its articles, departments and groups, and what is kept by their numbers, which a later
  // section with the same number must not inherit.
  // Ocupado when a machine of its groups is being talked to.
  Resultado<> borrar(int seccion);
  const Cambios& cambios() const { return cambios_; }
  Resultado<Ivas> ivas(int seccion);
  Resultado<> ponerIvas(int seccion, const Ivas& ivas);
  Resultado<IvasSeccion> ivasDe(int seccion);
  // Rates and departments, in one transaction.
  Resultado<> ponerIvasDe(int seccion, const IvasSeccion& ivas);

  Resultado<int> nuevoDepartamento(int seccion);
  // Takes back a section (department 0) or a department that was made just now. Restriccion when
  // something is in it by now.
  Resultado<> quitarNuevo(int seccion, int departamento);
  Resultado<> renombrarDepartamento(int seccion, int departamento, const QString& nombre);
  // 1 to kTiposIva.
  Resultado<> ponerTipoIva(int seccion, int departamento, int tipo);
  Resultado<int> articulosDe(int seccion, int departamento);
  // As it was before it was deleted, unless there is again one with that number.
  Resultado<> reponerDepartamento(int seccion, int departamento, const QString& nombre,
                                  int tipoIva);
  // With its articles; groups holding them must delete them. `lote`: the batch that can bring them
  // back.
  Resultado<> borrarDepartamento(int seccion, int departamento, qint64 lote = 0);

 private:
  // One after the last of these, in ascending order; if that is beyond `ultimo`, the first free
  // one.
  Resultado<int> numeroLibre(dao::Abierta usados, int ultimo);
  Resultado<> borrarGrupos(int seccion);
  Resultado<std::vector<int>> gruposDe(int seccion);
  Resultado<std::vector<VentasDeGrupo>> ventasDe(int seccion);
  Resultado<int> cuantos(QStringView cuenta, std::span<const dao::Valor> valores);

  dao::Database& db_;
  const Textos& textos_;
  Cambios& cambios_;
};

// A copy of a section with its departments and articles, named as incomplete until it is whole.
// Steps for Trabajo.
class CopiaSeccion {
 public:
  // REQUIRES that the catalogue outlives it.
  CopiaSeccion(Catalogo& catalogo, int origen)
      : db_(catalogo.base()), textos_(catalogo.textos()), secciones_(catalogo), origen_(origen) {}

  // Rows are counted in articles; false when it is done.
  Resultado<bool> paso(qint64& hechos, qint64& total);
  // Removes what was copied so far, or the whole copy; after a failure it can be tried again.
  Resultado<> deshacer();
  int numero() const { return destino_; }  // 0 before the first step
  int origen() const { return origen_; }

 private:
  Resultado<bool> empezar(qint64& total);
  Resultado<bool> acabar();

  dao::Database& db_;
  const Textos& textos_;
  Secciones secciones_;
  int origen_, destino_ = 0;
  QString nombre_;
  qint64 ultimo_ = -1;  // code copied last
};

}  // namespace tarvo::articles
