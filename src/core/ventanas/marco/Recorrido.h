// A window that walks the articles of a section, as its children see it: they follow its pointer,
// move it, and say when they have written. Reached through the window that is one:
//
//   Recorrido* lista = contexto().ventanas.recorrido(u"BrowPLUs"_s);
//
// REQUIRES to be asked for each time: the window may have gone meanwhile.
#pragma once

#include <QObject>
#include <functional>

namespace tarvo::ventanas {

class Recorrido {
 public:
  virtual ~Recorrido() = default;

  struct Clave {
    int seccion = 0;
    qint64 codigo = 0;  // 0: the pointer stands on no article
    bool operator==(const Clave&) const = default;
  };
  virtual Clave clave() const = 0;
  // The next article (1) or the one before (-1), in the order shown; false at the ends.
  virtual bool saltar(int pasos) = 0;
  // Reads the rows again and keeps the pointer on its article.
  virtual void refrescar() = 0;
  // The same, with the pointer on an article that was written just now, if it is in the list.
  virtual void refrescarEn(Clave clave) = 0;
  // A child opens (true) or goes (false). With one open the list doesn't close.
  virtual void hijo(bool mas) = 0;
  // `reposicionado` runs whenever the pointer has come to another article, until `quien` goes.
  virtual void alMover(QObject* quien, std::function<void()> reposicionado) = 0;
};

}  // namespace tarvo::ventanas
