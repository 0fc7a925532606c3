// The articles of one sending, in their order, and the outcome of each. It knows nothing of frames
// or links: the sending task asks for the present article and reports its outcome.
//
// Confirmations go to disk in batches, a second later at most; before an article is sent whose
// record the group isn't proved to hold, that is recorded. So after any interruption an article
// counts as held only if it is, and is otherwise sent again.
#pragma once

#include <map>

#include "comm/envios/Decision.h"
#include "comm/envios/Tenencias.h"
#include "core/textos/Textos.h"

namespace tarvo::envios {

struct Resumen {
  int enviados = 0, borrados = 0;
  int iguales = 0, distintos = 0, sobrantes = 0;  // of the group's reports, once on disk
  std::map<qint64, QString> retenidos;            // by code, with the reason
  std::map<qint64, QString> rechazados;           // those not accepted since
  // Texts that are new to the group, with their replaced characters.
  std::map<qint64, QString> conOtrasLetras;
};

class Remesa {
 public:
  enum class Que { Articulos, Precios };
  // REQUIRES that the references outlive it.
  Remesa(dao::Database& db, Reloj& reloj, const Textos& textos, const Destino& destino,
         Que que = Que::Articulos);
  ~Remesa();

  // Updates the knowledge about the group after changes to the group itself. Called once.
  Resultado<> abrir();
  // The same, and decides what to send: all of the range, or the articles that the group doesn't
  // hold in their present form; by number, with those already refused last unless `porNumero`.
  Resultado<> empezar(bool todo, Rango rango, bool porNumero = false);

  struct Saliente {
    qint64 codigo = 0;
    QByteArray registro;  // empty if it is held back
    bool retenido() const { return registro.isEmpty(); }
  };
  // The article to send now, in its present form; null if none is left. Articles that don't fit are
  // skipped, or included if `conRetenidos`. The result is valid until the next call.
  Resultado<const Saliente*> actual(bool conRetenidos = false);
  // Its outcome. Each REQUIRES a present article.
  void enviado();
  void pasado();  // it needn't be sent
  // The group refused it: it moves to the end. False if the refusals aren't about the article, or
  // this is the end already.
  bool rechazado(int error, const QString& motivo);
  // The group hasn't taken it despite a good answer: it stays due, but isn't sent again now.
  void sinTomar(int error, const QString& motivo);
  // Consecutive refusals have stopped the list while deletions, which may make room, are due: these
  // go now, and the list continues after them. Once in a sending.
  bool faltaSitio() const { return faltaSitio_; }
  // After the list and the deletions: the refused ones, once more. False if there are none.
  bool empezarFinal();

  // The deletions that are due now.
  Resultado<> empezarBorrados();
  std::optional<qint64> porBorrar() const;
  void borrado();
  void borradoNegado();  // it moves after the others
  // The group deleted an article other than the present one.
  void borrado(qint64 codigo);
  // The group refused to: empezarNegados repeats it. False if the refusals aren't about the
  // article.
  bool borradoNegado(qint64 codigo, int error, const QString& motivo);
  // The group reported it deleted, but still has it.
  void sigueTeniendo(qint64 codigo, const QString& motivo);
  // The refused deletions are due again, once. False if there are none.
  bool empezarNegados();
  // The group reported that it has none of these numbers.
  void hueco(qint64 desde, qint64 hasta);
  // The group reported its record of a number. REQUIRES a readable record.
  void leido(qint64 codigo, const QByteArray& registro);

  // Those still to come: articles of the list, and deletions known to be due.
  struct Restan {
    qint64 articulos = 0, borrados = 0;
  };
  Resultado<Restan> restan() const;

  // Writes to disk what the group is confirmed to have or not to have. If that fails it is kept.
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

  std::optional<Rango> otraVez_;  // where earlier deletions are repeated
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
