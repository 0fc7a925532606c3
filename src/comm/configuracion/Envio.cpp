#include "comm/configuracion/Envio.h"

#include <QCryptographicHash>
#include <algorithm>
#include <iterator>
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
using maquinas::Asunto;
using maquinas::Causa;
using maquinas::Diferencias;
using maquinas::Piezas;

// A row by the names of its columns; a Null or a missing column reads as 0 or empty. Values that
// aren't whole numbers, and are read as such, are noted with their subject.
class Fila {
 public:
  explicit Fila(const Recordset& rs) : rs_(rs) {}
  qint64 entero(QStringView nombre) const { return leer(nombre, qint64{0}); }
  QString texto(QStringView nombre) const { return leer(nombre, QString()); }
  qint64 entero(QStringView nombre, Asunto asunto, int numero = 0) {
    const qint64 n = entero(nombre);
    comparar(nombre, n, asunto, numero);
    return n;
  }
  bool logico(QStringView nombre, Asunto asunto, int numero = 0) {
    const bool si = leer(nombre, false);
    if (const int c = rs_.columna(nombre); c >= 0 && rs_.valor(c).esTexto())
      comparar(nombre, si ? 1 : 0, asunto, numero);
    return si;
  }
  Diferencias diferencias() const { return diferencias_; }

 private:
  void comparar(QStringView nombre, qint64 leido, Asunto asunto, int numero) {
    const int c = rs_.columna(nombre);
    const dao::Valor v = c < 0 ? dao::Valor() : rs_.valor(c);
    const bool igual =
        v.esTexto() ? v.texto().trimmed().isEmpty() : v.real() == static_cast<double>(leido);
    if (v.nulo() || igual) return;
    diferencias_.push_back({asunto, numero, Causa::OtrasCifras, v.texto(), QString::number(leido)});
  }
  template <class T>
  T leer(QStringView nombre, T valor) const {
    devices::leerColumna(rs_, nombre, valor);
    return valor;
  }
  const Recordset& rs_;
  Diferencias diferencias_;
};

// What is sent, and in what it differs from what is stored.
struct Carga {
  Piezas piezas;
  Diferencias diferencias = {};
};
Envio envioDe(int maquina, int addr, Carga carga) {
  Envio envio{.maquina = maquina, .addr = addr, .piezas = {}, .diferencias = {}};
  for (maquinas::Pieza& p : carga.piezas) {
    if (p.vale) std::ranges::move(p.diferencias, std::back_inserter(envio.diferencias));
    p.diferencias.clear();
  }
  std::ranges::move(carga.diferencias, std::back_inserter(envio.diferencias));
  envio.piezas = std::move(carga.piezas);
  return envio;
}

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

// A set's text; nothing for one that doesn't exist.
Resultado<std::optional<QString>> leerJuego(Database& db, const QString& nombre) {
  if (nombre.isEmpty()) return std::nullopt;
  TARVO_TOMAR(const auto rs, db.consultar(u"SELECT Texto FROM TEXTOSETQ WHERE CODSET=?", nombre));
  return rs->Eof() || rs->nulo(0) ? std::nullopt : std::optional(rs->texto(0));
}

std::array<QString, labels::kTextosLibres> leerTextos(const std::optional<QString>& juego,
                                                      const Ajustes& ajustes) {
  std::array<QString, labels::kTextosLibres> textos;
  for (int i = 0; i < labels::kTextosLibres; ++i)
    textos[static_cast<size_t>(i)] =
        labels::LeerTexto(i + labels::kPrimerTextoLibre, juego, ajustes);
  return textos;
}

// Those of a set that the scale doesn't get; without a set the shop's own texts go.
Diferencias diferenciasDeTextos(TipoGrupo tipo, const QString& nombre,
                                const std::optional<QString>& juego) {
  if (nombre.isEmpty()) return {};
  constexpr Asunto kTexto = Asunto::TextoDeEtiqueta;
  if (!juego) return {{kTexto, labels::kPrimerTextoLibre, Causa::JuegoQueFalta, nombre}};
  Diferencias salida;
  const QStringList lineas = juego->split(u"\r\n"_s);
  const int caben = tipo == TipoGrupo::Birch ? maquinas::kTextosDeBirch : labels::kTextosLibres;
  for (int i = caben; i < lineas.size(); ++i)
    if (!lineas[i].trimmed().isEmpty())
      salida.push_back({kTexto, i + labels::kPrimerTextoLibre, Causa::DeSobra, lineas[i]});
  return salida;
}

