#include "envios/Envios.h"

#include "comm/envios/Lector.h"

namespace tarvo::prueba {

using namespace Qt::StringLiterals;

void Envios::SetUp() {
  grupo(1, 1, QStringLiteral("cable 1"));
}

void Envios::alta(qint64 codigo, qint64 precio, const QString& nombre) {
  en(1).articulo({.codigo = codigo,
                  .nombre = nombre,
                  .depto = 1,
                  .precio = precio,
                  .mas = {{u"PRECIO_10", precio}, {u"PRECIO_20", precio}}});
  bien(articles::Cambios(*db).ArticuloCambiado(1, codigo));
}

void Envios::cambiarCallando(qint64 codigo, const QString& columnas) {
  bien(db->ejecutar(
      QStringLiteral("UPDATE PLUSES SET %1 WHERE SECCION=1 AND CODPLU=?").arg(columnas), codigo));
}

void Envios::cambiar(qint64 codigo, const QString& columnas) {
  cambiarCallando(codigo, columnas);
  bien(articles::Cambios(*db).ArticuloCambiado(1, codigo));
}

void Envios::borrar(qint64 codigo) {
  bien(articles::Cambios(*db).MarcarArticuloBorrado(1, codigo, true));
  sql(u"DELETE FROM PLUSES WHERE SECCION=1 AND CODPLU=?"_s, codigo);
}

void Envios::oferta(int grupo, qint64 codigo, qint64 precio, double desde, double hasta) {
  const Fecha hoy = reloj.ahora().dia();
  sql(u"INSERT INTO OFERTAS (GRUPO, SECCION, CODIGO, PRECIO_0, PRECIO_1, PRECIO_2, "
      u"FECHA_INI, FECHA_FIN) VALUES (?, 1, ?, ?, ?, ?, ?, ?)"_s,
      grupo, codigo, precio, precio, precio, hoy + desde, hoy + hasta);
}

QString Envios::nuevas(int grupo, int addr) {
  const QStringList todas = oidas(grupo, addr);
  QStringList salida;
  for (qsizetype& i = vistas_[{grupo, addr}]; i < todas.size(); ++i) {
    const QString codigo = todas[i].section(u' ', 0, 0);
    const QString datos = todas[i].mid(codigo.size() + 1);
    const bool ficha = datos.size() > 25 && (codigo == u"100" || codigo == u"101");
    const QString numero = ficha             ? datos.mid(20, 7)
                           : codigo == u"32" ? datos.mid(2, 4)
                                             : datos.left(7);
    salida << codigo + u' ' + QString::number(numero.toLongLong());
  }
  return salida.join(u',');
}

QString Envios::enviar(int grupo, int clase, bool todo, qint64 desde, qint64 hasta, int addr) {
  nuevas(grupo, addr);
  encolar(grupo, clase, todo, desde, hasta);
  EXPECT_TRUE(correr());
  return nuevas(grupo, addr);
}

QString Envios::tiene(int grupo, int addr) {
  QStringList salida;
  for (const auto& [codigo, a] : maquina(grupo, addr).memoria().catalogo)
    salida << QStringLiteral("%1:%2/%3").arg(codigo).arg(a.nombre).arg(a.precio);
  return salida.join(u' ');
}

QString Envios::cruz(int grupo) {
  return filas(
             QStringLiteral("SELECT plu & iif(borra=0, '', 'x') FROM [Cross] WHERE Grupo=%1 ORDER "
                            "BY Secc, plu")
                 .arg(grupo))
      .replace(u';', u' ');
}

QString Envios::probados(int grupo) {
  return filas(QStringLiteral("SELECT CODPLU & iif(isnull(HUELLA) OR isnull(HUELLA_PRE), '?', '') "
                              "FROM Enviados WHERE GRUPO=%1 ORDER BY SECCION, CODPLU")
                   .arg(grupo))
      .replace(u';', u' ');
}

QString Envios::retenidos(int grupo) {
  return filas(QStringLiteral("SELECT CODPLU & '/' & ERROR FROM Retenidos WHERE GRUPO=%1 ORDER BY "
                              "CODPLU")
                   .arg(grupo))
      .replace(u';', u' ');
}

void Envios::estorbos(int grupo, std::vector<simulador::Paso> guion, int addr) {
  simulador::Fallos f;
  f.guion = std::move(guion);
  maquina(grupo, addr).cambiarPercances({f, 1});
}

void Envios::esCierto(int grupo) {
  loTiene(grupo, 1, cruz(grupo));
}

void Envios::esProbado(int grupo, int addr) {
  loTiene(grupo, addr, probados(grupo));
}

void Envios::loTiene(int grupo, int addr, const QString& codigos) {
  const auto tipo = *deNumero<TipoGrupo>(static_cast<int>(maquina(grupo, addr).opciones().tipo));
  envios::Lector lector(*db, {grupo, 1, tipo, 0});
  for (const QString& plu : codigos.split(u' ', Qt::SkipEmptyParts)) {
    if (plu.endsWith(u'x') || plu.endsWith(u'?')) continue;
    const qint64 codigo = plu.toLongLong();
    const auto p = bien(lector.leer({&codigo, 1}, reloj.ahora()));
    ASSERT_EQ(p.size(), 1U) << codigo;
    const auto& catalogo = maquina(grupo, addr).memoria().catalogo;
    const auto it = catalogo.find(static_cast<int>(codigo));
    ASSERT_NE(it, catalogo.end()) << codigo;
    EXPECT_EQ(it->second.ficha, *p.front().registro) << codigo;
  }
}

}  // namespace tarvo::prueba
