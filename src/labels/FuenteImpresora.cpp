#include "labels/FuenteImpresora.h"

#include <QFileInfo>

#include "core/ajustes/Ajustes.h"
#include "core/ajustes/Ficheros.h"
#include "labels/TextosLabels.h"

namespace tarvo::labels {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPrimero = 32, kCaracteres = 131;

// Where the characters of a font begin.
constexpr int inicio(int fuente) {
  int n = 0;
  for (int i = 0; i < fuente; ++i) n += kCaracteres * kMedidas[static_cast<size_t>(i)].alto;
  return n;
}
static_assert(inicio(kFuentes) == FuenteImpresora::kTamano);

}  // namespace

QString nombreDeFuente(int fuente) {
  const MedidaFuente& m = kMedidas[static_cast<size_t>(fuente)];
  return u"%1x%2"_s.arg(m.ancho).arg(m.alto);
}

QString caracteresFuente(QString texto) {
  static constexpr std::pair<char16_t, char16_t> kCodigos[] = {
      {u'€', 127},  {u'Ñ', 136},  {u'ñ', 137},  {u'Ç', 139},  {u'ç', 160},
      {u'á', u'a'}, {u'é', 145},  {u'í', u'i'}, {u'ó', u'o'}, {u'ú', u'u'},
      {u'à', 141},  {u'è', 142},  {u'ì', u'i'}, {u'ò', u'o'}, {u'ù', 143},
      {u'Á', u'A'}, {u'É', u'E'}, {u'Í', u'I'}, {u'Ó', u'O'}, {u'Ú', u'U'},
      {u'À', u'A'}, {u'È', u'E'}, {u'Ì', u'I'}, {u'Ò', u'O'}, {u'Ù', u'U'}};
  for (QChar& c : texto)
    for (const auto& [signo, codigo] : kCodigos)
      if (c == signo) {
        c = codigo;
        break;
      }
  return texto;
}

std::optional<FuenteImpresora> FuenteImpresora::deBytes(const QByteArray& bytes) {
  if (bytes.size() != kTamano) return {};
  for (int f = 0; f < kFuentes; ++f) {
    const int alto = kMedidas[static_cast<size_t>(f)].alto;
    if (bytes.mid(inicio(f) + ('0' - kPrimero) * alto, 10 * alto).count('\0') == 10 * alto)
      return {};
  }
  FuenteImpresora fuente;
  fuente.bytes_ = bytes;
  return fuente;
}

bool FuenteImpresora::negro(int fuente, int codigo, int columna, int fila) const {
  if (bytes_.isEmpty() || codigo < kPrimero || codigo >= kPrimero + kCaracteres) return false;
  const int alto = kMedidas[static_cast<size_t>(fuente)].alto;
  const int byte = inicio(fuente) + (codigo - kPrimero) * alto + fila;
  return (static_cast<unsigned char>(bytes_[byte]) & (128 >> columna)) != 0;
}

FuenteHallada buscarFuente(const QString& deLaTienda, const QString& delPrograma,
                           const Textos& textos) {
  QString aviso;
  for (const QString& carpeta : {deLaTienda, delPrograma}) {
    const QString ruta = Ajustes::ruta(u"LBLFNT.BIN"_s, carpeta);
    const bool suya = carpeta == delPrograma;
    if (!suya && !QFileInfo::exists(ruta)) continue;
    const auto bytes = ficheros::leerBytes(ruta);
    if (const auto fuente = bytes ? FuenteImpresora::deBytes(*bytes) : std::nullopt)
      return {*fuente, aviso};
    aviso = textos(suya ? kTxSinFuente : kTxFuenteMala, {ruta});
  }
  return {{}, aviso};
}

}  // namespace tarvo::labels
