#include "simulador/programa/Plan.h"

#include <QDir>

#include "simulador/Json.h"
#include "simulador/programa/BaseTienda.h"

namespace tarvo::simulador {
namespace {

Resultado<> leerTransporte(const QJsonObject& json, Transporte& transporte) {
  transporte.abreTrasMs = json.value(QLatin1String("abreTrasMs")).toInt();
  if (json.contains(QLatin1String("tcp"))) {
    transporte.puerto = json.value(QLatin1String("tcp")).toInt();
  } else if (json.contains(QLatin1String("pty"))) {
    transporte.clase = Transporte::Clase::Pty;
    transporte.ruta = json.value(QLatin1String("pty")).toString();
  } else if (json.contains(QLatin1String("modem"))) {
    transporte.clase = Transporte::Clase::Modem;
    transporte.ruta = json.value(QLatin1String("modem")).toString();
    transporte.modem = json;
  }
  const bool puertoMalo = transporte.puerto < 0 || transporte.puerto > 65535;
  const bool sinDestino = transporte.puerto == 0 && transporte.ruta.isEmpty();
  if (puertoMalo || sinDestino)
    return fallo(Fallo::Formato,
                 QStringLiteral("Falta un transporte: \"tcp\", \"pty\" o \"modem\""));
  return {};
}

Resultado<> leerMemoria(const QJsonObject& json, PlanMaquina& plan) {
  for (const auto& valor : json.value(QLatin1String("articulos")).toArray()) {
    TARVO_TOMAR(auto articulo, articuloDeJson(valor.toObject()));
    plan.catalogo[articulo.codigo] = articulo;
  }
  for (const auto& valor : json.value(QLatin1String("operadores")).toArray())
    plan.operadores.push_back(valor.toInt());
  for (const auto& valor : json.value(QLatin1String("ventas")).toArray()) {
    TARVO_TOMAR(auto venta, ventaDeJson(valor.toObject()));
    plan.ventas.push_back(venta);
  }
  for (const auto& valor : json.value(QLatin1String("pedidos")).toArray())
    plan.pedidos.push_back(lineaDeJson(valor.toObject()));
  for (const auto& valor : json.value(QLatin1String("inventarios")).toArray())
    plan.inventarios.push_back(lineaDeJson(valor.toObject()));
  return {};
}

// The common part of a listed machine and a group of the database.
Resultado<> leerComun(const QJsonObject& json, PlanMaquina& plan) {
  TARVO_TOMAR(auto fallos, fallosDeJson(json.value(QLatin1String("fallos")).toObject()));
  OpcionesMaquina& opciones = plan.opciones;
  opciones.fallos = fallos;
  opciones.estacion = json.value(QLatin1String("estacion")).toInt();
  opciones.registrosPorTrama = json.value(QLatin1String("registrosPorTrama")).toInt(8);
  opciones.pausaMs = json.value(QLatin1String("pausaMs")).toInt(20);
  opciones.repeticiones = json.value(QLatin1String("repeticiones")).toInt(-1);
  return leerMemoria(json, plan);
}

Resultado<PlanMaquina> leerMaquina(const QJsonObject& json) {
  PlanMaquina plan;
  const int tipo = json.value(QLatin1String("tipo")).toInt();
  if (tipo < 1 || tipo > 4)
    return fallo(Fallo::Formato, QStringLiteral("El \"tipo\" de una máquina va de 1 a 4"));
  plan.opciones.tipo = static_cast<Tipo>(tipo);
  plan.opciones.nombre = json.value(QLatin1String("nombre")).toString();
  plan.opciones.grupo = json.value(QLatin1String("grupo")).toInt();
  plan.opciones.direccion = json.value(QLatin1String("direccion")).toInt();
  for (const auto& valor : json.value(QLatin1String("balanzas")).toArray())
    plan.opciones.balanzas.push_back(valor.toInt());
  TARVO_INTENTAR(leerComun(json, plan));
  TARVO_INTENTAR(leerTransporte(json, plan.transporte));
  return plan;
}

Resultado<> ponerGrupo(const QJsonObject& json, const GrupoTienda& grupo, Plan& plan) {
  Transporte transporte;
  transporte.puerto = grupo.puerto;
  if (grupo.puerto == 0 || json.contains(QLatin1String("tcp")) ||
      json.contains(QLatin1String("pty")) || json.contains(QLatin1String("modem")))
    TARVO_INTENTAR(leerTransporte(json, transporte));
  transporte.abreTrasMs = json.value(QLatin1String("abreTrasMs")).toInt();
  for (const PlanMaquina& modelo : grupo.maquinas) {
    PlanMaquina maquina = modelo;
    TARVO_INTENTAR(leerComun(json, maquina));
    maquina.transporte = transporte;
    plan.maquinas.push_back(std::move(maquina));
  }
  return {};
}

Resultado<> leerGrupos(const QJsonObject& json, const QString& baseDatos, Plan& plan) {
  TARVO_TOMAR(auto tienda, leerTienda(baseDatos));
  const QJsonArray pedidos = json.value(QLatin1String("grupos")).toArray();
  for (const auto& valor : pedidos) {
    const QJsonObject pedido = valor.toObject();
    const int codigo = pedido.value(QLatin1String("grupo")).toInt();
    const auto grupo = tienda.find(codigo);
    if (grupo == tienda.end())
      return fallo(Fallo::NoExiste,
                   QStringLiteral("La base de datos no tiene el grupo ") + QString::number(codigo));
    TARVO_INTENTAR(ponerGrupo(pedido, grupo->second, plan));
  }
  if (pedidos.isEmpty())
    for (const auto& [codigo, grupo] : tienda)
      if (grupo.puerto > 0) TARVO_INTENTAR(ponerGrupo({}, grupo, plan));
  return {};
}

Resultado<std::optional<Dia>> leerDia(const QJsonObject& json, QDate hoy) {
  if (!json.contains(QLatin1String("dia"))) return std::nullopt;
  const QJsonObject descrito = json.value(QLatin1String("dia")).toObject();
  Dia dia{hoy};
  const QString texto = descrito.value(QLatin1String("fecha")).toString();
  if (!texto.isEmpty()) {
    const auto fecha = Fecha::leer(texto);
    if (!fecha) return fallo(Fallo::Formato, QStringLiteral("Fecha ilegible: ") + texto);
    dia.fecha = fecha->qdate();
  }
  dia.ventas = descrito.value(QLatin1String("ventas")).toInt(dia.ventas);
  dia.devoluciones = descrito.value(QLatin1String("devoluciones")).toDouble(dia.devoluciones);
  dia.descuentos = descrito.value(QLatin1String("descuentos")).toDouble(dia.descuentos);
  return dia;
}

}  // namespace

Resultado<Plan> leerPlan(const QJsonObject& json, const QString& carpeta, const QString& baseDatos,
                         QDate hoy) {
  Plan plan;
  plan.semilla = static_cast<quint64>(json.value(QLatin1String("semilla")).toInteger(1));
  plan.ritmoMs = json.value(QLatin1String("ritmoMs")).toInt();
  const QDir base(carpeta);
  const QString estado = json.value(QLatin1String("estado")).toString();
  if (!estado.isEmpty()) plan.estado = base.absoluteFilePath(estado);
  TARVO_TOMAR(auto dia, leerDia(json, hoy));
  plan.dia = dia;
  for (const auto& valor : json.value(QLatin1String("maquinas")).toArray()) {
    TARVO_TOMAR(auto maquina, leerMaquina(valor.toObject()));
    plan.maquinas.push_back(std::move(maquina));
  }
  const QString descrita = json.value(QLatin1String("baseDatos")).toString();
  if (!baseDatos.isEmpty())
    TARVO_INTENTAR(leerGrupos(json, baseDatos, plan));
  else if (!descrita.isEmpty())
    TARVO_INTENTAR(leerGrupos(json, base.absoluteFilePath(descrita), plan));
  if (plan.maquinas.empty())
    return fallo(Fallo::Formato, QStringLiteral("La configuración no describe ninguna máquina"));
  quint64 n = 0;
  for (PlanMaquina& maquina : plan.maquinas) maquina.opciones.semilla = plan.semilla * 1000 + ++n;
  return plan;
}

}  // namespace tarvo::simulador
