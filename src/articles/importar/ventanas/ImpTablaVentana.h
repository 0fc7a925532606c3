// ImpTabla: imports articles from a CSV file or a spreadsheet, in four steps: file, columns,
// preview of the changes, result. Stopping the last step undoes its changes so far.
#pragma once

#include "articles/importar/ImpTabla.h"
#include "articles/importar/LeerTabla.h"
#include "articles/importar/ventanas/ComunImportar.h"
#include "articles/importar/ventanas/Puertas.h"
#include "core/tiempo/Trabajo.h"
#include "core/ventanas/marco/Ventana.h"
#include "core/ventanas/parrilla/Aparte.h"
#include "ui_ImpTabla.h"

namespace tarvo::importar {

class ImpTablaVentana final : public ventanas::Ventana {
  Q_OBJECT
 public:
  ImpTablaVentana(ventanas::Contexto& contexto, const QString& nombre,
                  articles::Catalogo& catalogo);
  Resultado<> entrar(const PuertaImpTabla& puerta);
  bool QueryUnload() override;

 private:
  enum Paso { kFichero, kColumnas, kPrevia, kResultado };
  void montar();
  void montarPrevia();
  void irA(Paso paso);
  void atras();
  void siguiente();
  void botones();

  void leer(const QString& ruta);
  void leido(Resultado<TablaLeida> tabla);
  void mostrarColumnas();
  void mirarSigno();
  Plan plan() const;
  void ensayar();
  // Runs one pass of the engine over all rows, in slices.
  void recorrer(int texto, Resultado<bool> (ImpTabla::*paso)(), int (ImpTabla::*hechas)() const,
                void (ImpTablaVentana::*acabar)(const Resultado<Trabajo::Fin>&));
  void ensayado(const Resultado<Trabajo::Fin>& fin);
  void mostrarPropuestas();
  void aplicar();
  void aplicado(const Resultado<Trabajo::Fin>& fin);

  Ui::ImpTabla ui_;
  articles::Catalogo& catalogo_;
  articles::Lotes lotes_;
  Deshacedor deshacedor_;
  ventanas::Aparte aparte_;
  QString fichero_;
  std::unique_ptr<TablaLeida> leida_;
  std::unique_ptr<ImpTabla> motor_;
  Paso paso_ = kFichero;
  bool leyendo_ = false, signoElegido_ = false, aplicando_ = false;
};

}  // namespace tarvo::importar
