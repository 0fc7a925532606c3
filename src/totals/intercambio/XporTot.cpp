#include "totals/intercambio/XporTot.h"

#include "core/ajustes/Ficheros.h"
#include "core/dao/Marcas.h"
#include "core/dao/Recorrido.h"
#include "core/textos/Textos.h"
#include "totals/TextosTotals.h"
#include "totals/intercambio/Anadidura.h"
#include "totals/intercambio/Exportado.h"
#include "totals/intercambio/Vuelta.h"

namespace tarvo::totals {

namespace {

const QString kFinLinea = QStringLiteral("\r\n");

QByteArray cabeceraDe(const Columna& c) {
  return ficheros::codificar1252(cabeceraComentario(c.periodo, c.DESCR) + kFinLinea +
                                 cabeceraFechas(c.periodo) + kFinLinea);
}

FilaExport filaDe(const ClaseTotal& c, const dao::Recordset& r) {
  FilaExport f{c.tipo, r.entero(0), r.entero(1), r.entero(2), r.entero(3), {}};
  f.c = {r.entero(4), r.entero(5), r.entero(6), r.entero(7)};
  return f;
}

std::unexpected<Error> noCabe(const Columna& periodo, const FilaExport& f, const Textos& textos) {
  return fallo(Fallo::Formato, textos(f.clase == TipoTotal::OperHora ? kTxNoCabeHora : kTxNoCabe,
                                      {periodo.LINK, TextoPeriodo(periodo.periodo),
                                       NombreTabla(f.clase), f.GRUPO, f.CODI, f.HORA}));
}

}  // namespace

XporTot::XporTot(Periodos& periodos) : db_(periodos.base()), p_(periodos), a_(periodos.ajustes()) {}

QString XporTot::rutaDestino(const QString& nombre) const {
  QString n = nombre.trimmed();
  const QString fichero = NombreFichero(n);
  if (fichero.isEmpty() || fichero == u"." || fichero == u"..") return {};
  if (!fichero.contains(u'.')) n += QStringLiteral(".EXP");
  return Ajustes::ruta(n, a_.HomeDir);
}

// A query returns all its rows at once, and a period may have millions: one group at a time.
Resultado<> XporTot::lineasDe(const ClaseTotal& c, const Columna& periodo, bool corto,
                              const Recibe& recibe) {
  const QString tabla = QString::fromUtf16(c.tabla);
  TARVO_TOMAR(const auto grupos,
              dao::reunir(db_.consultar(dao::conMarcas(u"SELECT DISTINCT GRUPO FROM {tabla} WHERE "
                                                       u"LINK=? ORDER BY GRUPO",
                                                       {{u"tabla", tabla}}),
                                        periodo.LINK),
                          [](const dao::Recordset& fila) { return fila.entero(0); }));
  const QString filas = dao::conMarcas(
      u"SELECT GRUPO, GRUPOS.SECCION, CODI, {hora}, CON, PES, [IMP], SCO FROM {tabla} LEFT JOIN "
      u"GRUPOS ON GRUPOS.CODGPO={tabla}.GRUPO WHERE LINK=? AND GRUPO=? ORDER BY {orden}",
      {{u"tabla", tabla},
       {u"hora", horaDe(c)},
       {u"orden", c.conHora ? QStringLiteral("CODI, HORA") : QStringLiteral("CODI")}});
  const auto una = [&](const dao::Recordset& fila) -> Resultado<> {
    const FilaExport f = filaDe(c, fila);
    const auto linea = lineaExport(f, corto);
    if (!linea) return noCabe(periodo, f, p_.textos());
    return recibe((*linea + kFinLinea).toLatin1());
  };
  for (const qint64 grupo : grupos)
    TARVO_INTENTAR(dao::recorrer(db_.consultar(filas, periodo.LINK, grupo), una));
  return {};
}

Resultado<> XporTot::bloque(const Columna& periodo, bool corto, const Recibe& recibe) {
  TARVO_INTENTAR(recibe(cabeceraDe(periodo)));
  for (const ClaseTotal& c : enVigor(a_)) TARVO_INTENTAR(lineasDe(c, periodo, corto, recibe));
  return {};
}

Resultado<qint64> XporTot::largoDe(const Columna& periodo, bool corto) {
  qint64 filas = 0;
  for (const ClaseTotal& c : enVigor(a_)) {
    TARVO_TOMAR(const auto n, db_.uno(dao::conMarcas(u"SELECT count(*) FROM {totales} WHERE LINK=?",
                                                     {{u"totales", QString::fromUtf16(c.tabla)}}),
                                      periodo.LINK));
    filas += n.entero();
  }
  return cabeceraDe(periodo).size() + filas * (largoLinea(corto) + kFinLinea.size());
}

// The periods to export; nothing when the first of them is missing.
Resultado<std::optional<std::vector<Columna>>> XporTot::columnas(const std::vector<qint64>& links) {
  std::vector<Columna> v;
  for (const qint64 link : links) {
    TARVO_TOMAR(const auto c, p_.columna(link));
    if (!c && v.empty()) return std::nullopt;
    if (!c) return fallo(Fallo::NoExiste, p_.textos()(kTxNadaExportado, {link}));
    v.push_back(*c);
  }
  return v;
}

// How far an export with this mark got, whatever its file name was: a name may contain the date.
Resultado<XporTot::Avance> XporTot::avanceDe(const QString& marca) {
  if (marca.isEmpty()) return Avance{};
  TARVO_TOMAR(
      auto rs,
      db_.consultar(u"SELECT RUTA, ANTES, DESPUES, HUELLA, HECHO FROM Exportes WHERE MARCA=?",
                    marca));
  if (rs->Eof()) return Avance{};
  TARVO_TOMAR(const auto escrito, Anadidura::estaEn(fichero(rs->texto(0)),
                                                    {rs->entero(1), rs->entero(2), rs->texto(3)}));
  return Avance{escrito, escrito && rs->logico(4)};
}

// The blocks count from the moment the database records them as in the file, which is after they
// are on disk. `alContar` belongs to that transaction: without it they don't count either.
Resultado<> XporTot::escribir(const QString& ruta, const std::vector<Columna>& periodos, bool corto,
                              const QString& marca, const std::function<Resultado<>()>& alContar) {
  qint64 largo = 0;
  for (const Columna& c : periodos) {
    TARVO_TOMAR(const auto suyo, largoDe(c, corto));
    largo += suyo;
  }
  TARVO_TOMAR(const auto fichero,
              Anadidura::empezar(db_, ruta, largo, cabeceraDe(periodos.front()), a_, p_.textos()));
  for (const Columna& c : periodos)
    TARVO_INTENTAR(
        bloque(c, corto, [&](const QByteArray& bytes) { return fichero->escribir(bytes); }));
  TARVO_TOMAR(const auto sitio, fichero->asegurar());
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(db_));
  TARVO_INTENTAR(fichero->contada());
  if (!marca.isEmpty())
    TARVO_INTENTAR(
        db_.ejecutar(u"INSERT OR REPLACE INTO Exportes (MARCA, RUTA, ANTES, DESPUES, HUELLA, "
                     u"HECHO) VALUES (?, ?, ?, ?, ?, 0)",
                     marca, anotada(ruta), sitio.desde, sitio.hasta, sitio.huella));
  if (alContar) TARVO_INTENTAR(alContar());
  TARVO_INTENTAR(t.confirmar());
  fichero->confirmada();
  return {};
}

