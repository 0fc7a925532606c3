#include "articles/Operadores.h"

#include "articles/TextosArticles.h"

namespace tarvo::articles {

using namespace Qt::StringLiterals;
using dao::Transaccion;

namespace {

constexpr int kHuecos = 20, kHuecosClase2 = 10;

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

// One slot of all groups at a time. `cambio`: what is set in slot "@", by `valores`, the last of
// which is the code that the slot holds.
Resultado<> Operadores::enHuecos(QStringView cambio, std::span<const dao::Valor> valores,
                                 const std::function<void()>& alAvanzar) {
  for (int hueco = 1; hueco <= kHuecos; ++hueco) {
    QString orden = u"UPDATE GRUPOS SET "_s + cambio.toString() + u" WHERE OP@_C=? AND TIPO IN "_s +
                    (hueco <= kHuecosClase2 ? u"(1,2,3,4)"_s : u"(1,3,4)"_s);
    CambiaTexto(u"@"_s, Ceros(hueco, 2), orden);
    TARVO_INTENTAR(db_.Execute(orden, valores));
    if (alAvanzar) alAvanzar();
  }
  return {};
}

Resultado<> Operadores::cambiarCodigo(int codigo, int nuevo, const AlAvanzar& alAvanzar) {
  TARVO_INTENTAR(codigoBueno(nuevo));
  if (codigo == nuevo) return {};
  auto t = Transaccion::empezar(db_);
  if (!t) return std::unexpected(t.error());
  TARVO_INTENTAR(db_.ejecutar(u"UPDATE OPERS SET CODOPE=? WHERE CODOPE=?", nuevo, codigo));
  int hechos = 0;
  const std::array<dao::Valor, 2> valores{nuevo, codigo};
  TARVO_INTENTAR(enHuecos(u"OP@_C=?", valores, [&] {
    if (alAvanzar) alAvanzar(++hechos, kHuecos);
  }));
  return t->confirmar();
}

Resultado<> Operadores::borrar(std::span<const int> codigos, const AlAvanzar& alAvanzar) {
  auto t = Transaccion::empezar(db_);
  if (!t) return std::unexpected(t.error());
  int hechos = 0;
  for (const int codigo : codigos) {
    TARVO_INTENTAR(db_.ejecutar(u"DELETE FROM OPERS WHERE CODOPE=?", codigo));
    const std::array<dao::Valor, 1> valores{codigo};
    TARVO_INTENTAR(enHuecos(u"OP@_C=0, OP@_T=0", valores, [&] {
      if (alAvanzar) alAvanzar(++hechos, kHuecos * static_cast<int>(codigos.size()));
    }));
  }
  return t->confirmar();
}

Resultado<int> Operadores::primeroLibre() {
  const auto mayor = db_.uno(u"SELECT max(CODOPE) FROM OPERS");
  if (!mayor) return std::unexpected(mayor.error());
  if (mayor->entero() < kUltimo) return static_cast<int>(mayor->entero()) + 1;
  const auto libre =
      db_.uno(u"SELECT min(CODOPE)+1 FROM OPERS WHERE CODOPE+1 NOT IN (SELECT CODOPE FROM OPERS)");
  if (!libre) return std::unexpected(libre.error());
  return static_cast<int>(libre->entero());
}

}  // namespace tarvo::articles
