#include "automation/ventanas/FicheroTraza.h"

#include <algorithm>
#include <array>

#include "automation/TextosAutomation.h"
#include "core/ajustes/Ficheros.h"

namespace tarvo::automation {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kBloque = 1024 * 1024;
constexpr qint64 kLineaMaxima = 16 * 1024;  // shown of a line, in bytes
constexpr qsizetype kCola = 64;
constexpr qsizetype kCampoProceso = 8;  // prefix of each line in a timetable's trace

// The letter in lower case, without its accent.
char sinAcento(QChar c) {
  const QString partes = c.decomposition();
  const char16_t letra = (partes.isEmpty() ? c : partes[0]).toLower().unicode();
  return letra < 256 ? static_cast<char>(letra) : '?';
}

QByteArray plegarTexto(const QString& texto) {
  QByteArray bytes;
  for (const QChar c : texto) bytes += sinAcento(c);
  return bytes;
}

// The same for each byte, so that a file never has to be decoded as a whole.
std::array<char, 256> hacerTabla() {
  std::array<char, 256> tabla{};
  for (int i = 0; i < 256; ++i) {
    const QString c = ficheros::descodificar1252(QByteArray(1, static_cast<char>(i)));
    tabla[static_cast<size_t>(i)] = c.isEmpty() ? ' ' : sinAcento(c[0]);
  }
  return tabla;
}

QByteArray plegarBytes(QByteArray bytes) {
  static const std::array<char, 256> kTabla = hacerTabla();
  for (char& b : bytes) b = kTabla[static_cast<unsigned char>(b)];
  return bytes;
}

bool esCabecera(QByteArrayView l) {
  const auto cifra = [&](qsizetype i) { return l[i] >= '0' && l[i] <= '9'; };
  return l.size() > 4 && cifra(0) && cifra(1) && cifra(2) && l[3] == ':' && l[4] >= 'A' &&
         l[4] <= 'Z';
}

}  // namespace

FicheroTraza::FicheroTraza(QString ruta, const Textos& textos)
    : ruta_(std::move(ruta)),
      abandona_(ficheros::codificar1252(textos(kTxSeAbandona))),
      interrumpida_(ficheros::codificar1252(textos(kTxInterrumpida).section(u'%', 0, 0))) {}

// --- reading ------------------------------------------------------------------------------------

// The last bytes read are still at the same position.
bool FicheroTraza::esElMismo() {
  return fichero_->size() >= fin_ && fichero_->seek(fin_ - cola_.size()) &&
         fichero_->read(cola_.size()) == cola_;
}

FicheroTraza::Cambio FicheroTraza::leer(qint64 bytesComoMucho) {
  fichero_ = std::make_unique<QFile>(ruta_);
  Cambio cambio = Cambio::Ninguno;
  if (!fichero_->open(QIODevice::ReadOnly) || !esElMismo()) {
    if (fin_ > 0) cambio = Cambio::OtroFichero;
    inicios_ = {0};
    fin_ = 0;
    masLarga_ = 0;
    cola_.clear();
  }
  quedaMas_ = false;
  if (!fichero_->isOpen() || !fichero_->seek(fin_)) return cambio;
  const QByteArray nuevos = fichero_->read(bytesComoMucho);
  if (nuevos.isEmpty()) return cambio;
  anadir(nuevos);
  quedaMas_ = fin_ < fichero_->size();
  return cambio == Cambio::Ninguno ? Cambio::Crecio : cambio;
}

void FicheroTraza::anadir(const QByteArray& nuevos) {
  if (fin_ == 0) utf8_ = nuevos.startsWith("\xEF\xBB\xBF");
  for (qsizetype i = nuevos.indexOf('\n'); i >= 0; i = nuevos.indexOf('\n', i + 1)) {
    const qint64 siguiente = fin_ + i + 1;
    masLarga_ = std::max(masLarga_, static_cast<int>(siguiente - inicios_.back()));
    inicios_.push_back(siguiente);
  }
  fin_ += nuevos.size();
  masLarga_ = std::max(masLarga_, static_cast<int>(fin_ - inicios_.back()));
  cola_ = (cola_ + nuevos.right(kCola)).right(kCola);
}

