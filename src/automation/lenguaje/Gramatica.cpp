#include "automation/lenguaje/Gramatica.h"

#include <utility>

namespace tarvo::automation {

namespace {

constexpr VerboSesion kVerbosSesion[] = {VerboSesion::Abrir, VerboSesion::Olvidar,
                                         VerboSesion::Cerrar};

}  // namespace

QStringView palabraDe(VerboSesion verbo) {
  switch (verbo) {
    case VerboSesion::Abrir:
      return u"ABRIR";
    case VerboSesion::Olvidar:
      return u"OLVIDAR";
    case VerboSesion::Cerrar:
      return u"CERRAR";
  }
  std::unreachable();
}

QStringView palabraDe(VerboPeriodos verbo) {
  switch (verbo) {
    case VerboPeriodos::Crear:
      return u"CREAR";
    case VerboPeriodos::Borrar:
      return u"BORRAR";
    case VerboPeriodos::Limpiar:
      return u"LIMPIAR";
    case VerboPeriodos::Seleccionar:
      return u"SELECCIONAR";
    case VerboPeriodos::SelUltimo:
      return u"SEL. ULTIMO";
    case VerboPeriodos::Acumular:
      return u"ACUMULAR";
    case VerboPeriodos::Stock:
      return u"STOCK";
    case VerboPeriodos::Sumar:
      return u"SUMAR";
    case VerboPeriodos::Desacumular:
      return u"DESACUMULAR";
  }
  std::unreachable();
}

std::optional<VerboSesion> verboSesion(QStringView palabra) {
  for (const VerboSesion v : kVerbosSesion)
    if (palabraDe(v) == palabra) return v;
  return std::nullopt;
}

std::optional<VerboPeriodos> verboPeriodos(QStringView palabra) {
  for (const VerboPeriodos v : todosLos<VerboPeriodos>())
    if (palabraDe(v) == palabra) return v;
  return std::nullopt;
}

ColaTarea colaDe(TipoTarea tarea) {
  switch (tarea) {
    case TipoTarea::TxPlus:
    case TipoTarea::TPreci:
    case TipoTarea::RxPlus:
      return ColaTarea::Rango;
    case TipoTarea::TxZero:
      return ColaTarea::Informe;
    case TipoTarea::TxTecla:
    case TipoTarea::TxTick:
    case TipoTarea::TxCnfig:
    case TipoTarea::TxCfBal:
    case TipoTarea::TxHora:
    case TipoTarea::TxEtiq:
    case TipoTarea::TxCerr:
    case TipoTarea::BorrPlu:
    case TipoTarea::RxGrTot:
    case TipoTarea::RxOpera:
    case TipoTarea::RxDepar:
    case TipoTarea::RxHorar:
    case TipoTarea::RxOpHor:
    case TipoTarea::RxPedid:
    case TipoTarea::RxInven:
    case TipoTarea::RxDatPlu:
      return ColaTarea::Nada;
  }
  std::unreachable();
}

QStringView cortar(QStringView& resto, QChar corte) {
  const auto en = resto.indexOf(corte);
  const QStringView campo = en < 0 ? resto : resto.first(en);
  resto = en < 0 ? QStringView() : resto.sliced(en + 1).trimmed();
  return campo.trimmed();
}

QString palabraClase(const PasoProceso& paso) {
  return std::visit(
      [](const auto& p) {
        if constexpr (std::is_same_v<decltype(p), const std::monostate&>)
          return QString();
        else
          return p.kPalabra.toString();
      },
      paso);
}

bool enBlanco(const PasoProceso& paso) {
  return std::holds_alternative<std::monostate>(paso);
}

bool memoriza(const PasoProceso& paso) {
  const auto* sesion = std::get_if<PasoSesion>(&paso);
  return sesion && sesion->verbo == VerboSesion::Cerrar;
}

}  // namespace tarvo::automation
