#include "dias/Ficha.h"

#include <cmath>

namespace tarvo::dias {

using noches::Lector, simulador::Tipo;

namespace {

QByteArray numero(qint64 n, int ancho) {
  return QByteArray::number(n).rightJustified(ancho, '0');
}

// Letters used by a seed's shop that the machines write in their own way; a letter missing from a
// machine is sent as the most similar one.
QByteArray letras(const QString& texto, Tipo tipo, bool lineas = false) {
  static const QString llanas = QStringLiteral("áÁàéÉíóÓúüÜªº¡´");
  static const char* const aLlanas = "aAaeEioOuuUao! ";
  QByteArray salida;
  for (const QChar c : texto) {
    const ushort u = c.unicode();
    if (const auto i = llanas.indexOf(c); i >= 0) {
      salida += aLlanas[i];
    } else if (u == 0x20AC) {
      salida += char(127);
    } else if (tipo == Tipo::Balanzas && QStringLiteral("ÑñÇç¿").contains(c)) {
      salida += "\\|}}]"[QStringLiteral("ÑñÇç¿").indexOf(c)];
    } else if (tipo == Tipo::Ebony && QStringLiteral("ÑñÇç¿").contains(c)) {
      salida += "[[Cc?"[QStringLiteral("ÑñÇç¿").indexOf(c)];
    } else if (tipo == Tipo::Birch && c == QChar(u'¿')) {
      salida += '?';
    } else if ((u >= 32 && u < 127) || (lineas && u == 13)) {
      salida += static_cast<char>(u);
    } else if ((tipo == Tipo::Birch || tipo == Tipo::Registradora) && u >= 0xA0 && u < 256) {
      salida += static_cast<char>(u);
    } else {
      salida += u == 0xE2 ? 'a' : u == 0xB7 ? '.' : '?';
    }
  }
  return salida;
}

struct Fila {
  qint64 codigo, cada, formato, barras, depto, tara, dias1, dias2, modificable, minimo, hasta1,
      hasta2;
  double descto;
  QString nombre, texto, prefijo;
  std::optional<QString> externo;
  std::array<qint64, 3> precios;
};

constexpr qint64 kTope[] = {1,      10,      100,      1000,      10000,
                            100000, 1000000, 10000000, 100000000, 1000000000};
bool cabe(qint64 n, int ancho) {
  return n >= 0 && n < kTope[ancho];
}

struct Lista {
  Ficha campos;
  QByteArray malo;  // the first field that does not fit
  void poner(const char* nombre, qint64 n, int ancho) {
    if (!cabe(n, ancho)) return mal(nombre);
    campos[nombre] = numero(n, ancho);
  }
  void texto(const char* nombre, const QByteArray& t, int ancho) {
    campos[nombre] = ancho < 0 ? t : t.leftJustified(ancho, ' ', true);
  }
  void mal(const char* nombre) {
    if (malo.isEmpty()) malo = nombre;
  }
};

Lista deBalanza(const Fila& f, Tipo tipo) {
  Lista l;
  l.texto("nombre", letras(f.nombre.left(20), tipo), 20);
  l.poner("codigo", f.codigo, 7);
  l.poner("precio0", f.precios[0], 6);
  l.poner("precio1", f.precios[1], 6);
  l.poner("precio2", f.precios[2], 6);
  l.poner("cada", f.cada, 1);
  l.poner("formato", f.formato, 2);
  l.campos["barras"] = QByteArray(1, static_cast<char>(22 + f.barras));
  l.campos["prefijo"] = f.prefijo.trimmed().toLatin1().rightJustified(7, '0');
  l.poner("depto", f.depto, 2);
  l.poner("tara", f.tara, 2);
  l.poner("dias1", f.dias1, 5);
  l.poner("dias2", f.dias2, 5);
  l.poner("modificable", f.modificable != 0, 1);
  l.poner("minimo", f.minimo, 6);
  l.poner("descto", static_cast<qint64>(f.descto) / 100, 2);
  l.poner("hasta1", f.hasta1, 5);
  l.poner("hasta2", f.hasta2, 5);
  l.texto(
      "texto",
      letras(QString(f.texto).replace(QStringLiteral("\r\n"), QStringLiteral("\r")), tipo, true),
      -1);
  return l;
}

Lista deEbony(const Fila& f) {
  Lista l;
  l.poner("codigo", f.codigo, 4);
  l.texto("nombre", letras(f.nombre.left(16), Tipo::Ebony), 16);
  l.poner("precio0", f.cada == 1 ? f.precios[0] * 10 : f.precios[0], 8);
  const bool suelto = f.modificable != 0;
  l.poner("modo", f.cada == 2 ? (suelto ? 4 : 2) : (suelto ? 3 : 1), 1);
  f.depto >= 1 ? l.poner("depto", f.depto - 1, 1) : l.mal("depto");
  return l;
}

Lista deRegistradora(const Fila& f, const QByteArray& barras) {
  Lista l;
  l.texto("barras", barras, 13);
  if (barras.size() > 13) l.mal("barras");
  l.texto("nombre", letras(f.nombre.left(20), Tipo::Registradora), 20);
  l.poner("precio0", f.precios[0], 9);
  l.poner("precio1", f.precios[1], 9);
  l.poner("depto", f.depto, 2);
  return l;
}

// The three prices of an article for a group: the offer's where one is in force.
std::array<qint64, 3> precios(Lector& base, const Grupo& g, qint64 codigo, double dia,
                              const std::array<qint64, 3>& normales) {
  std::array<qint64, 3> p = normales;
  base.filas(
      "SELECT PRECIO_0, PRECIO_1, PRECIO_2, ifnull(FECHA_INI, -1), ifnull(FECHA_FIN, -1), borrado "
      "FROM OFERTAS "
      "WHERE GRUPO=" +
          numero(g.codigo, 1) + " AND SECCION=" + numero(g.seccion, 1) +
          " AND CODIGO=" + numero(codigo, 1),
      [&](const Lector::Fila& f) {
        const double desde = f.real(3), hasta = f.real(4);
        if (f.entero(5) != 0) return;
        if (desde >= 0 && dia < std::floor(desde)) return;
        if (hasta >= 0 && dia >= std::floor(hasta) + 1) return;
        p = {f.entero(0), f.entero(1), f.entero(2)};
      });
  return p;
}

}  // namespace

Esperado esperado(Lector& base, const Grupo& g, double dia) {
  Esperado salida;
  std::vector<Fila> filas;
  const QByteArray t = numero(g.tarifa, 1);
  base.filas(
      "SELECT CODPLU, CADA, FORMATO, BARRAS, DEPTO, ifnull(Tara, 1), ifnull(NUMDIAS_1, 0), "
      "ifnull(NUMDIAS_2, 0), "
      "MDF_PRE, minimo, HASTA_1, HASTA_2, DESCTO, NOMPLU, ifnull(TEXTO_ETQ, ''), PFX_BAR, "
      "CodBarExt, "
      "CodBarExt IS NULL, PRECIO_0" +
          t + ", PRECIO_1" + t + ", PRECIO_2" + t +
          " FROM PLUSES WHERE CODPLU > 2 AND SECCION=" + numero(g.seccion, 1),
      [&](const Lector::Fila& f) {
        Fila a;
        qint64* const enteros[] = {&a.codigo,      &a.cada,   &a.formato, &a.barras,
                                   &a.depto,       &a.tara,   &a.dias1,   &a.dias2,
                                   &a.modificable, &a.minimo, &a.hasta1,  &a.hasta2};
        for (int i = 0; i < 12; ++i) *enteros[i] = f.entero(i);
        a.descto = f.real(12);
        a.nombre = QString::fromUtf8(f.texto(13));
        a.texto = QString::fromUtf8(f.texto(14));
        a.prefijo = QString::fromUtf8(f.texto(15));
        if (f.entero(17) == 0) a.externo = QString::fromUtf8(f.texto(16));
        a.precios = {f.entero(18), f.entero(19), f.entero(20)};
        filas.push_back(a);
      });
  for (Fila& f : filas) {
    f.precios = precios(base, g, f.codigo, dia, f.precios);
    const QByteArray barras =
        f.externo ? f.externo->toLatin1()
                  : f.prefijo.trimmed().toLatin1().rightJustified(7, '0') + numero(f.codigo, 6);
    const Lista l = g.tipo == Tipo::Ebony          ? deEbony(f)
                    : g.tipo == Tipo::Registradora ? deRegistradora(f, barras)
                                                   : deBalanza(f, g.tipo);
    if (l.malo.isEmpty())
      salida.caben[f.codigo] = l.campos;
    else
      salida.fuera[f.codigo] = l.malo;
    salida.barras[f.codigo] = barras;
  }
  return salida;
}

std::optional<Ficha> leida(const Grupo& g, const QByteArray& r) {
  struct Campo {
    const char* nombre;
    int desde, ancho;
  };
  static const std::vector<Campo> balanza{
      {"nombre", 0, 20},  {"codigo", 20, 7}, {"precio0", 27, 6}, {"cada", 33, 1},
      {"formato", 34, 2}, {"barras", 36, 1}, {"prefijo", 37, 7}, {"depto", 44, 2},
      {"tara", 46, 2},    {"dias1", 48, 5},  {"dias2", 53, 5},   {"modificable", 58, 1},
      {"minimo", 59, 6},  {"descto", 65, 2}, {"hasta1", 67, 5},  {"precio1", 72, 6},
      {"hasta2", 78, 5},  {"precio2", 83, 6}};
  static const std::vector<Campo> ebony{
      {"codigo", 2, 4}, {"nombre", 6, 16}, {"precio0", 22, 8}, {"modo", 30, 1}, {"depto", 31, 1}};
  static const std::vector<Campo> caja{{"barras", 0, 13},
                                       {"nombre", 13, 20},
                                       {"precio0", 33, 9},
                                       {"precio1", 42, 9},
                                       {"depto", 51, 2}};
  const auto& campos = g.vek() ? balanza : g.tipo == Tipo::Ebony ? ebony : caja;
  const int largo = g.vek() ? 90 : g.tipo == Tipo::Ebony ? 32 : 53;
  if (r.size() < largo || (!g.vek() && r.size() != largo)) return std::nullopt;
  Ficha f;
  for (const Campo& c : campos) f[c.nombre] = r.mid(c.desde, c.ancho);
  if (!g.vek()) return f;
  if (r.back() != char(19)) return std::nullopt;
  f["texto"] = r.mid(89, r.size() - 90);
  return f;
}

QString diferencias(const Ficha& esperada, const Ficha& leida) {
  QStringList salida;
  for (const auto& [campo, valor] : esperada) {
    const auto it = leida.find(campo);
    const QByteArray hay = it == leida.end() ? QByteArray("(nada)") : it->second;
    if (hay != valor)
      salida +=
          QStringLiteral("%1 «%2» y debe ser «%3»")
              .arg(QLatin1String(campo), QString::fromLatin1(hay), QString::fromLatin1(valor));
  }
  return salida.join(QStringLiteral(", "));
}

}  // namespace tarvo::dias
