// The Database over one SQLite file.
#pragma once

#include <QHash>

#include "core/dao/sqlite/Catalogo.h"

namespace tarvo::dao {

class Base final : public Database {
 public:
  explicit Base(std::shared_ptr<Conexion> con);

  Resultado<std::unique_ptr<Recordset>> OpenTable(QStringView tabla, QStringView indice) override;
  Resultado<std::unique_ptr<Recordset>> OpenQuery(QStringView sql,
                                                  std::span<const Valor> parametros) override;
  Resultado<qint64> Execute(QStringView sql, std::span<const Valor> parametros) override;
  Resultado<std::unique_ptr<Sentencia>> preparar(QStringView sql) override;
  Resultado<> ejecutarGuion(QStringView guion) override;
  Resultado<> BeginTrans() override { return con_->empezar(); }
  Resultado<> CommitTrans() override { return con_->confirmar(); }
  void Rollback() override;
  int profundidad() const override { return con_->profundidad(); }
  bool existeTabla(QStringView nombre) override { return catalogo_->existe(nombre); }
  bool existeColumna(QStringView tabla, QStringView columna) override;
  QStringList columnas(QStringView tabla) override;
  Resultado<> copiarColumna(QStringView origen, QStringView columna, QStringView copia) override;
  const QString& ruta() const override { return con_->ruta; }
  Resultado<> copiarEn(const QString& ruta) override;
  Resultado<> asentar() override;
  qint64 cambios() const override { return con_->cambios(); }

 private:
  Resultado<Preparada> traducida(QStringView sql);
  Resultado<Preparada*> guardada(QStringView sql, std::span<const Valor> parametros);

  std::shared_ptr<Conexion> con_;
  std::shared_ptr<Catalogo> catalogo_;
  std::map<QString, Preparada> guardadas_;  // by the text in the Jet dialect
};

}  // namespace tarvo::dao
