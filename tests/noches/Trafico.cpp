#include "noches/Trafico.h"

#include <QCryptographicHash>
#include <QRegularExpression>
#include <algorithm>

#include "noches/Mundo.h"

namespace tarvo::noches {

namespace {

constexpr int kHoraVek = 10, kHoraNodal = 36;

Plan sinTropiezos(quint64 semilla, bool averias) {
  Plan plan(semilla);
  plan.notas = false;  // drawn for the machine that comes first
  for (PlanNoche& n : plan.noches) {
    n.linea = {};
    n.cortes.clear();
    n.llenoDesde = n.saltoEn = -1;
    if (!averias) n.fallos.assign(n.fallos.size(), {});
  }
  return plan;
}

QByteArray suma(const QByteArray& texto) {
  return QCryptographicHash::hash(texto, QCryptographicHash::Md5).toHex().left(12);
}

}  // namespace

QByteArray Mundo::oido() const {
  QByteArray texto;
  for (const auto& m : maquinas_) {
    texto += "= " + m.grupo->linea().toUtf8() + ' ' +
             QByteArray::number(m.maquina->opciones().direccion) + '\n';
    for (const auto& p : m.maquina->oidas()) {
      const bool hora = p.codigo == kHoraVek || p.codigo == kHoraNodal;
      texto += QByteArray::number(p.codigo) + ' ' + (hora ? QByteArray() : p.datos) + '\n';
    }
  }
  return texto;
}

// Moments are cut to the day. Tasks of different machines may end in another order: their running
// numbers are ignored, and rows are sorted.
QByteArray Mundo::filas() {
  static const QRegularExpression momento(QStringLiteral("\\b(\\d{5})\\.\\d+"));
  static const QRegularExpression hora(QStringLiteral("\\d\\d?:\\d\\d(:\\d\\d)?"));
  for (const char* sql :
       {"UPDATE Lecturas SET SEC=0", "UPDATE Ceros SET SEC_INTENCION=0, SEC_HECHO=0",
        "UPDATE CerosParte SET SEC_INTENCION=0, SEC_HECHO=0"})
    oraculo_->base().filas(sql);
  QString texto = QString::fromUtf8(oraculo_->base().todo());
  texto.remove(carpeta_.path());
  texto.replace(momento, QStringLiteral("\\1"));
  texto.replace(hora, QStringLiteral("h"));
  QStringList lineas = texto.split(u'\n');
  std::ranges::sort(lineas);
  return lineas.join(u'\n').toUtf8();
}

QString trafico(quint64 semilla, bool averias, bool entero) {
  const Plan plan = sinTropiezos(semilla, averias);
  Mundo mundo(plan, {});
  const Veredicto v = mundo.correr();
  const QByteArray oido = mundo.oido(), filas = mundo.filas();
  return QString::fromUtf8(entero ? oido + filas + '\n' : QByteArray()) +
         QStringLiteral("%1 %2 %3 %4")
             .arg(semilla)
             .arg(QString::fromLatin1(suma(oido)), QString::fromLatin1(suma(filas)))
             .arg(v.diferencias.size());
}

}  // namespace tarvo::noches
