// What a group holds of the catalogue, as far as confirmed: Cross for what is due to the scales,
// Enviados for what is proved of any group, Retenidos for what it hasn't received. Every write
// REQUIRES a transaction of the caller.
#pragma once

#include <array>
#include <memory>

#include "comm/envios/Lector.h"
#include "core/dao/Database.h"
#include "core/tiempo/Reloj.h"

namespace tarvo::envios {

// How the group has changed since its last sending, so that nothing earlier counts as held.
struct Mudanza {
  bool conocido = false;  // there was one
  bool borrando = false;  // a wipe has no answer
  bool seccion = false, tarifa = false, maquina = false;
  bool anotada = false;  // tarifa and machine are recorded
  QString suMaquina;     // its present machine
  bool hay() const { return !conocido || seccion || tarifa || maquina; }
};
Resultado<Mudanza> mudanzaDe(dao::Database& db, const Destino& destino);

class Tenencias {
 public:
  // REQUIRES that database and clock outlive it.
  Tenencias(dao::Database& db, Reloj& reloj, const Destino& destino);

  // Called before anything is sent: settles what is known after a change of section, tarifa or
  // machine, an unanswered wipe, or the loss of articles.
  Resultado<> empezar();

  // Called before a record is sent: until the group confirms it, what it holds is unknown. True if
  // the article was held according to Cross, and now no longer is. Nothing changes if the group is
  // proved to hold this record.
  Resultado<bool> anunciar(qint64 codigo, const Huella& huella);
  Resultado<bool> anunciarPrecios(qint64 codigo, const QByteArray& precios);

  // Is it proved to hold the article with the texts of that record?
  Resultado<bool> textoProbado(qint64 codigo, const Huella& huella);

  // AnotarEnviado: the group has confirmed a record. `ahora` is the present article, null if it is
  // gone; the group holds its present form if that is what it received. `huella`: of `registro`.
  Resultado<> AnotarEnviado(qint64 codigo, const QByteArray& registro, const Huella& huella,
                            const Preparado* ahora);
  // The same for a record of prices, sent when the article was `entonces`. `eraSuyo`:
  // anunciarPrecios returned true for it.
  Resultado<> AnotarPrecios(const Preparado& entonces, const Preparado* ahora, bool eraSuyo);
  // The group has deleted the article, was told to (one without comparison may have it again some
  // day), or has none of these numbers.
  Resultado<> AnotarBorrado(qint64 codigo);
  Resultado<> AnotarOrdenBorrado(qint64 codigo);
  Resultado<> AnotarHueco(qint64 desde, qint64 hasta);
  // The group holds a wrong form of an article, or one that is gone: `registro` as it returned it.
  Resultado<> AnotarDistinto(qint64 codigo, const QByteArray& registro, bool existe);
  // The group holds an article that it should have deleted.
  Resultado<> AnotarSobrante(qint64 codigo) { return ponerCross(codigo, true); }
  // The group received no record of the article: `error` is its refusal, 0 if there is no valid
  // record, which it therefore doesn't hold.
  Resultado<> AnotarRetenido(qint64 codigo, const QString& motivo, int error);
  // Another article is sent in its place: what the group holds of this one is unknown.
  Resultado<> anunciarOtro(qint64 codigo);

  // A wipe: ordered, refused before it began, done.
  Resultado<> anunciarBorrado();
  Resultado<> borradoRechazado();
  Resultado<> borradoHecho();

  // The record of an article that was asked for by itself; none if the group doesn't have it.
  Resultado<> guardarFicha(qint64 codigo, const std::optional<QByteArray>& registro);

 private:
  Resultado<> mudarse();
  Resultado<> soltar(bool todo);
  Resultado<> ponerCross(qint64 codigo, bool borra);
  Resultado<> quitarCross(qint64 codigo);
  Resultado<> ponerEnviado(qint64 codigo, const Huella& huella);
  Resultado<> olvidarOtrasSecciones(qint64 desde, qint64 hasta);
  Resultado<> asentarOferta(const Preparado& p);
  Resultado<> quitarRetenido(qint64 codigo);
  Fecha laHora();

  // Statements that run for each article.
  enum Guardada { kDudar, kSoltar, kCruzar, kProbar, kCumplir, kOrdenado, kGuardadas };
  template <class... P>
  Resultado<qint64> correr(Guardada cual, QStringView sql, const P&... parametros);

  dao::Database& db_;
  Reloj& reloj_;
  const Destino d_;
  std::array<std::unique_ptr<dao::Sentencia>, kGuardadas> guardadas_;
  bool hayRetenidos_ = true, hayOrdenados_ = true;  // as far as is known
  Fecha ahora_;
  qint64 vistaLaHora_ = -1;          // ms of the monotonic clock
  std::vector<int> otrasSecciones_;  // with rows in Enviados for this group
};

}  // namespace tarvo::envios
