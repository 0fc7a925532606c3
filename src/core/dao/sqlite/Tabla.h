// A table recordset: rows of one table in the order of one index, ties broken by the row's number.
//
// Every way to reach rows is a kept statement: "key equal" and "key at or past" for each length of
// key, and "past this row". Nulls sort first; a key that holds one cannot be compared as a row of
// values and is walked level by level instead (same first parts and a greater next part, from the
// last part back to the first).
#pragma once

#include <map>
#include <optional>

#include "core/dao/sqlite/Filas.h"

namespace tarvo::dao {

class Tabla final : public Filas {
 public:
  Tabla(std::shared_ptr<Conexion> con, std::shared_ptr<Catalogo> catalogo,
        std::shared_ptr<const InfoTabla> info);

  Resultado<> MoveFirst() override;
  Resultado<> MoveNext() override;
  Resultado<> MoveLast() override;
  Resultado<> Index(QStringView nombre) override;
  Resultado<bool> Seek(Busca busca, std::span<const Valor> clave) override;
  bool NoMatch() const override { return noMatch_; }
  void AddNew() override { empezarEscritura(Modo::Nueva); }
  void Edit() override { empezarEscritura(Modo::Cambio); }
  void poner(int columna, const Valor& valor) override;
  Resultado<> Update() override;
  Resultado<> Delete() override;

 private:
  enum class Modo { Ninguno, Nueva, Cambio };

  // --- reading ---
  QString seleccion() const;
  QString orden(const char* sentido) const;
  QString listaClaves(size_t partes) const;
  Resultado<Preparada*> guardada(Preparada& p, const QString& sql);
  Resultado<Preparada*> igual(size_t partes);
  Resultado<Preparada*> desde(size_t partes);
  Resultado<Preparada*> detras();
  Resultado<> leer(Preparada& p, int maximo);
  Resultado<> leerDesde(std::span<const Valor> clave, std::optional<qint64> fila, int maximo);
  Resultado<> leerPorNiveles(std::span<const Valor> clave, std::optional<qint64> fila, int maximo);
  Resultado<> leerNivel(std::span<const Valor> clave, size_t iguales, std::optional<qint64> fila,
                        int maximo);
  void adoptar(int maximo);
  std::vector<Valor> claveActual() const;
  qint64 filaActual() const { return pagina_.entero(fila_, columnasLeidas_ - 1); }

  // --- writing ---
  void empezarEscritura(Modo modo);
  Resultado<Preparada*> escritura();
  Resultado<> cambiar(Preparada& p);

  std::shared_ptr<Conexion> con_;
  std::shared_ptr<Catalogo> catalogo_;
  std::shared_ptr<const InfoTabla> info_;
  QString indice_;  // its name in the file; empty: the order of the row numbers
  std::vector<ParteClave> claves_;
  std::vector<int> celdaClave_;  // the cell of each key part in a page
  int columnasLeidas_ = 0;       // columns, expressions of the key, the row's number

  std::vector<Preparada> iguales_, desdes_;
  Preparada detras_, ultima_, borrar_;
  std::map<QString, Preparada> niveles_;

  Pagina leida_;           // the page being read; becomes pagina_ when it is whole
  bool completa_ = false;  // the page ends where the table ends
  int maximo_ = 1;         // rows of the next page
  qint64 vista_ = -1;      // con_->cambios() when the page was read
  bool noMatch_ = false;

  struct Escritura {
    Modo modo;
    std::vector<int> columnas;
    Preparada sentencia;
  };
  Modo modo_ = Modo::Ninguno;
  std::vector<int> puestas_;    // columns in the order they were set
  std::vector<Valor> valores_;  // by column
  bool columnaMala_ = false;
  std::vector<Escritura> escrituras_;
};

}  // namespace tarvo::dao
