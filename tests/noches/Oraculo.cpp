#include "noches/Oraculo.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace tarvo::noches {

using simulador::Tipo, simulador::Venta;

namespace {

struct Tabla {
  int clase;
  const char* nombre;
  const char* sesion;
  int conjunto;
  bool hora;
};
constexpr Tabla kTablas[] = {
    {kPLUs, "TOTPLU", "SS_PLU", simulador::kArticulos, false},
    {kGranTotal, "TOTGRT", "SS_GRT", simulador::kTotales | simulador::kSoloGranTotal, false},
    {kOperadores, "TOTOPE", "SS_OPE", simulador::kPersonal, false},
    {kDepartamentos, "TOTDEP", "SS_DEP", simulador::kTotales | simulador::kSoloDepartamentos,
     false},
    {kHorario, "TOTHOR", "SS_HOR", simulador::kPersonal, false},
    {kOperHora, "TOTOPHOR", "SS_OPH", simulador::kPersonal, true}};

const Tabla& tabla(int clase) {
  return kTablas[clase - kPLUs];
}

// A kind of machine's figures for a sale in each kind of total.
Suma carga(Tipo tipo, int clase, const Venta& v) {
  const bool vek = tipo == Tipo::Balanzas || tipo == Tipo::Birch;
  bool pes = tipo != Tipo::Registradora && !(vek && clase == kOperadores), sco = false;
  if (clase == kPLUs) sco = vek;
  if (clase == kGranTotal) sco = tipo == Tipo::Birch || tipo == Tipo::Ebony;
  if (clase == kOperadores) sco = true;
  if (clase == kDepartamentos) sco = tipo == Tipo::Ebony;
  return {v.cuenta, pes ? v.peso : 0, v.importe, sco ? v.descuento : 0};
}

// The code and hour of the sale in that total.
std::pair<qint64, qint64> clave(const PlanGrupo& g, int clase, const Venta& v) {
  const auto operador = [&] {
    return qint64{g.operadores[static_cast<std::size_t>(v.operador - 1)]};
  };
  switch (clase) {
    case kPLUs:
      return {v.articulo, 0};
    case kGranTotal:
      return {g.codigo, 0};
    case kOperadores:
      return {operador(), 0};
    case kDepartamentos:
      return {v.departamento, 0};
    case kHorario:
      return {v.hora, 0};
    default:
      return {operador(), v.hora};
  }
}

void sumar(Suma& a, const Suma& b, qint64 veces = 1) {
  for (std::size_t i = 0; i < a.size(); ++i) a[i] += veces * b[i];
}

void sumar(Sumas& a, const Sumas& b, qint64 veces) {
  for (const auto& [k, v] : b) sumar(a[k], v, veces);
}

QString texto(const Suma& s) {
  return QStringLiteral("(%1 con, %2 g, %3, %4)").arg(s[0]).arg(s[1]).arg(s[2]).arg(s[3]);
}

QString texto(int clase, qint64 codigo, qint64 hora) {
  return QStringLiteral("clase %1 código %2 hora %3").arg(clase).arg(codigo).arg(hora);
}

// Some prefix of each machine's sales, not below its minimum length, adds up to `hay`.
bool alcanza(const std::vector<std::vector<Suma>>& p, std::size_t i, const Suma& hay) {
  if (i == p.size()) return hay == Suma{};
  for (const Suma& s : p[i]) {
    Suma resto = hay;
    sumar(resto, s, -1);
    if (alcanza(p, i + 1, resto)) return true;
  }
  return false;
}

}  // namespace

Oraculo::Oraculo(const Plan& plan, std::vector<MaquinaViva>& maquinas, const QString& carpeta)
    : plan_(plan),
      maquinas_(maquinas),
      carpeta_(carpeta),
      base_(carpeta + QStringLiteral("/TARVO.MDB")) {}

qint64 Oraculo::familia(qint64 codigo) const {
  const auto it = familias_.find(codigo);
  return it == familias_.end() ? codigo : it->second;
}

