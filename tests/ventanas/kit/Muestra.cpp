#include "Muestra.h"

#include <QHBoxLayout>

namespace tarvo::prueba {

using namespace ventanas;

std::vector<Columna> columnasArticulos() {
  return {
      {.titulo = 9910, .campo = u"CODIGO"_s, .clase = Clase::Codigo, .cifras = 7},
      {.titulo = 9911, .campo = u"NOMBRE"_s, .clase = Clase::Texto, .ancho = 220},
      {.titulo = 9914, .campo = u"FECHA"_s, .clase = Clase::Fecha},
      {.titulo = 9913, .campo = u"CANTIDAD"_s, .clase = Clase::Cantidad, .campoCada = u"CADA"_s},
      {.titulo = 9912, .campo = u"IMPORTE"_s, .clase = Clase::Importe, .suma = true},
      {.titulo = 9915, .campo = u"HECHO"_s, .clase = Clase::SiNo, .oculta = true},
      {.titulo = 9918, .campo = u"CADA"_s, .soloDato = true}};
}

void llenarArticulos(Mesa& m, int cuantos) {
  m.sql(
      u"CREATE TABLE ART (CODIGO INTEGER PRIMARY KEY, NOMBRE TEXT, FECHA DOUBLE, CANTIDAD INTEGER, "
      u"CADA INTEGER, IMPORTE INTEGER, HECHO INTEGER)"_s);
  m.sql(
      u"with recursive n(i) as (select 1 union all select i+1 from n where i<?) insert into ART "
      u"select i, switch(i mod 3=0,'Jamón ',i mod 3=1,'Ñora ',true,'Árbol ') & "
      u"format(i,'000000'), 38353+i mod 400, i*7 mod 5000, i mod 3, iif(i mod 5=0,0,i mod "
      u"100000), i mod 2 from n where i<=?"_s,
      cuantos, cuantos);
}

Muestra::Muestra(Contexto& c, const QString& nombre, dao::Database& db)
    : Ventana(c, nombre), db_(db) {
  ui.setupUi(cuerpo());
  enlazar();
  ui.abrir->setIcon(icono(u"abrir"_s));
  ui.borrar->setIcon(icono(u"borrar"_s));
  ui.sumar->setIcon(icono(u"sumar"_s));
  ui.lista->preparar(c, nombre, columnasArticulos());
  ui.lista->filtros()->addWidget(ui.filtros);
  ui.division->setStretchFactor(0, 3);
  ui.division->setStretchFactor(1, 1);
  ui.lista->ponerVacia(t(9919), ui.abrir);
  ui.tareas->preparar(
      c, nombre,
      {{.titulo = 9916, .campo = u"TAREA"_s, .clase = Clase::Codigo, .cifras = 3, .ancho = 70},
       {.titulo = 9917,
        .campo = u"ESTADO"_s,
        .ancho = 130,
        .ver = [](const dao::Valor& v) { return v.texto(); },
        .estado =
            [](const dao::Valor& v) {
              return v.texto() == u"Acabada" ? Estado::Bien
                     : v.texto() == u"Error" ? Estado::Mal
                                             : Estado::Duda;
            }}});
  connect(ui.Acepto, &QPushButton::clicked, this, &Muestra::aceptar);
  connect(ui.Cancelo, &QPushButton::clicked, this, &Muestra::rechazar);
}

Resultado<> Muestra::entrar(const ComoMuestra& como) {
  modo = como.modo;
  if (alEntrar) alEntrar();
  if (como.falla) return fallo(Fallo::NoExiste, u"No hay tal periodo."_s, 3024);
  if (db_.existeTabla(u"ART"))
    TARVO_INTENTAR(ui.lista->abrir({.desde = u"ART"_s, .clave = u"CODIGO"_s}));
  std::vector<FilaViva> filas;
  int n = 0;
  for (const char16_t* estado : {u"Acabada", u"Error", u"Espera"})
    filas.push_back({++n, {dao::Valor(n), dao::Valor(estado)}});
  ui.tareas->vivas().poner(filas);
  return {};
}

}  // namespace tarvo::prueba
