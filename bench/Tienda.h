// Shared by the measurements of windows that work on the catalogue: a shop with its
// engine.
#pragma once

#include <QApplication>

#include "Pintado.h"
#include "articles/AjustesArticulos.h"
#include "articles/Catalogo.h"
#include "articles/Operadores.h"
#include "articles/TablasArticulos.h"
#include "articles/ventanas/RegistrarVentanas.h"
#include "comm/cables/AjustesCables.h"
#include "comm/cables/FabricaReal.h"
#include "comm/enlace/AjustesEnlace.h"
#include "comm/motor/AjustesMotor.h"
#include "comm/motor/gestcomm.h"
#include "comm/tareas/Repertorio.h"
#include "core/ventanas/marco/Escritorio.h"
#include "totals/libros/AjustesSesion.h"

namespace tarvo::banco {

class Tienda {
 protected:
  // `hacer`: the database, at that path.
  template <class F>
  Tienda(QApplication& qt, F hacer)
      : db_(hacer(carpeta_.filePath(QStringLiteral("TARVO.MDB")))),
        escritorio_(qt, *db_, ajustes_, textos_, reloj_, ventanas::Cara::Clara, {}) {
    articles::registrarVentanasArticulos(escritorio_.ventanas(), catalogo_, operadores_, motor_);
  }

  QTemporaryDir carpeta_;
  RelojReal reloj_;
  Azar azar_{1};
  std::unique_ptr<dao::Database> db_;
  Ajustes ajustes_{carpeta_.path(),
                   Idioma::Espanol,
                   {articles::ajustesArticulos(), enlace::ajustesCables(), enlace::ajustesEnlace(),
                    motor::ajustesMotor(), totals::ajustesSesion()}};
  Textos textos_ = bien(Textos::leer(QStringLiteral(":/textos/es.txt")));
  articles::Catalogo catalogo_{*db_, textos_, reloj_, QStringLiteral("banco")};
  articles::Operadores operadores_{*db_, textos_};
  totals::Sesion sesion_{*db_, ajustes_, reloj_, textos_};
  enlace::FabricaReal fabrica_{reloj_, ajustes_};
  enlace::Enlaces enlaces_{reloj_, ajustes_, fabrica_, azar_};
  motor::RepertorioTareas repertorio_ = tareas::repertorio();
  motor::gestcomm motor_{{*db_, ajustes_, reloj_, sesion_, textos_}, enlaces_, repertorio_};
  ventanas::Escritorio escritorio_;
};

}  // namespace tarvo::banco
