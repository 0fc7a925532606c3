#include "comm/configuracion/Envio.h"

#include <QCryptographicHash>
#include <algorithm>
#include <map>

#include "core/dao/Recorrido.h"
#include "devices/Fila.h"
#include "devices/Modelos.h"
#include "labels/TextosEtiqueta.h"

namespace tarvo::configuracion {

using namespace Qt::StringLiterals;

namespace {

using dao::Database;
using dao::Recordset;
using devices::conNumero;
using maquinas::Piezas;

// A row by the names of its columns; a Null or a missing column reads as 0 or empty.
class Fila {
 public:
  explicit Fila(const Recordset& rs) : rs_(rs) {}
  qint64 entero(QStringView nombre) const { return leer(nombre, qint64{0}); }
  QString texto(QStringView nombre) const { return leer(nombre, QString()); }
  bool logico(QStringView nombre) const { return leer(nombre, false); }

 private:
  template <class T>
  T leer(QStringView nombre, T valor) const {
    devices::leerColumna(rs_, nombre, valor);
    return valor;
  }
  const Recordset& rs_;
};

// A format of labels by its name: its text, and its set if it has one.
struct Formato {
  QString campos, juego;
};
Resultado<std::map<QString, Formato>> leerFormatos(Database& db) {
  std::map<QString, Formato> formatos;
  // Without a set the column is Null, or 0 by its default.
  TARVO_INTENTAR(dao::recorrer(
      db.consultar(u"SELECT NUMETQ, CAMPOS, CASE WHEN typeof(settxt)='text' THEN settxt END FROM "
                   u"ETIQUETAS"),
      [&](const Recordset& rs) {
        formatos[rs.texto(0)] = {rs.nulo(1) ? QString() : rs.texto(1),
                                 rs.nulo(2) ? QString() : rs.texto(2)};
      }));
  return formatos;
}

Resultado<std::array<QString, labels::kTextosLibres>> leerTextos(Database& db,
                                                                 const Ajustes& ajustes,
                                                                 const QString& nombre) {
  std::optional<QString> juego;
  if (!nombre.isEmpty()) {
    TARVO_TOMAR(const auto rs, db.consultar(u"SELECT Texto FROM TEXTOSETQ WHERE CODSET=?", nombre));
    if (!rs->Eof() && !rs->nulo(0)) juego = rs->texto(0);
  }
  std::array<QString, labels::kTextosLibres> textos;
  for (int i = 0; i < labels::kTextosLibres; ++i)
    textos[static_cast<size_t>(i)] =
        labels::LeerTexto(i + labels::kPrimerTextoLibre, juego, ajustes);
  return textos;
}

maquinas::OpcionesDeBalanza opcionesDe(const Fila& f) {
  maquinas::OpcionesDeBalanza o;
  o.finDeMensajeLargo = f.entero(u"tipo"_s) == devices::kBirch;
  o.MESSAG = f.texto(u"MESSAG"_s);
  o.MESS_R = f.entero(u"MESS_R"_s), o.MESS_T = f.entero(u"MESS_T"_s);
  o.permisos = {f.logico(u"P_LIBRE"_s), f.logico(u"P_ESPE"_s), f.logico(u"P_VOID"_s),
                f.logico(u"RESO"_s), f.logico(u"DCTSTT"_s)};
  o.HABIL_BC = f.logico(u"HABIL_BC"_s);
  o.TIPO_BC = f.entero(u"TIPO_BC"_s), o.FIJO_BC = f.entero(u"FIJO_BC"_s);
  o.FORMA_BC = f.texto(u"FORMA_BC"_s);
  o.DIGIT_PLU = f.entero(u"DIGIT_PLU"_s), o.FIJO_PLU = f.entero(u"FIJO_PLU"_s);
  for (int n = 1; n <= 3; ++n) {
    o.modos[static_cast<size_t>(n - 1)] = f.entero(conNumero(u"MODAL", n));
    o.operadores[static_cast<size_t>(n - 1)] = f.entero(conNumero(u"OPERA", n));
  }
  o.HABIL_DEP = f.logico(u"HABIL_DEP"_s);
  return o;
}

Resultado<Piezas> etiquetasDe(Database& db, const Ajustes& ajustes, TipoGrupo tipo, const Fila& f,
                              const std::map<QString, Formato>& formatos) {
  maquinas::FormatosDeEtiqueta suyos;
  QString juego;
  for (int k = 0; k < static_cast<int>(suyos.size()); ++k) {
    const auto cual = formatos.find(f.texto(conNumero(u"ETQ", k + 11)));
    if (cual == formatos.end()) continue;
    suyos[static_cast<size_t>(k)] = cual->second.campos;
    if (!cual->second.juego.isEmpty()) juego = cual->second.juego;
  }
  std::optional<std::array<QString, labels::kTextosLibres>> textos;
  if (ajustes.EsEspanol()) {
    TARVO_TOMAR(textos, leerTextos(db, ajustes, juego));
  }
  return maquinas::piezasDeEtiquetas(tipo, suyos, textos);
}

Resultado<Piezas> piezasDe(Database& db, const Ajustes& ajustes, TipoTarea clase, TipoGrupo tipo,
                           const Fila& f, const std::map<QString, Formato>& formatos) {
  const auto numero = static_cast<int>(f.entero(u"NMBZA"_s));
  if (clase == TipoTarea::TxTecla) {
    const int modelo =
        tipo == TipoGrupo::Ebony ? devices::kEbony : static_cast<int>(f.entero(u"tipo"_s));
    return maquinas::piezasDeTeclado(
        tipo, numero, devices::MaxTeclas(modelo),
        {f.texto(u"HARDPLU"_s), f.texto(u"TARASME"_s), f.texto(u"Teclado"_s)});
  }
  if (clase == TipoTarea::TxTick)
    return maquinas::piezasDeTicket(tipo, numero, f.texto(u"RZSOCIAL"_s));
  if (clase == TipoTarea::TxCfBal)
    return maquinas::piezasDeBalanza(tipo, opcionesDe(f), ajustes.NoEspanol());
  return etiquetasDe(db, ajustes, tipo, f, formatos);
}

Resultado<std::vector<Envio>> porMaquina(Database& db, const Ajustes& ajustes, TipoTarea clase,
                                         const Destino& d) {
  std::map<QString, Formato> formatos;
  if (clase == TipoTarea::TxEtiq) {
    TARVO_TOMAR(formatos, leerFormatos(db));
  }
  std::vector<Envio> envios;
  const bool nodal = d.tipo == TipoGrupo::Ebony;
  TARVO_INTENTAR(dao::recorrer(
      db.consultar(u"SELECT * FROM BZAS WHERE SUGPO=? AND (? OR NMBZA=?) ORDER BY NMBZA", d.grupo,
                   !d.maquina.has_value(), d.maquina.value_or(0)),
      [&](const Recordset& rs) -> Resultado<> {
        const Fila f(rs);
        const auto numero = static_cast<int>(f.entero(u"NMBZA"_s));
        TARVO_TOMAR(auto piezas, piezasDe(db, ajustes, clase, d.tipo, f, formatos));
        envios.push_back({numero, nodal ? d.addr : numero + 1, std::move(piezas)});
        return {};
      }));
  return envios;
}

Resultado<std::vector<maquinas::OpcionesDeGrupo::Operador>> leerOperadores(Database& db,
                                                                           TipoGrupo tipo,
                                                                           const Fila& f) {
  std::vector<maquinas::OpcionesDeGrupo::Operador> lista;
  for (int n = 1; n <= maquinas::MaxOperadores(tipo); ++n) {
    auto& op = lista.emplace_back();
    op.training = f.logico(conNumero(u"OP", n, u"_T"));
    const qint64 codigo = f.entero(conNumero(u"OP", n, u"_C"));
    if (codigo == 0) continue;
    TARVO_TOMAR(const auto nombre, db.uno(u"SELECT NOMOPE FROM OPERS WHERE CODOPE=?", codigo));
    op.nombre = nombre.nulo() ? QString() : nombre.texto();
  }
  return lista;
}

Resultado<maquinas::OpcionesDeGrupo> opcionesDeGrupo(Database& db, TipoGrupo tipo, const Fila& f) {
  maquinas::OpcionesDeGrupo o;
  o.TK_FLAGS = f.texto(u"TK_FLAGS"_s);
  o.TK_CPIA = f.entero(u"TK_CPIA"_s), o.TK_TCOP = f.entero(u"TK_TCOP"_s);
  o.E13_PE = f.texto(u"E13_PE"_s), o.E08_PE = f.texto(u"E08_PE"_s);
  o.E13_CU = f.texto(u"E13_CU"_s), o.E08_CU = f.texto(u"E08_CU"_s);
  for (int n = 1; n <= 5; ++n) o.IVA[static_cast<size_t>(n - 1)] = f.entero(conNumero(u"IVA", n));
  for (int n = 1; n <= maquinas::MaxDepartamentos(tipo); ++n) {
    TARVO_TOMAR(const auto nombre, db.uno(u"SELECT NomDep FROM DEPTS WHERE SECCION=? AND NUMDEP=?",
                                          f.entero(u"seccion"_s), n));
    o.departamentos.push_back(
        {f.entero(conNumero(u"IVD", n)), nombre.nulo() ? QString() : nombre.texto()});
  }
  o.TOTE = f.entero(u"TOTE"_s), o.TOCO = f.entero(u"TOCO"_s);
  o.PITO = f.logico(u"PITO"_s), o.SALT = f.logico(u"SALT"_s), o.PRLI = f.logico(u"PRLI"_s);
  TARVO_TOMAR(o.operadores, leerOperadores(db, tipo, f));
  return o;
}

Resultado<std::vector<Envio>> delGrupo(Database& db, const Destino& d) {
  TARVO_TOMAR(const auto rs, db.consultar(u"SELECT * FROM GRUPOS WHERE CODGPO=? AND EXISTS (SELECT "
                                          u"1 FROM BZAS WHERE SUGPO=CODGPO)",
                                          d.grupo));
  if (rs->Eof()) return std::vector<Envio>{};
  TARVO_TOMAR(const auto o, opcionesDeGrupo(db, d.tipo, Fila(*rs)));
  return std::vector<Envio>{{kTodoElGrupo, 0, maquinas::piezasDeGrupo(d.tipo, o)}};
}

}  // namespace

QString Envio::huella() const {
  QCryptographicHash h(QCryptographicHash::Sha1);
  for (const maquinas::Pieza& p : piezas) {
    h.addData(QByteArray::number(p.peticion.codigo));
    h.addData(QByteArray::number(p.peticion.datos.size()));
    h.addData(p.peticion.datos);
  }
  return QString::fromLatin1(h.result().toHex());
}

bool llevaConfiguracion(TipoTarea clase) {
  return std::ranges::find(kClases, clase) != std::end(kClases);
}

bool valePara(TipoTarea clase, TipoGrupo tipo) {
  const bool nodal = tipo == TipoGrupo::Ebony;
  const bool deTodas = clase == TipoTarea::TxTecla || clase == TipoTarea::TxTick;
  return llevaConfiguracion(clase) && tipo != TipoGrupo::Registradoras && (deTodas || !nodal);
}

Resultado<std::vector<Envio>> prepararEnvio(Database& db, const Ajustes& ajustes, TipoTarea clase,
                                            const Destino& destino) {
  return clase == TipoTarea::TxCnfig ? delGrupo(db, destino)
                                     : porMaquina(db, ajustes, clase, destino);
}

}  // namespace tarvo::configuracion