// --- lines --------------------------------------------------------------------------------------

int FicheroTraza::lineas() const {
  return static_cast<int>(inicios_.size()) - (inicios_.back() == fin_ ? 1 : 0);
}

QByteArray FicheroTraza::bytes(int primera, int trasUltima) const {
  const qint64 desde = inicios_[static_cast<size_t>(primera)];
  const auto tras = static_cast<size_t>(trasUltima);
  const qint64 hasta = tras < inicios_.size() ? inicios_[tras] : fin_;
  if (!fichero_ || !fichero_->seek(desde)) return {};
  return fichero_->read(hasta - desde);
}

QString FicheroTraza::linea(int n) const {
  const QByteArray b = bytes(n, n + 1).left(kLineaMaxima);
  QString texto = utf8_ ? QString::fromUtf8(b) : ficheros::descodificar1252(b);
  while (texto.endsWith(u'\n') || texto.endsWith(u'\r')) texto.chop(1);
  return texto;
}

bool FicheroTraza::esProblema(int n) const {
  return diceProblema(bytes(n, n + 1));
}

// Only problems have a header.
bool FicheroTraza::diceProblema(QByteArrayView l) const {
  while (!l.isEmpty() && (l.back() == '\n' || l.back() == '\r')) l.chop(1);
  const QByteArrayView tras = l.sliced(std::min(l.size(), kCampoProceso));
  return esCabecera(l) || esCabecera(tras) || l.endsWith(abandona_) ||
         l.startsWith(interrumpida_) || tras.startsWith(interrumpida_);
}

int FicheroTraza::lineaEn(qint64 sitio) const {
  return static_cast<int>(std::ranges::upper_bound(inicios_, sitio) - inicios_.begin()) - 1;
}

// --- search -------------------------------------------------------------------------------------

// The end of as many lines as fit in a block, at least one.
int FicheroTraza::hastaUnBloque(int primera) const {
  const int l = lineaEn(inicios_[static_cast<size_t>(primera)] + kBloque);
  return std::min(std::max(l, primera + 1), lineas());
}
int FicheroTraza::desdeUnBloque(int trasUltima) const {
  const auto tras = static_cast<size_t>(trasUltima);
  const qint64 hasta = tras < inicios_.size() ? inicios_[tras] : fin_;
  return std::min(lineaEn(std::max<qint64>(0, hasta - kBloque)), trasUltima - 1);
}

int FicheroTraza::adelante(int desde, const Mira& mira) const {
  for (int i = std::max(0, desde); i < lineas();) {
    const int j = hastaUnBloque(i);
    const qint64 base = inicios_[static_cast<size_t>(i)];
    if (const qsizetype en = mira(bytes(i, j)); en >= 0) return lineaEn(base + en);
    i = j;
  }
  return -1;
}

int FicheroTraza::buscar(const QString& texto, int desde, bool atras) const {
  const QByteArray aguja = plegarTexto(texto);
  if (aguja.isEmpty()) return -1;
  if (!atras)
    return adelante(
        desde, [&aguja](const QByteArray& bloque) { return plegarBytes(bloque).indexOf(aguja); });
  for (int j = std::min(desde + 1, lineas()); j > 0;) {
    const int i = desdeUnBloque(j);
    const qsizetype en = plegarBytes(bytes(i, j)).lastIndexOf(aguja);
    if (en >= 0) return lineaEn(inicios_[static_cast<size_t>(i)] + en);
    j = i;
  }
  return -1;
}

int FicheroTraza::problema(int desde) const {
  return adelante(desde, [this](const QByteArray& bloque) -> qsizetype {
    for (qsizetype i = 0; i < bloque.size();) {
      qsizetype fin = bloque.indexOf('\n', i);
      if (fin < 0) fin = bloque.size();
      if (diceProblema(QByteArrayView(bloque).sliced(i, fin - i))) return i;
      i = fin + 1;
    }
    return -1;
  });
}

}  // namespace tarvo::automation
