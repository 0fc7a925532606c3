// Keyboards. A stored text lists its keys in ascending order and may leave some out.
#include <limits>
#include <map>

#include "comm/maquinas/EscritorPieza.h"

namespace tarvo::maquinas {

using namespace Qt::StringLiterals;

namespace {

constexpr int kCodigoPlu = 0, kCodigoTara = 40, kCodigoTecla = 70, kCodigoTeclaNodal = 38;
constexpr int kSinFuncion = 999;
constexpr int kCabezaPlu = 3, kCabezaTara = 2, kCabezaTecla = 3, kCabezaTeclaNodal = 2;
constexpr int kArticulo = 7, kTara = 4, kFuncion = 3, kValorNodal = 6;

// The number at the head of a line, as far as it is one.
qint64 cabeza(QStringView linea, int ancho) {
  bool bien = false;
  const qint64 n = linea.left(ancho).toLongLong(&bien);
  return bien ? n : 0;
}

// A line's digits of its key and, after a separator, of its value, zeros after a short one.
// `corta`: as it is stored.
Pieza piezaDe(EscritorPieza e, const QString& corta, int enCabeza, int deValor) {
  const QString linea = corta.leftJustified(enCabeza + 1 + deValor, u'0');
  const QString valor = linea.mid(enCabeza + 1, deValor);
  const QString va = linea.first(enCabeza) + u':' + valor;
  QString escrito = corta;
  if (escrito.size() > enCabeza) escrito[enCabeza] = u':';
  if (escrito != va && escrito != QString(va + u':')) e.distinta(Causa::OtrasCifras, corta, va);
  return e.cifras(QStringView(linea).left(enCabeza)).cifras(valor).pieza();
}

// A direct PLU or tare, which may be without a value.
Pieza directo(EscritorPieza e, const QString& corta, int enCabeza, int deValor) {
  Pieza p = piezaDe(std::move(e), corta, enCabeza, deValor);
  if (corta.size() == enCabeza || corta.size() == enCabeza + 1) p.diferencias.clear();
  return p;
}

Pieza tecla(TipoGrupo tipo, int numero, const QString& corta) {
  return piezaDe({tipo, Asunto::Tecla, kCodigoTecla, numero}, corta, kCabezaTecla, kFuncion);
}

Pieza sinTecla(TipoGrupo tipo, int numero) {
  return EscritorPieza(tipo, Asunto::Tecla, kCodigoTecla, numero)
      .numero(numero, 3)
      .numero(kSinFuncion, 3)
      .pieza();
}

// "kk:L:vvvvvv". L: P for a direct PLU, T for a tare, N for neither, which is a tare of 0.
Pieza teclaNodal(int maquina, int numero, const QString& corta) {
  constexpr int kLetra = 3, kValor = 5;
  const QString linea = corta.leftJustified(kValor + kValorNodal, u'0');
  bool bien = false;
  const qint64 valor = QStringView(linea).mid(kValor).toLongLong(&bien);
  const qint64 suya = cabeza(linea, kCabezaTeclaNodal);
  const bool plu = linea[kLetra] == u'P';
  EscritorPieza e(TipoGrupo::Ebony, Asunto::Tecla, kCodigoTeclaNodal, numero);
  const QString suCabeza = QString::fromLatin1(Ceros(suya, kCabezaTeclaNodal));
  const QChar letra = linea[kLetra].toUpper();
  const bool igual = linea.startsWith(suCabeza) &&
                     (plu || letra == u'T' || (letra == u'N' && valor == 0)) &&
                     corta.mid(kValor).toLongLong() == valor;
  if (!igual)
    e.distinta(
        Causa::OtrasCifras, corta,
        suCabeza + (plu ? u":P:"_s : u":T:"_s) + QString::fromLatin1(Ceros(valor, kValorNodal)));
  e.numero(maquina, 2).numero(suya, 3);
  e.crudo(plu ? "00" : "01").numero(bien ? valor : -1, 5);
  return e.pieza();
}

Pieza sinTeclaNodal(int maquina, int numero) {
  return EscritorPieza(TipoGrupo::Ebony, Asunto::Tecla, kCodigoTeclaNodal, numero)
      .numero(maquina, 2)
      .numero(numero, 3)
      .crudo("0000000")
      .pieza();
}

// All key numbers in turn: a line is a key's if the number at its head isn't above it. Returns how
// many lines have had their turn.
template <class ConLinea, class SinLinea>
qsizetype repartir(int cuantas, int enCabeza, const QStringList& lineas, ConLinea con,
                   SinLinea sin) {
  qsizetype siguiente = 0;
  for (int numero = 1; numero <= cuantas; ++numero)
    if (siguiente < lineas.size() && cabeza(lineas[siguiente], enCabeza) <= numero)
      con(numero, lineas[siguiente++]);
    else
      sin(numero);
  return siguiente;
}

void teclas(TipoGrupo tipo, int maquina, int cuantas, const QString& texto, Piezas& salida) {
  const bool nodal = tipo == TipoGrupo::Ebony;
  repartir(
      cuantas, nodal ? kCabezaTeclaNodal : kCabezaTecla, lineasDe(texto),
      [&](int numero, const QString& linea) {
        salida.push_back(nodal ? teclaNodal(maquina, numero, linea) : tecla(tipo, numero, linea));
      },
      [&](int numero) {
        salida.push_back(nodal ? sinTeclaNodal(maquina, numero) : sinTecla(tipo, numero));
      });
}

// Of the lines of a text the first `van` are sent; `teclas`: as many are there.
void perdidas(Asunto asunto, const QString& texto, int enCabeza, qsizetype van, int teclas,
              Diferencias& salida) {
  QStringList lineas = todasLasLineasDe(texto);
  const auto suya = [&](const QString& linea) { return static_cast<int>(cabeza(linea, enCabeza)); };
  std::map<int, QString> ultimas;
  for (qsizetype i = van - 1; i >= 0; --i) {
    const auto [ultima, esNueva] = ultimas.emplace(suya(lineas[i]), lineas[i]);
    if (!esNueva && ultima->first > 0 && ultima->second != lineas[i])
      salida.push_back({asunto, ultima->first, Causa::TeclaRepetida, lineas[i], ultima->second});
  }
  while (lineas.size() > van && suya(lineas.last()) > teclas) lineas.removeLast();
  for (qsizetype i = van; i < lineas.size(); ++i)
    salida.push_back({asunto, suya(lineas[i]), Causa::LineaPerdida, lineas[i]});
}

}  // namespace

Piezas piezasDeTeclado(TipoGrupo tipo, int numero, int cuantas, const TextosDeTeclado& textos) {
  Piezas salida;
  if (tipo != TipoGrupo::Ebony) {
    const auto directos = [&](Asunto asunto, int codigo, const QString& texto, int enCabeza,
                              int deValor) {
      for (const QString& corta : lineasDe(texto)) {
        const QString suya = corta.leftJustified(enCabeza, u'0');
        salida.push_back(directo({tipo, asunto, codigo, static_cast<int>(cabeza(suya, enCabeza))},
                                 corta, enCabeza, deValor));
      }
    };
    directos(Asunto::PluDirecto, kCodigoPlu, textos.HARDPLU, kCabezaPlu, kArticulo);
    directos(Asunto::TaraDirecta, kCodigoTara, textos.TARASME, kCabezaTara, kTara);
  }
  teclas(tipo, numero, cuantas, textos.Teclado, salida);
  return salida;
}

Diferencias perdidasDeTeclado(TipoGrupo tipo, int cuantas, const TextosDeTeclado& textos) {
  constexpr int kTodas = std::numeric_limits<int>::max();
  const bool nodal = tipo == TipoGrupo::Ebony;
  Diferencias salida;
  if (!nodal) {
    perdidas(Asunto::PluDirecto, textos.HARDPLU, kCabezaPlu, lineasDe(textos.HARDPLU).size(),
             kTodas, salida);
    perdidas(Asunto::TaraDirecta, textos.TARASME, kCabezaTara, lineasDe(textos.TARASME).size(),
             kTodas, salida);
  }
  const int enCabeza = nodal ? kCabezaTeclaNodal : kCabezaTecla;
  const qsizetype van =
      repartir(cuantas, enCabeza, lineasDe(textos.Teclado), [](auto&&...) {}, [](int) {});
  perdidas(Asunto::Tecla, textos.Teclado, enCabeza, van, cuantas, salida);
  return salida;
}

}  // namespace tarvo::maquinas