maquinas::OpcionesDeBalanza opcionesDe(Fila& f) {
  maquinas::OpcionesDeBalanza o;
  o.finDeMensajeLargo = f.entero(u"tipo"_s) == devices::kBirch;
  o.MESSAG = f.texto(u"MESSAG"_s);
  o.MESS_R = f.entero(u"MESS_R"_s, Asunto::Mensaje);
  o.MESS_T = f.entero(u"MESS_T"_s, Asunto::Mensaje);
  size_t i = 0;
  for (const QStringView permiso : {u"P_LIBRE", u"P_ESPE", u"P_VOID", u"RESO", u"DCTSTT"})
    o.permisos[i++] = f.logico(permiso, Asunto::Permisos);
  o.HABIL_BC = f.logico(u"HABIL_BC"_s, Asunto::BarrasDelTicket);
  o.TIPO_BC = f.entero(u"TIPO_BC"_s, Asunto::BarrasDelTicket);
  o.FIJO_BC = f.entero(u"FIJO_BC"_s, Asunto::BarrasDelTicket);
  o.FORMA_BC = f.texto(u"FORMA_BC"_s);
  o.DIGIT_PLU = f.entero(u"DIGIT_PLU"_s, Asunto::CodigoDePlu);
  o.FIJO_PLU = f.entero(u"FIJO_PLU"_s, Asunto::CodigoDePlu);
  for (int n = 1; n <= 3; ++n) {
    o.modos[static_cast<size_t>(n - 1)] = f.entero(conNumero(u"MODAL", n), Asunto::Casetes);
    o.operadores[static_cast<size_t>(n - 1)] = f.entero(conNumero(u"OPERA", n), Asunto::Casetes);
  }
  o.HABIL_DEP = f.logico(u"HABIL_DEP"_s, Asunto::UsoDeDepartamentos);
  return o;
}

// The label positions of a scale with a text set of their own, and the set that the scale gets.
struct Juegos {
  std::vector<std::pair<int, QString>> deEtiqueta = {};
  QString elegido = {};
  Diferencias diferencias() const {
    Diferencias salida;
    for (const auto& [numero, juego] : deEtiqueta)
      if (juego != elegido)
        salida.push_back({Asunto::FormatoDeEtiqueta, numero, Causa::OtroJuego, juego, elegido});
    return salida;
  }
};

Resultado<Carga> etiquetasDe(Database& db, const Ajustes& ajustes, TipoGrupo tipo, const Fila& f,
                             const std::map<QString, Formato>& formatos) {
  maquinas::FormatosDeEtiqueta suyos;
  Juegos juegos;
  Diferencias diferencias;
  for (int k = 0; k < static_cast<int>(suyos.size()); ++k) {
    const QString nombre = f.texto(conNumero(u"ETQ", k + 11));
    const auto cual = formatos.find(nombre);
    if (cual == formatos.end()) {
      if (!nombre.isEmpty())
        diferencias.push_back({Asunto::FormatoDeEtiqueta, k + 1, Causa::FormatoQueFalta, nombre});
      continue;
    }
    suyos[static_cast<size_t>(k)] = cual->second.campos;
    if (cual->second.juego.isEmpty()) continue;
    juegos.elegido = cual->second.juego;
    juegos.deEtiqueta.emplace_back(k + 1, juegos.elegido);
  }
  std::optional<std::array<QString, labels::kTextosLibres>> textos;
  if (ajustes.EsEspanol()) {
    TARVO_TOMAR(const auto juego, leerJuego(db, juegos.elegido));
    textos = leerTextos(juego, ajustes);
    std::ranges::move(juegos.diferencias(), std::back_inserter(diferencias));
    std::ranges::move(diferenciasDeTextos(tipo, juegos.elegido, juego),
                      std::back_inserter(diferencias));
  }
  return Carga{maquinas::piezasDeEtiquetas(tipo, suyos, textos), std::move(diferencias)};
}

