// The articles of one sending, in their order, and what became of each. It knows nothing of frames
// or links: whoever sends asks for the article that goes now, and says how that went.
//
// What the group confirmed goes to disk together with others, a second later at most; before an
// article goes whose record isn't proved to be what the group holds, that is noted. So whatever is
// cut off, an article counts as held only when it is, and otherwise goes again.
#pragma once

#include <map>

#include "comm/envios/Decision.h"
#include "comm/envios/Tenencias.h"
#include "core/textos/Textos.h"

namespace tarvo::envios {

struct Resumen {
  int enviados = 0, borrados = 0;
  int iguales = 0, distintos = 0, sobrantes = 0;  // of what the group told, once it is on disk
  std::map<qint64, QString> retenidos;            // by code, with the reason
  std::map<qint64, QString> rechazados;           // those that the group hasn't taken since
  // Texts that the group didn't hold before, with the characters for which others went.
  std::map<qint64, QString> conOtrasLetras;
};

class Remesa {
 public:
  enum class Que { Articulos, Precios };
  // REQUIRES that the references outlive it.
  Remesa(dao::Database& db, Reloj& reloj, const Textos& textos, const Destino& destino,
         Que que = Que::Articulos);
  ~Remesa();

  // Brings what is known of the group up to date with what became of the group itself. Once.
  Resultado<> abrir();
  // The same, and decides what goes: all of the range, or what the group doesn't hold as it stands;
  // by number, those that it has refused already last unless `porNumero`.
  Resultado<> empezar(bool todo, Rango rango, bool porNumero = false);

  struct Saliente {
    qint64 codigo = 0;
    QByteArray registro;  // empty for one that is held back
    bool retenido() const { return registro.isEmpty(); }
  };
  // The article that goes now, as it stands now; null when none is left. Articles that don't fit
  // are passed over, or shown when `conRetenidos`. What is given holds until the next call.
  Resultado<const Saliente*> actual(bool conRetenidos = false);
  // What became of it. Each REQUIRES one.
  void enviado();
  void pasado();  // it needn't go
  // The group refused it: it goes to the end. False when the refusals aren't about the article, or
  // it is the end already.
  bool rechazado(int error, const QString& motivo);
  // The group hasn't taken it though its answer was good: it stays due, and goes no more now.
  void sinTomar(int error, const QString& motivo);
  // Refusals running have stopped the list while deletions are due, which may make room: these go
  // now, and the list goes on after them. Once in a sending.
  bool faltaSitio() const { return faltaSitio_; }
  // After the list and the deletions: the refused ones, once more. False when there are none.
  bool empezarFinal();

  // The deletions that are due now.
  Resultado<> empezarBorrados();
  std::optional<qint64> porBorrar() const;
  void borrado();
  void borradoNegado();  // it goes after the others
  // The group deleted another one.
  void borrado(qint64 codigo);
  // It wouldn't: it is told once more by empezarNegados. False when its refusals aren't about the
  // article.
  bool borradoNegado(qint64 codigo, int error, const QString& motivo);
  // It says that it did, and has it.
  void sigueTeniendo(qint64 codigo, const QString& motivo);
  // The deletions that it wouldn't do are due again, once. False when there are none.
  bool empezarNegados();
  // It told that it has none of these numbers.
  void hueco(qint64 desde, qint64 hasta);
  // It told what it holds under a number. REQUIRES a record that can be read.
  void leido(qint64 codigo, const QByteArray& registro);

  // What hasn't had its turn: articles of the list, and deletions that are known to be due.
  struct Restan {
    qint64 articulos = 0, borrados = 0;
  };
  Resultado<Restan> restan() const;

  // What the group was confirmed to have or not to have goes to disk. When it fails it is kept.
  Resultado<> asentar();

  const Resumen& resumen() const { return resumen_; }
  qint64 hechos() const { return hechos_; }
  qint64 codigoActual() const { return codigo_; }

 private:
  struct Enviable {
    Saliente saliente;
    Preparado preparado;
    Huella huella;  // of a whole record
    bool eraSuyo = false, textoNuevo = false;
  };
  struct Nota {
    enum Que { Enviado, Hueco, Borrado, Rechazado, Leido, Sobra } que;
    qint64 codigo = 0, hasta = 0;
    Preparado preparado{};
    bool eraSuyo = false;
    int error = 0;
    QString motivo{};
    QByteArray registro{};
    Huella huella{};
  };
  bool hayQueHacerSitio();
  Resultado<std::vector<qint64>> borrables() const;
  Resultado<> cargar();
  Resultado<bool> refrescar();
  maquinas::Cabe<QByteArray> registroDe(const Preparado& p) const;
  Resultado<Enviable> preparar(Preparado p);
  void quitarPrimero();
  void anotar(Nota nota);
  void olvidarNotas();
  Resultado<> escribir(std::span<const Nota> notas, bool alDia);
  Resultado<> escribirNota(const Nota& nota, const Preparado* ahora);
  Resultado<> escribirLeido(const Nota& nota, const Preparado* ahora);
  Resultado<std::map<qint64, Preparado>> comoEstan(std::span<const Nota> notas, bool alDia);

  dao::Database& db_;
  Reloj& reloj_;
  const Textos& textos_;
  const Destino destino_;
  const Que que_;
  Lector lector_;
  Tenencias tenencias_;
  std::unique_ptr<Temporizador> turno_;

  std::optional<Rango> otraVez_;  // of it, what was deleted before is deleted once more
  std::vector<qint64> lista_;
  size_t leidos_ = 0;  // of lista_
  std::vector<Enviable> lote_;
  size_t pos_ = 0;      // in lote_
  qint64 cambios_ = 0;  // of the database, when the lot was read
  bool final_ = false;
  bool faltaSitio_ = false, sitioHecho_ = false;
  int negadasSeguidas_ = 0, borradosNegadosSeguidos_ = 0;
  std::vector<qint64> negados_, borrados_, sinBorrar_;
  size_t posBorrados_ = 0;
  std::vector<Nota> notas_;
  Resumen resumen_;
  qint64 hechos_ = 0, codigo_ = 0;
};

}  // namespace tarvo::envios
