// The VAT rates of a section, and which of them each department has: EdIvaSeccs. Argument:
// "seccion".
#pragma once

#include "articles/Secciones.h"
#include "core/ventanas/marco/Ventana.h"
#include "ui_EdIvaSeccs.h"

namespace tarvo::articles {

class EdIvaSeccs final : public ventanas::Ventana {
  Q_OBJECT
 public:
  EdIvaSeccs(ventanas::Contexto& contexto, const QString& nombre, Catalogo& catalogo);
  Resultado<> preparar(const ventanas::Argumentos& argumentos) override;
  bool QueryUnload() override;

 private:
  struct Departamento {
    int numero = 0, tipo = 1;
    QString nombre;
    bool operator==(const Departamento&) const = default;
  };

  void pintar();
  Resultado<> ponerTasa(qint64 tipo, const QString& texto);
  Resultado<> ponerTipo(qint64 departamento, const QString& texto);
  Resultado<> escribir();
  void guardar();

  Ui::EdIvaSeccs ui_;
  Secciones secciones_;
  int seccion_ = 1;
  Ivas ivas_{}, antes_{};
  std::vector<Departamento> departamentos_, deptsAntes_;
};

}  // namespace tarvo::articles
