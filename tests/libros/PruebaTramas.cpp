// A register's zeroing that breaks off at each of its frames, whichever kinds of total each frame
// clears: each sale is in the periods once, or the group waits for an answer that makes it so.
#include <gtest/gtest.h>

#include "libros/TiendaDeLibros.h"
#include "totals/libros/Dudas.h"

namespace tarvo::prueba {

namespace {

constexpr std::array kClases{TipoTotal::PLUs, TipoTotal::GranTotal, TipoTotal::Departamentos};
constexpr int kArticulos = 12;

using Reparto = std::array<int, 3>;  // the frame that clears each of kClases

// Every way in which three frames may clear three kinds, but for one frame that clears them all.
std::vector<Reparto> repartos() {
  std::vector<Reparto> todos;
  todos.reserve(24);
  for (int a = 1; a <= 3; ++a)
    for (int b = 1; b <= 3; ++b)
      for (int c = 1; c <= 3; ++c)
        if (a != b || b != c) todos.push_back({a, b, c});
  return todos;
}

struct Corte {
  int muere;           // the frame whose answer nobody noted
  bool obedecida;      // that frame arrived
  bool vendeLaOtra;    // the second register had sales
  int despues;         // sales of the first one after it
  int minutos;         // until the next reading
  bool olvido = true;  // the answer to all doubts
};

// A shop with a group of two registers for each way.
class NocheCortada {
 public:
  explicit NocheCortada(const Corte& c) : t(Fecha::de(QDate(2026, 11, 23), QTime(21, 0))) {
    for (size_t i = 0; i < cuales.size(); ++i) t.grupo(grupo(i), {1, 2}, 3);
    t.desdeCero();
    t.masTarde(21 * 60);
    for (size_t i = 0; i < cuales.size(); ++i) {
      vender(grupo(i), 1, kArticulos);
      vender(grupo(i), 2, c.vendeLaOtra ? 3 : 0);
    }
    leerYMemorizar();
    for (size_t i = 0; i < cuales.size(); ++i) borrar(i, c);
    t.cortar();
    for (size_t i = 0; i < cuales.size(); ++i) vender(grupo(i), 1, c.despues, 7);
    t.masTarde(c.minutos);
    leerYMemorizar();
    for (const auto& d : bien(totals::dudasAbiertas(t.db()))) {
      preguntados.insert(d.grupo);
      t.responder(d.grupo, d.addr, c.olvido);
    }
    for (size_t i = 0; i < cuales.size(); ++i)
      if (contada(grupo(i)) && t.ponerACero(grupo(i))) bienContados.insert(grupo(i));
    for (size_t i = 0; i < cuales.size(); ++i)
      for (const int addr : {1, 2}) vender(grupo(i), addr, 5, 3);
    t.masTarde(24 * 60);
    leerYMemorizar();
    for (size_t i = 0; i < cuales.size(); ++i)
      if (!contada(grupo(i)) || !t.ponerACero(grupo(i))) bienContados.erase(grupo(i));
  }

  static int grupo(size_t i) { return static_cast<int>(i) + 1; }
  std::string texto(int g) const {
    std::string s;
    for (const TipoTotal k : kClases)
      s += "clase " + std::to_string(numeroDe(k)) + ": " + std::to_string(t.enPeriodos(g, k).IMP) +
           " de " + std::to_string(t.vendido(g).IMP) + '\n';
    for (const auto& a : t.avisos)
      if (a.grupo == g) s += a.texto.toStdString() + '\n';
    return s;
  }

  const std::vector<Reparto> cuales = repartos();
  std::set<int> preguntados, bienContados;

 private:
  void vender(int g, int addr, int ventas, int mas = 0) {
    for (int n = 0; n < ventas; ++n)
      t.grupos.at(g).at(addr).vender(3 + n % kArticulos, 100 * (3 + n % kArticulos) + mas, 0);
  }
  void leerYMemorizar() {
    for (size_t i = 0; i < cuales.size(); ++i) t.leer(grupo(i));
    t.memorizar();
  }
  void borrar(size_t i, const Corte& c) {
    for (int trama = 1; trama <= c.muere; ++trama) {
      bien(t.sesion().anunciarCero(grupo(i), 1, trama));
      for (size_t k = 0; k < kClases.size(); ++k)
        if (cuales[i][k] == trama && (trama < c.muere || c.obedecida))
          t.grupos.at(grupo(i)).at(1).de(kClases[k]).clear();
      if (trama < c.muere) bien(t.sesion().parteHecha(grupo(i), 1, trama));
    }
  }
  bool contada(int g) const {
    return std::ranges::all_of(kClases, [this, g](TipoTotal k) {
      const auto hay = t.enPeriodos(g, k), vendido = t.vendido(g);
      return hay.CON == vendido.CON && hay.IMP == vendido.IMP;
    });
  }

  TiendaDeLibros t;
};

void comprobar(Corte c) {
  SCOPED_TRACE(testing::Message() << "muere en " << c.muere << ", obedecida " << c.obedecida
                                  << ", vende la otra " << c.vendeLaOtra << ", después "
                                  << c.despues << ", minutos " << c.minutos);
  const NocheCortada si(c);
  c.olvido = false;
  const std::unique_ptr<NocheCortada> no(
      si.preguntados.empty() ? nullptr : std::make_unique<NocheCortada>(c));
  for (size_t i = 0; i < si.cuales.size(); ++i) {
    const int g = NocheCortada::grupo(i);
    const auto& r = si.cuales[i];
    EXPECT_TRUE(si.bienContados.contains(g) || (no && no->bienContados.contains(g)))
        << "tramas " << r[0] << r[1] << r[2] << (si.preguntados.contains(g) ? " preguntado" : "")
        << '\n'
        << si.texto(g) << (no ? no->texto(g) : "");
  }
}

}  // namespace

class ConTramas : public testing::TestWithParam<int> {};

TEST_P(ConTramas, BorrenLoQueBorrenCadaVentaEstaUnaVez) {
  for (const bool obedecida : {true, false})
    for (const bool otra : {false, true})
      for (const auto& [despues, minutos] :
           {std::pair{0, 30}, {5, 30}, {12, 30}, {30, 30}, {12, 24 * 60}})
        comprobar({GetParam(), obedecida, otra, despues, minutos});
}

INSTANTIATE_TEST_SUITE_P(Muere, ConTramas, testing::Values(1, 2, 3));

}  // namespace tarvo::prueba
