// A window that walks the articles of a section, as its children see it: they follow its pointer,
// move it, and report what they have written. Obtained by the name of its window:
//
//   Recorrido* lista = contexto().ventanas.recorrido(u"BrowPLUs"_s);
//
// REQUIRES to be obtained for each use: the window may have been unloaded meanwhile.
#pragma once

#include <QObject>
#include <functional>

namespace tarvo::ventanas {

class Recorrido {
 public:
  virtual ~Recorrido() = default;

  struct Clave {
    int seccion = 0;
    qint64 codigo = 0;  // 0: the pointer is on no article
    bool operator==(const Clave&) const = default;
  };
  virtual Clave clave() const = 0;
  // Moves to the next article (1) or the previous one (-1), in the order shown; false at the ends.
  virtual bool saltar(int pasos) = 0;
  // Reads the rows again and keeps the pointer on its article.
  virtual void refrescar() = 0;
  // The same, with the pointer on an article just written, if it is in the list.
  virtual void refrescarEn(Clave clave) = 0;
  // Reports that a child opens (true) or closes (false). While one is open the list doesn't close.
  virtual void hijo(bool mas) = 0;
  // Calls `reposicionado` after every move of the pointer to another article, until `quien` is
  // destroyed.
  virtual void alMover(QObject* quien, std::function<void()> reposicionado) = 0;
};

}  // namespace tarvo::ventanas