std::array<qint64, 3> Oraculo::clave(int clase, qint64 grupo, qint64 codigo, qint64 hora) const {
  return {familia(grupo), clase == kGranTotal ? familia(codigo) : codigo, hora};
}

void Oraculo::otroCodigo(int antes, int ahora) {
  const qint64 suya = familia(antes);
  familias_[ahora] = suya;
  if (const auto n = descuadrados_.extract(antes)) descuadrados_.insert(ahora);
}

// Rows of the periods, less those of periods added into them: of existing ones and of replaced
// versions.
Sumas Oraculo::enPeriodos(int clase, const char* cuales) {
  const Tabla& t = tabla(clase);
  const QByteArray codigo = "CODI", hora = t.hora ? "HORA" : "0";
  const QByteArray que = ", SUM(CON), SUM(PES), SUM(IMP), SUM(SCO) FROM ",
                   porGrupo = " GROUP BY 1, 2, 3";
  Sumas s;
  const auto leer = [&](const QByteArray& sql, qint64 veces) {
    base_.filas(sql, [&](const Lector::Fila& f) {
      sumar(s[this->clave(clase, f.entero(0), f.entero(1), f.entero(2))],
            {f.entero(3), f.entero(4), f.entero(5), f.entero(6)}, veces);
    });
  };
  leer("SELECT GRUPO, " + codigo + ", " + hora + que + t.nombre +
           " t JOIN COLUMNA p ON p.LINK=t.LINK WHERE " + cuales + porGrupo,
       1);
  for (const QByteArray k : {"2", "3", "4"}) {
    const QByteArray dentro = " JOIN COLUMNA p ON p.TIPO=" + k +
                              " AND p.FECHA1<=d.FECHA1 AND p.FECHAF>=d.FECHAF WHERE d.ACUM" + k +
                              "<>0 AND " + cuales;
    leer("SELECT GRUPO, " + codigo + ", " + hora + que + t.nombre +
             " t JOIN COLUMNA d ON d.LINK=t.LINK" + dentro + porGrupo,
         -1);
    leer("SELECT GRUPO, " + codigo + ", HORA" + que +
             "TotSusti t JOIN Sustituidos d ON d.ID=t.ID AND CLASE=" + QByteArray::number(clase) +
             dentro + porGrupo,
         -1);
  }
  return s;
}

Oraculo::Bandeja Oraculo::enBandeja(int clase, bool conDudas) {
  const Tabla& t = tabla(clase);
  const QByteArray codigo = "t.CODI", hora = t.hora ? "t.HORA" : "0";
  Bandeja b;
  base_.filas(
      QByteArray(
          "SELECT CODGPO FROM Sesiones, EstadoTarvo WHERE CLAVE='SesionAbier' AND VALOR=2 AND ") +
          t.sesion + "<>0",
      [&](const Lector::Fila& f) { b.grupos.insert(f.entero(0)); });
  if (conDudas)
    base_.filas("SELECT GRUPO FROM Dudas WHERE ','||CLASES||',' LIKE '%," +
                    QByteArray::number(clase) + ",%'",
                [&](const Lector::Fila& f) { b.grupos.insert(f.entero(0)); });
  const auto leer = [&](Sumas& s, const QByteArray& sql) {
    base_.filas("SELECT GRUPO, " + codigo + ", " + hora + ", CON, PES, IMP, SCO FROM " + sql,
                [&](const Lector::Fila& f) {
                  sumar(s[this->clave(clase, f.entero(0), f.entero(1), f.entero(2))],
                        {f.entero(3), f.entero(4), f.entero(5), f.entero(6)});
                });
  };
  leer(b.filas, QByteArray(t.nombre) + " t WHERE LINK=0");
  base_.filas("SELECT DISTINCT ADDR FROM BaseFilas WHERE CLASE=" + QByteArray::number(clase),
              [&](const Lector::Fila& f) { b.base[f.entero(0)]; });
  for (auto& [addr, filas] : b.base)
    leer(filas, "BaseFilas t WHERE CLASE=" + QByteArray::number(clase) +
                    " AND ADDR=" + QByteArray::number(addr));
  return b;
}