Resultado<QStringList> XporTot::recuperar() {
  TARVO_TOMAR(const auto ajenos, Anadidura::recuperar(db_));
  QStringList avisos;
  for (const QString& ruta : ajenos) avisos += p_.textos()(kTxExporteAjeno, {ruta});
  return avisos;
}

QString XporTot::anotada(const QString& ruta) const {
  return rutaAnotada(db_, ruta);
}
QString XporTot::fichero(const QString& anotada) const {
  return rutaDe(db_, anotada);
}

// The debts are the runner's, which may not have its tables yet. One that was to end with the
// deletion of the period leaves that to the runner.
Resultado<> XporTot::pagar(qint64 link, const QStringList& rutas) {
  if (!db_.existeTabla(u"ExportesPendientes")) return {};
  TARVO_TOMAR(const auto deseos,
              db_.uno(u"SELECT count(*) FROM ExportesPendientes WHERE LINK=? AND RUTA IN (?, ?) "
                      u"AND BORRAR<>0",
                      link, rutas.first(), rutas.last()));
  if (deseos.entero() > 0) TARVO_INTENTAR(entregados().anotar(link, rutas.last()));
  TARVO_INTENTAR(db_.ejecutar(u"DELETE FROM ExportesPendientes WHERE LINK=? AND RUTA IN (?, ?)",
                              link, rutas.first(), rutas.last()));
  return {};
}

