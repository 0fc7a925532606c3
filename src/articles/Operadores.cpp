#include "articles/Operadores.h"

#include "articles/TextosArticles.h"

namespace tarvo::articles {

using namespace Qt::StringLiterals;
using dao::Transaccion;

namespace {

constexpr int kHuecos = 20, kHuecosClase2 = 10;

// The kinds of groups that have it.
QString clases(int hueco) {
  return hueco <= kHuecosClase2 ? u"(1,2,3,4)"_s : u"(1,3,4)"_s;
}

// A statement on a slot: {h} is its number, {clases} the kinds of groups that have it.
QString enHueco(QStringView orden, int hueco) {
  return dao::conMarcas(orden, {{u"h", Ceros(hueco, 2)}, {u"clases", clases(hueco)}});
}

}  // namespace

Resultado<> Operadores::codigoBueno(int codigo) const {
  if (codigo < 1 || codigo > kUltimo)
    return fallo(Fallo::Restriccion, textos_(kTxOperadorIncorrecto));
  return {};
}

Resultado<> Operadores::anadir(int codigo, const QString& nombre) {
  TARVO_INTENTAR(codigoBueno(codigo));
  TARVO_INTENTAR(
      db_.ejecutar(u"INSERT INTO OPERS (CODOPE, NOMOPE) VALUES (?, ?)", codigo, nombre.trimmed()));
  return {};
}

Resultado<> Operadores::renombrar(int codigo, const QString& nombre) {
  TARVO_INTENTAR(
      db_.ejecutar(u"UPDATE OPERS SET NOMOPE=? WHERE CODOPE=?", nombre.trimmed(), codigo));
  return {};
}

// One slot of all groups at a time.
Resultado<> Operadores::enHuecos(QStringView orden, std::span<const dao::Valor> valores,
                                 const std::function<void()>& alAvanzar) {
  for (int hueco = 1; hueco <= kHuecos; ++hueco) {
    TARVO_INTENTAR(db_.Execute(enHueco(orden, hueco), valores));
    if (alAvanzar) alAvanzar();
  }
  return {};
}

Resultado<> Operadores::cambiarCodigo(int codigo, int nuevo, const AlAvanzar& alAvanzar) {
  TARVO_INTENTAR(codigoBueno(nuevo));
  if (codigo == nuevo) return {};
  TARVO_TOMAR(auto t, Transaccion::empezar(db_));
  TARVO_INTENTAR(db_.ejecutar(u"UPDATE OPERS SET CODOPE=? WHERE CODOPE=?", nuevo, codigo));
  int hechos = 0;
  const std::array<dao::Valor, 2> valores{nuevo, codigo};
  TARVO_INTENTAR(
      enHuecos(u"UPDATE GRUPOS SET OP{h}_C=? WHERE OP{h}_C=? AND TIPO IN {clases}", valores, [&] {
        if (alAvanzar) alAvanzar(++hechos, kHuecos);
      }));
  return t.confirmar();
}

// The operator and the slots with its code.
Resultado<std::optional<Operadores::Borrado>> Operadores::leer(int codigo) {
  TARVO_TOMAR(auto rs, db_.consultar(u"SELECT NOMOPE FROM OPERS WHERE CODOPE=?", codigo));
  if (rs->Eof()) return std::nullopt;
  Borrado b{codigo, rs->texto(0), {}};
  for (int hueco = 1; hueco <= kHuecos; ++hueco) {
    TARVO_INTENTAR(dao::recorrer(
        db_.consultar(
            enHueco(u"SELECT CODGPO, OP{h}_T FROM GRUPOS WHERE OP{h}_C=? AND TIPO IN {clases}",
                    hueco),
            codigo),
        [&](const dao::Recordset& fila) {
          b.huecos.push_back({static_cast<int>(fila.entero(0)), hueco, fila.logico(1)});
        }));
  }
  return b;
}

Resultado<std::vector<Operadores::Borrado>> Operadores::borrar(std::span<const int> codigos,
                                                               const AlAvanzar& alAvanzar) {
  TARVO_TOMAR(auto t, Transaccion::empezar(db_));
  std::vector<Borrado> borrados;
  int hechos = 0;
  for (const int codigo : codigos) {
    TARVO_TOMAR(auto b, leer(codigo));
    if (b) borrados.push_back(std::move(*b));
    TARVO_INTENTAR(db_.ejecutar(u"DELETE FROM OPERS WHERE CODOPE=?", codigo));
    const std::array<dao::Valor, 1> valores{codigo};
    TARVO_INTENTAR(
        enHuecos(u"UPDATE GRUPOS SET OP{h}_C=0, OP{h}_T=0 WHERE OP{h}_C=? AND TIPO IN {clases}",
                 valores, [&] {
                   if (alAvanzar) alAvanzar(++hechos, kHuecos * static_cast<int>(codigos.size()));
                 }));
  }
  TARVO_INTENTAR(t.confirmar());
  return borrados;
}

Resultado<int> Operadores::reponer(std::span<const Borrado> borrados) {
  TARVO_TOMAR(auto t, Transaccion::empezar(db_));
  int fuera = 0;
  for (const Borrado& b : borrados) {
    TARVO_INTENTAR(anadir(b.codigo, b.nombre));
    for (const Hueco& h : b.huecos) {
      TARVO_TOMAR(
          const auto n,
          db_.ejecutar(
              enHueco(u"UPDATE GRUPOS SET OP{h}_C=?, OP{h}_T=? WHERE CODGPO=? AND OP{h}_C=0",
                      h.numero),
              b.codigo, h.turno, h.grupo));
      if (n == 0) ++fuera;
    }
  }
  TARVO_INTENTAR(t.confirmar());
  return fuera;
}

Resultado<int> Operadores::primeroLibre() {
  TARVO_TOMAR(const auto mayor, db_.uno(u"SELECT max(CODOPE) FROM OPERS"));
  if (mayor.entero() < kUltimo) return static_cast<int>(mayor.entero()) + 1;
  TARVO_TOMAR(
      const auto libre,
      db_.uno(u"SELECT min(CODOPE)+1 FROM OPERS WHERE CODOPE+1 NOT IN (SELECT CODOPE FROM OPERS)"));
  return static_cast<int>(libre.entero());
}

}  // namespace tarvo::articles
