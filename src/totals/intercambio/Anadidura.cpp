#include "totals/intercambio/Anadidura.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>

#include "core/dao/Recorrido.h"
#include "totals/TextosTotals.h"
#include "totals/intercambio/FinDeFichero.h"

namespace tarvo::totals {

using ficheros::Creciente;

namespace {

constexpr qint64 kTrozo = 64 * 1024;
constexpr qint64 kCabecera = 1024;      // more than the first line of a block
constexpr qint64 kVecindad = 4 * 1024;  // bytes before the end, by which a file is recognised
const QString kDeBloque = QStringLiteral("b:");

QString hex(const QCryptographicHash& h) {
  return QString::fromLatin1(h.result().toHex());
}

Resultado<QString> vecindad(const Creciente& f, qint64 fin) {
  const qint64 ancho = std::min(fin, kVecindad);
  TARVO_TOMAR(const auto bytes, f.leer(fin - ancho, ancho));
  return QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex());
}

// Blocks may be added to a file that begins as one does, with two lines of a star, as far as they
// are there, or to an empty one of that name. Any other is somebody else's, whatever it is called.
bool esDeExportacion(const QString& ruta, const QByteArray& principio) {
  if (principio.isEmpty()) return ruta.endsWith(QStringLiteral(".EXP"), Qt::CaseInsensitive);
  const qsizetype segunda = principio.indexOf('\n') + 1;
  return principio.startsWith('*') &&
         (segunda == 0 || segunda == principio.size() || principio[segunda] == '*');
}

struct Abierto {
  QString ruta;
  qint64 antes, tope;
  QString vecindad;
  QByteArray cabeza;
};

// After a power failure a disk may have kept the length of what was written but not the bytes.
bool esPrincipio(QByteArrayView hallado, QByteArrayView cabeza) {
  return std::ranges::equal(hallado, cabeza.first(hallado.size()),
                            [](char h, char c) { return h == c || h == 0; });
}

// True when the note of it is no longer needed.
bool cortar(const Abierto& a) {
  if (!QFileInfo::exists(a.ruta)) return false;
  auto f = Creciente::abrir(a.ruta, false);
  if (!f) return false;
  const auto tamano = f->tamano();
  if (!tamano) return false;
  const qint64 antes = std::max<qint64>(a.antes, 0);
  if (*tamano < antes || *tamano > a.tope) return true;  // changed by another program
  const auto v = vecindad(*f, antes);
  if (!v) return false;
  if (*v != a.vecindad) return true;
  const auto nuestro = f->leer(antes, a.cabeza.size());
  if (!nuestro) return false;
  if (!esPrincipio(*nuestro, a.cabeza)) return true;
  if (*tamano > antes && !f->cortar(antes)) return false;
  return a.antes >= 0 || QFile::remove(a.ruta);
}

}  // namespace

Anadidura::Anadidura(dao::Database& db, const QString& ruta, Creciente fichero, qint64 antes,
                     qint64 tope, QByteArray cabeza)
    : db_(db),
      ruta_(ruta),
      fichero_(std::move(fichero)),
      antes_(antes),
      tope_(tope),
      cabeza_(std::move(cabeza)) {}

Anadidura::~Anadidura() {
  if (!cuenta_) deshacer();
}

Resultado<> Anadidura::recuperar(dao::Database& db, const std::optional<QString>& ruta) {
  std::vector<Abierto> abiertos;
  TARVO_INTENTAR(dao::recorrer(
      db.consultar(u"SELECT RUTA, ANTES, TOPE, VECINDAD, CABEZA FROM ExportesAbiertos"),
      [&](const dao::Recordset& rs) {
        if (!ruta || rs.texto(0) == *ruta)
          abiertos.push_back({rs.texto(0), rs.entero(1), rs.entero(2), rs.texto(3),
                              QByteArray::fromHex(rs.texto(4).toLatin1())});
      }));
  for (const Abierto& a : abiertos)
    if (cortar(a))
      TARVO_INTENTAR(db.ejecutar(u"DELETE FROM ExportesAbiertos WHERE RUTA=?", a.ruta));
  return {};
}

