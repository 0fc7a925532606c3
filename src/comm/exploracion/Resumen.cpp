#include "comm/exploracion/Resumen.h"

#include <algorithm>

#include "comm/exploracion/TextosExploracion.h"

namespace tarvo::exploracion {

namespace {

int textoDeRazon(const Hallazgo& h) {
  const bool tcp = h.acceso.clase == Acceso::Clase::Tcp;
  switch (h.razon) {
    case enlace::kSinHost:
      return kTxSinHost;
    case enlace::kPuertoTcpCerrado:
      return kTxPuertoTcpCerrado;
    case enlace::kEnUso:
      return kTxEnUso;
    default:
      return tcp ? kTxTcpNoAbre : kTxPuertoNoAbre;
  }
}

QString deGrupos(const Hallazgo& h, const Textos& t) {
  const bool nodal = h.resultado == ResultadoCanal::Nodal;
  QStringList grupos;
  for (const GrupoHallado& g : h.grupos) {
    const QString suyas = balanzas(g, t);
    const int cual = suyas.isEmpty() ? 0 : suyas.contains(u' ') ? 2 : 1;
    grupos << t((nodal ? kTxGrupoNodal : kTxGrupoVek) + cual, {g.estacion, suyas});
  }
  return t(nodal ? kTxHayNodal : kTxHayVek, {grupos.join(QStringLiteral("; "))});
}

// Without the capital letter of a sentence of its own.
QString loQueHay(const Hallazgo& h, const Textos& t) {
  switch (h.resultado) {
    case ResultadoCanal::SinPuerto:
      return t(textoDeRazon(h));
    case ResultadoCanal::SinCts:
      return t(kTxSinCts);
    case ResultadoCanal::Cable:
      return t(kTxNadaConocido + static_cast<int>(h.motivo), {h.sonda});
    case ResultadoCanal::Modem:
      return t(kTxHayModem);
    case ResultadoCanal::Vek:
    case ResultadoCanal::Nodal:
      return deGrupos(h, t);
  }
  return {};
}

}  // namespace

Cuentas contar(std::span<const Hallazgo> hallazgos) {
  Cuentas c;
  for (const Hallazgo& h : hallazgos) {
    const bool hay = h.resultado != ResultadoCanal::SinPuerto;
    const bool tcp = h.acceso.clase == Acceso::Clase::Tcp;
    (tcp ? c.red : c.canales) += hay ? 1 : 0;
    c.contestan += tcp && h.resultado >= ResultadoCanal::Modem ? 1 : 0;
    c.modems += h.resultado == ResultadoCanal::Modem ? 1 : 0;
    c.grupos += static_cast<int>(h.grupos.size());
  }
  return c;
}

namespace {

// An address of the network is no channel of this computer.
QString detectado(const Cuentas& c, const Textos& t) {
  const QString canales = Plural(t(kTxResumenCanales), c.canales);
  if (c.red == 0) return canales;
  const QString red = t(kTxNingunoContesta + std::min(c.contestan, 2),
                        {Plural(t(kTxAccesosDeRed), c.red), c.contestan});
  return c.canales == 0 ? t(kTxHaDetectado, {red}) : t(kTxListaY, {canales, red});
}

}  // namespace

QString resumen(const Cuentas& c, const Textos& t) {
  if (c.canales + c.red == 0) return t(kTxSinCanales);
  QString texto = c.grupos > 0   ? Plural(t(kTxResumenConGrupos), c.grupos)
                  : c.modems > 0 ? t(kTxResumenConModem)
                                 : t(kTxResumenSinNada);
  const bool dice = c.modems > 0 || c.grupos == 0;
  CambiaTexto(QStringLiteral("@C@"), detectado(c, t), texto);
  CambiaTexto(QStringLiteral("@M@"), dice ? t(kTxResumenModem) : QString(), texto);
  return texto;
}

QString consecuencia(const Cuentas& c, const Textos& t) {
  if (c.canales + c.red == 0) return t(kTxNoSePuede);
  if (!c.algo()) return t(kTxNoSePuede) + t(kTxUseAvanzado);
  QString texto = t(kTxSeProcedera);
  if (c.grupos > c.yaEstan) texto += Plural(t(kTxSeCrearan), c.grupos - c.yaEstan);
  if (c.yaEstan > 0) texto += Plural(t(kTxYaEnGrupo), c.yaEstan);
  if (c.modems > 0) texto += t(kTxPorTelefono);
  return texto;
}

QString balanzas(const GrupoHallado& grupo, const Textos& t) {
  QStringList numeros;
  for (size_t i = 0; i < grupo.balanzas.size(); ++i)
    if (grupo.balanzas[i]) numeros << QString::number(i);
  if (numeros.size() < 2) return numeros.join(QString());
  const QString ultimo = numeros.takeLast();
  return t(kTxListaY, {numeros.join(QStringLiteral(", ")), ultimo});
}

QString queHay(const Hallazgo& h, const Textos& t) {
  QString texto = loQueHay(h, t);
  return texto.replace(0, 1, texto.left(1).toUpper());
}

QString nombre(const Acceso& a, const Textos& t) {
  return a.canal > 0 ? t(kTxCanalDe, {a.canal, a.nombre}) : a.nombre;
}

QString frase(const Hallazgo& h, const Textos& t) {
  return t(kTxAccesoDice, {nombre(h.acceso, t), loQueHay(h, t)});
}

}  // namespace tarvo::exploracion
