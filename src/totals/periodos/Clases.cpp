#include "totals/periodos/Clases.h"

#include <algorithm>

namespace tarvo::totals {

namespace {

constexpr std::array<ClaseTotal, 6> kClases{{
    {TipoTotal::PLUs, u"TOTPLU", u"QNTPLU", u"01", u"DD_PLU", u"HT_PLU", u"SS_PLU", false},
    {TipoTotal::GranTotal, u"TOTGRT", u"QNTGRT", u"02", u"DD_GRT", u"HT_GRT", u"SS_GRT", false},
    {TipoTotal::Operadores, u"TOTOPE", u"QNTOPE", u"03", u"DD_OPE", u"HT_OPE", u"SS_OPE", false},
    {TipoTotal::Departamentos, u"TOTDEP", u"QNTDEP", u"04", u"DD_DEP", u"HT_DEP", u"SS_DEP", false},
    {TipoTotal::Horario, u"TOTHOR", u"QNTHOR", u"06", u"DD_HOR", u"HT_HOR", u"SS_HOR", false},
    {TipoTotal::OperHora, u"TOTOPHOR", u"QNTOPH", u"07", u"DD_OPH", u"HT_OPH", u"SS_OPH", true},
}};
static_assert(std::ranges::is_sorted(kClases, {}, &ClaseTotal::tipo) &&
              kClases.back().tipo == TipoTotal::OperHora);

QString nombreDe(TipoTotal tipo, const char16_t* ClaseTotal::* campo) {
  return QString::fromUtf16(claseDe(tipo).*campo);
}

}  // namespace

std::span<const ClaseTotal> todasLasClases() {
  return kClases;
}

std::span<const ClaseTotal> enVigor(const Ajustes& ajustes) {
  return std::span(kClases).first(ajustes.EsEspanol() ? kClases.size() : kClases.size() - 1);
}

const ClaseTotal& claseDe(TipoTotal tipo) {
  return kClases[static_cast<size_t>(numeroDe(tipo) - numeroDe(TipoTotal::PLUs))];
}

QString NombreTabla(TipoTotal tipo) {
  return nombreDe(tipo, &ClaseTotal::tabla);
}
QString NombreVista(TipoTotal tipo) {
  return nombreDe(tipo, &ClaseTotal::vista);
}
QString CodigoTotales(TipoTotal tipo) {
  return nombreDe(tipo, &ClaseTotal::codigo);
}
QString CampoDesde(TipoTotal tipo) {
  return nombreDe(tipo, &ClaseTotal::desde);
}
QString CampoHasta(TipoTotal tipo) {
  return nombreDe(tipo, &ClaseTotal::hasta);
}
QString CampoSesion(TipoTotal tipo) {
  return nombreDe(tipo, &ClaseTotal::sesion);
}

QString clavesDe(const ClaseTotal& c, QStringView alias) {
  QStringList claves{QStringLiteral("GRUPO"), QStringLiteral("CODI")};
  if (c.conHora) claves << QStringLiteral("HORA");
  const QString de = alias.isEmpty() ? QString() : alias.toString() + u'.';
  return de + claves.join(QStringLiteral(", ") + de);
}

QString horaDe(const ClaseTotal& c, QStringView alias) {
  if (!c.conHora) return QStringLiteral("0");
  return (alias.isEmpty() ? QString() : alias.toString() + u'.') + QStringLiteral("HORA");
}

}  // namespace tarvo::totals
