#include "libros/TiendaDeLibros.h"

#include <gtest/gtest.h>

#include "core/esquema/Esquema.h"
#include "textos/TextosDePrueba.h"
#include "totals/libros/AjustesSesion.h"
#include "totals/libros/TablasLibros.h"
#include "totals/periodos/AjustesPeriodos.h"
#include "totals/periodos/TablasTotales.h"

namespace tarvo::prueba {

using namespace Qt::StringLiterals;

namespace {

std::unique_ptr<dao::Database> abrir(const QString& carpeta) {
  auto db = bien(dao::Database::OpenDatabase(carpeta + u"/TARVO.MDB"_s, {.crear = true}));
  bien(esquema::ponerAlDia(*db, Fecha::de(QDate(2026, 1, 1))));
  bien(totals::asegurarTablasLibros(*db));
  bien(totals::asegurarTablasTotales(*db));
  return db;
}

}  // namespace

TiendaDeLibros::Proceso::Proceso(const QString& carpeta, Reloj& reloj)
    : db(abrir(carpeta)),
      ajustes(carpeta, Idioma::Espanol, {totals::ajustesSesion(), totals::ajustesPeriodos()}),
      almacenes(*db, reloj, textosDePrueba()),
      periodos(*db, ajustes, almacenes, textosDePrueba()),
      sesion(*db, ajustes, reloj, textosDePrueba()),
      cierre(sesion, periodos),
      verTot(periodos) {}

TiendaDeLibros::TiendaDeLibros(Fecha inicio) : reloj(inicio) {
  cortar();
}

void TiendaDeLibros::cortar() {
  p_.reset();
  p_ = std::make_unique<Proceso>(carpeta_.path(), reloj);
  bien(p_->sesion.cargar());
  p_->sesion.ponerEjecucion(ejecucion, reanuda);
}

void TiendaDeLibros::grupo(int numero, std::vector<int> direcciones, int tipo) {
  Tienda::grupo({.codigo = numero, .nombre = u"G%1"_s.arg(numero), .tipo = tipo, .almacen = 0});
  for (const int d : direcciones) grupos[numero][d];
}

void TiendaDeLibros::leerSolo(int numero, TipoTotal clase) {
  leerSin(numero, clase, {});
}

void TiendaDeLibros::leerSin(int numero, TipoTotal clase, const std::set<qint64>& perdidos) {
  totals::Lectura lectura;
  for (auto& [addr, maquina] : grupos.at(numero)) {
    auto& filas = lectura.maquinas[addr];
    for (const auto& [codigo, c] : maquina.de(clase)) {
      if (perdidos.contains(codigo)) continue;
      const qint64 clave = clase == TipoTotal::PLUs        ? codigo
                           : clase == TipoTotal::GranTotal ? numero
                                                           : codigo % 3;
      filas[{clave, 0}] += c;
    }
    if (clase == TipoTotal::GranTotal && perdidos.empty()) filas[{numero, 0}];
  }
  bien(p_->sesion.PrepararRecepcion(numero, clase));
  bien(p_->sesion.guardarLectura(numero, clase, lectura, avisos));
}

void TiendaDeLibros::leer(int numero) {
  for (const TipoTotal clase : {TipoTotal::PLUs, TipoTotal::GranTotal, TipoTotal::Departamentos})
    leerSolo(numero, clase);
}

std::vector<qint64> TiendaDeLibros::memorizar(bool sustituir, bool aUno) {
  p_->cierre.OverWr = sustituir;
  p_->cierre.TodoAUno = aUno;
  return bien(p_->cierre.LaSesion(true, 0, avisos));
}

bool TiendaDeLibros::ponerACero(int numero, bool llega, bool confirma, Tras tras) {
  const auto permiso = bien(p_->sesion.permisoCero(numero));
  if (!permiso.permitido) return false;
  auto& maquinas = grupos.at(numero);
  size_t hechas = 0;
  for (auto& [addr, maquina] : maquinas) {
    ++hechas;
    bien(p_->sesion.anunciarCero(numero, addr));
    if (llega) maquina.ponerACero();
    if (!confirma) continue;
    if (tras == Tras::Igual)
      bien(p_->sesion.ceroDesmentido(numero, addr, TipoTotal::GranTotal, true));
    else
      bien(p_->sesion.ceroHecho(numero, addr, hechas == maquinas.size(),
                                tras != Tras::Cero ? totals::Sesion::Visto::Nada
                                : addr == 0        ? totals::Sesion::Visto::Todo
                                                   : totals::Sesion::Visto::GranTotal));
  }
  return true;
}

totals::Contadores TiendaDeLibros::enPeriodos(int numero, TipoTotal clase) const {
  const QString tabla = totals::NombreTabla(clase);
  const auto rs = bien(p_->db->consultar(
      QString(u"SELECT SUM(CON), SUM(PES), SUM(IMP) FROM "_s + tabla + u", COLUMNA WHERE "_s +
              tabla + u".LINK=COLUMNA.LINK AND GRUPO=? AND (stkABLE OR TIPO IN (1, 5))"_s),
      numero));
  return {.CON = rs->entero(0), .PES = rs->entero(1), .IMP = rs->entero(2)};
}

qint64 TiendaDeLibros::enPeriodo(qint64 link, TipoTotal clase) const {
  return bien(p_->db->uno(QString(u"SELECT SUM(IMP) FROM "_s + totals::NombreTabla(clase) +
                                  u" WHERE LINK=?"_s),
                          link))
      .entero();
}

totals::Contadores TiendaDeLibros::vendido(int numero) const {
  totals::Contadores suma;
  for (const auto& [addr, maquina] : grupos.at(numero)) suma += maquina.libro;
  return suma;
}

std::vector<qint64> TiendaDeLibros::responder(int numero, int addr, bool olvido) {
  return bien(p_->cierre.responder(numero, addr, olvido, avisos));
}

void TiendaDeLibros::amanecer(int dias) {
  masTarde(dias * 24 * 60);
}

void TiendaDeLibros::masTarde(int minutos) {
  reloj.avanzar(minutos * 60'000LL);
  sesion().ponerEjecucion(++ejecucion, false);
}

void TiendaDeLibros::desdeCero() {
  for (const auto& [numero, maquinas] : grupos) leer(numero);
  memorizar();
  for (const auto& [numero, maquinas] : grupos) EXPECT_TRUE(ponerACero(numero));
  avisos.clear();
}

void TiendaDeLibros::nadaSeMemoriza(const QString& disparador) {
  sql(u"CREATE TRIGGER lleno "_s + disparador);
  EXPECT_FALSE(cierre().LaSesion(true, 0, avisos).has_value());
  EXPECT_EQ(sesion().estado(), 2);
  EXPECT_FALSE(ponerACero(1));
  sql(u"DROP TRIGGER lleno"_s);
  memorizar();
  for (const auto& [numero, maquinas] : grupos) cuadra(numero);
}

void TiendaDeLibros::cuadra(int numero) const {
  const auto texto = [](const totals::Contadores& c) {
    return u"%1 piezas, %2 g, %3 céntimos"_s.arg(c.CON).arg(c.PES).arg(c.IMP).toStdString();
  };
  for (const TipoTotal clase : {TipoTotal::PLUs, TipoTotal::GranTotal, TipoTotal::Departamentos})
    EXPECT_EQ(texto(enPeriodos(numero, clase)), texto(vendido(numero)))
        << "grupo " << numero << " clase " << numeroDe(clase) << "\n"
        << textoAvisos().toStdString();
}

QString TiendaDeLibros::textoAvisos() const {
  QString texto;
  for (const auto& a : avisos) texto += a.texto + u'\n';
  return texto;
}

}  // namespace tarvo::prueba
