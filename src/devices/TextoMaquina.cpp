// The clipboard form of a machine: blocks ended by "||" CR LF, items inside a block ended by "|" CR
// LF.
#include "core/textos/Textos.h"
#include "devices/Maquina.h"

namespace tarvo::devices {

namespace {

const QString kFinBloque = QStringLiteral("||\r\n");
const QString kFinItem = QStringLiteral("|\r\n");
const QString kMarcaBalanza = QStringLiteral("[THIS IS A SCALE]\r\n");
const QString kMarcaRegistradora = QStringLiteral("[THIS IS AN ECR]\r\n");

// Takes the blocks of a text one by one. `falta` is set once a requested block is missing or
// incomplete.
class Bloques {
 public:
  explicit Bloques(QStringView texto) : texto_(texto) {}
  QStringView bloque() {
    const qsizetype fin = texto_.indexOf(kFinBloque);
    falta = falta || fin < 0;
    if (falta) return {};
    const QStringView b = texto_.left(fin);
    texto_ = texto_.mid(fin + kFinBloque.size());
    return b;
  }
  QList<QStringView> items(qsizetype cuantos) {
    auto partes = bloque().split(kFinItem);
    falta = falta || partes.size() != cuantos;
    partes.resize(cuantos);
    return partes;
  }
  qint64 numero() { return bloque().toLongLong(); }
  QStringView resto() const { return texto_; }
  bool falta = false;

 private:
  QStringView texto_;
};

}  // namespace

// The parts of the form that scales and registers share.
class TextoMaquina {
 public:
  static QString teclado(const Maquina& m) {
    const obTeclado& t = m.Teclado;
    return t.Teclado + kFinItem + t.HARDPLU + kFinItem + t.TARASME + kFinBloque;
  }
  static QString cola(const Maquina& m) {
    QString s = m.Publici.mensaje + kFinItem + QString::number(m.Publici.Modo) + kFinItem +
                QString::number(m.Publici.Tiempo) + kFinBloque;
    const auto bloque = [&s](const QString& valor) { s += valor + kFinBloque; };
    bloque(m.RazonSo);
    bloque(siNo(m.CB_Habil, m.espanol()));
    bloque(QString::number(m.CB_tpEAN));
    bloque(QString::number(m.CB_pFija));
    bloque(m.CB_Fmato);
    for (const bool permiso :
         {m.FG_PrLib, m.FG_PrEsp, m.FG_Devol, m.FG_Abono, m.FG_DcSbt, m.FG_HabDp})
      bloque(siNo(permiso, m.espanol()));
    bloque(QString::number(m.PL_digEn));
    return s + QString::number(m.PL_pFija.value_or(0));
  }
  static void leerTeclado(Bloques& b, Maquina& m) {
    const auto textos = b.items(3);
    m.Teclado.Teclado = textos[0].toString();
    m.Teclado.HARDPLU = textos[1].toString();
    m.Teclado.TARASME = textos[2].toString();
  }
  static void leerCola(Bloques& b, Maquina& m) {
    const auto publici = b.items(3);
    m.Publici = {publici[0].toString(), publici[1].toInt(), publici[2].toInt()};
    m.RazonSo = b.bloque().toString();
    m.CB_Habil = leerPermiso(b, m);
    m.CB_tpEAN = static_cast<int>(b.numero());
    m.CB_pFija = b.numero();
    m.CB_Fmato = b.bloque().toString();
    for (bool* permiso :
         {&m.FG_PrLib, &m.FG_PrEsp, &m.FG_Devol, &m.FG_Abono, &m.FG_DcSbt, &m.FG_HabDp})
      *permiso = leerPermiso(b, m);
    m.PL_digEn = static_cast<int>(b.numero());
    m.PL_pFija = b.resto().trimmed().toLongLong();
    m.normalizarPLU();
  }

 private:
  static bool leerPermiso(Bloques& b, const Maquina& m) {
    return leerSiNo(b.bloque(), m.espanol()).value_or(false);
  }
};

QString Balanza::Texto() const {
  QString s = kMarcaBalanza + QString::number(tipo()) + kFinBloque;
  for (int n = 11; n <= 20; ++n) s += Formato(n) + (n < 20 ? kFinItem : kFinBloque);
  for (int n = 1; n <= 3; ++n)
    s +=
        QStringLiteral("%1,%2").arg(CassModo(n)).arg(CassOper(n)) + (n < 3 ? kFinItem : kFinBloque);
  return s + TextoMaquina::teclado(*this) + TextoMaquina::cola(*this);
}

bool Balanza::Texto(const QString& texto) {
  if (!texto.startsWith(kMarcaBalanza)) return false;
  Bloques b(QStringView(texto).mid(kMarcaBalanza.size()));
  Balanza leida = *this;
  leida.tipo(static_cast<int>(b.numero()));
  const auto formatos = b.items(10);
  for (int n = 11; n <= 20; ++n) leida.Formato(n, formatos[n - 11].toString());
  const auto casetes = b.items(3);
  for (int n = 1; n <= 3; ++n) {
    const QStringView par = casetes[n - 1];
    const qsizetype coma = par.indexOf(u',');
    leida.CassModo(n, par.left(std::max<qsizetype>(coma, 0)).toInt());
    leida.CassOper(n, par.mid(coma + 1).toInt());
  }
  TextoMaquina::leerTeclado(b, leida);
  TextoMaquina::leerCola(b, leida);
  if (!b.falta) *this = leida;
  return !b.falta;
}

QString Registradora::Texto() const {
  return kMarcaRegistradora + QString::number(tipo()) + kFinBloque +
         (Direccion ? QString::number(*Direccion) : QString()) + kFinBloque +
         TextoMaquina::teclado(*this) + TextoMaquina::cola(*this);
}

bool Registradora::Texto(const QString& texto) {
  if (!texto.startsWith(kMarcaRegistradora)) return false;
  Bloques b(QStringView(texto).mid(kMarcaRegistradora.size()));
  Registradora leida = *this;
  leida.tipo(static_cast<int>(b.numero()));
  const QStringView direccion = b.bloque();
  leida.Direccion = direccion.isEmpty() ? std::nullopt : std::optional(direccion.toInt());
  TextoMaquina::leerTeclado(b, leida);
  TextoMaquina::leerCola(b, leida);
  if (!b.falta) *this = leida;
  return !b.falta;
}

}  // namespace tarvo::devices
