#include "comm/envios/Tenencias.h"

#include "core/dao/Recorrido.h"

namespace tarvo::envios {

namespace {

// The identity of a machine: its kind, access and addresses.
Resultado<QString> maquinaDe(dao::Database& db, int grupo) {
  TARVO_TOMAR(const auto g, db.uno(u"SELECT nz(TIPO,0) & ' ' & nz(remoto,0) & ' ' & iif(remoto=2, "
                                   u"nz(canal,0), nz(telef,'')) & "
                                   u"' ' & nz(ADDR,0) FROM GRUPOS WHERE CODGPO=?",
                                   grupo));
  QString maquina = g.texto().simplified().toCaseFolded();
  TARVO_INTENTAR(
      dao::recorrer(db.consultar(u"SELECT ADDR FROM BZAS WHERE SUGPO=? ORDER BY ADDR", grupo),
                    [&](const dao::Recordset& rs) { maquina += u'/' + rs.texto(0); }));
  return maquina;
}

}  // namespace

Tenencias::Tenencias(dao::Database& db, Reloj& reloj, const Destino& destino)
    : db_(db), reloj_(reloj), d_(destino) {}

Resultado<> Tenencias::empezar() {
  TARVO_INTENTAR(mudarse());
  TARVO_INTENTAR(dao::recorrer(
      db_.consultar(u"SELECT DISTINCT SECCION FROM Enviados WHERE GRUPO=? AND SECCION<>?", d_.grupo,
                    d_.seccion),
      [this](const dao::Recordset& rs) {
        otrasSecciones_.push_back(static_cast<int>(rs.entero(0)));
      }));
  TARVO_INTENTAR(
      db_.ejecutar(u"DELETE FROM Retenidos WHERE GRUPO=? AND (SECCION<>? OR NOT EXISTS (SELECT 1 "
                   u"FROM PLUSES WHERE PLUSES.SECCION=Retenidos.SECCION AND "
                   u"PLUSES.CODPLU=Retenidos.CODPLU))",
                   d_.grupo, d_.seccion));
  TARVO_TOMAR(const auto retenidos,
              db_.uno(u"SELECT count(*) FROM Retenidos WHERE GRUPO=?", d_.grupo));
  hayRetenidos_ = retenidos.entero() > 0;
  TARVO_TOMAR(const auto ordenados,
              db_.uno(u"SELECT count(*) FROM BorradosGrupo WHERE GRUPO=?", d_.grupo));
  hayOrdenados_ = ordenados.entero() > 0;
  return {};
}

Resultado<Mudanza> mudanzaDe(dao::Database& db, const Destino& d) {
  Mudanza m;
  TARVO_TOMAR(auto maquina, maquinaDe(db, d.grupo));
  m.suMaquina = std::move(maquina);
  TARVO_TOMAR(
      const auto antes,
      db.consultar(u"SELECT SECCION, BORRANDO, TARIFA, MAQUINA FROM EnviosGrupo WHERE GRUPO=?",
                   d.grupo));
  if (antes->Eof()) return m;
  m.conocido = true;
  m.seccion = antes->entero(0) != d.seccion;
  m.borrando = antes->logico(1);
  m.anotada = !antes->nulo(2) && !antes->nulo(3);
  m.tarifa = !antes->nulo(2) && antes->entero(2) != d.tarifa;
  m.maquina = !antes->nulo(3) && antes->texto(3) != m.suMaquina;
  return m;
}

// A group that moved to another section holds articles of the former one under the same numbers,
// another tarifa has other prices, and the contents of another machine are unknown: nothing earlier
// counts as held any more, but it is remembered that it may be there.
Resultado<> Tenencias::mudarse() {
  TARVO_TOMAR(const auto m, mudanzaDe(db_, d_));
  if (!m.hay() && !m.borrando && m.anotada) return {};
  if (m.borrando || m.maquina)
    TARVO_INTENTAR(
        db_.ejecutar(u"UPDATE Enviados SET HUELLA=NULL, HUELLA_PRE=NULL WHERE GRUPO=?", d_.grupo));
  if (m.hay()) TARVO_INTENTAR(soltar(m.tarifa || m.maquina));
  TARVO_INTENTAR(db_.ejecutar(
      u"INSERT INTO EnviosGrupo (GRUPO, SECCION, BORRANDO, TARIFA, MAQUINA) VALUES (?, ?, 0, ?, ?) "
      u"ON CONFLICT (GRUPO) DO UPDATE SET SECCION=excluded.SECCION, BORRANDO=0, "
      u"TARIFA=excluded.TARIFA, MAQUINA=excluded.MAQUINA",
      d_.grupo, d_.seccion, d_.tarifa, m.suMaquina));
  return {};
}

// In Cross nothing of the other sections counts as held any more, nor, if `todo`, of this one.
Resultado<> Tenencias::soltar(bool todo) {
  // This scans the whole table, so only if there is something to find.
  TARVO_TOMAR(const auto hay, db_.uno(u"SELECT EXISTS (SELECT 1 FROM [Cross] WHERE Secc<?) OR "
                                      u"EXISTS (SELECT 1 FROM [Cross] WHERE "
                                      u"Secc>?)",
                                      d_.seccion, d_.seccion));
  if (!hay.logico() && !todo) return {};
  TARVO_INTENTAR(db_.ejecutar(
      u"INSERT INTO Enviados (GRUPO, SECCION, CODPLU, CUANDO) SELECT Grupo, Secc, plu, "
      u"? FROM [Cross] WHERE Grupo=? AND (? OR Secc<>?) AND borra=0 ON CONFLICT (GRUPO, "
      u"SECCION, CODPLU) DO NOTHING",
      laHora(), d_.grupo, todo, d_.seccion));
  TARVO_INTENTAR(db_.ejecutar(u"DELETE FROM [Cross] WHERE Grupo=? AND (? OR Secc<>?) AND borra=0",
                              d_.grupo, todo, d_.seccion));
  return {};
}

// Runs a per-article statement, prepared once.
template <class... P>
Resultado<qint64> Tenencias::correr(Guardada cual, QStringView sql, const P&... parametros) {
  auto& s = guardadas_[static_cast<size_t>(cual)];
  if (!s) {
    TARVO_TOMAR(auto nueva, db_.preparar(sql));
    s = std::move(nueva);
  }
  int n = 0;
  const auto ligar = [&](auto valor) {
    if constexpr (std::is_floating_point_v<decltype(valor)>)
      s->ligar(n++, double{valor});
    else
      s->ligar(n++, qint64{valor});
  };
  (ligar(parametros), ...);
  return s->ejecutar();
}

Resultado<bool> Tenencias::anunciar(qint64 codigo, const Huella& h) {
  TARVO_INTENTAR(correr(
      kDudar,
      u"UPDATE Enviados SET HUELLA=NULL, HUELLA_PRE=NULL WHERE GRUPO=? AND SECCION=? AND CODPLU=? "
      u"AND (HUELLA<>? OR HUELLA_PRE<>?)",
      d_.grupo, d_.seccion, codigo, h.resto, h.precios));
  if (!d_.conCross()) return false;
  TARVO_TOMAR(
      const auto quitadas,
      correr(kSoltar,
             u"DELETE FROM [Cross] WHERE Secc=? AND plu=? AND Grupo=? AND borra=0 AND NOT EXISTS "
             u"(SELECT "
             u"1 "
             u"FROM Enviados WHERE Enviados.GRUPO=? AND SECCION=? AND CODPLU=? AND HUELLA=? AND "
             u"HUELLA_PRE=?)",
             d_.seccion, codigo, d_.grupo, d_.grupo, d_.seccion, codigo, h.resto, h.precios));
  return quitadas > 0;
}

Resultado<bool> Tenencias::anunciarPrecios(qint64 codigo, const QByteArray& precios) {
  const qint64 h = huellaDePrecios(precios);
  TARVO_INTENTAR(db_.ejecutar(
      u"UPDATE Enviados SET HUELLA_PRE=NULL WHERE GRUPO=? AND SECCION=? AND CODPLU=? AND "
      u"HUELLA_PRE<>?",
      d_.grupo, d_.seccion, codigo, h));
  TARVO_TOMAR(
      const auto quitadas,
      db_.ejecutar(
          u"DELETE FROM [Cross] WHERE Secc=? AND plu=? AND Grupo=? AND borra=0 AND NOT EXISTS "
          u"(SELECT "
          u"1 "
          u"FROM Enviados WHERE Enviados.GRUPO=? AND SECCION=? AND CODPLU=? AND HUELLA_PRE=?)",
          d_.seccion, codigo, d_.grupo, d_.grupo, d_.seccion, codigo, h));
  return quitadas > 0;
}

Resultado<bool> Tenencias::textoProbado(qint64 codigo, const Huella& h) {
  TARVO_TOMAR(const auto resto,
              db_.uno(u"SELECT HUELLA FROM Enviados WHERE GRUPO=? AND SECCION=? AND CODPLU=?",
                      d_.grupo, d_.seccion, codigo));
  return !resto.nulo() && resto.entero() == h.resto;
}

Resultado<> Tenencias::AnotarEnviado(qint64 codigo, const QByteArray& registro,
                                     const Huella& huella, const Preparado* ahora) {
  TARVO_INTENTAR(ponerEnviado(codigo, huella));
  TARVO_INTENTAR(quitarRetenido(codigo));
  const bool igual = ahora && ahora->registro && *ahora->registro == registro;
  if (igual) TARVO_INTENTAR(asentarOferta(*ahora));
  if (!d_.conCross()) return {};
  return ahora && !igual ? quitarCross(codigo) : ponerCross(codigo, !ahora);
}

// Whether the rest of the article is held only Enviados can tell, or Cross, if it did until just
// now and only the prices were sent.
Resultado<> Tenencias::AnotarPrecios(const Preparado& entonces, const Preparado* ahora,
                                     bool eraSuyo) {
  const qint64 codigo = entonces.codigo;
  TARVO_INTENTAR(db_.ejecutar(
      u"INSERT INTO Enviados (GRUPO, SECCION, CODPLU, HUELLA_PRE, CUANDO) VALUES (?, ?, ?, ?, ?) "
      u"ON "
      u"CONFLICT (GRUPO, SECCION, CODPLU) DO UPDATE SET HUELLA_PRE=excluded.HUELLA_PRE, "
      u"CUANDO=excluded.CUANDO",
      d_.grupo, d_.seccion, codigo, huellaDePrecios(*soloPreciosDe(entonces)), laHora()));
  if (!ahora) return ponerCross(codigo, true);
  if (ahora->precios == entonces.precios) TARVO_INTENTAR(asentarOferta(*ahora));
  if (!ahora->registro || ahora->registro != entonces.registro) return quitarCross(codigo);
  TARVO_TOMAR(const auto probado, textoProbado(codigo, huellaDe(d_.tipo, *ahora->registro)));
  if (!probado && !eraSuyo) return {};
  TARVO_INTENTAR(quitarRetenido(codigo));
  return ponerCross(codigo, false);
}

Resultado<> Tenencias::AnotarBorrado(qint64 codigo) {
  TARVO_INTENTAR(
      db_.ejecutar(u"DELETE FROM [Cross] WHERE Grupo=? AND plu=? AND borra<>0", d_.grupo, codigo));
  return AnotarHueco(codigo, codigo);
}

Resultado<> Tenencias::AnotarOrdenBorrado(qint64 codigo) {
  TARVO_INTENTAR(AnotarBorrado(codigo));
  if (d_.tipo != TipoGrupo::Balanzas) return {};
  hayOrdenados_ = true;
  TARVO_INTENTAR(db_.ejecutar(
      u"INSERT INTO BorradosGrupo (GRUPO, CODPLU, CUANDO) VALUES (?, ?, ?) ON CONFLICT (GRUPO, "
      u"CODPLU) DO UPDATE SET CUANDO=excluded.CUANDO",
      d_.grupo, codigo, laHora()));
  return {};
}

Resultado<> Tenencias::AnotarHueco(qint64 desde, qint64 hasta) {
  if (desde > hasta) return {};
  TARVO_INTENTAR(db_.ejecutar(u"DELETE FROM [Cross] WHERE Secc=? AND plu>=? AND plu<=? AND Grupo=?",
                              d_.seccion, desde, hasta, d_.grupo));
  TARVO_INTENTAR(
      db_.ejecutar(u"DELETE FROM Enviados WHERE GRUPO=? AND SECCION=? AND CODPLU>=? AND CODPLU<=?",
                   d_.grupo, d_.seccion, desde, hasta));
  return olvidarOtrasSecciones(desde, hasta);
}

Resultado<> Tenencias::AnotarDistinto(qint64 codigo, const QByteArray& registro, bool existe) {
  TARVO_INTENTAR(ponerEnviado(codigo, huellaDe(d_.tipo, registro)));
  return existe ? quitarCross(codigo) : ponerCross(codigo, true);
}

Resultado<> Tenencias::AnotarRetenido(qint64 codigo, const QString& motivo, int error) {
  const Fecha cuando = laHora();
  hayRetenidos_ = true;
  TARVO_INTENTAR(db_.ejecutar(
      u"INSERT INTO Retenidos (GRUPO, SECCION, CODPLU, MOTIVO, ERROR, DESDE, CUANDO) VALUES (?, ?, "
      u"?, ?, ?, ?, ?) ON CONFLICT (GRUPO, SECCION, CODPLU) DO UPDATE SET MOTIVO=excluded.MOTIVO, "
      u"ERROR=excluded.ERROR, CUANDO=excluded.CUANDO",
      d_.grupo, d_.seccion, codigo, motivo, error, cuando, cuando));
  if (error != 0 || !d_.conCross()) return {};
  TARVO_INTENTAR(db_.ejecutar(u"DELETE FROM [Cross] WHERE Secc=? AND plu=? AND Grupo=? AND borra=0",
                              d_.seccion, codigo, d_.grupo));
  return {};
}

Resultado<> Tenencias::anunciarOtro(qint64 codigo) {
  TARVO_INTENTAR(db_.ejecutar(
      u"UPDATE Enviados SET HUELLA=NULL, HUELLA_PRE=NULL WHERE GRUPO=? AND SECCION=? AND CODPLU=?",
      d_.grupo, d_.seccion, codigo));
  return {};
}

Resultado<> Tenencias::anunciarBorrado() {
  TARVO_INTENTAR(db_.ejecutar(u"UPDATE EnviosGrupo SET BORRANDO=1 WHERE GRUPO=?", d_.grupo));
  return {};
}

Resultado<> Tenencias::borradoRechazado() {
  TARVO_INTENTAR(db_.ejecutar(u"UPDATE EnviosGrupo SET BORRANDO=0 WHERE GRUPO=?", d_.grupo));
  return {};
}

Resultado<> Tenencias::borradoHecho() {
  TARVO_INTENTAR(db_.ejecutar(u"DELETE FROM Enviados WHERE GRUPO=?", d_.grupo));
  TARVO_INTENTAR(db_.ejecutar(u"DELETE FROM BorradosGrupo WHERE GRUPO=?", d_.grupo));
  return borradoRechazado();
}

Resultado<> Tenencias::guardarFicha(qint64 codigo, const std::optional<QByteArray>& registro) {
  TARVO_INTENTAR(db_.ejecutar(
      u"INSERT INTO FichasPedidas (GRUPO, CODPLU, FICHA, CUANDO) VALUES (?, ?, ?, ?) ON CONFLICT "
      u"(GRUPO, CODPLU) DO UPDATE SET FICHA=excluded.FICHA, CUANDO=excluded.CUANDO",
      d_.grupo, codigo,
      registro ? dao::Valor(QString::fromLatin1(registro->toHex())) : dao::Valor(), laHora()));
  return {};
}

Resultado<> Tenencias::ponerCross(qint64 codigo, bool borra) {
  TARVO_INTENTAR(correr(kCruzar,
                        u"INSERT INTO [Cross] (Secc, plu, Grupo, borra) VALUES (?, ?, ?, ?) ON "
                        u"CONFLICT (Secc, plu, Grupo) DO UPDATE SET borra=excluded.borra",
                        d_.seccion, codigo, d_.grupo, borra ? 1 : 0));
  return {};
}

Resultado<> Tenencias::quitarCross(qint64 codigo) {
  TARVO_INTENTAR(db_.ejecutar(u"DELETE FROM [Cross] WHERE Secc=? AND plu=? AND Grupo=?", d_.seccion,
                              codigo, d_.grupo));
  return {};
}

Resultado<> Tenencias::ponerEnviado(qint64 codigo, const Huella& h) {
  TARVO_INTENTAR(correr(
      kProbar,
      u"INSERT INTO Enviados (GRUPO, SECCION, CODPLU, HUELLA, HUELLA_PRE, CUANDO) VALUES (?, ?, ?, "
      u"?, ?, ?) ON CONFLICT (GRUPO, SECCION, CODPLU) DO UPDATE SET HUELLA=excluded.HUELLA, "
      u"HUELLA_PRE=excluded.HUELLA_PRE, CUANDO=excluded.CUANDO",
      d_.grupo, d_.seccion, codigo, h.resto, h.precios, laHora().dias()));
  if (hayOrdenados_)
    TARVO_INTENTAR(correr(kOrdenado, u"DELETE FROM BorradosGrupo WHERE GRUPO=? AND CODPLU=?",
                          d_.grupo, codigo));
  return olvidarOtrasSecciones(codigo, codigo);
}

// A machine has one article under a number, from whatever section.
Resultado<> Tenencias::olvidarOtrasSecciones(qint64 desde, qint64 hasta) {
  for (const int seccion : otrasSecciones_)
    TARVO_INTENTAR(db_.ejecutar(
        u"DELETE FROM Enviados WHERE GRUPO=? AND SECCION=? AND CODPLU>=? AND CODPLU<=?", d_.grupo,
        seccion, desde, hasta));
  return {};
}

// The flags of the offer record whether the group holds its prices.
Resultado<> Tenencias::asentarOferta(const Preparado& p) {
  if (!p.oferta.hay) return {};
  if (p.oferta.borrado) {
    TARVO_INTENTAR(db_.ejecutar(u"DELETE FROM OFERTAS WHERE GRUPO=? AND SECCION=? AND CODIGO=?",
                                d_.grupo, d_.seccion, p.codigo));
  } else if (p.oferta.enviado != p.oferta.rige) {
    TARVO_INTENTAR(
        db_.ejecutar(u"UPDATE OFERTAS SET enviado=? WHERE GRUPO=? AND SECCION=? AND CODIGO=?",
                     p.oferta.rige, d_.grupo, d_.seccion, p.codigo));
  }
  return {};
}

// To the second, the resolution of the clock.
Fecha Tenencias::laHora() {
  constexpr qint64 kSegundo = 1000;
  if (const qint64 ms = reloj_.monotono(); vistaLaHora_ < 0 || ms - vistaLaHora_ >= kSegundo) {
    ahora_ = reloj_.ahora();
    vistaLaHora_ = ms;
  }
  return ahora_;
}

Resultado<> Tenencias::quitarRetenido(qint64 codigo) {
  if (!hayRetenidos_) return {};
  TARVO_INTENTAR(correr(kCumplir, u"DELETE FROM Retenidos WHERE GRUPO=? AND SECCION=? AND CODPLU=?",
                        d_.grupo, d_.seccion, codigo));
  return {};
}

}  // namespace tarvo::envios
