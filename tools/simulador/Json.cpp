#include "simulador/Json.h"

namespace tarvo::simulador {
namespace {

qint64 entero(const QJsonObject& json, const char* clave, qint64 omision = 0) {
  return json.value(QLatin1String(clave)).toInteger(omision);
}

Resultado<Paso> pasoDeJson(const QJsonObject& json) {
  const QString nombre = json.value(QLatin1String("averia")).toString();
  const auto averia = averiaDeNombre(nombre);
  if (!averia) return fallo(Fallo::Formato, QStringLiteral("Avería desconocida: ") + nombre);
  return Paso{*averia, static_cast<int>(entero(json, "trama")),
              static_cast<int>(entero(json, "codigo", -1)),
              static_cast<int>(entero(json, "mensaje")),
              static_cast<int>(entero(json, "valor", -1))};
}

QJsonObject cuentaAJson(const Cuenta& cuenta) {
  return {{QStringLiteral("imp"), cuenta.imp},
          {QStringLiteral("pes"), cuenta.pes},
          {QStringLiteral("con"), cuenta.con},
          {QStringLiteral("sco"), cuenta.sco}};
}

QJsonObject porNumeroAJson(const std::map<int, Cuenta>& mapa) {
  QJsonObject json;
  for (const auto& [numero, cuenta] : mapa)
    json.insert(QString::number(numero), cuentaAJson(cuenta));
  return json;
}

QJsonObject ventaAJson(const Venta& venta) {
  return {{QStringLiteral("cuando"), venta.cuando.general()},
          {QStringLiteral("articulo"), venta.articulo},
          {QStringLiteral("operador"), venta.operador},
          {QStringLiteral("departamento"), venta.departamento},
          {QStringLiteral("hora"), venta.hora},
          {QStringLiteral("importe"), venta.importe},
          {QStringLiteral("peso"), venta.peso},
          {QStringLiteral("cuenta"), venta.cuenta},
          {QStringLiteral("descuento"), venta.descuento}};
}

QJsonObject articuloAJson(const Articulo& articulo) {
  QJsonObject json{{QStringLiteral("seccion"), articulo.seccion},
                   {QStringLiteral("codigo"), articulo.codigo},
                   {QStringLiteral("nombre"), articulo.nombre},
                   {QStringLiteral("unidad"), articulo.unidad},
                   {QStringLiteral("departamento"), articulo.departamento},
                   {QStringLiteral("barras"), QString::fromLatin1(articulo.barras)},
                   {QStringLiteral("precio"), articulo.precio},
                   {QStringLiteral("ajeno"), articulo.ajeno}};
  if (!articulo.ficha.isEmpty())
    json.insert(QStringLiteral("ficha"), QString::fromLatin1(articulo.ficha.toHex()));
  return json;
}

QJsonObject puestaAJson(const PuestaACero& puesta) {
  return {{QStringLiteral("cuando"), puesta.cuando.general()},
          {QStringLiteral("codigo"), puesta.codigo},
          {QStringLiteral("conjuntos"), puesta.conjuntos},
          {QStringLiteral("ventas"), static_cast<qint64>(puesta.ventas)},
          {QStringLiteral("antes"), aJson(puesta.antes)}};
}

QJsonArray listaAJson(const std::vector<LineaLista>& lineas) {
  QJsonArray json;
  for (const LineaLista& linea : lineas)
    json.append(QJsonObject{{QStringLiteral("articulo"), linea.articulo},
                            {QStringLiteral("peso"), linea.peso},
                            {QStringLiteral("unidades"), linea.unidades}});
  return json;
}

void restaurarListas(Memoria& memoria, const QJsonObject& json) {
  for (const auto& [cual, clave] : {std::pair{Lista::Pedidos, QStringLiteral("pedidos")},
                                    std::pair{Lista::Inventarios, QStringLiteral("inventarios")}}) {
    std::vector<LineaLista> lineas;
    for (const auto& linea : json.value(clave).toArray())
      lineas.push_back(lineaDeJson(linea.toObject()));
    const QJsonObject olvidos = json.value(QLatin1String("olvidos")).toObject();
    memoria.restaurarLista(cual, std::move(lineas), olvidos.value(clave).toInt());
  }
}

}  // namespace

Resultado<Fallos> fallosDeJson(const QJsonObject& json) {
  Fallos fallos;
  const QJsonObject probabilidad = json.value(QLatin1String("probabilidad")).toObject();
  for (auto it = probabilidad.begin(); it != probabilidad.end(); ++it) {
    const auto averia = averiaDeNombre(it.key());
    if (!averia) return fallo(Fallo::Formato, QStringLiteral("Avería desconocida: ") + it.key());
    fallos.probabilidad[static_cast<std::size_t>(*averia)] = it.value().toDouble();
  }
  for (const auto& paso : json.value(QLatin1String("guion")).toArray()) {
    TARVO_TOMAR(auto leido, pasoDeJson(paso.toObject()));
    fallos.guion.push_back(leido);
  }
  fallos.conexionesRechazadas = static_cast<int>(entero(json, "conexionesRechazadas"));
  fallos.oscuraMs = static_cast<int>(entero(json, "oscuraMs", fallos.oscuraMs));
  fallos.esperaMs = static_cast<int>(entero(json, "esperaMs", fallos.esperaMs));
  fallos.limiteLista = static_cast<int>(entero(json, "limiteLista", fallos.limiteLista));
  return fallos;
}

Resultado<Articulo> articuloDeJson(const QJsonObject& json) {
  Articulo articulo;
  articulo.seccion = static_cast<int>(entero(json, "seccion", 1));
  articulo.codigo = static_cast<int>(entero(json, "codigo"));
  articulo.nombre = json.value(QLatin1String("nombre")).toString();
  articulo.unidad = static_cast<int>(entero(json, "unidad"));
  articulo.departamento = static_cast<int>(entero(json, "departamento", 1));
  articulo.barras = json.value(QLatin1String("barras")).toString().toLatin1();
  articulo.precio = entero(json, "precio");
  articulo.ajeno = json.value(QLatin1String("ajeno")).toBool();
  articulo.ficha = QByteArray::fromHex(json.value(QLatin1String("ficha")).toString().toLatin1());
  if (articulo.codigo < 1 || articulo.unidad < 0 || articulo.unidad > 2)
    return fallo(Fallo::Formato, QStringLiteral("Artículo con código o unidad imposibles: ") +
                                     QString::number(articulo.codigo));
  return articulo;
}

Resultado<Venta> ventaDeJson(const QJsonObject& json) {
  Venta venta;
  const auto cuando = Fecha::leer(json.value(QLatin1String("cuando")).toString());
  if (!cuando) return fallo(Fallo::Formato, QStringLiteral("Venta sin fecha que se pueda leer"));
  venta.cuando = *cuando;
  venta.articulo = static_cast<int>(entero(json, "articulo"));
  venta.operador = static_cast<int>(entero(json, "operador", 1));
  venta.departamento = static_cast<int>(entero(json, "departamento", 1));
  venta.hora = static_cast<int>(entero(json, "hora", cuando->qtime().hour()));
  venta.importe = entero(json, "importe");
  venta.peso = entero(json, "peso");
  venta.cuenta = entero(json, "cuenta", 1);
  venta.descuento = entero(json, "descuento");
  return venta;
}

LineaLista lineaDeJson(const QJsonObject& json) {
  return {static_cast<int>(entero(json, "articulo")), entero(json, "peso"),
          entero(json, "unidades")};
}

QJsonObject aJson(const Contadores& contadores) {
  QJsonObject cruce;
  for (const auto& [clave, cuenta] : contadores.operHora)
    cruce.insert(QStringLiteral("%1/%2").arg(clave.first).arg(clave.second), cuentaAJson(cuenta));
  return {{QStringLiteral("articulos"), porNumeroAJson(contadores.articulos)},
          {QStringLiteral("departamentos"), porNumeroAJson(contadores.departamentos)},
          {QStringLiteral("operadores"), porNumeroAJson(contadores.operadores)},
          {QStringLiteral("horas"), porNumeroAJson(contadores.horas)},
          {QStringLiteral("operHora"), cruce},
          {QStringLiteral("granTotal"), cuentaAJson(contadores.granTotal)},
          {QStringLiteral("ventas"), cuentaAJson(contadores.ventas)},
          {QStringLiteral("devoluciones"), cuentaAJson(contadores.devoluciones)}};
}

QJsonObject estadoAJson(const Maquina& maquina, int diasVendidos) {
  const Memoria& memoria = maquina.memoria();
  QJsonArray libro, puestas, articulos, operadores;
  for (const Venta& venta : memoria.libro()) libro.append(ventaAJson(venta));
  for (const PuestaACero& puesta : memoria.puestas()) puestas.append(puestaAJson(puesta));
  for (const auto& [codigo, articulo] : memoria.catalogo) articulos.append(articuloAJson(articulo));
  for (const int codigo : memoria.operadores) operadores.append(codigo);
  const OpcionesMaquina& opciones = maquina.opciones();
  return {{QStringLiteral("nombre"), opciones.nombre},
          {QStringLiteral("tipo"), static_cast<int>(opciones.tipo)},
          {QStringLiteral("grupo"), opciones.grupo},
          {QStringLiteral("direccion"), opciones.direccion},
          {QStringLiteral("reloj"), maquina.ahora().general()},
          {QStringLiteral("desfase"), maquina.desfase()},
          {QStringLiteral("diasVendidos"), diasVendidos},
          {QStringLiteral("contadores"), aJson(memoria.contadores())},
          {QStringLiteral("puestasACero"), puestas},
          {QStringLiteral("pedidos"), listaAJson(memoria.lista(Lista::Pedidos))},
          {QStringLiteral("inventarios"), listaAJson(memoria.lista(Lista::Inventarios))},
          {QStringLiteral("olvidos"),
           QJsonObject{{QStringLiteral("pedidos"), memoria.olvidos(Lista::Pedidos)},
                       {QStringLiteral("inventarios"), memoria.olvidos(Lista::Inventarios)}}},
          {QStringLiteral("operadores"), operadores},
          {QStringLiteral("libro"), libro},
          {QStringLiteral("articulos"), articulos}};
}

Resultado<int> restaurarEstado(Maquina& maquina, const QJsonObject& json) {
  std::vector<Venta> libro;
  for (const auto& valor : json.value(QLatin1String("libro")).toArray()) {
    TARVO_TOMAR(auto venta, ventaDeJson(valor.toObject()));
    libro.push_back(venta);
  }
  std::vector<PuestaACero> puestas;
  std::size_t leidas = 0;
  Contadores marcha;  // the counters of the time, so that each zeroing keeps what it cleared
  for (const auto& valor : json.value(QLatin1String("puestasACero")).toArray()) {
    const QJsonObject puesta = valor.toObject();
    const auto cuando = Fecha::leer(puesta.value(QLatin1String("cuando")).toString());
    const auto ventas = static_cast<std::size_t>(entero(puesta, "ventas"));
    if (!cuando || ventas > libro.size())
      return fallo(Fallo::Formato, QStringLiteral("Puesta a cero ilegible en el estado"));
    for (; leidas < ventas; ++leidas) marcha.sumar(libro[leidas]);
    const auto conjuntos = static_cast<int>(entero(puesta, "conjuntos"));
    puestas.push_back(
        {*cuando, static_cast<int>(entero(puesta, "codigo")), conjuntos, ventas, marcha});
    marcha.borrar(conjuntos);
  }
  Catalogo catalogo;
  for (const auto& valor : json.value(QLatin1String("articulos")).toArray()) {
    TARVO_TOMAR(auto articulo, articuloDeJson(valor.toObject()));
    catalogo[articulo.codigo] = articulo;
  }
  Memoria& memoria = maquina.memoria();
  memoria.catalogo = std::move(catalogo);
  memoria.operadores.clear();
  for (const auto& codigo : json.value(QLatin1String("operadores")).toArray())
    memoria.operadores.push_back(codigo.toInt());
  memoria.restaurar(std::move(libro), std::move(puestas));
  restaurarListas(memoria, json);
  maquina.ponerDesfase(json.value(QLatin1String("desfase")).toDouble());
  return json.value(QLatin1String("diasVendidos")).toInt();
}

}  // namespace tarvo::simulador
