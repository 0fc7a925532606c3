// Registers forget in three frames. Nights that break off between them, and the undisturbed nights
// after: each sale once, no report of sums that don't foot, and every register empty at the end.
#include <gtest/gtest.h>

#include "noches/Mundo.h"

namespace tarvo::noches {

using simulador::Averia, simulador::Tipo;

namespace {

constexpr int kCeros[] = {3054, 3056, 3058}, kOchoHoras = 8 * 3600 * 1000;

// A shop of one group of registers: a good night, one that goes wrong, and three undisturbed ones.
Plan planDe(quint64 semilla, int cajas, bool antes, bool departamentos) {
  Plan p(semilla, false);
  p.grupos.resize(1);
  PlanGrupo& g = p.grupos[0];
  g.tipo = Tipo::Registradora;
  g.remoto = 3, g.acceso = QStringLiteral("10.0.0.1:1024");
  g.direcciones = cajas == 1 ? std::vector{10} : std::vector{10, 11};
  for (int codigo = 100; p.articulos.size() < 8; ++codigo) {
    simulador::Articulo& a = p.articulos[codigo];
    a.codigo = codigo, a.unidad = 2, a.precio = 100;
    a.barras = "20000" + QByteArray::number(codigo);
  }
  p.leidas = {{g.codigo, kPLUs}, {g.codigo, kGranTotal}};
  if (departamentos) p.leidas.insert({g.codigo, kDepartamentos});
  p.aCero = {g.codigo};
  p.acumula = p.descuenta = p.exporta = p.optimizada = false;
  p.reintentos = 1;
  const QString grupo = QString::number(g.codigo), espera = QStringLiteral("C:ESPERA,1,Sí"),
                cero = QStringLiteral("T:TX_ZERO,%1, No").arg(grupo),
                cerrar = QStringLiteral("S:CERRAR, Noche #D/#M, Sí, Sí");
  p.proceso = {QStringLiteral("T:RXGRTOT,%1").arg(grupo),
               QStringLiteral("T:RXPLUS,%1, No, 0000000, 9999999").arg(grupo)};
  if (departamentos) p.proceso << QStringLiteral("T:RXDEPAR,%1").arg(grupo);
  p.proceso << espera;
  if (antes) p.proceso << cero << espera << cerrar;
  if (!antes) p.proceso << cerrar << cero << espera;
  p.noches.assign(5, {});
  for (auto& n : p.noches) n.calma = true, n.fallos.resize(g.direcciones.size());
  p.noches[1].calma = false;
  return p;
}

// The nights of a plan, and the counters that each register was told to forget in each of them.
struct Noches {
  explicit Noches(const Plan& plan) {
    int noche = 0;
    const Veredicto v = Mundo(plan, [&](const QString& l) {
                          if (l.startsWith(u"=== noche ")) noche = l.mid(10, 1).toInt();
                          if (noche >= 3 && l.contains(u"no cuadra")) mal << l;
                          const auto partes = l.split(u' ', Qt::SkipEmptyParts);
                          if (!l.startsWith(u"    ") && l.contains(u" puesta a cero ("))
                            borrado[{noche, partes[1].toInt()}] |= conjuntos(partes[5]);
                        }).correr();
    mal << v.diferencias;
    eventos = v.eventos;
  }
  // The two halves of the second set count as the set.
  static int conjuntos(QString entreParentesis) {
    const int c = entreParentesis.remove(u'(').remove(u')').remove(u',').toInt();
    return (c & simulador::kTodos) | (c & ~simulador::kTodos ? simulador::kTotales : 0);
  }
  QString texto() const { return mal.join(QStringLiteral("\n  ")); }
  QStringList mal;
  std::map<std::pair<int, int>, int> borrado;  // by night and machine: the sets together
  qint64 eventos = 0;
};

// The sanitizers take some ten times as long.
#ifdef __SANITIZE_ADDRESS__
constexpr int kRalo = 8;
constexpr quint64 kSemillas = 1;
#else
constexpr int kRalo = 1;
constexpr quint64 kSemillas = 4;
#endif

// Everything is in order from that night on.
void bien(Noches& n, int cajas, int desde = 3) {
  EXPECT_TRUE(n.mal.isEmpty()) << n.texto().toStdString();
  for (int noche = desde; noche <= 5; ++noche)
    for (int caja = 0; caja < cajas; ++caja)
      EXPECT_EQ((n.borrado[{noche, caja}]), simulador::kTodos)
          << "noche " << noche << " caja " << caja;
}

}  // namespace

// The line goes silent at one of the frames, before the register received it or after its clearing.
TEST(Registros, ElSilencioEntreTramasSeCuraEnLaNocheSiguiente) {
  for (const bool antes : {false, true})
    for (const int cajas : {1, 2})
      for (int cual = 0; cual < cajas; ++cual)
        for (const int trama : kCeros)
          for (const bool oida : {false, true})
            for (quint64 semilla = 1; semilla <= kSemillas; ++semilla) {
              SCOPED_TRACE(QStringLiteral("semilla %1: %2 cajas, la %3 calla en %4 %5, cero %6")
                               .arg(semilla)
                               .arg(cajas)
                               .arg(cual)
                               .arg(trama)
                               .arg(oida ? u"oída" : u"sin oír", antes ? u"antes" : u"después")
                               .toStdString());
              Plan p = planDe(semilla, cajas, antes, semilla % 2 == 0);
              auto& guion = p.noches[1].fallos[static_cast<std::size_t>(cual)].guion;
              if (oida) guion.push_back({Averia::CeroSinRespuesta, 1, trama});
              guion.push_back({Averia::Oscura, oida ? 2 : 1, trama, 0, kOchoHoras});
              Noches n(p);
              bien(n, cajas);
              if (testing::Test::HasFailure()) return;
            }
}

// Which of its orders clears what is unknown: the books are right in every case.
TEST(Registros, CadaTramaBorreLoQueBorre) {
  using namespace simulador;
  const std::array<int, 3> mapas[] = {
      {kArticulos, kSoloGranTotal, kSoloDepartamentos | kPersonal},
      {kPersonal, kArticulos, kTotales},
      {kSoloGranTotal, kSoloDepartamentos, kArticulos | kPersonal},
      {kTotales, kPersonal, kArticulos},
      {kSoloDepartamentos, kArticulos | kPersonal, kSoloGranTotal},
  };
  int mapa = 0;
  for (const auto& borra : mapas) {
    ++mapa;
    for (const int cajas : {1, 2})
      for (const int trama : kCeros)
        for (const bool oida : {false, true})
          for (const bool corte : {false, true})
            for (quint64 semilla = 1; semilla <= kSemillas; ++semilla) {
              SCOPED_TRACE(testing::Message()
                           << "mapa " << mapa << ", " << cajas << " cajas, trama " << trama
                           << (oida ? " oída" : " sin oír") << corte << ", semilla " << semilla);
              Plan p = planDe(semilla, cajas, false, true);
              p.grupos[0].borra = borra;
              auto& guion = p.noches[1].fallos[0].guion;
              if (oida) guion.push_back({Averia::CeroSinRespuesta, 1, trama});
              guion.push_back(
                  {Averia::Oscura, oida ? 2 : 1, trama, 0, corte ? 60'000 : kOchoHoras});
              Noches n(p);
              bien(n, cajas, 5);
              if (testing::Test::HasFailure()) return;
            }
  }
}

// One night a register confirms all its frames and obeys none; the next day it sells one article.
TEST(Registros, LoQueConfirmaYNoBorraNoCuentaDosVeces) {
  for (const bool antes : {false, true})
    for (const int cajas : {1, 2})
      for (const int ventas : {20, 60})
        for (quint64 semilla = 1; semilla <= kSemillas; ++semilla) {
          SCOPED_TRACE(testing::Message()
                       << cajas << " cajas, " << ventas << " ventas, cero "
                       << (antes ? "antes" : "después") << ", semilla " << semilla);
          Plan p = planDe(semilla, cajas, antes, semilla % 2 == 0);
          for (int codigo = 300; codigo < 340; ++codigo) {
            simulador::Articulo& a = p.articulos[codigo];
            a.codigo = codigo, a.unidad = 2, a.precio = 100;
            a.barras = "20000" + QByteArray::number(codigo);
          }
          p.noches[1].ventas = ventas;
          p.noches[2].ventas = 0;
          for (const int trama : kCeros)
            p.noches[1].fallos[0].guion.push_back({Averia::CeroIncumplido, 0, trama});
          Noches n(p);
          bien(n, cajas, 4);
          if (testing::Test::HasFailure()) return;
        }
}

// The power fails at any event of the night; a person restarts the program the same evening, with
// or without sales in between, or no one does.
TEST(Registros, ElCorteEnCualquierMomentoSeCuraEnLaNocheSiguiente) {
  for (const bool antes : {false, true})
    for (const int cajas : {1, 2}) {
      const qint64 eventos = Noches(planDe(9, cajas, antes, false)).eventos / 5;
      for (qint64 e = 1; e <= eventos; e += kRalo * (cajas == 1 ? 1 : 5)) {
        SCOPED_TRACE(QStringLiteral("%1 cajas, corte en %2 de %3, cero %4")
                         .arg(cajas)
                         .arg(e)
                         .arg(eventos)
                         .arg(antes ? u"antes" : u"después")
                         .toStdString());
        Plan p = planDe(static_cast<quint64>(e), cajas, antes, e % 2 == 0);
        Corte c;
        c.evento = e, c.segundos = 600;
        c.vuelve = e % 3 != 0;
        c.ventas = e % 3 == 1 ? 2 : 0;
        p.noches[1].cortes = {c};
        Noches n(p);
        // A reading that waits in the inbox is memorised before another is taken: one night more.
        bien(n, cajas, antes && !c.vuelve ? 4 : 3);
        if (testing::Test::HasFailure()) return;
      }
    }
}

}  // namespace tarvo::noches