Resultado<std::unique_ptr<Anadidura>> Anadidura::empezar(dao::Database& db, const QString& ruta,
                                                         qint64 largo, QByteArray cabeza,
                                                         const Ajustes& ajustes,
                                                         const Textos& textos) {
  TARVO_INTENTAR(recuperar(db, ruta));
  const bool habia = QFileInfo::exists(ruta);
  qint64 antes = -1;
  QString huella = hex(QCryptographicHash(QCryptographicHash::Sha256));
  if (habia) {
    TARVO_TOMAR(const auto f, Creciente::abrir(ruta, false));
    TARVO_TOMAR(const auto tamano, f.tamano());
    TARVO_TOMAR(const auto principio, f.leer(0, std::min(tamano, kCabecera)));
    if (!esDeExportacion(ruta, principio))
      return fallo(Fallo::Formato, textos(kTxNoEsExportacion, {ruta}));
    TARVO_TOMAR(const auto v, vecindad(f, tamano));
    TARVO_TOMAR(const bool admite, admiteOtroBloque(db, ajustes, ruta));
    if (!admite) return fallo(Fallo::Formato, textos(kTxExportacionCortada, {ruta}));
    antes = tamano;
    huella = v;
  }
  const qint64 tope = std::max<qint64>(antes, 0) + largo;
  TARVO_INTENTAR(db.ejecutar(
      u"INSERT OR REPLACE INTO ExportesAbiertos (RUTA, ANTES, TOPE, VECINDAD, CABEZA) VALUES (?, "
      u"?, ?, ?, ?)",
      ruta, antes, tope, huella, QString::fromLatin1(cabeza.toHex())));
  auto f = Creciente::abrir(ruta, true);
  if (!f) {
    TARVO_INTENTAR(db.ejecutar(u"DELETE FROM ExportesAbiertos WHERE RUTA=?", ruta));
    return std::unexpected(f.error());
  }
  return std::unique_ptr<Anadidura>(
      new Anadidura(db, ruta, std::move(*f), antes, tope, std::move(cabeza)));
}

Resultado<> Anadidura::escribir(QByteArrayView bytes) {
  espera_.append(bytes);
  return espera_.size() < kTrozo ? Resultado<>() : volcar();
}

Resultado<> Anadidura::volcar() {
  huella_.addData(espera_);
  TARVO_INTENTAR(fichero_.anadir(espera_));
  escrito_ += espera_.size();
  espera_.resize(0);
  return {};
}

Resultado<Anadidura::Sitio> Anadidura::asegurar() {
  TARVO_INTENTAR(volcar());
  TARVO_INTENTAR(fichero_.asegurar());
  const qint64 desde = std::max<qint64>(antes_, 0);
  return Sitio{desde, desde + escrito_, kDeBloque + hex(huella_)};
}

Resultado<> Anadidura::contada() {
  TARVO_INTENTAR(db_.ejecutar(u"DELETE FROM ExportesAbiertos WHERE RUTA=?", ruta_));
  const qint64 desde = std::max<qint64>(antes_, 0);
  return anotarFinal(db_, ruta_, desde, desde + escrito_, cabeza_);
}

// If this fails, the note stays, and the next export into the file or the next start cuts it back.
void Anadidura::deshacer() {
  const bool fuera = antes_ < 0 ? QFile::remove(ruta_) : fichero_.cortar(antes_).has_value();
  if (fuera) static_cast<void>(db_.ejecutar(u"DELETE FROM ExportesAbiertos WHERE RUTA=?", ruta_));
}

// A fingerprint without its mark covers the whole file up to there.
Resultado<bool> Anadidura::estaEn(const QString& ruta, const Sitio& sitio) {
  QFile f(ruta);
  if (!QFileInfo::exists(ruta) || sitio.hasta <= 0) return false;
  if (!f.open(QIODevice::ReadOnly))
    return fallo(Fallo::SinPermiso, QStringLiteral("%1: %2").arg(ruta, f.errorString()));
  const bool deBloque = sitio.huella.startsWith(kDeBloque);
  qint64 queda = sitio.hasta - (deBloque ? sitio.desde : 0);
  if (f.size() < sitio.hasta || !f.seek(sitio.hasta - queda)) return false;
  QCryptographicHash h(QCryptographicHash::Sha256);
  while (queda > 0) {
    const QByteArray trozo = f.read(std::min(queda, kTrozo));
    if (trozo.isEmpty()) return false;
    h.addData(trozo);
    queda -= trozo.size();
  }
  return hex(h) == (deBloque ? sitio.huella.mid(kDeBloque.size()) : sitio.huella);
}

}  // namespace tarvo::totals
