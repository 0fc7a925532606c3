#include "simulador/programa/Programa.h"

#include <QFile>
#include <QJsonDocument>
#include <QSaveFile>
#include <algorithm>
#include <cstdio>

#include "simulador/Json.h"

namespace tarvo::simulador {
namespace {

constexpr int kGuardarTrasMs = 100;

}  // namespace

Programa::Programa(Plan plan, Reloj& reloj) : plan_(std::move(plan)), reloj_(reloj) {
  guardado_.setSingleShot(true);
  QObject::connect(&guardado_, &QTimer::timeout, &guardado_, [this] { guardar(); });
  QObject::connect(&ritmo_, &QTimer::timeout, &ritmo_, [this] { venderUna(); });
  for (const PlanMaquina& descrita : plan_.maquinas) {
    Puesta puesta{crearMaquina(descrita.opciones, reloj_), descrita};
    puesta.maquina->memoria().catalogo = descrita.catalogo;
    puesta.maquina->memoria().operadores = descrita.operadores;
    cableDe(descrita.transporte).poner(*puesta.maquina);
    maquinas_.push_back(std::move(puesta));
  }
}

Programa::~Programa() = default;

Cable& Programa::cableDe(const Transporte& transporte) {
  for (const Linea& linea : lineas_)
    if (linea.transporte.mismo(transporte)) return *linea.cable;
  lineas_.push_back({transporte, std::make_unique<Cable>(), nullptr, nullptr});
  return *lineas_.back().cable;
}

Resultado<> Programa::preparar() {
  QFile fichero(plan_.estado);
  if (!plan_.estado.isEmpty() && fichero.open(QIODevice::ReadOnly))
    TARVO_INTENTAR(restaurar(fichero.readAll()));
  for (Puesta& puesta : maquinas_) {
    if (puesta.dias == 0) estrenar(puesta);
    puesta.maquina->memoria().alCambiar = [this] { tocar(); };
  }
  guardar();
  return {};
}

Resultado<> Programa::restaurar(const QByteArray& estado) {
  const QJsonDocument documento = QJsonDocument::fromJson(estado);
  if (!documento.isObject())
    return fallo(Fallo::Formato,
                 QStringLiteral("El fichero de estado está dañado: ") + plan_.estado);
  for (const auto& valor : documento.object().value(QLatin1String("maquinas")).toArray()) {
    const QJsonObject json = valor.toObject();
    const auto suya = std::ranges::find_if(maquinas_, [&](const Puesta& puesta) {
      const OpcionesMaquina& opciones = puesta.plan.opciones;
      return opciones.grupo == json.value(QLatin1String("grupo")).toInt() &&
             opciones.nombre == json.value(QLatin1String("nombre")).toString();
    });
    if (suya == maquinas_.end()) continue;
    TARVO_TOMAR(auto dias, restaurarEstado(*suya->maquina, json));
    suya->dias = dias;
  }
  return {};
}

void Programa::estrenar(Puesta& puesta) {
  Memoria& memoria = puesta.maquina->memoria();
  for (const LineaLista& linea : puesta.plan.pedidos) memoria.apuntar(Lista::Pedidos, linea);
  for (const LineaLista& linea : puesta.plan.inventarios)
    memoria.apuntar(Lista::Inventarios, linea);
  if (!puesta.plan.ventas.empty() || !plan_.dia)
    vender(puesta, puesta.plan.ventas);
  else
    vender(puesta, ventasDelDia(memoria, *plan_.dia, puesta.plan.opciones.semilla));
  puesta.dias = 1;
}

void Programa::vender(Puesta& puesta, const std::vector<Venta>& ventas) {
  if (plan_.ritmoMs <= 0) {
    for (const Venta& venta : ventas) puesta.maquina->memoria().vender(venta);
    return;
  }
  const auto cual = static_cast<std::size_t>(&puesta - maquinas_.data());
  for (const Venta& venta : ventas) porVender_.emplace_back(cual, venta);
  std::ranges::stable_sort(porVender_, [](const auto& a, const auto& b) {
    return a.second.cuando > b.second.cuando;  // the next one last
  });
  ritmo_.start(plan_.ritmoMs);
}

void Programa::venderUna() {
  if (porVender_.empty()) {
    ritmo_.stop();
    return;
  }
  const auto [cual, venta] = porVender_.back();
  porVender_.pop_back();
  maquinas_[cual].maquina->memoria().vender(venta);
}

void Programa::venderOtroDia() {
  Dia dia = plan_.dia.value_or(Dia{reloj_.ahora().qdate()});
  const QDate primero = dia.fecha;
  for (Puesta& puesta : maquinas_) {
    dia.fecha = primero.addDays(puesta.dias);
    const quint64 semilla =
        puesta.plan.opciones.semilla + 7919ULL * static_cast<quint64>(puesta.dias);
    // The day also has its own orders and inventories, which differ from earlier ones by a gram.
    for (auto [cual, lineas] : {std::pair{Lista::Pedidos, puesta.plan.pedidos},
                                std::pair{Lista::Inventarios, puesta.plan.inventarios}})
      for (LineaLista& linea : lineas) {
        linea.peso += puesta.dias;
        puesta.maquina->memoria().apuntar(cual, linea);
      }
    ++puesta.dias;
    vender(puesta, ventasDelDia(puesta.maquina->memoria(), dia, semilla));
  }
  guardar();
}

void Programa::tocar() {
  if (!guardado_.isActive()) guardado_.start(kGuardarTrasMs);
}

bool Programa::guardar() {
  guardado_.stop();
  if (plan_.estado.isEmpty()) return true;
  QJsonArray maquinas;
  for (const Puesta& puesta : maquinas_) maquinas.append(estadoAJson(*puesta.maquina, puesta.dias));
  QSaveFile fichero(plan_.estado);
  const QByteArray json = QJsonDocument(QJsonObject{{QStringLiteral("maquinas"), maquinas}})
                              .toJson(QJsonDocument::Compact);
  const bool escrito =
      fichero.open(QIODevice::WriteOnly) && fichero.write(json) == json.size() && fichero.commit();
  if (!escrito)
    std::fprintf(stderr, "No se puede escribir el estado: %s\n", qPrintable(fichero.errorString()));
  return escrito;
}

Resultado<> Programa::escuchar() {
  for (Linea& linea : lineas_) {
    const int tras = linea.transporte.abreTrasMs;
    if (tras <= 0) {
      TARVO_INTENTAR(abrir(linea));
      continue;
    }
    QTimer::singleShot(tras, &guardado_, [this, &linea] {
      if (const auto abierta = abrir(linea); !abierta)
        std::fprintf(stderr, "%s\n", qPrintable(abierta.error().texto));
    });
  }
  return {};
}

Resultado<> Programa::abrir(Linea& linea) {
  const Transporte& transporte = linea.transporte;
  if (transporte.clase == Transporte::Clase::Tcp) {
    linea.tcp = std::make_unique<ServidorTcp>(*linea.cable);
    if (!linea.tcp->escuchar(static_cast<quint16>(transporte.puerto)))
      return fallo(Fallo::Ocupado,
                   QStringLiteral("Puerto %1: %2")
                       .arg(QString::number(transporte.puerto), linea.tcp->error()));
    return {};
  }
  linea.pty = std::make_unique<PuertoPty>(*linea.cable, reloj_);
  return transporte.clase == Transporte::Clase::Pty
             ? linea.pty->abrir(transporte.ruta)
             : linea.pty->abrirConModem(transporte.ruta, opcionesModem(transporte.modem));
}

}  // namespace tarvo::simulador
