#include "noches/Plan.h"

#include <algorithm>
#include <cmath>

namespace tarvo::noches {

using simulador::Averia, simulador::Tipo;

namespace {

const std::set<int> kTipos18{1, 2, 4}, kTipos20{1, 4};

template <class T>
T uno(Azar& azar, std::initializer_list<T> de) {
  return *(de.begin() + azar.entero(0, static_cast<int>(de.size()) - 1));
}

QString siNo(bool b) {
  return b ? QStringLiteral("Sí") : QStringLiteral("No");
}

}  // namespace

bool vale(int clase, Tipo tipo) {
  const int t = static_cast<int>(tipo);
  if (clase == kHorario || clase == kInventarios) return kTipos20.contains(t);
  if (clase == kOperadores || clase == kOperHora || clase == kPedidos || clase == 7)
    return kTipos18.contains(t);
  return true;
}

Plan::Plan(quint64 s, bool conCostumbres) : semilla(s) {
  Azar azar(s * 2654435761U + 17);
  primerDia = QDate(2026, 1, 1).addDays(azar.entero(0, 360));
  tienda(azar);
  pasos(azar);
  std::size_t maquinas = 0;
  for (const auto& g : grupos) maquinas += g.direcciones.size();
  // Each day sells an article of its own, see Mundo::dia, so there are fewer nights than articles.
  const int tope = static_cast<int>(articulos.size()) - 2;
  for (int n = std::min(azar.entero(1, 4), tope - 2); n > 0; --n) noche(azar, maquinas);
  for (int i = 0; i < 3; ++i) {
    noches.emplace_back().calma = true;
    noches.back().minuto = azar.entero(21 * 60 + 10, 23 * 60);
    noches.back().fallos.resize(maquinas);
  }
  if (conCostumbres) costumbres(), ediciones(), canjes();
}

// The habits of people in a shop, with or without faults.
void Plan::costumbres() {
  using namespace simulador;
  Azar azar(semilla * 40503 + 5);
  devuelveCuenta = azar.ocurre(0.5);
  for (auto& g : grupos)
    g.borra = uno<std::array<int, 3>>(
        azar, {g.borra,
               g.borra,
               {kPersonal, kArticulos, kTotales},
               {kSoloGranTotal, kArticulos | kPersonal, kSoloDepartamentos},
               {kArticulos, kSoloGranTotal, kSoloDepartamentos | kPersonal}});
  for (auto& n : noches) {
    if (azar.ocurre(0.3)) n.sinVentas = 0.5;
    if (azar.ocurre(0.5)) n.devueltas = 0.4;
    n.diaAMano = azar.ocurre(0.1);
    if (n.calma) continue;
    if (azar.ocurre(0.1)) n.fallaConfirmacion = azar.entero(1, 80);
    n.otraVez = azar.ocurre(0.15);
    n.cambio = azar.ocurre(0.15);
  }
}

// Not before the last nights, in which all is in order again, nor before anything was read.
void Plan::ediciones() {
  Azar azar(semilla * 7919 + 11);
  for (std::size_t n = 1; n + 2 < noches.size(); ++n)
    for (int k = azar.ocurre(0.5) ? azar.entero(1, 3) : 0; k > 0; --k) {
      Edicion e{static_cast<Edicion::Que>(azar.entero(0, Edicion::Copiar)),
                static_cast<Edicion::Cuando>(azar.entero(0, 2)), azar.siguiente()};
      if (e.que == Edicion::Configurar) e.cuando = Edicion::Manana;  // it takes its time
      noches[n].ediciones.push_back(e);
    }
}

void Plan::canjes() {
  Azar azar(semilla * 6007 + 13);
  for (std::size_t n = 1; n + 2 < noches.size(); ++n) noches[n].canje = azar.ocurre(0.3);
}

void Plan::tienda(Azar& azar) {
  int codigo = 2;
  for (int n = azar.ocurre(0.7) ? azar.entero(5, 14) : azar.entero(5, 40); n > 0; --n) {
    codigo += azar.entero(1, 40);
    simulador::Articulo a;
    a.codigo = codigo;
    a.unidad = uno(azar, {0, 1, 2, 2});
    a.departamento = azar.entero(1, 5);
    a.precio = azar.entero(5, 300) * 10;
    a.barras = "20" + QByteArray::number(codigo).rightJustified(6, '0');
    articulos[codigo] = a;
  }
  for (int g = azar.entero(1, 4), i = 1; i <= g; ++i) grupo(azar, i);
}

void Plan::grupo(Azar& azar, int codigo) {
  PlanGrupo g;
  g.codigo = codigo * 3 - 2;
  g.tipo = static_cast<Tipo>(azar.entero(1, 4));
  g.remoto = uno(azar, {2, 3, 3, 4});
  g.canal = codigo <= 2 ? codigo : 2;  // channels 1 and 2 are cables, 3 and 4 TCP/IP
  if (g.remoto == 2 && codigo > 2) g.remoto = 3;
  g.acceso = g.remoto == 4 ? QStringLiteral("CON%1").arg(codigo)
                           : QStringLiteral("10.0.0.%1:1024").arg(codigo);
  g.addr = codigo;
  const int n = g.tipo == Tipo::Registradora ? azar.entero(1, 2) : 1;
  for (int i = 0; i < n; ++i)
    g.direcciones.push_back(g.tipo == Tipo::Ebony ? g.addr : codigo * 4 - 3 + i);  // up to 16
  for (int n2 = azar.entero(2, 6); n2 > 0; --n2) g.operadores.push_back(azar.entero(1, 4) * 11);
  g.almacen = azar.entero(0, 2);
  // Machines with an address of their own may share a wire.
  const bool comparte = g.tipo == Tipo::Ebony || g.tipo == Tipo::Registradora;
  if (comparte && !grupos.empty() && grupos.back().tipo == g.tipo && azar.ocurre(0.5)) {
    g.remoto = grupos.back().remoto;
    g.canal = grupos.back().canal;
    g.acceso = grupos.back().acceso;
  }
  grupos.push_back(g);
}

// One line for all groups if all take the task, or one for each that does.
void Plan::tareas(Azar& azar, const QString& clave, int clase, const QString& cola) {
  std::vector<int> valen;
  for (const auto& g : grupos)
    if (vale(clase, g.tipo) && (clase != 6 || aCero.contains(g.codigo))) valen.push_back(g.codigo);
  if (clase >= kPLUs)
    for (const int g : valen) leidas.insert({g, clase});
  if (valen.size() == grupos.size() && azar.ocurre(0.5)) {
    proceso += QStringLiteral("T:%1,ALL%2").arg(clave, cola);
    return;
  }
  for (const int g : valen) proceso += QStringLiteral("T:%1,%2%3").arg(clave).arg(g).arg(cola);
}

void Plan::pasos(Azar& azar) {
  reintentos = azar.entero(0, 4);
  const QString espera = QStringLiteral("C:ESPERA,%1,Sí").arg(azar.entero(0, 5));
  const bool alguno = !azar.ocurre(0.1);
  for (const auto& g : grupos)
    if (alguno && !azar.ocurre(0.1)) aCero.insert(g.codigo);
  aUno = azar.ocurre(0.6);
  const int cuando = azar.entero(
      0, 2);  // zeroing: 0 after the memorisation, 1 before it, 2 queued with the readings

  struct Lectura {
    const char16_t* clave;
    int clase;
  };
  std::vector<Lectura> lecturas;
  for (const Lectura l : {Lectura{u"RXOPERA", kOperadores},
                          {u"RXDEPAR", kDepartamentos},
                          {u"RXHORAR", kHorario},
                          {u"RXOPHOR", kOperHora},
                          {u"RXPEDID", kPedidos},
                          {u"RXINVEN", kInventarios}})
    if (azar.ocurre(l.clase >= kPedidos ? 0.3 : l.clase == kDepartamentos ? 0.5 : 0.25))
      lecturas.push_back(l);
  // A sale made while articles are read shows only if the grand total is read before the first or
  // after the last of them.
  tareas(azar, QStringLiteral("RXGRTOT"), kGranTotal);
  optimizada = !azar.ocurre(0.6);
  tareas(azar, QStringLiteral("RXPLUS"), kPLUs,
         QStringLiteral(", %1, 0000000, 9999999").arg(siNo(!optimizada)));
  for (const auto& l : lecturas) tareas(azar, QString::fromUtf16(l.clave), l.clase);
  const auto cero = [&] { tareas(azar, QStringLiteral("TX_ZERO"), 6, QStringLiteral(", No")); };
  if (cuando == 2) cero();
  proceso += espera;
  if (cuando == 1) cero();
  if (cuando == 1) proceso += espera;
  proceso +=
      QStringLiteral("S:CERRAR, Noche #D/#M, %1, %2").arg(siNo(aUno), siNo(azar.ocurre(0.7)));
  const auto ultimo = QStringLiteral("P:SEL. ULTIMO");
  if ((acumula = azar.ocurre(0.7))) proceso << ultimo << QStringLiteral("P:ACUMULAR,2");
  if ((descuenta = azar.ocurre(0.7))) proceso << ultimo << QStringLiteral("P:STOCK");
  if ((exporta = azar.ocurre(0.7))) {
    corto = azar.ocurre(0.3);
    proceso << ultimo
            << QStringLiteral("E:TOTALIZA, %1, No,%2").arg(siNo(corto), QStringLiteral("D#A#M#D"));
  }
  if (cuando == 0) cero();
  if (azar.ocurre(0.4)) tareas(azar, QStringLiteral("TX_HORA"), 7);
  if (proceso.back().startsWith(u'T')) proceso += espera;
}

void Plan::noche(Azar& azar, std::size_t maquinas) {
  PlanNoche n;
  n.minuto = azar.entero(21 * 60 + 10, 23 * 60 + 50);
  const bool mala = azar.ocurre(0.8);
  for (std::size_t m = 0; m < maquinas; ++m) {
    simulador::Fallos f;
    for (int k = mala ? azar.entero(0, 3) : 0; k > 0; --k) {
      const auto averia = static_cast<Averia>(azar.entero(0, static_cast<int>(Averia::OtroCodigo)));
      // Faults that no check of the wire can detect are left out; a flipped bit is the line's own
      // fault, see Hilo.
      if (averia == Averia::BitsCambiados || averia == Averia::VentaEnMedio ||
          averia == Averia::VentaDetras)
        continue;
      const double p = std::pow(10.0, -0.5 - azar.entero(0, 20) / 10.0);
      const bool rara =
          averia == Averia::Oscura || averia == Averia::ListaSinFin || averia == Averia::Basura;
      f.probabilidad[static_cast<std::size_t>(averia)] = rara ? p / 10 : p;
    }
    if (mala && azar.ocurre(0.15))
      f.guion.push_back({Averia::CeroSinRespuesta, azar.entero(1, 2), -2, 0, -1});
    if (mala && azar.ocurre(0.15)) f.guion.push_back({Averia::VentaEnMedio, 1, -3, 0, -1});
    if (mala && azar.ocurre(0.1))
      f.guion.push_back({Averia::Oscura, azar.entero(1, 60), -1, 0, azar.entero(5, 7200) * 1000});
    if (mala && azar.ocurre(0.1)) f.conexionesRechazadas = azar.entero(1, 6);
    // An order to forget without a good answer, and a customer after it.
    if (mala && azar.ocurre(0.1)) {
      f.guion.push_back({Averia::VentaDetras, 1, -2, 0, articulos.rbegin()->first});
      f.guion.push_back({uno(azar, {Averia::CeroSinRespuesta, Averia::CeroRechazado}), 1, -2});
    }
    f.limiteLista = azar.entero(20, 400);
    n.fallos.push_back(f);
  }
  if (mala && azar.ocurre(0.3)) n.linea = {0.2, 0.2, azar.ocurre(0.5) ? 0.02 : 0.0, 0.1};
  if (azar.ocurre(0.4))
    for (int c = azar.entero(1, 3); c > 0; --c) {
      Corte corte;
      (azar.ocurre(0.5) ? corte.evento : corte.confirmacion) = 0;
      if (corte.evento == 0)
        corte.evento = azar.ocurre(0.5) ? azar.entero(1, 300) : azar.entero(1, 4000);
      if (corte.confirmacion == 0)
        corte.confirmacion = azar.ocurre(0.5) ? azar.entero(1, 30) : azar.entero(1, 120);
      corte.segundos = uno(azar, {1, 30, 600, 3 * 3600});
      corte.vuelve = !azar.ocurre(0.15);
      corte.ventas = azar.ocurre(0.15) ? azar.entero(1, 2) : 0;
      n.cortes.push_back(corte);
    }
  if (azar.ocurre(0.12)) {
    n.llenoDesde = azar.entero(1, 2500);
    n.llenoEventos = azar.ocurre(0.3) ? 1000000 : azar.entero(1, 600);
  }
  if (azar.ocurre(0.15)) {
    n.saltoEn = azar.entero(1, 2500);
    n.salto = azar.ocurre(0.1) ? azar.entero(-40, 40) : uno(azar, {-60, 60, -7, 11, -300}) / 1440.0;
  }
  noches.push_back(n);
}

}  // namespace tarvo::noches
