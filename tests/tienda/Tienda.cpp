#include "tienda/Tienda.h"

namespace tarvo::prueba {

using namespace Qt::StringLiterals;

void Tienda::insertar(const char16_t* tabla, const Campos& campos) {
  QStringList nombres;
  std::vector<V> valores;
  for (const auto& [nombre, valor] : campos) {
    nombres << u"[%1]"_s.arg(QStringView(nombre));
    valores.push_back(valor);
  }
  const QString texto = u"INSERT INTO [%1] (%2) VALUES (%3)"_s.arg(
      QStringView(tabla), nombres.join(u", "), u"?, "_s.repeated(nombres.size()).chopped(2));
  const auto r = base().Execute(texto, valores);
  EXPECT_TRUE(r) << texto.toStdString() << ": " << (r ? "" : r.error().texto.toStdString());
}

void Tienda::insertarLoDicho(const char16_t* tabla, const Campos& campos, const Campos& mas) {
  Campos dichos;
  for (const auto& c : campos)
    if (!c.second.nulo()) dichos.push_back(c);
  dichos.insert(dichos.end(), mas.begin(), mas.end());
  insertar(tabla, dichos);
}

Tienda& Tienda::seccion(int numero, const V& nombre, const V& ivas) {
  seccion_ = numero;
  if (uno(u"SELECT count(*) FROM SECCS WHERE NMSECC=?"_s, numero).entero() == 0)
    insertar(u"SECCS", {{u"NMSECC", numero}});
  sql(u"UPDATE SECCS SET NOMSEC=?, IVAs=coalesce(?, IVAs) WHERE NMSECC=?"_s, nombre, ivas, numero);
  return *this;
}

Tienda& Tienda::departamento(int numero, const V& nombre, const V& iva) {
  insertarLoDicho(
      u"DEPTS", {{u"SECCION", seccion_}, {u"NUMDEP", numero}, {u"NomDep", nombre}, {u"IVA", iva}});
  return *this;
}

Tienda& Tienda::articulo(const UnArticulo& a) {
  insertarLoDicho(u"PLUSES",
                  {{u"SECCION", seccion_},
                   {u"CODPLU", a.codigo},
                   {u"NOMPLU", a.nombre},
                   {u"DEPTO", a.depto},
                   {u"PRECIO_00", a.precio},
                   {u"COSTE", a.coste},
                   {u"CADA", a.cada},
                   {u"CodBarExt", a.barras}},
                  a.mas);
  return *this;
}

Tienda& Tienda::almacen(int codigo, const V& nombre) {
  if (uno(u"SELECT count(*) FROM ALMACEN WHERE CODALM=?"_s, codigo).entero() == 0)
    insertar(u"ALMACEN", {{u"CODALM", codigo}});
  sql(u"UPDATE ALMACEN SET NOMALM=? WHERE CODALM=?"_s, nombre, codigo);
  return *this;
}

Tienda& Tienda::grupo(const UnGrupo& g) {
  insertarLoDicho(u"GRUPOS",
                  {{u"CODGPO", g.codigo},
                   {u"NOMGPO", g.nombre},
                   {u"SECCION", seccion_},
                   {u"TIPO", g.tipo},
                   {u"Almacen", g.almacen},
                   {u"remoto", g.remoto},
                   {u"TELEF", g.acceso},
                   {u"ADDR", g.addr}},
                  g.mas);
  return *this;
}

Tienda& Tienda::operador(int codigo, const V& nombre) {
  insertar(u"OPERS", {{u"CODOPE", codigo}, {u"NOMOPE", nombre}});
  return *this;
}

Tienda& Tienda::cruce(int grupo, std::initializer_list<int> codigos, bool borra) {
  for (const int codigo : codigos)
    insertar(u"Cross",
             {{u"Secc", seccion_}, {u"plu", codigo}, {u"Grupo", grupo}, {u"borra", borra}});
  return *this;
}

Tienda& Tienda::oferta(const UnaOferta& o) {
  insertarLoDicho(u"OFERTAS", {{u"GRUPO", o.grupo},
                               {u"SECCION", seccion_},
                               {u"CODIGO", o.codigo},
                               {u"PRECIO_0", o.precio},
                               {u"FECHA_INI", o.desde},
                               {u"FECHA_FIN", o.hasta},
                               {u"enviado", o.enviado}});
  return *this;
}

Tienda& Tienda::existencias(const UnasExistencias& e) {
  insertarLoDicho(u"MovsAlm", {{u"CODALM", e.almacen},
                               {u"SECCION", seccion_},
                               {u"CODIGO", e.codigo},
                               {u"Inicial", e.inicial},
                               {u"Venta", e.venta}});
  return *this;
}

Tienda& Tienda::periodo(const UnPeriodo& p) {
  insertarLoDicho(u"COLUMNA", {{u"LINK", p.link},
                               {u"TIPO", p.tipo},
                               {u"FECHA1", p.desde},
                               {u"FECHAF", p.hasta},
                               {u"DESCR", p.descr},
                               {u"stkABLE", p.stkABLE}});
  return *this;
}

Tienda& Tienda::total(const char16_t* tabla, const UnTotal& t) {
  insertarLoDicho(tabla, {{u"LINK", t.link},
                          {u"GRUPO", t.grupo},
                          {u"CODI", t.codi},
                          {u"HORA", t.hora},
                          {u"CON", t.con},
                          {u"PES", t.pes},
                          {u"IMP", t.imp},
                          {u"SCO", t.sco}});
  return *this;
}

Tienda& Tienda::fila(const char16_t* tabla, const Campos& campos) {
  insertar(tabla, campos);
  return *this;
}

QString Tienda::leer(const QString& texto) {
  const auto rs = base().consultar(texto);
  EXPECT_TRUE(rs) << texto.toStdString() << ": " << (rs ? "" : rs.error().texto.toStdString());
  QStringList filas;
  while (rs && !(*rs)->Eof()) {
    QStringList fila;
    for (int i = 0; i < (*rs)->numColumnas(); ++i)
      fila << ((*rs)->nulo(i) ? u"-"_s : (*rs)->texto(i));
    filas << fila.join(u' ');
    if (!(*rs)->MoveNext()) break;
  }
  return filas.join(u" | ");
}

qint64 Tienda::cuenta(const QString& tabla) {
  return uno(u"SELECT count(*) FROM "_s + tabla).entero();
}

}  // namespace tarvo::prueba