// What the period stays for; it goes when that is done.
Resultado<QStringList> XporTot::borrarEntregado(qint64 link, const QStringList& salvo) {
  TARVO_TOMAR(const auto debidos, p_.debidosDe(link, salvo));
  TARVO_TOMAR(const auto c, p_.columna(link));
  if (debidos.isEmpty() && c)
    TARVO_INTENTAR(entregados().borrar(*c, {salvo.last()}));
  else if (c)
    TARVO_INTENTAR(entregados().anotar(link, salvo.last()));
  return debidos;
}

Resultado<> XporTot::terminar(const std::vector<qint64>& links, bool borrar, const QString& marca,
                              const QString& ruta) {
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(db_));
  if (borrar)
    for (const qint64 link : links) TARVO_INTENTAR(borrarEntregado(link, {ruta, anotada(ruta)}));
  TARVO_INTENTAR(db_.ejecutar(u"UPDATE Exportes SET HECHO=1 WHERE MARCA=?", marca));
  return t.confirmar();
}

// In one transaction with the block: no mark would tell the night that it is there already.
Resultado<> XporTot::exportarAMano(const std::vector<Columna>& periodos, const OpcionesExport& como,
                                   const QString& ruta) {
  const QStringList suyas{ruta, anotada(ruta)};
  QStringList quedan;
  const auto pagarlos = [&]() -> Resultado<> {
    for (const Columna& c : periodos) {
      TARVO_INTENTAR(pagar(c.LINK, suyas));
      if (!como.borrar) continue;
      TARVO_TOMAR(const auto debidos, borrarEntregado(c.LINK, suyas));
      quedan += debidos;
    }
    return {};
  };
  TARVO_INTENTAR(escribir(ruta, periodos, como.corto, QString(), pagarlos));
  if (quedan.isEmpty()) return {};
  return fallo(Fallo::Restriccion, p_.textos()(kTxExportadoSinBorrar, {quedan.join(u"; ")}));
}

Resultado<QString> XporTot::otroBloque(qint64 link, const QString& ruta) {
  TARVO_TOMAR(const auto c, p_.columna(link));
  if (!c) return QString();
  TARVO_TOMAR(const bool hay, entregados().hayOtroBloque(*c, anotada(ruta)));
  if (!hay) return QString();
  return p_.textos()(kTxOtroBloque, {NombreFichero(ruta), TextoPeriodo(c->periodo).simplified()});
}

Resultado<QString> XporTot::noVolverian(const std::vector<qint64>& periodos) {
  std::set<qint64> grupos;
  for (const qint64 link : periodos) {
    TARVO_TOMAR(auto suyos, ilegiblesEnCorto(db_, a_, link));
    grupos.merge(suyos);
  }
  QStringList lista;
  for (const qint64 g : grupos) lista += QString::number(g);
  return lista.isEmpty() ? QString() : p_.textos()(kTxNoVolverian, {lista.join(u", ")});
}

Resultado<bool> XporTot::terminado(const QString& marca) {
  TARVO_TOMAR(const auto avance, avanceDe(marca));
  return avance.terminado;
}

Resultado<bool> XporTot::XportRemoto(const std::vector<qint64>& periodos,
                                     const OpcionesExport& como, const QString& nombre,
                                     const QString& marca) {
  const QString ruta = rutaDestino(nombre);
  if (ruta.isEmpty()) return fallo(Fallo::Formato, p_.textos()(kTxSinFichero));
  if (db_.profundidad() != 0) return fallo(Fallo::Interno, p_.textos()(kTxExportarDentro));
  if (periodos.empty()) return false;
  TARVO_TOMAR(const auto avance, avanceDe(marca));
  if (avance.terminado) return true;
  if (!avance.escrito) {
    TARVO_TOMAR(const auto nuevos, columnas(periodos));
    if (!nuevos) return false;
    if (marca.isEmpty()) {
      TARVO_INTENTAR(exportarAMano(*nuevos, como, ruta));
      return true;
    }
    TARVO_INTENTAR(escribir(ruta, *nuevos, como.corto, marca));
  }
  TARVO_INTENTAR(terminar(periodos, como.borrar, marca, ruta));
  return true;
}

}  // namespace tarvo::totals
