#include "totals/ventanas/ComunTotales.h"

#include <QLocale>

#include "core/dinero/Dinero.h"
#include "core/textos/Textos.h"
#include "core/ventanas/TextosVentanas.h"
#include "totals/periodos/Sumas.h"
#include "totals/ventanas/TextosTotalesVentanas.h"

namespace tarvo::totals {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPartesNombradas = 6;  // periods of a sum that are listed by name

QString conPuntosTotales(qint64 n) {
  return QLocale(QLocale::Spanish).toString(n);
}

QString lineaProcedencia(ventanas::Ventana& v, const Procedencia& p) {
  QString texto = v.t(kTxLeido).arg(p.leido ? p.leido->general() : v.t(kTxSinFecha),
                                    p.desde.general(), p.hasta.general());
  if (p.ejecucion > 0) texto += u'\n' + v.t(kTxEjecucion).arg(p.ejecucion);
  if (p.diferencia) texto += u'\n' + v.t(kTxDiferencia);
  for (const auto& [addr, importe] : p.maquinas)
    texto += u'\n' + v.t(kTxMaquina).arg(addr).arg(conMoneda(v.contexto(), importe));
  return texto;
}

QString lineaSumandos(ventanas::Ventana& v, const std::vector<Periodo>& partes) {
  if (partes.empty()) return v.t(kTxSinLectura);
  QStringList nombres;
  for (const Periodo& p : partes) {
    if (nombres.size() == kPartesNombradas) {
      nombres << v.t(kTxYMas).arg(static_cast<int>(partes.size()) - kPartesNombradas);
      break;
    }
    nombres << (p.tipo == kOtros ? TextoPeriodo(p).simplified() : FormatoPeriodo(p.tipo, p.desde));
  }
  return v.t(kTxSumaDe).arg(nombres.join(u", "_s));
}

}  // namespace

Resultado<> llenarLista(QComboBox& lista, ventanas::Contexto& c, const Nombres::Lista& nombres,
                        int cifras, int textoTodos) {
  TARVO_TOMAR(const auto filas, nombres);
  auto opciones = ventanas::conCodigo(filas, cifras);
  if (textoTodos > 0) opciones.insert(opciones.begin(), {kTodos, c.textos(textoTodos)});
  ventanas::llenar(lista, opciones);
  return {};
}

std::optional<int> elegidoEn(const QComboBox& lista) {
  const QVariant dato = lista.currentData();
  if (!dato.isValid() || dato.toInt() == kTodos) return std::nullopt;
  return dato.toInt();
}

void elegirEn(QComboBox& lista, const QVariant& dato) {
  const int i = dato.isValid() ? lista.findData(dato) : -1;
  lista.setCurrentIndex(i >= 0 ? i : lista.count() > 0 ? 0 : -1);
}

ventanas::Opciones mesesDelAno() {
  ventanas::Opciones meses;
  for (int mes = 1; mes <= 12; ++mes)
    meses.push_back({mes, QLocale(QLocale::Spanish).standaloneMonthName(mes)});
  return meses;
}

ventanas::Opciones tiposDePeriodo() {
  ventanas::Opciones tipos;
  for (int tipo = kDiario; tipo <= kOtros; ++tipo) tipos.push_back({tipo, NombreTipoPeriodo(tipo)});
  return tipos;
}

ventanas::Opciones clasesDeTotal(const ventanas::Contexto& c) {
  ventanas::Opciones clases;
  for (const TipoTotal k : {TipoTotal::GranTotal, TipoTotal::PLUs, TipoTotal::Operadores,
                            TipoTotal::Departamentos, TipoTotal::Horario, TipoTotal::OperHora})
    if (k != TipoTotal::OperHora || c.ajustes.EsEspanol())
      clases.push_back({numeroDe(k), nombreClase(c.textos, k)});
  return clases;
}

QString nombreClase(const Textos& t, TipoTotal clase) {
  switch (clase) {
    case TipoTotal::PLUs:
      return t(kTxClasePLUs);
    case TipoTotal::GranTotal:
      return t(kTxClaseGranTotal);
    case TipoTotal::Operadores:
      return t(ventanas::kTxOperadores);
    case TipoTotal::Departamentos:
      return t(kTxClaseDepartamentos);
    case TipoTotal::Horario:
      return t(kTxClaseHorario);
    case TipoTotal::OperHora:
      return t(kTxClaseOperHora);
  }
  std::unreachable();
}

int cifrasCodigo(TipoTotal clase) {
  if (clase == TipoTotal::PLUs) return 7;
  return clase == TipoTotal::Departamentos || clase == TipoTotal::Horario ? 2 : 4;
}

QString conMoneda(const ventanas::Contexto& c, qint64 importe, int moneda) {
  const size_t cual = moneda == 0 ? 0 : 1;
  return (VerImporte(c.ajustes, importe, moneda) + u' ' + c.ajustes.MonedaLogo[cual].trimmed())
      .trimmed();
}

QString conMoneda(const ventanas::Contexto& c, qint64 importe) {
  return conMoneda(c, importe, c.ajustes.MonedaPreferente);
}

QString textoResumen(const ventanas::Ventana& v, const Resumen& r) {
  if (r.filas == 0) return v.t(kTxSinTotales);
  const QString totales = v.t(kTxNTotales, static_cast<int>(r.filas))
                              .replace(QString::number(r.filas), conPuntosTotales(r.filas));
  return QStringList{v.t(kTxNGrupos, r.grupos), totales, conMoneda(v.contexto(), r.importe)}.join(
      u", "_s);
}

Resultado<QString> textoProcedencia(ventanas::Ventana& v, Periodos& periodos, qint64 link,
                                    int grupo, TipoTotal clase, qint64 codigo) {
  TARVO_TOMAR(const auto lecturas, procedencia(periodos, link, grupo, clase, codigo));
  QStringList lineas;
  for (const Procedencia& p : lecturas) lineas << lineaProcedencia(v, p);
  if (!lineas.isEmpty()) return lineas.join(u'\n');
  TARVO_TOMAR(const auto c, periodos.columna(link));
  if (!c) return QString();
  TARVO_TOMAR(const auto partes, Sumas(periodos).directos(*c));
  return lineaSumandos(v, partes);
}

}  // namespace tarvo::totals