Resultado<Carga> cargaDe(Database& db, const Ajustes& ajustes, TipoTarea clase, TipoGrupo tipo,
                         Fila& f, const std::map<QString, Formato>& formatos) {
  const auto numero = static_cast<int>(f.entero(u"NMBZA"_s));
  if (clase == TipoTarea::TxTecla) {
    const int modelo =
        tipo == TipoGrupo::Ebony ? devices::kEbony : static_cast<int>(f.entero(u"tipo"_s));
    const int teclas = devices::MaxTeclas(modelo);
    const maquinas::TextosDeTeclado textos{f.texto(u"HARDPLU"_s), f.texto(u"TARASME"_s),
                                           f.texto(u"Teclado"_s)};
    return Carga{maquinas::piezasDeTeclado(tipo, numero, teclas, textos),
                 maquinas::perdidasDeTeclado(tipo, teclas, textos)};
  }
  if (clase == TipoTarea::TxTick) {
    const QString lineas = f.texto(u"RZSOCIAL"_s);
    return Carga{maquinas::piezasDeTicket(tipo, numero, lineas),
                 maquinas::perdidasDeTicket(tipo, lineas)};
  }
  if (clase == TipoTarea::TxCfBal) {
    const auto o = opcionesDe(f);
    return Carga{maquinas::piezasDeBalanza(tipo, o, ajustes.NoEspanol()), f.diferencias()};
  }
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
        Fila f(rs);
        const auto numero = static_cast<int>(f.entero(u"NMBZA"_s));
        TARVO_TOMAR(auto carga, cargaDe(db, ajustes, clase, d.tipo, f, formatos));
        envios.push_back(envioDe(numero, nodal ? d.addr : numero + 1, std::move(carga)));
        return {};
      }));
  return envios;
}

Resultado<std::vector<maquinas::OpcionesDeGrupo::Operador>> leerOperadores(Database& db,
                                                                           TipoGrupo tipo,
                                                                           Fila& f) {
  std::vector<maquinas::OpcionesDeGrupo::Operador> lista;
  for (int n = 1; n <= maquinas::MaxOperadores(tipo); ++n) {
    auto& op = lista.emplace_back();
    op.training = f.logico(conNumero(u"OP", n, u"_T"), Asunto::Operador, n);
    const qint64 codigo = f.entero(conNumero(u"OP", n, u"_C"), Asunto::Operador, n);
    if (codigo == 0) continue;
    TARVO_TOMAR(const auto rs, db.consultar(u"SELECT NOMOPE FROM OPERS WHERE CODOPE=?", codigo));
    if (rs->Eof())
      op.falta = codigo;
    else if (!rs->nulo(0))
      op.nombre = rs->texto(0);
  }
  return lista;
}

Resultado<maquinas::OpcionesDeGrupo> opcionesDeGrupo(Database& db, TipoGrupo tipo, Fila& f) {
  maquinas::OpcionesDeGrupo o;
  o.TK_FLAGS = f.texto(u"TK_FLAGS"_s);
  o.TK_CPIA = f.entero(u"TK_CPIA"_s, Asunto::CopiaDelTicket);
  o.TK_TCOP = f.entero(u"TK_TCOP"_s, Asunto::CopiaDelTicket);
  o.E13_PE = f.texto(u"E13_PE"_s), o.E08_PE = f.texto(u"E08_PE"_s);
  o.E13_CU = f.texto(u"E13_CU"_s), o.E08_CU = f.texto(u"E08_CU"_s);
  for (int n = 1; n <= 5; ++n)
    o.IVA[static_cast<size_t>(n - 1)] = f.entero(conNumero(u"IVA", n), Asunto::Iva, n);
  for (int n = 1; n <= maquinas::MaxDepartamentos(tipo); ++n) {
    TARVO_TOMAR(const auto nombre, db.uno(u"SELECT NomDep FROM DEPTS WHERE SECCION=? AND NUMDEP=?",
                                          f.entero(u"seccion"_s), n));
    o.departamentos.push_back({f.entero(conNumero(u"IVD", n), Asunto::Departamento, n),
                               nombre.nulo() ? QString() : nombre.texto()});
  }
  o.TOTE = f.entero(u"TOTE"_s, Asunto::EsperaDeTecla);
  o.TOCO = f.entero(u"TOCO"_s, Asunto::EsperaDePlu);
  o.PITO = f.logico(u"PITO"_s, Asunto::Pitido);
  o.SALT = f.logico(u"SALT"_s, Asunto::SalidaDelTotal);
  o.PRLI = f.logico(u"PRLI"_s, Asunto::NumerosComoPrecios);
  TARVO_TOMAR(o.operadores, leerOperadores(db, tipo, f));
  return o;
}

Resultado<std::vector<Envio>> delGrupo(Database& db, const Destino& d) {
  TARVO_TOMAR(const auto rs, db.consultar(u"SELECT * FROM GRUPOS WHERE CODGPO=? AND EXISTS (SELECT "
                                          u"1 FROM BZAS WHERE SUGPO=CODGPO AND (? OR NMBZA=?))",
                                          d.grupo, !d.maquina.has_value(), d.maquina.value_or(0)));
  if (rs->Eof()) return std::vector<Envio>{};
  Fila f(*rs);
  TARVO_TOMAR(const auto o, opcionesDeGrupo(db, d.tipo, f));
  return std::vector<Envio>{
      envioDe(kTodoElGrupo, 0, {maquinas::piezasDeGrupo(d.tipo, o), f.diferencias()})};
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