std::map<std::array<qint64, 3>, Oraculo::Prefijos> Oraculo::prefijos(
    int grupo, int clase, const std::vector<std::size_t>& minimos) const {
  std::map<std::array<qint64, 3>, Prefijos> p;
  const qint64 suya = familia(grupo);
  const auto esSuya = [&](const MaquinaViva& m) { return familia(m.grupo->codigo) == suya; };
  const auto cuantas = static_cast<std::size_t>(std::ranges::count_if(maquinas_, esSuya));
  const auto de = [&](const std::array<qint64, 3>& k, std::size_t n) -> std::vector<Suma>& {
    return p.try_emplace(k, cuantas, std::vector<Suma>{Suma{}}).first->second[n];
  };
  for (std::size_t i = 0, n = 0; i < maquinas_.size(); ++i) {
    const MaquinaViva& m = maquinas_[i];
    if (!esSuya(m)) continue;
    const auto fija = m.contado.find(clase);
    if (m.fuera && fija != m.contado.end())
      for (const auto& [k, sumas] : fija->second) de(k, n) = sumas;
    const auto& libro = m.maquina->memoria().libro();
    for (std::size_t v = 0; !m.fuera && v < libro.size(); ++v) {
      const auto [codigo, hora] = noches::clave(*m.grupo, clase, libro[v]);
      auto& suyos = de(clave(clase, m.grupo->codigo, codigo, hora), n);
      Suma s = suyos.back();
      sumar(s, carga(m.grupo->tipo, clase, libro[v]));
      v < minimos[i] ? static_cast<void>(suyos.back() = s) : suyos.push_back(s);
    }
    ++n;
  }
  return p;
}

std::optional<QString> Oraculo::encaja(int grupo, int clase,
                                       const std::vector<std::size_t>& minimos,
                                       const Sumas& hay) const {
  const auto todos = prefijos(grupo, clase, minimos);
  for (const auto& [k, v] : hay)
    if (k[0] == familia(grupo) && v != Suma{} && !todos.contains(k))
      return texto(clase, k[1], k[2]) + QStringLiteral(": hay %1 y nadie lo vendió").arg(texto(v));
  for (const auto& [k, p] : todos) {
    const auto it = hay.find(k);
    const Suma s = it == hay.end() ? Suma{} : it->second;
    if (alcanza(p, 0, s)) continue;
    Suma desde{}, hasta{};
    for (const auto& m : p) sumar(desde, m.front()), sumar(hasta, m.back());
    return texto(clase, k[1], k[2]) + QStringLiteral(": hay %1, se esperaba de %2 a %3")
                                          .arg(texto(s), texto(desde), texto(hasta));
  }
  return std::nullopt;
}

// How many of each machine's sales must be counted: those wiped, or all those made when the night
// began.
std::vector<std::size_t> Oraculo::minimos(int clase, bool todo) const {
  std::vector<std::size_t> v;
  for (const auto& m : maquinas_) {
    std::size_t n = todo ? m.alEmpezar : 0;
    for (const auto& p : m.maquina->memoria().puestas())
      if (p.conjuntos & tabla(clase).conjunto) n = std::max(n, p.ventas);
    v.push_back(n);
  }
  return v;
}

// What the periods would have with the group's reading of the open session. Which machines still
// held the memorised sales shows when the reading is memorised.
std::vector<Sumas> Oraculo::conLaBandeja(int grupo, int clase, bool conDudas) {
  const Bandeja b = enBandeja(clase, conDudas);
  if (!b.grupos.contains(grupo)) return {};
  std::vector<Sumas> todas{enPeriodos(clase)};
  sumar(todas[0], b.filas, 1);
  Sumas sinBase = todas[0];
  for (const auto& [addr, filas] : b.base) {
    todas.push_back(todas[0]);
    sumar(todas.back(), filas, -1);
    sumar(sinBase, filas, -1);
  }
  todas.push_back(std::move(sinBase));
  return todas;
}

