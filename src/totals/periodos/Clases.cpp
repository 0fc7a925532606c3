#include "totals/periodos/Clases.h"

namespace tarvo::totals {

namespace {

constexpr std::array<ClaseTotal, 6> kClases{{
    {kPLUs, u"TOTPLU", u"QNTPLU", u"01", u"DD_PLU", u"HT_PLU", u"SS_PLU", false},
    {kGranTotal, u"TOTGRT", u"QNTGRT", u"02", u"DD_GRT", u"HT_GRT", u"SS_GRT", false},
    {kOperadores, u"TOTOPE", u"QNTOPE", u"03", u"DD_OPE", u"HT_OPE", u"SS_OPE", false},
    {kDepartamentos, u"TOTDEP", u"QNTDEP", u"04", u"DD_DEP", u"HT_DEP", u"SS_DEP", false},
    {kHorario, u"TOTHOR", u"QNTHOR", u"06", u"DD_HOR", u"HT_HOR", u"SS_HOR", false},
    {kOperHora, u"TOTOPHOR", u"QNTOPH", u"07", u"DD_OPH", u"HT_OPH", u"SS_OPH", true},
}};

QString nombreDe(int numero, const char16_t* ClaseTotal::* campo) {
  const ClaseTotal* c = clase(numero);
  return c ? QString::fromUtf16(c->*campo) : QString();
}

}  // namespace

std::span<const ClaseTotal> todasLasClases() {
  return kClases;
}

std::span<const ClaseTotal> enVigor(const Ajustes& ajustes) {
  return std::span(kClases).first(ajustes.EsEspanol() ? kClases.size() : kClases.size() - 1);
}

const ClaseTotal* clase(int numero) {
  const int i = numero - kPLUs;
  return i >= 0 && i < static_cast<int>(kClases.size()) ? &kClases[static_cast<size_t>(i)]
                                                        : nullptr;
}

QString NombreTabla(int numero) {
  return nombreDe(numero, &ClaseTotal::tabla);
}
QString NombreVista(int numero) {
  return nombreDe(numero, &ClaseTotal::vista);
}
QString CodigoTotales(int numero) {
  return nombreDe(numero, &ClaseTotal::codigo);
}
QString CampoDesde(int numero) {
  return nombreDe(numero, &ClaseTotal::desde);
}
QString CampoHasta(int numero) {
  return nombreDe(numero, &ClaseTotal::hasta);
}
QString CampoSesion(int numero) {
  return nombreDe(numero, &ClaseTotal::sesion);
}

}  // namespace tarvo::totals
