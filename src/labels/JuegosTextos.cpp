#include "labels/JuegosTextos.h"

#include "labels/TextosLabels.h"

namespace tarvo::labels {

using namespace Qt::StringLiterals;

namespace {

const QString kNuevo = u"\r\n"_s;  // the lines of a new set

const QString* lineasDe(const Juegos& en, const std::optional<QString>& juego) {
  const auto cual = juego ? en.juegos.find(*juego) : en.juegos.end();
  return cual == en.juegos.end() ? nullptr : &cual->second;
}

}  // namespace

Resultado<Juegos> JuegosTextos::leer() {
  Juegos todos;
  TARVO_INTENTAR(
      dao::recorrer(db_.consultar(u"SELECT CODSET, Texto FROM TEXTOSETQ WHERE CODSET IS NOT NULL"),
                    [&](const dao::Recordset& fila) {
                      todos.juegos[fila.texto(0)] = fila.nulo(1) ? QString() : fila.texto(1);
                    }));
  for (size_t i = 0; i < todos.propios.size(); ++i)
    todos.propios[i] = ajustes_.TextoEtiquetas[i + kPrimerTextoLibre];
  return todos;
}

Resultado<std::optional<QString>> JuegosTextos::lineas(const QString& nombre) {
  TARVO_TOMAR(const auto rs, db_.consultar(u"SELECT Texto FROM TEXTOSETQ WHERE CODSET=?", nombre));
  if (rs->Eof()) return std::nullopt;
  return std::optional(rs->nulo(0) ? QString() : rs->texto(0));
}

Resultado<> JuegosTextos::guardar(const Juegos& antes, const Juegos& ahora) {
  TARVO_TOMAR(auto t, dao::Transaccion::empezar(db_));
  for (const auto& [nombre, lineas] : antes.juegos)
    if (!ahora.juegos.contains(nombre))
      TARVO_INTENTAR(db_.ejecutar(u"DELETE FROM TEXTOSETQ WHERE CODSET=?", nombre));
  for (const auto& [nombre, lineas] : ahora.juegos) {
    const auto vieja = antes.juegos.find(nombre);
    if (vieja != antes.juegos.end() && vieja->second == lineas) continue;
    TARVO_TOMAR(const auto n,
                db_.ejecutar(u"UPDATE TEXTOSETQ SET Texto=? WHERE CODSET=?", lineas, nombre));
    if (n == 0)
      TARVO_INTENTAR(
          db_.ejecutar(u"INSERT INTO TEXTOSETQ (CODSET, Texto) VALUES (?, ?)", nombre, lineas));
  }
  TARVO_INTENTAR(t.confirmar());
  if (antes.propios == ahora.propios) return {};
  std::optional<QString> ninguno;
  for (int i = 0; i < kTextosLibres; ++i)
    PonerTexto(kPrimerTextoLibre + i, ahora.propios[static_cast<size_t>(i)], ninguno, ajustes_);
  return ajustes_.GuardarConfig();
}

QString JuegosTextos::texto(const Juegos& en, const std::optional<QString>& juego, int n) const {
  const QString* lineas = lineasDe(en, juego);
  if (n < kPrimerTextoLibre || n > kUltimoTexto || lineas)
    return LeerTexto(n, lineas ? std::optional(*lineas) : std::nullopt, ajustes_);
  return en.propios[static_cast<size_t>(n - kPrimerTextoLibre)];
}

void JuegosTextos::poner(Juegos& en, const std::optional<QString>& juego, int n,
                         const QString& texto) {
  if (n < kPrimerTextoLibre || n > kUltimoTexto) return;
  QString una = texto;
  una.replace(u'\r', u' ').replace(u'\n', u' ');
  if (lineasDe(en, juego) == nullptr) {
    en.propios[static_cast<size_t>(n - kPrimerTextoLibre)] = una;
    return;
  }
  QStringList lineas = en.juegos[*juego].split(kNuevo);
  lineas.resize(kTextosLibres);
  lineas[n - kPrimerTextoLibre] = una;
  en.juegos[*juego] = lineas.join(kNuevo);
}

// A name of digits alone would be stored as a number, and a format with it as one without a set.
Resultado<> JuegosTextos::crear(Juegos& en, const QString& nombre) const {
  const QString bueno = nombre.trimmed();
  bool numero = false;
  bueno.toDouble(&numero);
  if (bueno.isEmpty()) return fallo(Fallo::Restriccion, textos_(kTxJuegoSinNombre));
  if (numero) return fallo(Fallo::Restriccion, textos_(kTxJuegoSinLetras));
  if (en.juegos.contains(bueno)) return fallo(Fallo::Duplicado, textos_(kTxJuegoYaEsta, {bueno}));
  en.juegos[bueno] = kNuevo;
  return {};
}

}  // namespace tarvo::labels
