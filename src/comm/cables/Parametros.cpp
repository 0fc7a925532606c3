#include "comm/cables/Parametros.h"

#include "comm/cables/AjustesCables.h"

namespace tarvo::enlace {

namespace {

QString conBaudios(const QString& rs232, int baudios) {
  if (baudios <= 0) return rs232;
  const qsizetype coma = rs232.indexOf(u',');
  return QString::number(baudios) + (coma < 0 ? QString() : rs232.mid(coma));
}

// "host:port,n"; a part that is missing or no number leaves its value unchanged.
void ponerAccesoTcp(ParametrosLinea& p, const QString& acceso) {
  const qsizetype dosPuntos = acceso.indexOf(u':');
  p.host = (dosPuntos < 0 ? acceso : acceso.left(dosPuntos)).trimmed();
  if (dosPuntos < 0) return;
  const QString numeros = acceso.mid(dosPuntos + 1);
  p.puertoTcp = numeros.section(u',', 0, 0).trimmed().toInt();
  bool esNumero = false;
  const int segundo = numeros.section(u',', 1, 1).trimmed().toInt(&esNumero);
  if (esNumero) p.puerto = segundo;
}

}  // namespace

bool seAbrePorTcp(const QString& acceso) {
  constexpr int kPuertoMax = 0xFFFF;
  ParametrosLinea p;
  ponerAccesoTcp(p, acceso);
  return !p.host.isEmpty() && p.puertoTcp > 0 && p.puertoTcp <= kPuertoMax;
}

QString guionModem(const ParamCanal& canal) {
  QString guion;
  if (!canal.IniMdm0.isEmpty())
    guion = canal.IniMdm0 + QStringLiteral("||") + canal.IniMdm0 + QStringLiteral("|0[Cr]");
  if (canal.IniMdmX.isEmpty()) return guion;
  if (!guion.isEmpty()) guion += u'|';
  return guion + canal.IniMdmX.join(QStringLiteral("||")) + u'|';
}

int esperaEnMs(int espera) {
  constexpr int kSegundosMax = 600;
  return espera <= 0 ? 0 : espera <= kSegundosMax ? espera * 1000 : espera;
}

ParametrosLinea parametrosDe(const ParamCanal& canal, int baudios, const QString& acceso) {
  ParametrosLinea p;
  p.device = canal.Device;
  p.puerto = canal.Puerto;
  p.controlLinea = canal.ControlLinea;
  p.rs232 = conBaudios(canal.RS232, baudios);
  if (canal.Device == TipoAcceso::TcpIp) ponerAccesoTcp(p, acceso);
  if (canal.Device == TipoAcceso::Modem) p.telefono = acceso;
  p.guion = guionModem(canal);
  p.prefijo = canal.PfxDial;
  p.intentos = canal.Intentos;
  p.espera = canal.Espera;
  p.esperaColgar = canal.ATHang;
  return p;
}

}  // namespace tarvo::enlace