void Oraculo::contado(int grupo, int clase, const std::vector<std::size_t>& minimo, bool conBandeja,
                      const QString& cuando) {
  const auto mal = encaja(grupo, clase, minimo, enPeriodos(clase));
  if (!mal) return;
  const auto otras = conBandeja ? conLaBandeja(grupo, clase) : std::vector<Sumas>{};
  if (std::ranges::any_of(otras, [&](const Sumas& s) { return !encaja(grupo, clase, minimo, s); }))
    return;
  anotar(QStringLiteral("%1: grupo %2 (tipo %3), %4%5")
             .arg(cuando)
             .arg(grupo)
             .arg([&] {
               for (const auto& g : plan_.grupos)
                 if (g.codigo == grupo) return static_cast<int>(g.tipo);
               return 0;
             }())
             .arg(*mal, otras.empty() ? QString() : QStringLiteral(" (con bandeja)")));
}

void Oraculo::seVan(const std::vector<std::size_t>& cuales, bool conBandeja) {
  const int grupo = maquinas_[cuales.front()].grupo->codigo;
  for (const auto& [suyo, clase] : plan_.leidas) {
    if (suyo != grupo || clase > kOperHora) continue;
    const auto minimo = minimos(clase, false);
    auto posibles = conBandeja ? conLaBandeja(grupo, clase, true) : std::vector<Sumas>{};
    posibles.push_back(enPeriodos(clase));
    const auto hay = std::ranges::find_if(
        posibles, [&](const Sumas& s) { return !encaja(grupo, clase, minimo, s); });
    if (hay == posibles.end())
      return contado(grupo, clase, minimo, conBandeja, QStringLiteral("antes de irse"));
    std::vector<std::size_t> suyas;  // as prefijos() counts them
    for (std::size_t i = 0; i < maquinas_.size(); ++i)
      if (familia(maquinas_[i].grupo->codigo) == familia(grupo)) suyas.push_back(i);
    for (const auto& [k, p] : prefijos(grupo, clase, minimo))
      for (std::size_t i = 0; i < suyas.size(); ++i) {
        if (std::ranges::find(cuales, suyas[i]) == cuales.end()) continue;
        Prefijos conEsta = p;
        for (const Suma& s : p[i]) {
          conEsta[i] = {s};
          if (alcanza(conEsta, 0, (*hay)[k])) maquinas_[suyas[i]].contado[clase][k].push_back(s);
        }
      }
  }
  for (const std::size_t i : cuales) {
    maquinas_[i].fuera = true;
    maquinas_[i].puestas = maquinas_[i].maquina->memoria().puestas().size();
  }
}

void Oraculo::puestaACero(std::size_t maquina) {
  const auto& m = maquinas_[maquina];
  const int conjuntos = m.maquina->memoria().puestas().back().conjuntos;
  for (const auto& [grupo, clase] : plan_.leidas)
    if (grupo == m.grupo->codigo && clase <= kOperHora && (tabla(clase).conjunto & conjuntos))
      contado(grupo, clase, minimos(clase, false), true, QStringLiteral("puesta a cero"));
}

// A group known not to foot is reported and not zeroed: the errors of that reading stay in its
// period until all its kinds have been read whole, perhaps some nights later.
void Oraculo::grupos(bool todo, const QString& cuando) {
  base_.filas("SELECT GRUPO, MAX(ESTADO=4), MAX(ESTADO<>2) FROM Lecturas GROUP BY GRUPO",
              [&](const Lector::Fila& f) {
                if (f.entero(1) != 0)
                  descuadrados_.insert(f.entero(0));
                else if (f.entero(2) == 0)
                  descuadrados_.erase(f.entero(0));
              });
  std::set<qint64> preguntados;  // their reading waits for a person
  base_.filas("SELECT GRUPO FROM Dudas WHERE RESPUESTA IS NULL",
              [&](const Lector::Fila& f) { preguntados.insert(f.entero(0)); });
  for (const auto& [grupo, clase] : plan_.leidas) {
    const bool todas = todo && !preguntados.contains(grupo);
    if (clase <= kOperHora && (todas || !descuadrados_.contains(grupo)))
      contado(grupo, clase, minimos(clase, todas), !todas, cuando);
  }
}

