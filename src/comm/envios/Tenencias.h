// What a group holds of the catalogue, as far as it has confirmed it: Cross for what is due to the
// scales, Enviados for what can be proved of any group, Retenidos for what it didn't get. Every
// write REQUIRES a transaction of the caller.
#pragma once

#include <array>
#include <memory>

#include "comm/envios/Lector.h"
#include "core/dao/Database.h"
#include "core/tiempo/Reloj.h"

namespace tarvo::envios {

// How the group has changed since its last sending, so that nothing of before counts as held.
struct Mudanza {
  bool conocido = false;  // it had one
  bool borrando = false;  // a wipe has no answer
  bool seccion = false, tarifa = false, maquina = false;
  bool anotada = false;  // tarifa and machine stand there
  QString suMaquina;     // which it is now
  bool hay() const { return !conocido || seccion || tarifa || maquina; }
};
Resultado<Mudanza> mudanzaDe(dao::Database& db, const Destino& destino);

class Tenencias {
 public:
  // REQUIRES that database and clock outlive it.
  Tenencias(dao::Database& db, Reloj& reloj, const Destino& destino);

  // Before anything is sent: what is known of a group that moved to another section, tarifa or
  // machine, of a wipe that never got its answer, of articles that are gone.
  Resultado<> empezar();

  // Before a record goes: as long as the group hasn't confirmed it, nobody knows what it holds.
  // True when Cross said that it held the article, and says so no more. Where what it holds is
  // proved to be this record, nothing changes.
  Resultado<bool> anunciar(qint64 codigo, const Huella& huella);
  Resultado<bool> anunciarPrecios(qint64 codigo, const QByteArray& precios);

  // Is it proved to hold the article with the texts of that record?
  Resultado<bool> textoProbado(qint64 codigo, const Huella& huella);

  // AnotarEnviado: the group has confirmed a record. `ahora` is the article as it stands now, null
  // when it is gone; the group holds it as it stands if that is what it got.
  // `huella`: of `registro`.
  Resultado<> AnotarEnviado(qint64 codigo, const QByteArray& registro, const Huella& huella,
                            const Preparado* ahora);
  // The same for a record of prices, sent while the article stood as `entonces`. `eraSuyo`:
  // anunciarPrecios answered true for it.
  Resultado<> AnotarPrecios(const Preparado& entonces, const Preparado* ahora, bool eraSuyo);
  // It has deleted the article, was told to (one that can't be compared may have it again some
  // day), or hasn't any of these numbers.
  Resultado<> AnotarBorrado(qint64 codigo);
  Resultado<> AnotarOrdenBorrado(qint64 codigo);
  Resultado<> AnotarHueco(qint64 desde, qint64 hasta);
  // It holds an article otherwise than it should, or one that is gone: `registro` as it gave it.
  Resultado<> AnotarDistinto(qint64 codigo, const QByteArray& registro, bool existe);
  // It holds one that it should have deleted.
  Resultado<> AnotarSobrante(qint64 codigo) { return ponerCross(codigo, true); }
  // It got no record of it: `error` is its refusal, 0 for a record that can't be made, which it
  // therefore doesn't hold.
  Resultado<> AnotarRetenido(qint64 codigo, const QString& motivo, int error);
  // Another article goes in its place: nobody knows what it holds of this one.
  Resultado<> anunciarOtro(qint64 codigo);

  // A wipe: ordered, refused before it began, done.
  Resultado<> anunciarBorrado();
  Resultado<> borradoRechazado();
  Resultado<> borradoHecho();

  // The record of an article that was asked for by itself; none when the group hasn't it.
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
  std::vector<int> otrasSecciones_;  // of which something stands in Enviados for this group
};

}  // namespace tarvo::envios
