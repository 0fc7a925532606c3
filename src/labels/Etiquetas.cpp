#include "labels/Etiquetas.h"

#include "labels/TextosLabels.h"

namespace tarvo::labels {

using namespace Qt::StringLiterals;
using dao::Transaccion;
using dao::Valor;

namespace {

constexpr int kPrimeraPosicion = 11, kUltimaPosicion = 20;

// A statement on a position of the scales: {n} is its number.
QString enPosicion(QStringView orden, int posicion) {
  return dao::conMarcas(orden, {{u"n", QString::number(posicion)}});
}

Valor oNulo(const std::optional<QString>& texto) {
  return texto ? Valor(*texto) : Valor();
}

}  // namespace

dao::Origen listaEtiquetas() {
  return {.desde = u"ETIQUETAS"_s, .clave = u"ETIQUETAS.rowid"_s, .orden = u"NUMETQ"_s};
}

Resultado<QString> Etiquetas::nombreBueno(const QString& nombre) const {
  if (nombre.trimmed().isEmpty()) return fallo(Fallo::Restriccion, textos_(kTxEtiquetaSinNombre));
  return nombre.trimmed();
}

// The column stores a number for a text of digits.
Resultado<QString> Etiquetas::comoEsta(const QString& nombre) {
  TARVO_TOMAR(const auto valor, db_.uno(u"SELECT NUMETQ FROM ETIQUETAS WHERE NUMETQ=?", nombre));
  return valor.texto();
}

// A set that was never chosen is Null, or 0 by the column's default.
Resultado<Etiqueta> Etiquetas::leer(const QString& nombre) {
  TARVO_TOMAR(const auto rs,
              db_.consultar(u"SELECT NUMETQ, CAMPOS, CASE WHEN typeof(settxt)='text' THEN settxt "
                            u"END FROM ETIQUETAS WHERE NUMETQ=?",
                            nombre));
  if (rs->Eof()) return fallo(Fallo::NoExiste, textos_(kTxEtiquetaSeFue, {nombre}));
  Etiqueta e{.nombre = rs->texto(0)};
  if (!rs->nulo(1)) e.campos = rs->texto(1);
  if (!rs->nulo(2)) e.juego = rs->texto(2);
  return e;
}

Resultado<int> Etiquetas::balanzasCon(const QString& nombre) {
  TARVO_TOMAR(const auto n,
              db_.uno(u"SELECT count(*) FROM BZAS WHERE ? IN (ETQ11, ETQ12, ETQ13, ETQ14, ETQ15, "
                      u"ETQ16, ETQ17, ETQ18, ETQ19, ETQ20)",
                      nombre));
  return static_cast<int>(n.entero());
}

Resultado<QString> Etiquetas::crear(const QString& nombre) {
  TARVO_TOMAR(const QString bueno, nombreBueno(nombre));
  TARVO_INTENTAR(db_.ejecutar(
      u"INSERT INTO ETIQUETAS (NUMETQ, settxt, CAMPOS) VALUES (?, NULL, NULL)", bueno));
  return comoEsta(bueno);
}

Resultado<> Etiquetas::guardar(const Etiqueta& e) {
  TARVO_TOMAR(const auto n, db_.ejecutar(u"UPDATE ETIQUETAS SET CAMPOS=?, settxt=? WHERE NUMETQ=?",
                                         oNulo(e.campos), oNulo(e.juego), e.nombre));
  if (n == 0) return fallo(Fallo::NoExiste, textos_(kTxEtiquetaSeFue, {e.nombre}));
  return {};
}

Resultado<> Etiquetas::ponerJuego(const QString& nombre, const std::optional<QString>& juego) {
  TARVO_TOMAR(const auto n,
              db_.ejecutar(u"UPDATE ETIQUETAS SET settxt=? WHERE NUMETQ=?", oNulo(juego), nombre));
  if (n == 0) return fallo(Fallo::NoExiste, textos_(kTxEtiquetaSeFue, {nombre}));
  return {};
}

Resultado<QString> Etiquetas::renombrar(const QString& nombre, const QString& nuevo) {
  TARVO_TOMAR(const QString bueno, nombreBueno(nuevo));
  TARVO_TOMAR(auto t, Transaccion::empezar(db_));
  TARVO_TOMAR(const auto n,
              db_.ejecutar(u"UPDATE ETIQUETAS SET NUMETQ=? WHERE NUMETQ=?", bueno, nombre));
  if (n == 0) return fallo(Fallo::NoExiste, textos_(kTxEtiquetaSeFue, {nombre}));
  TARVO_TOMAR(const QString suyo, comoEsta(bueno));
  for (int p = kPrimeraPosicion; p <= kUltimaPosicion; ++p)
    TARVO_INTENTAR(
        db_.ejecutar(enPosicion(u"UPDATE BZAS SET ETQ{n}=? WHERE ETQ{n}=?", p), suyo, nombre));
  TARVO_INTENTAR(t.confirmar());
  return suyo;
}

Resultado<Etiquetas::Borrada> Etiquetas::borrar(const QString& nombre) {
  TARVO_TOMAR(auto t, Transaccion::empezar(db_));
  Borrada b;
  TARVO_TOMAR(b.etiqueta, leer(nombre));
  for (int p = kPrimeraPosicion; p <= kUltimaPosicion; ++p) {
    TARVO_INTENTAR(dao::recorrer(
        db_.consultar(enPosicion(u"SELECT SUGPO, NMBZA FROM BZAS WHERE ETQ{n}=?", p), nombre),
        [&](const dao::Recordset& fila) {
          b.usos.push_back({static_cast<int>(fila.entero(0)), static_cast<int>(fila.entero(1)), p});
        }));
    TARVO_INTENTAR(
        db_.ejecutar(enPosicion(u"UPDATE BZAS SET ETQ{n}=NULL WHERE ETQ{n}=?", p), nombre));
  }
  TARVO_INTENTAR(db_.ejecutar(u"DELETE FROM ETIQUETAS WHERE NUMETQ=?", nombre));
  TARVO_INTENTAR(t.confirmar());
  return b;
}

Resultado<int> Etiquetas::reponer(const Borrada& b) {
  TARVO_TOMAR(auto t, Transaccion::empezar(db_));
  TARVO_INTENTAR(crear(b.etiqueta.nombre));
  TARVO_INTENTAR(guardar(b.etiqueta));
  int fuera = 0;
  for (const Borrada::Uso& u : b.usos) {
    TARVO_TOMAR(const auto n,
                db_.ejecutar(enPosicion(u"UPDATE BZAS SET ETQ{n}=? WHERE SUGPO=? AND NMBZA=? AND "
                                        u"(ETQ{n} IS NULL OR ETQ{n}='')",
                                        u.posicion),
                             b.etiqueta.nombre, u.grupo, u.balanza));
    if (n == 0) ++fuera;
  }
  TARVO_INTENTAR(t.confirmar());
  return fuera;
}

}  // namespace tarvo::labels
