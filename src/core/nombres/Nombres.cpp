#include "core/nombres/Nombres.h"

#include "core/dao/Recorrido.h"

namespace tarvo {

using namespace Qt::StringLiterals;

Nombres::Lista Nombres::leer(QStringView sql, const std::vector<dao::Valor>& parametros) const {
  return dao::reunir(db_.OpenQuery(sql.toString(), parametros), [](const dao::Recordset& fila) {
    return CodigoNombre{fila.entero(0), fila.texto(1)};
  });
}

Nombres::Lista Nombres::secciones() const {
  return leer(u"SELECT NMSECC, NOMSEC FROM SECCS ORDER BY NMSECC");
}

Nombres::Lista Nombres::seccionesPorNombre() const {
  return leer(u"SELECT NMSECC, NOMSEC FROM SECCS ORDER BY NOMSEC, NMSECC");
}

Nombres::Lista Nombres::departamentos(int seccion) const {
  return leer(u"SELECT NUMDEP, NomDep FROM DEPTS WHERE SECCION=? ORDER BY NUMDEP", {seccion});
}

Nombres::Lista Nombres::grupos() const {
  return leer(u"SELECT CODGPO, NOMGPO FROM GRUPOS ORDER BY CODGPO");
}

Nombres::Lista Nombres::gruposDe(int seccion) const {
  return leer(u"SELECT CODGPO, NOMGPO FROM GRUPOS WHERE SECCION=? ORDER BY CODGPO", {seccion});
}

Nombres::Lista Nombres::operadores() const {
  return leer(u"SELECT CODOPE, NOMOPE FROM OPERS ORDER BY CODOPE");
}

Resultado<QString> Nombres::seccion(int codigo) const {
  TARVO_TOMAR(const auto nombre, db_.uno(u"SELECT NOMSEC FROM SECCS WHERE NMSECC=?", codigo));
  return nombre.texto();
}

Resultado<QString> Nombres::grupo(int codigo) const {
  TARVO_TOMAR(const auto nombre, db_.uno(u"SELECT NOMGPO FROM GRUPOS WHERE CODGPO=?", codigo));
  return nombre.texto();
}

Resultado<int> Nombres::seccionDe(int grupo) const {
  TARVO_TOMAR(const auto seccion, db_.uno(u"SELECT SECCION FROM GRUPOS WHERE CODGPO=?", grupo));
  return static_cast<int>(seccion.entero());
}

Resultado<std::optional<QString>> Nombres::departamento(int seccion, int codigo) const {
  TARVO_TOMAR(auto rs, db_.consultar(u"SELECT NomDep FROM DEPTS WHERE SECCION=? AND NUMDEP=?",
                                     seccion, codigo));
  if (rs->Eof()) return std::nullopt;
  return rs->texto(0);
}

Resultado<std::optional<QString>> Nombres::articulo(int seccion, qint64 codigo) const {
  TARVO_TOMAR(auto rs, db_.consultar(u"SELECT NOMPLU FROM PLUSES WHERE SECCION=? AND CODPLU=?",
                                     seccion, codigo));
  if (rs->Eof()) return std::nullopt;
  return rs->texto(0);
}

}  // namespace tarvo
