// Two groups that reach the same machines, as after copying one: what they sold would be read and
// memorised in both.
#include "comm/motor/Interior.h"
#include "comm/motor/TextosMotor.h"

namespace tarvo::motor {

// By what is written: a host with two names isn't recognised. A connector tells by itself whom it
// reaches.
Resultado<QString> gestcomm::MismasMaquinas(int grupo) const {
  TARVO_TOMAR(
      const auto otro,
      d->entorno.db.uno(
          u"SELECT o.CODGPO FROM GRUPOS g JOIN GRUPOS o ON o.CODGPO<g.CODGPO AND o.remoto=g.remoto "
          u"AND o.tipo=g.tipo AND COALESCE(o.ADDR, 0)=COALESCE(g.ADDR, 0) WHERE g.CODGPO=? AND "
          u"((g.remoto=? AND o.canal=g.canal) OR (g.remoto IN (?, ?) AND trim(g.TELEF)<>'' AND "
          u"replace(lower(trim(o.TELEF)), 'localhost', '127.0.0.1')="
          u"replace(lower(trim(g.TELEF)), 'localhost', '127.0.0.1'))) AND "
          u"EXISTS (SELECT 1 FROM BZAS a JOIN BZAS b ON b.SUGPO=o.CODGPO WHERE a.SUGPO=g.CODGPO "
          u"AND CASE WHEN g.tipo=? THEN COALESCE(a.Addr, 0)=COALESCE(b.Addr, 0) "
          u"ELSE a.NMBZA=b.NMBZA END) ORDER BY o.CODGPO LIMIT 1",
          grupo, numeroDe(TipoAcceso::Directo), numeroDe(TipoAcceso::Modem),
          numeroDe(TipoAcceso::TcpIp), numeroDe(TipoGrupo::Registradoras)));
  if (otro.nulo()) return QString();
  return d->entorno.textos(kTxMismasMaquinas, {grupo, otro.entero()});
}

}  // namespace tarvo::motor
