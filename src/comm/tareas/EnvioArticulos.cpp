#include "comm/tareas/EnvioArticulos.h"

#include <utility>

#include "comm/enlace/Errores.h"
#include "comm/motor/gestcomm.h"
#include "comm/tareas/TextosTareas.h"
#include "comm/tareas/Totales.h"

namespace tarvo::tareas {

namespace {

constexpr int kTarifas = 8;
// Articles of each sort in the closing notices: with a sentence of their own, and then together in
// one.
constexpr int kArticulosNombrados = 20, kArticulosPorFrase = 50;

// A sentence for each article; beyond the limit, one for each reason.
void nombrar(std::vector<totals::Aviso>& avisos, const std::map<qint64, QString>& cuales, int texto,
             int textoDeVarios, int grupo, const Textos& textos, bool grave = true) {
  int n = 0;
  std::map<QString, QStringList> demas;
  const auto decirVarios = [&](const QString& motivo, QStringList& codigos) {
    if (codigos.isEmpty()) return;
    const QString lista = codigos.join(QStringLiteral(", "));
    avisos.push_back({grupo,
                      codigos.size() == 1 ? textos(texto, {grupo, lista, motivo})
                                          : textos(textoDeVarios, {grupo, motivo, lista}),
                      grave});
    codigos.clear();
  };
  for (const auto& [codigo, motivo] : cuales) {
    if (n++ < kArticulosNombrados) {
      avisos.push_back({grupo, textos(texto, {grupo, Ceros(codigo, 7), motivo}), grave});
      continue;
    }
    QStringList& codigos = demas[motivo];
    codigos << Ceros(codigo, 7);
    if (codigos.size() == kArticulosPorFrase) decirVarios(motivo, codigos);
  }
  for (auto& [motivo, codigos] : demas) decirVarios(motivo, codigos);
}

}  // namespace

bool esSilencio(int error) {
  using namespace enlace;
  return error == kErrorSinACK || error == kErrorSinRespuesta || error == kErrorNodalSinConfirmar;
}

envios::Destino destinoDe(const motor::DatosTarea& t) {
  return {t.Grupo, t.Seccion, t.Tipo, t.Tarifa};
}

QString motivoDeRechazo(int error, const Textos& textos) {
  if (error == kNoExiste) return textos(kTxNoLoTiene);
  if (esSilencio(error)) return textos(kTxNoContesta);
  QString mensaje = motor::textosError(error, textos).mensaje.trimmed();
  mensaje.remove(u'\'');
  if (mensaje.isEmpty()) mensaje = textos(kTxErrorNumero, {error});
  return textos(kTxRechazado, {mensaje});
}

EnvioArticulos::EnvioArticulos(const motor::DatosTarea& t, const motor::Entorno& e,
                               envios::Remesa::Que que)
    : t_(t), e_(e), remesa_(e.db, e.reloj, e.textos, destinoDe(t), que), que_(que) {}

Resultado<motor::Siguiente> EnvioArticulos::siguiente() {
  if (!preparada_) {
    if (t_.Tarifa < 0 || t_.Tarifa >= kTarifas)
      return tarvo::fallo(Fallo::Restriccion,
                          e_.textos(kTxTarifaDesconocida, {t_.Grupo, t_.Tarifa}),
                          motor::kErrorSuprimido);
    TARVO_INTENTAR(comprobarEspera());
    TARVO_INTENTAR(preparar());
    preparada_ = true;
  }
  return paso();
}

// A mixture of old and new prices must not be sent.
Resultado<> EnvioArticulos::comprobarEspera() const {
  if (!e_.enEspera) return {};
  TARVO_TOMAR(const auto motivo, e_.enEspera(t_.Seccion));
  if (!motivo) return {};
  return tarvo::fallo(Fallo::Restriccion, e_.textos(kTxSeccionEnEspera, {t_.Grupo, *motivo}),
                      motor::kErrorSuprimido);
}

Resultado<> EnvioArticulos::preparar() {
  return remesa_.empezar(t_.Todo, rango());
}

Resultado<motor::Siguiente> EnvioArticulos::fin() {
  TARVO_INTENTAR(remesa_.asentar());
  return motor::Siguiente::fin();
}

bool EnvioArticulos::rechazarActual(int error) {
  return remesa_.rechazado(error, motivoDeRechazo(error, e_.textos));
}

Resultado<> EnvioArticulos::noContesto(int error) {
  if (rechazarActual(error)) return {};
  return tarvo::fallo(Fallo::Comunicacion, {}, error);
}

bool EnvioArticulos::zanjado(qint64 codigo, const QByteArray& registro, const QByteArray& suya) {
  const PorProbar p = std::exchange(porProbar_, {});
  const bool laTienen = maquinas::codigoDeFicha(suya).value_or(-1) == codigo;
  const bool igual = soloPrecios() ? laTienen && maquinas::mismosPrecios(suya, registro)
                                   : maquinas::mismaFicha(suya, registro);
  if (igual) return remesa_.enviado(), true;
  if (p.error == 0 || p.registro != registro) return false;
  remesa_.sinTomar(p.error, laTienen
                                ? e_.textos(kTxRechazado, {e_.textos(kTxErrorNumero, {p.error})})
                                : motivoDeRechazo(p.error, e_.textos));
  return true;
}

Resultado<> EnvioArticulos::sinFicha(qint64 codigo, const QByteArray& datos) const {
  return falloEn(malRegistro({maquinas::RegistroMalo::Corto, datos.size(), {}}, e_.textos).error(),
                 t_.Grupo, e_.textos(kTxLugarArticulo, {Ceros(codigo, 7)}), e_.textos);
}

std::vector<totals::Aviso> EnvioArticulos::abandonar() {
  reposo();
  return preparada_ ? avisos(false) : std::vector<totals::Aviso>{};
}

std::vector<totals::Aviso> EnvioArticulos::avisos(bool acabada) const {
  const envios::Resumen& r = remesa_.resumen();
  std::vector<totals::Aviso> salida;
  nombrar(salida, r.retenidos, kTxArticuloRetenido, kTxRetenidosPorLoMismo, t_.Grupo, e_.textos);
  nombrar(salida, r.rechazados, kTxArticuloRechazado, kTxRechazadosPorLoMismo, t_.Grupo, e_.textos);
  nombrar(salida, r.conOtrasLetras, kTxOtrasLetras, kTxOtrasLetrasEnVarios, t_.Grupo, e_.textos,
          false);
  if (const auto quedan = remesa_.restan(); !acabada && quedan)
    salida.push_back(
        {t_.Grupo, e_.textos(kTxSinAcabar, {t_.Grupo, quedan->articulos, quedan->borrados}), true});
  if (t_.Tipo == TipoGrupo::Ebony || t_.Tipo == TipoGrupo::Registradoras)
    if (const auto n = envios::articulosDeSobra(e_.db, destinoDe(t_)); n && *n > 0)
      salida.push_back({t_.Grupo, e_.textos(kTxGuardaBorrados, {t_.Grupo, *n}), false});
  const bool nada =
      acabada && r.enviados + r.borrados == 0 && r.retenidos.empty() && r.rechazados.empty();
  const QString cuenta =
      nada ? e_.textos(kTxSinArticulosQueEnviar, {t_.Grupo})
           : e_.textos(soloPrecios() ? kTxPreciosEnviados : kTxArticulosEnviados,
                       {t_.Grupo, r.enviados, r.borrados, r.retenidos.size(), r.rechazados.size()});
  salida.push_back({t_.Grupo, cuenta, false});
  return salida;
}

QString EnvioArticulos::reparo() const {
  const envios::Resumen& r = remesa_.resumen();
  if (r.retenidos.empty() && r.rechazados.empty()) return {};
  return e_.textos(kTxReparo, {r.retenidos.size(), r.rechazados.size()});
}

QString EnvioArticulos::MostrarTraza() const {
  return e_.textos(borrando() ? kTxPasoBorrado : kTxPasoArticulo, {Ceros(codigoActual(), 7)});
}

}  // namespace tarvo::tareas
