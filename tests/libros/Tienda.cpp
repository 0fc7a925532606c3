#include "libros/Tienda.h"

#include <gtest/gtest.h>

#include "core/esquema/Esquema.h"
#include "textos/TextosDePrueba.h"
#include "totals/libros/AjustesSesion.h"
#include "totals/libros/TablasLibros.h"
#include "totals/periodos/AjustesPeriodos.h"
#include "totals/periodos/TablasTotales.h"

namespace tarvo::prueba {

using namespace Qt::StringLiterals;

using totals::kDepartamentos, totals::kGranTotal, totals::kPLUs;

namespace {

template <class T>
T valor(Resultado<T> r) {
  EXPECT_TRUE(r.has_value()) << r.error().texto.toStdString();
  return r ? std::move(*r) : T{};
}

void bien(const Resultado<>& r) {
  EXPECT_TRUE(r.has_value()) << r.error().texto.toStdString();
}

std::unique_ptr<dao::Database> abrir(const QString& carpeta) {
  auto db =
      valor(dao::Database::OpenDatabase(carpeta + QStringLiteral("/TARVO.MDB"), {.crear = true}));
  bien(esquema::ponerAlDia(*db, Fecha::de(QDate(2026, 1, 1))));
  bien(totals::asegurarTablasLibros(*db));
  bien(totals::asegurarTablasTotales(*db));
  return db;
}

}  // namespace

Tienda::Proceso::Proceso(const QString& carpeta, Reloj& reloj)
    : db(abrir(carpeta)),
      ajustes(carpeta, Idioma::Espanol, {totals::ajustesSesion(), totals::ajustesPeriodos()}),
      almacenes(*db, reloj, textosDePrueba()),
      periodos(*db, ajustes, almacenes, textosDePrueba()),
      sesion(*db, ajustes, reloj, textosDePrueba()),
      cierre(sesion, periodos),
      verTot(periodos, *db, ajustes) {}

Tienda::Tienda(Fecha inicio) : reloj(inicio) {
  cortar();
}

void Tienda::cortar() {
  p_.reset();
  p_ = std::make_unique<Proceso>(carpeta_.path(), reloj);
  bien(p_->sesion.cargar());
  p_->sesion.ponerEjecucion(ejecucion, reanuda);
}

void Tienda::grupo(int numero, std::vector<int> direcciones, int tipo) {
  valor(db().ejecutar(
      u"INSERT INTO GRUPOS (CODGPO, NOMGPO, SECCION, TIPO, ALMACEN) VALUES (?, ?, 1, ?, 0)"_s,
      numero, QStringLiteral("G%1").arg(numero), tipo));
  for (const int d : direcciones) grupos[numero][d];
}

void Tienda::leerSolo(int numero, int clase) {
  leerSin(numero, clase, {});
}

void Tienda::leerSin(int numero, int clase, const std::set<qint64>& perdidos) {
  totals::Lectura lectura;
  for (const auto& [addr, maquina] : grupos.at(numero)) {
    auto& filas = lectura.maquinas[addr];
    for (const auto& [codigo, c] : clase == kPLUs ? maquina.articulos : maquina.totales) {
      if (perdidos.contains(codigo)) continue;
      const qint64 clave = clase == kPLUs ? codigo : clase == kGranTotal ? numero : codigo % 3;
      filas[{clave, 0}] += c;
    }
    if (clase == kGranTotal && perdidos.empty()) filas[{numero, 0}];
  }
  bien(p_->sesion.PrepararRecepcion(numero, clase));
  bien(p_->sesion.guardarLectura(numero, clase, lectura, avisos));
}

void Tienda::leer(int numero) {
  for (const int clase : {kPLUs, kGranTotal, kDepartamentos}) leerSolo(numero, clase);
}

std::vector<qint64> Tienda::memorizar(bool sustituir, bool aUno) {
  p_->cierre.OverWr = sustituir;
  p_->cierre.TodoAUno = aUno;
  return valor(p_->cierre.LaSesion(true, 0, avisos));
}

bool Tienda::ponerACero(int numero, bool llega, bool confirma) {
  const auto permiso = valor(p_->sesion.permisoCero(numero));
  if (!permiso.permitido) return false;
  auto& maquinas = grupos.at(numero);
  size_t hechas = 0;
  for (auto& [addr, maquina] : maquinas) {
    ++hechas;
    bien(p_->sesion.anunciarCero(numero, addr));
    if (llega) maquina.ponerACero();
    if (confirma) bien(p_->sesion.ceroHecho(numero, addr, hechas == maquinas.size()));
  }
  return true;
}

totals::Contadores Tienda::enPeriodos(int numero, int clase) const {
  const QString tabla = totals::NombreTabla(clase);
  const auto rs = valor(p_->db->consultar(
      QString(u"SELECT SUM(CON), SUM(PES), SUM(IMP) FROM "_s + tabla + u", COLUMNA WHERE "_s +
              tabla + u".LINK=COLUMNA.LINK AND GRUPO=? AND (stkABLE OR TIPO IN (1, 5))"_s),
      numero));
  return {.CON = rs->entero(0), .PES = rs->entero(1), .IMP = rs->entero(2)};
}

qint64 Tienda::enPeriodo(qint64 link, int clase) const {
  return valor(p_->db->uno(QString(u"SELECT SUM(IMP) FROM "_s + totals::NombreTabla(clase) +
                                   u" WHERE LINK=?"_s),
                           link))
      .entero();
}

totals::Contadores Tienda::vendido(int numero) const {
  totals::Contadores suma;
  for (const auto& [addr, maquina] : grupos.at(numero)) suma += maquina.libro;
  return suma;
}

std::vector<qint64> Tienda::responder(int numero, int addr, bool olvido) {
  return valor(p_->cierre.responder(numero, addr, olvido, avisos));
}

QString Tienda::textoAvisos() const {
  QString texto;
  for (const auto& a : avisos) texto += a.texto + u'\n';
  return texto;
}

}  // namespace tarvo::prueba
