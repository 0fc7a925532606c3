#include "core/ventanas/Escritorio.h"

namespace tarvo::ventanas {

using namespace Qt::StringLiterals;

std::optional<Cara> leerCara(const QString& palabra) {
  if (palabra.compare(u"claro", Qt::CaseInsensitive) == 0) return Cara::Clara;
  if (palabra.compare(u"oscuro", Qt::CaseInsensitive) == 0) return Cara::Oscura;
  return std::nullopt;
}

Escritorio::Escritorio(QApplication& app, dao::Database& db, Ajustes& ajustes, const Textos& textos,
                       Reloj& reloj, std::optional<Cara> cara, const QString& rutaRecuerdos)
    : recuerdos_(rutaRecuerdos),
      tema_(app, cara ? cara : leerCara(recuerdos_.leer(u"Tema"_s, u"cara"_s))),
      contexto_{db, ajustes, textos, reloj, ventanas_, recuerdos_, tema_, hilos_} {
  ventanas_.setContexto(contexto_);
}

Escritorio::~Escritorio() {
  static_cast<void>(recuerdos_.guardar());
}

}  // namespace tarvo::ventanas
