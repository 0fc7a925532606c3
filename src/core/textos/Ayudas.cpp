#include "core/textos/Textos.h"

namespace tarvo {

namespace {

QString nombreDeCodigo(dao::Database& db, QStringView sql, QStringView cifras) {
  bool bien = false;
  const qint64 codigo = cifras.toLongLong(&bien);
  if (!bien) return {};
  const auto valor = db.uno(sql, codigo);
  return valor ? valor->texto() : QString();
}

// Replaces each mark and the digits after it by the name of that code. The replacement is not read
// again.
QString expandirCodigos(const QString& texto, QStringView marca, QStringView sql,
                        dao::Database& db) {
  QString hecho;
  qsizetype leido = 0;
  for (qsizetype i; (i = texto.indexOf(marca, leido)) >= 0;) {
    hecho += QStringView(texto).mid(leido, i - leido);
    leido = i + marca.size();
    const qsizetype desde = leido;
    while (leido < texto.size() && texto[leido] >= u'0' && texto[leido] <= u'9') ++leido;
    hecho += nombreDeCodigo(db, sql, QStringView(texto).mid(desde, leido - desde));
  }
  hecho += QStringView(texto).mid(leido);
  return hecho;
}

// The last day, a Sunday, of the week of a day.
QDate finDeSemana(QDate dia) {
  return dia.addDays(7 - dia.dayOfWeek());
}

}  // namespace

QString Plural(QString texto, int n) {
  texto.replace(u'#', QString::number(n));
  for (const char16_t* regla : {u"es", u"s", u"n"}) {
    const QString final = QString::fromUtf16(regla);
    texto.replace(u'+' + final, n >= 2 ? final : QString());
  }
  return texto;
}

void CambiaTexto(const QString& busca, const QString& pone, QString& texto) {
  if (!busca.isEmpty()) texto.replace(busca, pone);
}

int Semana(Fecha fecha) {
  const QDate fin = finDeSemana(fecha.qdate());
  return static_cast<int>(finDeSemana(QDate(fin.year(), 1, 1)).daysTo(fin) / 7) + 1;
}

QString ExpandirNombre(const QString& texto, Fecha fecha, dao::Database& db) {
  QString t = expandirCodigos(texto, u"#G", u"SELECT NOMGPO FROM GRUPOS WHERE CODGPO=?", db);
  t = expandirCodigos(t, u"#S", u"SELECT NOMSEC FROM SECCS WHERE NMSECC=?", db);
  const QDate dia = fecha.qdate();
  CambiaTexto(QStringLiteral("#D"), Ceros(dia.day(), 2), t);
  CambiaTexto(QStringLiteral("#M"), Ceros(dia.month(), 2), t);
  CambiaTexto(QStringLiteral("#A"), Ceros(dia.year(), 4), t);
  CambiaTexto(QStringLiteral("#H"), Ceros(Semana(fecha), 2), t);
  return t;
}

QString NombreFichero(const QString& ruta) {
  return ruta.mid(std::max(ruta.lastIndexOf(u'\\'), ruta.lastIndexOf(u'/')) + 1);
}

QString Ceros(qint64 n, int ancho) {
  const QString cifras = QString::number(n);
  return n < 0 ? u'-' + cifras.mid(1).rightJustified(ancho - 1, u'0')
               : cifras.rightJustified(ancho, u'0');
}

QString siNo(bool valor, bool espanol) {
  if (!valor) return QStringLiteral("No");
  return espanol ? QStringLiteral("Sí") : QStringLiteral("Yes");
}

std::optional<bool> leerSiNo(QStringView texto, bool espanol) {
  const QString palabra = texto.trimmed().toString().toUpper();
  if (palabra == u"NO") return false;
  const bool cierta = espanol ? palabra == u"SÍ" || palabra == u"SI" : palabra == u"YES";
  return cierta ? std::optional(true) : std::nullopt;
}

}  // namespace tarvo