void Oraculo::listaOlvidada(std::size_t maquina) {
  documentos(QStringLiteral("lista olvidada, grupo %1").arg(maquinas_[maquina].grupo->codigo));
}

void Oraculo::documentos(const QString& cuando) {
  std::map<std::array<qint64, 2>, int> hay;
  int lista = 0;
  for (const QByteArray que : {"PEDI_LIN", "INVE_LIN"}) {
    base_.filas("SELECT PESO FROM " + que,
                [&](const Lector::Fila& f) { ++hay[{lista, f.entero(0)}]; });
    ++lista;
  }
  for (const auto& m : maquinas_)
    for (const auto& l : m.lineas) {
      const int n = hay[{l.lista == simulador::Lista::Pedidos ? 0 : 1, l.peso}];
      if (n > 1 || (l.olvidada && n != 1))
        anotar(QStringLiteral("%1: grupo %2, la línea %3 de %4 está %5 veces")
                   .arg(cuando)
                   .arg(m.grupo->codigo)
                   .arg(l.peso)
                   .arg(l.lista == simulador::Lista::Pedidos ? u"pedido" : u"inventario")
                   .arg(n));
    }
}

// A week that only sums its days has no rows of its own.
void Oraculo::semanas() {
  for (const Tabla& t : kTablas)
    for (const auto& [k, v] : enPeriodos(t.clase, "p.stkABLE=0 AND p.TIPO IN (2, 3, 4)"))
      if (v != Suma{}) {
        anotar(QStringLiteral("semana: %1 grupo %2 código %3: sobra %4")
                   .arg(QLatin1String(t.nombre))
                   .arg(k[0])
                   .arg(k[1])
                   .arg(texto(v)));
        break;
      }
}

void Oraculo::stock() {
  std::map<std::array<qint64, 2>, qint64> debe;  // warehouse, article
  base_.filas("SELECT CODGPO, Almacen FROM GRUPOS",
              [&](const Lector::Fila& f) { almacenes_[familia(f.entero(0))] = f.entero(1); });
  Sumas s = enPeriodos(kPLUs, "p.stkADO<>0");
  base_.filas(
      "SELECT GRUPO, CODI, SUM(CON*stkADO), SUM(PES*stkADO) FROM TotSusti t JOIN Sustituidos d ON "
      "d.ID=t.ID WHERE CLASE=16 GROUP BY 1, 2",
      [&](const Lector::Fila& f) {
        sumar(s[clave(kPLUs, f.entero(0), f.entero(1), 0)], {f.entero(2), f.entero(3), 0, 0});
      });
  for (const auto& [k, v] : s) {
    const auto a = plan_.articulos.find(static_cast<int>(k[1]));
    if (almacenes_[k[0]] > 0 && a != plan_.articulos.end())
      debe[{almacenes_[k[0]], k[1]}] += a->second.unidad == 2 ? v[0] : v[1];
  }
  base_.filas("SELECT CODALM, CODIGO, Venta FROM MovsAlm",
              [&](const Lector::Fila& f) { debe[{f.entero(0), f.entero(1)}] -= f.entero(2); });
  for (const auto& [k, v] : debe)
    if (v != 0)
      return anotar(QStringLiteral("stock: almacén %1 artículo %2: falta descontar %3")
                        .arg(k[0])
                        .arg(k[1])
                        .arg(v));
  base_.filas("SELECT LINK, stkADO FROM COLUMNA WHERE stkADO NOT IN (0, 1)",
              [&](const Lector::Fila& f) {
                anotar(QStringLiteral("stock: periodo %1 descontado %2 veces")
                           .arg(f.entero(0))
                           .arg(f.entero(1)));
              });
}

