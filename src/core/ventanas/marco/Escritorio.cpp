#include "core/ventanas/marco/Escritorio.h"

#include <QApplication>
#include <QLibraryInfo>

#include "core/ventanas/TextosVentanas.h"
#include "core/ventanas/marco/Accesible.h"

namespace tarvo::ventanas {

using namespace Qt::StringLiterals;

std::optional<Cara> leerCara(const QString& palabra) {
  if (palabra.compare(u"claro", Qt::CaseInsensitive) == 0) return Cara::Clara;
  if (palabra.compare(u"oscuro", Qt::CaseInsensitive) == 0) return Cara::Oscura;
  return std::nullopt;
}

namespace {

QString juegoDe(Idioma idioma) {
  switch (idioma) {
    case Idioma::I:
      return u"qtbase_it"_s;
    case Idioma::F:
      return u"qtbase_fr"_s;
    case Idioma::UK:
      return u"qtbase_en"_s;
    case Idioma::PL:
      return u"qtbase_pl"_s;
    case Idioma::P:
      return u"qtbase_pt_BR"_s;
    case Idioma::Espanol:
      break;
  }
  return u"qtbase_es"_s;
}

}  // namespace

QString Faltas::translate(const char* contexto, const char* texto, const char*, int) const {
  if (qstrcmp(contexto, "QAbstractFileIconProvider") != 0) return {};
  if (qstrcmp(texto, "Folder") == 0) return t_(kTxCarpeta);
  if (qstrcmp(texto, "Drive") == 0) return t_(kTxDisco);
  return {};
}

Escritorio::Escritorio(QApplication& app, dao::Database& db, Ajustes& ajustes, const Textos& textos,
                       Reloj& reloj, std::optional<Cara> cara, const QString& rutaRecuerdos)
    : faltas_(textos),
      nombres_(db),
      recuerdos_(rutaRecuerdos),
      tema_(app, cara ? cara : leerCara(recuerdos_.leer(u"Tema"_s, u"cara"_s))),
      contexto_{Base(db), nombres_, ajustes, textos, reloj, ventanas_, recuerdos_, tema_, hilos_},
      ayuda_(ventanas_) {
  ventanas_.ponerContexto(contexto_);
  ventanas_.registrar<PuertaManual, Manual>();
  prepararAccesible();
  // In the program's language, not the desktop's.
  if (delJuego_.load(juegoDe(ajustes.idioma), QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QApplication::installTranslator(&delJuego_);
  QApplication::installTranslator(&faltas_);
}

Escritorio::~Escritorio() {
  static_cast<void>(recuerdos_.guardar());
}

}  // namespace tarvo::ventanas