// The view of a person who adds up the tickets: with the reading that waits for an answer, or with
// its excess over the memorised one, the periods hold all the group's sales.
std::set<int> Oraculo::borradas(int grupo, const std::vector<int>& dudosas) {
  const qint64 suya = familia(grupo);
  const auto suma = [&](const Sumas& s) {
    qint64 n = 0;
    for (const auto& [k, v] : s) n += k[0] == suya ? v[2] : 0;
    return n;
  };
  qint64 sobra = suma(enPeriodos(kGranTotal));  // what the books hold beyond what was sold
  const Bandeja b = enBandeja(kGranTotal);
  sobra += suma(b.filas);
  for (const auto& m : maquinas_) {
    if (familia(m.grupo->codigo) != suya) continue;
    const auto contado = m.contado.find(kGranTotal);
    if (m.fuera && contado != m.contado.end())
      for (const auto& [k, sumas] : contado->second) sobra -= sumas.back()[2];
    for (std::size_t i = 0; !m.fuera && i < m.alEmpezar; ++i)
      sobra -= m.maquina->memoria().libro()[i].importe;
  }
  std::map<qint64, qint64> base;
  for (const auto& [addr, filas] : b.base) base[addr] += suma(filas);
  base_.filas("SELECT ADDR, SUM(IMP) FROM CeroFilas WHERE CLASE=17 AND GRUPO=" +
                  QByteArray::number(grupo) + " GROUP BY 1",
              [&](const Lector::Fila& f) { base[f.entero(0)] += f.entero(1); });
  for (const auto& [addr, importe] : base)
    if (std::ranges::find(dudosas, addr) == dudosas.end()) sobra -= importe;  // known to hold it
  // Of all ways in which they may have kept or forgotten it, the one with which the books agree.
  std::set<int> mejor;
  qint64 menos = std::numeric_limits<qint64>::max();
  for (std::size_t cual = 0; cual < std::size_t{1} << dudosas.size(); ++cual) {
    std::set<int> fuera;
    qint64 resto = sobra;
    for (std::size_t i = 0; i < dudosas.size(); ++i)
      if ((cual >> i & 1U) != 0)
        fuera.insert(dudosas[i]);
      else
        resto -= base[dudosas[i]];
    if (std::abs(resto) < menos) menos = std::abs(resto), mejor = fuera;
  }
  return mejor;
}

void Oraculo::finDeNoche(std::optional<int> resultado, bool calma, int arranques) {
  const QString cuando = resultado == 0 ? QStringLiteral("noche con resultado 0")
                         : calma        ? QStringLiteral("noche en calma")
                                        : QStringLiteral("fin de noche");
  grupos(calma || resultado == 0, cuando);
  documentos(cuando);
  semanas();
  stock();
  if (base_.uno("SELECT count(*) FROM TOTGRT WHERE CODI<>GRUPO") > 0)
    anotar(cuando + QStringLiteral(": un gran total con el código de otro grupo"));
  exportados(arranques, resultado == 0 && plan_.exporta);
  if (resultado != 0) return;
  for (const auto& m : maquinas_)
    if (!m.fuera && plan_.aCero.contains(m.grupo->codigo) && !m.incumple &&
        m.maquina->memoria().puestas().size() == m.puestasAlEmpezar)
      anotar(cuando + QStringLiteral(": el grupo %1 no se puso a cero").arg(m.grupo->codigo));
  if (plan_.descuenta && base_.uno("SELECT count(*) FROM COLUMNA WHERE stkABLE<>0 AND stkADO=0 AND "
                                   "LINK IN (SELECT LINK FROM Lecturas)") > 0)
    anotar(cuando + QStringLiteral(": hay un periodo sin descontar del stock"));
}

}  // namespace tarvo::noches
